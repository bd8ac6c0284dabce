#include "cleaners/WebStorageScrub.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/DatabaseFiles.h"
#include "cleaners/DatabaseWriteLock.h"
#include "cleaners/RebuildFailure.h"
#include "cleaners/SchemaDigest.h"
#include "cleaners/SqliteShell.h"
#include "core/Bundle.h"
#include "erase/EraseQueue.h"
#include "settings/HTML5Manager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString kFirefoxOlderKey = u"13f58aaa06c99352d9c0009473659763"_s;
const QString kFirefoxKey = u"437f2e65e7c5184ca651c805ca3c809f"_s;

using Code = Error::Code;

// What every store says alike.
const FailureLog::Wording kSharedWording{
    {Code::ShellMissing, "SQLite shell does not exist."},
    {Code::UnquotableFolder, "Databases folder name holds a quote or backslash - not rewritten."},
    {Code::Damaged, "Rebuilt database is damaged - not replaced."},
};

// How one kind of store is named: its failures, template and work files.
struct Store {
    FailureLog::Wording wording;
    QString templateName;
    QString work, renamed, schema, source, destination;
};

const Store kFirefoxStore{
    kSharedWording +
        FailureLog::Wording{
            {Code::Missing, "Webappsstore Database does not exist."},
            {Code::InUse, "Webappsstore Database is in use by another program - not rewritten."},
            {Code::UnknownSchema, "Webappsstore Database Schema does not match key:"},
            {Code::TemplateMissing, "Webappsstore Vacuumed Database does not exist."},
            {Code::NotCreated, "Webappsstore Vantle X Database was not created."},
            {Code::RebuiltSchemaUnknown, "Webappsstore Vantle X Database Schema does not match key:"},
        },
    u"webappsstorevacuumed"_s,
    u"webappsstore.vantlex.sqlite"_s,
    u"webappsstore.renamed.sqlite"_s,
    u"webappsstore.vantlex.sql.sqlite"_s,
    u"webappsstore.vantlex.src.sqlite"_s,
    u"webappsstore.vantlex.dst.sqlite"_s};

const Store kDatabasesStore{kSharedWording +
                                FailureLog::Wording{
                                    {Code::Missing, "Databases file does not exist."},
                                    {Code::InUse, "Databases file is in use by another program - not rewritten."},
                                    {Code::UnknownSchema, "Databases Database Schema does not match key:"},
                                    {Code::TemplateMissing, "dbfile Vacuumed Database does not exist."},
                                    {Code::NotCreated, "dbfile Vantle X Database was not created."},
                                    {Code::RebuiltSchemaUnknown, "dbfile Vantle X Database Schema does not match key:"},
                                },
                            u"dbfilevacuumed"_s,
                            u"vantlex.sqlite"_s,
                            u"renamed.sqlite"_s,
                            u"vantlex.sql.sqlite"_s,
                            u"dbfile.vantlex.src.sqlite"_s,
                            u"dbfile.vantlex.dst.sqlite"_s};

// Copies the rows query selects into table of the new database.
using Copy = std::function<void(const QString& table, const QString& query)>;
// Makes the copies; workDigest is the new database's schema digest before any row arrived.
using CopyRows = std::function<void(const Copy& copy, const QString& workDigest)>;

// The steps every store shares: check the schema, start a new database from the
// template with the same schema, copy the kept rows, put it in place.
class Rebuild {
public:
    Rebuild(CleanerContext& context, const SqliteShell& shell, const Store& store, const QString& path)
        : mContext(context)
        , mShell(shell)
        , mStore(store)
        , mPath(path)
        , mFolder(QFileInfo(path).absoluteDir())
    {
    }

    QString run(bool testExistence, const QStringList& acceptedKeys, const CopyRows& copyRows)
    {
        const Expected<QString> rebuilt = rebuild(testExistence, acceptedKeys, copyRows);
        if (!rebuilt.ok())
            RebuildFailure::report(mContext, rebuilt.error, mStore.wording);
        return rebuilt.value;
    }

private:
    Expected<QString> rebuild(bool testExistence, const QStringList& acceptedKeys, const CopyRows& copyRows)
    {
        if (testExistence && !QFileInfo::exists(mPath))
            return failure(Code::Missing);
        if (!mShell.exists())
            return failure(Code::ShellMissing);
        if (!SqliteShell::isQuotablePath(mFolder.path()))
            return failure(Code::UnquotableFolder);
        // Held until the new database is in place (a dry run writes nothing, and takes no lock).
        std::optional<DatabaseWriteLock> lock;
        if (!mContext.dryRun && QFileInfo::exists(mPath)) {
            if (const Error inUse = lock.emplace(mPath).error(); !inUse.ok())
                return inUse;
        }

        const QString work = file(mStore.work);
        const QString renamed = file(mStore.renamed);
        const QString schemaFile = file(mStore.schema);
        if (!mContext.dryRun) {
            mContext.queueLeftover(renamed);
            DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), work);
            for (const QString& leftOver : {schemaFile, file(mStore.source), file(mStore.destination)})
                mContext.eraseQueue().eraseNow(leftOver);
        }

        const QString schema = mShell.schema(mPath);
        const QString digest = SchemaDigest::raw(schema);
        if (!acceptedKeys.contains(digest))
            return failure(Code::UnknownSchema, {digest.toUtf8()});
        if (mContext.dryRun)
            return rewritten(renamed);

        DatabaseFiles::writeWorkFile(schemaFile, schema.toUtf8());
        const QString templatePath = Bundle::mainBundle().pathForResource(mStore.templateName, u"sqlite"_s);
        if (templatePath.isEmpty())
            return failure(Code::TemplateMissing);
        if (const Error error = DatabaseFiles::copyTemplate(templatePath, work, mPath); !error.ok())
            return error;
        mShell.firefox3ExecuteSQL(u".read"_s, schemaFile, work);
        const QString workDigest = SchemaDigest::raw(mShell.schema(work));
        if (!acceptedKeys.contains(workDigest))
            return failure(Code::RebuiltSchemaUnknown, {workDigest.toUtf8()});

        copyRows(
            [&](const QString& table, const QString& query) {
                mShell.firefox3ReplicateTable(table, query, mPath, work, file(mStore.source), file(mStore.destination));
            },
            workDigest);
        for (const QString& script : {schemaFile, file(mStore.source), file(mStore.destination)})
            mContext.eraseQueue().eraseNow(script);
        if (mShell.firefox3ExecuteSQL(u"PRAGMA quick_check;"_s, work).trimmed() != u"ok"_s) {
            DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), work);
            return failure(Code::Damaged);
        }
        if (const Error error = DatabaseFiles::swap(mPath, work, renamed); !error.ok())
            return error;
        return rewritten(renamed);
    }

    QString rewritten(const QString& renamed)
    {
        mContext.eraseQueue().rewrite(mPath, renamed);
        return renamed;
    }
    QString file(const QString& name) const { return mFolder.filePath(name); }

    Error failure(Code code, const QByteArrayList& detail = {}) const
    {
        return {code, 0, QFile::encodeName(mPath), detail};
    }

    CleanerContext& mContext;
    const SqliteShell& mShell;
    const Store& mStore;
    QString mPath;
    QDir mFolder;
};

