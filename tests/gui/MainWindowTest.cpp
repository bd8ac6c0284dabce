#include "gui/ApplicationMenus.h"
#include "gui/GuiFixture.h"
#include "gui/PreviewWindow.h"
#include "gui/WatchPanel.h"
#include "watch/CustomShred.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Color = ControllerView::LabelColor;

class MainWindowTest : public GuiFixture {
protected:
    QPushButton* shredButton() { return window().findChild<QPushButton*>(u"mShredButton"_s); }
    QProgressBar* progressBar() { return window().findChild<QProgressBar*>(u"mShreddingProgressIndicator"_s); }
    QString itemText() { return window().findChild<QLabel*>(u"mItemTextField"_s)->toolTip(); }
    QLabel* label(const QString& name) { return window().findChild<QLabel*>(name); }
    QColor colorOf(const QString& name) { return label(name)->palette().color(QPalette::WindowText); }
    QString statusText() { return label(u"tarnholdStatusTextbox"_s)->text(); }

    // The label shows the state by its colour and, for an application, by its symbol too.
    void expectState(const QString& name, Color color)
    {
        EXPECT_EQ(colorOf(name), WatchPanel::colorFor(color, window().findChild<WatchPanel*>()->palette()))
            << qPrintable(name);
        if (!name.startsWith(u"mTHCustom"_s)) {
            EXPECT_TRUE(label(name)->text().startsWith(WatchPanel::symbolFor(color)))
                << qPrintable(label(name)->text());
        }
    }
};

// WCAG 2 contrast, computed here independently of the panel's own.
double contrastRatio(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& color) {
        const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

} // namespace

TEST_F(MainWindowTest, TheShredButtonAsksFirstReturnCancelsAndOkErasesWithTheBarBusyThenCountingAQuitWaitingForIt)
{
    const QByteArray cache(3 << 20, 'c');
    home.write(u"Library/Caches/Safari/cache.db"_s, cache);
    storedDefaults().setBool(false, PreferenceKey::Tarnhold);
    storedDefaults().setInteger(2, PreferenceKey::NumberOfWrites);
    ASSERT_TRUE(window().isVisible());

    QTest::mouseClick(shredButton(), Qt::LeftButton);
    QMessageBox* sheet = openAlert(u"Vantle Confirmation"_s);
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->text(), u"Are you sure you want to shred these items: Browser Cache, Mail Trash ?"_s);
    EXPECT_EQ(sheet->window()->parentWidget(), &window());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_FALSE(shredButton()->isEnabled());

    QSignalSpy finished(&controller(), &Controller::runFinished);
    QTest::keyClick(sheet, Qt::Key_Return);
    ASSERT_TRUE(finished.count() > 0 || finished.wait(5000));
    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), cache);
    EXPECT_TRUE(shredButton()->isEnabled());
    EXPECT_EQ(progressBar()->maximum(), 100);
    EXPECT_EQ(itemText(), QString());

    QList<int> values;
    int exitsWhileErasing = -1;
    QObject::connect(progressBar(), &QProgressBar::valueChanged, progressBar(), [&](int value) {
        values.append(value);
        if (value > 0 && exitsWhileErasing < 0) {
            app().menus().quit()->trigger();
            exitsWhileErasing = exits;
        }
    });
    QTest::mouseClick(shredButton(), Qt::LeftButton);
    sheet = openAlert(u"Vantle Confirmation"_s);
    ASSERT_NE(sheet, nullptr);
    finished.clear();
    QTest::mouseClick(buttonOf(sheet, u"OK"_s), Qt::LeftButton);
    // Once confirmed the finding stage starts at once; its end is queued.
    EXPECT_EQ(progressBar()->maximum(), 0);
    EXPECT_EQ(itemText(), u"Finding items that need shredding"_s);
    ASSERT_TRUE(finished.wait(20000));
    EXPECT_TRUE(std::any_of(values.cbegin(), values.cend(), [](int v) { return v > 0 && v < 100; }));
    EXPECT_EQ(progressBar()->maximum(), 100);
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    EXPECT_TRUE(shredButton()->isEnabled());
    EXPECT_EQ(exitsWhileErasing, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return exits == 1; }, 3000));
}

