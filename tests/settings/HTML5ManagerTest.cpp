#include "settings/HTML5Manager.h"

#include "core/PropertyList.h"
#include "settings/UserDefaults.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <QDateTime>
#include <QDir>
#include <array>
#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kSafariLocalStorage = u"Library/Safari/LocalStorage/"_s;
const QString kSafariDatabases = u"Library/Safari/Databases/"_s;
const QString kChromeLocalStorage = u"Library/Application Support/Google/Chrome/Default/Local Storage/"_s;
const QString kChromeDatabases = u"Library/Application Support/Google/Chrome/Default/databases/"_s;
const QString kFlockDatabases = u"Library/Application Support/Flock/User Data/Default/databases/"_s;
const QString kFlockLocalStorage = u"Library/Application Support/Flock/Profiles/x.default/Local Storage/"_s;

class HTML5ManagerTest : public ::testing::Test {
protected:
    // A new manager over the settings file as it is on disk now.
    void reopen()
    {
        manager.reset();
        defaults = std::make_unique<UserDefaults>(UserDefaults::defaultFilePath());
        manager = std::make_unique<HTML5Manager>(*defaults);
    }

    // Writes the settings file as another process would, then reopens.
    void reopenWith(const QVariantMap& values)
    {
        manager.reset();
        defaults.reset();
        home.write(u".config/com.orvick.vantle.plist"_s, PropertyList::toXml(values));
        // Qt keeps a parsed settings file while its time stamp and size stay the
        // same; a rewrite within one clock tick must still be seen as new.
        QFile written(home.file(u".config/com.orvick.vantle.plist"_s));
        written.open(QIODevice::ReadWrite);
        written.setFileTime(QDateTime::currentDateTime().addSecs(++mRewrites), QFileDevice::FileModificationTime);
        written.close();
        reopen();
    }

    QVariantMap stored() const
    {
        return PropertyList::parse(home.read(u".config/com.orvick.vantle.plist"_s)).value_or(QVariant()).toMap();
    }

    void file(const QString& relative) const { home.write(relative, "x"); }
    int mRewrites = 0;
    void folder(const QString& relative) const { QDir().mkpath(home.file(relative)); }

    // Full paths below the home, in the order given.
    QStringList full(const QString& folder, const QStringList& names) const
    {
        QStringList paths;
        for (const QString& name : names)
            paths.append(home.file(folder + name));
        return paths;
    }

    // Storage of every kind in every folder the manager looks at.
    void fillEveryFolder() const
    {
        file(kSafariLocalStorage + u"http_example.com_0.localstorage"_s);
        file(kChromeLocalStorage + u"http_example.com_0.localstorage"_s);
        file(kFlockLocalStorage + u"http_example.com_0.localstorage"_s);
        folder(kSafariDatabases + u"http_example.com_0"_s);
        folder(kChromeDatabases + u"http_example.com_0"_s);
        folder(kFlockDatabases + u"http_example.com_0"_s);
    }

    std::array<QStringList, 6> everyPathList(const HTML5Manager& m) const
    {
        return {m.html5PathsForChrome(),
                m.html5PathsForFlock(home.file(kFlockLocalStorage)),
                m.html5LocalStoragePathsForSafari(),
                m.html5DatabasesPathsForSafari(),
                m.html5DatabasesPathsForChrome(),
                m.html5DatabasesPathsForFlock()};
    }

    TempHome home;
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<HTML5Manager> manager;
};

} // namespace

TEST_F(HTML5ManagerTest, TheSwitchDecidesWhetherAnythingIsListedAndMissingFoldersGiveNothing)
{
    reopen();
    EXPECT_EQ(manager->getEnabledState(), 0); // a fresh user erases no HTML5 storage
    manager->setEnabled();                    // the first click turns it on
    EXPECT_EQ(manager->getEnabledState(), 1);
    for (const QStringList& paths : everyPathList(*manager))
        EXPECT_TRUE(paths.isEmpty()) << paths.join(u' ').toStdString();

    fillEveryFolder();
    for (const QStringList& paths : everyPathList(*manager))
        EXPECT_EQ(paths.size(), 1);
    manager->setEnabled();
    for (const QStringList& paths : everyPathList(*manager))
        EXPECT_TRUE(paths.isEmpty());

    // Stored as 0 rather than removed; any other number counts as on.
    EXPECT_EQ(stored().value(u"mHTML5EnabledState"_s), QVariant(qint64(0)));
    reopenWith({{u"mHTML5EnabledState"_s, 2}});
    EXPECT_EQ(manager->html5DatabasesPathsForChrome(), full(kChromeDatabases, {u"http_example.com_0"_s}));

    // No folder named at all is not the working folder.
    file(u"work/http_example.com_0.localstorage"_s);
    const QString working = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(home.file(u"work"_s)));
    const QStringList paths = manager->html5PathsForFlock(QString());
    QDir::setCurrent(working);
    EXPECT_TRUE(paths.isEmpty());
}

