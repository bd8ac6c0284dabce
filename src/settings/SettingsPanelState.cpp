#include "settings/SettingsPanelState.h"

#include "settings/PreferenceKeys.h"

namespace {

bool isShownInverted(const PreferenceDefinition& definition)
{
    return definition.key == PreferenceKey::KeepSafariTopSites;
}

} // namespace

SettingsPanelState panelStateFromValues(const QVariantMap& values)
{
    SettingsPanelState panel;
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        const QString key = definition.key;
        if (definition.type == PreferenceType::Integer)
            panel.popUpIndexes.insert(key, values.value(key).toLongLong());
        else
            panel.checkBoxes.insert(key, values.value(key).toBool() != isShownInverted(definition));
    }
    return panel;
}

QVariantMap valuesFromPanelState(const SettingsPanelState& panel)
{
    QVariantMap values;
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        const QString key = definition.key;
        if (definition.type == PreferenceType::Integer)
            values.insert(key, panel.popUpIndexes.value(key));
        else
            values.insert(key, panel.checkBoxes.value(key) != isShownInverted(definition));
    }
    return values;
}
