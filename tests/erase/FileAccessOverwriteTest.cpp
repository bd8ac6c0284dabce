#include "erase/EraseTestSupport.h"
#include "log/ActivityLog.h"
#include "support/LogLines.h"

#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <set>

using namespace Qt::StringLiterals;

namespace {

struct Pass {
    qint64 start;
    std::size_t length;
    quint16 k;
    QByteArray written; // what the range holds right after the pass
};

class OverwriteTest : public ::testing::Test, protected EngineFixture {
protected:
    // Shreds one file and records every pass with the bytes it left.
    QList<Pass> shred(const QString& relative, const QByteArray& contents, const QVariantMap& settings)
    {
        home.write(relative, contents);
        FileAccess& access = engine(settings);
        QList<Pass> passes;
        access.setPassObserverForTesting([&](const QByteArray& file, qint64 start, std::size_t length, quint16 k) {
            QFile in(QFile::decodeName(file));
            in.open(QIODevice::ReadOnly);
            in.seek(start);
            passes.append({start, length, k, in.read(qint64(length))});
        });
        EXPECT_TRUE(access.shredOneFile(path(relative)).ok());
        return passes;
    }
};

// Random data: no single byte value dominates.
bool looksRandom(const QByteArray& bytes)
{
    return bytes.size() >= 1024 && std::set<char>(bytes.cbegin(), bytes.cend()).size() > 200;
}

const QByteArray kOneChunk(131072, 'u');
constexpr int kRandom = -1;

// Overwrites both files as a process that may write no file past 200,000
// bytes, and whose writes past it fail instead of ending it. Exits 0 when the
// first file's overwrite failed for that reason and the second's did not.
[[noreturn]] void overwriteWithFileSizeLimit(FileAccess& access, const QByteArray& large, const QByteArray& small)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit sizes{200000, 200000};
    const Error failed = ::setrlimit(RLIMIT_FSIZE, &sizes) == 0 ? access.shredOneFile(large) : Error{};
    const bool expected = failed.code == Error::Code::OverwriteFailed && failed.systemError == EFBIG &&
                          failed.path == large && access.shredOneFile(small).ok() && access.tally().notOverwritten == 1;
    std::_Exit(expected ? 0 : 1);
}

} // namespace

TEST_F(OverwriteTest, EachChunkCompletesItsPassesBeforeTheNextTheFileGrowsByItsLastChunkAndNothingButAFileIsWritten)
{
    const QList<Pass> passes = shred(u"f"_s, QByteArray(300000, 'u'), eraseSettings(3, 6));
    // Three chunks, the last of 37,856 bytes, then a tail of that length past the end: two passes each.
    ASSERT_EQ(passes.size(), 8);
    for (qsizetype i = 0; i < passes.size(); ++i) {
        EXPECT_EQ(passes[i].start, std::min<qint64>(i / 2 * 131072, 300000)) << i;
        EXPECT_EQ(passes[i].length, i < 4 ? 131072u : 37856u) << i;
    }
    EXPECT_EQ(home.read(u"f"_s), QByteArray(337856, char(0xAA)));

    // An empty file gets one pass of nothing, and a file of exactly one chunk grows by one.
    const QList<Pass> empty = shred(u"empty"_s, {}, eraseSettings(2, 3));
    ASSERT_EQ(empty.size(), 2);
    EXPECT_EQ(empty[0].length + empty[1].length, 0u);
    EXPECT_EQ(QFileInfo(home.file(u"empty"_s)).size(), 0);
    shred(u"chunk"_s, kOneChunk, eraseSettings(2, 3));
    EXPECT_EQ(home.read(u"chunk"_s), QByteArray(262144, '\0'));

    // Links, folders and missing files are never written.
    home.write(u"target"_s, "keep out");
    ASSERT_TRUE(QFile::link(home.file(u"target"_s), home.file(u"link"_s)));
    home.write(u"folder/inside"_s, "x");
    for (const QString& relative : {u"link"_s, u"missing"_s, u"folder"_s})
        EXPECT_TRUE(access->shredOneFile(path(relative)).ok()) << qPrintable(relative);
    EXPECT_EQ(home.read(u"target"_s), "keep out");
    EXPECT_TRUE(QFileInfo(home.file(u"link"_s)).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(home.file(u"missing"_s)));
    EXPECT_EQ(home.read(u"folder/inside"_s), "x");
}

