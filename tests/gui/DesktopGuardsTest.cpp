// What the desktop application does when it must not erase: another process's
// run holds the home, or the settings file is damaged.
#include "gui/GuiFixture.h"

#include "app/RunLock.h"
#include "gui/ApplicationMenus.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class DesktopGuardsTest : public GuiFixture {
protected:
    // Clicks button in the next alert titled "Vantle" and keeps its text.
    void answer(const QString& button)
    {
        onAlert(u"Vantle"_s, [this, button](QMessageBox* box) {
            alerts.append(box->text());
            QTest::mouseClick(buttonOf(box, button), Qt::LeftButton);
        });
    }

    QStringList alerts;
};

} // namespace

TEST_F(DesktopGuardsTest, ADamagedSettingsFileIsKeptAsideAndTheUserChoosesFactorySettingsOrQuits)
{
    const QString path = UserDefaults::defaultFilePath();
    home.write(u".config/com.orvick.vantle.plist"_s, "<?xml version=\"1.0\"?><plist><dict><key>Tarn");
    answer(u"Quit"_s);
    EXPECT_FALSE(DesktopApplication::acceptDamagedSettings(path));
    ASSERT_EQ(alerts.size(), 1);
    EXPECT_TRUE(alerts[0].contains(u"not a property list"_s)) << qPrintable(alerts[0]);
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_TRUE(logLines().contains(u"Vantle not started: nothing is erased until the factory settings are confirmed "
                                    u"(vantle-cli prefs reset) or the settings file is repaired"_s));

    // Asked again at the next start until the factory settings are chosen; then no more.
    answer(u"Use Factory Settings"_s);
    EXPECT_TRUE(DesktopApplication::acceptDamagedSettings(path));
    EXPECT_EQ(alerts.size(), 2);
    answer(u"Quit"_s);
    EXPECT_TRUE(DesktopApplication::acceptDamagedSettings(path));
    EXPECT_EQ(alerts.size(), 2);
}

TEST_F(DesktopGuardsTest, ShredWhileAnotherProcessErasesSaysWhoAndTouchesNothing)
{
    home.write(u"Library/Caches/Safari/cache.db"_s, "cached");
    storedDefaults().setBool(false, PreferenceKey::ConfirmShredding);
    RunLock other;
    ASSERT_EQ(other.tryLock(), RunLock::Outcome::Held);
    app().start();
    answer(u"OK"_s);
    app().menus().shredAndNothing()->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !alerts.isEmpty(); }, 5000));
    ASSERT_EQ(alerts.size(), 1);
    EXPECT_TRUE(alerts[0].contains(u"(process %1)"_s.arg(QCoreApplication::applicationPid()))) << qPrintable(alerts[0]);
    EXPECT_FALSE(controller().isRunInProgress());
    EXPECT_EQ(home.read(u"Library/Caches/Safari/cache.db"_s), "cached");
    EXPECT_FALSE(QFileInfo::exists(home.file(u"Library/Logs/Vantle X Log.txt"_s)));
}
