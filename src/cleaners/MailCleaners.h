#pragma once

#include "cleaners/EnvelopeIndex.h"

#include <QList>
#include <QString>
#include <QStringList>

class CleanerContext;
class UserDefaults;

// The cleaners of the mail clients: Apple Mail 1.1 to 5.x, Eudora 5 and 6,
// Postbox 2, Thunderbird 1.5 and the Mozilla suite's mail. They queue trash,
// junk and cache mailboxes, and take the erased mailboxes' messages out of
// Apple Mail's Envelope Index. Used on the run's finding thread only.
class MailCleaners {
public:
    MailCleaners(CleanerContext& context, const UserDefaults& defaults);

    void AppleMail11();
    void AppleMail12();
    void AppleMail20to50();
    void MailCache();
    void Eudora51();
    void Eudora62();
    void Postbox21();
    void Thunderbird15();

    // The trash of every profile in a Mozilla suite mail folder.
    void MozillaMail(const QString& folder);
    // The trash and junk mailboxes of the POP and IMAP accounts of a mail folder.
    void shredMailboxesForPath(const QString& folder);
    // Every trash and junk folder at any depth of an IMAP account folder.
    void addIMAPSubfolders(const QString& accountFolder);
    // Removes from the Envelope Index the messages of the trash and junk
    // mailboxes. A dry run opens the index read-only and only says what it would remove.
    void handleMailAtPath(const QString& mailFolder, const QString& indexPath);

private:
    // "Shred:" or "Skip:" on its own line, then each path of folder; "Shred:" queues them.
    void block(bool on, const QString& folder, const QStringList& names);
    // Postbox and Thunderbird: trash and junk of the "Local Folders" of each selected profile.
    void localFolders(const QString& header, const QString& applicationName, const QString& tildeProfilesFolder,
                      const QStringList& junkNames);
    // One delete statement, run or only written as the setting and the dry run say.
    void removeMessages(EnvelopeIndex& index, const QString& command, bool on);

    CleanerContext& mContext;
    const UserDefaults& mDefaults;
    // The mailboxes table read by the last handleMailAtPath.
    QList<EnvelopeIndex::Row> mMailboxRows;
};
