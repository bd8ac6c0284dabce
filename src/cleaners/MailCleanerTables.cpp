#include "cleaners/MailCleanerTables.h"

#include "settings/PreferenceKeys.h"

using namespace Qt::StringLiterals;
using namespace PreferenceKey;

namespace MailCleanerTables {

const FixedCleaner& AppleMail11()
{
    static const FixedCleaner cleaner{
        u"Apple Mail 1.1"_s,
        u"Apple Mail"_s,
        {{ShredMailTrash,
          {u"~/Library/Mail/Mailboxes/Deleted Items.mbox"_s, u"~/Library/Mail/Mailboxes/Deleted Messages.mbox"_s,
           u"~/Library/Mail/Mailboxes/Trash.mbox"_s}}}};
    return cleaner;
}

const QList<CleanerItem>& AppleMail12Items()
{
    static const QList<CleanerItem> items{{ShredCache, {u"~/Library/Caches/Mail"_s}},
                                          {ShredAppleMailJunk, {u"~/Library/Mail/Mailboxes/Junk.mbox"_s}}};
    return items;
}

const FixedCleaner& MailCache()
{
    static const FixedCleaner cleaner{
        u"Mail Cache"_s, u"Apple Mail"_s, {{ShredMailCache, {u"~/Library/Caches/Mail"_s}}}};
    return cleaner;
}

const FixedCleaner& Eudora51()
{
    static const FixedCleaner cleaner{
        u"Eudora 5.x"_s, u"Eudora"_s, {{ShredMailTrash, {u"~/Documents/Eudora Folder/Mail Folder/Trash"_s}}}};
    return cleaner;
}

const FixedCleaner& Eudora62()
{
    // Eudora 6 names its trash by a path without "~", which is queued as it
    // stands (at the root of the start volume), and its junk folder both ways;
    // the junk's skip line names only the home folder's copy.
    static const FixedCleaner cleaner{
        u"Eudora 6.x"_s,
        u"Eudora"_s,
        {{ShredMailTrash, {u"/Documents/Eudora Folder/Mail Folder/Trash"_s}},
         {ShredAppleMailJunk,
          {u"~/Documents/Eudora Folder/Mail Folder/Junk"_s, u"/Documents/Eudora Folder/Mail Folder/Junk"_s},
          QStringList{u"~/Documents/Eudora Folder/Mail Folder/Junk"_s}}}};
    return cleaner;
}

} // namespace MailCleanerTables
