#include "erase/EraseTestSupport.h"
#include "log/ActivityLog.h"

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
        access.shredOneFile(path(relative));
        return passes;
    }
};

bool filledWith(const QByteArray& bytes, char value)
{
    return !bytes.isEmpty() && bytes.count(value) == bytes.size();
}

// Random data: no single byte value dominates.
bool looksRandom(const QByteArray& bytes)
{
    std::set<char> values(bytes.cbegin(), bytes.cend());
    return bytes.size() >= 1024 && values.size() > 200;
}

QString describe(const QList<Pass>& passes)
{
    QStringList parts;
    for (const Pass& pass : passes)
        parts << u"k=%1@%2+%3"_s.arg(pass.k).arg(pass.start).arg(pass.length);
    return parts.join(u' ');
}

const QByteArray kOneChunk(131072, 'u');

// Overwrites the files as a process that may write no file past limit bytes,
// and whose writes past it fail instead of ending it. Exits 0.
[[noreturn]] void overwriteWithFileSizeLimit(FileAccess& access, rlim_t limit, const QList<QByteArray>& files)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit sizes{limit, limit};
    if (::setrlimit(RLIMIT_FSIZE, &sizes) != 0)
        std::_Exit(3);
    for (const QByteArray& file : files)
        access.shredOneFile(file);
    std::_Exit(0);
}

} // namespace

TEST_F(OverwriteTest, FilesGrowByTheirLastChunkAndEmptyFilesStayEmpty)
{
    const QVariantMap onePass{{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}};

    const QList<Pass> empty = shred(u"empty"_s, {}, onePass);
    EXPECT_EQ(QFileInfo(home.file(u"empty"_s)).size(), 0);
    ASSERT_EQ(empty.size(), 2); // one chunk pass and one tail pass, of 0 bytes each
    EXPECT_EQ(empty[0].length, 0u);

    shred(u"ten"_s, "0123456789", onePass);
    EXPECT_EQ(home.read(u"ten"_s), QByteArray(20, '\0'));

    shred(u"chunk"_s, kOneChunk, onePass);
    EXPECT_EQ(home.read(u"chunk"_s), QByteArray(262144, '\0'));
}

TEST_F(OverwriteTest, EachChunkCompletesItsPassesBeforeTheNextAndTheTailComesLast)
{
    const QList<Pass> passes =
        shred(u"f"_s, QByteArray(300000, 'u'), {{u"NumberOfWrites"_s, qint64(3)}, {u"OverwritePattern"_s, qint64(6)}});
    const QList<std::pair<qint64, std::size_t>> expected{{0, 131072},      {0, 131072},     {131072, 131072},
                                                         {131072, 131072}, {262144, 37856}, {262144, 37856},
                                                         {300000, 37856},  {300000, 37856}};
    ASSERT_EQ(passes.size(), expected.size()) << qPrintable(describe(passes));
    for (qsizetype i = 0; i < passes.size(); ++i) {
        EXPECT_EQ(passes[i].start, expected[i].first) << i;
        EXPECT_EQ(passes[i].length, expected[i].second) << i;
        EXPECT_EQ(passes[i].k, i % 2 == 0 ? 2 : 1);
        EXPECT_TRUE(filledWith(passes[i].written, char(0xAA)));
    }
    EXPECT_EQ(home.read(u"f"_s), QByteArray(337856, char(0xAA)));
}

TEST_F(OverwriteTest, FixedPatternsFillEveryByte)
{
    const QList<std::pair<qint64, char>> patterns{{3, '\x00'}, {4, '\xFF'}, {5, '\x55'}, {6, '\xAA'}};
    for (const auto& [code, byte] : patterns) {
        shred(u"p"_s, "some secret text", {{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, code}});
        EXPECT_EQ(home.read(u"p"_s), QByteArray(32, byte)) << code;
    }
}

