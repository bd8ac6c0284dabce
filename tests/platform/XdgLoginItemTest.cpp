#include "platform/linux/XdgLoginItem.h"

#include "support/TempHome.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class XdgLoginItemTest : public ::testing::Test {
protected:
    QString entry() const { return QString::fromUtf8(home.read(u".config/autostart/com.orvick.vantle.desktop"_s)); }
    QString execLine() const
    {
        return QRegularExpression(u"^Exec=.*$"_s, QRegularExpression::MultilineOption).match(entry()).captured();
    }

    TempHome home;
};

} // namespace

TEST_F(XdgLoginItemTest, PresentWhileCreatedAbsentAfterRemovalAndHiddenOnlyWhileItExists)
{
    const QString app = u"/opt/vantle/bin/vantle"_s;
    XdgLoginItem item(XdgLoginItem::defaultEntryPath(), app);
    EXPECT_EQ(XdgLoginItem::defaultEntryPath(), home.file(u".config/autostart/com.orvick.vantle.desktop"_s));
    EXPECT_TRUE(item.path().isEmpty());

    item.create(app, false);
    EXPECT_EQ(item.path(), app);
    EXPECT_TRUE(entry().startsWith(u"[Desktop Entry]\n"_s));
    EXPECT_TRUE(entry().contains(u"\nName=Vantle X\n"_s));
    EXPECT_TRUE(entry().contains(u"\nType=Application\n"_s));
    EXPECT_EQ(execLine(), u"Exec=/opt/vantle/bin/vantle"_s);

    item.remove();
    EXPECT_FALSE(QFileInfo::exists(home.file(u".config/autostart/com.orvick.vantle.desktop"_s)));
    EXPECT_TRUE(item.path().isEmpty());
    item.remove(); // removing what is not there is harmless

    item.setHidden(true);
    EXPECT_TRUE(entry().isEmpty());

    item.create(app, true);
    EXPECT_EQ(execLine(), u"Exec=/opt/vantle/bin/vantle --hidden"_s);
    item.setHidden(false);
    EXPECT_EQ(execLine(), u"Exec=/opt/vantle/bin/vantle"_s);
    item.setHidden(true);
    EXPECT_EQ(execLine(), u"Exec=/opt/vantle/bin/vantle --hidden"_s);
    EXPECT_EQ(item.path(), app);
}

TEST_F(XdgLoginItemTest, PathsWithReservedCharactersSurviveQuoting)
{
    for (const QString& app : {u"/Applications/Vantle X/vantle"_s, u"/odd/\"quote\" $HOME `x` back\\slash/vantle"_s,
                               u"/100%/vantle"_s, u"/tab\there/vantle"_s}) {
        XdgLoginItem item(XdgLoginItem::defaultEntryPath(), app);
        item.create(app, true);
        EXPECT_EQ(item.path(), app) << qPrintable(execLine());
        EXPECT_TRUE(execLine().endsWith(u" --hidden"_s));
    }
    EXPECT_EQ(XdgLoginItem::execValue({u"/a b/vantle"_s, u"--hidden"_s}), u"\"/a b/vantle\" --hidden"_s);
    EXPECT_EQ(XdgLoginItem::execValue({u"/a\\b"_s}), u"\"/a\\\\\\\\b\""_s);
}
