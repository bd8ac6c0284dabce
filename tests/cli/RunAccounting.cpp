#include "cli/RunAccounting.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;

void QueuedPaths::addDryRun(const QString& output)
{
    const auto plan = nlohmann::json::parse(output.toStdString(), nullptr, false);
    if (!plan.is_object())
        return;
    for (const auto& application : plan["applications"]) {
        for (const auto& item : application["erase"])
            m_paths.append(QString::fromStdString(item["path"].get<std::string>()));
    }
}

void QueuedPaths::addLog(const QByteArray& log, const QString& home)
{
    // After the time stamp ("Mon Nov 23 06:45:01 2026 ").
    for (const QString& line : QString::fromUtf8(log).split(u'\n')) {
        const QString message = line.mid(25);
        for (const QString& prefix : {u"Shred: "_s, u"Shred (left by an interrupted run): "_s}) {
            if (!message.startsWith(prefix))
                continue;
            const QString path = message.mid(prefix.size());
            if (path.startsWith(u"~/"_s))
                m_paths.append(home + path.mid(1));
            else if (path.startsWith(u'/'))
                m_paths.append(path);
        }
    }
}

bool QueuedPaths::covers(const QString& path) const
{
    for (const QString& queued : m_paths) {
        if (path == queued || path.startsWith(queued + u'/'))
            return true;
    }
    return false;
}

HomeSnapshot::HomeSnapshot(const QString& home, const QueuedPaths& queued)
    : m_home(home)
    , m_entries(entries(home, &queued))
{
}

QHash<QString, QByteArray> HomeSnapshot::entries(const QString& home, const QueuedPaths* skipContents)
{
    QHash<QString, QByteArray> found;
    QDirIterator it(home, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QFileInfo info = it.fileInfo();
        QByteArray digest;
        if (info.isSymLink()) {
            digest = "link " + QFile::encodeName(info.symLinkTarget());
        } else if (info.isDir()) {
            digest = "folder";
        } else if (!skipContents || !skipContents->covers(path)) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly)) {
                QCryptographicHash hash(QCryptographicHash::Sha256);
                hash.addData(&file);
                digest = hash.result().toHex();
            } else {
                digest = "unreadable";
            }
        }
        found.insert(QDir(home).relativeFilePath(path), digest);
    }
    return found;
}

QStringList HomeSnapshot::goneOutside(const QueuedPaths& queued) const
{
    QStringList gone;
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        const QString path = QDir(m_home).filePath(it.key());
        if (!queued.covers(path) && !QFileInfo(path).exists() && !QFileInfo(path).isSymLink())
            gone.append(it.key());
    }
    gone.sort();
    return gone;
}

QStringList HomeSnapshot::changedOutside(const QueuedPaths& queued, const QStringList& rewritten) const
{
    const QHash<QString, QByteArray> now = entries(m_home, &queued);
    QStringList changed;
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        const bool isRewritten = std::any_of(rewritten.cbegin(), rewritten.cend(),
                                             [&](const QString& prefix) { return it.key().startsWith(prefix); });
        if (isRewritten || queued.covers(QDir(m_home).filePath(it.key())) || !now.contains(it.key()))
            continue;
        if (now.value(it.key()) != it.value())
            changed.append(it.key());
    }
    changed.sort();
    return changed;
}

QStringList workFiles(const QString& home)
{
    QStringList found;
    QDirIterator it(home, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString name = QFileInfo(it.next()).fileName();
        if (name.contains(u"vantlex"_s) || name.contains(u"renamed"_s) || name.endsWith(u"-journal"_s) ||
            name.startsWith(u"Vantle X Items ("_s))
            found.append(QDir(home).relativeFilePath(it.filePath()));
    }
    return found;
}
