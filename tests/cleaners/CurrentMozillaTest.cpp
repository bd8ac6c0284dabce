// Today's Firefox and Thunderbird on a Linux home: the profiles profiles.ini
// lists, what each setting erases, and how Mozilla's lock and processes say a
// profile is in use. The walk's other rules are CurrentChromiumTest's.
#include "cleaners/CleanerFixture.h"
#include "cleaners/current/CurrentFirefox.h"
#include "cleaners/current/CurrentThunderbird.h"
#include "settings/HTML5Manager.h"
#include "settings/ProfileList.h"
#include "settings/ProfilesManager.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class CurrentMozillaTest : public CleanerFixture {
protected:
    QStringList clean()
    {
        return run([&] {
            CurrentFirefox(context, defaults, procRoot).run();
            CurrentThunderbird(context, defaults, procRoot).run();
        });
    }
    // The user's processes as /proc lists them: none until a test adds one.
    const QString procRoot = home.file(u"proc"_s);
};

} // namespace

TEST_F(CurrentMozillaTest, ProfilesIniListsEveryProfileKeptInsideItsFolder)
{
    const QString absolute = home.file(u"elsewhere/ab.profile"_s);
    for (const QString& folder : {u".config/mozilla/firefox/b2.work,2"_s, u".config/mozilla/firefox/Profiles/a1.esr"_s,
                                  u"elsewhere/ab.profile"_s, u".config/escaped"_s})
        makeFolder(folder);
    home.write(u".config/mozilla/firefox/profiles.ini"_s,
               "[General]\nStartWithLastProfile=1\n\n"
               "[Profile1]\nName=work\nIsRelative=1\nPath=b2.work,2\n\n"
               "[Profile0]\r\nName=esr\r\nIsRelative=1\r\nPath=Profiles/a1.esr\r\n\r\n"
               "[Profile2]\nName=absolute\nIsRelative=0\nPath=" +
                   QFile::encodeName(absolute) +
                   "\n\n"
                   "[Profile3]\nName=escape\nIsRelative=1\nPath=../../escaped\n\n"
                   "[Profile4]\nName=gone\nIsRelative=1\nPath=never.made\n\n"
                   "[Install4F96D1932A9F858E]\nDefault=b2.work,2\n");
    // A second location naming the same folder by its absolute path lists it once.
    home.write(u".mozilla/firefox/profiles.ini"_s,
               "[Profile0]\nIsRelative=0\nPath=" + QFile::encodeName(absolute) + "\n");

    const QString firefox = home.file(u".config/mozilla/firefox"_s);
    const QString cache = home.file(u".cache/mozilla/firefox"_s);
    const QList<MozillaProfile> expected{{firefox + u"/b2.work,2"_s, cache + u"/b2.work,2"_s},
                                         {firefox + u"/Profiles/a1.esr"_s, cache + u"/Profiles/a1.esr"_s},
                                         {absolute, absolute}};
    EXPECT_EQ(ProfileList::current(WatchedApp::firefox), expected);
    EXPECT_TRUE(ProfileList::current(WatchedApp::thunderbird).isEmpty());
    // An application without profiles writes nothing.
    EXPECT_EQ(run([&] { CurrentThunderbird(context, defaults, procRoot).run(); }), QStringList());
    EXPECT_TRUE(ProfileList::listed(home.file(u".mozilla"_s), cache).isEmpty());
}