// A kept name inside a string literal: a quote in it must not end the string
// and drop the whole copy.
QString sqlText(QString text)
{
    return text.replace(u'\'', u"''"_s);
}

QStringList keepList(const HTML5Manager* manager, bool reversed)
{
    return manager ? manager->getDomainTableData(reversed) : QStringList();
}

} // namespace

WebStorageScrub::WebStorageScrub(CleanerContext& context, const SqliteShell& shell)
    : mContext(context)
    , mShell(shell)
{
}

QString WebStorageScrub::domainQuery(const QString& table, const QString& column, const QString& domain)
{
    return u"select * from %1 where %2 like '%%3%';"_s.arg(table, column, sqlText(domain));
}

QString WebStorageScrub::firefox3webappsstoresqlite(const QString& path)
{
    return Rebuild(mContext, mShell, kFirefoxStore, path)
        .run(true, {kFirefoxOlderKey, kFirefoxKey}, [this](const Copy& copy, const QString& workDigest) {
            // The store keys its rows by the reversed host name. Whatever the
            // schema, the rows go to the table "webappsstore2", and the older
            // digest is paired with the query on "webappsstore".
            for (const QString& domain : keepList(mContext.models.html5, true)) {
                const QString query =
                    workDigest == kFirefoxOlderKey
                        ? u"select webappsstore.* from webappsstore where webappsstore.domain like '%%1%';"_s
                        : u"select webappsstore2.* from webappsstore2 where webappsstore2.scope like '%%1%';"_s;
                copy(u"webappsstore2"_s, query.arg(sqlText(domain)));
            }
        });
}

QString WebStorageScrub::safari5databasessqlite(const QString& path, const QString& schemaMD5)
{
    return Rebuild(mContext, mShell, kDatabasesStore, path)
        .run(true, {schemaMD5}, [this](const Copy& copy, const QString&) {
            for (const QString& domain : keepList(mContext.models.html5, false)) {
                copy(u"Databases"_s, domainQuery(u"Databases"_s, u"Origin"_s, domain));
                copy(u"Origins"_s, domainQuery(u"Origins"_s, u"origin"_s, domain));
            }
        });
}

QString WebStorageScrub::safari5storagetrackersqlite(const QString& path, const QString& schemaMD5)
{
    // The caller has made sure the tracker exists.
    return Rebuild(mContext, mShell, kDatabasesStore, path)
        .run(false, {schemaMD5}, [this](const Copy& copy, const QString&) {
            // Safari's own resource origins always stay.
            QStringList kept = keepList(mContext.models.html5, false);
            kept.append(u"safari-resource"_s);
            for (const QString& domain : kept)
                copy(u"Origins"_s, domainQuery(u"Origins"_s, u"origin"_s, domain));
        });
}

QString WebStorageScrub::chrome5databasessqlite(const QString& path, const QString& schemaMD5)
{
    return rebuildDatabasesFile(path, schemaMD5, {});
}

QString WebStorageScrub::flock35databasessqlite(const QString& path, const QString& schemaMD5)
{
    // Flock's built-in people extension keeps its storage.
    return rebuildDatabasesFile(path, schemaMD5, {u"chrome-extension_flock_people_0"_s});
}

QString WebStorageScrub::rebuildDatabasesFile(const QString& path, const QString& schemaMD5,
                                              const QStringList& fixedOrigins)
{
    return Rebuild(mContext, mShell, kDatabasesStore, path)
        .run(true, {schemaMD5}, [this, &fixedOrigins](const Copy& copy, const QString&) {
            copy(u"meta"_s, u"select * from meta;"_s);
            for (const QString& origin : keepList(mContext.models.html5, false) + fixedOrigins) {
                copy(u"Databases"_s, domainQuery(u"Databases"_s, u"origin"_s, origin));
                // Chrome's quota rows go to the table "Origins".
                copy(u"Origins"_s, domainQuery(u"Quota"_s, u"origin"_s, origin));
            }
        });
}
