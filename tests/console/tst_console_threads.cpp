// SPDX-License-Identifier: GPL-3.0-or-later
// The engine notifies on its own thread while the GUI thread adds hooks and
// receives the signals through queued delivery. Run under the thread
// sanitizer build to catch unguarded access.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"

#include <QCoreApplication>
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

// Lives on the GUI thread; receives queued signals in arrival order.
class Receiver : public QObject
{
    Q_OBJECT

public:
    QList<int> memories;
    QList<int> sequenceSteps;
    int patches = 0;

public slots:
    void consoleCacheMemoryUpdated(Console::Memory memory) { memories.append(memory.index); }
    void consoleCacheSequenceStepUpdated(Console::Sequence, int step)
    {
        sequenceSteps.append(step);
    }
    void consoleCachePatchUpdated() { ++patches; }
};
} // namespace

class TestConsoleThreads : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hooksAppendedWhileTheEngineNotifies();
    void signalsArriveQueuedInNotificationOrder();
    void insertStepAcrossThreads();
    void bulkEndDiscardsWhileHooksAreAdded();
};

void TestConsoleThreads::initTestCase()
{
    Console::registerMetaTypes();
}

void TestConsoleThreads::hooksAppendedWhileTheEngineNotifies()
{
    constexpr int notifications = 20000;
    constexpr int hooks = 2000;
    FakeEngine engine(ConsoleCache::ModelBirch);
    std::unique_ptr<Console> console(engine.createConsole());
    SharedLog log;

    // The engine thread runs hook passes (codes that emit nothing) while this
    // thread keeps appending.
    for (int i = 0; i < notifications; ++i)
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

void TestConsoleThreads::signalsArriveQueuedInNotificationOrder()
{
    constexpr int notifications = 5000;
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    Receiver receiver;
    connect(console.get(), &Console::memoryUpdated, &receiver, &Receiver::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
    connect(console.get(), &Console::patchUpdated, &receiver, &Receiver::consoleCachePatchUpdated,
            Qt::QueuedConnection);

    for (int i = 0; i < notifications; ++i) {
        engine.post(ConsoleCode::MemoryChanged, i / 48 % 12, i);
        if (i % 1000 == 0)
            engine.post(ConsoleCode::PatchChanged);
    }
    engine.stopThread();
    QCoreApplication::sendPostedEvents();

    QCOMPARE(receiver.memories.size(), notifications);
    for (int i = 0; i < notifications; ++i)
        QCOMPARE(receiver.memories.at(i), i);
    QCOMPARE(receiver.patches, 5);
}

void TestConsoleThreads::insertStepAcrossThreads()
{
    FakeEngine engine(ConsoleCache::ModelCedar);
    std::unique_ptr<Console> console(engine.createConsole());
    Receiver receiver;
    connect(console.get(), &Console::sequenceStepUpdated, &receiver,
            &Receiver::consoleCacheSequenceStepUpdated, Qt::QueuedConnection);
    engine.record()->sequences[2 * 12 + 4].steps[1].contentType = 0xFF;
    engine.post(ConsoleCode::OutputsChanged); // the engine thread is running

    console->cache()->insertStep(2, 4, 1, 20, ConsoleCache::StepChannel, 17);
    // The engine creates the step on its thread and reports the sequence.
    engine.post(ConsoleCode::SequenceChanged, 2, 4);
    engine.stopThread();
    QCoreApplication::sendPostedEvents();

    const StepRecord& step = engine.record()->sequences[2 * 12 + 4].steps[1];
    QCOMPARE(step.contentType, quint32(ConsoleCache::StepChannel));
    QCOMPARE(int(step.contentIndex), 17);
    QCOMPARE(receiver.sequenceSteps, QList<int>{1});
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

    // Suspended the whole time: nothing ran, everything was freed.
    QCOMPARE(log.runs.load(), 0);
    QCOMPARE(log.deleted.load(), 200);
}

QTEST_GUILESS_MAIN(TestConsoleThreads)
#include "tst_console_threads.moc"
