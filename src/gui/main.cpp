#include "app/ApplicationModels.h"
#include "app/MakeController.h"
#include "core/Bundle.h"
#include "core/FileSizeSignal.h"
#include "core/ProcessRandom.h"
#include "core/Translations.h"
#include "gui/DesktopApplication.h"
#include "platform/LoginItem.h"
#include "settings/UserDefaults.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QSystemTrayIcon>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// The help's closing sections; the manual page is made from the same help.
QString helpFooter()
{
    return QCoreApplication::translate(
        "main", "Examples:\n"
                "  vantle                 open the window; Shred (Ctrl+Shift+S) erases after asking\n"
                "  vantle --hidden        start in the system tray, as the login item does\n"
                "\n"
                "Exit status:\n"
                "  0  the application quit normally\n"
                "  2  the command line was refused\n"
                "\n"
                "Files:\n"
                "  ~/.config/com.orvick.vantle.plist            the settings, shared with vantle-cli(1)\n"
                "  ~/.config/autostart/com.orvick.vantle.desktop\n"
                "                                               the login item, present while the watch is on\n"
                "  ~/Library/Logs/Vantle X Log.txt              the activity log of the last run, when it is on\n"
                "  /usr/share/vantle/                           resources: the SQLite shell, empty databases,\n"
                "                                               translations\n");
}

struct StartOptions {
    bool hidden = false;
};

// Reads the command line on a core application, so that --help, --version and a
// refused command line need no display.
StartOptions readCommandLine(int& argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"vantle"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTLE_VERSION));
    Translations::install(Bundle::mainBundle());

    QCommandLineParser parser;
    parser.setApplicationDescription(QCoreApplication::translate(
        "main", "Vantle X erases the traces that web browsers and mail clients leave in your home folder.\n"
                "\n"
                "Erasing cannot be undone: erased files are overwritten before they are removed, and no\n"
                "tool can bring them back."));
    const QCommandLineOption help({u"h"_s, u"help"_s},
                                  QCoreApplication::translate("main", "Print this help and exit."));
    const QCommandLineOption version(u"version"_s, QCoreApplication::translate("main", "Print the version and exit."));
    const QCommandLineOption hidden(
        u"hidden"_s, QCoreApplication::translate("main", "Start with the window hidden, as the login item does."));
    parser.addOptions({help, version, hidden});
    if (!parser.parse(QCoreApplication::arguments())) {
        std::fprintf(stderr, "vantle: %s\n%s\n", qPrintable(parser.errorText()),
                     qPrintable(QCoreApplication::translate("main", "Try 'vantle --help'.")));
        std::exit(2);
    }
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText() + u'\n' + helpFooter()), stdout);
        std::exit(0);
    }
    if (parser.isSet(version)) {
        std::printf("vantle %s\n", VANTLE_VERSION);
        std::exit(0);
    }
    return {parser.isSet(hidden)};
}

} // namespace

int main(int argc, char* argv[])
{
    FileSizeSignal::ignore();
    const StartOptions options = readCommandLine(argc, argv);
    ProcessRandom::seedFromEntropy();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Vantle X"_s);
    QApplication::setApplicationVersion(QStringLiteral(VANTLE_VERSION));
    QApplication::setDesktopFileName(u"vantle"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(DesktopApplication::applicationIcon(Bundle::mainBundle()));
    Translations::install(Bundle::mainBundle());

    if (!DesktopApplication::acceptDamagedSettings(UserDefaults::defaultFilePath()))
        return 0;
    ApplicationModels::create(false, createPlatformLoginItem());
    SystemPlatform system;
#ifdef Q_OS_MACOS
    const bool canHideWindows = true;
#else
    const bool canHideWindows = QSystemTrayIcon::isSystemTrayAvailable();
#endif
    DesktopApplication desktop({system.controllerPlatform(), [](const QUrl& url) { QDesktopServices::openUrl(url); },
                                [] { QApplication::beep(); }, [] { QCoreApplication::exit(0); }, canHideWindows},
                               options.hidden);
    desktop.start();
    return QApplication::exec();
}
