#include "VLANKit/Platform.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/support/RefreshReads.h"
#include "tests/support/SyntheticMachine.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QByteArray preferencesOf(const QString &folder)
{
    QFile file(folder + u"/preferences.plist"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What parsing the preferences of a machine of that size takes, in seconds: the unit in which
// every other figure here is also given, as "xParse".
double parseSeconds(int vlanCount)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), vlanCount);
    const QByteArray bytes = preferencesOf(folder.path());
    constexpr int rounds = 5;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < rounds; ++i)
        benchmark::DoNotOptimize(parsePropertyList(bytes));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / rounds;
}

// The time of one iteration as a multiple of parsing the same machine's document.
void reportRatio(benchmark::State &state, double iterationSeconds)
{
    state.counters["VLANs"] = static_cast<double>(state.range(0));
    state.counters["xParse"] = iterationSeconds / parseSeconds(static_cast<int>(state.range(0)));
}

double secondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void ParseDocument(benchmark::State &state)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), static_cast<int>(state.range(0)));
    const QByteArray bytes = preferencesOf(folder.path());
    for (auto _ : state)
        benchmark::DoNotOptimize(parsePropertyList(bytes));
    state.counters["VLANs"] = static_cast<double>(state.range(0));
}

// One reading cycle of the window: a fresh store, its VLANs, services and adapters.
void ReadCycle(benchmark::State &state)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), static_cast<int>(state.range(0)));
    const Platform platform = Platform::overFolder(folder.path());
    double total = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        VLANStore store(platform);
        benchmark::DoNotOptimize(store.vlans());
        benchmark::DoNotOptimize(store.services());
        benchmark::DoNotOptimize(store.availableAdapters());
        benchmark::DoNotOptimize(store.adaptersWithoutService());
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

// The reads of one refresh of the window, on one store, after a network event: the document
// has changed since the last read, so the store parses it once.
void RefreshReads(benchmark::State &state)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), static_cast<int>(state.range(0)));
    const Platform platform = Platform::overFolder(folder.path());
    const Defaults defaults = Defaults::inFile(folder.filePath(u"defaults.plist"_s));
    QFile preferences(folder.filePath(u"preferences.plist"_s));
    {
        // The window has refreshed before: what the backend learns once per process is known.
        VLANStore first(platform);
        readAsARefreshDoes(first, u"Show"_s, defaults);
    }
    double total = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // A new modification time is a new version of the document to the backend.
        (void)preferences.open(QIODevice::ReadWrite);
        (void)preferences.setFileTime(QDateTime::currentDateTime().addSecs(state.iterations()),
                                      QFileDevice::FileModificationTime);
        preferences.close();
        state.ResumeTiming();
        const auto start = std::chrono::steady_clock::now();
        VLANStore store(platform);
        readAsARefreshDoes(store, u"Show"_s, defaults);
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

// A second store on a document that nobody changed since the first one read it.
void OpenUnchanged(benchmark::State &state)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), static_cast<int>(state.range(0)));
    const Platform platform = Platform::overFolder(folder.path());
    const VLANStore first(platform);
    double total = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const VLANStore second(platform);
        benchmark::DoNotOptimize(second.prefs());
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

Profile profileOf(int count)
{
    Profile profile;
    profile.name = u"Bench"_s;
    for (int tag = 1; tag <= count; ++tag) {
        profile.entries.append(ProfileEntry{tag, u"Net %1"_s.arg(tag),
                                            IPConfig{IPMode::manual,
                                                     u"10.%1.%2.5"_s.arg(tag / 256).arg(tag % 256),
                                                     u"255.255.255.0"_s,
                                                     std::nullopt,
                                                     {}},
                                            true});
    }
    return profile;
}

// Planning a project of that many new VLANs on an empty trunk.
void PlanApply(benchmark::State &state)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), 0);
    const Platform platform = Platform::overFolder(folder.path());
    const Profile profile = profileOf(static_cast<int>(state.range(0)));
    double total = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        VLANStore store(platform);
        benchmark::DoNotOptimize(store.planApply(profile, u"en5"_s));
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

