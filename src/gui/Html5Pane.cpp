#include "gui/Html5Pane.h"

#include "gui/PaneNote.h"
#include "settings/HTML5Manager.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

Html5Pane::Html5Pane(HTML5Manager& html5, QWidget* parent)
    : QWidget(parent)
    , m_html5(html5)
{
    m_enabled = new QCheckBox(tr("Erase HTML5 local &storage and web databases"), this);
    m_enabled->setObjectName(u"mEnabledCheckbox"_s);

    m_domainTable = new QListWidget(this);
    m_domainTable->setAccessibleName(tr("Sites whose storage is kept"));
    m_domainTable->setObjectName(u"mDomainTableView"_s);
    m_domainTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                   QAbstractItemView::SelectedClicked);
    m_add = new QPushButton(tr("A&dd"), this);
    m_add->setObjectName(u"mAddButton"_s);
    m_add->setAutoDefault(false);
    m_delete = new QPushButton(tr("Remo&ve"), this);
    m_delete->setObjectName(u"mDeleteButton"_s);
    m_delete->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_delete);
    buttons->addStretch();

    auto* group = new QGroupBox(tr("Sites whose storage is kept"), this);
    auto* groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(m_domainTable);
    groupLayout->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_enabled);
    layout->addWidget(group, 1);
    layout->addWidget(
        paneNote(tr("A site is kept when its name contains an entry: \"example.com\" keeps the storage of "
                    "www.example.com and mail.example.com alike."),
                 this));

    connect(m_enabled, &QCheckBox::clicked, this, [this] { m_html5.setEnabled(); });
    connect(m_add, &QPushButton::clicked, this, &Html5Pane::addDomain);
    connect(m_delete, &QPushButton::clicked, this, &Html5Pane::deleteDomain);
    connect(m_domainTable, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { m_html5.setDomain(m_domainTable->row(item), item->text()); });
    connect(m_domainTable, &QListWidget::itemSelectionChanged, this, &Html5Pane::tableViewSelectionDidChange);
    connect(&m_html5, &HTML5Manager::changed, this, &Html5Pane::showDomains);
    showDomains();
}

void Html5Pane::addDomain()
{
    m_html5.addDomain();
    // The placeholder row is selected and open for typing the real name.
    QListWidgetItem* added = m_domainTable->item(m_domainTable->count() - 1);
    m_domainTable->setCurrentItem(added);
    m_domainTable->editItem(added);
}

void Html5Pane::deleteDomain()
{
    const QList<QListWidgetItem*> selected = m_domainTable->selectedItems();
    if (!selected.isEmpty())
        m_html5.deleteDomain(m_domainTable->row(selected.first()));
}

void Html5Pane::showDomains()
{
    m_enabled->setChecked(m_html5.getEnabledState() != 0);
    const QStringList domains = m_html5.domains();
    QStringList shown;
    for (int row = 0; row < m_domainTable->count(); ++row)
        shown.append(m_domainTable->item(row)->text());
    if (shown != domains) {
        const int selected = m_domainTable->currentRow();
        const QSignalBlocker quiet(m_domainTable);
        m_domainTable->clear();
        for (const QString& domain : domains) {
            auto* item = new QListWidgetItem(domain, m_domainTable);
            item->setFlags(item->flags() | Qt::ItemIsEditable);
        }
        if (selected >= 0 && selected < m_domainTable->count())
            m_domainTable->setCurrentRow(selected);
    }
    tableViewSelectionDidChange();
}

void Html5Pane::tableViewSelectionDidChange()
{
    m_delete->setEnabled(!m_domainTable->selectedItems().isEmpty());
}
