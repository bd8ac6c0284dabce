#include "cleaners/MailFixture.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kImapAccount = u"Library/Mail/V2/IMAP-me@example.com@imap.example.com"_s;
const QString kPopAccount = u"Library/Mail/V2/POP-bob@pop.example.com"_s;

class MailCleanersTest : public MailFixture {
protected:
    // An IMAP account whose trash and junk lie at several depths, beside
    // mailboxes, a file and a link that are never taken.
    void makeAccounts()
    {
        for (const QString& folder :
             {u"/Archive/Deleted Messages.imapmbox"_s, u"/INBOX.imapmbox"_s, u"/Junk Mail.imapmbox/Messages"_s,
              u"/Spam.imapmbox"_s, u"/Trash/Messages"_s, u"/[Gmail]/Trash.imapmbox"_s, u"/Drafts.imapmbox"_s})
            makeFolder(kImapAccount + folder);
        home.write(kImapAccount + u"/Trash.txt"_s, "a file");
        makeFolder(u"Documents/Keep"_s);
        QFile::link(home.file(u"Documents/Keep"_s), home.file(kImapAccount + u"/Trash link"_s));
        makeFolder(kPopAccount);
        makeFolder(u"Library/Mail/POP-old@pop.example.com"_s);
        makeFolder(u"Library/Mail/Mailboxes"_s);
    }

    static QStringList sorted(QStringList list)
    {
        list.sort();
        return list;
    }
};

} // namespace

TEST_F(MailCleanersTest, AppleMailOneTwoTakesTheTrashAndJunkOfEveryAccountByTheirOwnKeys)
{
    makeAccounts();
    setAllKeys(true);
    const QString mail = home.file(u"Library/Mail"_s);
    const QString pop = home.file(kPopAccount);
    const QString imap = home.file(kImapAccount);
    const QStringList lines = run([&] { cleaners.AppleMail12(); });

    const QStringList oldPop{mail + u"/POP-old@pop.example.com/Deleted Items.mbox"_s,
                             mail + u"/POP-old@pop.example.com/Deleted Messages.mbox"_s,
                             mail + u"/POP-old@pop.example.com/Trash.mbox"_s,
                             mail + u"/POP-old@pop.example.com/Junk.mbox"_s};
    const QStringList start = QStringList{u"Apple Mail 1.2 (Jaguar)"_s, u"Shred: ~/Library/Caches/Mail"_s,
                                          u"Shred: ~/Library/Mail/Mailboxes/Junk.mbox"_s} +
                              oldPop + QStringList{u""_s, u"Apple Mail 5.0"_s};
    ASSERT_GT(lines.size(), start.size());
    EXPECT_EQ(lines.mid(0, start.size()), start);
    EXPECT_EQ(lines.last(), QString());

    // The two accounts of V2 come in the folder's order; each POP account's four lines in theirs.
    const QStringList popLines{pop + u"/Deleted Items.mbox"_s, pop + u"/Deleted Messages.mbox"_s,
                               pop + u"/Trash.mbox"_s, pop + u"/Junk.mbox"_s};
    QStringList v2 = lines.mid(start.size(), lines.size() - start.size() - 1);
    const qsizetype at = v2.indexOf(popLines.first());
    ASSERT_GE(at, 0);
    EXPECT_EQ(v2.mid(at, 4), popLines);
    v2.remove(at, 4);
    const QStringList imapFolders{imap + u"/Archive/Deleted Messages.imapmbox"_s, imap + u"/Junk Mail.imapmbox"_s,
                                  imap + u"/Spam.imapmbox"_s, imap + u"/Trash"_s, imap + u"/[Gmail]/Trash.imapmbox"_s};
    EXPECT_EQ(sorted(v2), sorted(imapFolders));

    EXPECT_EQ(sorted(paths), sorted(QStringList{home.file(u"Library/Caches/Mail"_s), mail + u"/Mailboxes/Junk.mbox"_s} +
                                    oldPop + popLines + imapFolders));

    // Everything off: the same lines as skips, but a POP account's junk mailbox is named without "Skip: ".
    queue.takePaths();
    setAllKeys(false);
    const QStringList skipped = run([&] { cleaners.AppleMail12(); });
    QStringList skippedStart{u"Apple Mail 1.2 (Jaguar)"_s, u"Skip: ~/Library/Caches/Mail"_s,
                             u"Skip: ~/Library/Mail/Mailboxes/Junk.mbox"_s};
    for (const QString& path : oldPop)
        skippedStart << (path.endsWith(u"/Junk.mbox"_s) ? path : u"Skip: "_s + path);
    EXPECT_EQ(skipped.mid(0, skippedStart.size() + 2), (skippedStart + QStringList{u""_s, u"Apple Mail 5.0"_s}));
    EXPECT_TRUE(skipped.contains(pop + u"/Junk.mbox"_s));
    for (const QString& folder : imapFolders)
        EXPECT_TRUE(skipped.contains(u"Skip: "_s + folder)) << qPrintable(folder);
    EXPECT_TRUE(paths.isEmpty());

    // Each IMAP folder goes by its own key.
    setKey(PreferenceKey::ShredAppleMailJunk, true);
    const QStringList junkOnly = run([&] { cleaners.addIMAPSubfolders(imap); });
    EXPECT_EQ(sorted(junkOnly),
              sorted({u"Skip: "_s + imap + u"/Archive/Deleted Messages.imapmbox"_s, imap + u"/Junk Mail.imapmbox"_s,
                      imap + u"/Spam.imapmbox"_s, u"Skip: "_s + imap + u"/Trash"_s,
                      u"Skip: "_s + imap + u"/[Gmail]/Trash.imapmbox"_s}));
    EXPECT_EQ(sorted(paths), sorted({imap + u"/Junk Mail.imapmbox"_s, imap + u"/Spam.imapmbox"_s}));
}

