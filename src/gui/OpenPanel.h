#pragma once

#include <QFileDialog>

#include <functional>

// The open dialog of the settings panes, shown as a sheet on a window. It can
// choose files, folders or both (Qt's own dialog, since the native ones cannot
// take both at once), and says in a line below the file list what it is for.
class OpenPanel : public QFileDialog {
    Q_OBJECT

public:
    struct Options {
        QString title;
        QString prompt;  // the accept button
        QString message; // the line below the list
        QString directory;
        bool chooseFiles = true;
        bool chooseFolders = false;
        bool multipleSelection = false;
        bool showHiddenFiles = false;
    };

    // done gets the chosen paths, or nothing when the user cancelled.
    static OpenPanel* begin(QWidget* window, const Options& options,
                            std::function<void(const QStringList& paths)> done);

    void accept() override;

private:
    OpenPanel(QWidget* window, const Options& options);

    bool m_chooseFolders;
};