TEST_F(OverwriteTest, RandomPatternsWriteFreshDataOnEveryPass)
{
    for (const qint64 code : {0, 2}) {
        const QList<Pass> passes =
            shred(u"r"_s, kOneChunk, {{u"NumberOfWrites"_s, qint64(4)}, {u"OverwritePattern"_s, code}});
        ASSERT_EQ(passes.size(), 6) << qPrintable(describe(passes));
        for (const Pass& pass : passes)
            EXPECT_TRUE(looksRandom(pass.written));
        EXPECT_NE(passes[0].written, passes[1].written);
        EXPECT_NE(passes[1].written, passes[2].written);
        EXPECT_NE(passes[3].written, passes[4].written);
    }
}

TEST_F(OverwriteTest, DoDWritesFivesTensThenRandom)
{
    const QList<Pass> passes =
        shred(u"d"_s, kOneChunk,
              {{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}, {u"DoDSanitize"_s, true}});
    ASSERT_EQ(passes.size(), 6) << qPrintable(describe(passes));
    for (const int offset : {0, 3}) { // the chunk, then the tail
        EXPECT_EQ(passes[offset].k, 3);
        EXPECT_TRUE(filledWith(passes[offset].written, 0x55));
        EXPECT_TRUE(filledWith(passes[offset + 1].written, char(0xAA)));
        EXPECT_TRUE(looksRandom(passes[offset + 2].written));
    }
}

TEST_F(OverwriteTest, NSAWritesRandomTwiceThenZeros)
{
    const QList<Pass> passes = shred(
        u"n"_s, kOneChunk, {{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(4)}, {u"NSA"_s, true}});
    ASSERT_EQ(passes.size(), 6) << qPrintable(describe(passes));
    EXPECT_TRUE(looksRandom(passes[0].written));
    EXPECT_TRUE(looksRandom(passes[1].written));
    EXPECT_NE(passes[0].written, passes[1].written);
    EXPECT_TRUE(filledWith(passes[2].written, '\0'));
    EXPECT_EQ(home.read(u"n"_s), QByteArray(262144, '\0'));
}

TEST_F(OverwriteTest, BothMethodsWriteTheNSASequenceAfterTwoUserPasses)
{
    const QList<Pass> passes = shred(u"b"_s, kOneChunk,
                                     {{u"NumberOfWrites"_s, qint64(2)},
                                      {u"OverwritePattern"_s, qint64(4)},
                                      {u"DoDSanitize"_s, true},
                                      {u"NSA"_s, true}});
    ASSERT_EQ(passes.size(), 10) << qPrintable(describe(passes));
    EXPECT_EQ(passes[0].k, 5);
    EXPECT_TRUE(filledWith(passes[0].written, char(0xFF)));
    EXPECT_TRUE(filledWith(passes[1].written, char(0xFF)));
    EXPECT_TRUE(looksRandom(passes[2].written));
    EXPECT_TRUE(looksRandom(passes[3].written));
    EXPECT_TRUE(filledWith(passes[4].written, '\0'));
}

TEST_F(OverwriteTest, TwelveWritesWithDoDMakeFifteenPasses)
{
    const QList<Pass> passes =
        shred(u"t"_s, QByteArray(1000, 'u'),
              {{u"NumberOfWrites"_s, qint64(12)}, {u"OverwritePattern"_s, qint64(4)}, {u"DoDSanitize"_s, true}});
    ASSERT_EQ(passes.size(), 30) << qPrintable(describe(passes));
    for (int i = 0; i < 12; ++i)
        EXPECT_TRUE(filledWith(passes[i].written, char(0xFF))) << i;
    EXPECT_TRUE(filledWith(passes[12].written, 0x55));
    EXPECT_TRUE(filledWith(passes[13].written, char(0xAA)));
    EXPECT_FALSE(filledWith(passes[14].written, passes[14].written.at(0)));
}

