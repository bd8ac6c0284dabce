#include "gui/ApplicationMenus.h"
#include "gui/GuiFixture.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

class MenusTest : public GuiFixture {
protected:
    static QAction* named(const QList<QAction*>& actions, const QString& text)
    {
        const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                        [&](const QAction* action) { return shown(action->text()) == text; });
        return found == actions.cend() ? nullptr : *found;
    }
    QAction* dockAction(const QString& text) { return named(app().menus().dockMenu()->actions(), text); }
};

} // namespace

TEST_F(MenusTest, QuitWithTheWatchOffAndTheSystemsOwnQuitRequestSkipTheSheetAndTheWindowsFrameIsKept)
{
    storedDefaults().setBool(false, PreferenceKey::Tarnhold);
    window().resize(window().width() + 120, window().height() + 40);
    const QSize size = window().size();
    // Stored under its autosave name once the resizing settles.
    EXPECT_TRUE(QTest::qWaitFor([&] { return saved(u"NSWindow Frame My Window"_s).isValid(); }, 3000));
    app().menus().quit()->trigger();
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(openAlert(u"Quit"_s, 200), nullptr);

    mApp.reset();
    set(PreferenceKey::Tarnhold, true);
    EXPECT_EQ(window().size(), size);
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(exits, 2);
}

TEST_F(MenusTest, TheQuitSheetCancelsOnCancelAndEscapeHidesOnReturnAndQuitsOnQuit)
{
    const struct {
        std::function<void(QMessageBox*)> answer;
        bool visible;
    } answers[] = {
        {[](QMessageBox* sheet) { QTest::mouseClick(buttonOf(sheet, u"Cancel"_s), Qt::LeftButton); }, true},
        {[](QMessageBox* sheet) { QTest::keyClick(sheet, Qt::Key_Escape); }, true},
        {[](QMessageBox* sheet) { QTest::keyClick(sheet, Qt::Key_Return); }, false},
    };
    for (const auto& [answer, visible] : answers) {
        app().menus().quit()->trigger();
        QMessageBox* sheet = openAlert(u"Quit"_s);
        ASSERT_NE(sheet, nullptr);
        EXPECT_EQ(sheet->text(),
                  u"Quitting Vantle will interrupt Tarnhold watch and Vantle will not run automatically when "
                  u"you quit from your web browser or email application. Would you prefer to hide Vantle in "
                  u"the system tray?"_s);
        EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
        EXPECT_EQ(sheet->defaultButton()->text(), u"&Hide"_s);
        answer(sheet);
        QTest::qWait(0);
        EXPECT_EQ(window().isVisible(), visible);
        EXPECT_EQ(exits, 0);
        EXPECT_TRUE(controller().isWatchTimerActive());
    }
    app().menus().quit()->trigger();
    QTest::mouseClick(buttonOf(openAlert(u"Quit"_s), u"Quit"_s), Qt::LeftButton);
    QTest::qWait(0);
    EXPECT_EQ(exits, 1);
}

