#pragma once

#include "core/ApplicationFlags.h"

#include <QList>
#include <QString>

// Where today's Firefox and Thunderbird builds keep their profiles.ini, and
// where the same build keeps the caches of the profiles listed there with a
// relative path (the cache root joined with that path). Both with "~".
struct MozillaLocation {
    WatchedApp application; // firefox or thunderbird
    QString profiles;
    QString caches;
};

// Every location of every platform's builds, Linux (native, XDG, Snap,
// Flatpak) before macOS. All are looked at whatever the system: a home copied
// or mounted from another system keeps that system's layout.
const QList<MozillaLocation>& mozillaLocations();
