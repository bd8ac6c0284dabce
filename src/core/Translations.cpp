#include "core/Translations.h"

#include "core/Bundle.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace Translations {

void install(const Bundle& bundle)
{
    install(bundle, QLocale());
}

void install(const Bundle& bundle, const QLocale& locale)
{
    auto* own = new QTranslator(QCoreApplication::instance());
    if (own->load(locale, u"vantle"_s, u"_"_s, bundle.resourcePath() + u"/translations"_s))
        QCoreApplication::installTranslator(own);
    auto* qt = new QTranslator(QCoreApplication::instance());
    if (qt->load(locale, u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
}

} // namespace Translations
