#include "settings/HTML5Manager.h"

#include "core/Path.h"
#include "settings/UserDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kDomainTableDataKey = u"mDomainTableData"_s;
const QString kEnabledStateKey = u"mHTML5EnabledState"_s;
const QString kPlaceholderDomain = u"newdomain.com"_s;

// Storage of the browsers' own extensions, kept whatever the list holds.
const QString kFlockPeople = u"chrome-extension_flock_people_0"_s;
const QString kSafariResource = u"safari-resource__0"_s;

const QString kChromeLocalStorage = u"~/Library/Application Support/Google/Chrome/Default/Local Storage"_s;
const QString kSafariLocalStorage = u"~/Library/Safari/LocalStorage"_s;
const QString kSafariDatabases = u"~/Library/Safari/Databases"_s;
const QString kChromeDatabases = u"~/Library/Application Support/Google/Chrome/Default/databases"_s;
const QString kFlockDatabases = u"~/Library/Application Support/Flock/User Data/Default/databases"_s;

std::mutex gSharedMutex;
std::unique_ptr<HTML5Manager> gShared;

// "a.b.localstorage-journal" has the extension "localstorage-journal".
QString pathExtension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

// Case-sensitive substring match, as the user typed the entry; an empty entry keeps nothing.
bool keeps(const QStringList& domains, const QString& name)
{
    if (name.contains(kFlockPeople) || name.contains(kSafariResource))
        return true;
    return std::any_of(domains.cbegin(), domains.cend(),
                       [&](const QString& domain) { return !domain.isEmpty() && name.contains(domain); });
}

qint64 storedEnabledState(const UserDefaults& defaults)
{
    const QVariant value = defaults.objectForKey(kEnabledStateKey);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toLongLong();
    default:
        return 0;
    }
}

// Entries that are not strings are left out rather than matched as text.
QStringList storedDomains(const UserDefaults& defaults)
{
    QStringList domains;
    for (const QVariant& item : defaults.arrayForKey(kDomainTableDataKey)) {
        if (item.typeId() == QMetaType::QString)
            domains.append(item.toString());
    }
    return domains;
}

} // namespace

HTML5Manager::HTML5Manager(UserDefaults& defaults, QObject* parent)
    : QObject(parent)
    , mUserDefaults(defaults)
    , mHTML5EnabledState(storedEnabledState(defaults))
    , mDomainTableData(storedDomains(defaults))
{
}

HTML5Manager* HTML5Manager::sharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    return gShared.get();
}

HTML5Manager& HTML5Manager::createSharedInstance()
{
    std::lock_guard lock(gSharedMutex);
    if (!gShared)
        gShared = std::make_unique<HTML5Manager>(UserDefaults::standardUserDefaults());
    return *gShared;
}

void HTML5Manager::resetSharedInstanceForTesting()
{
    std::lock_guard lock(gSharedMutex);
    gShared.reset();
}

qint64 HTML5Manager::getEnabledState() const
{
    std::lock_guard lock(mMutex);
    return mHTML5EnabledState;
}

QStringList HTML5Manager::getDomainTableData(bool reversed) const
{
    QStringList domains = this->domains();
    if (reversed)
        std::transform(domains.begin(), domains.end(), domains.begin(), reverseString);
    return domains;
}

QString HTML5Manager::reverseString(const QString& s)
{
    QString reversed = s;
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}

bool HTML5Manager::keepThisDomain(const QString& name) const
{
    return keeps(domains(), name);
}

QStringList HTML5Manager::html5PathsForChrome() const
{
    return pathsToErase(Path::fromTilde(kChromeLocalStorage).toString(), Take::LocalStorageAndJournals);
}

// The people extension's storage file leaves the listing before anything else.
QStringList HTML5Manager::html5PathsForFlock(const QString& folder) const
{
    return pathsToErase(folder, Take::LocalStorage, kFlockPeople + u".localstorage"_s);
}

QStringList HTML5Manager::html5LocalStoragePathsForSafari() const
{
    return pathsToErase(Path::fromTilde(kSafariLocalStorage).toString(), Take::LocalStorage);
}

QStringList HTML5Manager::html5DatabasesPathsForSafari() const
{
    return pathsToErase(Path::fromTilde(kSafariDatabases).toString(), Take::Folders);
}

QStringList HTML5Manager::html5DatabasesPathsForChrome() const
{
    return pathsToErase(Path::fromTilde(kChromeDatabases).toString(), Take::Folders);
}

QStringList HTML5Manager::html5DatabasesPathsForFlock() const
{
    return pathsToErase(Path::fromTilde(kFlockDatabases).toString(), Take::Folders);
}

void HTML5Manager::addDomain()
{
    {
        std::lock_guard lock(mMutex);
        mDomainTableData.append(kPlaceholderDomain);
    }
    emit changed();
}

void HTML5Manager::deleteDomain(int row)
{
    {
        std::lock_guard lock(mMutex);
        if (row < 0 || row >= mDomainTableData.size())
            return;
        mDomainTableData.removeAt(row);
    }
    saveDomains();
}

void HTML5Manager::setDomain(int row, const QString& domain)
{
    {
        std::lock_guard lock(mMutex);
        if (row < 0 || row >= mDomainTableData.size())
            return;
        mDomainTableData[row] = domain;
    }
    saveDomains();
}

void HTML5Manager::setEnabled()
{
    qint64 state;
    {
        std::lock_guard lock(mMutex);
        mHTML5EnabledState = mHTML5EnabledState == 0 ? 1 : 0;
        state = mHTML5EnabledState;
    }
    mUserDefaults.setInteger(state, kEnabledStateKey);
    mUserDefaults.synchronize();
    emit changed();
}

QStringList HTML5Manager::domains() const
{
    std::lock_guard lock(mMutex);
    return mDomainTableData;
}

// Lists the folder (not recursively; a missing folder has no entries) sorted by
// name, so that the paths come in the same order on every file system. The keep
// check looks at the bare entry name and comes before the folder check.
QStringList HTML5Manager::pathsToErase(const QString& folder, Take take, const QString& droppedName) const
{
    qint64 state;
    QStringList domains;
    {
        std::lock_guard lock(mMutex);
        state = mHTML5EnabledState;
        domains = mDomainTableData;
    }
    if (state == 0 || folder.isEmpty()) // an empty path would list the working folder
        return {};

    const QDir dir(folder);
    QStringList entries =
        dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    if (!droppedName.isEmpty())
        entries.removeAll(droppedName);

    QStringList paths;
    for (const QString& name : entries) {
        const QString extension = pathExtension(name);
        const bool taken = take == Take::Folders || extension == u"localstorage"_s ||
                           (take == Take::LocalStorageAndJournals && extension == u"localstorage-journal"_s);
        if (!taken || keeps(domains, name))
            continue;
        const QString path = dir.filePath(name);
        if (take == Take::Folders && !QFileInfo(path).isDir())
            continue;
        paths.append(path);
    }
    return paths;
}

void HTML5Manager::saveDomains()
{
    const QStringList domains = this->domains();
    mUserDefaults.setObject(QVariantList(domains.cbegin(), domains.cend()), kDomainTableDataKey);
    mUserDefaults.synchronize();
    emit changed();
}
