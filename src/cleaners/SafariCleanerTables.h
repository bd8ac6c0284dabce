#pragma once

#include "cleaners/FixedCleaner.h"

// The Safari and Shiira cleaners whose work is a fixed list of paths.
namespace SafariCleanerTables {

const FixedCleaner& Safari10();
const FixedCleaner& Safari30();
const FixedCleaner& Safari60();
const FixedCleaner& Shiira12();
const FixedCleaner& Shiira20();

} // namespace SafariCleanerTables
