#pragma once

#include "core/ApplicationFlags.h"

#include <QString>

class CleanerContext;
class UserDefaults;

// Today's Chromium-based browsers (Google Chrome and Chromium, Brave, Vivaldi,
// Microsoft Edge, Opera; Linux, Snap, Flatpak and macOS builds): per selected
// profile that is not in use, what cleanChromiumProfile erases, then once per
// user-data folder whose profiles were erased, its Local State. Writes nothing
// on a home without such a profile. Used on the run's finding thread only.
class CurrentChromium {
public:
    // procRoot: where the user's processes are listed.
    CurrentChromium(CleanerContext& context, const UserDefaults& defaults, QString procRoot = QStringLiteral("/proc"));

    // application: chrome, brave, vivaldi, edge or currentOpera.
    void run(WatchedApp application);

private:
    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    QString mProcRoot;
};
