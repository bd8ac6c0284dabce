#include "cleaners/MozillaCleaners.h"

#include "cleaners/ChromeCleaners.h"
#include "cleaners/CleanerFixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFirefox = u"Library/Application Support/Firefox/Profiles/"_s;

class MozillaCleanersTest : public CleanerFixture {
protected:
    ChromeCleaners chrome{context};
    MozillaCleaners cleaners{context, defaults, chrome};
};

} // namespace

TEST_F(MozillaCleanersTest, FirefoxTwoWalksTheSelectedProfilesAndFindsThePasswordFile)
{
    home.write(kFirefox + u"a1.default/prefs.js"_s, "user_pref(\"browser.startup.homepage\", \"about:blank\");\n"
                                                    "user_pref(\"signon.SignonFileName\", \"signons2.txt\");\n");
    makeFolder(kFirefox + u"b2.other"_s);
    select(kFirefox.chopped(1), {u"gone.profile"_s, u"a1.default"_s});
    setAllKeys(true);

    const QString profile = home.file(kFirefox + u"a1.default"_s);
    EXPECT_EQ(run([&] { cleaners.Firefox20(); }),
              (QStringList{u"Firefox 2.0"_s, profile, u"Shred:"_s, profile + u"/sessionstore.js"_s, u"Shred:"_s,
                           profile + u"/sessionstore.bak"_s, u"Shred:"_s, profile + u"/formhistory.dat"_s, u"Shred:"_s,
                           profile + u"/signons2.txt"_s, u""_s, u""_s}));
    EXPECT_EQ(paths, (QStringList{profile + u"/sessionstore.js"_s, profile + u"/sessionstore.bak"_s,
                                  profile + u"/formhistory.dat"_s, profile + u"/signons2.txt"_s}));

    queue.takePaths();
    setAllKeys(false);
    const QStringList off = run([&] { cleaners.Firefox20(); });
    EXPECT_EQ(off[8], u"Skip: Passwords file (did not parse for location since option is disabled)"_s);
    EXPECT_TRUE(paths.isEmpty());

    select(kFirefox.chopped(1), {});
    EXPECT_EQ(run([&] { cleaners.Firefox20(); }), (QStringList{u"Firefox 2.0"_s, u"No profiles selected."_s, u""_s}));
}

TEST_F(MozillaCleanersTest, SaltFoldersMustBeExactlyOne)
{
    makeFolder(u"Library/Phoenix/Profiles/default/x1y2.slt"_s);
    setAllKeys(true);
    const QString salt = home.file(u"Library/Phoenix/Profiles/default/x1y2.slt"_s);
    EXPECT_EQ(run([&] { cleaners.Firefox08(); }),
              (QStringList{u"Firefox 0.8"_s, u"Shred:"_s, salt + u"/Cache"_s, u"Shred:"_s, salt + u"/history.dat"_s,
                           u"Shred:"_s, salt + u"/downloads.rdf"_s, u""_s}));

    queue.takePaths();
    makeFolder(u"Library/Phoenix/Profiles/default/second.slt"_s);
    EXPECT_EQ(run([&] { cleaners.Firefox08(); }),
              (QStringList{u"Firefox 0.8"_s, u"Not exactly 1 Salt folder.  Profile Skipped."_s, u""_s}));
    EXPECT_TRUE(paths.isEmpty());

    EXPECT_EQ(run([&] { cleaners.Camino07(); }),
              (QStringList{u"Camino 0.7"_s, u"No Camino 0.7 profile found.  Profile Skipped."_s, u""_s}));
}

