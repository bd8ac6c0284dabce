#include "core/Bundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Bundle, FindsTheResourcesAndVersionInTheBuiltInstalledAndMacLayouts)
{
    const Bundle& bundle = Bundle::mainBundle();
    EXPECT_EQ(bundle.resourcePath(), QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/vantle"_s));
    EXPECT_FALSE(bundle.pathForResource(u"Info"_s, u"plist"_s).isEmpty());

    // Filled in from the project version at configure time.
    EXPECT_EQ(bundle.infoString(u"CFBundleShortVersionString"_s), QStringLiteral(VANTLE_TEST_VERSION));
    EXPECT_FALSE(bundle.infoString(u"CFBundleVersion"_s).isEmpty());
    EXPECT_EQ(bundle.infoString(u"LSUIElement"_s), u"0"_s);

    // The installed and the Mac layouts.
    QTemporaryDir root;
    for (const QString& folder :
         {u"bin"_s, u"share/vantle"_s, u"Vantle X.app/Contents/MacOS"_s, u"Vantle X.app/Contents/Resources"_s})
        ASSERT_TRUE(QDir(root.path()).mkpath(folder));
    for (const QString& file : {u"share/vantle/placesvacuumed.sqlite"_s, u"share/vantle/sqlite3"_s})
        ASSERT_TRUE(QFile(root.filePath(file)).open(QIODevice::WriteOnly));

    const QString bin = root.filePath(u"bin"_s);
    const Bundle installed(Bundle::bundlePathForExecutableDir(bin), Bundle::resourcePathForExecutableDir(bin));
    EXPECT_EQ(installed.pathForResource(u"placesvacuumed"_s, u"sqlite"_s),
              root.filePath(u"share/vantle/placesvacuumed.sqlite"_s));
    EXPECT_EQ(installed.pathForResource(u"sqlite3"_s, {}), root.filePath(u"share/vantle/sqlite3"_s));
    EXPECT_TRUE(installed.pathForResource(u"missing"_s, u"sqlite"_s).isEmpty());
    EXPECT_TRUE(installed.infoDictionary().isEmpty()); // no Info.plist here: empty, no crash

    const QString macOS = root.filePath(u"Vantle X.app/Contents/MacOS"_s);
    EXPECT_EQ(Bundle::bundlePathForExecutableDir(macOS), root.filePath(u"Vantle X.app"_s));
    EXPECT_EQ(Bundle::resourcePathForExecutableDir(macOS), root.filePath(u"Vantle X.app/Contents/Resources"_s));
}
