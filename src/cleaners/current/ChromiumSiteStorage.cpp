#include "cleaners/current/ChromiumSiteStorage.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/current/LevelDbRewrite.h"
#include "cleaners/current/StoreRecipes.h"
#include "settings/HTML5Manager.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// Keys name their origin as "_<origin>\0<key>", "META:<origin>" and
// "METAACCESS:<origin>"; the rest ("VERSION") belong to no site.
bool localStorageKept(const HTML5Manager& html5, std::string_view key)
{
    std::string_view origin;
    if (key.starts_with('_'))
        origin = key.substr(1, key.find('\0') - 1);
    else if (key.starts_with("META:"))
        origin = key.substr(5);
    else if (key.starts_with("METAACCESS:"))
        origin = key.substr(11);
    else
        return true;
    return html5.keepThisDomain(QString::fromUtf8(origin.data(), qsizetype(origin.size())));
}

void localStorage(CleanerContext& context, const QString& folder)
{
    const HTML5Manager& html5 = *context.models.html5;
    const auto result =
        LevelDbRewrite::run(context, folder, [&](std::string_view key) { return localStorageKept(html5, key); });
    context.log(LevelDbRewrite::logLine(result, folder));
}

// The buckets of sites not kept, read without a lock or a journal: the rewrite
// decides whether the store can be changed.
QStringList bucketsNotKept(const QString& store, const HTML5Manager& html5)
{
    QStringList ids;
    sqlite3* db = nullptr;
    const QByteArray uri = QUrl::fromLocalFile(store).toEncoded() + "?immutable=1";
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_open_v2(uri.constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(db, "SELECT id, host FROM buckets", -1, &statement, nullptr) == SQLITE_OK) {
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const auto host = reinterpret_cast<const char*>(sqlite3_column_text(statement, 1));
            if (!host || !html5.keepThisDomain(QString::fromUtf8(host)))
                ids.append(QString::number(sqlite3_column_int64(statement, 0)));
        }
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return ids;
}

void quota(CleanerContext& context, const QString& folder)
{
    const QString store = folder + u"/QuotaManager"_s;
    const QStringList gone = bucketsNotKept(store, *context.models.html5);
    SqliteRecipe recipe;
    recipe.functions = {StoreRecipes::keptSite(context.models.html5)};
    recipe.deletes = {{u"DELETE FROM buckets WHERE NOT kept_site(host)"_s}};
    recipe.keptQueries = {u"SELECT * FROM buckets WHERE kept_site(host) ORDER BY id"_s,
                          u"SELECT * FROM meta ORDER BY key"_s};
    context.log(u"Shred: "_s + store);
    const SqliteRewrite::Result result = SqliteRewrite::run(context, store, recipe);
    if (result.status != SqliteRewrite::Status::Rewritten) {
        const QString line = SqliteRewrite::logLine(result, store);
        if (!line.isEmpty())
            context.log(line);
        return;
    }
    for (const QString& id : gone) {
        const QString bucket = folder + u'/' + id;
        if (QFileInfo(bucket).isDir())
            context.shredOrSkipFullPath(true, bucket);
    }
}

} // namespace

bool splitSiteStorage(CleanerContext& context, const QString& profileFolder, const QString& store)
{
    const QString folder = profileFolder + u'/' + store;
    if (store == u"Local Storage/leveldb"_s)
        localStorage(context, folder);
    else if (store == u"WebStorage"_s && QFileInfo(folder + u"/QuotaManager"_s).isFile())
        quota(context, folder);
    else
        return false;
    return true;
}
