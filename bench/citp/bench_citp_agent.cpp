// SPDX-License-Identifier: GPL-3.0-or-later
// One output change with 16 established visualisers on loopback: the cost of
// the agent's work (two enciphered ChBk per peer), the time until the last
// peer holds both messages, and the agent thread's CPU share at 44 changes
// per second. Peers read on their own thread with plain sockets. Also the
// cost of a peer's whole universe while the engine lags behind.

#include "citp/Blowfish.h"
#include "citp/CITPAgent.h"
#include "citp/Manager.h"
#include "citp/Message.h"
#include "citp/SessionKey.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"

#include "FakeEngine.h"

#include "../Percentile.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QUdpSocket>
#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr int peerCount = 16;
// Two ChBk of 512 levels: 2 x (20 + 10 + 512) bytes.
constexpr qint64 bytesPerChange = 2 * 542;

using Clock = std::chrono::steady_clock;

qint64 nowNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
        .count();
}

double threadCpuSeconds()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return double(ts.tv_sec) + double(ts.tv_nsec) * 1e-9;
}

// Sixteen listening visualisers that count what arrives on their own thread
// and note when every one of them has received a given number of bytes.
class Peers
{
public:
    Peers()
    {
        for (int i = 0; i < peerCount; ++i) {
            const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
            sockaddr_in address{};
            address.sin_family = AF_INET;
            address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
            ::listen(fd, 1);
            socklen_t length = sizeof address;
            ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
            m_listeners.push_back(fd);
            ports.push_back(ntohs(address.sin_port));
        }
        m_thread = std::thread([this] { run(); });
    }
    ~Peers()
    {
        m_stop = true;
        m_thread.join();
        for (int fd : m_listeners)
            ::close(fd);
        for (int fd : m_connections)
            ::close(fd);
    }

    // Every peer must hold this many bytes in all for the round to be done.
    void expect(qint64 total)
    {
        m_doneAt = 0;
        m_target = total;
    }
    qint64 waitDone() const
    {
        qint64 done;
        while ((done = m_doneAt.load(std::memory_order_acquire)) == 0)
            std::this_thread::yield();
        return done;
    }
    qint64 received(int peer) const { return m_received[size_t(peer)].load(); }
    int connected() const { return m_connected.load(); }

    std::vector<quint16> ports;

private:
    void run()
    {
        for (int fd : m_listeners) {
            const int connection = ::accept(fd, nullptr, nullptr);
            m_connections.push_back(connection);
            ++m_connected;
        }
        std::vector<pollfd> fds;
        for (int fd : m_connections)
            fds.push_back({fd, POLLIN, 0});
        std::vector<char> buffer(1 << 16);
        while (!m_stop) {
            if (::poll(fds.data(), fds.size(), 50) <= 0)
                continue;
            for (size_t i = 0; i < fds.size(); ++i) {
                if (!(fds[i].revents & POLLIN))
                    continue;
                const ssize_t n = ::recv(fds[i].fd, buffer.data(), buffer.size(), MSG_DONTWAIT);
                if (n > 0)
                    m_received[i] += n;
            }
            const qint64 target = m_target.load();
            if (target > 0 && m_doneAt.load() == 0 &&
                std::all_of(m_received.begin(), m_received.end(),
                            [&](const std::atomic<qint64>& r) { return r.load() >= target; }))
                m_doneAt.store(nowNs(), std::memory_order_release);
        }
    }

    std::vector<int> m_listeners;
    std::vector<int> m_connections;
    std::array<std::atomic<qint64>, peerCount> m_received{};
    std::atomic<qint64> m_target{0};
    std::atomic<qint64> m_doneAt{0};
    std::atomic<int> m_connected{0};
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};

QByteArray ploc(quint16 port)
{
    QByteArray payload("PLoc");
    char le[2];
    qToLittleEndian(port, le);
    payload.append(le, 2).append("Visualizer\0bench\0Running", 25);
    CITP::Message message;
    message.init(QStringLiteral("PINF"), payload);
    return message.toByteArray();
}

