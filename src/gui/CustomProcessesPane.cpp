#include "gui/CustomProcessesPane.h"

#include "gui/OpenPanel.h"
#include "gui/PaneButton.h"
#include "gui/PaneNote.h"
#include "settings/PluginManager.h"
#include "watch/CustomShred.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString selectedValue(const QListWidget* list)
{
    const QList<QListWidgetItem*> selected = list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->data(Qt::UserRole).toString();
}

// Refills list with (shown text, value) rows unless it shows them already; the
// selected value stays selected.
void fill(QListWidget* list, const QList<std::pair<QString, QString>>& rows)
{
    QList<std::pair<QString, QString>> current;
    for (int row = 0; row < list->count(); ++row)
        current.append({list->item(row)->text(), list->item(row)->data(Qt::UserRole).toString()});
    if (current == rows)
        return;
    const QString selected = selectedValue(list);
    const QSignalBlocker quiet(list);
    list->clear();
    for (const auto& [text, value] : rows) {
        auto* item = new QListWidgetItem(text, list);
        item->setData(Qt::UserRole, value);
        item->setToolTip(value);
        item->setSelected(value == selected);
    }
}

} // namespace

CustomProcessesPane::CustomProcessesPane(CustomShred& custom, std::function<void()> beep, QWidget* parent)
    : QWidget(parent)
    , m_custom(custom)
    , m_beep(std::move(beep))
{
    m_processTable = new QListWidget(this);
    m_processTable->setAccessibleName(tr("Applications to watch"));
    m_processTable->setObjectName(u"mProcessTableView"_s);
    m_addProcess = paneButton(tr("Add…"), "mAddProcessButton", this);
    m_deleteProcess = paneButton(tr("Remove"), "mDeleteProcessButton", this);
    m_disableProcess = paneButton(tr("Disable"), "mDisableProcessButton", this);
    auto* processButtons = new QHBoxLayout;
    processButtons->addWidget(m_addProcess);
    processButtons->addWidget(m_deleteProcess);
    processButtons->addWidget(m_disableProcess);
    processButtons->addStretch();
    auto* processGroup = new QGroupBox(tr("Applications to watch"), this);
    auto* processLayout = new QVBoxLayout(processGroup);
    processLayout->addWidget(m_processTable);
    processLayout->addLayout(processButtons);

    m_pathTable = new QListWidget(this);
    m_pathTable->setAccessibleName(tr("Erased when the selected application quits"));
    m_pathTable->setObjectName(u"mPathTableView"_s);
    m_addPath = paneButton(tr("Add…"), "mAddPathButton", this);
    m_deletePath = paneButton(tr("Remove"), "mDeletePathButton", this);
    m_disablePath = paneButton(tr("Disable"), "mDisablePathButton", this);
    m_keepThisPath = new QCheckBox(tr("Keep the folder: re-create it empty after shredding"), this);
    m_keepThisPath->setObjectName(u"mKeepThisPathCheckbox"_s);
    auto* pathButtons = new QHBoxLayout;
    pathButtons->addWidget(m_addPath);
    pathButtons->addWidget(m_deletePath);
    pathButtons->addWidget(m_disablePath);
    pathButtons->addStretch();
    auto* pathGroup = new QGroupBox(tr("Erased when the selected application quits"), this);
    auto* pathLayout = new QVBoxLayout(pathGroup);
    pathLayout->addWidget(m_pathTable);
    pathLayout->addWidget(m_keepThisPath);
    pathLayout->addLayout(pathButtons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(processGroup, 1);
    layout->addWidget(pathGroup, 1);
    layout->addWidget(
        paneNote(tr("The Tarnhold watch shreds these files and folders when the application quits."), this));

    // The buttons stay enabled whatever is selected: a path action without the
    // selection it needs beeps, and Remove with no process selected does nothing.
    connect(m_addProcess, &QPushButton::clicked, this, &CustomProcessesPane::addProcess);
    connect(m_deleteProcess, &QPushButton::clicked, this, &CustomProcessesPane::deleteProcess);
    connect(m_addPath, &QPushButton::clicked, this, &CustomProcessesPane::addPath);
    connect(m_deletePath, &QPushButton::clicked, this, &CustomProcessesPane::deletePath);
    connect(m_disableProcess, &QPushButton::clicked, this, &CustomProcessesPane::disable);
    connect(m_disablePath, &QPushButton::clicked, this, &CustomProcessesPane::disable);
    connect(m_keepThisPath, &QCheckBox::clicked, this, &CustomProcessesPane::toggleKeepThisPath);
    connect(m_processTable, &QListWidget::itemSelectionChanged, this, &CustomProcessesPane::showPaths);
    connect(m_pathTable, &QListWidget::itemSelectionChanged, this, &CustomProcessesPane::tableViewSelectionDidChange);
    connect(&m_custom, &CustomShred::processesChanged, this, &CustomProcessesPane::showProcesses);
    showProcesses();
}

QString CustomProcessesPane::selectedProcess() const
{
    return selectedValue(m_processTable);
}

QString CustomProcessesPane::selectedPath() const
{
    return selectedValue(m_pathTable);
}

void CustomProcessesPane::addProcess()
{
    OpenPanel::Options options;
    options.title = tr("Select application to monitor");
    options.prompt = tr("Select");
    options.message = tr("Please select an application to monitor.");
    options.directory = QDir::homePath();
    OpenPanel::begin(window(), options, [this](const QStringList& paths) {
        if (paths.isEmpty())
            return;
        if (!m_custom.addProcess(paths.first())) {
            m_beep();
            return;
        }
        for (int row = 0; row < m_processTable->count(); ++row)
            m_processTable->item(row)->setSelected(m_processTable->item(row)->data(Qt::UserRole) == paths.first());
    });
}

void CustomProcessesPane::deleteProcess()
{
    const QString process = selectedProcess();
    if (!process.isEmpty())
        m_custom.deleteProcess(process);
}

void CustomProcessesPane::addPath()
{
    if (selectedProcess().isEmpty()) {
        m_beep();
        return;
    }
    OpenPanel::Options options;
    options.title = tr("Select item to shred");
    options.prompt = tr("Select");
    options.message = tr("Please select an item to shred.");
    options.directory = QDir::homePath();
    options.chooseFolders = true;
    options.showHiddenFiles = true;
    OpenPanel::begin(window(), options, [this](const QStringList& paths) {
        if (paths.isEmpty())
            return;
        const QString process = selectedProcess();
        if (process.isEmpty() || !m_custom.addPath(process, paths.first()))
            m_beep();
    });
}

void CustomProcessesPane::deletePath()
{
    if (selectedProcess().isEmpty() || !m_custom.deletePath(selectedProcess(), selectedPath()))
        m_beep();
}

// Neither a process nor a path can be disabled yet: the list is saved as it is
// and the button answers with a beep.
void CustomProcessesPane::disable()
{
    if (!m_custom.disableProcess())
        m_beep();
}

void CustomProcessesPane::toggleKeepThisPath(bool keep)
{
    m_custom.setKeep(selectedProcess(), selectedPath(), keep);
}

void CustomProcessesPane::showProcesses()
{
    QList<std::pair<QString, QString>> rows;
    for (const QString& process : m_custom.processes())
        rows.append({QFileInfo(process).fileName(), process});
    fill(m_processTable, rows);
    showPaths();
}

void CustomProcessesPane::showPaths()
{
    QList<std::pair<QString, QString>> rows;
    for (const QVariant& entry : m_custom.paths(selectedProcess())) {
        const QString path = entry.toMap().value(u"path"_s).toString();
        rows.append({PluginManager::abbreviateTilde(path), path});
    }
    fill(m_pathTable, rows);
    tableViewSelectionDidChange();
}

void CustomProcessesPane::tableViewSelectionDidChange()
{
    const QString path = selectedPath();

    // Only folders can be kept; a file's entry has no keep flag.
    QVariant keep;
    for (const QVariant& entry : m_custom.paths(selectedProcess())) {
        const QVariantMap map = entry.toMap();
        if (map.value(u"path"_s).toString() == path)
            keep = map.value(u"keep"_s);
    }
    m_keepThisPath->setEnabled(keep.isValid());
    m_keepThisPath->setChecked(keep.toBool());
}
