#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The lines of an activity log without their time stamps ("Sun Nov 22 14:15:17 2026 ").
inline QStringList logLinesOf(const QByteArray& log)
{
    QStringList lines;
    for (const QByteArray& line : log.split('\n'))
        lines.append(QString::fromUtf8(line.mid(25)));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast(); // the piece after the final newline
    return lines;
}