TEST_F(HTML5ManagerTest, LocalStorageFilesAreTakenByExtension)
{
    for (const QString& name : {u"https_www.example.org_0.localstorage"_s, u"http_apple.com_0.localstorage"_s,
                                u"http_apple.com_0.localstorage-journal"_s, u"safari-resource__0.localstorage"_s,
                                u"safari-resource__0.localstorage-journal"_s, u"localstorage"_s, u"notes.txt"_s}) {
        file(kSafariLocalStorage + name);
        file(kChromeLocalStorage + name);
        file(kFlockLocalStorage + name);
    }
    reopenWith({{u"mHTML5EnabledState"_s, 1}});

    // Sorted by name: '_' comes before 's'. Journals only for Chrome.
    EXPECT_EQ(
        manager->html5LocalStoragePathsForSafari(),
        full(kSafariLocalStorage, {u"http_apple.com_0.localstorage"_s, u"https_www.example.org_0.localstorage"_s}));
    EXPECT_EQ(manager->html5PathsForChrome(),
              full(kChromeLocalStorage, {u"http_apple.com_0.localstorage"_s, u"http_apple.com_0.localstorage-journal"_s,
                                         u"https_www.example.org_0.localstorage"_s}));
    EXPECT_EQ(
        manager->html5PathsForFlock(home.file(kFlockLocalStorage)),
        full(kFlockLocalStorage, {u"http_apple.com_0.localstorage"_s, u"https_www.example.org_0.localstorage"_s}));
}

TEST_F(HTML5ManagerTest, KeepEntriesMatchAnywhereInTheNameAndCaseMatters)
{
    const QStringList names{u"http_Apple.com_0.localstorage"_s,           u"http_apple.com_0.localstorage"_s,
                            u"http_apple.community.org_0.localstorage"_s, u"http_example.com_0.localstorage"_s,
                            u"http_notapple.com_0.localstorage"_s,        u"https_www.apple.com_0.localstorage"_s};
    for (const QString& name : names)
        file(kSafariLocalStorage + name);
    reopenWith({{u"mHTML5EnabledState"_s, 1}, {u"mDomainTableData"_s, QVariantList{u"apple.com"_s}}});

    EXPECT_EQ(manager->html5LocalStoragePathsForSafari(),
              full(kSafariLocalStorage, {u"http_Apple.com_0.localstorage"_s, u"http_example.com_0.localstorage"_s}));

    // An empty entry keeps nothing more; rows out of range change nothing; the browsers' own storage is always kept.
    manager->addDomain();
    manager->setDomain(1, QString());
    manager->setDomain(2, u"example"_s);
    manager->deleteDomain(-1);
    manager->deleteDomain(2);
    EXPECT_EQ(stored().value(u"mDomainTableData"_s), (QVariantList{u"apple.com"_s, QString()}));
    EXPECT_EQ(manager->html5LocalStoragePathsForSafari().size(), 2);
    EXPECT_FALSE(manager->keepThisDomain(u"http_example.com_0"_s));
    EXPECT_TRUE(manager->keepThisDomain(u"chrome-extension_flock_people_0.localstorage"_s));
    EXPECT_TRUE(manager->keepThisDomain(u"https_x.safari-resource__0_y"_s));
    EXPECT_FALSE(manager->keepThisDomain(u"safari-resource_0"_s));
}

TEST_F(HTML5ManagerTest, TheListReadsReversedUnitByUnit)
{
    reopenWith({{u"mDomainTableData"_s, QVariantList{u"apple.com"_s, u"a\U0001F600"_s}}});
    EXPECT_EQ(manager->getDomainTableData(false), (QStringList{u"apple.com"_s, u"a\U0001F600"_s}));
    // The emoji is two UTF-16 units; they swap places like any others.
    const QString reversedEmoji = QString(QChar(0xDE00)) + QChar(0xD83D) + u'a';
    EXPECT_EQ(manager->getDomainTableData(true), (QStringList{u"moc.elppa"_s, reversedEmoji}));
    EXPECT_EQ(manager->domains(), manager->getDomainTableData(false)); // reversing leaves the list alone
}

TEST_F(HTML5ManagerTest, WrongTypedValuesReadAsTheDefaults)
{
    fillEveryFolder();
    reopenWith({{u"mDomainTableData"_s, u"example.com"_s}, {u"mHTML5EnabledState"_s, u"1"_s}});
    EXPECT_TRUE(manager->domains().isEmpty());
    EXPECT_EQ(manager->getEnabledState(), 0);
    EXPECT_TRUE(manager->html5LocalStoragePathsForSafari().isEmpty());

    // Only the strings of a mixed array are entries.
    reopenWith({{u"mDomainTableData"_s, QVariantList{42, u"example.com"_s, QVariantMap{{u"a"_s, 1}}}},
                {u"mHTML5EnabledState"_s, QVariantMap{{u"a"_s, 1}}}});
    EXPECT_EQ(manager->domains(), QStringList{u"example.com"_s});
    EXPECT_EQ(manager->getEnabledState(), 0);
}
