#pragma once

#include <QWidget>

#include <functional>

class CustomShred;
class QCheckBox;
class QListWidget;
class QPushButton;

// The user's own processes for the Tarnhold watch, each with the files and
// folders erased when it quits; a folder may be kept (re-created empty).
class CustomProcessesPane : public QWidget {
    Q_OBJECT

public:
    CustomProcessesPane(CustomShred& custom, std::function<void()> beep, QWidget* parent = nullptr);

private:
    QString selectedProcess() const;
    QString selectedPath() const;
    void addProcess();
    void deleteProcess();
    void addPath();
    void deletePath();
    void disable();
    void toggleKeepThisPath(bool keep);
    void showProcesses();
    void showPaths();
    void tableViewSelectionDidChange();

    CustomShred& m_custom;
    std::function<void()> m_beep;
    QListWidget* m_processTable;
    QListWidget* m_pathTable;
    QPushButton* m_addProcess;
    QPushButton* m_deleteProcess;
    QPushButton* m_disableProcess;
    QPushButton* m_addPath;
    QPushButton* m_deletePath;
    QPushButton* m_disablePath;
    QCheckBox* m_keepThisPath;
};
