#pragma once

#include <QList>
#include <QString>

// The creator signatures (or bundle identifiers, for applications without one)
// of the applications a session-ending run asks to quit, each with the
// application bundles that carry it.
namespace QuitList {

struct Entry {
    QString signature;
    QList<QString> bundles; // e.g. "Safari.app"
    // The file names today's Linux packages install it under.
    QList<QString> programs = {};
};

const QList<Entry>& entries();

// The signature of the listed application whose bundle holds the executable
// (".../Safari.app/Contents/MacOS/...") or whose Linux program it is, or a null string.
QString signatureForExecutable(const QString& executable);

} // namespace QuitList