TEST_F(MainWindowTest, PreviewShowsThePlanItsShredButtonRunsAndTheResultTakesTheItemLine)
{
    home.write(u"Library/Caches/Safari/cache.db"_s, QByteArray(3000, 'c'));
    app();
    set(PreferenceKey::ConfirmShredding, false);
    auto* stop = window().findChild<QPushButton*>(u"mStopButton"_s);
    EXPECT_FALSE(stop->isEnabled());

    ASSERT_TRUE(
        waitForRun([&] { QTest::mouseClick(window().findChild<QPushButton*>(u"mPreviewButton"_s), Qt::LeftButton); }));
    PreviewWindow& preview = app().previewWindow();
    ASSERT_TRUE(preview.isVisible());
    ASSERT_EQ(preview.tree()->topLevelItemCount(), 1);
    const QTreeWidgetItem* safari = preview.tree()->topLevelItem(0);
    EXPECT_EQ(safari->text(0), u"Safari"_s);
    ASSERT_EQ(safari->childCount(), 1);
    EXPECT_EQ(safari->child(0)->text(0), u"~/Library/Caches/Safari"_s);
    EXPECT_EQ(safari->child(0)->text(2), u"2.93 KiB"_s);
    EXPECT_EQ(preview.findChild<QLabel*>(u"mPreviewTotals"_s)->text(),
              u"Would erase 1 item (1 file, 2.93 KiB) and rewrite 0 databases and settings files."_s);
    EXPECT_TRUE(QFileInfo::exists(home.file(u"Library/Caches/Safari/cache.db"_s)));

    QSignalSpy started(&controller(), &Controller::shreddingStarted);
    ASSERT_TRUE(waitForRun(
        [&] { QTest::mouseClick(preview.findChild<QPushButton*>(u"mPreviewShredButton"_s), Qt::LeftButton); }));
    EXPECT_EQ(started.count(), 1);
    EXPECT_FALSE(preview.isVisible());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Caches/Safari"_s)));
    const QLabel* item = window().findChild<QLabel*>(u"mItemTextField"_s);
    EXPECT_TRUE(item->text().startsWith(u"Erased 1 item (2.93 KiB) in "_s)) << qPrintable(item->text());
    EXPECT_TRUE(item->toolTip().startsWith(u"Erased 1 item (1 file, 2.93 KiB = 3000 bytes).\n"_s));
    EXPECT_FALSE(stop->isEnabled());
}

TEST_F(MainWindowTest, TheWatchPaintsEachApplicationsLabelAndCountsTheCustomProcesses)
{
    const QString editor = home.file(u"Applications/Editor.app"_s);
    commands.processes = {"/Applications/OmniWeb.app/Contents/MacOS/OmniWeb",
                          "/Applications/Safari.app/Contents/MacOS/Safari",
                          QFile::encodeName(editor) + "/Contents/MacOS/Editor"};
    storedDefaults().setObject(
        CustomShred::archive({{editor, QVariantList{}}, {home.file(u"Applications/Other.app"_s), QVariantList{}}}),
        u"mProcessDictionary"_s);
    EXPECT_EQ(label(u"mTHCustomConfigured"_s)->text(), u"2"_s);
    // The stored processes are listed from the start.
    const auto* listed = settingsPane(u"Custom Processes"_s).findChild<QListWidget*>(u"mProcessTableView"_s);
    ASSERT_EQ(listed->count(), 2);
    EXPECT_EQ(listed->item(0)->text(), u"Editor.app"_s);

    controller().HandleTarnholdTimer(false);
    expectState(u"mTHSafari"_s, Color::Red);
    expectState(u"mTHOpera"_s, Color::Green);
    EXPECT_EQ(label(u"mTHCustomRunning"_s)->text(), u"1"_s);
    expectState(u"mTHCustomRunning"_s, Color::Red);
    EXPECT_EQ(label(u"mTHCustomStopped"_s)->text(), u"1"_s);

    // An application that is not enabled is grey whatever its state.
    QCheckBox* safari = settingsPane(u"Applications"_s).findChild<QCheckBox*>(u"Safari"_s);
    toggle(safari);
    controller().HandleTarnholdTimer(false);
    expectState(u"mTHSafari"_s, Color::LightGray);
    expectState(u"mTHChrome"_s, Color::Green);

    // The watch switched off greys every label at the next settings tick.
    toggle(settingsPane(u"General"_s).findChild<QCheckBox*>(u"Tarnhold"_s));
    controller().HandleTimer();
    EXPECT_EQ(statusText(), u"Not enabled. Use preferences to enable..."_s);
    for (const char* name : {"mTHOmniweb", "mTHOpera", "mTHSeaMonkey", "mTHChrome"})
        expectState(QLatin1StringView(name), Color::LightGray);
}

