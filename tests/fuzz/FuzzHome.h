#pragma once

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <cstdlib>

// A temporary home for one fuzzing process: HOME points at it and
// XDG_CONFIG_HOME is unset from the first call on, so that nothing a target does
// can reach the real home. The folder goes away when the process ends normally.
namespace FuzzHome {

const QString& path();
// path() joined with a relative path.
QString file(const QString& relative);

void write(const QString& file, const QByteArray& bytes);
// The file's bytes; empty when it cannot be read.
QByteArray read(const QString& file);

} // namespace FuzzHome

// A property every input must keep; a failure stops the fuzzer with the input saved.
#define FUZZ_CHECK(condition)                                                                                          \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition);                         \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)
