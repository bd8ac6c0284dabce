#include "cleaners/JsonPreferenceEdit.h"

#include "support/TempHome.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;
using Code = Error::Code;

namespace {

const QByteArray kLocalState =
    R"({"browser":{"last_redirect_origin":""},"StartupDNSPrefetchList":["www.example.com","mail.example.org"],)"
    R"("big":13245678901234567890,"negative":-9007199254740993,"ratio":0.1,"text":"caf\u00e9 \u2603 ü",)"
    R"("zeta":1,"alpha":{"nested":[1,2,{"deep":true}]}})";

ino_t inodeOf(const QString& path)
{
    struct stat info {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_ino : 0;
}

class JsonEditTest : public ::testing::Test {
protected:
    QString file() const { return home.file(u"Chrome/Local State"_s); }

    // The file keeps every byte and no old copy appears.
    void expectUntouched(const QByteArray& original) const
    {
        EXPECT_EQ(home.read(u"Chrome/Local State"_s), original);
        EXPECT_FALSE(QFileInfo::exists(JsonPreferenceEdit::oldCopyPath(file())));
    }

    TempHome home;
};

// In a child process whose file-size limit is below the new text: exits with the result.
[[noreturn]] void editUnderASizeLimit(const QString& file)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{40, 40};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::_Exit(int(JsonPreferenceEdit::removeKey(file, u"StartupDNSPrefetchList"_s, false, false).code));
}

} // namespace

TEST_F(JsonEditTest, RemovesTheKeyKeepsEverythingElseAndLeavesTheOldFileToErase)
{
    home.write(u"Chrome/Local State"_s, kLocalState);
    // Read-only as well: rewritten all the same, and read-only again.
    ASSERT_EQ(::chmod(QFile::encodeName(file()).constData(), 0444), 0);
    const ino_t original = inodeOf(file());

    ASSERT_EQ(JsonPreferenceEdit::removeKey(file(), u"StartupDNSPrefetchList"_s, true, false).code, Code::None);
    EXPECT_EQ(home.read(u"Chrome/Local State"_s),
              QByteArray(R"({"browser":{"last_redirect_origin":""},"big":13245678901234567890,)"
                         R"("negative":-9007199254740993,"ratio":0.1,"text":"café ☃ ü","zeta":1,)"
                         R"("alpha":{"nested":[1,2,{"deep":true}]}})"));
    // The old copy is the very file that held the host list, so erasing it erases those blocks.
    const QString oldCopy = home.file(u"Chrome/Local State.vantlex"_s);
    EXPECT_EQ(home.read(u"Chrome/Local State.vantlex"_s), kLocalState);
    EXPECT_EQ(inodeOf(oldCopy), original);
    EXPECT_NE(inodeOf(file()), original);
    EXPECT_EQ(QFileInfo(file()).permissions(), QFileInfo(oldCopy).permissions());
}

TEST_F(JsonEditTest, FilesThatAreNotAJsonObjectOrNestedDeeperThanAnyBrowserWritesAreLeftAsTheyWere)
{
    // A few hundred KB of brackets once overflowed the stack and ended the whole
    // run, the deeper the sooner (a key after the deep value copies it).
    const auto nested = [](int depth) {
        return "{\"StartupDNSPrefetchList\":[],\"deep\":" + QByteArray(depth, '[') + QByteArray(depth, ']') +
               ",\"after\":1}";
    };
    const QList<QByteArray> bad{
        {},
        "not json at all",
        "[1, 2, 3]",
        "\"just a string\"",
        "{\"StartupDNSPrefetchList\": [\"a\"], \"x\": \"\xff\xfe\"}", // not UTF-8
        "{\"StartupDNSPrefetchList\": [\"a\"], ",                     // truncated
        nested(100000),
        nested(1000000),
        // Far larger than any browser's preferences.
        "{\"StartupDNSPrefetchList\":[],\"pad\":\"" + QByteArray(50 * 1024 * 1024, 'x') + "\"}",
    };
    for (const QByteArray& contents : bad) {
        home.write(u"Chrome/Local State"_s, contents);
        EXPECT_EQ(JsonPreferenceEdit::removeKey(file(), u"StartupDNSPrefetchList"_s, false, false).code,
                  Code::Unreadable)
            << contents.left(60).constData();
        expectUntouched(contents);
    }
    EXPECT_EQ(JsonPreferenceEdit::removeKey(home.file(u"missing"_s), u"k"_s, false, false).code, Code::Unreadable);
    EXPECT_EQ(JsonPreferenceEdit::removeKey(home.file(u"Chrome"_s), u"k"_s, false, false).code, Code::Unreadable);

    // As deep as a browser's own reader goes, and then some: edited as usual.
    home.write(u"Chrome/Local State"_s, nested(500));
    EXPECT_EQ(JsonPreferenceEdit::removeKey(file(), u"StartupDNSPrefetchList"_s, true, false).code, Code::None);
    EXPECT_EQ(home.read(u"Chrome/Local State"_s),
              "{\"deep\":" + QByteArray(500, '[') + QByteArray(500, ']') + ",\"after\":1}");
}

TEST_F(JsonEditTest, AMissingRequiredKeyAndADryRunChangeNothingAndAKeyThatIsNotRequiredNeedNotBeThere)
{
    const QByteArray withoutKey = R"({"profile":{"name":"me"}})";
    home.write(u"Chrome/Local State"_s, withoutKey);
    EXPECT_EQ(JsonPreferenceEdit::removeKey(file(), u"dns_prefetching"_s, true, false).code, Code::KeyNotFound);
    expectUntouched(withoutKey);

    home.write(u"Chrome/Local State"_s, kLocalState);
    EXPECT_EQ(JsonPreferenceEdit::removeKey(file(), u"StartupDNSPrefetchList"_s, true, true).code, Code::None);
    expectUntouched(kLocalState);

    // Without a key that is not required the file is still rewritten.
    const QByteArray spaced = R"({"profile": {"name": "me"}})";
    home.write(u"Chrome/Local State"_s, spaced);
    // An old copy left by an interrupted run is replaced.
    home.write(u"Chrome/Local State.vantlex"_s, "stale");
    EXPECT_EQ(JsonPreferenceEdit::removeKey(file(), u"StartupDNSPrefetchList"_s, false, false).code, Code::None);
    EXPECT_EQ(home.read(u"Chrome/Local State"_s), R"({"profile":{"name":"me"}})");
    EXPECT_EQ(home.read(u"Chrome/Local State.vantlex"_s), spaced);
}

TEST_F(JsonEditTest, AFailedWriteLeavesTheOriginalInPlace)
{
    home.write(u"Chrome/Local State"_s, kLocalState);
    EXPECT_EXIT(editUnderASizeLimit(file()), ::testing::ExitedWithCode(int(Code::WriteFailed)), "");
    expectUntouched(kLocalState);
    EXPECT_EQ(QDir(home.file(u"Chrome"_s)).entryList(QDir::Files | QDir::Hidden), QStringList{u"Local State"_s});
}
