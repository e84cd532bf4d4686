// SPDX-License-Identifier: GPL-3.0-or-later
// Maple's two universes through a private olad at 44 changes a second: the
// time from outputsUpdated() until both frames are readable through OLA's own
// client, and the GUI thread's CPU share for it (the slot that hands the
// levels to the sender thread).

#include "Olad.h"
#include "console/Console.h"
#include "dmxout/OlaOutput.h"

#include "FakeEngine.h"

#include "../Percentile.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include <time.h>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int changesPerSecond = OlaOutput::maxFramesPerSecond;
constexpr auto changePeriod = std::chrono::microseconds(1000000 / changesPerSecond);

double threadCpuUs()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return double(ts.tv_sec) * 1e6 + double(ts.tv_nsec) * 1e-3;
}

void BM_OutputsUpdatedToOla(benchmark::State& state)
{
    Olad olad;
    if (const QString problem = olad.start(); !problem.isEmpty()) {
        state.SkipWithError(qPrintable(problem));
        return;
    }
    FakeEngine engine(ConsoleCache::ModelMaple);
    const std::unique_ptr<Console> console(engine.createConsole());
    Olad::Reader reader(olad.port);
    OlaOutput output(console.get(), 7, olad.port);
    ConsoleStateRecord* record = engine.record();
    const auto arrived = [&](quint8 level) {
        return !reader.frames[7].isEmpty() && !reader.frames[8].isEmpty() &&
               quint8(reader.frames[7].constLast().at(0)) == level &&
               quint8(reader.frames[8].constLast().at(0)) == level;
    };
    if (!reader.waitFor([&] { return arrived(0); })) {
        state.SkipWithError("olad never passed the first frame on");
        return;
    }
    std::vector<double> latencyMs;
    double slotCpuUs = 0;
    quint8 level = 0;
    const Clock::time_point start = Clock::now();
    Clock::time_point due = start;
    for (auto _ : state) {
        std::this_thread::sleep_until(due += changePeriod);
        record->dmxOutput[0] = record->dmxOutput[512] = ++level;
        const Clock::time_point sent = Clock::now();
        const double cpuBefore = threadCpuUs();
        emit console->outputsUpdated();
        slotCpuUs += threadCpuUs() - cpuBefore;
        if (!reader.waitFor([&] { return arrived(level); })) {
            state.SkipWithError("a frame did not arrive");
            return;
        }
        const double ms = std::chrono::duration<double, std::milli>(Clock::now() - sent).count();
        state.SetIterationTime(ms / 1000);
        latencyMs.push_back(ms);
    }
    const double wallUs = std::chrono::duration<double, std::micro>(Clock::now() - start).count();
    state.counters["latency_median_ms"] = percentile(latencyMs, 0.5);
    state.counters["latency_p99_ms"] = percentile(latencyMs, 0.99);
    state.counters["gui_cpu_percent_of_one_core"] = 100 * slotCpuUs / wallUs;
}
BENCHMARK(BM_OutputsUpdatedToOla)
    ->UseManualTime()
    ->Iterations(5 * changesPerSecond)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
