#include "watch/CustomShred.h"

#include "core/NotificationCenter.h"
#include "core/Notifications.h"
#include "log/ActivityLog.h"
#include "settings/Preferences.h"
#include "settings/UserDefaults.h"
#include "support/FakeLoginItem.h"
#include "support/QtPrinters.h"
#include "support/TempHome.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class CustomShredTest : public ::testing::Test {
protected:
    CustomShredTest()
        : defaults(UserDefaults::defaultFilePath())
        , preferences(defaults, loginItem)
    {
    }

    void post(QLatin1StringView name, QVariantMap& status)
    {
        NotificationCenter::defaultCenter().post(
            name, {{u"mCustomShredTHStatus"_s, QVariant::fromValue(StatusMapRef{&status})}});
    }
    QStringList pathsFor(CustomShred& custom, const QString& process)
    {
        EraseQueue queue(preferences);
        custom.handOverPaths(process, queue);
        return queue.paths();
    }

    TempHome home;
    UserDefaults defaults;
    FakeLoginItem loginItem;
    Preferences preferences;
    const QString editor = u"/Applications/Editor.app"_s;
};

} // namespace

TEST_F(CustomShredTest, ProcessesAndPathsAreKeptAsEnteredAndSurviveARestart)
{
    home.write(u"notes.txt"_s, "n");
    QDir().mkpath(home.file(u"Editor Cache"_s));
    {
        CustomShred custom(defaults);
        EXPECT_TRUE(custom.addProcess(editor));
        EXPECT_FALSE(custom.addProcess(editor)); // a second time: refused
        EXPECT_TRUE(custom.addPath(editor, home.file(u"notes.txt"_s)));
        EXPECT_TRUE(custom.addPath(editor, home.file(u"Editor Cache"_s)));
        EXPECT_FALSE(custom.addPath(editor, home.file(u"notes.txt"_s)));
        EXPECT_FALSE(custom.addPath(u"/Applications/Unknown.app"_s, home.file(u"x"_s)));
        EXPECT_FALSE(custom.setKeep(editor, home.file(u"notes.txt"_s), true)); // files cannot be kept
        EXPECT_TRUE(custom.setKeep(editor, home.file(u"Editor Cache"_s), true));
        EXPECT_FALSE(custom.disableProcess());
    }
    CustomShred reopened(defaults);
    EXPECT_EQ(reopened.processes(), QStringList{editor});
    EXPECT_EQ(reopened.paths(editor),
              (QVariantList{QVariantMap{{u"path"_s, home.file(u"notes.txt"_s)}},
                            QVariantMap{{u"path"_s, home.file(u"Editor Cache"_s)}, {u"keep"_s, true}}}));
}

TEST_F(CustomShredTest, TheStatusShiftsWithEachPollAndFollowsChangesAtTheNextOne)
{
    CustomShred custom(defaults);
    custom.addProcess(editor);
    QVariantMap status;
    post(Notifications::OrvickInitTHStatusNotification, status);
    EXPECT_EQ(status.value(editor).toMap().value(u"wasrunning"_s), 1);

    post(Notifications::OrvickCopyAndClearTHStatusNotification, status);
    EXPECT_EQ(status.value(editor).toMap(), (QVariantMap{{u"isrunning"_s, 0}, {u"wasrunning"_s, 0}}));

    QVariantMap running = status.value(editor).toMap();
    running.insert(u"isrunning"_s, 1);
    status.insert(editor, running);
    custom.deleteProcess(editor);
    EXPECT_TRUE(status.contains(editor)); // dropped at the next poll, not at once
    post(Notifications::OrvickCopyAndClearTHStatusNotification, status);
    EXPECT_TRUE(status.isEmpty());
}

TEST_F(CustomShredTest, PathsAreHandedOverAndKeptFoldersComeBackEmpty)
{
    CustomShred custom(defaults);
    custom.addProcess(editor);
    home.write(u"Editor Cache/file"_s, "f");
    custom.addPath(editor, home.file(u"Editor Cache"_s));
    custom.setKeep(editor, home.file(u"Editor Cache"_s), true);

    ActivityLog::openLog(home.file(u"log.txt"_s));
    EXPECT_EQ(pathsFor(custom, editor), QStringList{home.file(u"Editor Cache"_s)});
    EXPECT_TRUE(pathsFor(custom, u"/Applications/Unknown.app"_s).isEmpty());
    ActivityLog::closeLog();
    EXPECT_EQ(QString::fromUtf8(home.read(u"log.txt"_s)).count(u'\n'), 1);

    QDir(home.file(u"Editor Cache"_s)).removeRecursively();
    NotificationCenter::defaultCenter().post(Notifications::VantleShreddingDoneNotification);
    struct stat info {};
    ASSERT_EQ(::stat(QFile::encodeName(home.file(u"Editor Cache"_s)).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0777u);
    EXPECT_TRUE(QDir(home.file(u"Editor Cache"_s)).isEmpty());
}

TEST_F(CustomShredTest, DamagedStoredDataOrDataOfAnotherShapeReadsAsNoProcesses)
{
    const QByteArray good = CustomShred::archive({{editor, QVariantList{QVariantMap{{u"path"_s, u"/tmp/x"_s}}}}});
    EXPECT_EQ(CustomShred::unarchive(good).keys(), QStringList{editor});
    EXPECT_TRUE(CustomShred::unarchive(good.left(good.size() - 3)).isEmpty());
    EXPECT_TRUE(CustomShred::unarchive("garbage").isEmpty());
    EXPECT_TRUE(CustomShred::unarchive(good + "trailing").isEmpty());
    defaults.setObject(QByteArray("\xff\xff\xff\xff"), u"mProcessDictionary"_s);
    EXPECT_TRUE(CustomShred(defaults).processes().isEmpty());

    // The settings file is anyone's to rewrite: a list claiming four billion
    // entries is read entry by entry, and ends where the data does.
    QByteArray huge;
    QDataStream out(&huge, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_4);
    out << quint32(1) << editor << quint32(QMetaType::QVariantList) << qint8(0) << quint32(0xffffffff);
    EXPECT_TRUE(CustomShred::unarchive(huge).isEmpty());

    // Only the shape the program writes is read; any other type, even one Qt could
    // build, makes the data damaged as a whole.
    const auto archiveOf = [](const QVariant& entries) {
        QByteArray data;
        QDataStream stream(&data, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_6_4);
        stream << QVariantMap{{u"/Applications/Editor.app"_s, entries}};
        return data;
    };
    for (const QVariant& entries :
         {QVariant(QVariantList{QUrl(u"file:///tmp/x"_s)}), QVariant(QVariantList{QVariantMap{{u"path"_s, 3}}}),
          QVariant(u"/tmp/x"_s), QVariant(QVariantList{QVariantMap{{u"path"_s, u"/tmp/x"_s}, {u"keep"_s, u"yes"_s}}})})
        EXPECT_TRUE(CustomShred::unarchive(archiveOf(entries)).isEmpty()) << qPrintable(entries.toString());

    const QVariantMap written{{editor, QVariantList{QVariantMap{{u"path"_s, u"/tmp/kept"_s}, {u"keep"_s, true}},
                                                    QVariantMap{{u"path"_s, u"/tmp/x"_s}}}}};
    EXPECT_EQ(CustomShred::unarchive(archiveOf(written.value(editor))), written);
}
