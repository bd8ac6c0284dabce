#pragma once

class CleanerContext;
class QString;

// Takes the sites not on the HTML5 keep list out of a site store of today's
// Chromium-based browsers that all sites share, keeping the kept sites' data:
// the local storage (a LevelDB keyed by origin) and the quota database
// (WebStorage, a bucket per site with a folder per bucket). Writes its
// "Shred: "/"Skip: " lines; false, writing nothing, for a store it cannot split.
bool splitSiteStorage(CleanerContext& context, const QString& profileFolder, const QString& store);
