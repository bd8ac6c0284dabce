// Runs the desktop application's windows on a demo home under an X server and
// writes pictures of them: the main window idle, the preview, the main window
// asking to confirm, during a run and with its result, and every settings pane. Nothing outside the demo home is
// touched: the process listing is a fixed one, no application is asked to quit, and the session is never ended.

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "core/Bundle.h"
#include "core/ChildProcess.h"
#include "core/ProcessRandom.h"
#include "core/Translations.h"
#include "gui/DesktopApplication.h"
#include "gui/MainWindow.h"
#include "gui/PreviewWindow.h"
#include "gui/SettingsWindow.h"
#include "platform/ApplicationQuitter.h"
#include "platform/SessionEnd.h"
#include "settings/HTML5Manager.h"
#include "settings/PluginManager.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "watch/CustomShred.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <QTabWidget>
#include <QThread>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// Firefox and a custom editor run; everything else is quit.
class DemoCommands final : public CommandRunner {
public:
    explicit DemoCommands(QByteArray editor)
        : m_editor(std::move(editor))
    {
    }
    ProcessResult run(const QString& program, const QStringList&) override
    {
        ProcessResult result;
        result.started = true;
        result.exitCode = 0;
        if (program == u"ps"_s)
            result.standardOutput = "COMMAND\n/Applications/Firefox.app/Contents/MacOS/firefox -foreground\n" +
                                    m_editor + "/Contents/MacOS/Editor\n";
        return result;
    }

private:
    QByteArray m_editor;
};

class NoQuitter final : public ApplicationQuitter {
public:
    int countOrQuitApplications(bool) override { return 0; }
};

class NoSessionEnd final : public SessionEnd {
public:
    int sendSessionEndEvent(Action) override { return 0; }
};

void settle(int milliseconds = 150)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

// What the screen shows where the window is: sheets and menus over it included.
bool save(QWidget* window, const QString& folder, const QString& name)
{
    settle();
    const QRect frame = window->frameGeometry();
    const QPixmap picture = window->screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
    const QString path = QDir(folder).filePath(name + u".png"_s);
    const bool saved = picture.save(path);
    std::fprintf(stderr, "%s %s\n", saved ? "wrote" : "could not write", qPrintable(path));
    return saved;
}

void setPreference(QLatin1StringView key, const QVariant& value)
{
    Preferences& preferences = Preferences::sharedInstance();
    QVariantMap values = preferences.displayedValues();
    values.insert(key, value);
    preferences.miscChanged(panelStateFromValues(values));
}

