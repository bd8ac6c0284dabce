#include "cleaners/MailboxUrl.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString orDefault(const QString& value, const QString& fallback)
{
    return value.isEmpty() ? fallback : value;
}

// folder/subfolder/path with the extension on the path's last component, or a
// null string when the parts do not name a mailbox inside folder.
//
// A trailing "/" names the same mailbox as the path without it ("/INBOX/" is
// "INBOX.<extension>"), so empty components are dropped before the extension
// goes on; a path of slashes alone names no mailbox.
// The parts come from a database that any program can write to. A mailbox is
// matched against the paths the run has queued, and a match lets the row's
// messages go from the index: a ".." component, or a user or host holding a
// "/", would name a file outside the account's folder (say, one that another
// cleaner queued), so such a url names no mailbox at all.
QString mailboxPath(const QString& folder, const QString& subfolder, const QString& path, const QString& extension)
{
    if (subfolder.contains(u'/') || subfolder.contains(QChar::Null) || path.contains(QChar::Null))
        return {};
    QStringList components;
    for (const QString& component : path.split(u'/', Qt::SkipEmptyParts)) {
        if (component == u".."_s)
            return {};
        if (component != u"."_s)
            components.append(component);
    }
    if (components.isEmpty())
        return {};
    components.last() += u'.' + extension;
    return folder + u'/' + subfolder + u'/' + components.join(u'/');
}

// The host as the url spells it: the parser lower-cases it, but Mail names the
// account folder after the url's own spelling.
QString hostAsWritten(const QString& url, const QString& parsedHost)
{
    const qsizetype start = url.indexOf(u"://"_s);
    if (start < 0)
        return parsedHost;
    static const QRegularExpression authorityEnd(u"[/?#]"_s);
    const QString authority = url.mid(start + 3).section(authorityEnd, 0, 0);
    QString host = authority.mid(authority.lastIndexOf(u'@') + 1);
    if (!host.startsWith(u'['))
        host = host.section(u':', 0, 0);
    return host.compare(parsedHost, Qt::CaseInsensitive) == 0 ? host : parsedHost;
}

} // namespace

MailboxUrl parseMailboxUrl(const QString& mailFolder, const QString& url)
{
    const QUrl parsed(url, QUrl::TolerantMode);
    MailboxUrl result;
    result.path = orDefault(parsed.path(), u"unknown-path"_s);
    result.host = orDefault(hostAsWritten(url, parsed.host()), u"unknown-host"_s);
    result.user = orDefault(parsed.userName(), u"unknown-user"_s);

    const QString scheme = parsed.scheme().toLower();
    const QString account = result.user + u'@' + result.host;
    if (scheme == u"local"_s) {
        result.mailbox = mailboxPath(mailFolder, u"Mailboxes"_s, result.path, u"mbox"_s);
    } else if (scheme == u"pop"_s && result.path != u"/"_s) {
        result.mailbox = mailboxPath(mailFolder, u"POP-"_s + account, result.path, u"mbox"_s);
        result.otherMailbox = mailboxPath(mailFolder, u"POP:"_s + account, result.path, u"mbox"_s);
    } else if (scheme == u"imap"_s && result.path != u"/"_s) {
        result.mailbox = mailboxPath(mailFolder, u"IMAP-"_s + account, result.path, u"imapmbox"_s);
        result.otherMailbox = mailboxPath(mailFolder, u"IMAP:"_s + account, result.path, u"imapmbox"_s);
    }
    return result;
}