// The agent on a test console with sixteen established peers.
class Setup
{
public:
    Setup() : engine(ConsoleCache::ModelMaple), console(engine.createConsole())
    {
        CITP::Manager::Settings settings;
        settings.bindAddress = QHostAddress(QHostAddress::LocalHost);
        settings.locationPort = 0;
        settings.namePort = 0;
        settings.groups.clear();
        CITPAgent::start(console.get(), settings);
        QUdpSocket announcer;
        for (quint16 port : peers.ports)
            announcer.writeDatagram(ploc(port), QHostAddress(QHostAddress::LocalHost),
                                    CITP::Manager::instance()->boundLocationPort());
        QElapsedTimer timer;
        timer.start();
        while (CITPAgent::instance()->establishedSessionCount() < peerCount &&
               timer.elapsed() < 10000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        // Greeting and the current state have arrived everywhere.
        for (int i = 0; i < peerCount; ++i) {
            while (peers.received(i) == 0 && timer.elapsed() < 10000)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        const qint64 settled = timer.elapsed() + 100;
        while (timer.elapsed() < settled)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        baseline = peers.received(0);
        for (int i = 1; i < peerCount; ++i)
            baseline = std::max(baseline, peers.received(i));
        for (int a = 0; a < 1024; ++a)
            engine.record()->dmxOutput[a] = quint8(a);
    }
    ~Setup() { CITPAgent::stop(); }

    bool ready() const { return CITPAgent::instance()->establishedSessionCount() == peerCount; }

    struct Timing
    {
        qint64 agentCpuNs;  // the agent thread's CPU time for the change
        qint64 agentWallNs; // from the signal until the agent returns
        qint64 arrivalNs;   // from the signal until the last peer has both
    };

    // One output change.
    Timing change()
    {
        ++engine.record()->dmxOutput[rounds % 1024];
        ++rounds;
        peers.expect(baseline + rounds * bytesPerChange);
        const double cpuStart = threadCpuSeconds();
        const qint64 start = nowNs();
        emit console->outputsUpdated();
        const qint64 returned = nowNs();
        const double cpu = threadCpuSeconds() - cpuStart;
        const qint64 arrived = peers.waitDone();
        QCoreApplication::processEvents();
        return {qint64(cpu * 1e9), returned - start, arrived - start};
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
    Peers peers;
    qint64 baseline = 0;
    qint64 rounds = 0;
};

// Samples are in nanoseconds, counters in microseconds.
double percentileUs(const std::vector<qint64>& samples, double p)
{
    return double(percentile(samples, p)) / 1000.0;
}

Setup* setup()
{
    static Setup instance;
    return &instance;
}

void BM_OutputsUpdated16Peers(benchmark::State& state)
{
    Setup* s = setup();
    if (!s->ready()) {
        state.SkipWithError("the sixteen peers were not established");
        return;
    }
    std::vector<qint64> cpu;
    std::vector<qint64> wall;
    std::vector<qint64> arrived;
    for (auto _ : state) {
        const Setup::Timing timing = s->change();
        state.SetIterationTime(double(timing.agentWallNs) * 1e-9);
        cpu.push_back(timing.agentCpuNs);
        wall.push_back(timing.agentWallNs);
        arrived.push_back(timing.arrivalNs);
    }
    state.counters["agent_cpu_median_us"] = percentileUs(cpu, 0.5);
    state.counters["agent_cpu_p99_us"] = percentileUs(cpu, 0.99);
    state.counters["agent_wall_median_us"] = percentileUs(wall, 0.5);
    state.counters["agent_wall_p99_us"] = percentileUs(wall, 0.99);
    state.counters["last_peer_median_us"] = percentileUs(arrived, 0.5);
    state.counters["last_peer_p99_us"] = percentileUs(arrived, 0.99);
}
BENCHMARK(BM_OutputsUpdated16Peers)
    ->UseManualTime()
    ->Iterations(5000)
    ->Unit(benchmark::kMicrosecond);

void BM_CpuShareAt44ChangesPerSecond(benchmark::State& state)
{
    Setup* s = setup();
    if (!s->ready()) {
        state.SkipWithError("the sixteen peers were not established");
        return;
    }
    constexpr int changesPerSecond = 44;
    constexpr int seconds = 5;
    for (auto _ : state) {
        const double cpuStart = threadCpuSeconds();
        const qint64 wallStart = nowNs();
        QEventLoop idle;
        for (int i = 0; i < changesPerSecond * seconds; ++i) {
            // The event loop idles between changes, as the program's does.
            const qint64 due = wallStart + qint64(i) * 1000000000 / changesPerSecond;
            const qint64 waitMs = (due - nowNs()) / 1000000;
            if (waitMs > 0) {
                QTimer::singleShot(int(waitMs), Qt::PreciseTimer, &idle, &QEventLoop::quit);
                idle.exec();
            }
            s->change();
        }
        const double cpu = threadCpuSeconds() - cpuStart;
        const double wall = double(nowNs() - wallStart) * 1e-9;
        state.counters["cpu_percent_of_one_core"] = 100.0 * cpu / wall;
    }
}
BENCHMARK(BM_CpuShareAt44ChangesPerSecond)->Iterations(1)->Unit(benchmark::kMillisecond);

// The enciphering alone, for one universe.
void BM_EncipherUniverse(benchmark::State& state)
{
    const CITP::Blowfish cipher(
        QByteArrayView(CITP::sessionKey.data(), qsizetype(CITP::sessionKey.size())));
    std::array<unsigned char, 512> levels{};
    for (auto _ : state) {
        cipher.encryptLittleEndian(levels.data(), levels.size());
        benchmark::DoNotOptimize(levels);
    }
}
BENCHMARK(BM_EncipherUniverse);

// A peer streaming whole universes while the engine takes nothing: past the
// ring's 99 entries every level waits, the newest per address.
void BM_PeerUniverseWhileEngineLags(benchmark::State& state)
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    const std::unique_ptr<Console> console(engine.createConsole());
    quint8 level = 0;
    for (auto _ : state) {
        for (int address = 0; address < CITPAgent::levelsPerUniverse; ++address)
            console->writeDmx(quint16(address), level, false);
        ++level;
    }
    state.SetItemsProcessed(state.iterations() * CITPAgent::levelsPerUniverse);
}
BENCHMARK(BM_PeerUniverseWhileEngineLags);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