// A file big enough that a run is still overwriting it when the picture is taken.
bool makeLargeFile(const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray block(1 << 20, 'x');
    for (int i = 0; i < 384; ++i)
        file.write(block);
    return file.error() == QFileDevice::NoError;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: vantle-screenshots DEMO-HOME OUTPUT-FOLDER\n");
        return 2;
    }
    const QString home = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    const QString output = QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath();
    if (!QFileInfo(home).isDir() || home == QFileInfo(QDir::homePath()).absoluteFilePath()) {
        std::fprintf(stderr, "vantle-screenshots: the demo home must be a folder other than the real home\n");
        return 2;
    }
    qputenv("HOME", QFile::encodeName(home));
    qunsetenv("XDG_CONFIG_HOME");
    QDir().mkpath(output);

    ProcessRandom::seedFromEntropy();
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Vantle X"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(DesktopApplication::applicationIcon(Bundle::mainBundle()));
    Translations::install(Bundle::mainBundle());

    ApplicationModels::create(false);
    // Eudora 6 names its trash at the root of the disk: the run stays inside the demo home.
    Preferences::sharedInstance().enableChanged(u"Eudora"_s);
    const QString editor = QDir(home).filePath(u"Applications/Editor.app"_s);
    CustomShred::sharedInstance()->addProcess(editor);
    CustomShred::sharedInstance()->addPath(editor, QDir(home).filePath(u"Library/Caches/Editor"_s));
    HTML5Manager& html5 = *HTML5Manager::sharedInstance();
    html5.setEnabled();
    html5.addDomain();
    html5.setDomain(0, u"kept.org"_s);
    html5.addDomain();
    html5.setDomain(1, u"mail.example.com"_s);
    setPreference(PreferenceKey::ShredHistory, true);
    setPreference(PreferenceKey::ShredCookies, true);
    setPreference(PreferenceKey::NumberOfWrites, qint64(5)); // 4 passes

    NoQuitter quitter;
    NoSessionEnd sessionEnd;
    DemoCommands commands(QFile::encodeName(editor));
    bool ended = false;
    DesktopApplication desktop({{quitter, sessionEnd, commands, Bundle::mainBundle(), [](int) {}},
                                [](const QUrl&) {},
                                [] {},
                                [&ended] { ended = true; },
                                true},
                               false);
    desktop.start();
    MainWindow& window = desktop.mainWindow();
    desktop.controller().HandleTarnholdTimer(false);

    bool ok = save(&window, output, u"main-idle"_s);

    // The preview, with its first application opened to its paths.
    desktop.preview();
    PreviewWindow& preview = desktop.previewWindow();
    QElapsedTimer waited;
    waited.start();
    while (!preview.isVisible() && waited.elapsed() < 30000)
        settle(50);
    if (preview.tree()->topLevelItemCount() > 0)
        preview.tree()->topLevelItem(0)->setExpanded(true);
    ok = preview.isVisible() && save(&preview, output, u"main-preview"_s) && ok;
    preview.hide();

    // The confirmation, answered with OK once it is on the picture.
    desktop.controller().shredAndNothing();
    settle();
    auto* sheet = window.findChild<QMessageBox*>();
    ok = sheet && save(&window, output, u"main-confirm"_s) && ok;
    if (!makeLargeFile(QDir(home).filePath(u"Library/Caches/Google/Chrome/Default/Cache/data_1"_s))) {
        std::fprintf(stderr, "vantle-screenshots: cannot write the demo's large file\n");
        return 1;
    }
    bool finished = false;
    QObject::connect(&desktop.controller(), &Controller::runFinished, &window, [&finished] { finished = true; });
    if (sheet) {
        for (QAbstractButton* button : sheet->buttons()) {
            if (button->text() == u"OK"_s)
                button->click();
        }
    }

    // During the run: once the bar shows real progress on a file.
    auto* progress = window.findChild<QProgressBar*>();
    QElapsedTimer clock;
    clock.start();
    bool during = false;
    while (!finished && clock.elapsed() < 60000) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
        if (!during && progress->maximum() == 100 && progress->value() >= 15 && progress->value() <= 85) {
            const QPixmap picture =
                window.screen()->grabWindow(0, window.frameGeometry().x(), window.frameGeometry().y(),
                                            window.frameGeometry().width(), window.frameGeometry().height());
            during = picture.save(QDir(output).filePath(u"main-running.png"_s));
            std::fprintf(stderr, "%s main-running.png\n", during ? "wrote" : "could not write");
        }
    }
    ok = ok && during && finished;
    ok = save(&window, output, u"main-result"_s) && ok;

    SettingsWindow& settings = desktop.settingsWindow();
    settings.showPanel();
    // Each pane in the window's order (whatever the language of its title) by its
    // file name, with a list whose first row is selected for the picture.
    const std::pair<QString, const char*> pictures[] = {
        {u"settings-erasing"_s, nullptr},
        {u"settings-general"_s, nullptr},
        {u"settings-applications"_s, nullptr},
        {u"settings-html5"_s, nullptr},
        {u"settings-profiles"_s, nullptr},
        {u"settings-plugins"_s, "mPluginList"},
        {u"settings-custom"_s, "mProcessTableView"},
    };
    QTabWidget* panes = settings.panes();
    if (panes->count() != int(std::size(pictures))) {
        std::fprintf(stderr, "vantle-screenshots: %d panes, pictures named for %zu\n", panes->count(),
                     std::size(pictures));
        ok = false;
    }
    for (int i = 0; i < std::min(panes->count(), int(std::size(pictures))); ++i) {
        const auto& [name, list] = pictures[i];
        panes->setCurrentIndex(i);
        if (list) {
            if (auto* view = panes->currentWidget()->findChild<QAbstractItemView*>(QLatin1StringView(list)))
                view->setCurrentIndex(view->model()->index(0, view->model()->columnCount() - 1));
        }
        ok = save(&settings, output, name) && ok;
    }

    desktop.terminate();
    return ok && ended ? 0 : 1;
}
