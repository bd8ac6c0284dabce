// Every cleaner whose work is a fixed list of paths, held against its own table:
// for every setting on and off, its header, its gate, a "Shred: " or "Skip: "
// line per path (or the item's own skip lines) in the table's order, and exactly
// the paths of the "Shred: " lines queued. The tables' texts are held against the
// transcript in the test data, so that a wrong entry is caught as well.
#include "cleaners/CleanerFixture.h"
#include "cleaners/MailCleanerTables.h"
#include "cleaners/MailCleaners.h"
#include "cleaners/SafariCleanerTables.h"
#include "cleaners/SafariCleaners.h"
#include "cleaners/SimpleCleanerTables.h"
#include "cleaners/SimpleCleaners.h"
#include "settings/ApplicationList.h"
#include "support/RecordingRunner.h"
#include "support/TestDatabase.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString kNotEnabled = u"Not enabled - check preferences to enable."_s;

struct Entry {
    const FixedCleaner& table;
    std::function<void()> run; // the cleaner as a run calls it
};

class FixedCleanersTest : public CleanerFixture {
protected:
    QList<Entry> entries()
    {
        using namespace SimpleCleanerTables;
        using namespace SafariCleanerTables;
        using namespace MailCleanerTables;
        return {{QuicktimeCache(), [this] { simple.QuicktimeCache(); }},
                {IE51(), [this] { simple.IE51(); }},
                {iCab28(), [this] { simple.iCab28(); }},
                {iCab30(), [this] { simple.iCab30(); }},
                {iCab411(), [this] { simple.iCab411(); }},
                {OmniWeb41(), [this] { simple.OmniWeb41(); }},
                {OmniWeb51(), [this] { simple.OmniWeb51(); }},
                {OmniWeb57(), [this] { simple.OmniWeb57(); }},
                {Opera50(), [this] { simple.Opera50(); }},
                {Opera60(), [this] { simple.Opera60(); }},
                {Opera70(), [this] { simple.Opera70(); }},
                {Opera80(), [this] { simple.Opera80(); }},
                {Opera90(), [this] { simple.Opera90(); }},
                {Opera100(), [this] { simple.Opera100(); }},
                {Opera110(), [this] { simple.Opera110(); }},
                {Safari10(), [this] { safari.Safari10(); }},
                {Safari30(), [this] { safari.Safari30(); }},
                {Safari60(), [this] { safari.Safari60(); }},
                {Shiira12(), [this] { safari.Shiira12(); }},
                {Shiira20(), [this] { safari.Shiira20(); }},
                {AppleMail11(), [this] { mail.AppleMail11(); }},
                {MailCache(), [this] { mail.MailCache(); }},
                {Eudora51(), [this] { mail.Eudora51(); }},
                {Eudora62(), [this] { mail.Eudora62(); }}};
    }

    // Every boolean setting, on where on() says so.
    void setKeys(const std::function<bool(QLatin1StringView)>& on)
    {
        QVariantMap values = preferences.displayedValues();
        for (const PreferenceDefinition& definition : kPreferenceTable) {
            if (definition.type == PreferenceType::Boolean)
                values.insert(definition.key, on(definition.key));
        }
        preferences.miscChanged(panelStateFromValues(values));
    }

    // What the table says the cleaner writes and queues with the settings as they are.
    QStringList expected(const FixedCleaner& cleaner, QStringList& queued)
    {
        QStringList lines{cleaner.header};
        if (!cleaner.enabledName.isEmpty() && !preferences.browserIsEnabled(cleaner.enabledName))
            return lines << kNotEnabled << QString();
        const auto setting = [this](QLatin1StringView key) { return preferences.valueForKey(key).toBool(); };
        for (const CleanerItem& item : cleaner.items) {
            const bool on = setting(item.key) && (item.unlessKey.isEmpty() || !setting(item.unlessKey));
            if (!on && item.skipLines) {
                for (const QString& line : *item.skipLines)
                    lines << u"Skip: "_s + line;
                continue;
            }
            for (const QString& path : item.paths) {
                lines << (on ? u"Shred: "_s : u"Skip: "_s) + path;
                if (on)
                    queued << expanded(path);
            }
        }
        if (cleaner.closingEmptyLine)
            lines << QString();
        return lines;
    }

