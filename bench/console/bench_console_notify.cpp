// SPDX-License-Identifier: GPL-3.0-or-later
// Engine notifications travelling from the engine's thread to a slot on the
// GUI thread through a queued connection: the sustained rate, and the
// latency and queue backlog at the engine's paced 2,000 notifications/s.
#include "Console.h"
#include "ConsoleCodes.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;

qint64 nowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
        .count();
}

// The GUI-thread end: a view slot that notes when each notification arrived.
class Receiver : public QObject
{
    Q_OBJECT

public:
    Receiver(int expected, const std::vector<std::atomic<qint64>>* stamps)
        : m_expected(expected), m_stamps(stamps)
    {
        m_latenciesNs.reserve(size_t(expected));
    }

    std::atomic<int> delivered{0};
    std::vector<qint64> m_latenciesNs;

signals:
    void allDelivered();

public slots:
    void consoleCacheMemoryUpdated(Console::Memory memory)
    {
        const qint64 arrived = nowNs();
        const qint64 sent = (*m_stamps)[size_t(memory.index)].load(std::memory_order_acquire);
        m_latenciesNs.push_back(arrived - sent);
        if (delivered.fetch_add(1, std::memory_order_release) + 1 == m_expected)
            emit allDelivered();
    }

private:
    int m_expected;
    const std::vector<std::atomic<qint64>>* m_stamps;
};

struct Run
{
    std::vector<qint64> latenciesNs;
    std::vector<int> backlog; // emitted minus delivered, sampled before each notification
    double seconds = 0;
};

// Notifies `count` memory changes from an engine thread, one every `periodUs`
// microseconds (0: as fast as possible), and runs the GUI event loop until
// the last one has been delivered.
Run deliver(int count, int periodUs)
{
    Console console(nullptr, nullptr);
    std::vector<std::atomic<qint64>> stamps(static_cast<size_t>(count));
    Receiver receiver(count, &stamps);
    QObject::connect(&console, &Console::memoryUpdated, &receiver,
                     &Receiver::consoleCacheMemoryUpdated, Qt::QueuedConnection);
    QEventLoop loop;
    QObject::connect(&receiver, &Receiver::allDelivered, &loop, &QEventLoop::quit);

    Run run;
    run.backlog.reserve(size_t(count));
    const auto start = Clock::now();
    std::thread engine([&] {
        auto next = Clock::now();
        for (int i = 0; i < count; ++i) {
            if (periodUs > 0) {
                next += std::chrono::microseconds(periodUs);
                std::this_thread::sleep_until(next);
            }
            run.backlog.push_back(i - receiver.delivered.load(std::memory_order_acquire));
            stamps[size_t(i)].store(nowNs(), std::memory_order_release);
            console.notify(ConsoleCode::MemoryChanged, 0, i, 0);
        }
    });
    loop.exec();
    run.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    engine.join();
    run.latenciesNs = std::move(receiver.m_latenciesNs);
    return run;
}

double percentileUs(std::vector<qint64> values, double fraction)
{
    if (values.empty())
        return 0;
    const size_t index = std::min(values.size() - 1, size_t(fraction * double(values.size())));
    std::nth_element(values.begin(), values.begin() + long(index), values.end());
    return double(values[index]) / 1000.0;
}

double mean(const std::vector<int>& values, size_t from, size_t to)
{
    double sum = 0;
    for (size_t i = from; i < to; ++i)
        sum += values[i];
    return to > from ? sum / double(to - from) : 0;
}

void BM_NotifyFlood(benchmark::State& state)
{
    const int count = int(state.range(0));
    double seconds = 0;
    for (auto _ : state) {
        const Run run = deliver(count, 0);
        seconds += run.seconds;
        state.SetIterationTime(run.seconds);
    }
    state.SetItemsProcessed(state.iterations() * count);
    state.counters["notifications_per_s"] =
        benchmark::Counter(double(state.iterations()) * count / seconds);
}
BENCHMARK(BM_NotifyFlood)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_NotifyPaced2000PerSecond(benchmark::State& state)
{
    const int count = int(state.range(0));
    constexpr int periodUs = 500; // 2,000 per second
    Run run;
    for (auto _ : state) {
        run = deliver(count, periodUs);
        state.SetIterationTime(run.seconds);
    }
    state.counters["p50_us"] = percentileUs(run.latenciesNs, 0.50);
    state.counters["p99_us"] = percentileUs(run.latenciesNs, 0.99);
    state.counters["max_us"] = percentileUs(run.latenciesNs, 1.0);
    const size_t half = run.backlog.size() / 2;
    state.counters["backlog_first_half"] = mean(run.backlog, 0, half);
    state.counters["backlog_second_half"] = mean(run.backlog, half, run.backlog.size());
    state.counters["backlog_max"] =
        double(*std::max_element(run.backlog.begin(), run.backlog.end()));
}
BENCHMARK(BM_NotifyPaced2000PerSecond)
    ->Arg(10000) // 5 seconds
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    Console::registerMetaTypes();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

#include "bench_console_notify.moc"
