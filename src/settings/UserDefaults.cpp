#include "settings/UserDefaults.h"

#include "core/PropertyList.h"
#include "settings/DefaultsValue.h"

#include <QDir>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

bool readPropertyList(QIODevice& device, QSettings::SettingsMap& map)
{
    const auto root = PropertyList::parse(device.readAll());
    if (!root || root->typeId() != QMetaType::QVariantMap)
        return false;
    const QVariantMap dict = root->toMap();
    for (auto it = dict.cbegin(); it != dict.cend(); ++it)
        map.insert(it.key(), it.value());
    return true;
}

bool writePropertyList(QIODevice& device, const QSettings::SettingsMap& map)
{
    const QByteArray xml = PropertyList::toXml(QVariantMap(map));
    return !xml.isEmpty() && device.write(xml) == xml.size();
}

QSettings::Format propertyListFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(u"plist"_s, readPropertyList, writePropertyList, Qt::CaseSensitive);
    return format;
}

std::mutex gStandardMutex;
std::unique_ptr<UserDefaults> gStandard;

} // namespace

UserDefaults& UserDefaults::standardUserDefaults()
{
    std::lock_guard lock(gStandardMutex);
    if (!gStandard)
        gStandard = std::make_unique<UserDefaults>(defaultFilePath());
    return *gStandard;
}

void UserDefaults::resetStandardUserDefaultsForTesting()
{
    std::lock_guard lock(gStandardMutex);
    gStandard.reset();
}

QString UserDefaults::defaultFilePath(QLatin1StringView domain)
{
    QString configDir = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (configDir.isEmpty() || !QDir::isAbsolutePath(configDir))
        configDir = QDir::homePath() + u"/.config"_s;
    return QDir(configDir).absoluteFilePath(domain + u".plist"_s);
}

UserDefaults::UserDefaults(const QString& filePath)
    : m_settings(std::make_unique<QSettings>(filePath, propertyListFormat()))
{
    // Keys are plain names: no group separators, no INI fallbacks.
    m_settings->setFallbacksEnabled(false);
}

UserDefaults::~UserDefaults()
{
    std::lock_guard lock(m_mutex);
    if (!m_readOnly)
        m_settings->sync();
}

QString UserDefaults::filePath() const
{
    std::lock_guard lock(m_mutex);
    return m_settings->fileName();
}

QVariant UserDefaults::objectForKey(const QString& key) const
{
    std::lock_guard lock(m_mutex);
    if (m_changes.contains(key))
        return m_changes.value(key);
    if (m_removed.contains(key))
        return {};
    return m_settings->value(key);
}

bool UserDefaults::boolForKey(const QString& key) const
{
    return DefaultsValue::toBool(objectForKey(key));
}

qint64 UserDefaults::integerForKey(const QString& key) const
{
    return DefaultsValue::toInteger(objectForKey(key));
}

QString UserDefaults::stringForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Bool:
        return value.toBool() ? u"1"_s : u"0"_s;
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Double:
        return value.toString();
    default:
        return {};
    }
}

QVariantList UserDefaults::arrayForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.typeId() == QMetaType::QVariantList || value.typeId() == QMetaType::QStringList)
        return value.toList();
    return {};
}

QVariantMap UserDefaults::dictionaryForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
}

QByteArray UserDefaults::dataForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}

void UserDefaults::setObject(const QVariant& value, const QString& key)
{
    std::lock_guard lock(m_mutex);
    if (m_readOnly) {
        m_removed.removeAll(key);
        m_changes.insert(key, value);
        return;
    }
    m_settings->setValue(key, value);
}

void UserDefaults::removeObjectForKey(const QString& key)
{
    std::lock_guard lock(m_mutex);
    if (m_readOnly) {
        m_changes.remove(key);
        m_removed.append(key);
        return;
    }
    m_settings->remove(key);
}

bool UserDefaults::synchronize()
{
    std::lock_guard lock(m_mutex);
    if (m_readOnly)
        return true;
    m_settings->sync();
    return m_settings->status() == QSettings::NoError;
}

void UserDefaults::setReadOnly()
{
    std::lock_guard lock(m_mutex);
    m_settings->sync();
    m_readOnly = true;
}