TEST_F(OverwriteTest, RandomCountsAndTheWrappedSeparatorCount)
{
    // Index 0: one to four passes, drawn anew for the chunk and for the tail.
    std::set<qsizetype> counts;
    for (int i = 0; i < 40; ++i) {
        const QList<Pass> passes =
            shred(u"c"_s, "x", {{u"NumberOfWrites"_s, qint64(0)}, {u"OverwritePattern"_s, qint64(3)}});
        const qsizetype chunkPasses =
            std::count_if(passes.cbegin(), passes.cend(), [](const Pass& p) { return p.start == 0; });
        EXPECT_GE(chunkPasses, 1);
        EXPECT_LE(chunkPasses, 4);
        counts.insert(chunkPasses);
    }
    EXPECT_GE(counts.size(), 3u);

    // Index 1 counts 0 passes, which the countdown wraps to 65,536.
    const QList<Pass> wrapped =
        shred(u"w"_s, "x", {{u"NumberOfWrites"_s, qint64(1)}, {u"OverwritePattern"_s, qint64(3)}});
    EXPECT_EQ(wrapped.size(), 2 * 65536);
    EXPECT_EQ(wrapped.first().k, 0);
}

TEST_F(OverwriteTest, LinksAreNeverFollowedAndMissingOrUnopenableFilesAreSkipped)
{
    home.write(u"target"_s, "keep out");
    ASSERT_TRUE(QFile::link(home.file(u"target"_s), home.file(u"link"_s)));
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(4)}});
    access.shredOneFile(path(u"link"_s));
    EXPECT_EQ(home.read(u"target"_s), "keep out");
    EXPECT_TRUE(QFileInfo(home.file(u"link"_s)).isSymLink());

    access.shredOneFile(path(u"missing"_s));
    EXPECT_FALSE(QFileInfo::exists(home.file(u"missing"_s)));

    // A folder cannot be opened for writing: nothing happens to it.
    home.write(u"folder/inside"_s, "x");
    access.shredOneFile(path(u"folder"_s));
    EXPECT_EQ(home.read(u"folder/inside"_s), "x");
}

TEST_F(OverwriteTest, EachOverwrittenFileIsNamedInTheActivityLog)
{
    ActivityLog::openLog(home.file(u"log.txt"_s));
    shred(u"Caf\u00e9 \"quoted\".db"_s, "x", {{u"NumberOfWrites"_s, qint64(2)}});
    ActivityLog::closeLog();
    EXPECT_TRUE(home.read(u"log.txt"_s).endsWith(u" Caf\u00e9 \"quoted\".db\n"_s.toUtf8()));
}

TEST_F(OverwriteTest, AWriteThatFailsWithinTheContentsIsLoggedWithItsReason)
{
    // A disk that fills up after 200,000 bytes of a 300,000-byte file: the rest
    // cannot be overwritten, and the tail past the end is not what matters.
    home.write(u"cache.db"_s, QByteArray(300000, 'u'));
    home.write(u"small.db"_s, QByteArray(1000, 's'));
    ActivityLog::openLog(home.file(u"log.txt"_s));
    FileAccess& access = engine({{u"NumberOfWrites"_s, qint64(2)}, {u"OverwritePattern"_s, qint64(3)}});
    EXPECT_EXIT(overwriteWithFileSizeLimit(access, 200000, {path(u"cache.db"_s), path(u"small.db"_s)}),
                ::testing::ExitedWithCode(0), "");
    ActivityLog::closeLog();

    const QByteArray contents = home.read(u"cache.db"_s);
    EXPECT_EQ(contents.left(200000), QByteArray(200000, '\0'));
    EXPECT_EQ(contents.mid(200000), QByteArray(100000, 'u'));
    EXPECT_EQ(home.read(u"small.db"_s), QByteArray(2000, '\0'));
    QList<QByteArray> lines = home.read(u"log.txt"_s).split('\n');
    for (QByteArray& line : lines)
        line = line.mid(25); // after the time stamp
    EXPECT_EQ(lines, (QList<QByteArray>{"cache.db", "Overwrite failed (File too large): " + path(u"cache.db"_s),
                                        "small.db", ""}));
}

TEST(RandomNames, NineToThirtyTwoCharactersWithAAndBWeightedTwice)
{
    TempHome home;
    UserDefaults defaults(UserDefaults::defaultFilePath());
    FakeLoginItem loginItem;
    Preferences preferences(defaults, loginItem);
    FileAccess access(preferences);

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
