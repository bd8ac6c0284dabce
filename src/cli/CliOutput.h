#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

// What a sub-command does once the whole command line has been read; returns the exit status.
using CommandAction = std::function<int()>;

// The exit status of a command refused for its words: an unknown key, name or
// sub-command, or a value of the wrong kind. Nothing has been changed.
inline constexpr int kRefusedExitCode = 2;

// The translation context of vantle-cli's own texts.
class Cli {
    Q_DECLARE_TR_FUNCTIONS(Cli)
};

void printLine(const QString& text);
// Prints "vantle-cli: message" and the line pointing at --help on the standard
// error, and returns kRefusedExitCode.
int refuse(const QString& message);
