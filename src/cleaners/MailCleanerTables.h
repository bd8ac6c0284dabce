#pragma once

#include "cleaners/FixedCleaner.h"

// The fixed-path cleaners of Apple Mail and Eudora, and the fixed items that
// Apple Mail 1.2 queues before it looks through the account folders.
namespace MailCleanerTables {

const FixedCleaner& AppleMail11();
const QList<CleanerItem>& AppleMail12Items();
const FixedCleaner& MailCache();
const FixedCleaner& Eudora51();
const FixedCleaner& Eudora62();

} // namespace MailCleanerTables