    // Runs every cleaner and holds each against its table.
    void expectEveryCleanerAsItsTableSays(const char* settings)
    {
        for (const Entry& entry : entries()) {
            queue.takePaths();
            QStringList queued;
            EXPECT_EQ(run(entry.run), expected(entry.table, queued)) << settings;
            EXPECT_EQ(paths, queued) << qPrintable(entry.table.header) << ", " << settings;
            EXPECT_TRUE(touches.isEmpty());
        }
    }

    QStringList runAll()
    {
        return run([this] {
            for (const Entry& entry : entries())
                entry.run();
        });
    }

    RecordingRunner runner;
    SimpleCleaners simple{context};
    SafariCleaners safari{context, &runner};
    MailCleaners mail{context, defaults};
};

} // namespace

TEST_F(FixedCleanersTest, EveryCleanerWritesAndQueuesWhatItsTableSaysForEverySetting)
{
    setKeys([](QLatin1StringView) { return true; });
    expectEveryCleanerAsItsTableSays("everything on");
    setKeys([](QLatin1StringView) { return false; });
    expectEveryCleanerAsItsTableSays("everything off");
    for (const PreferenceDefinition& definition : kPreferenceTable) {
        if (definition.type != PreferenceType::Boolean)
            continue;
        const QString key = definition.key;
        setKeys([&](QLatin1StringView other) { return other != definition.key; });
        expectEveryCleanerAsItsTableSays(qPrintable(u"all but "_s + key));
        setKeys([&](QLatin1StringView other) { return other == definition.key; });
        expectEveryCleanerAsItsTableSays(qPrintable(u"only "_s + key));
    }

    // An application that is not enabled: header, reason and empty line, whatever the settings.
    setKeys([](QLatin1StringView) { return true; });
    for (const QString& name : ApplicationList::allNames())
        disable(name);
    expectEveryCleanerAsItsTableSays("no application enabled");
    EXPECT_TRUE(runner.calls.isEmpty());
}

TEST_F(FixedCleanersTest, TheTablesTextsAreTheLogsFixedWordings)
{
    // With every setting on, then off: the transcript in the test data, line by line.
    setAllKeys(true);
    QStringList transcript = runAll();
    setAllKeys(false);
    transcript += runAll();
    const QStringList wanted = QString::fromUtf8(testData(u"fixed-cleaners.log"_s)).split(u'\n');
    EXPECT_EQ(transcript, wanted.mid(0, wanted.size() - 1));
}

TEST_F(FixedCleanersTest, ICabFourAsksAgainAfterItsCache)
{
    setAllKeys(true);
    int asked = 0;
    context.setBrowserIsEnabledForTesting([&](const QString& name) {
        EXPECT_EQ(name, u"iCab"_s);
        return ++asked == 1; // enabled at the gate, no longer after the cache
    });
    EXPECT_EQ(run([&] { simple.iCab411(); }),
              (QStringList{u"iCab v4"_s, u"Shred: ~/Library/Caches/iCab/Cache.db"_s, u""_s}));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(paths, QStringList{expanded(u"~/Library/Caches/iCab/Cache.db"_s)});
}

TEST_F(FixedCleanersTest, OperaCacheFoldersEndInTheFlorinSignInUtf8)
{
    setAllKeys(true);
    run([&] {
        simple.Opera50();
        simple.Opera60();
        simple.Opera70();
    });
    for (const qsizetype index : {0, 4, 10}) {
        ASSERT_LT(index, paths.size());
        EXPECT_TRUE(paths[index].toUtf8().endsWith("Cache \xC6\x92")) << qPrintable(paths[index]);
    }
}
