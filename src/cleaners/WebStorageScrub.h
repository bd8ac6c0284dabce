#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class CleanerContext;
class SqliteShell;

// Rebuilds the small SQLite index databases of HTML5 web storage (Firefox's
// "webappsstore.sqlite", Safari's "Databases.db" and "StorageTracker.db", the
// "Databases.db" of Chrome and Flock 3.5) keeping only the rows of the domains
// on the keep list. Each returns the browser's old database, moved aside, for
// the caller to erase; a null string when nothing was changed. A database whose
// schema digest is not the accepted one is never touched.
class WebStorageScrub {
public:
    WebStorageScrub(CleanerContext& context, const SqliteShell& shell);

    QString firefox3webappsstoresqlite(const QString& path);
    QString safari5databasessqlite(const QString& path, const QString& schemaMD5);
    QString safari5storagetrackersqlite(const QString& path, const QString& schemaMD5);
    QString chrome5databasessqlite(const QString& path, const QString& schemaMD5);
    QString flock35databasessqlite(const QString& path, const QString& schemaMD5);

    // The query that selects the rows of table whose column contains domain.
    static QString domainQuery(const QString& table, const QString& column, const QString& domain);

private:
    QString rebuildDatabasesFile(const QString& path, const QString& schemaMD5, const QStringList& fixedOrigins);

    CleanerContext& mContext;
    const SqliteShell& mShell;
};