TEST_F(MailCleanersTest, PostboxAndThunderbirdCleanTheSelectedProfilesLocalFolders)
{
    const QString postbox = u"Library/Application Support/Postbox/Profiles"_s;
    makeFolder(postbox + u"/a1.default/Mail/Local Folders"_s);
    makeFolder(postbox + u"/b2.work/Mail/Local Folders"_s);
    select(postbox, {u"gone.profile"_s, u"a1.default"_s});
    setAllKeys(true);

    const QString local = home.file(postbox + u"/a1.default/Mail/Local Folders"_s);
    const QStringList shredded({u"Postbox 2"_s, home.file(postbox + u"/a1.default"_s), u"Shred:"_s, local + u"/Trash"_s,
                                local + u"/Trash.msf"_s, u"Shred:"_s, local + u"/Junk"_s, local + u"/Junk.msf"_s,
                                local + u"/junklog.html"_s, u""_s});
    EXPECT_EQ(run([&] { cleaners.Postbox21(); }), shredded);
    EXPECT_EQ(paths, (QStringList{local + u"/Trash"_s, local + u"/Trash.msf"_s, local + u"/Junk"_s,
                                  local + u"/Junk.msf"_s, local + u"/junklog.html"_s}));
    EXPECT_EQ(touches, QStringList{local + u"/Junk"_s});

    queue.takePaths();
    queue.takeTouches();
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Postbox21(); }), QStringList(shredded).replaceInStrings(u"Shred:"_s, u"Skip:"_s));
    EXPECT_TRUE(paths.isEmpty());
    EXPECT_TRUE(touches.isEmpty());

    // Thunderbird has no junk log; with trash off and junk on only the junk is taken.
    const QString thunderbird = u"Library/Thunderbird/Profiles"_s;
    makeFolder(thunderbird + u"/x9.default"_s);
    makeFolder(thunderbird + u"/y8.other"_s);
    EXPECT_EQ(run([&] { cleaners.Thunderbird15(); }),
              (QStringList{u"Thunderbird 1.5"_s, u"No profiles selected in the Profiles menu"_s, u""_s}));
    select(thunderbird, {u"x9.default"_s, u"y8.other"_s});
    setKey(PreferenceKey::ShredAppleMailJunk, true);
    const QString x9 = home.file(thunderbird + u"/x9.default"_s);
    const QString y8 = home.file(thunderbird + u"/y8.other"_s);
    EXPECT_EQ(run([&] { cleaners.Thunderbird15(); }),
              (QStringList{u"Thunderbird 1.5"_s, x9, u"Skip:"_s, x9 + u"/Mail/Local Folders/Trash"_s,
                           x9 + u"/Mail/Local Folders/Trash.msf"_s, u"Shred:"_s, x9 + u"/Mail/Local Folders/Junk"_s,
                           x9 + u"/Mail/Local Folders/Junk.msf"_s, y8, u"Skip:"_s, y8 + u"/Mail/Local Folders/Trash"_s,
                           y8 + u"/Mail/Local Folders/Trash.msf"_s, u"Shred:"_s, y8 + u"/Mail/Local Folders/Junk"_s,
                           y8 + u"/Mail/Local Folders/Junk.msf"_s, u""_s}));
    EXPECT_EQ(touches, (QStringList{x9 + u"/Mail/Local Folders/Junk"_s, y8 + u"/Mail/Local Folders/Junk"_s}));
    EXPECT_EQ(paths.size(), 4);

    // A stored name that is not a plain folder name leads nowhere: it is no selection.
    queue.takePaths();
    select(thunderbird, {u".."_s, u"../Profiles/x9.default"_s});
    EXPECT_EQ(run([&] { cleaners.Thunderbird15(); }),
              (QStringList{u"Thunderbird 1.5"_s, u"No profiles selected in the Profiles menu"_s, u""_s}));
    EXPECT_TRUE(paths.isEmpty());
}

TEST_F(MailCleanersTest, MozillaMailTakesTheTrashOfEveryProfile)
{
    makeFolder(u"Mozilla/Mail/a.default"_s);
    makeFolder(u"Mozilla/Mail/b.other"_s);
    const QString folder = home.file(u"Mozilla/Mail"_s);
    setAllKeys(true);
    const QStringList trash{folder + u"/a.default/Trash"_s, folder + u"/a.default/Trash.msf"_s,
                            folder + u"/b.other/Trash"_s, folder + u"/b.other/Trash.msf"_s};
    EXPECT_EQ(run([&] { cleaners.MozillaMail(folder); }),
              (QStringList{u"Shred:"_s, trash[0], trash[1], u"Shred:"_s, trash[2], trash[3]}));
    EXPECT_EQ(paths, trash);

    queue.takePaths();
    setKey(PreferenceKey::ShredMailTrash, false);
    EXPECT_EQ(run([&] { cleaners.MozillaMail(folder); }),
              (QStringList{u"Skip:"_s, trash[0], trash[1], u"Skip:"_s, trash[2], trash[3]}));
    EXPECT_TRUE(paths.isEmpty());
}
