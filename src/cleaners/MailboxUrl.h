#pragma once

#include <QString>

// One row of Apple Mail's mailbox list, read from its url: the parts, with
// their stand-ins when a part is missing, and the mailbox files it names below
// the mail folder.
struct MailboxUrl {
    QString path; // decoded; "unknown-path" when missing
    QString host; // spelled as in the url; "unknown-host" when missing
    QString user; // decoded ("me%40example.com" is "me@example.com"); "unknown-user" when missing
    // The mailbox below the mail folder, and its other spelling ("POP:" and
    // "IMAP:" account folders); null when the url names none.
    QString mailbox;
    QString otherMailbox;
};

// mailFolder: the expanded mail folder ("~/Library/Mail" or "~/Library/Mail/V2").
//  - "local": mailFolder/Mailboxes/<path>.mbox
//  - "pop":   mailFolder/POP-<user>@<host>/<path>.mbox, other spelling "POP:"
//  - "imap":  mailFolder/IMAP-<user>@<host>/<path>.imapmbox, other spelling "IMAP:"
//  - any other scheme, or a path of "/": none.
MailboxUrl parseMailboxUrl(const QString& mailFolder, const QString& url);
