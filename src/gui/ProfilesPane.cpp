#include "gui/ProfilesPane.h"

#include "gui/PaneNote.h"
#include "settings/ProfilesManager.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The pull-downs in the order of the profiles manager's applications.
constexpr const char* kPopUpNames[ProfilesManager::ApplicationCount] = {
    "mMozillaPopup", "mFirefoxPopup", "mThunderbirdPopup", "mPostboxPopup", "mFlockPopup", "mSeamonkeyPopup",
    "mChromePopup",  "mBravePopup",   "mVivaldiPopup",     "mEdgePopup",    "mOperaPopup",
};

QString summary(const ProfilesManager::Menu& menu)
{
    if (menu.items.isEmpty())
        return ProfilesPane::tr("No profiles found");
    const auto checked =
        std::count_if(menu.items.cbegin(), menu.items.cend(), [](const auto& item) { return item.checked; });
    return ProfilesPane::tr("%1 of %2 erased").arg(checked).arg(menu.items.size());
}

} // namespace

ProfilesPane::ProfilesPane(ProfilesManager& profiles, QWidget* parent)
    : QWidget(parent)
    , m_profiles(profiles)
{
    auto* layout = new QVBoxLayout(this);
    auto* group = new QGroupBox(tr("Profiles to erase"), this);
    auto* grid = new QGridLayout(group);
    grid->setColumnStretch(2, 1);
    for (int i = 0; i < ProfilesManager::ApplicationCount; ++i) {
        const auto application = ProfilesManager::Application(i);
        auto* popUp = new QPushButton(tr("Profiles"), group);
        popUp->setObjectName(QLatin1StringView(kPopUpNames[i]));
        popUp->setMenu(new QMenu(popUp));
        popUp->setAccessibleName(tr("%1 profiles").arg(ProfilesManager::displayName(application)));
        auto* name = new QLabel(ProfilesManager::displayName(application) + u':', group);
        name->setBuddy(popUp);
        auto* state = new QLabel(group);
        grid->addWidget(name, i, 0);
        grid->addWidget(popUp, i, 1);
        grid->addWidget(state, i, 2);
        m_popUps.append(popUp);
        m_summaries.append(state);
    }
    layout->addWidget(group);
    layout->addWidget(paneNote(tr("Checked profiles are erased. A profile created later is left alone until you "
                                  "check it here; new profiles show up the next time Vantle X starts."),
                               this));
    layout->addStretch();

    // Queued: a change comes from a menu item's own action, which the rebuild deletes.
    connect(&m_profiles, &ProfilesManager::menusChanged, this, &ProfilesPane::showMenus, Qt::QueuedConnection);
    showMenus();
}

void ProfilesPane::showMenus()
{
    const QList<ProfilesManager::Menu>& menus = m_profiles.menus();
    for (int i = 0; i < ProfilesManager::ApplicationCount; ++i) {
        QMenu* menu = m_popUps[i]->menu();
        menu->clear();
        // The pull-down's own title item comes first; it does nothing.
        menu->addAction(tr("Profiles"))->setEnabled(false);
        if (i >= menus.size())
            continue;
        const ProfilesManager::Menu& profiles = menus[i];
        for (const ProfilesManager::MenuItem& item : profiles.items) {
            QAction* action = menu->addAction(item.title);
            action->setCheckable(true);
            action->setChecked(item.checked);
            action->setToolTip(profiles.titles.value(item.tag));
            connect(action, &QAction::triggered, this,
                    [this, i, tag = item.tag] { m_profiles.doProfileMenuItem(ProfilesManager::Application(i), tag); });
        }
        m_summaries[i]->setText(summary(profiles));
    }
}
