#pragma once

#include "core/ApplicationFlags.h"

#include <QString>

// Whether today's Firefox, Thunderbird or a Chromium-based browser has a profile
// open: its files are then left alone, as those of a running application are.
namespace ProfileInUse {

// The process holding the profile's lock while that process lives, or 0: the
// "lock" or ".parentlock" symbolic link naming "<address>:+<pid>", or a lock
// held on the ".parentlock" file.
qint64 lockHolder(const QString& profileFolder);

// The process holding a Chromium-based browser's user-data folder while that
// process lives, or 0: the "SingletonLock" symbolic link naming "<host>-<pid>".
qint64 singletonLockHolder(const QString& userDataFolder);

// The program of the application (a Linux program name) that one of the user's
// own processes runs, by its process name or the file name of its command, as
// procRoot lists them; a null string when none does.
QString runningProgram(WatchedApp application, const QString& procRoot = QStringLiteral("/proc"));

} // namespace ProfileInUse
