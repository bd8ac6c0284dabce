#include "app/ApplicationModels.h"
#include "core/Bundle.h"
#include "core/ChildProcess.h"
#include "core/FileSizeSignal.h"
#include "core/ProcessRandom.h"
#include "gui/DesktopApplication.h"
#include "platform/SessionEnd.h"
#include "platform/linux/ProcApplicationQuitter.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QSystemTrayIcon>
#include <QThread>
#include <QUrl>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    FileSizeSignal::ignore();
    ProcessRandom::seedFromEntropy();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Vantle X"_s);
    QApplication::setApplicationVersion(QStringLiteral(VANTLE_VERSION));
    QApplication::setDesktopFileName(u"vantle"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(DesktopApplication::applicationIcon(Bundle::mainBundle()));

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Erases the traces that browsers and mail clients leave behind."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption hidden(u"hidden"_s, u"Start with the window hidden (as a login item may ask)."_s);
    parser.addOption(hidden);
    parser.process(application);

    ApplicationModels::create(false);
    ProcApplicationQuitter quitter;
    const std::unique_ptr<SessionEnd> sessionEnd = createPlatformSessionEnd();
    SystemCommandRunner runner;
#ifdef Q_OS_MACOS
    const bool canHideWindows = true;
#else
    const bool canHideWindows = QSystemTrayIcon::isSystemTrayAvailable();
#endif
    DesktopApplication desktop({quitter, *sessionEnd, runner, Bundle::mainBundle(),
                                [](int milliseconds) { QThread::msleep(ulong(milliseconds)); },
                                [](const QUrl& url) { QDesktopServices::openUrl(url); }, [] { QApplication::beep(); },
                                [] { QCoreApplication::exit(0); }, canHideWindows},
                               parser.isSet(hidden));
    desktop.start();
    return QApplication::exec();
}
