#pragma once

#include "core/ApplicationFlags.h"
#include "settings/ProfileList.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class CleanerContext;
class UserDefaults;

// Files of a profile of today's builds that one setting decides, by their names
// in the profile folder or the cache folder.
struct ProfileFiles {
    enum Folder { Profile, Cache };
    QLatin1StringView key;
    Folder folder;
    QStringList names;
};

// The application whose profiles a walk goes over, as the enabled-application
// list and the log name it.
struct CurrentApplication {
    WatchedApp flag;
    QString enabledName;
    QString header;
};

// A profile as the walk goes over it.
struct WalkedProfile {
    // Written on its line; the Profiles menu selects it by its name in the folder that holds it.
    QString folder;
    // The live process holding the profile's lock, or 0.
    std::function<qint64()> lockHolder;
    // Erases the profile, writing its lines.
    std::function<void()> work;
};

// Profiles that share a file, which is erased after them once one of them was.
struct ProfileGroup {
    QList<WalkedProfile> profiles;
    std::function<void()> shared; // none when nothing is shared
};

// When the groups hold no profile, writes nothing. Otherwise writes the header
// and, once the application is enabled, for each profile its folder on a line,
// the work and an empty line, then an empty line. A profile not selected in the
// Profiles menu or in use is passed over with a "Skip: " line that says why.
// procRoot lists the processes.
void walkProfileGroups(CleanerContext& context, const UserDefaults& defaults, const CurrentApplication& application,
                       const QString& procRoot, const QList<ProfileGroup>& groups);

// The walk over the profiles that profiles.ini lists, each its own lock's holder.
void walkCurrentProfiles(CleanerContext& context, const UserDefaults& defaults, const CurrentApplication& application,
                         const QString& procRoot, const std::function<void(const MozillaProfile&)>& work);

// A "Shred: " or "Skip: " line with the full path for each file of the rows
// that exists, in the rows' order; "Shred: " queues it. Names found in both
// folders of a profile that keeps its caches in itself are written once, and
// none that an earlier cleaner of the run has queued.
void runProfileFiles(CleanerContext& context, const QList<ProfileFiles>& rows, const MozillaProfile& profile);
