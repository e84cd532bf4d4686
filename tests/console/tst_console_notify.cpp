// SPDX-License-Identifier: GPL-3.0-or-later
// The console link: the signal of each engine code, hooks and their order,
// bulk changes, step inserts, change reports, the engine thread against the
// GUI thread (run under the thread sanitizer too) and loading the engine.
#include "Console.h"
#include "ConsoleCodes.h"
#include "DataRows.h"
#include "FakeEngine.h"
#include "SignalRecorder.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <cstring>
#include <functional>
#include <memory>

namespace {
using Call = FakeEngine::Call;
using Action = std::function<void(Console*)>;

// Waits for one code; logs its name when it runs and "~name" when deleted.
class ProbeHook : public Console::CacheUpdateHook
{
public:
    ProbeHook(
        QStringList* log, QString name, int code, std::function<void()> action = [] {})
        : m_log(log), m_name(std::move(name)), m_code(code), m_action(std::move(action))
    {
    }
    ~ProbeHook() override { m_log->append(u'~' + m_name); }
    bool matches(int code, int, int, int) override { return code == m_code; }
    void run(int, int, int, int) override
    {
        m_log->append(m_name);
        m_action();
    }

private:
    QStringList* m_log;
    QString m_name;
    int m_code;
    std::function<void()> m_action;
};
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

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Action)

class TestConsoleNotify : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void notificationTable_data();
    void notificationTable();
    void bulkChangeSuspendsEverything();
    void hookPass_data();
    void hookPass();
    void insertStep_data();
    void insertStep();
    void changeReports_data();
    void changeReports();
    void hooksAddedWhileTheEngineNotifies();
    void cachesReadWhileTheEngineRebuilds();
    void load_data();
    void load();
    void handshake_data();
    void handshake();

private:
    std::unique_ptr<FakeEngine> m_engine;
    Console* m_console = nullptr;
    // Outlives the console, which deletes the hooks that never ran.
    QStringList m_log;
};

void TestConsoleNotify::init()
{
    m_engine = std::make_unique<FakeEngine>(ConsoleCache::ModelCedar);
    m_console = m_engine->createConsole();
    m_engine->clearUpdates();
    m_log.clear();
}

void TestConsoleNotify::cleanup()
{
    delete m_console;
    m_engine.reset();
}

void TestConsoleNotify::notificationTable_data()
{
    addColumns<int, int, QStringList, bool>({"code", "a", "emitted", "runsHooks"});

    const auto row = [](const char* name, int code, int a, QString signal, bool hooks = true) {
        QTest::newRow(name) << code << a << (signal.isEmpty() ? QStringList() : QStringList{signal})
                            << hooks;
    };
    row("0 memory", 0, 3, "memoryUpdated(3,6)");
    row("1 palette", 1, 5, "paletteUpdated(5)");
    row("2 sequence", 2, 4, "sequenceUpdated(4,6)");
    row("3 stack", 3, 0, "sequenceUpdated(-1,-1)");
    row("4 stack cue", 4, 12, "memoryUpdated(-1,12)");
    row("5 patch", 5, 0, "patchUpdated()");
    row("6 device", 6, 7, "deviceUpdated(7)");
    row("7 group", 7, 2, "groupUpdated(2)");
    row("8 page", 8, 11, "pageUpdated(11)");
    row("9 channel text", 9, 40, "channelTextUpdated(40)");
    row("10 effects", 10, 3, "effectUpdated()");
    row("11 midi patch", 11, 0, "patchUpdated()");
    row("12 independents", 12, 0, "independentsUpdated()");
    row("13 outputs", 13, 0, "outputsUpdated()");
    row("14 faders", 14, 0, "faderUpdated()");
    row("15 channels", 15, 0, "channelsUpdated()");
    row("17 playback", 17, 0, "playbackUpdated()");
    row("18 blind", 18, 0, "blindLevelsUpdated()");
    row("19 inputs", 19, 0, "inputsUpdated()");
    row("21 display", 21, 1, "displayUpdated(1)");
    row("22 leds", 22, 0, "ledUpdated()");
    row("23 console status", 23, 0, "consoleStatusUpdated()");
    row("24 device status", 24, 0, "deviceStatusUpdated()");
    row("36 show file", 36, 0, "playFileNameUpdated()");
    row("37 version known, no hooks", 37, 0, "consoleVersionUpdated()", false);
    row("38 ready, hooks only", 38, 0, {});
    row("41 settings", 41, 0, "systemSettingsUpdated()");
    for (int code : {20, 25, 29, 32, 35, 40, 42})
        QTest::addRow("%d hooks only", code) << code << 1 << QStringList() << true;
    row("39/1 end of bulk change drops hooks", 39, 1, "playLoaded()", false);
    row("39/5 command", 39, 5, "lumideskCommand(6,9)", false);
    row("39/8 busy", 39, 8, "systemBusyCommand(6)", false);
    for (int subCode : {2, 3, 4, 6, 7, 9, 99})
        QTest::addRow("39/%d ignored", subCode) << 39 << subCode << QStringList() << false;
}

