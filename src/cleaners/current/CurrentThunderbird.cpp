#include "cleaners/current/CurrentThunderbird.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/current/CurrentProfileWalk.h"
#include "cleaners/current/FirefoxStores.h"
#include "erase/EraseQueue.h"
#include "settings/PreferenceKeys.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

// The mailboxes of every account that one setting decides, by the names
// Thunderbird and the common servers give them.
struct Mailbox {
    QLatin1StringView key;
    QStringList names;
    // The client expects it: an mbox file is made again, empty, after the run.
    bool remade;
};

const QList<Mailbox> kMailboxes{
    {ShredMailTrash, {u"Trash"_s, u"Deleted Messages"_s, u"Deleted Items"_s}, false},
    {ShredAppleMailJunk, {u"Junk"_s, u"Spam"_s}, true},
};

// How deep the folders of an account are searched ("[Gmail].sbd/Trash", "INBOX.sbd/Junk").
constexpr int kFolderDepth = 3;

const QList<ProfileFiles> kCache{
    {ShredMailCache, ProfileFiles::Cache, {u"cache2"_s}},
    {ShredMailCache, ProfileFiles::Profile, {u"cache2"_s}},
};

QStringList entries(const QString& folder, QDir::Filters filters)
{
    return QDir(folder).entryList(filters | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

CurrentThunderbird::CurrentThunderbird(CleanerContext& context, const UserDefaults& defaults, QString procRoot)
    : mContext(context)
    , mDefaults(defaults)
    , mProcRoot(std::move(procRoot))
{
}

void CurrentThunderbird::run()
{
    walkCurrentProfiles(mContext, mDefaults,
                        {WatchedApp::thunderbird, u"Thunderbird"_s, u"Thunderbird (current versions)"_s}, mProcRoot,
                        [&](const MozillaProfile& profile) {
                            const bool erased = mailboxes(profile.folder);
                            runProfileFiles(mContext, kCache, profile);
                            cleanThunderbirdIndex(mContext, profile.folder, erased);
                        });
}

bool CurrentThunderbird::mailboxes(const QString& profileFolder)
{
    bool erased = false;
    for (const QString& store : {u"/Mail"_s, u"/ImapMail"_s}) {
        const QString storeFolder = profileFolder + store;
        for (const QString& account : entries(storeFolder, QDir::Dirs | QDir::NoSymLinks))
            erased = mailboxesIn(storeFolder + u'/' + account, kFolderDepth) || erased;
    }
    return erased;
}

bool CurrentThunderbird::mailboxesIn(const QString& folder, int depth)
{
    bool erased = false;
    const auto take = [&](bool on, const QString& path) {
        mContext.shredOrSkipFullPath(on, path);
        erased = erased || on;
    };
    QStringList taken;
    for (const Mailbox& mailbox : kMailboxes) {
        const bool on = mContext.setting(mailbox.key);
        for (const QString& name : mailbox.names) {
            const QString path = folder + u'/' + name;
            const QFileInfo info(path);
            if (info.isFile() && !info.isSymLink()) {
                take(on, path);
                if (on && mailbox.remade)
                    mContext.eraseQueue().touch(path);
            } else if (info.isDir() && !info.isSymLink()) {
                // A maildir mailbox keeps its folders: only the messages go.
                for (const QString& part : {u"/cur"_s, u"/new"_s}) {
                    for (const QString& message : entries(path + part, QDir::Files))
                        take(on, path + part + u'/' + message);
                }
            }
            // The index and the subfolders (folders deleted into the trash).
            for (const QString& suffix : {u".msf"_s, u".sbd"_s}) {
                const QFileInfo companion(path + suffix);
                if (companion.exists() || companion.isSymLink())
                    take(on, companion.filePath());
            }
            taken << name + u".sbd"_s;
        }
    }
    if (depth > 1) {
        for (const QString& sub : entries(folder, QDir::Dirs | QDir::NoSymLinks)) {
            if (sub.endsWith(u".sbd"_s) && !taken.contains(sub))
                erased = mailboxesIn(folder + u'/' + sub, depth - 1) || erased;
        }
    }
    return erased;
}
