#pragma once

class CleanerContext;
class QString;

// Rewrites or erases the SQLite stores of one of today's Firefox profiles by the run's settings,
// writing "Shred: "/"Skip: " lines (full paths) in the style of the other cleaners.
void cleanFirefoxStores(CleanerContext& context, const QString& profileFolder);
// Thunderbird's global message index: the rows of the erased trash/junk messages go, or the
// whole file (Thunderbird rebuilds it) when rows cannot be removed safely.
void cleanThunderbirdIndex(CleanerContext& context, const QString& profileFolder, bool mailboxesErased);
