// SPDX-License-Identifier: GPL-3.0-or-later
// The notification path: the signal of each engine code, when hooks run and
// in which order, the bulk-change suspension, step inserts and the change
// reports.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"
#include "SignalRecorder.h"

#include <QTest>

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
    ProbeHook(QStringList* log, QString name, int code, std::function<void()> action = {})
        : m_log(log), m_name(std::move(name)), m_code(code), m_action(std::move(action))
    {
    }
    ~ProbeHook() override { m_log->append(u'~' + m_name); }
    bool matches(int code, int, int, int) override { return code == m_code; }
    void run(int, int, int, int) override
    {
        m_log->append(m_name);
        if (m_action)
            m_action();
    }

private:
    QStringList* m_log;
    QString m_name;
    int m_code;
    std::function<void()> m_action;
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
    void buttonBlinkAlternates();

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
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("a");
    QTest::addColumn<QStringList>("emitted");
    QTest::addColumn<bool>("runsHooks");

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
    row("16 outputs", 16, 0, "outputsUpdated()");
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
    QFETCH(int, code);
    QFETCH(int, a);
    QFETCH(QStringList, emitted);
    QFETCH(bool, runsHooks);

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
    std::function<void()> action;
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
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("fader");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("engineInserts");
    QTest::addColumn<Call>("notification");
    QTest::addColumn<bool>("filled");

    QTest::newRow("sequence, 2 for it") << 3 << 7 << 5 << true << Call{2, 3, 7, 0} << true;
    QTest::newRow("sequence, 2 for another fader")
        << 3 << 7 << 5 << true << Call{2, 3, 8, 0} << false;
    QTest::newRow("sequence, 4 for the step") << 3 << 7 << 5 << true << Call{4, 2, 0, 0} << false;
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
    QFETCH(int, page);
    QFETCH(int, fader);
    QFETCH(int, count);
    QFETCH(bool, engineInserts);
    QFETCH(Call, notification);
    QFETCH(bool, filled);

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
    QTest::addColumn<Action>("report");
    QTest::addColumn<Call>("update");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("runsHooks");
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
    row("select page", {39, 10, 6, 0}, {}, false, [](Console* c) { c->cache()->selectPage(6); });
    row("patch device", {29, 3, 77, 600}, {}, true,
        [](Console* c) { c->cache()->patchDevice(3, 77, 600); });
    row("delete step", {34, 12 * 2 + 5, 7, 0}, {}, true,
        [](Console* c) { c->cache()->deleteStep(2, 5, 7); });
}

void TestConsoleNotify::changeReports()
{
    QFETCH(Action, report);
    QFETCH(Call, update);
    QFETCH(QString, signal);
    QFETCH(bool, runsHooks);

    m_console->appendHook(new ProbeHook(&m_log, "hook", update.code));
    SignalRecorder recorder(m_console);
    report(m_console);
    QCOMPARE(m_engine->updates(), QList<Call>{update});
    QCOMPARE(recorder.log(), signal.isEmpty() ? QStringList() : QStringList{signal});
    QCOMPARE(m_log, (runsHooks ? QStringList{"hook", "~hook"} : QStringList()));
}

void TestConsoleNotify::buttonBlinkAlternates()
{
    SignalRecorder recorder(m_console);
    for (int i = 0; i < 3; ++i)
        QVERIFY(QMetaObject::invokeMethod(m_console, "buttonBlinkTimerTimeout"));
    QCOMPARE(recorder.log(),
             (QStringList{"buttonBlink(false)", "buttonBlink(true)", "buttonBlink(false)"}));
}

QTEST_GUILESS_MAIN(TestConsoleNotify)
#include "tst_console_notify.moc"
