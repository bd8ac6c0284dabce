#include "watch/CustomShred.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "erase/EraseQueue.h"
#include "log/ActivityLog.h"
#include "settings/UserDefaults.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kProcessDictionary = u"mProcessDictionary"_s;
const QString kPath = u"path"_s;
const QString kKeep = u"keep"_s;
const QString kIsRunning = u"isrunning"_s;
const QString kWasRunning = u"wasrunning"_s;

std::mutex gSharedMutex;
std::unique_ptr<CustomShred> gShared;

QVariantMap runState(int isRunning, int wasRunning)
{
    return {{kIsRunning, isRunning}, {kWasRunning, wasRunning}};
}

} // namespace

CustomShred::CustomShred(UserDefaults& defaults, QObject* parent)
    : QObject(parent)
    , mUserDefaults(defaults)
{
    mProcessDictionary = unarchive(mUserDefaults.dataForKey(kProcessDictionary));
    mProcessArray = mProcessDictionary.keys();

    NotificationCenter& center = NotificationCenter::defaultCenter();
    const auto statusOf = [](const QVariantMap& object) {
        return object.value(u"mCustomShredTHStatus"_s).value<StatusMapRef>().status;
    };
    mObservers << center.addObserver(Notifications::OrvickInitTHStatusNotification,
                                     [this, statusOf](const QVariantMap& o) {
                                         if (QVariantMap* status = statusOf(o))
                                             initStatus(*status);
                                     });
    mObservers << center.addObserver(Notifications::OrvickCopyAndClearTHStatusNotification,
                                     [this, statusOf](const QVariantMap& o) {
                                         if (QVariantMap* status = statusOf(o))
                                             copyAndClearStatus(*status);
                                     });
    mObservers << center.addObserver(Notifications::VantleShreddingDoneNotification,
                                     [this](const QVariantMap&) { recreateKeptFolders(); });
}

CustomShred::~CustomShred()
{
    for (const quint64 token : mObservers)
        NotificationCenter::defaultCenter().removeObserver(token);
}

CustomShred* CustomShred::sharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    return gShared.get();
}

CustomShred& CustomShred::createSharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    if (!gShared)
        gShared = std::make_unique<CustomShred>(UserDefaults::standardUserDefaults());
    return *gShared;
}

void CustomShred::resetSharedInstanceForTesting()
{
    std::lock_guard lock(gSharedMutex);
    gShared.reset();
}

void CustomShred::save()
{
    QByteArray data;
    {
        std::lock_guard lock(mMutex);
        data = archive(mProcessDictionary);
    }
    mUserDefaults.setObject(data, kProcessDictionary);
    mUserDefaults.synchronize();
    emit processesChanged();
}

QStringList CustomShred::processes() const
{
    std::lock_guard lock(mMutex);
    return mProcessArray;
}

QVariantList CustomShred::paths(const QString& process) const
{
    std::lock_guard lock(mMutex);
    return mProcessDictionary.value(process).toList();
}

qsizetype CustomShred::indexOfPath(const QVariantList& entries, const QString& path) const
{
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (entries[i].toMap().value(kPath).toString() == path)
            return i;
    }
    return -1;
}

bool CustomShred::addProcess(const QString& process)
{
    {
        std::lock_guard lock(mMutex);
        if (process.isEmpty() || mProcessDictionary.contains(process))
            return false;
        mUserDidMakeChange = true;
        mProcessDictionary.insert(process, QVariantList());
        mProcessArray = mProcessDictionary.keys();
    }
    save();
    return true;
}

bool CustomShred::deleteProcess(const QString& process)
{
    {
        std::lock_guard lock(mMutex);
        if (!mProcessDictionary.contains(process))
            return false;
        mUserDidMakeChange = true;
        mProcessDictionary.remove(process);
        mProcessArray = mProcessDictionary.keys();
    }
    save();
    return true;
}

bool CustomShred::addPath(const QString& process, const QString& path)
{
    {
        std::lock_guard lock(mMutex);
        if (!mProcessDictionary.contains(process))
            return false;
        QVariantList entries = mProcessDictionary.value(process).toList();
        if (indexOfPath(entries, path) >= 0)
            return false;
        QVariantMap entry{{kPath, path}};
        if (QFileInfo(path).isDir())
            entry.insert(kKeep, false);
        entries.append(entry);
        mProcessDictionary.insert(process, entries);
    }
    save();
    return true;
}

bool CustomShred::deletePath(const QString& process, const QString& path)
{
    {
        std::lock_guard lock(mMutex);
        QVariantList entries = mProcessDictionary.value(process).toList();
        const qsizetype index = indexOfPath(entries, path);
        if (index < 0)
            return false;
        entries.removeAt(index);
        mProcessDictionary.insert(process, entries);
    }
    save();
    return true;
}

bool CustomShred::setKeep(const QString& process, const QString& path, bool keep)
{
    {
        std::lock_guard lock(mMutex);
        QVariantList entries = mProcessDictionary.value(process).toList();
        const qsizetype index = indexOfPath(entries, path);
        if (index < 0)
            return false;
        QVariantMap entry = entries[index].toMap();
        if (!entry.contains(kKeep))
            return false;
        entry.insert(kKeep, keep);
        entries[index] = entry;
        mProcessDictionary.insert(process, entries);
    }
    save();
    return true;
}

bool CustomShred::disableProcess()
{
    save();
    return false;
}

void CustomShred::initStatus(QVariantMap& status)
{
    std::lock_guard lock(mMutex);
    for (const QString& process : mProcessArray)
        status.insert(process, runState(0, 1));
}

void CustomShred::copyAndClearStatus(QVariantMap& status)
{
    std::lock_guard lock(mMutex);
    if (mUserDidMakeChange) {
        mUserDidMakeChange = false;
        for (const QString& process : mProcessArray) {
            if (!status.contains(process))
                status.insert(process, runState(0, 1));
        }
        for (const QString& process : status.keys()) {
            if (!mProcessArray.contains(process))
                status.remove(process);
        }
    }
    for (const QString& process : mProcessArray) {
        const QVariantMap entry = status.value(process).toMap();
        status.insert(process, runState(0, entry.value(kIsRunning).toInt()));
    }
}

void CustomShred::handOverPaths(const QString& process, EraseQueue& queue)
{
    std::lock_guard lock(mMutex);
    for (const QVariant& item : mProcessDictionary.value(process).toList()) {
        const QString path = item.toMap().value(kPath).toString();
        ActivityLog::writeLogLine(path);
        queue.erase(path);
    }
}

void CustomShred::recreateKeptFolders()
{
    std::lock_guard lock(mMutex);
    for (const QVariant& entries : std::as_const(mProcessDictionary)) {
        for (const QVariant& item : entries.toList()) {
            const QVariantMap entry = item.toMap();
            if (!entry.value(kKeep).toBool())
                continue;
            const QByteArray path = QFile::encodeName(entry.value(kPath).toString());
            ::mkdir(path.constData(), 0777);
            ::chmod(path.constData(), 0777);
        }
    }
}
