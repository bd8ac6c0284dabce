#include "FuzzHome.h"
#include "cleaners/MailboxUrl.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

const QString kMail = u"/home/u/Library/Mail/V2"_s;

bool isAccountFolder(const QString& folder)
{
    return folder == u"Mailboxes"_s || folder.startsWith(u"POP-"_s) || folder.startsWith(u"POP:"_s) ||
           folder.startsWith(u"IMAP-"_s) || folder.startsWith(u"IMAP:"_s);
}

// A mailbox named by a row of the mail index must be a file below one account
// folder of the mail folder, spelled the one way the file system reads it.
void checkMailbox(const QString& mailbox)
{
    if (mailbox.isNull())
        return;
    FUZZ_CHECK(!mailbox.contains(QChar::Null));
    FUZZ_CHECK(QDir::cleanPath(mailbox) == mailbox);
    FUZZ_CHECK(mailbox.startsWith(kMail + u'/'));
    const QStringList below = mailbox.mid(kMail.size() + 1).split(u'/');
    FUZZ_CHECK(below.size() >= 2);
    FUZZ_CHECK(isAccountFolder(below.first()));
    FUZZ_CHECK(below.last().endsWith(u".mbox"_s) || below.last().endsWith(u".imapmbox"_s));
}

} // namespace

// The url column of Apple Mail's mailbox list, which any program can write.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString url = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const MailboxUrl parsed = parseMailboxUrl(kMail, url);
    FUZZ_CHECK(!parsed.path.isEmpty() && !parsed.host.isEmpty() && !parsed.user.isEmpty());
    checkMailbox(parsed.mailbox);
    checkMailbox(parsed.otherMailbox);
    FUZZ_CHECK(parsed.otherMailbox.isNull() || !parsed.mailbox.isNull());
    return 0;
}
