#pragma once

class CleanerContext;
class QString;

// Rewrites or erases the SQLite stores of one profile of today's Chromium-based
// browsers by the run's settings, writing "Shred: "/"Skip: " lines (full
// paths) as the Firefox stores do. The bookmarks (a JSON file) are never
// touched; the icons of bookmarked pages stay.
void cleanChromiumStores(CleanerContext& context, const QString& profileFolder);
