#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class ChromeCleaners;
class CleanerContext;
class Path;
class UserDefaults;
struct FileBlock;
struct MozillaCleaner;

// The cleaners of the Mozilla family: Camino, Firefox, Flock, SeaMonkey and the
// Mozilla/Netscape suite. Their files lie at fixed paths, in a fixed "default"
// profile with a salt folder, or in the profiles the user selected. Most are
// rows of MozillaCleanerTables; the code here walks their places and keeps the
// rest: the places rewrite, and the listings of cache and user-data folders.
class MozillaCleaners {
public:
    MozillaCleaners(CleanerContext& context, const UserDefaults& defaults, ChromeCleaners& chrome);

    void Camino07();
    void Camino08();
    void Camino10();
    void Camino16();
    void Camino20();
    void Camino21();
    void Firefox08();
    void Firefox10();
    void Firefox15();
    void Firefox20();
    void Mozilla();
    void Flock25();
    void Flock35();
    void SeaMonkey1();
    void SeaMonkey20cache();
    void SeaMonkey20();
    // Firefox 3 and later, Flock 2.5 and SeaMonkey 2: the selected profiles of
    // the application enabled as name, in profilesFolder (with "~").
    void Firefox30Flock25SeaMonkey20(const QString& name, const QString& profilesFolder);

    // The password file named in a profile's prefs.js ("signon.SignonFileName"),
    // or a null string; only a plain file name of the profile folder is taken.
    static QString passwordFileName(const QByteArray& prefs);
    // The text prefs.js gives for "signon.SignonFileName", unchecked; null when there is none.
    static QString signonFileName(const QByteArray& prefs);

private:
    using ProfileWork = std::function<void(const Path& profileFolder)>;

    // Header, gate and the table's blocks in its place.
    void run(const MozillaCleaner& cleaner);
    // "Shred:" or "Skip:" on its own line, then each full path; "Shred:" queues them.
    void block(bool on, const Path& folder, const QStringList& names);
    void blocks(const QList<FileBlock>& blocks, const Path& folder);
    QStringList selectedProfiles(const QString& tildeFolder) const;
    // Each selected profile that exists: its path on a line, the work, an empty line.
    void walkSelectedProfiles(const QString& tildeFolder, const QString& noneSelected, const ProfileWork& work);
    // The one salt folder of a profile, or an empty path after saying why not:
    // noSaltMessage when it has none, if given.
    Path saltFolder(const Path& profileFolder, const QString& noSaltMessage = {});
    // Firefox 1.5, Flock 2.5 and SeaMonkey 2.0: cache and support folders per selected profile.
    void walkCacheAndSupport(const MozillaCleaner& cleaner);
    // Firefox 2.0 and SeaMonkey 2.0: the password file prefs.js names.
    void passwordFile(const Path& profileFolder);
    // Web storage, places and the other files of one Firefox 3 profile.
    void placesProfile(const Path& profileFolder);

    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    ChromeCleaners& mChrome;
};
