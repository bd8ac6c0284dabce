#pragma once

#include <QString>

// The controller hands the window its texts in English, as the activity log
// has them; the window shows them in the user's language. A text that is not
// one of the controller's (a file name) comes back as it is.
namespace CoreTexts {

QString translated(const QString& text);

} // namespace CoreTexts
