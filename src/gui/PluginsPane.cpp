#include "gui/PluginsPane.h"

#include "gui/OpenPanel.h"
#include "gui/PaneButton.h"
#include "gui/PaneNote.h"
#include "gui/PluginTableModel.h"
#include "settings/PluginManager.h"

#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PluginsPane::PluginsPane(PluginManager& plugins, std::function<void()> beep, QWidget* parent)
    : QWidget(parent)
    , m_plugins(plugins)
    , m_beep(std::move(beep))
    , m_model(new PluginTableModel(plugins, this))
{
    m_pluginList = new QTableView(this);
    m_pluginList->setAccessibleName(tr("Plug-ins"));
    m_pluginList->setObjectName(u"mPluginList"_s);
    m_pluginList->setModel(m_model);
    m_pluginList->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pluginList->setSelectionMode(QAbstractItemView::SingleSelection);
    m_pluginList->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_pluginList->verticalHeader()->hide();
    m_pluginList->verticalHeader()->setDefaultSectionSize(m_pluginList->fontMetrics().height() + 10);
    m_pluginList->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pluginList->horizontalHeader()->setSectionResizeMode(PluginTableModel::EnabledColumn,
                                                           QHeaderView::ResizeToContents);
    m_pluginList->horizontalHeader()->setStretchLastSection(true);
    m_pluginList->setAlternatingRowColors(true);

    m_addPlugin = paneButton(tr("Add"), "mAddPlugin", this);
    m_deletePlugin = paneButton(tr("Remove"), "mDeletePlugin", this);
    m_restoreDefault = paneButton(tr("Restore Default Paths"), "mRestoreDefault", this);
    auto* pluginButtons = new QHBoxLayout;
    pluginButtons->addWidget(m_addPlugin);
    pluginButtons->addWidget(m_deletePlugin);
    pluginButtons->addStretch();
    pluginButtons->addWidget(m_restoreDefault);

    auto* pluginGroup = new QGroupBox(tr("Plug-ins"), this);
    auto* pluginLayout = new QVBoxLayout(pluginGroup);
    pluginLayout->addWidget(m_pluginList);
    pluginLayout->addLayout(pluginButtons);

    m_pluginPath = new QListWidget(this);
    m_pluginPath->setAccessibleName(tr("Folders and files of the selected plug-in"));
    m_pluginPath->setObjectName(u"mPluginPath"_s);
    m_addPath = paneButton(tr("Add…"), "mAddPath", this);
    m_deletePath = paneButton(tr("Remove"), "mDeletePath", this);
    auto* pathButtons = new QHBoxLayout;
    pathButtons->addWidget(m_addPath);
    pathButtons->addWidget(m_deletePath);
    pathButtons->addStretch();

    auto* pathGroup = new QGroupBox(tr("Folders and files of the selected plug-in"), this);
    auto* pathLayout = new QVBoxLayout(pathGroup);
    pathLayout->addWidget(m_pluginPath);
    pathLayout->addLayout(pathButtons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(pluginGroup, 1);
    layout->addWidget(pathGroup, 1);
    layout->addWidget(paneNote(tr("Runs that end in log out, shut down or restart erase these folders, and so do "
                                  "ordinary runs while no watched application is running."),
                               this));

    connect(m_addPlugin, &QPushButton::clicked, this, &PluginsPane::addPlugin);
    connect(m_deletePlugin, &QPushButton::clicked, this, &PluginsPane::deletePlugin);
    connect(m_restoreDefault, &QPushButton::clicked, this, &PluginsPane::restoreDefault);
    connect(m_addPath, &QPushButton::clicked, this, &PluginsPane::addPath);
    connect(m_deletePath, &QPushButton::clicked, this, &PluginsPane::deletePath);
    connect(m_pluginList->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PluginsPane::tableViewSelectionDidChange);
    connect(m_model, &QAbstractItemModel::modelReset, this, &PluginsPane::tableViewSelectionDidChange);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &PluginsPane::tableViewSelectionDidChange);
    connect(m_pluginPath, &QListWidget::itemSelectionChanged, this, &PluginsPane::tableViewSelectionDidChange);
    // Only a user plug-in's name can be edited; trying anywhere else beeps.
    connect(m_pluginList, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == PluginTableModel::NameColumn && m_model->isDefaultPlugin(index.row()))
            m_beep();
    });
    connect(m_pluginPath, &QListWidget::itemDoubleClicked, this, [this] { m_beep(); });
    tableViewSelectionDidChange();
}

int PluginsPane::selectedPlugin() const
{
    const QModelIndexList rows = m_pluginList->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void PluginsPane::addPlugin()
{
    m_plugins.addPlugin();
    // The new plug-in is selected with its name ready to type.
    const QModelIndex name = m_model->index(m_model->rowCount() - 1, PluginTableModel::NameColumn);
    m_pluginList->selectRow(name.row());
    m_pluginList->edit(name);
}

void PluginsPane::deletePlugin()
{
    if (!m_plugins.deletePlugin(selectedPlugin()))
        m_beep();
}

void PluginsPane::addPath()
{
    if (selectedPlugin() < 0) {
        m_beep();
        return;
    }
    OpenPanel::Options options;
    options.title = tr("Select item to shred");
    options.prompt = tr("Select");
    options.message = tr("Please select an item to shred.");
    options.directory = QDir::home().filePath(u"Library/Caches"_s);
    options.chooseFolders = true;
    options.multipleSelection = true;
    options.showHiddenFiles = true;
    OpenPanel::begin(window(), options, [this](const QStringList& paths) {
        if (paths.isEmpty())
            return;
        if (!m_plugins.addPaths(selectedPlugin(), paths))
            m_beep();
    });
}

void PluginsPane::deletePath()
{
    const QList<QListWidgetItem*> selected = m_pluginPath->selectedItems();
    if (selected.isEmpty() || !m_plugins.deletePath(selectedPlugin(), m_pluginPath->row(selected.first())))
        m_beep();
}

void PluginsPane::restoreDefault()
{
    if (!m_plugins.restoreDefault(selectedPlugin()))
        m_beep();
}

void PluginsPane::showPaths()
{
    const int plugin = selectedPlugin();
    const QVariantList paths =
        plugin < 0 ? QVariantList() : m_plugins.plugins().value(plugin).toMap().value(u"paths"_s).toList();
    QStringList shown;
    for (const QVariant& path : paths)
        shown.append(path.toString());
    QStringList current;
    for (int row = 0; row < m_pluginPath->count(); ++row)
        current.append(m_pluginPath->item(row)->text());
    if (shown == current)
        return;
    const QSignalBlocker quiet(m_pluginPath);
    m_pluginPath->clear();
    for (const QString& path : shown) {
        auto* item = new QListWidgetItem(path, m_pluginPath);
        item->setToolTip(PluginManager::expandTilde(path));
    }
}

void PluginsPane::tableViewSelectionDidChange()
{
    showPaths();
    const int plugin = selectedPlugin();
    const bool isDefault = m_model->isDefaultPlugin(plugin);
    m_addPlugin->setEnabled(true);
    m_addPath->setEnabled(plugin >= 0);
    m_deletePlugin->setEnabled(plugin >= 0 && !isDefault);
    m_restoreDefault->setEnabled(plugin >= 0 && isDefault);
    m_deletePath->setEnabled(plugin >= 0 && !m_pluginPath->selectedItems().isEmpty());
}
