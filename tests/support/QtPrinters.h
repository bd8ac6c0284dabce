#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

// Readable failure messages for Qt strings in test assertions.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* out)
{
    *out << "{\n";
    for (const QString& text : list)
        *out << "  \"" << text.toStdString() << "\"\n";
    *out << "}";
}