// Building that many VLANs in one transaction: staging, the commit and the apply.
void ExecuteCreations(benchmark::State &state)
{
    const Profile profile = profileOf(static_cast<int>(state.range(0)));
    double total = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir folder;
        writeSyntheticMachine(folder.path(), 0);
        const Platform platform = Platform::overFolder(folder.path());
        const Plan plan = VLANStore(platform).planApply(profile, u"en5"_s);
        NetworkAuthorization authorization(platform);
        authorization.acquire();
        VLANStore store(platform, authorization);
        state.ResumeTiming();
        const auto start = std::chrono::steady_clock::now();
        store.execute(plan);
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

// Deleting every VLAN of the machine in one transaction: staging, the commit and the apply.
void ExecuteRemovals(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    QList<qint64> tags;
    for (int tag = 1; tag <= count; ++tag)
        tags.append(tag);
    double total = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir folder;
        writeSyntheticMachine(folder.path(), count);
        const Platform platform = Platform::overFolder(folder.path());
        const Plan plan = VLANStore(platform).planDelete(tags, std::nullopt);
        NetworkAuthorization authorization(platform);
        authorization.acquire();
        VLANStore store(platform, authorization);
        state.ResumeTiming();
        const auto start = std::chrono::steady_clock::now();
        store.execute(plan);
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

void Sizes(benchmark::internal::Benchmark *benchmark)
{
    for (int count : {16, 256, 1024, 4094})
        benchmark->Arg(count);
    benchmark->Unit(benchmark::kMillisecond);
}

BENCHMARK(ParseDocument)->Apply(Sizes);
BENCHMARK(ReadCycle)->Apply(Sizes);
BENCHMARK(RefreshReads)->Apply(Sizes);
BENCHMARK(OpenUnchanged)->Apply(Sizes);
BENCHMARK(PlanApply)->Apply(Sizes);
BENCHMARK(ExecuteCreations)->Apply(Sizes)->Iterations(1);
BENCHMARK(ExecuteRemovals)->Apply(Sizes)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// The window's whole read: the model's reload over a fresh store, merged with the rows it
// already shows, as after every network event.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/files/Defaults.h"

namespace {

/// Reloads a model over a machine of that many VLANs; with `changed`, the preferences document
/// is given a new modification time before each read, so that each read parses it again, as
/// after a commit; without, the document stands, as after an event about links or addresses.
void reloadModel(benchmark::State &state, bool changed)
{
    QTemporaryDir folder;
    writeSyntheticMachine(folder.path(), static_cast<int>(state.range(0)));
    AppModel model(Platform::overFolder(folder.path()),
                   Defaults::inFile(folder.filePath(u"defaults.plist"_s)), false);
    // This program has no GUI application to measure fonts with: a fixed width per character
    // stands in for the name column's measure.
    model.measureName = [](const QString &name) { return 7.0 * double(name.size()); };
    model.reload();
    QFile preferences(folder.filePath(u"preferences.plist"_s));
    QDateTime stamp = QDateTime::currentDateTimeUtc();
    double total = 0;
    for (auto _ : state) {
        if (changed) {
            stamp = stamp.addSecs(1);
            (void)preferences.open(QIODevice::ReadWrite);
            (void)preferences.setFileTime(stamp, QFileDevice::FileModificationTime);
            preferences.close();
        }
        const auto start = std::chrono::steady_clock::now();
        model.reload();
        total += secondsSince(start);
    }
    reportRatio(state, total / static_cast<double>(state.iterations()));
}

void ModelReload(benchmark::State &state)
{
    reloadModel(state, true);
}

void ModelReloadUnchanged(benchmark::State &state)
{
    reloadModel(state, false);
}

BENCHMARK(ModelReload)->Apply(Sizes);
BENCHMARK(ModelReloadUnchanged)->Apply(Sizes);

} // namespace
