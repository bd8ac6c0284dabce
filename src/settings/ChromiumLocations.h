#pragma once

#include "core/ApplicationFlags.h"

#include <QList>
#include <QString>

// Where a build of today's Chromium-based browsers keeps its user-data folder
// (Local State and the profile folders) and the root of its profiles' disk
// caches. Both with "~".
struct ChromiumLocation {
    WatchedApp application; // chrome (Google Chrome and Chromium), brave, vivaldi, edge or currentOpera
    QString userData;
    QString caches;
};

// Every location of every platform's builds, Linux (native, Snap, Flatpak)
// before macOS. All are looked at whatever the system: a home copied or
// mounted from another system keeps that system's layout.
const QList<ChromiumLocation>& chromiumLocations();
