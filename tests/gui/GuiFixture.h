#pragma once

#include "app/ApplicationModels.h"
#include "app/Controller.h"
#include "core/Bundle.h"
#include "gui/DesktopApplication.h"
#include "gui/MainWindow.h"
#include "gui/OpenPanel.h"
#include "gui/SettingsWindow.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/FakePlatform.h"
#include "support/LogLines.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

inline void PrintTo(const QColor& color, std::ostream* out)
{
    *out << color.name().toStdString();
}

// The desktop application over a temporary home, with fakes for the system's
// processes and session, the web browser and the end of the event loop.
class GuiFixture : public ::testing::Test {
protected:
    // The settings as a user left them, before the application starts.
    UserDefaults& storedDefaults() { return UserDefaults::standardUserDefaults(); }

    DesktopApplication& app()
    {
        if (!mApp) {
            Preferences::createSharedInstance(UserDefaults::standardUserDefaults(), std::make_unique<FakeLoginItem>());
            ApplicationModels::create(false);
            // Eudora 6 names its trash at the root of the disk, outside the test's home.
            Preferences::sharedInstance().enableChanged(QStringLiteral("Eudora"));
            mApp = std::make_unique<DesktopApplication>(
                DesktopPlatform{{quitter, sessionEnd, commands, bundle ? *bundle : Bundle::mainBundle(), [](int) {}},
                                [this](const QUrl& url) { openedUrls.append(url); },
                                [this] { ++beeps; },
                                [this] { ++exits; },
                                true},
                startHidden);
            mApp->start();
        }
        return *mApp;
    }

    // The application's bundle in where, with an information file of those keys.
    void useBundle(const QByteArray& keys, const TempHome& where)
    {
        where.write(QStringLiteral("Resources/Info.plist"),
                    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + keys +
                        "</dict></plist>\n");
        bundle =
            std::make_unique<Bundle>(where.file(QStringLiteral("Resources")), where.file(QStringLiteral("Resources")));
    }

    MainWindow& window() { return app().mainWindow(); }
    Controller& controller() { return app().controller(); }

    // A text as shown, without its mnemonic marker.
    static QString shown(QString text) { return text.remove(u'&'); }

    // The settings window on the pane of that title.
    SettingsWindow& settingsPane(const QString& title)
    {
        SettingsWindow& settings = app().settingsWindow();
        settings.showPanel();
        QTabWidget* panes = settings.panes();
        for (int i = 0; i < panes->count(); ++i) {
            if (shown(panes->tabText(i)) == title)
                panes->setCurrentIndex(i);
        }
        EXPECT_EQ(shown(panes->tabText(panes->currentIndex())), title);
        return settings;
    }

    void set(QLatin1StringView key, const QVariant& value)
    {
        Preferences& preferences = Preferences::sharedInstance();
        QVariantMap values = preferences.displayedValues();
        values.insert(key, value);
        preferences.miscChanged(panelStateFromValues(values));
    }

    // What the settings file holds now, as a fresh reader sees it.
    QVariant saved(const QString& key) const { return UserDefaults(UserDefaults::defaultFilePath()).objectForKey(key); }

    // The open sheet or alert of that title (a sheet hangs on parent).
    static QMessageBox* openAlert(const QString& title, int timeout = 5000)
    {
        QMessageBox* found = nullptr;
        return QTest::qWaitFor([&] { return (found = visibleAlert(title)) != nullptr; }, timeout) ? found : nullptr;
    }
    static QMessageBox* visibleAlert(const QString& title)
    {
        for (QWidget* widget : QApplication::allWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(widget);
            if (box && box->isVisible() && box->windowTitle() == title)
                return box;
        }
        return nullptr;
    }

    // Clicks a check box on its box, where a click toggles it however wide the widget is.
    static void toggle(QCheckBox* box)
    {
        ASSERT_NE(box, nullptr);
        QStyleOptionButton option;
        option.initFrom(box);
        const QRect indicator = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
        QTest::mouseClick(box, Qt::LeftButton, {}, indicator.center());
    }

    static QAbstractButton* buttonOf(QMessageBox* box, const QString& text)
    {
        for (QAbstractButton* button : box->buttons()) {
            if (shown(button->text()) == text)
                return button;
        }
        return nullptr;
    }

    // Acts on the alert of that title as soon as it shows, whether or not the
    // application exists yet. Polls from the event loop, so it also reaches an
    // alert that runs its own modal loop.
    void onAlert(const QString& title, std::function<void(QMessageBox*)> action)
    {
        auto* poll = new QTimer(&mAlertWatchers);
        poll->setInterval(10);
        QObject::connect(poll, &QTimer::timeout, poll, [poll, title, action = std::move(action)] {
            if (QMessageBox* box = visibleAlert(title)) {
                poll->deleteLater();
                poll->stop();
                action(box);
            }
        });
        poll->start();
    }

    // The open dialog on the settings window, once it shows.
    OpenPanel* openPanel()
    {
        OpenPanel* panel = nullptr;
        const bool shown = QTest::qWaitFor(
            [&] {
                panel = app().settingsWindow().findChild<OpenPanel*>();
                return panel && panel->isVisible();
            },
            5000);
        return shown ? panel : nullptr;
    }

    // Chooses path in the open dialog as a user would: select it, press the prompt button.
    void choose(const QString& path)
    {
        OpenPanel* panel = openPanel();
        ASSERT_NE(panel, nullptr);
        panel->selectFile(path);
        panel->accept();
        QTest::qWait(0);
    }

    bool waitForRun(const std::function<void()>& start)
    {
        QSignalSpy finished(&controller(), &Controller::runFinished);
        start();
        return finished.count() > 0 || finished.wait(20000);
    }

    // The activity log without its time stamps.
    QStringList logLines() const { return logLinesOf(home.read(QStringLiteral("Library/Logs/Vantle X Log.txt"))); }

    TempHome home;
    FakeQuitter quitter;
    RecordingSessionEnd sessionEnd;
    FakeCommands commands;
    std::unique_ptr<Bundle> bundle; // the main bundle unless a test sets one
    bool startHidden = false;
    QList<QUrl> openedUrls;
    int beeps = 0;
    int exits = 0;
    std::unique_ptr<DesktopApplication> mApp;
    QObject mAlertWatchers; // goes first: the pending watchers refer to the test's state
};
