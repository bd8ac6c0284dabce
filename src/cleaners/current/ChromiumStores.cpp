#include "cleaners/current/ChromiumStores.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/JsonPreferenceEdit.h"
#include "cleaners/current/StoreRecipes.h"
#include "settings/PreferenceKeys.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <nlohmann/json.hpp>

#include <memory>

using namespace Qt::StringLiterals;
using namespace StoreRecipes;

namespace {

// Every page's url is history: no urls row stays once the history goes (the
// bookmarks are a file of their own and need none).
constexpr Row kHistoryDeletes[]{
    {When::History, "DELETE FROM visits"},
    {When::History, "DELETE FROM visit_source"},
    {When::History, "DELETE FROM keyword_search_terms"},
    {When::History, "DELETE FROM segment_usage"},
    {When::History, "DELETE FROM segments"},
    {When::History, "DELETE FROM content_annotations", true},
    {When::History, "DELETE FROM context_annotations", true},
    {When::History, "DELETE FROM clusters", true},
    {When::History, "DELETE FROM clusters_and_visits", true},
    {When::History, "DELETE FROM cluster_keywords", true},
    {When::History, "DELETE FROM cluster_visit_duplicates", true},
    {When::History, "DELETE FROM visited_links", true},
    {When::History, "DELETE FROM history_sync_metadata", true},
    {When::History, "DELETE FROM journey_history_entries", true},
    {When::History, "DELETE FROM journey_continuation_queries", true},
    {When::History, "DELETE FROM journeys", true},
    {When::History, "DELETE FROM journey_sync_metadata", true},
    {When::History, "DELETE FROM urls"},
    {When::Downloads, "DELETE FROM downloads_url_chains"},
    {When::Downloads, "DELETE FROM downloads_slices", true},
    {When::Downloads, "DELETE FROM downloads"},
};

constexpr Row kHistoryKept[]{
    {When::Always, "SELECT * FROM meta ORDER BY key"},
    {When::NoHistory, "SELECT * FROM urls ORDER BY id"},
    {When::NoHistory, "SELECT * FROM visits ORDER BY id"},
    {When::NoDownloads, "SELECT * FROM downloads ORDER BY id"},
    {When::NoDownloads, "SELECT * FROM downloads_url_chains ORDER BY id, chain_index"},
};

// The pages that remain are those of the History beside it, attached as
// "history", and the bookmarked ones.
constexpr Row kFaviconsDeletes[]{
    {When::Always, "DELETE FROM icon_mapping WHERE NOT bookmarked(page_url)"
                   " AND page_url NOT IN (SELECT url FROM history.urls WHERE url NOT NULL)"},
    {When::Icons, "DELETE FROM favicon_bitmaps WHERE icon_id NOT IN"
                  " (SELECT icon_id FROM icon_mapping WHERE icon_id NOT NULL)"},
    {When::Icons, "DELETE FROM favicons WHERE id NOT IN (SELECT icon_id FROM icon_mapping WHERE icon_id NOT NULL)"},
};

constexpr Row kFaviconsKept[]{
    {When::Always, "SELECT * FROM icon_mapping WHERE bookmarked(page_url)"
                   " OR page_url IN (SELECT url FROM history.urls) ORDER BY id"},
    {When::NoIcons, "SELECT * FROM favicons ORDER BY id"},
    {When::NoIcons, "SELECT * FROM favicon_bitmaps ORDER BY id"},
    {When::Icons, "SELECT * FROM favicons WHERE id IN (SELECT icon_id FROM icon_mapping WHERE bookmarked(page_url)"
                  " OR page_url IN (SELECT url FROM history.urls)) ORDER BY id"},
};

// Values are encrypted; the host is not.
constexpr Row kCookiesDeletes[]{{When::Always, "DELETE FROM cookies WHERE NOT kept_site(host_key)"}};
constexpr Row kCookiesKept[]{
    {When::Always, "SELECT * FROM cookies WHERE kept_site(host_key) ORDER BY host_key, top_frame_site_key, name, path"},
};

// What was typed into forms goes as the older cleaners take form history; the
// addresses, cards and search engines the user saved stay.
constexpr Row kWebDataDeletes[]{
    {When::History, "DELETE FROM autofill"},
    {When::History, "DELETE FROM autocomplete", true},
};
constexpr Row kWebDataKept[]{
    {When::Always, "SELECT * FROM keywords ORDER BY id"},
    {When::Always, "SELECT guid FROM addresses ORDER BY guid"},
    {When::Always, "SELECT guid FROM credit_cards ORDER BY guid"},
};

void collectUrls(const nlohmann::json& node, QSet<QString>& urls)
{
    if (node.is_object()) {
        const auto url = node.find("url");
        if (url != node.end() && url->is_string())
            urls.insert(QString::fromStdString(url->get<std::string>()));
        for (const auto& child : node)
            collectUrls(child, urls);
    } else if (node.is_array()) {
        for (const auto& child : node)
            collectUrls(child, urls);
    }
}

// The bookmarked pages of the profile's bookmark files.
QSet<QString> bookmarkedUrls(const QString& profileFolder)
{
    QSet<QString> urls;
    for (const QString& name : {u"Bookmarks"_s, u"Account Bookmarks"_s}) {
        QFile file(profileFolder + u'/' + name);
        if (file.size() > JsonPreferenceEdit::kMaximumFileSize || !file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        const auto json = nlohmann::json::parse(bytes.cbegin(), bytes.cend(), nullptr, /*allow_exceptions*/ false);
        if (!json.is_discarded())
            collectUrls(json, urls);
    }
    return urls;
}

SqliteRecipe::Function bookmarked(const QString& profileFolder)
{
    auto urls = std::make_shared<const QSet<QString>>(bookmarkedUrls(profileFolder));
    return {u"bookmarked"_s, [urls](const QString& url) { return QVariant(urls->contains(url) ? 1 : 0); }};
}

} // namespace

void cleanChromiumStores(CleanerContext& context, const QString& profileFolder)
{
    const Settings settings = Settings::of(context);

    SqliteRecipe favicons = recipe(settings, kFaviconsDeletes, kFaviconsKept);
    favicons.attachments = {{u"history"_s, profileFolder + u"/History"_s}};
    favicons.functions = {bookmarked(profileFolder)};
    SqliteRecipe cookies = recipe(settings, kCookiesDeletes, kCookiesKept);
    cookies.functions = {keptSite(context.models.html5)};
    // Nothing of a site not kept may stay.
    cookies.eraseWholeWhen = u"SELECT NOT EXISTS (SELECT 1 FROM cookies WHERE kept_site(host_key))"_s;

    struct Store {
        const char* name;
        bool on;
        SqliteRecipe recipe;
    };
    // The History first: the icons keep what the rewritten History keeps.
    const Store stores[]{
        {"History", settings.history || settings.downloads, recipe(settings, kHistoryDeletes, kHistoryKept)},
        {"Favicons", settings.history || settings.icons, favicons},
        {"Cookies", context.setting(PreferenceKey::ShredCookies), cookies},
        {"Web Data", settings.history, recipe(settings, kWebDataDeletes, kWebDataKept)},
    };
    for (const Store& store : stores) {
        const QString path = profileFolder + u'/' + QLatin1StringView(store.name);
        if (!QFileInfo(path).isFile())
            continue;
        context.log((store.on ? u"Shred: "_s : u"Skip: "_s) + path);
        if (store.on)
            rewrite(context, path, store.recipe);
    }
}
