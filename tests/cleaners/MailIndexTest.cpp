#include "cleaners/MailFixture.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const QString kIndex = u"Library/Mail/V2/MailData/Envelope Index"_s;
const QString kOldIndex = u"Library/Mail/Envelope Index"_s;
const QString kNoMailboxList =
    u"Could not obtain a list of Mailboxes - launch Mail to repair the Envelope Index database"_s;
const QString kImapAccount = u"Library/Mail/V2/IMAP-me@example.com@imap.example.com"_s;
const QString kImapUrl = u"imap://me%40example.com@imap.example.com"_s;

const QList<std::pair<int, QString>> kMailboxes{
    {1, u"local:///Trash"_s},
    {2, u"local:///Junk"_s},
    {3, u"local:///Drafts"_s},
    {4, u"pop://bob@pop.example.com/"_s},
    {5, u"pop://bob@pop.example.com/Deleted%20Messages"_s},
    {6, kImapUrl + u"/Junk%20Mail"_s},
    {7, kImapUrl + u"/Spam"_s},
    {8, kImapUrl + u"/Archive/Deleted%20Messages"_s},
    {9, kImapUrl + u"/%5BGmail%5D/Trash"_s},
    {10, kImapUrl + u"/INBOX"_s},
    {11, QString()},
    {12, u"local:///Junk/Old"_s},
    {13, kImapUrl + u"/Trash/../../../Documents"_s},
    {14, u"pop://bob@pop.example.com/Trash/"_s},
};

class MailIndexTest : public MailFixture {
protected:
    MailIndexTest()
    {
        for (const QString& folder : {u"/Archive/Deleted Messages.imapmbox"_s, u"/INBOX.imapmbox"_s,
                                      u"/Junk Mail.imapmbox"_s, u"/Spam.imapmbox"_s, u"/[Gmail]/Trash.imapmbox"_s})
            makeFolder(kImapAccount + folder);
        makeFolder(u"Library/Mail/V2/POP-bob@pop.example.com"_s);
        makeIndex(kIndex, kMailboxes);
    }

    // The mail group as a run calls it; the lines of the index cleaner.
    QStringList runMail(MailCleaners& mail)
    {
        run([&] {
            mail.AppleMail11();
            mail.AppleMail12();
        });
        return run([&] { mail.AppleMail20to50(); });
    }

    // The lines of the index cleaner over one index of the mail folder below the home.
    QStringList handle(const QString& folder, const QString& index)
    {
        return run([&] { cleaners.handleMailAtPath(home.file(folder), home.file(index)); });
    }

    QStringList remainingAfterRun(bool trash, bool junk)
    {
        QFile::remove(home.file(kIndex));
        makeIndex(kIndex, kMailboxes);
        queue.takePaths();
        setKey(PreferenceKey::ShredMailTrash, trash);
        setKey(PreferenceKey::ShredAppleMailJunk, junk);
        return runMail(cleaners);
    }
};

} // namespace

