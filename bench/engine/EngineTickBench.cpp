// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of one engine tick of the simulated console under full load: every
// patchable address patched, a fade running on every channel (and, on Maple,
// on the devices' pan and tilt).
#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "EngineTestCodes.h"
#include "RecordArea.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

namespace {
constexpr quint32 stepDirectCue = 2;
constexpr quint16 longestTime = 65535; // tenths: the fade outlasts the run

struct LoadedConsole
{
    std::unique_ptr<char[]> memory{new char[RecordArea::end]()};
    ConsoleStateRecord* record = reinterpret_cast<ConsoleStateRecord*>(memory.get());
    EngineNotifier notifier; // no handler: notifications go nowhere
    ConsoleSimulation simulation;

    explicit LoadedConsole(const ModelProfile& profile) : simulation(record, notifier, profile)
    {
        simulation.start(QStringLiteral("bench"));
        ConsoleStateRecord& r = *record;
        for (int address = 0; address < r.patchAddressCount; ++address)
            r.dmxPatch[address] = quint8(address % r.channelCount + 1);
        // Two cues: everything dark, then everything at full with parameters.
        for (int cue = 0; cue < 2; ++cue) {
            ContentRecord& content = r.cueContents[cue];
            std::memset(static_cast<void*>(&content), 0, sizeof content);
            std::memset(content.channelLevels, cue ? 255 : 0, size_t(r.channelCount));
            for (int d = 0; d < r.deviceCount; ++d) {
                for (int parameter : {1, 2}) {
                    ParameterEntry& entry =
                        content.parameters[d * ContentRecord::parameterCount + parameter];
                    entry.flags = ParameterEntry::setBit;
                    entry.value = cue ? 255 : 0;
                }
            }
            r.cueRecorded[cue] = 1;
            StepRecord& step = r.stackSteps[cue];
            std::memset(static_cast<void*>(&step), 0, sizeof step);
            step.cueNumber = quint16((cue + 1) * 10);
            step.contentType = stepDirectCue;
            step.contentIndex = quint16(cue);
            step.upTime = step.downTime = cue ? longestTime : 0;
        }
        r.stackStepCount = 2;
        r.stackMode = 0;
    }

    void startFade()
    {
        simulation.releaseStack();
        simulation.go();
        simulation.tick(EngineTest::tickMilliseconds);
        simulation.go();
    }
};

void tick(benchmark::State& state, ModelProfile profile)
{
    QTemporaryDir data; // the simulation keeps its state: not in the user's folder
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    LoadedConsole console(profile);
    console.startFade();
    for (auto _ : state) {
        console.simulation.tick(EngineTest::tickMilliseconds);
        benchmark::DoNotOptimize(console.record->dmxOutput[0]);
        if (console.simulation.player(ConsoleSimulation::stackPlayback).phase() !=
            CuePlayer::Phase::Fading) {
            state.PauseTiming();
            console.startFade();
            state.ResumeTiming();
        }
    }
    state.counters["channels"] = console.record->channelCount;
    state.counters["addresses"] = console.record->patchAddressCount;
}

void idleTick(benchmark::State& state)
{
    QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    LoadedConsole console(ModelProfile::forVariant(ModelProfile::Generation::GlowPro, 0));
    for (int i = 0; i < 10; ++i)
        console.simulation.tick(EngineTest::tickMilliseconds);
    for (auto _ : state)
        console.simulation.tick(EngineTest::tickMilliseconds);
}
} // namespace

BENCHMARK_CAPTURE(tick, maple_1024_addresses_fading,
                  ModelProfile::forVariant(ModelProfile::Generation::GlowPro, 0))
    ->Repetitions(10)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(tick, cedar_512_addresses_fading,
                  ModelProfile::forVariant(ModelProfile::Generation::Glow, 2))
    ->Repetitions(10)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(idleTick)->Repetitions(10)->ReportAggregatesOnly(true)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
