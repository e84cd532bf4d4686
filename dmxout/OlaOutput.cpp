// SPDX-License-Identifier: GPL-3.0-or-later
#include "OlaOutput.h"

#include "Console.h"
#include "ConsoleStateRecord.h"

#include <ola/Callback.h>
#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/client/StreamingClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/SocketAddress.h>
#include <ola/network/TCPSocket.h>

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstring>
#include <mutex>
#include <pthread.h>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
constexpr auto framePeriod = std::chrono::microseconds(1000000 / OlaOutput::maxFramesPerSecond);
constexpr auto retryInterval = std::chrono::milliseconds(OlaOutput::retryIntervalMs);
constexpr auto refreshInterval = std::chrono::milliseconds(OlaOutput::refreshIntervalMs);
constexpr auto universeListTimeout = std::chrono::milliseconds(500);

// A write to a daemon that just went away must fail with EPIPE rather than
// end the program; only this thread writes to olad, so only it ignores the
// signal.
void blockBrokenPipeSignal()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
}
} // namespace

class OlaOutput::Sender : public std::enable_shared_from_this<Sender>
{
public:
    using Frame = std::array<quint8, maxUniverses * levelsPerUniverse>;

    Sender(OlaOutput* owner, quint16 rpcPort)
        : m_owner(owner), m_firstUniverse(unsigned(owner->firstUniverse())),
          m_universeCount(owner->universeCount()), m_rpcPort(rpcPort)
    {
    }

    // The thread keeps its sender alive, so that one left behind by stop()
    // still has its state when a blocked write finally returns.
    void start()
    {
        m_thread = std::thread([self = shared_from_this()] { self->run(); });
    }

    // Tells the thread to end and waits up to grace for it; false when it
    // did not end (a write to a hung daemon) and was left to end on its own.
    // Either way it no longer reaches the owner.
    bool stop(std::chrono::milliseconds grace)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_stopping = true;
        m_owner = nullptr;
        m_wake.notify_one();
        const bool ended = m_ended.wait_for(lock, grace, [this] { return m_finished; });
        lock.unlock();
        if (ended)
            m_thread.join();
        else
            m_thread.detach();
        return ended;
    }

    // GUI thread: the newest levels replace any not yet sent.
    void post(const quint8* levels)
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            std::memcpy(m_mailbox.data(), levels, std::size_t(m_universeCount) * levelsPerUniverse);
            m_mailboxFull = true;
        }
        m_wake.notify_one();
    }

