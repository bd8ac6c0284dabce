#pragma once

#include "cleaners/SqliteRewrite.h"

#include <span>

class CleanerContext;
class HTML5Manager;

// What the rewrites of today's browser stores share: statements chosen by the
// run's settings, the keep list as an SQL function, and how a store is
// rewritten or erased with its companions.
namespace StoreRecipes {

// The settings a statement or kept query belongs to.
enum class When { Always, History, NoHistory, Downloads, NoDownloads, Icons, NoIcons };

struct Settings {
    bool history = false;
    bool downloads = false;
    bool icons = false;

    // The run's history, download and icon settings.
    static Settings of(const CleanerContext& context);
    bool has(When when) const;
};

struct Row {
    When when;
    const char* sql;
    bool optional = false; // a table or column older versions lack
};

SqliteRecipe recipe(const Settings& settings, std::span<const Row> deletes, std::span<const Row> kept);

// kept_site(name): the keep list's substring rule, as the HTML5 storage cleaners apply it.
SqliteRecipe::Function keptSite(const HTML5Manager* manager);

// Queues the store with the companions SQLite keeps beside it.
void eraseWhole(CleanerContext& context, const QString& path);

// Rewrites the store by the recipe, or erases it whole when the recipe says
// so; a store left as it was gets its log line.
void rewrite(CleanerContext& context, const QString& path, const SqliteRecipe& recipe);

} // namespace StoreRecipes
