#pragma once

#include <QList>
#include <QObject>
#include <QString>

class Preferences;
class QCheckBox;
class QComboBox;

// Binds the settings panel's check boxes and pop-up menus to the preferences,
// whichever pane they sit on: every change reads the check boxes and the menu
// chosen from, if any, and hands them to the preferences, which commit and
// save at once; every change of the displayed values puts them back on the
// controls. A pop-up menu whose stored index is not one the menu offers (the
// separator, or out of range) shows the setting's factory choice, and keeps
// the stored index until the user makes a choice in that menu.
class PreferenceControls : public QObject {
    Q_OBJECT

public:
    explicit PreferenceControls(Preferences& preferences, QObject* parent = nullptr);

    // A check box or pop-up menu for a settings key, named after the key.
    QCheckBox* addCheckBox(const QString& key, const QString& title);
    // items: the menu's titles by index; an empty title is a separator.
    QComboBox* addPopUp(const QString& key, const QStringList& items);

    // Shows the displayed values on every control.
    void reallyupdateUI();

private:
    // changedPopUp: the pop-up menu the user chose from, or null for a check box.
    void miscChanged(const QComboBox* changedPopUp);

    Preferences& m_preferences;
    QList<std::pair<QString, QCheckBox*>> m_checkBoxes;
    QList<std::pair<QString, QComboBox*>> m_popUps;
};
