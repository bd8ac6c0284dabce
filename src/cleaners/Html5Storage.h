#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class CleanerContext;
class HTML5Manager;

// The HTML5 storage of Safari 5, Chrome 5 and Flock 3.5: the local-storage files
// and web-database folders of the sites not kept, and the databases' index
// rebuilt with only the kept sites' rows.
struct Html5Storage {
    QString localStorageName; // as the log names the local-storage folder
    std::function<QStringList(const HTML5Manager&)> localStoragePaths;
    QString databasesName; // as the log names the databases folder
    // Rebuilds the databases' index: the old index moved aside, or null on failure.
    std::function<QString()> rebuildIndex;
    std::function<QStringList(const HTML5Manager&)> databasePaths;
    // Runs before the local storage; false ends the storage part at once (Safari's tracker).
    std::function<bool()> beforeLocalStorage;
};

// Queues what the keep list and the HTML5 switch leave to erase, with the log's
// Shred/Skip lines. A failed rebuild of the databases' index ends it with the
// rebuild's own lines: no database is erased then, while the local storage
// queued before it still is.
void shredHtml5Storage(CleanerContext& context, const Html5Storage& storage);
