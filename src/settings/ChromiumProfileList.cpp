#include "settings/ChromiumProfileList.h"

#include "core/Path.h"
#include "settings/ChromiumLocations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;
using Json = nlohmann::ordered_json;

namespace {

// The keys of Local State's profile.info_cache, in the file's order; none when
// the file is missing, unreadable or has no such object.
QStringList infoCacheKeys(const QString& userDataFolder)
{
    QFile file(userDataFolder + u"/Local State"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const Json state = Json::parse(file.readAll().toStdString(), nullptr, false);
    if (!state.is_object() || !state.contains("profile") || !state.at("profile").is_object())
        return {};
    const Json& profile = state.at("profile");
    if (!profile.contains("info_cache") || !profile.at("info_cache").is_object())
        return {};
    QStringList keys;
    for (const auto& item : profile.at("info_cache").items())
        keys.append(QString::fromStdString(item.key()));
    return keys;
}

// A build that keeps its one profile in the user-data folder itself (Opera) has
// the profile's files directly there.
bool holdsItsProfile(const QString& userDataFolder)
{
    return QFileInfo(userDataFolder + u"/Preferences"_s).isFile() || QFileInfo(userDataFolder + u"/History"_s).isFile();
}

} // namespace

namespace ChromiumProfileList {

QList<ChromiumProfile> listed(const QString& userDataFolder, const QString& cacheRoot)
{
    const QString root = QDir::cleanPath(userDataFolder);
    const QString caches = QDir::cleanPath(cacheRoot);
    if (!QFileInfo(root).isDir())
        return {};
    if (holdsItsProfile(root))
        return {{root, root, caches}};
    QStringList names = infoCacheKeys(root);
    if (names.isEmpty())
        names.append(u"Default"_s);
    QList<ChromiumProfile> profiles;
    for (const QString& name : names) {
        // A key names one folder inside the user-data folder: "../x" or "/x" would lead elsewhere.
        if (!Path::isName(name))
            continue;
        const ChromiumProfile profile{root, root + u'/' + name, caches + u'/' + name};
        if (QFileInfo(profile.folder).isDir() && !profiles.contains(profile))
            profiles.append(profile);
    }
    return profiles;
}

QList<ChromiumProfile> current(WatchedApp application)
{
    QList<ChromiumProfile> profiles;
    // A location may be a link to another (a Flatpak's folder to the native one).
    QStringList seen;
    for (const ChromiumLocation& location : chromiumLocations()) {
        if (location.application != application)
            continue;
        for (const ChromiumProfile& profile :
             listed(Path::fromTilde(location.userData).toString(), Path::fromTilde(location.caches).toString())) {
            const QString canonical = QFileInfo(profile.folder).canonicalFilePath();
            if (seen.contains(canonical))
                continue;
            seen.append(canonical);
            profiles.append(profile);
        }
    }
    return profiles;
}

} // namespace ChromiumProfileList
