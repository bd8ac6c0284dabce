#include "cleaners/current/CurrentChromium.h"

#include "cleaners/current/ChromiumProfileItems.h"
#include "cleaners/current/CurrentProfileWalk.h"
#include "cleaners/current/ProfileInUse.h"
#include "settings/ChromiumProfileList.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// The applications as the enabled-application list and the log name them.
const std::array<CurrentApplication, 5> kApplications{{
    {WatchedApp::chrome, u"Chrome"_s, u"Chrome (current versions)"_s},
    {WatchedApp::brave, u"Brave"_s, u"Brave"_s},
    {WatchedApp::vivaldi, u"Vivaldi"_s, u"Vivaldi"_s},
    {WatchedApp::edge, u"Microsoft Edge"_s, u"Microsoft Edge"_s},
    {WatchedApp::currentOpera, u"Opera (current versions)"_s, u"Opera (current versions)"_s},
}};

} // namespace

CurrentChromium::CurrentChromium(CleanerContext& context, const UserDefaults& defaults, QString procRoot)
    : mContext(context)
    , mDefaults(defaults)
    , mProcRoot(std::move(procRoot))
{
}

void CurrentChromium::run(WatchedApp application)
{
    const auto known = std::find_if(kApplications.cbegin(), kApplications.cend(),
                                    [&](const CurrentApplication& other) { return other.flag == application; });
    if (known == kApplications.cend())
        return;
    // One group per user-data folder: its profiles share Local State and its lock.
    QList<ProfileGroup> groups;
    QStringList userDataFolders;
    for (const ChromiumProfile& profile : ChromiumProfileList::current(application)) {
        qsizetype at = userDataFolders.indexOf(profile.userDataFolder);
        if (at < 0) {
            at = userDataFolders.size();
            userDataFolders.append(profile.userDataFolder);
            groups.append({{}, [this, folder = profile.userDataFolder] { cleanChromiumLocalState(mContext, folder); }});
        }
        groups[at].profiles.append(
            {profile.folder, [folder = profile.userDataFolder] { return ProfileInUse::singletonLockHolder(folder); },
             [this, profile] { cleanChromiumProfile(mContext, profile); }});
    }
    walkProfileGroups(mContext, mDefaults, *known, mProcRoot, groups);
}