void TestConsoleNotify::notificationTable()
{
    auto [code, a, emitted, runsHooks] =
        fetch<int, int, QStringList, bool>({"code", "a", "emitted", "runsHooks"});

    m_console->appendHook(new ProbeHook(&m_log, "hook", code));
    SignalRecorder recorder(m_console);
    m_engine->notify(code, a, 6, 9);
    QCOMPARE(recorder.log(), emitted);
    const bool dropped = code == ConsoleCode::System && a == SystemCode::BulkEnd;
    QCOMPARE(m_log, (runsHooks ? QStringList{"hook", "~hook"}
                               : (dropped ? QStringList{"~hook"} : QStringList())));
    // A notification never goes back to the engine.
    QCOMPARE(m_engine->updates(), QList<Call>{});
}

void TestConsoleNotify::bulkChangeSuspendsEverything()
{
    m_console->appendHook(new ProbeHook(&m_log, "patch", ConsoleCode::PatchChanged));
    SignalRecorder recorder(m_console);

    m_engine->notify(ConsoleCode::System, SystemCode::BulkBegin);
    // The show being loaded patches channel 3 to address 10 meanwhile.
    m_engine->record()->dmxPatch[10] = 3;
    for (int code : {0, 2, 5, 6, 11, 13, 20, 41})
        m_engine->notify(code, 1, 1, 0);
    QCOMPARE(m_console->cache()->addressFlags(10), quint8(0));
    // Version and system messages still get through.
    m_engine->notify(ConsoleCode::System, SystemCode::LumideskCommand, 1, 2);
    m_engine->notify(ConsoleCode::VersionKnown);
    m_engine->notify(ConsoleCode::System, SystemCode::BulkEnd);
    m_engine->notify(ConsoleCode::PatchChanged);

    QCOMPARE(recorder.log(), (QStringList{"lumideskCommand(1,2)", "consoleVersionUpdated()",
                                          "playLoaded()", "patchUpdated()"}));
    // The pending hook was dropped unrun; the caches were rebuilt.
    QCOMPARE(m_log, QStringList{"~patch"});
    QCOMPARE(m_console->cache()->addressFlags(10), ConsoleCache::AddressPatched);
    QCOMPARE(m_console->cache()->channelFlags(2), ConsoleCache::ChannelPatched);
}

void TestConsoleNotify::hookPass_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("every matching hook, in list order")
        << QStringList{"A", "~A", "C", "~C", "pass", "B", "~B"};
    QTest::newRow("a hook's command answered at once")
        << QStringList{"A", "B", "~B", "~A", "C", "~C", "pass"};
    QTest::newRow("a hook adds a hook for the next pass")
        << QStringList{"A", "~A", "C", "~C", "pass", "B", "~B", "D", "~D"};
}

void TestConsoleNotify::hookPass()
{
    QFETCH(QStringList, expected);
    const QByteArray row = QTest::currentDataTag();
    std::function<void()> action = [] {};
    if (row.startsWith("a hook's command")) {
        // The engine answers the hook's report from inside update().
        m_engine->setAnswer([this](const Call& call) {
            if (call.code == ConsoleCode::GroupChanged)
                m_engine->notify(25);
        });
        action = [this] { m_console->groupChanged(1); };
    } else if (row.startsWith("a hook adds")) {
        action = [this] { m_console->appendHook(new ProbeHook(&m_log, "D", 25)); };
    }
    m_console->appendHook(new ProbeHook(&m_log, "A", 20, action));
    m_console->appendHook(new ProbeHook(&m_log, "B", 25));
    m_console->appendHook(new ProbeHook(&m_log, "C", 20));

    m_engine->notify(20);
    m_log.append("pass");
    m_engine->notify(25);
    QCOMPARE(m_log, expected);
}

