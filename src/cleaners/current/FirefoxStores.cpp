#include "cleaners/current/FirefoxStores.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/current/StoreRecipes.h"
#include "settings/HTML5Manager.h"
#include "settings/PreferenceKeys.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;
using namespace StoreRecipes;

namespace {

// Pages go once no visit, bookmark, keyword, annotation or history record needs
// them, as Firefox's own expiration lets orphaned pages go.
constexpr Row kPlacesDeletes[]{
    {When::History, "DELETE FROM moz_historyvisits"},
    {When::History, "DELETE FROM moz_inputhistory"},
    {When::History, "DELETE FROM moz_places_metadata"},
    {When::History, "DELETE FROM moz_places_metadata_search_queries"},
    {When::History, "DELETE FROM moz_newtab_shortcuts_interaction", true},
    {When::History, "UPDATE moz_places SET visit_count = 0, typed = 0, last_visit_date = NULL"},
    {When::History, "UPDATE moz_places SET recalc_frecency = 1, recalc_alt_frecency = 1", true},
    // A download is a visit of transition type 7 with annotations named "downloads/...".
    {When::Downloads, "DELETE FROM moz_annos WHERE anno_attribute_id IN"
                      " (SELECT id FROM moz_anno_attributes WHERE name LIKE 'downloads/%')"},
    {When::Downloads, "UPDATE moz_places SET last_visit_date = (SELECT max(visit_date) FROM moz_historyvisits"
                      " WHERE place_id = moz_places.id AND visit_type <> 7)"
                      " WHERE id IN (SELECT place_id FROM moz_historyvisits WHERE visit_type = 7)"},
    {When::Downloads, "DELETE FROM moz_historyvisits WHERE visit_type = 7"},
    {When::Always, "DELETE FROM moz_historyvisits_extra WHERE visit_id NOT IN (SELECT id FROM moz_historyvisits)",
     true},
    {When::Always,
     "DELETE FROM moz_places WHERE"
     " id NOT IN (SELECT place_id FROM moz_historyvisits WHERE place_id NOT NULL)"
     " AND id NOT IN (SELECT fk FROM moz_bookmarks WHERE fk NOT NULL)"
     " AND id NOT IN (SELECT place_id FROM moz_keywords WHERE place_id NOT NULL)"
     " AND id NOT IN (SELECT place_id FROM moz_annos)"
     " AND id NOT IN (SELECT place_id FROM moz_inputhistory)"
     " AND id NOT IN (SELECT place_id FROM moz_places_metadata)"
     " AND id NOT IN (SELECT referrer_place_id FROM moz_places_metadata WHERE referrer_place_id NOT NULL)"},
    {When::Always, "DELETE FROM moz_places_extra WHERE place_id NOT IN (SELECT id FROM moz_places)", true},
    {When::Always, "DELETE FROM moz_newtab_shortcuts_interaction WHERE place_id NOT IN (SELECT id FROM moz_places)",
     true},
    {When::Always,
     "DELETE FROM moz_origins WHERE id NOT IN (SELECT origin_id FROM moz_places WHERE origin_id NOT NULL)"},
    {When::Always, "UPDATE moz_origins SET recalc_frecency = 1, recalc_alt_frecency = 1", true},
};

constexpr Row kPlacesKept[]{
    {When::Always, "SELECT * FROM moz_bookmarks ORDER BY id"},
    {When::Always, "SELECT * FROM moz_keywords ORDER BY id"},
    {When::Always, "SELECT * FROM moz_anno_attributes ORDER BY id"},
    {When::Always, "SELECT * FROM moz_items_annos ORDER BY id"},
    {When::NoDownloads, "SELECT * FROM moz_annos ORDER BY id"},
    {When::Downloads, "SELECT * FROM moz_annos WHERE anno_attribute_id NOT IN"
                      " (SELECT id FROM moz_anno_attributes WHERE name LIKE 'downloads/%') ORDER BY id"},
    {When::Always, "SELECT id, url, title, guid FROM moz_places WHERE id IN (SELECT fk FROM moz_bookmarks)"
                   " OR id IN (SELECT place_id FROM moz_keywords) ORDER BY id"},
    {When::NoDownloads,
     "SELECT id, url, guid FROM moz_places WHERE id IN (SELECT place_id FROM moz_annos) ORDER BY id"},
    {When::NoHistory, "SELECT * FROM moz_historyvisits WHERE visit_type <> 7 ORDER BY id"},
    {When::NoHistory, "SELECT * FROM moz_inputhistory ORDER BY place_id, input"},
};

// The pages that remain are those of the places database beside it, attached as "places".
constexpr Row kFaviconsDeletes[]{
    {When::Always,
     "DELETE FROM moz_pages_w_icons WHERE page_url NOT IN (SELECT url FROM places.moz_places WHERE url NOT NULL)"},
    {When::Always, "DELETE FROM moz_icons_to_pages WHERE page_id NOT IN (SELECT id FROM moz_pages_w_icons)"},
    // A site's root icon belongs to no page, but to every page of its host.
    {When::Icons, "DELETE FROM moz_icons WHERE id NOT IN (SELECT icon_id FROM moz_icons_to_pages) AND NOT (root = 1"
                  " AND url_host(icon_url) IN (SELECT url_host(url) FROM places.moz_places WHERE url NOT NULL))"},
};

constexpr Row kFaviconsKept[]{
    {When::Always, "SELECT * FROM moz_pages_w_icons WHERE page_url IN (SELECT url FROM places.moz_places) ORDER BY id"},
    {When::NoIcons, "SELECT * FROM moz_icons ORDER BY id"},
    {When::Icons, "SELECT * FROM moz_icons WHERE id IN (SELECT icon_id FROM moz_icons_to_pages WHERE page_id IN"
                  " (SELECT id FROM moz_pages_w_icons WHERE page_url IN (SELECT url FROM places.moz_places)))"
                  " ORDER BY id"},
};

constexpr Row kCookiesDeletes[]{{When::Always, "DELETE FROM moz_cookies WHERE NOT kept_site(host)"}};
constexpr Row kCookiesKept[]{{When::Always, "SELECT * FROM moz_cookies WHERE kept_site(host) ORDER BY id"}};

// Rows are keyed by the reversed host ("moc.elpmaxe.:https:443").
constexpr Row kWebStorageDeletes[]{
    {When::Always, "DELETE FROM webappsstore2 WHERE NOT kept_site(reversed(originKey))"}};
constexpr Row kWebStorageKept[]{{When::Always, "SELECT * FROM webappsstore2 WHERE kept_site(reversed(originKey))"
                                               " ORDER BY originAttributes, originKey, key"}};

// The mailboxes whose messages the mail cleaners erase, as folder names begin.
const QStringList kErasedMailboxes{u"Trash"_s, u"Deleted Messages"_s, u"Deleted Items"_s, u"Junk"_s, u"Spam"_s};

SqliteRecipe::Function reversed()
{
    return {u"reversed"_s, [](const QString& text) { return QVariant(HTML5Manager::reverseString(text)); }};
}

SqliteRecipe::Function urlHost()
{
    return {u"url_host"_s, [](const QString& url) { return QVariant(QUrl(url).host()); }};
}

// Whether a folder address names one of the erased mailboxes, or lies inside one.
SqliteRecipe::Function erasedMailbox()
{
    return {u"erased_mailbox"_s, [](const QString& folderUri) {
                const QStringList segments = QUrl(folderUri).path().split(u'/');
                return QVariant(std::any_of(segments.begin(), segments.end(), [](const QString& segment) {
                    return std::any_of(kErasedMailboxes.begin(), kErasedMailboxes.end(), [&](const QString& name) {
                        return segment.startsWith(name, Qt::CaseInsensitive);
                    });
                }));
            }};
}

} // namespace

