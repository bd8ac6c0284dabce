#pragma once

#include "core/Error.h"

#include <QString>

class CleanerContext;
class SqliteShell;

// Rebuilds a Mozilla-family "places.sqlite" (bookmarks, history and site icons in
// one database) without the history or icons the settings erase, keeping every
// bookmark, annotation and keyword. The new database takes the live one's place
// and the old contents are handed back, under "places.renamed.sqlite", to be
// erased with the run. A database whose schema is not one of the known ones is
// never touched.
class PlacesScrub {
public:
    PlacesScrub(CleanerContext& context, const SqliteShell& shell);

    // The path of "places.renamed.sqlite" beside placesFile once the rebuilt
    // database is in place; a null string when nothing was changed (the log says why).
    QString firefox3sqlite(const QString& placesFile);

private:
    // The renamed path, or why nothing was changed.
    Expected<QString> rebuild(const QString& placesFile);
    bool schemaIsKnown(const QString& rawDigest, const QString& compactDigest) const;
    void copyRows(const QString& live, const QString& work, const QString& folder) const;
    // Every kept table has as many rows in the work database as in the live one.
    bool keptRowsArrived(const QString& live, const QString& work) const;

    CleanerContext& mContext;
    const SqliteShell& mShell;
};
