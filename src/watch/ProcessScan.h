#pragma once

#include "core/ApplicationFlags.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>

// How the watch reads the user's process list: the watched applications'
// patterns, the lines as a 2,047-byte line reader yields them, and the matching.
namespace ProcessScan {

struct WatchedPattern {
    // A substring of the command line; null for an application that only its
    // Linux program names.
    const char* pattern;
    WatchedApp flag;
    const char16_t* enabledName; // as the enabled-application list names it
};

// In match order: the first pattern a line contains wins.
const std::array<WatchedPattern, kWatchedAppCount>& watchedPatterns();

// The programs of today's Linux builds, by the file name a process runs.
struct LinuxProgram {
    const char* name;
    WatchedApp flag;
};
const std::array<LinuxProgram, 13>& linuxPrograms();

// The lines after the header, each cut at 2,046 bytes and without its last
// character, exactly as reading the listing through a fixed buffer gives them.
// Nothing when the listing is empty (not even a header).
QList<QByteArray> listingLines(const QByteArray& listing);

// The index of the first pattern the line contains, or -1; lines of the disk
// image helper, the crash reporter and browser plug-in hosts match nothing.
// A line no pattern matches whose command is a Linux program of the list (its
// file name, whatever the folder) gives the index of that program's application.
int matchApplication(const QByteArray& line);

// Whether a line belongs to a custom process (only the disk image helper is excluded).
bool matchesCustomProcess(const QByteArray& line, const QByteArray& key);

// The arguments of ps that list the user's command lines in full.
QStringList psArguments(const QString& login);

// The login name, or the real user's name when there is no login terminal.
QString loginName();

} // namespace ProcessScan
