#pragma once

#include <QWidget>

#include <functional>

class PluginManager;
class PluginTableModel;
class QListWidget;
class QPushButton;
class QTableView;

// The browser plug-ins whose folders a run erases: the plug-in table, the
// selected plug-in's paths, and the buttons that add, remove and restore them.
class PluginsPane : public QWidget {
    Q_OBJECT

public:
    PluginsPane(PluginManager& plugins, std::function<void()> beep, QWidget* parent = nullptr);

private:
    int selectedPlugin() const;
    void addPlugin();
    void deletePlugin();
    void addPath();
    void deletePath();
    void restoreDefault();
    void showPaths();
    void tableViewSelectionDidChange();

    PluginManager& m_plugins;
    std::function<void()> m_beep;
    PluginTableModel* m_model;
    QTableView* m_pluginList;
    QListWidget* m_pluginPath;
    QPushButton* m_addPlugin;
    QPushButton* m_deletePlugin;
    QPushButton* m_restoreDefault;
    QPushButton* m_addPath;
    QPushButton* m_deletePath;
};
