#pragma once

#include "core/ApplicationFlags.h"

#include <QList>
#include <QString>

// A profile of today's Chromium-based browsers, with full paths.
struct ChromiumProfile {
    // The user-data folder that holds "Local State" and the profile folders.
    QString userDataFolder;
    // The profile's own files ("Default", "Profile 1", or the user-data folder
    // itself for a browser that keeps a single profile there).
    QString folder;
    // Where the browser keeps the profile's disk caches.
    QString cacheFolder;

    bool operator==(const ChromiumProfile&) const = default;
};

namespace ChromiumProfileList {

// The profiles that the user-data folder's Local State lists, in its order,
// that are folders inside it; cacheRoot is the browser's cache folder, which
// keeps a folder of the profile's name. A name that is not one folder's
// ("../x", "/x") is not taken. Without a list in Local State (missing,
// unreadable), its "Default" folder. A user-data folder that holds a profile's
// own files (Opera's single profile) is that profile, cached in cacheRoot.
QList<ChromiumProfile> listed(const QString& userDataFolder, const QString& cacheRoot);

// Every profile of the application in its locations, each folder once (a
// folder reached again through a link is not listed again).
// chrome covers Google Chrome and Chromium.
QList<ChromiumProfile> current(WatchedApp application);

} // namespace ChromiumProfileList
