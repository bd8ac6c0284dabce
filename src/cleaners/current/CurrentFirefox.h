#pragma once

#include <QString>

class CleanerContext;
class UserDefaults;

// Today's Firefox (Linux, Snap, Flatpak and macOS builds): per selected profile
// that is not in use, the caches, the session and form history, the saved
// passwords, the site storage of the sites not kept, then the rewrites of the
// profile's databases. Writes nothing on a home without such a profile. Used
// on the run's finding thread only.
class CurrentFirefox {
public:
    // procRoot: where the user's processes are listed.
    CurrentFirefox(CleanerContext& context, const UserDefaults& defaults, QString procRoot = QStringLiteral("/proc"));

    void run();

private:
    // The storage/default/<origin> folders of web sites, by the HTML5 switch and keep list.
    void siteStorage(const QString& profileFolder);

    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    QString mProcRoot;
};