void TestConsoleNotify::insertStep_data()
{
    addColumns<int, int, int, bool, Call, bool>(
        {"page", "fader", "count", "engineInserts", "notification", "filled"});

    QTest::newRow("sequence, 2 for it") << 3 << 7 << 5 << true << Call{2, 3, 7, 0} << true;
    QTest::newRow("sequence, 2 for another fader")
        << 3 << 7 << 5 << true << Call{2, 3, 8, 0} << false;
    QTest::newRow("sequence, 2 before the engine made the step")
        << 3 << 7 << 5 << false << Call{2, 3, 7, 0} << false;
    QTest::newRow("full sequence refused") << 3 << 7 << 24 << false << Call{2, 3, 7, 0} << false;
    QTest::newRow("stack, 4 for the step") << -1 << -1 << 5 << true << Call{4, 2, 0, 0} << true;
    QTest::newRow("stack, 3 stack changed") << -1 << -1 << 5 << true << Call{3, 0, 0, 0} << false;
    QTest::newRow("stack, 4 for another step")
        << -1 << -1 << 5 << true << Call{4, 3, 0, 0} << false;
    QTest::newRow("full stack refused") << -1 << -1 << 199 << false << Call{4, 2, 0, 0} << false;
}

void TestConsoleNotify::insertStep()
{
    auto [page, fader, count, engineInserts, notification, filled] =
        fetch<int, int, int, bool, Call, bool>(
            {"page", "fader", "count", "engineInserts", "notification", "filled"});

    ConsoleCache* cache = m_console->cache();
    const bool stack = page == -1;
    StepRecord* steps = stack ? m_engine->record()->stackSteps
                              : m_engine->record()->sequences[page * 12 + fader].steps;
    quint8& stepCount = stack ? m_engine->record()->stackStepCount
                              : m_engine->record()->sequences[page * 12 + fader].stepCount;
    for (int i = 0; i < count; ++i)
        steps[i] = StepRecord{quint16(i * 10 + 10), quint16(i), 0, 0, 0, 0, 0, 0};
    stepCount = quint8(count);

    const bool room = count < ConsoleCache::stepCapacity(page);
    QCOMPARE(cache->insertStep(page, fader, 2, 25, ConsoleCache::StepMemory, 0x0123), room);
    const int key = stack ? 12 * 12 : 12 * page + fader;
    QCOMPARE(m_engine->takeUpdates(), (room ? QList<Call>{{32, key, 2, 25}} : QList<Call>{}));
    if (engineInserts) {
        // As the engine makes it: after the earlier steps, empty content.
        std::memmove(steps + 3, steps + 2, size_t(count - 2) * sizeof(StepRecord));
        steps[2] = StepRecord{25, 0, 0xFF, 0, 0, 0, 0, 0};
        ++stepCount;
    }
    const QByteArray before(reinterpret_cast<const char*>(steps), int(stepCount) * 16);

    SignalRecorder recorder(m_console);
    m_engine->notify(notification.code, notification.a, notification.b, notification.c);

    QByteArray expected = before;
    if (filled) {
        // Content type 1 and index 0x123 of step 2, nothing else.
        expected.replace(2 * 16 + 2, 6, QByteArray::fromHex("230101000000"));
        QVERIFY(recorder.log().contains(
            QStringLiteral("sequenceStepUpdated(%1,%2,2)").arg(page).arg(fader)));
        QCOMPARE(m_engine->takeUpdates(),
                 (stack ? QList<Call>{{4, 2, 0, 0}} : QList<Call>{{2, page, fader, 0}}));
    } else {
        QCOMPARE(m_engine->takeUpdates(), QList<Call>{});
    }
    const QByteArray after(reinterpret_cast<const char*>(steps), int(stepCount) * 16);
    QCOMPARE(after.toHex(' '), expected.toHex(' '));
}

