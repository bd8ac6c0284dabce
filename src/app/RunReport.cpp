#include "app/RunReport.h"

#include "core/Path.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

bool RunResult::foundNothing() const
{
    return erased.items == 0 && erased.failed == 0 && erased.left == 0 && rewritten == 0;
}

namespace {

QString text(const char* source)
{
    return QCoreApplication::translate("RunReport", source);
}

// English needs two forms, and so does every catalogue so far.
QString counted(qint64 number, const char* one, const char* many)
{
    return text(number == 1 ? one : many).arg(number);
}

// "1 byte", "1536 bytes": every byte, with no unit above it.
QString exactBytes(quint64 bytes)
{
    return counted(qint64(bytes), QT_TRANSLATE_NOOP("RunReport", "%1 byte"),
                   QT_TRANSLATE_NOOP("RunReport", "%1 bytes"));
}

QString decimal(double value, int precision)
{
    return QLocale().toString(value, 'f', precision);
}

QString names(const QStringList& applications)
{
    QStringList shown;
    for (const QString& name : applications)
        shown.append(RunReport::applicationName(name));
    return shown.join(u", "_s);
}

// The groups the run names in words rather than by an application's own name.
[[maybe_unused]] const char* const kGroupNames[] = {
    QT_TRANSLATE_NOOP("RunReport", "Custom processes"),
    QT_TRANSLATE_NOOP("RunReport", "Plug-ins"),
};

} // namespace

QString RunReport::humanSize(quint64 bytes)
{
    if (bytes < 1024)
        return exactBytes(bytes);
    const QStringList units{u"KiB"_s, u"MiB"_s, u"GiB"_s, u"TiB"_s};
    double value = double(bytes);
    qsizetype unit = -1;
    while (value >= 1024 && unit + 1 < units.size()) {
        value /= 1024;
        ++unit;
    }
    return u"%1 %2"_s.arg(decimal(value, value < 10 ? 2 : 1), units[unit]);
}

QString RunReport::tilde(const QString& path)
{
    return Path(path).tilde();
}

QString RunReport::duration(qint64 milliseconds)
{
    if (milliseconds < 10000)
        return QCoreApplication::translate("RunReport", "%1 s").arg(decimal(double(milliseconds) / 1000, 1));
    const qint64 seconds = (milliseconds + 500) / 1000;
    if (seconds < 60)
        return QCoreApplication::translate("RunReport", "%1 s").arg(seconds);
    return QCoreApplication::translate("RunReport", "%1 min %2 s").arg(seconds / 60).arg(seconds % 60);
}

QString RunReport::items(qint64 number)
{
    return counted(number, QT_TRANSLATE_NOOP("RunReport", "%1 item"), QT_TRANSLATE_NOOP("RunReport", "%1 items"));
}

QString RunReport::files(qint64 number)
{
    return counted(number, QT_TRANSLATE_NOOP("RunReport", "%1 file"), QT_TRANSLATE_NOOP("RunReport", "%1 files"));
}

QString RunReport::rewrites(qint64 number)
{
    return counted(number, QT_TRANSLATE_NOOP("RunReport", "%1 database or settings file"),
                   QT_TRANSLATE_NOOP("RunReport", "%1 databases and settings files"));
}

QString RunReport::applicationName(const QString& name)
{
    return text(name.toUtf8().constData());
}

QString RunReport::nothingFound(const QString& home)
{
    return QCoreApplication::translate("RunReport", "Nothing was found to erase or rewrite in %1.").arg(home);
}

QString RunReport::passedOver(const QStringList& applications)
{
    return QCoreApplication::translate("RunReport", "Passed over because running: %1.").arg(names(applications));
}

QStringList RunReport::resultLines(const RunResult& result)
{
    const EraseTally& erased = result.erased;
    QStringList lines;
    if (result.foundNothing()) {
        lines.append(nothingFound(result.home));
        if (!result.lookedFor.isEmpty())
            lines.append(QCoreApplication::translate("RunReport", "Looked for: %1.").arg(names(result.lookedFor)));
    } else {
        lines.append(
            QCoreApplication::translate("RunReport", "Erased %1 (%2, %3 = %4).")
                .arg(items(erased.items), files(erased.files), humanSize(erased.bytes), exactBytes(erased.bytes)));
        lines.append(QCoreApplication::translate("RunReport", "Rewrote %1.").arg(rewrites(result.rewritten)));
    }
    if (!result.passedOver.isEmpty())
        lines.append(passedOver(result.passedOver));
    if (erased.failed != 0)
        lines.append(QCoreApplication::translate("RunReport", "Could not erase %1; first: %2.")
                         .arg(items(erased.failed), tilde(erased.firstFailure)));
    if (erased.stopped)
        lines.append(
            QCoreApplication::translate("RunReport", "Stopped: %1 left as they were.").arg(items(erased.left)));
    lines.append(QCoreApplication::translate("RunReport", "Took %1.").arg(duration(result.milliseconds)));
    return lines;
}

QString RunReport::resultSummary(const RunResult& result)
{
    const EraseTally& erased = result.erased;
    if (result.foundNothing())
        return QCoreApplication::translate("RunReport", "Nothing was found to erase in %1.").arg(tilde(result.home));
    QStringList parts{
        QCoreApplication::translate("RunReport", "Erased %1 (%2)").arg(items(erased.items), humanSize(erased.bytes))};
    if (result.rewritten != 0)
        parts.append(QCoreApplication::translate("RunReport", "rewrote %1").arg(files(result.rewritten)));
    if (erased.stopped)
        parts.append(QCoreApplication::translate("RunReport", "stopped with %1 left").arg(erased.left));
    if (erased.failed != 0)
        parts.append(QCoreApplication::translate("RunReport", "%1 could not be erased").arg(erased.failed));
    if (!result.passedOver.isEmpty())
        parts.append(
            QCoreApplication::translate("RunReport", "%1 passed over (running)").arg(names(result.passedOver)));
    return QCoreApplication::translate("RunReport", "%1 in %2.")
        .arg(parts.join(u", "_s), duration(result.milliseconds));
}

QString RunReport::planTotals(const RunPlan& plan)
{
    return QCoreApplication::translate("RunReport", "Would erase %1 (%2, %3) and rewrite %4.")
        .arg(items(plan.items.size()), files(qint64(plan.files())), humanSize(plan.bytes()),
             rewrites(plan.rewrites.size()));
}

QString ProgressText::update(quint64 done, quint64 total)
{
    if (!m_started || done == 0) {
        m_clock.start();
        m_started = true;
    }
    const int percent = total != 0 ? int(100 * done / total) : 0;
    QString text = QCoreApplication::translate("RunReport", "%1 of %2, %3%")
                       .arg(RunReport::humanSize(done), RunReport::humanSize(total))
                       .arg(percent);
    // A rate taken over less than two seconds or the first twentieth says little.
    const qint64 elapsed = m_clock.elapsed();
    if (elapsed >= 2000 && done * 20 >= total && done < total) {
        const qint64 left = qint64(double(elapsed) * double(total - done) / double(done));
        text += QCoreApplication::translate("RunReport", ", about %1 left")
                    .arg(RunReport::duration(left < 10000 ? (left + 999) / 1000 * 1000 : left));
    }
    return text;
}
