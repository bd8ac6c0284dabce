#pragma once

#include <QDialog>

#include <functional>

class CustomShred;
class HTML5Manager;
class PluginManager;
class PreferenceControls;
class Preferences;
class ProfilesManager;
class QTabWidget;

// The settings panel: one pane per subject, every change written through at
// once (there is no Apply), and a button that puts the erasing and general
// settings back to their factory values.
class SettingsWindow : public QDialog {
    Q_OBJECT

public:
    struct Models {
        Preferences& preferences;
        HTML5Manager& html5;
        ProfilesManager& profiles;
        PluginManager& plugins;
        CustomShred& custom;
    };

    SettingsWindow(Models models, std::function<void()> beep, QWidget* parent = nullptr);
    ~SettingsWindow() override;

    // Shows the current settings, centred and in front.
    void showPanel();
    QTabWidget* panes() const { return m_panes; }

protected:
    void hideEvent(QHideEvent* event) override;

private:
    Preferences& m_preferences;
    PreferenceControls* m_controls;
    QTabWidget* m_panes;
};
