#include "cleaners/current/StoreRecipes.h"

#include "cleaners/CleanerContext.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace StoreRecipes {

Settings Settings::of(const CleanerContext& context)
{
    return {context.setting(PreferenceKey::ShredHistory), context.setting(PreferenceKey::ShredIEDownloadCache),
            context.setting(PreferenceKey::shredSafariFavicon)};
}

bool Settings::has(When when) const
{
    switch (when) {
    case When::Always:
        return true;
    case When::History:
    case When::NoHistory:
        return history == (when == When::History);
    case When::Downloads:
    case When::NoDownloads:
        return downloads == (when == When::Downloads);
    case When::Icons:
    case When::NoIcons:
        return icons == (when == When::Icons);
    }
    return false;
}

SqliteRecipe recipe(const Settings& settings, std::span<const Row> deletes, std::span<const Row> kept)
{
    SqliteRecipe result;
    for (const Row& row : deletes) {
        if (settings.has(row.when))
            result.deletes.append({QString::fromLatin1(row.sql), row.optional});
    }
    for (const Row& row : kept) {
        if (settings.has(row.when))
            result.keptQueries.append(QString::fromLatin1(row.sql));
    }
    return result;
}

SqliteRecipe::Function keptSite(const HTML5Manager* manager)
{
    return {u"kept_site"_s, [manager](const QString& name) {
                return QVariant(manager && !name.isEmpty() && manager->keepThisDomain(name) ? 1 : 0);
            }};
}

void eraseWhole(CleanerContext& context, const QString& path)
{
    context.queue(path);
    for (const QString& companion : {path + u"-wal"_s, path + u"-shm"_s, path + u"-journal"_s}) {
        if (QFileInfo::exists(companion))
            context.queue(companion);
    }
}

void rewrite(CleanerContext& context, const QString& path, const SqliteRecipe& recipe)
{
    const SqliteRewrite::Result result = SqliteRewrite::run(context, path, recipe);
    if (result.status == SqliteRewrite::Status::EraseWhole)
        eraseWhole(context, path);
    const QString line = SqliteRewrite::logLine(result, path);
    if (!line.isEmpty())
        context.log(line);
}

} // namespace StoreRecipes
