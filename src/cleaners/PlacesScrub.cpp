#include "cleaners/PlacesScrub.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/DatabaseFiles.h"
#include "cleaners/DatabaseWriteLock.h"
#include "cleaners/RebuildFailure.h"
#include "cleaners/SchemaDigest.h"
#include "cleaners/SqliteShell.h"
#include "core/Bundle.h"
#include "erase/EraseQueue.h"
#include "settings/PreferenceKeys.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Known places schemas by the digest of the listing as printed...
constexpr std::array kRawDigests{
    "c933b893a5b851f3d3ed50676f6bb740"_L1, "6f2c60be33c76b0023e6006c6cee8c7c"_L1, "1f1acb41882ed3b988651b92c0c75f95"_L1,
    "43e6904411214d70b847ba315cbbf5a8"_L1, "e5f65bf52e1d6559212cc6db236b07c7"_L1,
};
// ...and without its white space.
constexpr std::array kCompactDigests{
    "ab66db88e39c03650fab0d2e925a04f9"_L1, "7ae06a009f884fac1515355753a005a9"_L1, "b553513732d046b20537906446232084"_L1,
    "d4013b3c78eb1fc861a52366bcebd36f"_L1, "55a0a849ca9e6b8c20da6f7f98ccd072"_L1, "2c759ac649ec0c02cb383b0088bca87b"_L1,
    "3b6c6d0f213d0ba4d62b9bd9f9aafd58"_L1, "a69922863f9db0a5447747658c4adfe0"_L1, "94dc2f449ba9c4a29522011479cbb7b7"_L1,
    "70597d2146021f956b215d60ce30e899"_L1, "6d7fc580dc06dd91a432a8f35764d99b"_L1,
};

// The tables copied whole whatever the settings: what the user keeps.
constexpr std::array kKeptTables{
    "moz_bookmarks_roots"_L1, "moz_bookmarks"_L1,   "moz_anno_attributes"_L1,
    "moz_annos"_L1,           "moz_items_annos"_L1, "moz_keywords"_L1,
};
constexpr std::array kHistoryTables{"moz_historyvisits"_L1, "moz_inputhistory"_L1, "moz_places"_L1};

using Code = Error::Code;

const FailureLog::Wording kWording{
    {Code::Missing, "Places Database does not exist."},
    {Code::ShellMissing, "SQLite shell does not exist."},
    {Code::UnquotableFolder, "Places Database folder name holds a quote or backslash - not rewritten."},
    {Code::InUse, "Places Database is in use by another program - not rewritten."},
    {Code::UnknownSchema, "Places Database Schema does not match key:"},
    // The rebuilt copy's schema is said in the same words.
    {Code::RebuiltSchemaUnknown, "Places Database Schema does not match key:"},
    {Code::TemplateMissing, "Places Vacuumed Database does not exist."},
    {Code::NotCreated, "Places Vantle X Database was not created."},
    {Code::RowsLost, "Places Vantle X Database lost rows while it was rebuilt - not replaced."},
};

struct WorkFiles {
    explicit WorkFiles(const QDir& folder)
        : database(folder.filePath(u"places.vantlex.sqlite"_s))
        , schema(folder.filePath(u"places.vantlex.sql.sqlite"_s))
        , source(folder.filePath(u"places.vantlex.src.sqlite"_s))
        , destination(folder.filePath(u"places.vantlex.dst.sqlite"_s))
        , renamed(folder.filePath(u"places.renamed.sqlite"_s))
    {
    }
    QString database, schema, source, destination, renamed;

    void eraseScripts(EraseQueue& queue) const
    {
        for (const QString& file : {schema, source, destination})
            queue.eraseNow(file);
    }
};

} // namespace

PlacesScrub::PlacesScrub(CleanerContext& context, const SqliteShell& shell)
    : mContext(context)
    , mShell(shell)
{
}

bool PlacesScrub::schemaIsKnown(const QString& rawDigest, const QString& compactDigest) const
{
    return std::find(kRawDigests.begin(), kRawDigests.end(), rawDigest) != kRawDigests.end() ||
           std::find(kCompactDigests.begin(), kCompactDigests.end(), compactDigest) != kCompactDigests.end();
}

QString PlacesScrub::firefox3sqlite(const QString& placesFile)
{
    const Expected<QString> rebuilt = rebuild(placesFile);
    if (!rebuilt.ok())
        RebuildFailure::report(mContext, rebuilt.error, kWording);
    return rebuilt.value;
}

