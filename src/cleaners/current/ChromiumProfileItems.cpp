#include "cleaners/current/ChromiumProfileItems.h"

// Stands in for the profile items until they arrive from their own branch.
void cleanChromiumProfile(CleanerContext&, const ChromiumProfile&) {}

void cleanChromiumLocalState(CleanerContext&, const QString&) {}