TEST_F(MailIndexTest, TheTrashAndJunkMailboxesLeaveTheIndexWithEverythingOnAndADryRunOnlySaysSo)
{
    setAllKeys(true);
    const QString m = home.file(u"Library/Mail/V2"_s);
    const auto remove = [](int id) { return QStringList{u"delete from messages where mailbox == %1"_s.arg(id)}; };
    const QString none = u"none"_s;
    const auto local = [&](const QString& path, const QString& mailbox) {
        return QStringList{
            u"---------->"_s, u"local://"_s + path, path, u"unknown-host"_s, u"unknown-user"_s, mailbox, none};
    };
    const auto pop = [&](const QString& url, const QString& path, const QString& mailbox) {
        return QStringList{u"---------->"_s, u"pop://bob@pop.example.com"_s + url, path, u"pop.example.com"_s,
                           u"bob"_s} +
               (mailbox.isNull() ? QStringList{none, none}
                                 : QStringList{m + u"/POP-bob@pop.example.com"_s + mailbox,
                                               m + u"/POP:bob@pop.example.com"_s + mailbox});
    };
    const auto imap = [&](const QString& url, const QString& path, const QString& mailbox) {
        return QStringList{u"---------->"_s, kImapUrl + url, path, u"imap.example.com"_s, u"me@example.com"_s} +
               (mailbox.isNull() ? QStringList{none, none}
                                 : QStringList{home.file(kImapAccount) + mailbox,
                                               m + u"/IMAP:me@example.com@imap.example.com"_s + mailbox});
    };

    QStringList expected{u"Apple Mail 2.x - 5.x"_s, u""_s, u"Apple Mail 2.x - 4.x"_s, u"Apple Mail 5.x"_s};
    expected += local(u"/Trash"_s, m + u"/Mailboxes/Trash.mbox"_s) + remove(1);
    // The local junk goes from the index though no junk file was queued.
    expected += local(u"/Junk"_s, m + u"/Mailboxes/Junk.mbox"_s) + remove(2);
    expected += local(u"/Drafts"_s, m + u"/Mailboxes/Drafts.mbox"_s);
    expected += pop(u"/"_s, u"/"_s, QString());
    expected += pop(u"/Deleted%20Messages"_s, u"/Deleted Messages"_s, u"/Deleted Messages.mbox"_s) + remove(5);
    expected += imap(u"/Junk%20Mail"_s, u"/Junk Mail"_s, u"/Junk Mail.imapmbox"_s) + remove(6);
    // Queued as junk, a spam mailbox then passes as trash.
    expected += imap(u"/Spam"_s, u"/Spam"_s, u"/Spam.imapmbox"_s) + remove(7);
    expected += imap(u"/Archive/Deleted%20Messages"_s, u"/Archive/Deleted Messages"_s,
                     u"/Archive/Deleted Messages.imapmbox"_s) +
                remove(8);
    expected += imap(u"/%5BGmail%5D/Trash"_s, u"/[Gmail]/Trash"_s, u"/[Gmail]/Trash.imapmbox"_s) + remove(9);
    expected += imap(u"/INBOX"_s, u"/INBOX"_s, u"/INBOX.imapmbox"_s);
    expected += {u"---------->"_s, u"NULL"_s, u"NULL"_s, u"unknown-host"_s, u"unknown-user"_s, none, none};
    expected += local(u"/Junk/Old"_s, m + u"/Mailboxes/Junk/Old.mbox"_s);
    // A path leading out of the account names no mailbox; its prefix still makes it trash.
    expected += imap(u"/Trash/../../../Documents"_s, u"/Trash/../../../Documents"_s, QString()) + remove(13);
    expected += pop(u"/Trash/"_s, u"/Trash/"_s, u"/Trash.mbox"_s) + remove(14);
    expected += u""_s;
    // A dry run shows every statement a run executes, and leaves the index byte for byte.
    const QByteArray before = home.read(kIndex);
    EraseQueue dryQueue(preferences, true);
    CleanerContext dryContext(dryQueue, isRunning, customStatus, preferences, true);
    MailCleaners dry(dryContext, defaults);
    EXPECT_EQ(runMail(dry), expected);
    EXPECT_EQ(home.read(kIndex), before);
    EXPECT_FALSE(QFileInfo::exists(home.file(kIndex + u"-journal"_s)));

    EXPECT_EQ(runMail(cleaners), expected);
    EXPECT_EQ(mailboxesWithMessages(kIndex), (QList<int>{3, 4, 10, 11, 12}));
    EXPECT_FALSE(QFileInfo::exists(home.file(kIndex + u"-journal"_s)));
}

TEST_F(MailIndexTest, EachKeyRemovesOnlyItsOwnMailboxes)
{
    // Trash alone: the junk folders are not queued, and the local junk's statement is only shown.
    QStringList lines = remainingAfterRun(true, false);
    EXPECT_EQ(mailboxesWithMessages(kIndex), (QList<int>{2, 3, 4, 6, 7, 10, 11, 12}));
    EXPECT_EQ(lines.count(u"Shredding not enabled, skipping the following command"_s), 1);
    EXPECT_EQ(lines.mid(lines.indexOf(u"Shredding not enabled, skipping the following command"_s) + 1, 2),
              (QStringList{u"delete from messages where mailbox == 2"_s, u""_s}));

    // Junk alone: the spam folder is queued, but its messages go with the trash key.
    lines = remainingAfterRun(false, true);
    EXPECT_EQ(mailboxesWithMessages(kIndex), (QList<int>{1, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14}));
    EXPECT_EQ(lines.count(u"Shredding not enabled, skipping the following command"_s), 5);
    EXPECT_TRUE(lines.contains(u"delete from messages where mailbox == 7"_s));
}

