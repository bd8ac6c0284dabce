// The erase engine in-process: overwrite throughput per pattern and method on
// one large file, and the cost of drawing a buffer of random words. Runs in a
// temporary home; the real home folder is never touched.

#include "erase/FileAccess.h"
#include "platform/LoginItem.h"
#include "settings/Preferences.h"
#include "settings/SettingsPanelState.h"
#include "settings/UserDefaults.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kFileSize = 256 * 1024 * 1024;

class NoLoginItem final : public LoginItem {
public:
    QString applicationPath() const override { return {}; }
    QString path() const override { return {}; }
    void remove() override {}
    void create(const QString&, bool) override {}
    void setHidden(bool) override {}
};

struct Bench {
    QTemporaryDir home;
    std::unique_ptr<UserDefaults> defaults;
    NoLoginItem loginItem;
    std::unique_ptr<Preferences> preferences;
    QByteArray file;

    Bench()
    {
        qputenv("HOME", QFile::encodeName(home.path()));
        qunsetenv("XDG_CONFIG_HOME");
        defaults = std::make_unique<UserDefaults>(UserDefaults::defaultFilePath());
        preferences = std::make_unique<Preferences>(*defaults, loginItem);
        file = QFile::encodeName(home.filePath(u"big.bin"_s));
    }

    FileAccess engine(qint64 pattern, qint64 numberOfWrites, bool dod)
    {
        QVariantMap values = preferences->displayedValues();
        values.insert(u"OverwritePattern"_s, pattern);
        values.insert(u"NumberOfWrites"_s, numberOfWrites);
        values.insert(u"DoDSanitize"_s, dod);
        preferences->miscChanged(panelStateFromValues(values));
        return FileAccess(*preferences);
    }

    // A fresh file of the benchmark's size: the tail written past the end is cut off again.
    void makeFile() const
    {
        QFile out(QFile::decodeName(file));
        out.open(QIODevice::WriteOnly | QIODevice::Truncate);
        out.resize(kFileSize);
    }
};

Bench& bench()
{
    static Bench instance;
    return instance;
}

void overwrite(benchmark::State& state, qint64 pattern, qint64 numberOfWrites, bool dod, int passes)
{
    Bench& b = bench();
    FileAccess engine = b.engine(pattern, numberOfWrites, dod);
    for (auto _ : state) {
        state.PauseTiming();
        b.makeFile();
        state.ResumeTiming();
        engine.shredOneFile(b.file);
    }
    state.SetBytesProcessed(state.iterations() * kFileSize * passes);
    state.counters["file_MB/s"] =
        benchmark::Counter(double(kFileSize) / 1e6 * double(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_OverwriteZerosOnePass(benchmark::State& state)
{
    overwrite(state, 3, 2, false, 1);
}
void BM_OverwriteRandomOnePass(benchmark::State& state)
{
    overwrite(state, 0, 2, false, 1);
}
void BM_OverwriteDoD(benchmark::State& state)
{
    overwrite(state, 3, 2, true, 3);
}

void BM_RandomizeBuffer(benchmark::State& state)
{
    Bench& b = bench();
    FileAccess engine = b.engine(0, 2, false);
    for (auto _ : state)
        engine.randomize();
    state.SetBytesProcessed(state.iterations() * qint64(FileAccess::kChunkSize));
}

void BM_RandomName(benchmark::State& state)
{
    Bench& b = bench();
    FileAccess engine = b.engine(0, 2, false);
    for (auto _ : state) {
        engine.randomizeName();
        benchmark::DoNotOptimize(engine.currentName());
    }
}

} // namespace

BENCHMARK(BM_OverwriteZerosOnePass)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_OverwriteRandomOnePass)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_OverwriteDoD)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_RandomizeBuffer)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RandomName);

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
