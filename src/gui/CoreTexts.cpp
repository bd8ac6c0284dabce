#include "gui/CoreTexts.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The controller's fixed texts, for the catalogues; they are looked up by their English text.
[[maybe_unused]] const char* const kFixedTexts[] = {
    QT_TRANSLATE_NOOP("Controller", "Not enabled. Use preferences to enable..."),
    QT_TRANSLATE_NOOP("Controller", "Enabled and waiting for the first timer event to occur..."),
    QT_TRANSLATE_NOOP("Controller", "A supported browser or email application is running..."),
    QT_TRANSLATE_NOOP("Controller", "All supported browser or email application have quit..."),
    QT_TRANSLATE_NOOP("Controller", "No supported applications are running..."),
    QT_TRANSLATE_NOOP("Controller", "Finding items that need shredding"),
    QT_TRANSLATE_NOOP("Controller", "Vantle Confirmation"),
    QT_TRANSLATE_NOOP("Controller", "Vantle Quit Browsers"),
    QT_TRANSLATE_NOOP("Controller", "Browser Cache"),
    QT_TRANSLATE_NOOP("Controller", "Browser History"),
    QT_TRANSLATE_NOOP("Controller", "Download Cache"),
    QT_TRANSLATE_NOOP("Controller", "Browser Icons"),
    QT_TRANSLATE_NOOP("Controller", "Cookies"),
    QT_TRANSLATE_NOOP("Controller", "Mail Cache"),
    QT_TRANSLATE_NOOP("Controller", "Apple Mail Junk"),
    QT_TRANSLATE_NOOP("Controller", "Mail Trash"),
};

QString fixed(const QString& text)
{
    return QCoreApplication::translate("Controller", text.toUtf8().constData());
}

} // namespace

namespace CoreTexts {

QString translated(const QString& text)
{
    static const QRegularExpression confirmation(u"^Are you sure you want to shred these items: (.*) \\?$"_s);
    static const QRegularExpression quitBrowsers(u"^(\\d+) Email or Browser Applications did not quit\\. "_s);
    if (const auto match = confirmation.match(text); match.hasMatch()) {
        QStringList categories = match.captured(1).split(u", "_s, Qt::SkipEmptyParts);
        for (QString& category : categories)
            category = fixed(category);
        return QCoreApplication::translate("Controller", "Are you sure you want to shred these items: %1 ?")
            .arg(categories.join(u", "_s));
    }
    if (const auto match = quitBrowsers.match(text); match.hasMatch()) {
        return QCoreApplication::translate("Controller",
                                           "%1 Email or Browser Applications did not quit.  Please quit them and click "
                                           "OK to continue.  If you continue without quitting those applicaitons some "
                                           "items will not be shredded.")
            .arg(match.captured(1));
    }
    return fixed(text);
}

} // namespace CoreTexts
