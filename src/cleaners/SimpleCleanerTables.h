#pragma once

#include "cleaners/FixedCleaner.h"

// The fixed-path cleaners of the simple browsers and of QuickTime.
namespace SimpleCleanerTables {

const FixedCleaner& QuicktimeCache();
const FixedCleaner& IE51();
const FixedCleaner& iCab411();
const FixedCleaner& iCab30();
const FixedCleaner& iCab28();
const FixedCleaner& OmniWeb41();
const FixedCleaner& OmniWeb51();
const FixedCleaner& OmniWeb57();
const FixedCleaner& Opera50();
const FixedCleaner& Opera60();
const FixedCleaner& Opera70();
const FixedCleaner& Opera80();
const FixedCleaner& Opera90();
const FixedCleaner& Opera100();
const FixedCleaner& Opera110();

} // namespace SimpleCleanerTables
