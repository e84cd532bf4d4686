// SPDX-License-Identifier: GPL-3.0-or-later
// The engine notifies on its own thread while the GUI thread adds hooks and
// reads the derived caches. Run under the thread sanitizer build to catch
// unguarded access.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"

#include <QTest>

#include <atomic>
#include <memory>

namespace {
// Counts its runs and deletions across threads.
struct SharedLog
{
    std::atomic<int> runs{0};
    std::atomic<int> deleted{0};
};

class CountingHook : public Console::CacheUpdateHook
{
public:
    CountingHook(SharedLog* log, int code) : m_log(log), m_code(code) {}
    ~CountingHook() override { m_log->deleted.fetch_add(1); }
    bool matches(int code, int, int, int) override { return code == m_code; }
    void run(int, int, int, int) override { m_log->runs.fetch_add(1); }

private:
    SharedLog* m_log;
    int m_code;
};

} // namespace

class TestConsoleThreads : public QObject
{
    Q_OBJECT

private slots:
    void hooksAppendedWhileTheEngineNotifies();
    void cachesReadWhileTheEngineRebuilds();
    void bulkEndDiscardsWhileHooksAreAdded();
};

void TestConsoleThreads::hooksAppendedWhileTheEngineNotifies()
{
    constexpr int hooks = 2000;
    FakeEngine engine(ConsoleCache::ModelBirch);
    std::unique_ptr<Console> console(engine.createConsole());
    SharedLog log;
    // The engine thread runs hook passes while this thread keeps appending.
    for (int i = 0; i < 20000; ++i)
        engine.post(i % 2 ? 20 : 30, i);
    for (int i = 0; i < hooks; ++i)
        console->appendHook(new CountingHook(&log, i % 2 ? 20 : 30));
    engine.waitIdle();
    // Whatever was appended after the last pass fires on the next one.
    engine.post(20);
    engine.post(30);
    engine.stopThread();
    QCOMPARE(log.runs.load(), hooks);
    QCOMPARE(log.deleted.load(), hooks);
}

void TestConsoleThreads::cachesReadWhileTheEngineRebuilds()
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    engine.record()->dmxPatch[700] = 5;
    engine.record()->devices[3].firstAddress = 1;
    engine.record()->devices[3].footprint = 4;
    console->patchChanged();
    // The patch stays the same: every read, mid-rebuild or not, sees it.
    SharedLog done;
    console->appendHook(new CountingHook(&done, 20));
    for (int i = 0; i < 5000; ++i)
        engine.post(i % 2 ? ConsoleCode::PatchChanged : ConsoleCode::DeviceChanged, 3);
    engine.post(20);
    int wrong = 0;
    while (done.runs.load() == 0) {
        wrong += console->cache()->addressFlags(700) != ConsoleCache::AddressPatched;
        wrong += console->cache()->addressDevice(2) != 4;
        wrong += console->cache()->channelFlags(4) != ConsoleCache::ChannelPatched;
    }
    engine.stopThread();
    QCOMPARE(wrong, 0);
}

void TestConsoleThreads::bulkEndDiscardsWhileHooksAreAdded()
{
    FakeEngine engine(ConsoleCache::ModelAlder);
    std::unique_ptr<Console> console(engine.createConsole());
    SharedLog log;
    engine.post(ConsoleCode::System, SystemCode::BulkBegin);
    for (int i = 0; i < 200; ++i) {
        engine.post(ConsoleCode::System, SystemCode::BulkEnd);
        engine.post(ConsoleCode::System, SystemCode::BulkBegin);
        console->appendHook(new CountingHook(&log, 20));
        engine.post(20);
    }
    engine.post(ConsoleCode::System, SystemCode::BulkEnd);
    engine.stopThread();
    // Suspended at every hook pass: nothing ran, everything was freed.
    QCOMPARE(log.runs.load(), 0);
    QCOMPARE(log.deleted.load(), 200);
}

QTEST_GUILESS_MAIN(TestConsoleThreads)
#include "tst_console_threads.moc"
