#pragma once

#include "core/ApplicationFlags.h"

#include <QList>
#include <QString>

// A profile of today's Firefox or Thunderbird, with full paths.
struct MozillaProfile {
    QString folder;
    // Where the build keeps the profile's caches: below the location's cache
    // root for a relative profile, the profile folder itself for an absolute one.
    QString cacheFolder;

    bool operator==(const MozillaProfile&) const = default;
};

namespace ProfileList {

// The profiles the profiles.ini of iniFolder lists, in its order, that are
// folders. A relative path stays inside iniFolder: one that leads out of it
// ("../x") is not taken. An absolute path is taken as written. Nothing
// without the file.
QList<MozillaProfile> listed(const QString& iniFolder, const QString& cacheRoot);

// Every profile of the application in its locations, each folder once.
QList<MozillaProfile> current(WatchedApp application);

} // namespace ProfileList
