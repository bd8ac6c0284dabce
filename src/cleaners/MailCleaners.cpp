#include "cleaners/MailCleaners.h"

#include "cleaners/CleanerContext.h"
#include "cleaners/MailCleanerTables.h"
#include "cleaners/MailboxUrl.h"
#include "erase/EraseQueue.h"
#include "settings/PreferenceKeys.h"
#include "settings/ProfilesManager.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace {

const QString kNoneSelected = u"No profiles selected in the Profiles menu"_s;
// How the mailbox list shows a url that names no mailbox file.
const QString kNoMailbox = u"none"_s;
const QStringList kTrashPrefixes{u"Deleted Messages"_s, u"Deleted Items"_s, u"Trash"_s};
const QStringList kJunkPrefixes{u"Junk"_s, u"Spam"_s};
// Index paths of trash mailboxes, whether or not the run queued their files.
const QStringList kTrashPaths{u"/Deleted Messages"_s, u"/Deleted Items"_s, u"/Trash"_s};

bool startsWithAny(const QString& text, const QStringList& prefixes)
{
    for (const QString& prefix : prefixes) {
        if (text.startsWith(prefix))
            return true;
    }
    return false;
}

QStringList directEntries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name | QDir::IgnoreCase);
}

// Every folder below folder, parents before their contents. Links are not
// followed: they are not folders of the account.
void forEachSubfolder(const QString& folder, const std::function<void(const QString&)>& visit)
{
    const QDir::Filters filter = QDir::Dirs | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(filter, QDir::Name | QDir::IgnoreCase)) {
        visit(entry.filePath());
        forEachSubfolder(entry.filePath(), visit);
    }
}

} // namespace

MailCleaners::MailCleaners(CleanerContext& context, const UserDefaults& defaults)
    : mContext(context)
    , mDefaults(defaults)
{
}

void MailCleaners::AppleMail11()
{
    runFixedCleaner(MailCleanerTables::AppleMail11(), mContext);
}
void MailCleaners::MailCache()
{
    runFixedCleaner(MailCleanerTables::MailCache(), mContext);
}
void MailCleaners::Eudora51()
{
    runFixedCleaner(MailCleanerTables::Eudora51(), mContext);
}
void MailCleaners::Eudora62()
{
    runFixedCleaner(MailCleanerTables::Eudora62(), mContext);
}

void MailCleaners::block(bool on, const QString& folder, const QStringList& names)
{
    mContext.log(on ? u"Shred:"_s : u"Skip:"_s);
    for (const QString& name : names) {
        const QString path = folder + u'/' + name;
        mContext.log(path);
        if (on)
            mContext.queue(path);
    }
}

void MailCleaners::AppleMail12()
{
    mContext.header(u"Apple Mail 1.2 (Jaguar)"_s);
    if (!mContext.gate(u"Apple Mail"_s))
        return;
    runCleanerItems(MailCleanerTables::AppleMail12Items(), mContext);
    // Each folder's walk ends with its own empty line.
    shredMailboxesForPath(CleanerContext::expandTilde(u"~/Library/Mail"_s));
    mContext.log(u"Apple Mail 5.0"_s);
    shredMailboxesForPath(CleanerContext::expandTilde(u"~/Library/Mail/V2"_s));
}

void MailCleaners::shredMailboxesForPath(const QString& folder)
{
    const bool trash = mContext.setting(ShredMailTrash);
    const bool junk = mContext.setting(ShredAppleMailJunk);
    for (const QString& name : directEntries(folder)) {
        const QString account = folder + u'/' + name;
        if (name.startsWith(u"POP"_s)) {
            // The lines carry no "Shred: " prefix, and the junk mailbox's skip line no "Skip: ".
            for (const QString& mailbox : {u"Deleted Items.mbox"_s, u"Deleted Messages.mbox"_s, u"Trash.mbox"_s}) {
                const QString path = account + u'/' + mailbox;
                mContext.log(trash ? path : u"Skip: "_s + path);
                if (trash)
                    mContext.queue(path);
            }
            const QString junkPath = account + u"/Junk.mbox"_s;
            mContext.log(junkPath);
            if (junk)
                mContext.queue(junkPath);
        } else if (name.startsWith(u"IMAP"_s)) {
            addIMAPSubfolders(account);
        }
    }
    mContext.endCleaner();
}

void MailCleaners::addIMAPSubfolders(const QString& accountFolder)
{
    const bool trash = mContext.setting(ShredMailTrash);
    const bool junk = mContext.setting(ShredAppleMailJunk);
    // A mailbox is a folder with its messages inside: the folder is taken whole.
    forEachSubfolder(accountFolder, [&](const QString& path) {
        const QString name = QFileInfo(path).fileName();
        bool on = false;
        if (startsWithAny(name, kTrashPrefixes))
            on = trash;
        else if (startsWithAny(name, kJunkPrefixes))
            on = junk;
        else
            return;
        mContext.log(on ? path : u"Skip: "_s + path);
        if (on)
            mContext.queue(path);
    });
}

void MailCleaners::AppleMail20to50()
{
    mContext.header(u"Apple Mail 2.x - 5.x"_s);
    mContext.endCleaner();
    if (!mContext.gate(u"Apple Mail"_s))
        return;
    // Only the handling of an index writes closing empty lines.
    const QString mail = CleanerContext::expandTilde(u"~/Library/Mail"_s);
    mContext.log(u"Apple Mail 2.x - 4.x"_s);
    if (QFileInfo::exists(mail + u"/Envelope Index"_s))
        handleMailAtPath(mail, mail + u"/Envelope Index"_s);
    mContext.log(u"Apple Mail 5.x"_s);
    const QString v2 = mail + u"/V2"_s;
    if (QFileInfo::exists(v2 + u"/MailData/Envelope Index"_s))
        handleMailAtPath(v2, v2 + u"/MailData/Envelope Index"_s);
}