void cleanFirefoxStores(CleanerContext& context, const QString& profileFolder)
{
    const Settings settings = Settings::of(context);
    const HTML5Manager* html5 = context.models.html5;
    const QString places = profileFolder + u"/places.sqlite"_s;

    SqliteRecipe favicons = recipe(settings, kFaviconsDeletes, kFaviconsKept);
    favicons.attachments = {{u"places"_s, places}};
    favicons.functions = {urlHost()};
    SqliteRecipe cookies = recipe(settings, kCookiesDeletes, kCookiesKept);
    cookies.functions = {keptSite(html5)};
    // Nothing of a site not kept may stay.
    cookies.eraseWholeWhen = u"SELECT NOT EXISTS (SELECT 1 FROM moz_cookies WHERE kept_site(host))"_s;
    SqliteRecipe webStorage = recipe(settings, kWebStorageDeletes, kWebStorageKept);
    webStorage.functions = {keptSite(html5), reversed()};

    struct Store {
        const char* name;
        bool on;
        std::optional<SqliteRecipe> recipe; // none: the file goes whole
    };
    // The places first: the icons keep what the rewritten places keep.
    const Store stores[]{
        {"places.sqlite", settings.history || settings.downloads, recipe(settings, kPlacesDeletes, kPlacesKept)},
        {"favicons.sqlite", settings.history || settings.icons, favicons},
        {"cookies.sqlite", context.setting(PreferenceKey::ShredCookies), cookies},
        // As the older Firefox cleaners erase it.
        {"formhistory.sqlite", settings.history, std::nullopt},
        {"webappsstore.sqlite", html5 && html5->getEnabledState() == 1, webStorage},
    };
    for (const Store& store : stores) {
        const QString path = profileFolder + u'/' + QLatin1StringView(store.name);
        if (!QFileInfo(path).isFile())
            continue;
        context.log((store.on ? u"Shred: "_s : u"Skip: "_s) + path);
        if (!store.on)
            continue;
        if (store.recipe)
            rewrite(context, path, *store.recipe);
        else
            eraseWhole(context, path);
    }
}

void cleanThunderbirdIndex(CleanerContext& context, const QString& profileFolder, bool mailboxesErased)
{
    const QString path = profileFolder + u"/global-messages-db.sqlite"_s;
    if (!QFileInfo(path).isFile())
        return;
    if (!mailboxesErased) {
        context.log(u"Skip: "_s + path);
        return;
    }
    // The full-text table holds every indexed message's words through a
    // tokenizer only Thunderbird has: a message's rows cannot be taken out of it
    // here, so an index that holds an erased message goes whole.
    SqliteRecipe index;
    index.functions = {erasedMailbox()};
    index.eraseWholeWhen = u"SELECT EXISTS (SELECT 1 FROM messages WHERE folderID IN"
                           " (SELECT id FROM folderLocations WHERE erased_mailbox(folderURI)))"_s;
    const SqliteRewrite::Result result = SqliteRewrite::run(context, path, index);
    switch (result.status) {
    case SqliteRewrite::Status::EraseWhole:
    case SqliteRewrite::Status::UnknownShape: // what cannot be read is rebuilt
        context.log(u"Shred: "_s + path);
        eraseWhole(context, path);
        return;
    case SqliteRewrite::Status::Unchanged:
        context.log(u"Skip: "_s + path);
        return;
    default:
        context.log(u"Skip: "_s + path);
        context.log(SqliteRewrite::logLine(result, path));
    }
}
