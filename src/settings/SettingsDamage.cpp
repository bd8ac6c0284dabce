#include "settings/SettingsDamage.h"

#include "core/PropertyList.h"
#include "log/ActivityLog.h"
#include "settings/PreferenceKeys.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QVariantMap>

#include <mutex>

using namespace Qt::StringLiterals;

namespace {

std::mutex gFoundMutex;
SettingsDamage::Report gFound;

enum class Kind { Scalar, Array, Dictionary, Data, Number };

// The keys whose every other type the program reads as absent or as false.
const QList<std::pair<QString, Kind>>& keyKinds()
{
    static const QList<std::pair<QString, Kind>> kinds = [] {
        QList<std::pair<QString, Kind>> list;
        for (const PreferenceDefinition& definition : kPreferenceTable)
            list.append({QString(definition.key), Kind::Scalar});
        list.append({QString(PreferenceKey::EnabledBrowsers), Kind::Array});
        list.append({u"mDomainTableData"_s, Kind::Array});
        list.append({u"mHTML5EnabledState"_s, Kind::Number});
        list.append({u"mPluginArray"_s, Kind::Array});
        list.append({u"ProfilesMenuDict"_s, Kind::Dictionary});
        list.append({u"FirstRun"_s, Kind::Scalar});
        list.append({u"mProcessDictionary"_s, Kind::Data});
        return list;
    }();
    return kinds;
}

bool hasKind(const QVariant& value, Kind kind)
{
    const int type = value.typeId();
    const bool number = type == QMetaType::Bool || type == QMetaType::LongLong || type == QMetaType::Int;
    switch (kind) {
    case Kind::Scalar:
        return number || type == QMetaType::Double || type == QMetaType::QString;
    case Kind::Number:
        return number;
    case Kind::Array:
        return type == QMetaType::QVariantList;
    case Kind::Dictionary:
        return type == QMetaType::QVariantMap;
    case Kind::Data:
        return type == QMetaType::QByteArray;
    }
    return false;
}

QString typeName(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantList:
        return u"an array"_s;
    case QMetaType::QVariantMap:
        return u"a dictionary"_s;
    case QMetaType::QByteArray:
        return u"data"_s;
    case QMetaType::QString:
        return u"a string"_s;
    case QMetaType::QDateTime:
        return u"a date"_s;
    case QMetaType::Double:
        return u"a real number"_s;
    default:
        return u"a number"_s;
    }
}

QString notePath(const QString& settingsPath)
{
    return settingsPath + u".unconfirmed"_s;
}

void remember(const SettingsDamage::Report& report)
{
    std::lock_guard lock(gFoundMutex);
    gFound = report;
}

} // namespace

namespace SettingsDamage {

QString problem(const QByteArray& contents)
{
    const auto root = PropertyList::parse(contents);
    if (!root)
        return u"not a property list"_s;
    if (root->typeId() != QMetaType::QVariantMap)
        return u"not a dictionary of settings"_s;
    const QVariantMap settings = root->toMap();
    for (const auto& [key, kind] : keyKinds()) {
        const auto value = settings.constFind(key);
        if (value != settings.cend() && !hasKind(*value, kind))
            return u"%1 is %2"_s.arg(key, typeName(*value));
    }
    return {};
}

Report inspect(const QString& settingsPath)
{
    Report report;
    QFile settings(settingsPath);
    QFile note(notePath(settingsPath));
    if (settings.exists()) {
        if (!settings.open(QIODevice::ReadOnly)) {
            report.reason = u"cannot be read: %1"_s.arg(settings.errorString());
        } else {
            report.reason = problem(settings.readAll());
            settings.close();
        }
        if (!report.isDamaged()) {
            // Whole again: the user repaired it.
            note.remove();
        } else {
            const QString keptAs =
                settingsPath + u".damaged-"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
            report.keptAs = settings.rename(keptAs) ? QFileInfo(keptAs).fileName() : QString();
            if (note.open(QIODevice::WriteOnly | QIODevice::Truncate))
                note.write((report.keptAs + u'\n' + report.reason + u'\n').toUtf8());
        }
    } else if (note.open(QIODevice::ReadOnly)) {
        const QStringList lines = QString::fromUtf8(note.readAll()).split(u'\n');
        report.keptAs = lines.value(0);
        report.reason = lines.value(1).isEmpty() ? u"damaged"_s : lines.value(1);
    }
    remember(report);
    return report;
}

Report found()
{
    std::lock_guard lock(gFoundMutex);
    return gFound;
}

void confirmFactorySettings(const QString& settingsPath)
{
    QFile::remove(notePath(settingsPath));
    remember({});
}

void writeToLog(const Report& report)
{
    const QString kept = report.keptAs.isEmpty() ? QString() : u"; it is kept as %1"_s.arg(report.keptAs);
    ActivityLog::openRunLog(true);
    ActivityLog::writeLogLine(u"Settings file damaged (%1)%2"_s.arg(report.reason, kept));
    ActivityLog::writeLogLine(u"Vantle not started: nothing is erased until the factory settings are confirmed "
                              "(vantle-cli prefs reset) or the settings file is repaired"_s);
    ActivityLog::writeLogLine(QString());
    ActivityLog::closeLog();
}

} // namespace SettingsDamage
