#pragma once

#include <QAbstractTableModel>

class PluginManager;

// The plug-in list as a table: a check box for whether the plug-in's folders
// are erased, and its name, which only the user's own plug-ins may change.
class PluginTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { EnabledColumn, NameColumn, ColumnCount };

    explicit PluginTableModel(PluginManager& plugins, QObject* parent = nullptr);

    bool isDefaultPlugin(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    void reload();

    PluginManager& m_plugins;
    QVariantList m_rows;
};
