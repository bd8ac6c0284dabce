#include "erase/RunPlan.h"

#include "erase/FileTree.h"

#include <QFile>
#include <QSet>

#include <sys/stat.h>

QList<bool> ErasePaths::outermost(const QList<QByteArray>& paths)
{
    QList<QByteArray> standardized;
    QSet<QByteArray> existing;
    for (const QByteArray& path : paths) {
        const QByteArray standard = FileTree::standardized(path);
        standardized.append(standard);
        struct stat info {};
        if (::lstat(standard.constData(), &info) == 0)
            existing.insert(standard);
    }
    QList<bool> outer;
    QSet<QByteArray> seen;
    for (const QByteArray& path : std::as_const(standardized)) {
        bool own = existing.contains(path) && !seen.contains(path);
        seen.insert(path);
        for (QByteArray parent = FileTree::parentOf(path); own && parent.size() > 1 && parent != path;
             parent = FileTree::parentOf(parent)) {
            if (existing.contains(parent))
                own = false;
        }
        outer.append(own);
    }
    return outer;
}

std::pair<quint64, quint64> ErasePaths::measure(const QByteArray& path)
{
    quint64 files = 0;
    quint64 bytes = 0;
    FolderWalk::walk(path, {[&](const FolderWalk::Entry& entry) {
                                if (entry.mountPoint || S_ISDIR(entry.info.st_mode))
                                    return true;
                                ++files;
                                if (S_ISREG(entry.info.st_mode) && entry.info.st_nlink == 1)
                                    bytes += quint64(entry.info.st_size);
                                return true;
                            },
                            nullptr,
                            {}});
    return {files, bytes};
}

quint64 RunPlan::files() const
{
    quint64 total = 0;
    for (const Item& item : items)
        total += item.files;
    return total;
}

quint64 RunPlan::bytes() const
{
    quint64 total = 0;
    for (const Item& item : items)
        total += item.bytes;
    return total;
}

RunPlan RunPlan::measure(const QStringList& paths, const QStringList& applications, QList<Rewrite> rewrites,
                         QStringList passedOver, QStringList lookedFor)
{
    RunPlan plan{{}, std::move(rewrites), std::move(passedOver), std::move(lookedFor)};
    QList<QByteArray> native;
    for (const QString& path : paths)
        native.append(QFile::encodeName(path));
    // A dry run makes no old copies: each stands for the live file it would be.
    QList<QByteArray> measured = native;
    for (const Rewrite& rewrite : std::as_const(plan.rewrites)) {
        const QByteArray oldCopy = QFile::encodeName(rewrite.oldCopy);
        if (rewrite.oldCopy.isEmpty() || FileTree::exists(oldCopy))
            continue;
        for (qsizetype i = 0; i < native.size(); ++i) {
            if (native[i] == oldCopy)
                measured[i] = QFile::encodeName(rewrite.path);
        }
    }
    const QList<bool> outer = ErasePaths::outermost(measured);
    for (qsizetype i = 0; i < paths.size(); ++i) {
        if (!outer[i])
            continue;
        const auto [files, bytes] = ErasePaths::measure(FileTree::standardized(measured[i]));
        plan.items.append({applications.value(i), paths[i], files, bytes});
    }
    return plan;
}
