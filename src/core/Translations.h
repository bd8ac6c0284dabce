#pragma once

class Bundle;
class QLocale;

// The interface texts in the user's language: the catalogue
// translations/vantle_<language>.qm among the resources, and Qt's own for its
// standard buttons. The activity log and the settings keys stay English whatever
// is loaded. Call once the application object exists.
namespace Translations {

void install(const Bundle& bundle);
void install(const Bundle& bundle, const QLocale& locale);

} // namespace Translations
