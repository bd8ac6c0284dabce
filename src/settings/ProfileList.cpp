#include "settings/ProfileList.h"

#include "core/Path.h"
#include "settings/MozillaLocations.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

using Section = QMap<QString, QString>;

// The "[Profile<n>]" sections of profiles.ini, read line by line as the
// browser does: QSettings would turn a path with a comma into a list.
QList<Section> profileSections(const QByteArray& text)
{
    QList<Section> sections;
    bool inProfile = false;
    for (const QByteArray& rawLine : text.split('\n')) {
        const QString line = QString::fromUtf8(rawLine).trimmed();
        if (line.startsWith(u'[')) {
            inProfile = line.startsWith(u"[Profile"_s) && line.endsWith(u']');
            if (inProfile)
                sections.append(Section());
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (inProfile && equals > 0)
            sections.last().insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return sections;
}

} // namespace

namespace ProfileList {

QList<MozillaProfile> listed(const QString& iniFolder, const QString& cacheRoot)
{
    QFile ini(iniFolder + u"/profiles.ini"_s);
    if (!ini.open(QIODevice::ReadOnly))
        return {};
    const QString root = QDir::cleanPath(iniFolder);
    QList<MozillaProfile> profiles;
    for (const Section& section : profileSections(ini.readAll())) {
        const QString path = section.value(u"Path"_s);
        if (path.isEmpty() || path.contains(QChar::Null))
            continue;
        MozillaProfile profile;
        if (section.value(u"IsRelative"_s) == u"1"_s) {
            profile.folder = QDir::cleanPath(root + u'/' + path);
            if (!profile.folder.startsWith(root + u'/'))
                continue;
            profile.cacheFolder = QDir::cleanPath(cacheRoot + u'/' + path);
        } else {
            if (!QDir::isAbsolutePath(path))
                continue;
            profile.folder = QDir::cleanPath(path);
            profile.cacheFolder = profile.folder;
        }
        if (QFileInfo(profile.folder).isDir() && !profiles.contains(profile))
            profiles.append(profile);
    }
    return profiles;
}

QList<MozillaProfile> current(WatchedApp application)
{
    QList<MozillaProfile> profiles;
    for (const MozillaLocation& location : mozillaLocations()) {
        if (location.application != application)
            continue;
        for (const MozillaProfile& profile :
             listed(Path::fromTilde(location.profiles).toString(), Path::fromTilde(location.caches).toString())) {
            const bool known = std::any_of(profiles.cbegin(), profiles.cend(),
                                           [&](const MozillaProfile& other) { return other.folder == profile.folder; });
            if (!known)
                profiles.append(profile);
        }
    }
    return profiles;
}

} // namespace ProfileList
