#pragma once

#include "core/Error.h"

#include <QByteArrayList>
#include <QList>

#include <utility>

// What the activity log says of a failure: the one place where an Error becomes
// its log lines, spelled exactly as the program has always spelled them.
namespace FailureLog {

// How a database rebuild words its failures ("Places Database does not
// exist."): each database names itself its own way. A failure it does not list
// goes unsaid.
using Wording = QList<std::pair<Error::Code, QByteArray>>;

// The lines for error: in the rebuild's wording when one is given (an unknown
// schema's digests follow its text, a line each), otherwise as every file's
// failure is said ("Skip (Move failed: Permission denied): <path>").
QByteArrayList lines(const Error& error, const Wording* wording = nullptr);

// Writes those lines to the activity log; false when there are none.
bool write(const Error& error, const Wording* wording = nullptr);

} // namespace FailureLog
