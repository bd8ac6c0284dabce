#pragma once

#include "cleaners/FixedCleaner.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

// Files of one category in a Mozilla folder, logged as a block: "Shred:" or
// "Skip:" on a line of its own, then each file's full path.
struct FileBlock {
    QLatin1StringView key;
    QStringList names;
};

// A Mozilla cleaner that is a header, a gate and blocks of files in one of the
// places the family keeps them.
struct MozillaCleaner {
    enum class Place {
        // The folder itself.
        Folder,
        // The one salt folder ("*.slt") of the profile folder; noSaltFolder is
        // said when it has none (empty: the words for more than one).
        SaltFolder,
        // Each selected profile of the profiles folder, named on a line of its
        // own and closed by an empty line.
        SelectedProfiles,
        // Each selected profile's cache folder, in cacheFolder, then its folder
        // in the profiles folder for supportBlocks.
        CacheAndSupport,
    };

    QString header;
    QString enabledName;
    Place place;
    QString folder; // with "~"
    QList<FileBlock> blocks;
    QString noSaltFolder = {};
    // SelectedProfiles: after the blocks, the password file the profile's prefs.js names.
    bool passwordFile = false;
    QString cacheFolder = {}; // with "~"
    QList<FileBlock> supportBlocks = {};
};

// The cleaners of the Mozilla family that are data; MozillaCleaners runs them
// and keeps the rest (places rewrite, user-data and cache listings) as code.
namespace MozillaCleanerTables {

const MozillaCleaner& Camino07();
const MozillaCleaner& Camino08();
const FixedCleaner& Camino10();
const FixedCleaner& Camino16();
const MozillaCleaner& Camino20();
const MozillaCleaner& Firefox08();
const MozillaCleaner& Firefox10();
const MozillaCleaner& Firefox15();
const MozillaCleaner& Firefox20();
const MozillaCleaner& Flock25();
const MozillaCleaner& SeaMonkey20cache();
const MozillaCleaner& SeaMonkey20();
// The salt folder of each profile of the Mozilla suite.
const QList<FileBlock>& MozillaSuiteBlocks();

} // namespace MozillaCleanerTables