TEST_F(MozillaCleanersTest, TheMozillaSuiteNeedsBothNamesEnabledAndItsOwnSelection)
{
    makeFolder(u"Library/Mozilla/Profiles/default/ab.slt"_s);
    setAllKeys(true);
    EXPECT_EQ(run([&] { cleaners.Mozilla(); }),
              (QStringList{u"Mozilla 1.x and Netscape 7"_s, u"No profiles selected in the Profiles menu"_s, u""_s}));
    EXPECT_EQ(run([&] { cleaners.SeaMonkey1(); }),
              (QStringList{u"SeaMonkey 1.x"_s, u"No profiles selected in the Profiles menu"_s, u""_s}));

    // The salt-folder walk over the selection: no profile line, one closing empty line; a
    // selected profile that is gone is passed over, one without its salt folder is said.
    makeFolder(u"Library/Mozilla/Profiles/other"_s);
    select(u"Library/Mozilla/Profiles"_s, {u"gone"_s, u"default"_s, u"other"_s, u"../../../Documents"_s, u".."_s});
    makeFolder(u"Documents/letters.slt"_s);
    makeFolder(u"Library/Caches/Mozilla/Profiles/default"_s);
    const QString salt = home.file(u"Library/Mozilla/Profiles/default/ab.slt"_s);
    EXPECT_EQ(
        run([&] { cleaners.Mozilla(); }),
        (QStringList{u"Mozilla 1.x and Netscape 7"_s, u"Shred:"_s, salt + u"/Cache"_s, u"Shred:"_s,
                     salt + u"/history.dat"_s, salt + u"/history.mab"_s, salt + u"/Netscape History"_s, u"Shred:"_s,
                     salt + u"/downloads.rdf"_s, u"Not exactly 1 Salt folder.  Profile Skipped."_s, u""_s}));
    EXPECT_EQ(
        run([&] { cleaners.SeaMonkey1(); }),
        (QStringList{u"SeaMonkey 1.x"_s, u"Shred:"_s, home.file(u"Library/Caches/Mozilla/Profiles/default"_s), u""_s}));

    queue.takePaths();
    context.setBrowserIsEnabledForTesting([](const QString& name) { return name != u"Netscape"_s; });
    EXPECT_EQ(run([&] { cleaners.Mozilla(); }),
              (QStringList{u"Mozilla 1.x and Netscape 7"_s, u"Not enabled - check preferences to enable."_s, u""_s}));
    EXPECT_TRUE(paths.isEmpty());
}

TEST_F(MozillaCleanersTest, FirefoxOneFiveHandlesCacheAndSupportFolders)
{
    makeFolder(u"Library/Caches/Firefox/Profiles/a1.default"_s);
    makeFolder(kFirefox + u"a1.default"_s);
    select(kFirefox.chopped(1), {u"a1.default"_s});
    setAllKeys(true);
    setKey(PreferenceKey::ShredCookies, false);
    const QString cache = home.file(u"Library/Caches/Firefox/Profiles/a1.default"_s);
    const QString support = home.file(kFirefox + u"a1.default"_s);
    EXPECT_EQ(run([&] { cleaners.Firefox15(); }),
              (QStringList{u"Firefox 1.5"_s, cache, u"Shred:"_s, cache + u"/Cache"_s, cache + u"/OfflineCache"_s,
                           cache + u"/urlclassifier3.sqlite"_s, cache + u"/XPC.mfasl"_s, cache + u"/XUL.mfasl"_s,
                           support, u"Skip:"_s, support + u"/cookies.txt"_s, u""_s, u""_s}));
    EXPECT_EQ(paths.size(), 5);
}

TEST_F(MozillaCleanersTest, CaminoFixedPathsKeepTheirWording)
{
    setAllKeys(false);
    EXPECT_EQ(run([&] { cleaners.Camino16(); }),
              (QStringList{u"Camino 1.6"_s, u"Skip: ~/Library/Caches/org.mozilla.camino"_s,
                           u"Skip: ~/Library/Application Support/Camino/downloads.plist"_s,
                           u"Skip: ~/Library/Caches/Application Support/history.dat"_s, u""_s}));
    setAllKeys(true);
    const QString camino = home.file(u"Library/Application Support/Camino"_s);
    EXPECT_EQ(run([&] { cleaners.Camino08(); }),
              (QStringList{u"Camino 0.8"_s, u"Shred:"_s, camino + u"/Cache"_s, u"Shred:"_s, camino + u"/history.dat"_s,
                           u"Shred:"_s, camino + u"/cookies.txt"_s, u""_s}));
    EXPECT_EQ(run([&] { cleaners.Camino20(); }),
              (QStringList{u"Camino 2.0"_s, u"Shred:"_s, camino + u"/cookies.sqlite"_s, u""_s}));
}

