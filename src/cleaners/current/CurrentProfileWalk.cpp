#include "cleaners/current/CurrentProfileWalk.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/current/ProfileInUse.h"
#include "erase/EraseQueue.h"
#include "settings/ProfilesManager.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isSelected(const UserDefaults& defaults, const QString& profileFolder)
{
    const QFileInfo folder(profileFolder);
    return ProfilesManager::selectedProfiles(defaults, folder.path()).contains(folder.fileName());
}

} // namespace

void walkProfileGroups(CleanerContext& context, const UserDefaults& defaults, const CurrentApplication& application,
                       const QString& procRoot, const QList<ProfileGroup>& groups)
{
    const bool found = std::any_of(groups.cbegin(), groups.cend(),
                                   [](const ProfileGroup& group) { return !group.profiles.isEmpty(); });
    if (!found)
        return;
    context.header(application.header);
    if (!context.gate(application.enabledName))
        return;
    const QString program = ProfileInUse::runningProgram(application.flag, procRoot);
    for (const ProfileGroup& group : groups) {
        bool erased = false;
        for (const WalkedProfile& profile : group.profiles) {
            if (!isSelected(defaults, profile.folder)) {
                context.log(u"Skip: %1 (not selected in the Profiles menu)"_s.arg(profile.folder));
                continue;
            }
            if (!program.isNull()) {
                context.log(u"Skip: %1 (in use: %2 is running)"_s.arg(profile.folder, program));
                continue;
            }
            if (const qint64 holder = profile.lockHolder()) {
                context.log(u"Skip: %1 (in use: its lock is held by process %2)"_s.arg(profile.folder).arg(holder));
                continue;
            }
            context.log(profile.folder);
            profile.work();
            context.endCleaner();
            erased = true;
        }
        if (erased && group.shared)
            group.shared();
    }
    context.endCleaner();
}

void walkCurrentProfiles(CleanerContext& context, const UserDefaults& defaults, const CurrentApplication& application,
                         const QString& procRoot, const std::function<void(const MozillaProfile&)>& work)
{
    ProfileGroup group;
    for (const MozillaProfile& profile : ProfileList::current(application.flag))
        group.profiles.append({profile.folder, [folder = profile.folder] { return ProfileInUse::lockHolder(folder); },
                               [&work, profile] { work(profile); }});
    walkProfileGroups(context, defaults, application, procRoot, {group});
}

void runProfileFiles(CleanerContext& context, const QList<ProfileFiles>& rows, const MozillaProfile& profile)
{
    QStringList written;
    for (const ProfileFiles& row : rows) {
        const bool on = context.setting(row.key);
        const QString& folder = row.folder == ProfileFiles::Profile ? profile.folder : profile.cacheFolder;
        for (const QString& name : row.names) {
            const QString path = folder + u'/' + name;
            const QFileInfo file(path);
            // An older cleaner of the same application may have queued it already
            // (the macOS caches of Opera 17 and today's Opera are one folder).
            if ((!file.exists() && !file.isSymLink()) || written.contains(path) ||
                context.eraseQueue().paths().contains(path))
                continue;
            written.append(path);
            context.shredOrSkipFullPath(on, path);
        }
    }
}
