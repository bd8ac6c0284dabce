#pragma once

#include "core/Error.h"

#include <QString>

#include <functional>

class CleanerContext;

// Runs one edit of a browser's JSON preference file (JsonPreferenceEdit) in a
// run: the old copy an interrupted run left is queued first; an edit that is
// done writes "Shred: <file>" and hands the old bytes to the erase engine. A
// failed edit is returned for the caller to log, the file as it was.
Error runPreferenceEdit(CleanerContext& context, const QString& file, const std::function<Error(bool dryRun)>& edit);