TEST_F(MozillaCleanersTest, FlockThreeFiveCleansEveryUserDataFolder)
{
    makeFolder(u"Library/Application Support/Flock/User Data"_s);
    makeFolder(u"Library/Application Support/Flock/User Data 2"_s);
    makeFolder(u"Library/Application Support/Flock/Profiles"_s);
    setAllKeys(false);
    const QStringList lines = run([&] { cleaners.Flock35(); });
    EXPECT_EQ(lines.first(), u"Flock 3.5"_s);
    EXPECT_EQ(lines.last(), QString());
    EXPECT_EQ(lines.filter(u"/Caches/Flock/User Data/Default/Cache"_s).size(), 1);
    EXPECT_EQ(lines.filter(u"/Caches/Flock/User Data 2/Default/Cache"_s).size(), 1);
    EXPECT_TRUE(lines.filter(u"Profiles"_s).isEmpty());
}

TEST_F(MozillaCleanersTest, ThePasswordFileIsAPlainNameOfTheProfileAndAnyOtherIsRefusedAndSaidSo)
{
    EXPECT_EQ(MozillaCleaners::passwordFileName("user_pref(\"signon.SignonFileName\",\"key3 \u00e9.db\")"),
              u"key3 \u00e9.db"_s);
    EXPECT_TRUE(MozillaCleaners::passwordFileName("user_pref(\"signon.rememberSignons\", true);").isNull());
    EXPECT_TRUE(MozillaCleaners::passwordFileName("signon.SignonFileName").isNull());
    EXPECT_TRUE(MozillaCleaners::passwordFileName("signon.SignonFileName\", 3);").isNull());
    EXPECT_TRUE(MozillaCleaners::passwordFileName("user_pref(\"signon.SignonFileName\", \"..\");").isNull());
    EXPECT_EQ(MozillaCleaners::passwordFileName("user_pref(\"signon.SignonFileName\", \"unterminated"),
              u"unterminated"_s);

    // The system would read "key3.db\0.txt" as "key3.db": the log would name one
    // file and the erase hit another.
    static const char nul[] = "user_pref(\"signon.SignonFileName\", \"key3.db\0.txt\");\n";
    home.write(u"Documents/a"_s, "mine");
    home.write(kFirefox + u"a1.default/key3.db"_s, "kept");
    select(kFirefox.chopped(1), {u"a1.default"_s});
    setAllKeys(true);
    const QString refused = u"Skip: Passwords file named in prefs.js is not a file of the profile folder: "_s;
    for (const QByteArray& prefs : {QByteArray("user_pref(\"signon.SignonFileName\", \"../../../Documents/a\");\n"),
                                    QByteArray(nul, sizeof(nul) - 1)}) {
        home.write(kFirefox + u"a1.default/prefs.js"_s, prefs);
        queue.takePaths();
        const QStringList lines = run([&] { cleaners.Firefox20(); });
        EXPECT_EQ(lines.filter(refused).size(), 1) << prefs.constData();
        EXPECT_TRUE(prefs.contains('\0') || lines.contains(refused + u"../../../Documents/a"_s));
        for (const QString& path : paths)
            EXPECT_FALSE(path.contains(u"Documents"_s) || path.contains(u"key3.db"_s)) << qPrintable(path);
    }
    static const char onlyNul[] = "signon.SignonFileName, \"\0\"";
    EXPECT_TRUE(MozillaCleaners::passwordFileName(QByteArray(onlyNul, sizeof(onlyNul) - 1)).isNull());
}
