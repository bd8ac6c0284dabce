#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

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

inline void PrintTo(const QVariant& value, std::ostream* out)
{
    if (!value.isValid()) {
        *out << "(no value)";
        return;
    }
    *out << value.typeName() << '(' << value.toString().toStdString() << ')';
}
