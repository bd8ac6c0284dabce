#include "gui/PreferenceControls.h"

#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSignalBlocker>

PreferenceControls::PreferenceControls(Preferences& preferences, QObject* parent)
    : QObject(parent)
    , m_preferences(preferences)
{
    connect(&m_preferences, &Preferences::displayedValuesChanged, this, &PreferenceControls::reallyupdateUI);
}

QCheckBox* PreferenceControls::addCheckBox(const QString& key, const QString& title)
{
    auto* box = new QCheckBox(title);
    box->setObjectName(key);
    m_checkBoxes.append({key, box});
    connect(box, &QCheckBox::clicked, this, [this] { miscChanged(nullptr); });
    return box;
}

QComboBox* PreferenceControls::addPopUp(const QString& key, const QStringList& items)
{
    auto* popUp = new QComboBox;
    popUp->setObjectName(key);
    for (const QString& item : items) {
        if (item.isEmpty())
            popUp->insertSeparator(popUp->count());
        else
            popUp->addItem(item);
    }
    m_popUps.append({key, popUp});
    connect(popUp, &QComboBox::activated, this, [this, popUp] { miscChanged(popUp); });
    return popUp;
}

void PreferenceControls::reallyupdateUI()
{
    const SettingsPanelState panel = m_preferences.panelState();
    for (const auto& [key, box] : std::as_const(m_checkBoxes)) {
        const QSignalBlocker quiet(box);
        box->setChecked(panel.checkBoxes.value(key));
    }
    for (const auto& [key, popUp] : std::as_const(m_popUps)) {
        const PreferenceDefinition* definition = findPreference(key);
        qint64 index = panel.popUpIndexes.value(key);
        if (!definition || !isSelectableMenuIndex(*definition, index))
            index = definition ? definition->factoryValue : 0;
        const QSignalBlocker quiet(popUp);
        popUp->setCurrentIndex(int(index));
    }
}

void PreferenceControls::miscChanged(const QComboBox* changedPopUp)
{
    // Controls that are not on any pane keep what the preferences show. So does
    // a pop-up menu the user did not touch: it may show the factory choice for
    // a stored index it cannot select.
    SettingsPanelState panel = m_preferences.panelState();
    for (const auto& [key, box] : std::as_const(m_checkBoxes))
        panel.checkBoxes.insert(key, box->isChecked());
    for (const auto& [key, popUp] : std::as_const(m_popUps)) {
        if (popUp == changedPopUp)
            panel.popUpIndexes.insert(key, popUp->currentIndex());
    }
    m_preferences.miscChanged(panel);
}
