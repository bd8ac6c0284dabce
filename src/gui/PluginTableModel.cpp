#include "gui/PluginTableModel.h"

#include "settings/PluginManager.h"

using namespace Qt::StringLiterals;

PluginTableModel::PluginTableModel(PluginManager& plugins, QObject* parent)
    : QAbstractTableModel(parent)
    , m_plugins(plugins)
    , m_rows(plugins.plugins())
{
    connect(&m_plugins, &PluginManager::pluginsChanged, this, &PluginTableModel::reload);
}

void PluginTableModel::reload()
{
    const QVariantList rows = m_plugins.plugins();
    if (rows.size() == m_rows.size()) {
        // Same rows: the views keep their selection and any editor.
        m_rows = rows;
        if (!m_rows.isEmpty())
            emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

bool PluginTableModel::isDefaultPlugin(int row) const
{
    return row >= 0 && row < m_rows.size() &&
           !m_plugins.isDefaultPlugin(m_rows[row].toMap().value(u"name"_s).toString()).isEmpty();
}

int PluginTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int PluginTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PluginTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const QVariantMap plugin = m_rows[index.row()].toMap();
    if (index.column() == EnabledColumn && role == Qt::CheckStateRole)
        return plugin.value(u"enabled"_s).toBool() ? Qt::Checked : Qt::Unchecked;
    if (index.column() == NameColumn && (role == Qt::DisplayRole || role == Qt::EditRole))
        return plugin.value(u"name"_s).toString();
    return {};
}

QVariant PluginTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == EnabledColumn ? tr("Erase") : tr("Plug-in");
}

Qt::ItemFlags PluginTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == EnabledColumn)
        flags |= Qt::ItemIsUserCheckable;
    else if (!isDefaultPlugin(index.row()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool PluginTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid())
        return false;
    if (index.column() == EnabledColumn && role == Qt::CheckStateRole)
        return m_plugins.setEnabled(index.row(), value.toInt() == Qt::Checked);
    if (index.column() == NameColumn && role == Qt::EditRole)
        return m_plugins.setName(index.row(), value.toString());
    return false;
}
