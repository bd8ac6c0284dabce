#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <mutex>

class QSettings;

// The user defaults of one domain, kept as an XML property list so that every
// type (booleans, integers, strings, arrays, dictionaries, data) reads back as it
// was written. On Linux the file is $XDG_CONFIG_HOME/<domain>.plist
// ($HOME/.config when XDG_CONFIG_HOME is unset).
//
// Safe to use from any thread. Writes are saved atomically (a temporary file
// renamed over the old one) by synchronize(), and at the latest when the object
// goes away. An unreadable or damaged file reads as an empty domain.
class UserDefaults {
public:
    static constexpr QLatin1StringView Domain{"com.orvick.vantle"};

    // The defaults of Domain in the current user's configuration folder, opened on first use.
    static UserDefaults& standardUserDefaults();
    static void resetStandardUserDefaultsForTesting();

    static QString defaultFilePath(QLatin1StringView domain = Domain);

    explicit UserDefaults(const QString& filePath);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    QString filePath() const;

    // The stored value, invalid when there is none.
    QVariant objectForKey(const QString& key) const;
    bool boolForKey(const QString& key) const;
    qint64 integerForKey(const QString& key) const;
    // A string, or a number written as text; null otherwise.
    QString stringForKey(const QString& key) const;
    // Empty unless the value has the asked type.
    QVariantList arrayForKey(const QString& key) const;
    QVariantMap dictionaryForKey(const QString& key) const;
    QByteArray dataForKey(const QString& key) const;

    void setObject(const QVariant& value, const QString& key);
    void setBool(bool value, const QString& key) { setObject(value, key); }
    void setInteger(qint64 value, const QString& key) { setObject(value, key); }
    void removeObjectForKey(const QString& key);

    // Writes pending changes and reads what other processes wrote; false when the
    // file could not be read or written.
    bool synchronize();

    // From now on changes stay in memory and the file is never written (a dry run).
    void setReadOnly();

private:
    mutable std::mutex m_mutex;
    std::unique_ptr<QSettings> m_settings;
    bool m_readOnly = false;
    QVariantMap m_changes; // while read-only: values set since
    QStringList m_removed; // while read-only: keys removed since
};