Expected<QString> PlacesScrub::rebuild(const QString& placesFile)
{
    const QByteArray native = QFile::encodeName(placesFile);
    if (!QFileInfo::exists(placesFile))
        return Error{Code::Missing, 0, native};
    if (!mShell.exists())
        return Error{Code::ShellMissing, 0, native};
    const QDir folder = QFileInfo(placesFile).absoluteDir();
    if (!SqliteShell::isQuotablePath(folder.path()))
        return Error{Code::UnquotableFolder, 0, native};
    // Held until the new database is in place (a dry run writes nothing, and takes no lock).
    std::optional<DatabaseWriteLock> lock;
    if (!mContext.dryRun) {
        if (const Error inUse = lock.emplace(placesFile).error(); !inUse.ok())
            return inUse;
    }

    const WorkFiles work(folder);
    if (!mContext.dryRun) {
        mContext.queueLeftover(work.renamed);
        DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), work.database);
        work.eraseScripts(mContext.eraseQueue());
    }

    const QString schema = mShell.schema(placesFile);
    const QString compactDigest = SchemaDigest::compact(schema);
    if (!schemaIsKnown(SchemaDigest::raw(schema), compactDigest))
        return Error{Code::UnknownSchema, 0, native, {SchemaDigest::raw(schema).toUtf8(), compactDigest.toUtf8()}};
    if (mContext.dryRun) {
        mContext.eraseQueue().rewrite(placesFile, work.renamed);
        return work.renamed;
    }

    DatabaseFiles::writeWorkFile(work.schema, schema.toUtf8());
    const QString templatePath = Bundle::mainBundle().pathForResource(u"placesvacuumed"_s, u"sqlite"_s);
    if (templatePath.isEmpty())
        return Error{Code::TemplateMissing, 0, native};
    if (const Error error = DatabaseFiles::copyTemplate(templatePath, work.database, placesFile); !error.ok())
        return error;
    mShell.firefox3ExecuteSQL(u".read"_s, work.schema, work.database);

    // The compact digest stays the live database's, as the known lists expect.
    const QString workRawDigest = SchemaDigest::raw(mShell.schema(work.database));
    if (!schemaIsKnown(workRawDigest, compactDigest))
        return Error{Code::RebuiltSchemaUnknown, 0, native, {workRawDigest.toUtf8(), compactDigest.toUtf8()}};

    copyRows(placesFile, work.database, folder.path());
    work.eraseScripts(mContext.eraseQueue());
    if (!keptRowsArrived(placesFile, work.database)) {
        DatabaseFiles::eraseWorkDatabase(mContext.eraseQueue(), work.database);
        return Error{Code::RowsLost, 0, native};
    }
    if (const Error error = DatabaseFiles::swap(placesFile, work.database, work.renamed); !error.ok())
        return error;
    mContext.eraseQueue().rewrite(placesFile, work.renamed);
    return work.renamed;
}

void PlacesScrub::copyRows(const QString& live, const QString& work, const QString& folder) const
{
    const WorkFiles files{QDir(folder)};
    const auto copy = [&](const QString& table, const QString& query, bool stripQuotes = false) {
        mShell.firefox3ReplicateTable(table, query, live, work, files.source, files.destination, stripQuotes);
    };

    if (!mContext.setting(PreferenceKey::ShredHistory)) {
        copy(u"moz_historyvisits"_s, u"select * from moz_historyvisits;"_s);
        copy(u"moz_inputhistory"_s, u"select * from moz_inputhistory;"_s);
        copy(u"moz_places"_s, u"select * from moz_places;"_s);
    } else {
        // Only the places a bookmark or an annotation needs, and the first three.
        copy(u"moz_places"_s,
             u"select moz_places.* from moz_places, moz_annos where moz_places.id = moz_annos.place_id;"_s);
        copy(u"moz_places"_s,
             u"select moz_places.* from moz_places, moz_bookmarks where moz_places.id = moz_bookmarks.fk;"_s);
        copy(u"moz_places"_s, u"select * from moz_places where moz_places.id < 4;"_s);
    }

    if (!mContext.setting(PreferenceKey::shredSafariFavicon)) {
        // The dump carries its own CREATE TABLE.
        mShell.firefox3ExecuteSQL(u"drop table moz_favicons"_s, work);
        copy(u"moz_favicons"_s, u".dump moz_favicons"_s);
    } else {
        copy(u"moz_favicons"_s,
             u"select moz_favicons.id, moz_favicons.url, quote(moz_favicons.data), moz_favicons. mime_type, "
             "moz_favicons.expiration from moz_places, moz_favicons where moz_places.favicon_id = moz_favicons.id;"_s,
             true);
    }

    for (const QLatin1StringView table : kKeptTables)
        copy(table, u"select * from %1;"_s.arg(table));
}

bool PlacesScrub::keptRowsArrived(const QString& live, const QString& work) const
{
    QList<QLatin1StringView> tables(kKeptTables.begin(), kKeptTables.end());
    if (!mContext.setting(PreferenceKey::ShredHistory))
        tables.append(QList<QLatin1StringView>(kHistoryTables.begin(), kHistoryTables.end()));
    if (!mContext.setting(PreferenceKey::shredSafariFavicon))
        tables.append("moz_favicons"_L1);
    for (const QLatin1StringView table : tables) {
        const QString count = u"select count(*) from %1;"_s.arg(table);
        if (mShell.firefox3ExecuteSQL(count, live) != mShell.firefox3ExecuteSQL(count, work))
            return false;
    }
    // Without the history, the places the bookmarks and annotations point at must
    // all be there, or the kept bookmarks would lose their addresses.
    if (mContext.setting(PreferenceKey::ShredHistory)) {
        const QString needed = u"select count(*) from moz_places where id < 4 or id in (select fk from moz_bookmarks)"
                               " or id in (select place_id from moz_annos);"_s;
        if (mShell.firefox3ExecuteSQL(needed, live) !=
            mShell.firefox3ExecuteSQL(u"select count(*) from moz_places;"_s, work))
            return false;
    }
    return mShell.firefox3ExecuteSQL(u"PRAGMA quick_check;"_s, work).trimmed() == u"ok"_s;
}
