// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of one engine tick on Maple with all 24 devices running a shape and a
// colour effect at once, given by the effect select keys.
#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "EngineTestCodes.h"
#include "PersonalityLibrary.h"
#include "RecordArea.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {
constexpr int ledWash = 13; // 16-bit pan and tilt, red, green and blue
constexpr quint32 effectMode = 7;
constexpr quint32 secondEffectMode = 9;

void effectTick(benchmark::State& state)
{
    QTemporaryDir data; // the simulation keeps its state: not in the user's folder
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    std::unique_ptr<char[]> memory(new char[RecordArea::end]());
    auto* record = reinterpret_cast<ConsoleStateRecord*>(memory.get());
    EngineNotifier notifier; // no handler: notifications go nowhere
    ConsoleSimulation simulation(record, notifier,
                                 ModelProfile::forVariant(ModelProfile::Generation::GlowPro, 0));
    simulation.start(QStringLiteral("bench"));
    const PersonalityLibrary::Personality* wash = PersonalityLibrary::find(ledWash);
    for (int d = 0; d < record->deviceCount; ++d) {
        PersonalityLibrary::fillDevice(record->devices[d], *wash, d * int(wash->layout.size()));
        record->deviceSelected[d] = 1;
    }
    for (EffectRecord* effect : {&record->effects[0], &record->effects[24]}) {
        effect->pattern = 0;
        effect->speed = 100;
        effect->depth = effect == &record->effects[0] ? 200 : 511;
        effect->aspect = 40;
        effect->rotation = 30;
        effect->range = 255;
    }
    record->selectMode = effectMode;
    simulation.pressSelectKey(0, false); // circle
    record->selectMode = secondEffectMode;
    simulation.pressSelectKey(0, false); // rainbow
    simulation.tick(EngineTest::tickMilliseconds);
    // Ticks in which the first device's pan moved: shows the effects really run.
    int moved = 0;
    int ticks = 0;
    for (auto _ : state) {
        const quint8 before = record->dmxOutput[0];
        simulation.tick(EngineTest::tickMilliseconds);
        moved += record->dmxOutput[0] != before;
        ++ticks;
    }
    state.counters["devices"] = record->deviceCount;
    state.counters["pan_moved_share"] = ticks ? double(moved) / ticks : 0.0;
}
} // namespace

BENCHMARK(effectTick)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