TEST_F(OverwriteTest, EachPassWritesThePatternThatTheSettingsAndMethodsGiveIt)
{
    // The byte each pass leaves, or fresh random data; the same for the chunk and
    // for the tail past its end. DoD ends in 55, AA, random; NSA in random twice, zeros.
    const QList<std::pair<QVariantMap, QList<int>>> cases{
        {eraseSettings(2, 3), {0x00}},
        {eraseSettings(2, 4), {0xFF}},
        {eraseSettings(2, 5), {0x55}},
        {eraseSettings(2, 6), {0xAA}},
        {eraseSettings(4, 0), {kRandom, kRandom, kRandom}},
        {eraseSettings(4, 2), {kRandom, kRandom, kRandom}},
        {eraseSettings(2, 3, true), {0x55, 0xAA, kRandom}},
        {eraseSettings(2, 4, false, true), {kRandom, kRandom, 0x00}},
        {eraseSettings(2, 4, true, true), {0xFF, 0xFF, kRandom, kRandom, 0x00}},
        {eraseSettings(12, 4, true), QList<int>(12, 0xFF) + QList<int>{0x55, 0xAA, kRandom}},
    };
    for (qsizetype c = 0; c < cases.size(); ++c) {
        const auto& [chosen, bytes] = cases[c];
        const QString name = u"case %1"_s.arg(c);
        const QList<Pass> passes = shred(name, kOneChunk, chosen);
        ASSERT_EQ(passes.size(), 2 * bytes.size()) << qPrintable(name);
        for (qsizetype i = 0; i < passes.size(); ++i) {
            const Pass& pass = passes[i];
            const int expected = bytes[i % bytes.size()];
            EXPECT_EQ(pass.k, bytes.size() - i % bytes.size()) << qPrintable(name) << " pass " << i;
            if (expected == kRandom) {
                EXPECT_TRUE(looksRandom(pass.written)) << qPrintable(name) << " pass " << i;
                EXPECT_TRUE(i == 0 || pass.written != passes[i - 1].written) << qPrintable(name) << " pass " << i;
            } else {
                EXPECT_EQ(pass.written, QByteArray(pass.written.size(), char(expected)))
                    << qPrintable(name) << " pass " << i;
            }
        }
        if (bytes.last() != kRandom) {
            EXPECT_EQ(home.read(name), QByteArray(262144, char(bytes.last()))) << qPrintable(name);
        }
    }
}

TEST_F(OverwriteTest, RandomCountsAndTheWrappedSeparatorCount)
{
    // Index 0: one to four passes, drawn anew for the chunk and for the tail.
    std::set<qsizetype> counts;
    for (int i = 0; i < 40; ++i) {
        const QList<Pass> passes = shred(u"c"_s, "x", eraseSettings(0, 3));
        counts.insert(std::count_if(passes.cbegin(), passes.cend(), [](const Pass& p) { return p.start == 0; }));
    }
    EXPECT_GE(counts.size(), 3u);
    EXPECT_GE(*counts.begin(), 1);
    EXPECT_LE(*counts.rbegin(), 4);

    // Index 1 counts 0 passes, which the countdown wraps to 65,536.
    const QList<Pass> wrapped = shred(u"w"_s, "x", eraseSettings(1, 3));
    EXPECT_EQ(wrapped.size(), 2 * 65536);
    EXPECT_EQ(wrapped.first().k, 0);
}

TEST_F(OverwriteTest, AWriteThatFailsWithinTheContentsIsReportedAfterTheFileIsNamed)
{
    // A disk that fills up after 200,000 bytes of a 300,000-byte file: the rest
    // cannot be overwritten, and the tail past the end is not what matters.
    home.write(u"cache.db"_s, QByteArray(300000, 'u'));
    home.write(u"Caf\u00e9 \"quoted\".db"_s, QByteArray(1000, 's'));
    ActivityLog::openLog(home.file(u"log.txt"_s));
    FileAccess& access = engine(eraseSettings(2, 3));
    EXPECT_EXIT(overwriteWithFileSizeLimit(access, path(u"cache.db"_s), path(u"Caf\u00e9 \"quoted\".db"_s)),
                ::testing::ExitedWithCode(0), "");
    ActivityLog::closeLog();

    const QByteArray contents = home.read(u"cache.db"_s);
    EXPECT_EQ(contents.left(200000), QByteArray(200000, '\0'));
    EXPECT_EQ(contents.mid(200000), QByteArray(100000, 'u'));
    EXPECT_EQ(home.read(u"Caf\u00e9 \"quoted\".db"_s), QByteArray(2000, '\0'));
    EXPECT_EQ(logLinesOf(home.read(u"log.txt"_s)),
              (QStringList{u"cache.db"_s, u"Overwrite failed (File too large): "_s + home.file(u"cache.db"_s),
                           u"Caf\u00e9 \"quoted\".db"_s}));
}

TEST(RandomNames, NineToThirtyTwoCharactersWithAAndBWeightedTwice)
{
    EngineFixture fixture;
    FileAccess& access = fixture.engine({});
    const QByteArray alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    std::set<qsizetype> lengths;
    QHash<char, int> counts;
    for (int i = 0; i < 20000; ++i) {
        access.randomizeName();
        const QByteArray name(access.currentName());
        lengths.insert(name.size());
        for (const char c : name) {
            ASSERT_TRUE(alphabet.contains(c)) << name.constData();
            ++counts[c];
        }
    }
    EXPECT_EQ(*lengths.begin(), 9);
    EXPECT_EQ(*lengths.rbegin(), 32);
    EXPECT_EQ(lengths.size(), 24u);
    // A and B stand twice in the 64-character table: about twice as frequent as C or Z.
    EXPECT_GT(counts['A'], counts['C'] * 3 / 2);
    EXPECT_GT(counts['B'], counts['Z'] * 3 / 2);
    EXPECT_LT(counts['C'], counts['A'] * 2 / 3);
}