TEST_F(MenusTest, TheTrayMenuShredsAndEndsTheSessionUnlessTheQuitBrowsersAlertIsCancelledAndShowsOrHidesTheWindow)
{
    storedDefaults().setBool(false, PreferenceKey::ConfirmShredding);
    storedDefaults().setBool(true, PreferenceKey::ActivityLog);
    QStringList titles;
    for (QAction* action : app().menus().dockMenu()->actions())
        titles.append(shown(action->text()));
    titles.removeAll(QString()); // separators
    EXPECT_EQ(titles, (QStringList{u"Show Vantle X"_s, u"Shred"_s, u"Shred and Log Out"_s, u"Shred and Shut Down"_s,
                                   u"Shred and Restart"_s, u"Quit Vantle X"_s}));

    ASSERT_TRUE(waitForRun([&] { dockAction(u"Shred and Restart"_s)->trigger(); }));
    EXPECT_EQ(quitter.quitRequests, 1);
    EXPECT_EQ(sessionEnd.events, QStringList{u"rest"_s});
    EXPECT_TRUE(logLines().contains(u"User selected Restart"_s));
    ASSERT_TRUE(waitForRun([&] { dockAction(u"Shred and Log Out"_s)->trigger(); }));
    ASSERT_TRUE(waitForRun([&] { dockAction(u"Shred and Shut Down"_s)->trigger(); }));
    // A plain shred after them ends no session.
    ASSERT_TRUE(waitForRun([&] { dockAction(u"Shred"_s)->trigger(); }));
    EXPECT_EQ(quitter.quitRequests, 3);

    // Applications that stay: Cancel ends the run and no session, OK goes on without them.
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    quitter.running = 2;
    QString message;
    onAlert(u"Vantle Quit Browsers"_s, [&](QMessageBox* alert) {
        message = alert->text();
        EXPECT_EQ(alert->defaultButton()->text(), u"Cancel"_s);
        QTest::keyClick(alert, Qt::Key_Return);
    });
    ASSERT_TRUE(waitForRun([&] { app().menus().shredAndShutdown()->trigger(); }));
    EXPECT_EQ(message, u"2 Email or Browser Applications did not quit.  Please quit them and click OK to continue.  If "
                       u"you continue without quitting those applicaitons some items will not be shredded."_s);
    EXPECT_TRUE(logLines().contains(u"User selected Cancel in Quit Browsers dialog - Vantle Cancelled"_s));
    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), "cached");
    onAlert(u"Vantle Quit Browsers"_s,
            [](QMessageBox* alert) { QTest::mouseClick(buttonOf(alert, u"OK"_s), Qt::LeftButton); });
    ASSERT_TRUE(waitForRun([&] { app().menus().shredAndShutdown()->trigger(); }));
    EXPECT_EQ(sessionEnd.events, (QStringList{u"rest"_s, u"rlgo"_s, u"shut"_s, u"shut"_s}));

    ASSERT_TRUE(window().isVisible());
    emit app().menus().dockMenu()->aboutToShow();
    dockAction(u"Hide Vantle X"_s)->trigger();
    EXPECT_FALSE(window().isVisible());
    emit app().menus().dockMenu()->aboutToShow();
    dockAction(u"Show Vantle X"_s)->trigger();
    EXPECT_TRUE(window().isVisible());
}

TEST_F(MenusTest, HelpOpensSupportMailTheQuestionsAndTheDownloadsAboutShowsTheVersionSettingsTheWindow)
{
    useBundle("<key>CFBundleShortVersionString</key><string>2.5.1</string>"
              "<key>CFBundleVersion</key><string>77</string><key>LSUIElement</key><string>0</string>",
              home);
    QAction* help = named(window().menuBar()->actions(), u"Help"_s);
    ASSERT_NE(help, nullptr);
    for (QAction* action : help->menu()->actions())
        action->trigger();
    ASSERT_EQ(openedUrls.size(), 3);
    EXPECT_EQ(openedUrls[0].scheme(), u"mailto"_s);
    EXPECT_EQ(openedUrls[0].query(QUrl::FullyEncoded), u"subject=Vantle%20X"_s);
    EXPECT_EQ(openedUrls[1].scheme(), u"https"_s);
    EXPECT_TRUE(openedUrls[1].path().contains(u"faq"_s));
    EXPECT_TRUE(openedUrls[2].path().contains(u"download"_s));

    app().menus().about()->trigger();
    QMessageBox* about = openAlert(u"About Vantle X"_s);
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->text().contains(u"Version 2.5.1 (77)"_s));
    about->close();

    EXPECT_FALSE(app().settingsWindow().isVisible());
    app().menus().settings()->trigger();
    EXPECT_TRUE(app().settingsWindow().isVisible());
    EXPECT_EQ(app().menus().settings()->shortcut(), QKeySequence(u"Ctrl+,"_s));
}