private:
    enum class State
    {
        Starting,
        Connected,
        Away
    };

    void run()
    {
        blockBrokenPipeSignal();
        std::unique_lock<std::mutex> lock(m_mutex);
        while (!m_stopping) {
            if (m_mailboxFull) {
                m_frame = m_mailbox;
                m_mailboxFull = false;
                m_frameDirty = true;
            }
            const Clock::time_point due = nextDue();
            if (Clock::now() < due) {
                m_wake.wait_until(lock, due, [this] { return m_stopping || m_mailboxFull; });
                continue;
            }
            lock.unlock();
            work();
            lock.lock();
        }
        lock.unlock();
        m_client.reset();
        lock.lock();
        m_finished = true;
        m_ended.notify_one();
    }

    Clock::time_point nextDue() const
    {
        if (!m_client)
            return m_nextAttempt;
        if (!m_frameDirty)
            return m_lastSend + refreshInterval;
        // One frame period on average, but a frame a little early (a source
        // at that very rate, with scheduling jitter) still goes at once
        // rather than a whole period late.
        return m_frameSlot - framePeriod;
    }

    void work()
    {
        if (!m_client && !connectToDaemon()) {
            m_nextAttempt = Clock::now() + retryInterval;
            return;
        }
        m_lastSend = Clock::now();
        m_frameSlot = std::max(m_frameSlot, m_lastSend) + framePeriod;
        m_frameDirty = false;
        if (sendFrame()) {
            if (std::exchange(m_universesUnchecked, false))
                reportUniversesWithoutOutput();
            return;
        }
        m_client.reset();
        setState(State::Away);
        // A daemon restarted at once is picked up at once; otherwise the
        // retries go on at their usual pace.
        m_nextAttempt = Clock::now();
        m_frameDirty = true;
    }

    bool connectToDaemon()
    {
        ola::client::StreamingClient::Options options;
        options.auto_start = false; // olad is the user's to start, with their config
        options.server_port = m_rpcPort;
        auto client = std::make_unique<ola::client::StreamingClient>(options);
        if (!client->Setup()) {
            setState(State::Away);
            return false;
        }
        m_client = std::move(client);
        m_universesUnchecked = true;
        setState(State::Connected);
        return true;
    }

    // olad drops what arrives for a universe it does not have, and a universe
    // without an output port reaches no fixture: say so once per connection,
    // as the levels would otherwise vanish without a word. The daemon is
    // asked over a second connection with OLA's general client.
    void reportUniversesWithoutOutput()
    {
        using namespace ola::network;
        const std::unique_ptr<TCPSocket> socket(
            TCPSocket::Connect(IPV4SocketAddress(IPV4Address::Loopback(), m_rpcPort)));
        if (!socket)
            return;
        ola::client::OlaClient client(socket.get());
        ola::io::SelectServer server;
        if (!client.Setup() || !server.AddReadDescriptor(socket.get()))
            return;
        UniverseList list;
        client.FetchUniverseList(ola::NewSingleCallback(&list, &UniverseList::received));
        for (const Clock::time_point end = Clock::now() + universeListTimeout;
             !list.answered && Clock::now() < end;)
            server.RunOnce(ola::TimeInterval(0, 20000));
        server.RemoveReadDescriptor(socket.get());
        client.Stop();
        for (int i = 0; list.answered && i < m_universeCount; ++i) {
            const unsigned universe = m_firstUniverse + unsigned(i);
            if (list.withOutput.count(universe) == 0)
                qWarning("OLA: universe %u has no output port in olad, so no fixture gets these "
                         "levels; patch one in olad's web page (http://localhost:9090)",
                         universe);
        }
    }

    struct UniverseList
    {
        bool answered = false;
        std::set<unsigned> withOutput;
        void received(const ola::client::Result& result,
                      const std::vector<ola::client::OlaUniverse>& universes)
        {
            answered = result.Success();
            for (const ola::client::OlaUniverse& universe : universes)
                if (universe.OutputPortCount() > 0)
                    withOutput.insert(universe.Id());
        }
    };

    bool sendFrame()
    {
        for (int universe = 0; universe < m_universeCount; ++universe) {
            const ola::DmxBuffer buffer(m_frame.data() + universe * levelsPerUniverse,
                                        levelsPerUniverse);
            if (!m_client->SendDmx(m_firstUniverse + unsigned(universe), buffer))
                return false;
        }
        return true;
    }

    // One line per change of state, not per retry.
    void setState(State state)
    {
        if (state == m_state)
            return;
        const State before = m_state;
        m_state = state;
        const unsigned last = m_firstUniverse + unsigned(m_universeCount) - 1;
        if (state == State::Connected) {
            if (m_universeCount == 1)
                qInfo("OLA: connected to olad on port %u; DMX output goes to OLA universe %u",
                      m_rpcPort, m_firstUniverse);
            else
                qInfo("OLA: connected to olad on port %u; DMX output goes to OLA universes "
                      "%u to %u",
                      m_rpcPort, m_firstUniverse, last);
        } else if (before == State::Connected) {
            qWarning("OLA: lost the connection to olad on port %u; trying again every %d s",
                     m_rpcPort, retryIntervalMs / 1000);
        } else {
            qWarning("OLA: olad is not running (nothing answers on port %u); trying again "
                     "every %d s",
                     m_rpcPort, retryIntervalMs / 1000);
        }
        const bool connected = state == State::Connected;
        // Under the lock: stop() clears the owner before the owner goes.
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (OlaOutput* owner = m_owner)
            QMetaObject::invokeMethod(
                owner, [owner, connected] { owner->senderConnectedChanged(connected); },
                Qt::QueuedConnection);
    }

    OlaOutput* m_owner; // under m_mutex
    const unsigned m_firstUniverse;
    const int m_universeCount;
    const quint16 m_rpcPort;

    // Shared with the GUI thread, under m_mutex.
    std::mutex m_mutex;
    std::condition_variable m_wake;
    Frame m_mailbox{};
    bool m_mailboxFull = false;
    bool m_stopping = false;
    std::condition_variable m_ended;
    bool m_finished = false;

    // The sender thread's own.
    std::unique_ptr<ola::client::StreamingClient> m_client;
    Frame m_frame{};
    bool m_frameDirty = true;
    bool m_universesUnchecked = false;
    Clock::time_point m_lastSend;
    Clock::time_point m_frameSlot; // when the next frame is due at the steady rate
    Clock::time_point m_nextAttempt;
    State m_state = State::Starting;

    std::thread m_thread;
};

OlaOutput::OlaOutput(Console* console, int firstUniverse, quint16 rpcPort, QObject* parent)
    : QObject(parent), m_console(console),
      m_firstUniverse(std::clamp(firstUniverse, 0, maxFirstUniverse)),
      m_universeCount(
          std::clamp(console->cache()->patchAddressCount() / levelsPerUniverse, 1, maxUniverses)),
      m_sender(std::make_shared<Sender>(this, rpcPort))
{
    connect(console, &Console::outputsUpdated, this, &OlaOutput::consoleCacheOutputsUpdated);
    // The stage as it is now goes out first, not only after the next change.
    consoleCacheOutputsUpdated();
    m_sender->start();
}

OlaOutput::~OlaOutput()
{
    if (!m_sender->stop(std::chrono::milliseconds(stopGraceMs)))
        qWarning("OLA: olad does not answer; leaving without waiting for it");
}

void OlaOutput::consoleCacheOutputsUpdated()
{
    if (const ConsoleStateRecord* record = m_console->cache()->record())
        m_sender->post(record->dmxOutput);
}

void OlaOutput::senderConnectedChanged(bool connected)
{
    if (connected == m_connected)
        return;
    m_connected = connected;
    emit connectedChanged(connected);
}