TEST_F(MainWindowTest, EveryStateReadsBySymbolNameAndContrastOnLightAndDarkPalettesInItsFixedPlace)
{
    QPalette dark(QColor(0xe0, 0xe0, 0xe0), QColor(0x35, 0x35, 0x35));
    dark.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
    WatchPanel panel;
    auto* safari = panel.findChild<QLabel*>(u"mTHSafari"_s);
    for (const QPalette& palette : {QApplication::style()->standardPalette(), dark}) {
        panel.setPalette(palette);
        QStringList seen;
        for (const auto& [color, state] :
             {std::pair{Color::Red, u"running"_s}, std::pair{Color::Green, u"not running"_s},
              std::pair{Color::LightGray, u"not watched"_s}}) {
            panel.setApplicationColor(WatchedApp::safari, color);
            const QColor text = safari->palette().color(QPalette::WindowText);
            EXPECT_GE(contrastRatio(text, panel.palette().color(QPalette::Window)), 4.5)
                << qPrintable(text.name()) << " on " << qPrintable(panel.palette().color(QPalette::Window).name());
            EXPECT_EQ(safari->accessibleName(), u"Safari: "_s + state);
            seen.append(safari->text() + text.name());
        }
        seen.removeDuplicates();
        EXPECT_EQ(seen.size(), 3);
        // A palette changed while the label shows a state repaints it.
        panel.setApplicationColor(WatchedApp::safari, Color::Green);
        panel.setPalette(palette == dark ? QApplication::style()->standardPalette() : dark);
        EXPECT_GE(contrastRatio(safari->palette().color(QPalette::WindowText), panel.palette().color(QPalette::Window)),
                  4.5);
    }
    const auto* grid = panel.findChild<QGridLayout*>();
    ASSERT_NE(grid, nullptr);
    QStringList names;
    for (int i = 0; i < grid->count(); ++i)
        names.append(grid->itemAt(i)->widget()->objectName());
    EXPECT_EQ(names, (QStringList{u"mTHSafari"_s,      u"mTHExplorer"_s, u"mTHMozilla"_s, u"mTHNetscape"_s,
                                  u"mTHiCab"_s,        u"mTHOmniweb"_s,  u"mTHOpera"_s,   u"mTHMail"_s,
                                  u"mTHEudora"_s,      u"mTHPostbox"_s,  u"mTHCamino"_s,  u"mTHFirefox"_s,
                                  u"mTHThunderbird"_s, u"mTHShiira"_s,   u"mTHFlock"_s,   u"mTHChrome"_s,
                                  u"mTHSeaMonkey"_s,   u"mTHBrave"_s,    u"mTHVivaldi"_s, u"mTHEdge"_s,
                                  u"mTHCurrentOpera"_s}));
}

// Started with the watch off, the window says so and greys every label.
TEST_F(MainWindowTest, TheWindowShowsAtStartUnlessAnAgentOrHiddenAfterShreddingWithTheWatch)
{
    struct Case {
        const char* name;
        QByteArray uiElement;
        bool hideAfterShredding;
        bool watch;
        bool loginItemHidden;
        bool shown;
    };
    const Case cases[] = {
        {"plain", "0", false, true, false, true},
        {"agent", "1", false, false, false, false},
        {"hide with watch", "0", true, true, false, false},
        {"hide without watch", "0", true, false, false, true},
        {"login item hidden", "0", false, true, true, false},
    };
    for (const Case& c : cases) {
        TempHome caseHome; // with settings of its own
        useBundle("<key>LSUIElement</key><string>" + c.uiElement + "</string>", caseHome);
        storedDefaults().setBool(c.hideAfterShredding, PreferenceKey::HideAfterShredding);
        storedDefaults().setBool(c.watch, PreferenceKey::Tarnhold);
        startHidden = c.loginItemHidden;
        EXPECT_EQ(window().isVisible(), c.shown) << c.name;
        EXPECT_EQ(controller().isWatchTimerActive(), c.watch) << c.name;
        if (!c.watch) {
            EXPECT_EQ(statusText(), u"Not enabled. Use preferences to enable..."_s);
            expectState(u"mTHSafari"_s, Color::LightGray);
        }
        mApp.reset();
    }
}
