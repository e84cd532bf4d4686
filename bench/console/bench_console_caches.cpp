// SPDX-License-Identifier: GPL-3.0-or-later
// The caches derived from the patch: what a grid repaint pays to read every
// address and channel flag, and what a patch change pays to rebuild and
// publish them.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {
struct PatchedConsole
{
    FakeEngine engine{ConsoleCache::ModelMaple};
    std::unique_ptr<Console> console{engine.createConsole()};

    PatchedConsole()
    {
        for (int address = 0; address < 72; ++address)
            engine.record()->dmxPatch[address] = quint8(address + 1);
        for (int device = 0; device < 24; ++device) {
            engine.record()->devices[device].firstAddress = quint16(100 + device * 16);
            engine.record()->devices[device].footprint = 16;
        }
        console->patchChanged();
    }
};

void BM_ReadEveryFlag(benchmark::State& state)
{
    PatchedConsole patched;
    const ConsoleCache* cache = patched.console->cache();
    for (auto _ : state) {
        int set = 0;
        for (int address = 0; address < ConsoleStateRecord::addressCount; ++address)
            set += cache->addressFlags(address) != 0;
        for (int channel = 0; channel < ConsoleStateRecord::maxChannels; ++channel)
            set += cache->channelFlags(channel) != 0;
        benchmark::DoNotOptimize(set);
    }
}
BENCHMARK(BM_ReadEveryFlag);

void BM_ReadEveryFlagFromOneVersion(benchmark::State& state)
{
    PatchedConsole patched;
    for (auto _ : state) {
        const auto caches = patched.console->cache()->derivedCaches();
        int set = 0;
        for (quint8 flags : caches->addressFlags)
            set += flags != 0;
        for (quint8 flags : caches->channelFlags)
            set += flags != 0;
        benchmark::DoNotOptimize(set);
    }
}
BENCHMARK(BM_ReadEveryFlagFromOneVersion);

void BM_PatchChanged(benchmark::State& state)
{
    PatchedConsole patched;
    for (auto _ : state)
        patched.engine.notify(ConsoleCode::PatchChanged);
}
BENCHMARK(BM_PatchChanged);
} // namespace

BENCHMARK_MAIN();
