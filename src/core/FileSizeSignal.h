#pragma once

// A write past the file-size limit (RLIMIT_FSIZE, one way a quota or a full disk
// shows itself) raises SIGXFSZ, whose default action ends the process: a run
// would stop between any two of its steps. Ignored, the write fails with EFBIG
// instead, which every writer here answers (a rebuilt database is checked before
// it replaces the old one, settings are saved atomically, the log closes). Child
// processes inherit the setting: the SQLite shell fails a statement instead of
// dying in the middle of its script.
namespace FileSizeSignal {

// Called once at start-up, before any thread or child process is started.
void ignore();

} // namespace FileSizeSignal
