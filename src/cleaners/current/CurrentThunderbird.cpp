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

// A mailbox of every account that one setting decides.
struct Mailbox {
    QLatin1StringView key;
    QString name;
    // The client expects it: an mbox file is made again, empty, after the run.
    bool remade;
};

const QList<Mailbox> kMailboxes{
    {ShredMailTrash, u"Trash"_s, false},
    {ShredAppleMailJunk, u"Junk"_s, true},
};

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
    const auto take = [&](bool on, const QString& path) {
        mContext.shredOrSkipFullPath(on, path);
        erased = erased || on;
    };
    for (const QString& store : {u"/Mail"_s, u"/ImapMail"_s}) {
        const QString storeFolder = profileFolder + store;
        for (const QString& account : entries(storeFolder, QDir::Dirs | QDir::NoSymLinks)) {
            const QString accountFolder = storeFolder + u'/' + account;
            for (const Mailbox& mailbox : kMailboxes) {
                const bool on = mContext.setting(mailbox.key);
                const QString path = accountFolder + u'/' + mailbox.name;
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
            }
        }
    }
    return erased;
}