void MailCleaners::removeMessages(EnvelopeIndex& index, const QString& command, bool on)
{
    if (!on) {
        mContext.log(u"Shredding not enabled, skipping the following command"_s);
        mContext.log(command);
        mContext.endCleaner();
        return;
    }
    mContext.log(command);
    if (!mContext.dryRun && !index.execute(command)) {
        mContext.log(u"Could not remove messages from index database"_s);
        mContext.log(index.errorMessage());
        mContext.endCleaner();
        return;
    }
    mContext.eraseQueue().rewrite(index.path());
}

void MailCleaners::handleMailAtPath(const QString& mailFolder, const QString& indexPath)
{
    if (!QFileInfo::exists(indexPath)) {
        mContext.log(u"Envelope Index does not exist - launch Mail to create an Envelope Index database"_s);
        mContext.log(indexPath);
        mContext.endCleaner();
        return;
    }
    EnvelopeIndex index;
    if (!index.open(indexPath, mContext.dryRun)) {
        mContext.log(u"Could not open Envelope Index - launch Mail to repair the Envelope Index database"_s);
        mContext.endCleaner();
        return;
    }
    mMailboxRows.clear();
    if (!index.select(u"select * from mailboxes"_s, mMailboxRows)) {
        index.close();
        mContext.log(u"Could not obtain a list of Mailboxes - launch Mail to repair the Envelope Index database"_s);
        mContext.log(index.errorMessage());
        mContext.endCleaner();
        return;
    }

    for (const EnvelopeIndex::Row& row : std::as_const(mMailboxRows)) {
        const QString url = row.value(u"url"_s);
        const MailboxUrl mailbox = parseMailboxUrl(mailFolder, url);
        mContext.log(u"---------->"_s);
        for (const QString& line : {url, mailbox.path, mailbox.host, mailbox.user})
            mContext.log(line);
        mContext.log(mailbox.mailbox.isNull() ? kNoMailbox : mailbox.mailbox);
        mContext.log(mailbox.otherMailbox.isNull() ? kNoMailbox : mailbox.otherMailbox);

        const auto queued = [&](const QString& path) { return !path.isNull() && mContext.eraseQueue().isQueued(path); };
        const bool erased = queued(mailbox.mailbox) || queued(mailbox.otherMailbox);
        const bool junkPath = mailbox.path.startsWith(u"/Junk"_s);
        const bool trashRow = (erased || startsWithAny(mailbox.path, kTrashPaths)) && !junkPath;
        const bool junkRow = (erased && junkPath) || mailbox.path == u"/Junk"_s;
        if (!trashRow && !junkRow)
            continue;

        // The statement is built from the number alone: text from the index never becomes SQL.
        bool isNumber = false;
        const qint64 rowId = row.value(u"ROWID"_s).toLongLong(&isNumber);
        if (!isNumber) {
            mContext.log(u"Mailbox ROWID is not a number, its messages stay in the index: "_s + row.value(u"ROWID"_s));
            continue;
        }
        const QString command = u"delete from messages where mailbox == %1"_s.arg(rowId);
        if (trashRow)
            removeMessages(index, command, mContext.setting(ShredMailTrash));
        if (junkRow)
            removeMessages(index, command, mContext.setting(ShredAppleMailJunk));
    }
    index.close();
    if (!mContext.dryRun)
        mContext.eraseQueue().eraseNow(index.spentJournal());
    mContext.endCleaner();
}

void MailCleaners::localFolders(const QString& header, const QString& applicationName,
                                const QString& tildeProfilesFolder, const QStringList& junkNames)
{
    mContext.header(header);
    if (!mContext.gate(applicationName))
        return;
    const QString profilesFolder = CleanerContext::expandTilde(tildeProfilesFolder);
    const QStringList names = ProfilesManager::selectedProfiles(mDefaults, profilesFolder);
    if (names.isEmpty()) {
        mContext.log(kNoneSelected);
        mContext.endCleaner();
        return;
    }
    const bool junk = mContext.setting(ShredAppleMailJunk);
    for (const QString& name : names) {
        const QString profile = profilesFolder + u'/' + name;
        if (!QFileInfo(profile).isDir())
            continue;
        mContext.log(profile);
        const QString local = profile + u"/Mail/Local Folders"_s;
        block(mContext.setting(ShredMailTrash), local, {u"Trash"_s, u"Trash.msf"_s});
        block(junk, local, junkNames);
        // The client expects its junk mailbox: it is made again, empty, after the run.
        if (junk)
            mContext.eraseQueue().touch(local + u"/Junk"_s);
    }
    mContext.endCleaner();
}

void MailCleaners::Postbox21()
{
    localFolders(u"Postbox 2"_s, u"Postbox"_s, u"~/Library/Application Support/Postbox/Profiles"_s,
                 {u"Junk"_s, u"Junk.msf"_s, u"junklog.html"_s});
}

void MailCleaners::Thunderbird15()
{
    localFolders(u"Thunderbird 1.5"_s, u"Thunderbird"_s, u"~/Library/Thunderbird/Profiles"_s,
                 {u"Junk"_s, u"Junk.msf"_s});
}

void MailCleaners::MozillaMail(const QString& folder)
{
    const QString mailFolder = CleanerContext::expandTilde(folder);
    const bool on = mContext.setting(ShredMailTrash);
    for (const QString& name : directEntries(mailFolder))
        block(on, mailFolder + u'/' + name, {u"Trash"_s, u"Trash.msf"_s});
}
