#include "app/RunReport.h"

#include <QDir>

using namespace Qt::StringLiterals;

bool RunResult::foundNothing() const
{
    return erased.items == 0 && erased.failed == 0 && erased.left == 0 && rewritten == 0;
}

QString RunReport::humanSize(quint64 bytes)
{
    if (bytes < 1024)
        return bytes == 1 ? u"1 byte"_s : u"%1 bytes"_s.arg(bytes);
    const QStringList units{u"KiB"_s, u"MiB"_s, u"GiB"_s, u"TiB"_s};
    double value = double(bytes);
    qsizetype unit = -1;
    while (value >= 1024 && unit + 1 < units.size()) {
        value /= 1024;
        ++unit;
    }
    return u"%1 %2"_s.arg(value, 0, 'f', value < 10 ? 2 : 1).arg(units[unit]);
}

QString RunReport::tilde(const QString& path)
{
    const QString home = QDir::homePath();
    if (path == home)
        return u"~"_s;
    if (path.startsWith(home + u'/'))
        return u'~' + path.mid(home.size());
    return path;
}

QString RunReport::duration(qint64 milliseconds)
{
    if (milliseconds < 10000)
        return u"%1 s"_s.arg(double(milliseconds) / 1000, 0, 'f', 1);
    const qint64 seconds = (milliseconds + 500) / 1000;
    if (seconds < 60)
        return u"%1 s"_s.arg(seconds);
    return u"%1 min %2 s"_s.arg(seconds / 60).arg(seconds % 60);
}

QString RunReport::count(qint64 number, const QString& one, const QString& many)
{
    return u"%1 %2"_s.arg(number).arg(number == 1 ? one : many);
}

QStringList RunReport::resultLines(const RunResult& result)
{
    const EraseTally& erased = result.erased;
    QStringList lines;
    if (result.foundNothing()) {
        lines.append(u"Nothing was found to erase or rewrite in %1."_s.arg(result.home));
        if (!result.lookedFor.isEmpty())
            lines.append(u"Looked for: %1."_s.arg(result.lookedFor.join(u", "_s)));
    } else {
        lines.append(u"Erased %1 (%2, %3 = %4 bytes)."_s
                         .arg(count(erased.items, u"item"_s, u"items"_s), count(erased.files, u"file"_s, u"files"_s),
                              humanSize(erased.bytes))
                         .arg(erased.bytes));
        lines.append(u"Rewrote %1."_s.arg(
            count(result.rewritten, u"database or settings file"_s, u"databases and settings files"_s)));
    }
    if (!result.passedOver.isEmpty())
        lines.append(u"Passed over because running: %1."_s.arg(result.passedOver.join(u", "_s)));
    if (erased.failed != 0)
        lines.append(u"Could not erase %1; first: %2."_s.arg(count(erased.failed, u"item"_s, u"items"_s),
                                                             tilde(erased.firstFailure)));
    if (erased.stopped)
        lines.append(u"Stopped: %1 left as they were."_s.arg(count(erased.left, u"item"_s, u"items"_s)));
    lines.append(u"Took %1."_s.arg(duration(result.milliseconds)));
    return lines;
}

QString RunReport::resultSummary(const RunResult& result)
{
    const EraseTally& erased = result.erased;
    if (result.foundNothing())
        return u"Nothing was found to erase in %1."_s.arg(tilde(result.home));
    QStringList parts{u"Erased %1 (%2)"_s.arg(count(erased.items, u"item"_s, u"items"_s), humanSize(erased.bytes))};
    if (result.rewritten != 0)
        parts.append(u"rewrote %1"_s.arg(count(result.rewritten, u"file"_s, u"files"_s)));
    if (erased.stopped)
        parts.append(u"stopped with %1 left"_s.arg(erased.left));
    if (erased.failed != 0)
        parts.append(u"%1 could not be erased"_s.arg(erased.failed));
    if (!result.passedOver.isEmpty())
        parts.append(u"%1 passed over (running)"_s.arg(result.passedOver.join(u", "_s)));
    return parts.join(u", "_s) + u" in %1."_s.arg(duration(result.milliseconds));
}

QString RunReport::planTotals(const RunPlan& plan)
{
    return u"Would erase %1 (%2, %3) and rewrite %4."_s.arg(
        count(plan.items.size(), u"item"_s, u"items"_s), count(qint64(plan.files()), u"file"_s, u"files"_s),
        humanSize(plan.bytes()),
        count(plan.rewrites.size(), u"database or settings file"_s, u"databases and settings files"_s));
}

QString ProgressText::update(quint64 done, quint64 total)
{
    if (!m_started || done == 0) {
        m_clock.start();
        m_started = true;
    }
    const int percent = total != 0 ? int(100 * done / total) : 0;
    QString text = u"%1 of %2, %3%"_s.arg(RunReport::humanSize(done), RunReport::humanSize(total)).arg(percent);
    // A rate taken over less than two seconds or the first twentieth says little.
    const qint64 elapsed = m_clock.elapsed();
    if (elapsed >= 2000 && done * 20 >= total && done < total) {
        const qint64 left = qint64(double(elapsed) * double(total - done) / double(done));
        text += u", about %1 left"_s.arg(RunReport::duration(left < 10000 ? (left + 999) / 1000 * 1000 : left));
    }
    return text;
}
