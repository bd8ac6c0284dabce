#include "gui/PreviewWindow.h"

#include "app/RunReport.h"
#include "erase/RunPlan.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PreviewWindow::PreviewWindow(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Vantle X Preview"));
    m_tree = new QTreeWidget;
    m_tree->setObjectName(u"mPreviewTree"_s);
    m_tree->setAccessibleName(tr("What a run would erase and rewrite"));
    m_tree->setHeaderLabels({tr("Item"), tr("Files"), tr("Size")});
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setStretchLastSection(false);
    m_tree->setUniformRowHeights(true);
    m_totals = new QLabel;
    m_totals->setObjectName(u"mPreviewTotals"_s);
    m_totals->setWordWrap(true);

    auto* buttons = new QDialogButtonBox;
    QPushButton* shred = buttons->addButton(tr("&Shred"), QDialogButtonBox::AcceptRole);
    shred->setObjectName(u"mPreviewShredButton"_s);
    buttons->addButton(QDialogButtonBox::Close)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        hide();
        emit shredRequested();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree);
    layout->addWidget(m_totals);
    layout->addWidget(buttons);
    resize(720, 460);
}

void PreviewWindow::showPlan(const RunPlan& plan)
{
    m_tree->clear();
    QHash<QString, QTreeWidgetItem*> applications;
    QHash<QString, std::pair<quint64, quint64>> sizes;
    const auto application = [&](const QString& name) {
        QTreeWidgetItem*& item = applications[name];
        if (!item) {
            item = new QTreeWidgetItem(m_tree, {RunReport::applicationName(name)});
            QFont bold = item->font(0);
            bold.setBold(true);
            item->setFont(0, bold);
        }
        return item;
    };
    const auto row = [](QTreeWidgetItem* parent, const QString& text, const QString& files, const QString& size) {
        auto* item = new QTreeWidgetItem(parent, {text, files, size});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(0, text);
    };
    QSet<QString> oldCopies;
    for (const Rewrite& rewrite : plan.rewrites)
        oldCopies.insert(rewrite.oldCopy);
    for (const RunPlan::Item& item : plan.items) {
        auto& [files, bytes] = sizes[item.application];
        files += item.files;
        bytes += item.bytes;
        if (!oldCopies.contains(item.path))
            row(application(item.application), RunReport::tilde(item.path), QLocale().toString(item.files),
                RunReport::humanSize(item.bytes));
    }
    for (const Rewrite& rewrite : plan.rewrites) {
        QString size;
        for (const RunPlan::Item& item : plan.items) {
            if (!rewrite.oldCopy.isEmpty() && item.path == rewrite.oldCopy)
                size = RunReport::humanSize(item.bytes);
        }
        row(application(rewrite.application), tr("Rewrite %1").arg(RunReport::tilde(rewrite.path)), QString(), size);
    }
    for (auto it = applications.cbegin(); it != applications.cend(); ++it) {
        const auto [files, bytes] = sizes.value(it.key());
        it.value()->setText(1, QLocale().toString(files));
        it.value()->setText(2, RunReport::humanSize(bytes));
        it.value()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        it.value()->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
    m_tree->resizeColumnToContents(1);
    m_tree->resizeColumnToContents(2);

    QStringList lines{RunReport::planTotals(plan)};
    if (!plan.passedOver.isEmpty())
        lines.append(RunReport::passedOver(plan.passedOver));
    if (plan.items.isEmpty() && plan.rewrites.isEmpty())
        lines.prepend(RunReport::nothingFound(RunReport::tilde(QDir::homePath())));
    m_totals->setText(lines.join(u'\n'));
}
