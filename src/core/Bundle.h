#pragma once

#include <QString>
#include <QVariantMap>

// The application's resources and information dictionary. The resources folder is
// share/vantle beside the folder that holds the executable, both in the build tree
// and when installed (Contents/Resources inside a macOS application bundle).
class Bundle {
public:
    static const Bundle& mainBundle();

    // A bundle over a given resources folder; bundlePath is the application's own path.
    Bundle(QString bundlePath, QString resourcePath);

    // The macOS application bundle, or on other systems the folder holding the executable.
    const QString& bundlePath() const { return m_bundlePath; }
    const QString& resourcePath() const { return m_resourcePath; }

    // Path of resource "name.type" ("name" when type is empty), or empty when it is missing.
    QString pathForResource(const QString& name, const QString& type) const;

    // The resource Info.plist as a dictionary; empty when it is missing or unreadable.
    const QVariantMap& infoDictionary() const { return m_infoDictionary; }
    QString infoString(const QString& key) const { return m_infoDictionary.value(key).toString(); }

    // Where the resources of an executable in executableDir live.
    static QString resourcePathForExecutableDir(const QString& executableDir);
    static QString bundlePathForExecutableDir(const QString& executableDir);

private:
    QString m_bundlePath;
    QString m_resourcePath;
    QVariantMap m_infoDictionary;
};
