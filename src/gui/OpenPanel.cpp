#include "gui/OpenPanel.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>

OpenPanel::OpenPanel(QWidget* window, const Options& options)
    : QFileDialog(window, options.title, options.directory)
    , m_chooseFolders(options.chooseFolders)
{
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(options.multipleSelection ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (options.chooseFolders && !options.chooseFiles) {
        setFileMode(QFileDialog::Directory);
        setOption(QFileDialog::ShowDirsOnly);
    }
    if (options.showHiddenFiles)
        setFilter(filter() | QDir::Hidden);
    setLabelText(QFileDialog::Accept, options.prompt);

    if (auto* grid = qobject_cast<QGridLayout*>(layout()); grid && !options.message.isEmpty()) {
        auto* message = new QLabel(options.message, this);
        message->setAlignment(Qt::AlignCenter);
        grid->addWidget(message, grid->rowCount(), 0, 1, grid->columnCount());
    }
}

OpenPanel* OpenPanel::begin(QWidget* window, const Options& options, std::function<void(const QStringList&)> done)
{
    auto* panel = new OpenPanel(window, options);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    connect(panel, &QDialog::finished, panel, [panel, done = std::move(done)](int result) {
        done(result == QDialog::Accepted ? panel->selectedFiles() : QStringList());
    });
    panel->open();
    return panel;
}

void OpenPanel::accept()
{
    // Qt's dialog opens a chosen folder instead of choosing it; a panel that may
    // choose folders takes whatever exists.
    const QStringList chosen = selectedFiles();
    const bool allExist = !chosen.isEmpty() && std::all_of(chosen.cbegin(), chosen.cend(),
                                                           [](const QString& path) { return QFileInfo::exists(path); });
    if (m_chooseFolders && allExist) {
        QDialog::accept();
        return;
    }
    QFileDialog::accept();
}
