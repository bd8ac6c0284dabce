#pragma once

#include <QString>

class CleanerContext;
class UserDefaults;

// Today's Thunderbird (Linux, Snap, Flatpak and macOS builds): per selected
// profile that is not in use, the trash and junk mailboxes of every local and
// IMAP account, the cache, then the messages' search index. Writes nothing on a
// home without such a profile. Used on the run's finding thread only.
class CurrentThunderbird {
public:
    // procRoot: where the user's processes are listed.
    CurrentThunderbird(CleanerContext& context, const UserDefaults& defaults,
                       QString procRoot = QStringLiteral("/proc"));

    void run();

private:
    // The trash and junk of each account folder below Mail/ and ImapMail/; true
    // when a mailbox was queued.
    bool mailboxes(const QString& profileFolder);
    // Those of one account folder and of its subfolders, depth levels down.
    bool mailboxesIn(const QString& folder, int depth);

    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    QString mProcRoot;
};