void TestConsoleNotify::changeReports_data()
{
    addColumns<Action, Call, QString, bool>({"report", "update", "signal", "runsHooks"});
    const auto row = [](const char* name, Call update, QString signal, bool hooks, Action report) {
        QTest::newRow(name) << report << update << signal << hooks;
    };
    // Four reports run their own notification too: hooks, caches, signal.
    row("settings", {41, 0, 0, 0}, "systemSettingsUpdated()", true,
        [](Console* c) { c->systemSettingsChanged(); });
    row("patch", {5, 0, 0, 0}, "patchUpdated()", true, [](Console* c) { c->patchChanged(); });
    row("MIDI patch", {11, 0, 0, 0}, "patchUpdated()", true,
        [](Console* c) { c->midiPatchChanged(); });
    row("independents", {12, 0, 0, 0}, "independentsUpdated()", true,
        [](Console* c) { c->independentsChanged(); });
    row("effects", {10, 0, 0, 0}, "effectUpdated()", false,
        [](Console* c) { c->effectsChanged(); });
    row("memory", {0, 2, 9, 0}, "memoryUpdated(2,9)", false, [](Console* c) {
        c->memoryChanged({2, 9});
    });
    row("stack cue", {4, 9, 0, 0}, "memoryUpdated(-1,9)", false, [](Console* c) {
        c->memoryChanged({-1, 9});
    });
    row("palette", {1, 4, 0, 0}, "paletteUpdated(4)", false,
        [](Console* c) { c->paletteChanged(4); });
    row("sequence", {2, 1, 3, 0}, "sequenceUpdated(1,3)", false, [](Console* c) {
        c->sequenceChanged({1, 3});
    });
    row("stack", {3, 0, 0, 0}, "sequenceUpdated(-1,-1)", false,
        [](Console* c) { c->sequenceChanged({}); });
    row("sequence step", {2, 1, 3, 0}, "sequenceStepUpdated(1,3,6)", false, [](Console* c) {
        c->sequenceStepChanged({1, 3}, 6);
    });
    row("stack step", {4, 6, 0, 0}, "sequenceStepUpdated(-1,-1,6)", false,
        [](Console* c) { c->sequenceStepChanged({}, 6); });
    row("group", {7, 8, 0, 0}, "groupUpdated(8)", false, [](Console* c) { c->groupChanged(8); });
    row("device status", {24, 0, 0, 0}, "deviceStatusUpdated()", false,
        [](Console* c) { c->deviceStatusChanged(); });
    row("console status", {23, 0, 0, 0}, "consoleStatusUpdated()", false,
        [](Console* c) { c->consoleStatusChanged(); });
    row("patch device", {29, 3, 77, 600}, {}, true,
        [](Console* c) { c->cache()->patchDevice(3, 77, 600); });
    row("delete step", {34, 12 * 2 + 5, 7, 0}, {}, true,
        [](Console* c) { c->cache()->deleteStep(2, 5, 7); });
}

void TestConsoleNotify::changeReports()
{
    auto [report, update, signal, runsHooks] =
        fetch<Action, Call, QString, bool>({"report", "update", "signal", "runsHooks"});

    m_console->appendHook(new ProbeHook(&m_log, "hook", update.code));
    SignalRecorder recorder(m_console);
    report(m_console);
    QCOMPARE(m_engine->updates(), QList<Call>{update});
    QCOMPARE(recorder.log(), signal.isEmpty() ? QStringList() : QStringList{signal});
    QCOMPARE(m_log, (runsHooks ? QStringList{"hook", "~hook"} : QStringList()));
}

void TestConsoleNotify::hooksAddedWhileTheEngineNotifies()
{
    SharedLog log;
    // The engine thread runs hook passes while this thread keeps appending.
    for (int i = 0; i < 20000; ++i)
        m_engine->post(i % 2 ? 20 : 30, i);
    for (int i = 0; i < 2000; ++i)
        m_console->appendHook(new CountingHook(&log, i % 2 ? 20 : 30));
    m_engine->waitIdle();
    // Whatever was appended after the last pass fires on the next one.
    m_engine->post(20);
    m_engine->post(30);
    m_engine->waitIdle();
    QCOMPARE(log.runs.load(), 2000);
    QCOMPARE(log.deleted.load(), 2000);
    // Around bulk changes every pass is suspended and each end drops the hooks.
    m_engine->post(ConsoleCode::System, SystemCode::BulkBegin);
    for (int i = 0; i < 200; ++i) {
        m_engine->post(ConsoleCode::System, SystemCode::BulkEnd);
        m_engine->post(ConsoleCode::System, SystemCode::BulkBegin);
        m_console->appendHook(new CountingHook(&log, 20));
        m_engine->post(20);
    }
    m_engine->post(ConsoleCode::System, SystemCode::BulkEnd);
    m_engine->stopThread();
    QCOMPARE(log.runs.load(), 2000);
    QCOMPARE(log.deleted.load(), 2200);
}