TEST_F(CurrentMozillaTest, EachSettingTakesItsFilesOfTheProfilesNotInUse)
{
    const QString firefox = home.file(u".config/mozilla/firefox/ab.default-esr"_s);
    const QString cache = home.file(u".cache/mozilla/firefox/ab.default-esr"_s);
    home.write(u".config/mozilla/firefox/profiles.ini"_s, "[Profile0]\nIsRelative=1\nPath=ab.default-esr\n\n"
                                                          "[Profile1]\nIsRelative=1\nPath=cd.open\n");
    for (const QString& name :
         {u"sessionstore.jsonlz4"_s, u"sessionstore-backups/recovery.jsonlz4"_s, u"logins.json"_s, u"key4.db"_s,
          u"cert9.db"_s, u"storage/default/https+++www.example.com/ls/data.sqlite"_s,
          u"storage/default/http+++mail.kept.org+8080/ls/data.sqlite"_s,
          u"storage/default/moz-extension+++0a1b/idb/1.sqlite"_s})
        home.write(u".config/mozilla/firefox/ab.default-esr/"_s + name, "data");
    home.write(u".cache/mozilla/firefox/ab.default-esr/cache2/entries/0A1B"_s, "cached");
    const QString cdOpen = home.file(u".config/mozilla/firefox/cd.open"_s);
    QDir().mkpath(cdOpen);
    // Left by a browser that still runs: this test process.
    QFile::link(u"127.0.0.1:+%1"_s.arg(::getpid()), cdOpen + u"/lock"_s);
    const QString inUse = u"Skip: %1 (in use: its lock is held by process %2)"_s.arg(cdOpen).arg(::getpid());

    const QString thunderbird = home.file(u".thunderbird/tb.default-default"_s);
    home.write(u".thunderbird/profiles.ini"_s, "[Profile0]\nIsRelative=1\nPath=tb.default-default\n");
    for (const QString& name :
         {u"Mail/Local Folders/Trash"_s, u"Mail/Local Folders/Trash.msf"_s, u"Mail/Local Folders/Junk"_s,
          u"Mail/Local Folders/Inbox"_s, u"ImapMail/imap.example.com/Trash/cur/1.eml"_s,
          u"ImapMail/imap.example.com/Trash/new/2.eml"_s, u"ImapMail/imap.example.com/INBOX/cur/3.eml"_s,
          u"ImapMail/imap.example.com/[Gmail].sbd/Spam"_s, u"ImapMail/imap.example.com/[Gmail].sbd/All Mail"_s})
        home.write(u".thunderbird/tb.default-default/"_s + name, "mail");
    home.write(u".cache/thunderbird/tb.default-default/cache2/entries/4C5D"_s, "cached");

    ProfilesManager profiles(defaults);
    profiles.populateProfilesMenu(); // a fresh settings store selects every profile
    HTML5Manager html5(defaults);
    context.models.html5 = &html5;
    html5.addDomain();
    html5.setDomain(0, u"kept.org"_s);
    html5.setEnabled();
    setAllKeys(true);

    const QString imap = thunderbird + u"/ImapMail/imap.example.com/"_s;
    const QString local = thunderbird + u"/Mail/Local Folders/"_s;
    const QStringList erased = QStringList{cache + u"/cache2"_s} +
                               lines(firefox, u"/"_s,
                                     {u"sessionstore.jsonlz4"_s, u"sessionstore-backups"_s, u"logins.json"_s,
                                      u"storage/default/https+++www.example.com"_s}) +
                               lines(local, {}, {u"Trash"_s, u"Trash.msf"_s, u"Junk"_s}) +
                               lines(imap, {}, {u"Trash/cur/1.eml"_s, u"Trash/new/2.eml"_s, u"[Gmail].sbd/Spam"_s}) +
                               QStringList{home.file(u".cache/thunderbird/tb.default-default/cache2"_s)};
    const QStringList shred = lines(u"Shred: "_s, {}, erased);
    EXPECT_EQ(clean(),
              QStringList({u"Firefox (current versions)"_s, firefox}) + shred.mid(0, 5) +
                  QStringList({QString(), inUse, QString(), u"Thunderbird (current versions)"_s, thunderbird}) +
                  shred.mid(5) + QStringList({QString(), QString()}));
    EXPECT_EQ(paths, erased);
    // The junk mailboxes come back empty.
    EXPECT_EQ(touches, (QStringList{local + u"Junk"_s, imap + u"[Gmail].sbd/Spam"_s}));

    // Settings off, or the applications running: nothing is queued.
    queue.takePaths();
    setAllKeys(false);
    html5.setEnabled();
    const QStringList off = clean();
    EXPECT_TRUE(off.contains(u"Skip: "_s + firefox + u"/logins.json"_s)) << off.join(u'\n').toStdString();
    EXPECT_TRUE(off.contains(u"Skip: "_s + local + u"Junk"_s));
    EXPECT_TRUE(paths.isEmpty()) << paths.join(u'\n').toStdString();
    // Each runs: by its process name, or by its command's file name.
    home.write(u"proc/4241/comm"_s, "firefox-esr\n");
    home.write(u"proc/4242/comm"_s, "GeckoMain\n");
    home.write(u"proc/4242/cmdline"_s, QByteArray("/usr/lib/thunderbird/thunderbird\0--name\0", 40));
    setAllKeys(true);
    EXPECT_EQ(clean(),
              (QStringList{u"Firefox (current versions)"_s, u"Skip: %1 (in use: firefox-esr is running)"_s.arg(firefox),
                           u"Skip: %1 (in use: firefox-esr is running)"_s.arg(cdOpen), QString(),
                           u"Thunderbird (current versions)"_s,
                           u"Skip: %1 (in use: thunderbird is running)"_s.arg(thunderbird), QString()}));
    EXPECT_TRUE(paths.isEmpty());
}
