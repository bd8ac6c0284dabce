#pragma once

#include "log/FailureLog.h"

class CleanerContext;

// What a database rebuild that changed nothing writes: its failure in the
// database's own wording, then the cleaner's empty line. An unknown schema ends
// with its digests instead, and a new database that could not be put in place
// goes unsaid.
namespace RebuildFailure {

void report(const CleanerContext& context, const Error& error, const FailureLog::Wording& wording);

} // namespace RebuildFailure
