#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

// What a sub-command does once the whole command line has been read; returns the exit status.
using CommandAction = std::function<int()>;

// The exit status of a command refused for its words: an unknown key, name or
// sub-command, or a value of the wrong kind. Nothing has been changed.
inline constexpr int kRefusedExitCode = 2;

// The exit status of a run or an erase that did not deal with every item: some
// stayed in place, were not begun (a stopped run) or lost their names with
// their contents as they were.
inline constexpr int kIncompleteExitCode = 4;

// The translation context of vantle-cli's own texts.
class Cli {
    Q_DECLARE_TR_FUNCTIONS(Cli)
};

void printLine(const QString& text);
// Prints "vantle-cli: message" and the line pointing at --help on the standard
// error, and returns kRefusedExitCode.
int refuse(const QString& message);

struct EraseTally;
// 0 when the erase dealt with every item; otherwise says how many it did not,
// with the first reason, on the standard error and returns kIncompleteExitCode.
int incompleteStatus(const EraseTally& tally);