void TestConsoleNotify::cachesReadWhileTheEngineRebuilds()
{
    m_engine->record()->dmxPatch[300] = 5;
    m_engine->record()->devices[3].firstAddress = 1;
    m_engine->record()->devices[3].footprint = 4;
    m_console->patchChanged();
    // The patch stays the same: every read, mid-rebuild or not, sees it.
    SharedLog done;
    m_console->appendHook(new CountingHook(&done, 20));
    for (int i = 0; i < 5000; ++i)
        m_engine->post(i % 2 ? ConsoleCode::PatchChanged : ConsoleCode::DeviceChanged, 3);
    m_engine->post(20);
    int wrong = 0;
    while (done.runs.load() == 0) {
        wrong += m_console->cache()->addressFlags(300) != ConsoleCache::AddressPatched;
        wrong += m_console->cache()->addressDevice(2) != 4;
        wrong += m_console->cache()->channelFlags(4) != ConsoleCache::ChannelPatched;
    }
    m_engine->stopThread();
    QCOMPARE(wrong, 0);
}

void TestConsoleNotify::load_data()
{
    // consoleVersion: what the console reports, if not the engine's
    // type: or the load error
    addColumns<QString, int, QByteArray, int>({"library", "variant", "consoleVersion", "type"});
    QTest::newRow("Alder") << "glowEngine" << 0 << QByteArray() << int(ConsoleCache::ModelAlder);
    QTest::newRow("Birch") << "glowEngine" << 1 << QByteArray() << int(ConsoleCache::ModelBirch);
    QTest::newRow("Cedar") << "glowEngine" << 2 << QByteArray() << int(ConsoleCache::ModelCedar);
    QTest::newRow("Maple") << "glowproEngine" << 0 << QByteArray() << int(ConsoleCache::ModelMaple);
    QTest::newRow("another console version")
        << "glowEngine" << 1 << QByteArray("0.0-other") << -1 - int(Console::VersionMismatch);
    QTest::newRow("missing library")
        << "lumideskNoSuchEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
    QTest::newRow("no getConsole")
        << "lumideskNoFactoryEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
    QTest::newRow("getConsole gives null")
        << "lumideskNullFactoryEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
}

void TestConsoleNotify::load()
{
    auto [library, variant, consoleVersion, type] =
        fetch<QString, int, QByteArray, int>({"library", "variant", "consoleVersion", "type"});
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("Library name: ") + library));
    if (library.contains(QLatin1String("NoSuch")))
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(library));
    qputenv("LUMIDESK_ENGINE_CONSOLE_VERSION", consoleVersion);
    // A successful load leaves the error untouched.
    Console::LoadError error = Console::LoadError(-9);
    Console* console = Console::load(library, variant, &error, QStringLiteral("de"));
    qunsetenv("LUMIDESK_ENGINE_CONSOLE_VERSION");
    QCOMPARE(console ? int(console->consoleType()) : -1 - int(error), type);
    if (!console)
        return;
    QCOMPARE(int(error), -9);
    // The button blink runs from the end of the load on.
    const QList<QTimer*> timers = console->findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.first()->isActive());
    console->unload();
}

void TestConsoleNotify::handshake_data()
{
    // versionChecks: until ready; 0: ready when started
    addColumns<int, QString, bool>({"versionChecks", "consoleVersion", "loads"});
    QTest::newRow("ready when started") << 0 << "1.0" << true;
    QTest::newRow("ready after three polls") << 3 << "1.0" << true;
    QTest::newRow("another console version") << 3 << "0.9" << false;
}

void TestConsoleNotify::handshake()
{
    auto [versionChecks, consoleVersion, loads] =
        fetch<int, QString, bool>({"versionChecks", "consoleVersion", "loads"});
    FakeEngine engine;
    engine.setConsoleVersion(consoleVersion);
    engine.setReadyAfterVersionChecks(versionChecks);
    Console::LoadError error = Console::LoadError(-1);
    Console* console = Console::start(nullptr, &engine, 0, 0, &error);
    QCOMPARE(console != nullptr, loads);
    QCOMPARE(int(error), loads ? -1 : int(Console::VersionMismatch));
    if (console) {
        QVERIFY(console->isReady());
        QCOMPARE(console->cache()->channelCount(), 48);
        console->unload();
    }
}

QTEST_GUILESS_MAIN(TestConsoleNotify)
#include "tst_console_notify.moc"
