#include "cleaners/MailboxUrl.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kMail = u"/home/u/Library/Mail/V2"_s;

MailboxUrl parse(const QString& url)
{
    return parseMailboxUrl(kMail, url);
}

} // namespace

TEST(MailboxUrlTest, EachSchemeNamesItsMailboxBelowTheMailFolderAndMissingPartsHaveStandIns)
{
    const MailboxUrl imap = parse(u"imap://me%40example.com@imap.example.com/%5BGmail%5D/All%20Mail"_s);
    EXPECT_EQ(imap.user, u"me@example.com"_s);
    EXPECT_EQ(imap.host, u"imap.example.com"_s);
    EXPECT_EQ(imap.path, u"/[Gmail]/All Mail"_s);
    EXPECT_EQ(imap.mailbox, kMail + u"/IMAP-me@example.com@imap.example.com/[Gmail]/All Mail.imapmbox"_s);
    EXPECT_EQ(imap.otherMailbox, kMail + u"/IMAP:me@example.com@imap.example.com/[Gmail]/All Mail.imapmbox"_s);

    // The account folder bears the host as the url spells it, capitals and all.
    EXPECT_EQ(parse(u"imap://me@Mail.Example.COM:993/%5BGmail%5D/Trash"_s).mailbox,
              kMail + u"/IMAP-me@Mail.Example.COM/[Gmail]/Trash.imapmbox"_s);
    EXPECT_EQ(parse(u"imap://Mail.Example.COM/INBOX"_s).host, u"Mail.Example.COM"_s);

    const MailboxUrl pop = parse(u"POP://bob@pop.example.com/INBOX"_s);
    EXPECT_EQ(pop.mailbox, kMail + u"/POP-bob@pop.example.com/INBOX.mbox"_s);
    EXPECT_EQ(pop.otherMailbox, kMail + u"/POP:bob@pop.example.com/INBOX.mbox"_s);

    const MailboxUrl local = parse(u"local:///Sent%20Messages"_s);
    EXPECT_EQ(local.mailbox, kMail + u"/Mailboxes/Sent Messages.mbox"_s);
    EXPECT_TRUE(local.otherMailbox.isNull());

    const MailboxUrl other = parse(u"ews://me@exchange.example.com/Inbox"_s);
    EXPECT_TRUE(other.mailbox.isNull());
    EXPECT_TRUE(other.otherMailbox.isNull());

    const MailboxUrl junk = parse(u"local:///Junk"_s);
    EXPECT_EQ(junk.user, u"unknown-user"_s);
    EXPECT_EQ(junk.host, u"unknown-host"_s);

    const MailboxUrl bare = parse(u"imap://user@host"_s);
    EXPECT_EQ(bare.path, u"unknown-path"_s);
    EXPECT_EQ(bare.mailbox, kMail + u"/IMAP-user@host/unknown-path.imapmbox"_s);

    const MailboxUrl empty = parse(QString());
    EXPECT_EQ(empty.path, u"unknown-path"_s);
    EXPECT_TRUE(empty.mailbox.isNull());
}

TEST(MailboxUrlTest, SlashesAndDotsNeverLeadOutOfTheMailFolder)
{
    // The account's root is no mailbox; a trailing slash names the mailbox itself.
    EXPECT_TRUE(parse(u"pop://bob@pop.example.com/"_s).mailbox.isNull());
    EXPECT_TRUE(parse(u"imap://bob@imap.example.com/"_s).otherMailbox.isNull());
    EXPECT_TRUE(parse(u"local:///"_s).mailbox.isNull());
    EXPECT_EQ(parse(u"imap://bob@imap.example.com/INBOX/"_s).mailbox,
              kMail + u"/IMAP-bob@imap.example.com/INBOX.imapmbox"_s);
    EXPECT_EQ(parse(u"local:///a//b/./c"_s).mailbox, kMail + u"/Mailboxes/a/b/c.mbox"_s);

    for (const QString& url :
         {u"local:///../../Documents/x"_s, u"imap://bob@host/Trash/../../../x"_s, u"imap://bob@host/%2E%2E/x"_s,
          u"pop://a%2F..%2F..@pop.example.com/Trash"_s, u"local:///.."_s}) {
        const MailboxUrl mailbox = parse(url);
        EXPECT_TRUE(mailbox.mailbox.isNull()) << url.toStdString();
        EXPECT_TRUE(mailbox.otherMailbox.isNull()) << url.toStdString();
    }
    // The decoded path is still the one shown and compared.
    EXPECT_EQ(parse(u"imap://bob@host/Trash/../../../x"_s).path, u"/Trash/../../../x"_s);
}
