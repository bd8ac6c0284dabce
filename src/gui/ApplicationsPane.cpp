#include "gui/ApplicationsPane.h"

#include "gui/PaneNote.h"
#include "settings/ApplicationList.h"
#include "settings/Preferences.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kColumns = 3;
}

ApplicationsPane::ApplicationsPane(Preferences& preferences, QWidget* parent)
    : QWidget(parent)
    , m_preferences(preferences)
{
    auto* layout = new QVBoxLayout(this);
    auto* group = new QGroupBox(tr("Erase and watch"), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(24);
    const QStringList& names = ApplicationList::allNames();
    for (qsizetype i = 0; i < names.size(); ++i) {
        auto* box = new QCheckBox(names[i], group);
        box->setObjectName(names[i]);
        connect(box, &QCheckBox::clicked, this, [this, name = names[i]] { m_preferences.enableChanged(name); });
        grid->addWidget(box, int(i) / kColumns, int(i) % kColumns);
        m_boxes.append(box);
    }
    layout->addWidget(group);
    layout->addWidget(paneNote(tr("Vantle X erases the traces of the ticked applications and, with the Tarnhold watch "
                                  "on, shreds when one of them quits. Mozilla and Netscape, and Safari and Shiira, "
                                  "share their files and are always ticked together."),
                               this));
    layout->addStretch();

    connect(&m_preferences, &Preferences::enabledBrowsersChanged, this, &ApplicationsPane::showEnabledBrowsers);
    showEnabledBrowsers();
}

void ApplicationsPane::showEnabledBrowsers()
{
    const QStringList enabled = m_preferences.enabledBrowsers();
    for (QCheckBox* box : std::as_const(m_boxes))
        box->setChecked(enabled.contains(box->objectName()));
}