TEST_F(MailIndexTest, ABrokenIndexIsReportedAndTheRunGoesOn)
{
    setAllKeys(true);
    // Mail 2 to 4's index is not a database; Mail 5's is still handled.
    const QByteArray garbage = QByteArray("not a database, only text. ").repeated(100);
    home.write(kOldIndex, garbage);
    const QStringList lines = runMail(cleaners);
    EXPECT_EQ(lines.mid(0, 7), (QStringList{u"Apple Mail 2.x - 5.x"_s, u""_s, u"Apple Mail 2.x - 4.x"_s, kNoMailboxList,
                                            u"file is not a database"_s, u""_s, u"Apple Mail 5.x"_s}));
    EXPECT_EQ(home.read(kOldIndex), garbage);
    EXPECT_EQ(mailboxesWithMessages(kIndex), (QList<int>{3, 4, 10, 11, 12}));

    // An index without the mailboxes table.
    QFile::remove(home.file(kIndex));
    sql(kIndex, "CREATE TABLE messages (ROWID INTEGER PRIMARY KEY, mailbox INTEGER); INSERT INTO messages "
                "VALUES (1, 1);");
    EXPECT_EQ(handle(u"Library/Mail/V2"_s, kIndex),
              (QStringList{kNoMailboxList, u"no such table: mailboxes"_s, u""_s}));
    EXPECT_EQ(mailboxesWithMessages(kIndex), QList<int>{1});

    // A folder in the index's place cannot be opened; a missing one is named.
    QFile::remove(home.file(kIndex));
    makeFolder(kIndex);
    EXPECT_EQ(
        handle(u"Library/Mail/V2"_s, kIndex),
        (QStringList{u"Could not open Envelope Index - launch Mail to repair the Envelope Index database"_s, u""_s}));
    const QString missing = home.file(kOldIndex + u" 2"_s);
    EXPECT_EQ(handle(u"Library/Mail"_s, missing),
              (QStringList{u"Envelope Index does not exist - launch Mail to create an Envelope Index database"_s,
                           missing, u""_s}));
}

TEST_F(MailIndexTest, ALockedIndexFailsCleanlyInsteadOfWaiting)
{
    setAllKeys(true);
    const QByteArray before = home.read(kIndex);
    {
        TestDatabase lock(home.file(kIndex));
        lock.exec(u"BEGIN EXCLUSIVE"_s);
        const QStringList lines = runMail(cleaners);
        EXPECT_EQ(lines.mid(3), (QStringList{u"Apple Mail 5.x"_s, kNoMailboxList, u"database is locked"_s, u""_s}));
    }
    EXPECT_EQ(home.read(kIndex), before);

    // Readable but not writable: each failed statement is reported and the next row still handled.
    makeIndex(kOldIndex, {{1, u"local:///Trash"_s}, {2, u"local:///Deleted%20Items"_s}});
    TestDatabase writer(home.file(kOldIndex));
    writer.exec(u"BEGIN IMMEDIATE"_s);
    const QStringList lines = handle(u"Library/Mail"_s, kOldIndex);
    const qsizetype first = lines.indexOf(u"delete from messages where mailbox == 1"_s);
    ASSERT_GE(first, 0);
    EXPECT_EQ(lines.mid(first + 1, 4), (QStringList{u"Could not remove messages from index database"_s,
                                                    u"database is locked"_s, u""_s, u"---------->"_s}));
    EXPECT_EQ(lines.count(u"Could not remove messages from index database"_s), 2);
    EXPECT_EQ(lines.last(), QString());
    EXPECT_EQ(mailboxesWithMessages(kOldIndex), (QList<int>{1, 2}));
}

TEST_F(MailIndexTest, ARowidThatIsNotANumberNeverReachesTheStatement)
{
    setAllKeys(true);
    sql(kOldIndex, "CREATE TABLE mailboxes (ROWID TEXT, url TEXT);"
                   "CREATE TABLE messages (mailbox, subject);"
                   "INSERT INTO mailboxes VALUES ('1 or 1=1', 'local:///Trash'), ('2', 'local:///Deleted%20Items'),"
                   " (NULL, 'local:///Junk');"
                   "INSERT INTO messages VALUES (1, 'a'), (2, 'b'), (3, 'c');");
    const QStringList lines = handle(u"Library/Mail"_s, kOldIndex);
    EXPECT_EQ(lines.filter(u"delete from messages"_s), QStringList{u"delete from messages where mailbox == 2"_s});
    EXPECT_TRUE(lines.contains(u"Mailbox ROWID is not a number, its messages stay in the index: 1 or 1=1"_s));
    EXPECT_TRUE(lines.contains(u"Mailbox ROWID is not a number, its messages stay in the index: NULL"_s));
    EXPECT_EQ(mailboxesWithMessages(kOldIndex), (QList<int>{1, 3}));
}
