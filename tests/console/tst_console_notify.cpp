// SPDX-License-Identifier: GPL-3.0-or-later
// The notification path: which signal each engine code raises, when hooks
// run, the bulk-change suspension, the change reports and the blink timer.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"
#include "SignalRecorder.h"

#include <QMetaMethod>
#include <QTest>

#include <memory>

namespace {
using Call = FakeEngine::Call;

// A hook that waits for one code and counts its runs and its deletion.
struct HookLog
{
    int runs = 0;
    int deleted = 0;
    QList<Call> seen;
};

class ProbeHook : public Console::CacheUpdateHook
{
public:
    ProbeHook(HookLog* log, int code) : m_log(log), m_code(code) {}
    ~ProbeHook() override { ++m_log->deleted; }
    bool matches(int code, int, int, int) override { return code == m_code; }
    void run(int code, int a, int b, int c) override
    {
        ++m_log->runs;
        m_log->seen.append({code, a, b, c});
    }

private:
    HookLog* m_log;
    int m_code;
};

QVariantList memoryArgs(int page, int index)
{
    return {QVariant::fromValue(Console::Memory(page, index))};
}

QVariantList sequenceArgs(int page, int fader)
{
    return {QVariant::fromValue(Console::Sequence(page, fader))};
}

bool sameArguments(const QVariantList& actual, const QVariantList& expected)
{
    if (actual.size() != expected.size())
        return false;
    for (int i = 0; i < actual.size(); ++i) {
        const QVariant& x = actual.at(i);
        const QVariant& y = expected.at(i);
        if (x.metaType() != y.metaType())
            return false;
        if (x.metaType() == QMetaType::fromType<Console::Memory>()) {
            if (x.value<Console::Memory>() != y.value<Console::Memory>())
                return false;
        } else if (x.metaType() == QMetaType::fromType<Console::Sequence>()) {
            if (x.value<Console::Sequence>() != y.value<Console::Sequence>())
                return false;
        } else if (x != y) {
            return false;
        }
    }
    return true;
}
} // namespace

Q_DECLARE_METATYPE(Call)

class TestConsoleNotify : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void notificationTable_data();
    void notificationTable();
    void versionKnownRaisesSignalWithoutHooks();
    void readyCopiesCountsAndRunsHooks();
    void systemMessages_data();
    void systemMessages();
    void bulkChangeSuspendsEverything();
    void oneNotificationFiresEveryMatchingHook();
    void insertStepHook_data();
    void insertStepHook();
    void changeReports_data();
    void changeReports();
    void signalDeclarationOrder();
    void buttonBlinkAlternates();

private:
    std::unique_ptr<FakeEngine> m_engine;
    Console* m_console = nullptr;
    // Outlives the console, which deletes the hooks that never ran.
    HookLog m_log;
};

void TestConsoleNotify::init()
{
    m_engine = std::make_unique<FakeEngine>(ConsoleCache::ModelCedar);
    m_console = m_engine->createConsole();
    m_engine->clearUpdates();
    m_log = HookLog();
}

void TestConsoleNotify::cleanup()
{
    delete m_console;
    m_console = nullptr;
    m_engine.reset();
}

void TestConsoleNotify::notificationTable_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<QByteArray>("signal"); // empty: nothing emitted
    QTest::addColumn<QVariantList>("arguments");

    QTest::newRow("0 memory") << 0 << 3 << 17 << QByteArray("memoryUpdated(Console::Memory)")
                              << memoryArgs(3, 17);
    QTest::newRow("1 palette") << 1 << 5 << 0 << QByteArray("paletteUpdated(int)")
                               << QVariantList{5};
    QTest::newRow("2 sequence") << 2 << 4 << 9 << QByteArray("sequenceUpdated(Console::Sequence)")
                                << sequenceArgs(4, 9);
    QTest::newRow("3 stack") << 3 << 0 << 0 << QByteArray("sequenceUpdated(Console::Sequence)")
                             << sequenceArgs(-1, -1);
    QTest::newRow("4 stack cue") << 4 << 12 << 0 << QByteArray("memoryUpdated(Console::Memory)")
                                 << memoryArgs(-1, 12);
    QTest::newRow("5 patch") << 5 << 0 << 0 << QByteArray("patchUpdated()") << QVariantList{};
    QTest::newRow("6 device") << 6 << 7 << 0 << QByteArray("deviceUpdated(int)") << QVariantList{7};
    QTest::newRow("7 group") << 7 << 2 << 0 << QByteArray("groupUpdated(int)") << QVariantList{2};
    QTest::newRow("8 page") << 8 << 11 << 0 << QByteArray("pageUpdated(int)") << QVariantList{11};
    QTest::newRow("9 channel text")
        << 9 << 40 << 0 << QByteArray("channelTextUpdated(int)") << QVariantList{40};
    QTest::newRow("10 effects") << 10 << 3 << 0 << QByteArray("effectUpdated()") << QVariantList{};
    QTest::newRow("11 midi patch")
        << 11 << 0 << 0 << QByteArray("patchUpdated()") << QVariantList{};
    QTest::newRow("12 independents")
        << 12 << 0 << 0 << QByteArray("independentsUpdated()") << QVariantList{};
    QTest::newRow("13 outputs") << 13 << 0 << 0 << QByteArray("outputsUpdated()") << QVariantList{};
    QTest::newRow("14 faders") << 14 << 0 << 0 << QByteArray("faderUpdated()") << QVariantList{};
    QTest::newRow("15 channels") << 15 << 0 << 0 << QByteArray("channelsUpdated()")
                                 << QVariantList{};
    QTest::newRow("16 outputs") << 16 << 0 << 0 << QByteArray("outputsUpdated()") << QVariantList{};
    QTest::newRow("17 playback") << 17 << 0 << 0 << QByteArray("playbackUpdated()")
                                 << QVariantList{};
    QTest::newRow("18 blind") << 18 << 0 << 0 << QByteArray("blindLevelsUpdated()")
                              << QVariantList{};
    QTest::newRow("19 inputs") << 19 << 0 << 0 << QByteArray("inputsUpdated()") << QVariantList{};
    QTest::newRow("21 display") << 21 << 1 << 0 << QByteArray("displayUpdated(int)")
                                << QVariantList{1};
    QTest::newRow("22 leds") << 22 << 0 << 0 << QByteArray("ledUpdated()") << QVariantList{};
    QTest::newRow("23 console status")
        << 23 << 0 << 0 << QByteArray("consoleStatusUpdated()") << QVariantList{};
    QTest::newRow("24 device status")
        << 24 << 0 << 0 << QByteArray("deviceStatusUpdated()") << QVariantList{};
    QTest::newRow("36 show file") << 36 << 0 << 0 << QByteArray("playFileNameUpdated()")
                                  << QVariantList{};
    QTest::newRow("41 settings") << 41 << 0 << 0 << QByteArray("systemSettingsUpdated()")
                                 << QVariantList{};
    // Hooks only.
    for (int code : {20, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 40, 42})
        QTest::addRow("%d hooks only", code) << code << 1 << 2 << QByteArray() << QVariantList{};
}

void TestConsoleNotify::notificationTable()
{
    QFETCH(int, code);
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(QByteArray, signal);
    QFETCH(QVariantList, arguments);

    HookLog& log = m_log;
    m_console->appendHook(new ProbeHook(&log, code));
    SignalRecorder recorder(m_console);
    m_engine->notify(code, a, b, 9);

    if (signal.isEmpty()) {
        QCOMPARE(recorder.signatures(), QList<QByteArray>{});
    } else {
        QCOMPARE(recorder.signatures(), QList<QByteArray>{signal});
        QVERIFY2(sameArguments(recorder.emissions().first().arguments, arguments),
                 "signal arguments differ from the notification");
    }
    QCOMPARE(log.runs, 1);
    QCOMPARE(log.deleted, 1);
    QCOMPARE(log.seen.first(), (Call{code, a, b, 9}));

    // The hook was one-shot.
    m_engine->notify(code, a, b, 9);
    QCOMPARE(log.runs, 1);
    // A notification never goes back to the engine.
    QCOMPARE(m_engine->updates(), QList<Call>{});
}

void TestConsoleNotify::versionKnownRaisesSignalWithoutHooks()
{
    FakeEngine engine;
    engine.setReadyOnStart(false);
    Console* console = engine.createConsole();
    QVERIFY(!console->isVersionKnown());
    HookLog log;
    console->appendHook(new ProbeHook(&log, ConsoleCode::VersionKnown));
    SignalRecorder recorder(console);

    engine.notify(ConsoleCode::VersionKnown);

    QVERIFY(console->isVersionKnown());
    QVERIFY(!console->isReady());
    QCOMPARE(recorder.signatures(), QList<QByteArray>{"consoleVersionUpdated()"});
    QCOMPARE(log.runs, 0);
    delete console;
    QCOMPARE(log.deleted, 1);
}

void TestConsoleNotify::readyCopiesCountsAndRunsHooks()
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    engine.setReadyOnStart(false);
    Console* console = engine.createConsole();
    QCOMPARE(console->cache()->channelCount(), 0);
    HookLog log;
    console->appendHook(new ProbeHook(&log, ConsoleCode::Ready));
    SignalRecorder recorder(console);

    engine.notify(ConsoleCode::Ready);

    QVERIFY(console->isReady());
    QCOMPARE(recorder.signatures(), QList<QByteArray>{});
    QCOMPARE(log.runs, 1);
    const ConsoleCache* cache = console->cache();
    QCOMPARE(cache->channelCount(), 72);
    QCOMPARE(cache->pageCount(), 12);
    QCOMPARE(cache->firstDeviceChannel(), 48);
    QCOMPARE(cache->firstSequenceFader(), 12);
    delete console;
}

void TestConsoleNotify::systemMessages_data()
{
    QTest::addColumn<int>("subCode");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QVariantList>("arguments");

    QTest::newRow("1 end of bulk change") << 1 << QByteArray("playLoaded()") << QVariantList{};
    QTest::newRow("5 command") << 5 << QByteArray("lumideskCommand(int,int)") << QVariantList{6, 7};
    QTest::newRow("8 busy") << 8 << QByteArray("systemBusyCommand(int)") << QVariantList{6};
    for (int subCode : {2, 3, 4, 6, 7, 9, 10, 16, 99})
        QTest::addRow("%d ignored", subCode) << subCode << QByteArray() << QVariantList{};
}

void TestConsoleNotify::systemMessages()
{
    QFETCH(int, subCode);
    QFETCH(QByteArray, signal);
    QFETCH(QVariantList, arguments);

    HookLog& log = m_log;
    m_console->appendHook(new ProbeHook(&log, ConsoleCode::System));
    SignalRecorder recorder(m_console);
    m_engine->notify(ConsoleCode::System, subCode, 6, 7);

    if (signal.isEmpty()) {
        QCOMPARE(recorder.signatures(), QList<QByteArray>{});
    } else {
        QCOMPARE(recorder.signatures(), QList<QByteArray>{signal});
        QCOMPARE(recorder.emissions().first().arguments, arguments);
    }
    QCOMPARE(log.runs, 0);
}

void TestConsoleNotify::bulkChangeSuspendsEverything()
{
    HookLog log;
    m_console->appendHook(new ProbeHook(&log, ConsoleCode::PatchChanged));
    m_console->appendHook(new ProbeHook(&log, ConsoleCode::OutputsChanged));
    SignalRecorder recorder(m_console);

    m_engine->notify(ConsoleCode::System, SystemCode::BulkBegin);
    // The show being loaded patches channel 3 to address 10 meanwhile.
    m_engine->record()->dmxPatch[10] = 3;
    for (int code : {0, 2, 5, 6, 11, 13, 15, 20, 30, 41})
        m_engine->notify(code, 1, 1, 0);
    QCOMPARE(recorder.signatures(), QList<QByteArray>{});
    QCOMPARE(log.runs, 0);
    QCOMPARE(m_console->cache()->addressFlags(10), quint8(0));

    // Version, ready and system messages still get through.
    m_engine->notify(ConsoleCode::System, SystemCode::LumideskCommand, 1, 2);
    m_engine->notify(ConsoleCode::VersionKnown);
    QCOMPARE(recorder.signatures(),
             (QList<QByteArray>{"lumideskCommand(int,int)", "consoleVersionUpdated()"}));
    recorder.clear();

    m_engine->notify(ConsoleCode::System, SystemCode::BulkEnd);
    QCOMPARE(recorder.signatures(), QList<QByteArray>{"playLoaded()"});
    // Pending hooks were dropped without running; the caches were rebuilt.
    QCOMPARE(log.deleted, 2);
    QCOMPARE(log.runs, 0);
    QCOMPARE(m_console->cache()->addressFlags(10), ConsoleCache::AddressPatched);
    QCOMPARE(m_console->cache()->channelFlags(2), ConsoleCache::ChannelPatched);

    recorder.clear();
    m_engine->notify(ConsoleCode::OutputsChanged);
    QCOMPARE(recorder.signatures(), QList<QByteArray>{"outputsUpdated()"});
    QCOMPARE(log.runs, 0);
}

void TestConsoleNotify::oneNotificationFiresEveryMatchingHook()
{
    HookLog first, second, other;
    m_console->appendHook(new ProbeHook(&first, 20));
    m_console->appendHook(new ProbeHook(&other, 25));
    m_console->appendHook(new ProbeHook(&second, 20));

    m_engine->notify(20);

    QCOMPARE(first.runs, 1);
    QCOMPARE(second.runs, 1);
    QCOMPARE(other.runs, 0);
    m_engine->notify(25);
    QCOMPARE(other.runs, 1);
}

void TestConsoleNotify::insertStepHook_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("fader");
    QTest::addColumn<Call>("notification");
    QTest::addColumn<bool>("fires");

    QTest::newRow("stack, 4 for the step") << -1 << -1 << Call{4, 5, 0, 0} << true;
    QTest::newRow("stack, 3 stack changed") << -1 << -1 << Call{3, 0, 0, 0} << false;
    QTest::newRow("stack, 4 for another step") << -1 << -1 << Call{4, 6, 0, 0} << false;
    QTest::newRow("stack, 2 for a sequence") << -1 << -1 << Call{2, -1, -1, 0} << false;
    QTest::newRow("sequence, 2 for it") << 3 << 7 << Call{2, 3, 7, 0} << true;
    QTest::newRow("sequence, 2 for another fader") << 3 << 7 << Call{2, 3, 8, 0} << false;
    QTest::newRow("sequence, 2 for another page") << 3 << 7 << Call{2, 4, 7, 0} << false;
    QTest::newRow("sequence, 4 for the step") << 3 << 7 << Call{4, 5, 0, 0} << false;
}

void TestConsoleNotify::insertStepHook()
{
    QFETCH(int, page);
    QFETCH(int, fader);
    QFETCH(Call, notification);
    QFETCH(bool, fires);

    const int key = page == -1 ? 12 * 12 : 12 * page + fader;
    const quint32 stepOffset =
        page == -1 ? 0x18DE18 + 5 * 16 : 0x17E698 + (page * 12 + fader) * 440 + 5 * 16;
    // The step as the engine left it: empty content.
    quint8* bytes = m_engine->bytes();
    bytes[stepOffset + 4] = 0xFF;

    m_console->cache()->insertStep(page, fader, 5, 55, ConsoleCache::StepMemory, 0x0123);
    QCOMPARE(m_engine->takeUpdates(), (QList<Call>{{32, key, 5, 55}}));

    SignalRecorder recorder(m_console);
    m_engine->notify(notification.code, notification.a, notification.b, notification.c);

    const QByteArray step(reinterpret_cast<const char*>(bytes + stepOffset), 8);
    if (fires) {
        QCOMPARE(step.mid(2, 6), QByteArray::fromHex("230101000000"));
        QVERIFY(recorder.signatures().contains("sequenceStepUpdated(Console::Sequence,int)"));
        const QList<Call> expected =
            page == -1 ? QList<Call>{{4, 5, 0, 0}} : QList<Call>{{2, page, fader, 0}};
        QCOMPARE(m_engine->takeUpdates(), expected);
    } else {
        QCOMPARE(step.mid(2, 6), QByteArray::fromHex("0000ff000000"));
        QVERIFY(!recorder.signatures().contains("sequenceStepUpdated(Console::Sequence,int)"));
        QCOMPARE(m_engine->takeUpdates(), QList<Call>{});
    }
}

void TestConsoleNotify::changeReports_data()
{
    QTest::addColumn<int>("report");
    QTest::addColumn<QList<Call>>("updates");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<bool>("runsHooks");

    QTest::newRow("systemSettingsChanged")
        << 0 << QList<Call>{{41, 0, 0, 0}} << QByteArray("systemSettingsUpdated()")
        << QVariantList{} << true;
    QTest::newRow("patchChanged") << 1 << QList<Call>{{5, 0, 0, 0}} << QByteArray("patchUpdated()")
                                  << QVariantList{} << true;
    QTest::newRow("midiPatchChanged") << 2 << QList<Call>{{11, 0, 0, 0}}
                                      << QByteArray("patchUpdated()") << QVariantList{} << true;
    QTest::newRow("independentsChanged")
        << 3 << QList<Call>{{12, 0, 0, 0}} << QByteArray("independentsUpdated()") << QVariantList{}
        << true;
    QTest::newRow("effectsChanged") << 4 << QList<Call>{{10, 0, 0, 0}}
                                    << QByteArray("effectUpdated()") << QVariantList{} << false;
    QTest::newRow("memoryChanged page memory")
        << 5 << QList<Call>{{0, 2, 9, 0}} << QByteArray("memoryUpdated(Console::Memory)")
        << memoryArgs(2, 9) << false;
    QTest::newRow("memoryChanged stack cue")
        << 6 << QList<Call>{{4, 9, 0, 0}} << QByteArray("memoryUpdated(Console::Memory)")
        << memoryArgs(-1, 9) << false;
    QTest::newRow("paletteChanged")
        << 7 << QList<Call>{{1, 4, 0, 0}} << QByteArray("paletteUpdated(int)") << QVariantList{4}
        << false;
    QTest::newRow("sequenceChanged sequence")
        << 8 << QList<Call>{{2, 1, 3, 0}} << QByteArray("sequenceUpdated(Console::Sequence)")
        << sequenceArgs(1, 3) << false;
    QTest::newRow("sequenceChanged stack")
        << 9 << QList<Call>{{3, 0, 0, 0}} << QByteArray("sequenceUpdated(Console::Sequence)")
        << sequenceArgs(-1, -1) << false;
    QTest::newRow("sequenceStepChanged sequence")
        << 10 << QList<Call>{{2, 1, 3, 0}}
        << QByteArray("sequenceStepUpdated(Console::Sequence,int)")
        << QVariantList{QVariant::fromValue(Console::Sequence(1, 3)), 6} << false;
    QTest::newRow("sequenceStepChanged stack")
        << 11 << QList<Call>{{4, 6, 0, 0}}
        << QByteArray("sequenceStepUpdated(Console::Sequence,int)")
        << QVariantList{QVariant::fromValue(Console::Sequence()), 6} << false;
    QTest::newRow("groupChanged") << 12 << QList<Call>{{7, 8, 0, 0}}
                                  << QByteArray("groupUpdated(int)") << QVariantList{8} << false;
    QTest::newRow("deviceStatusChanged")
        << 13 << QList<Call>{{24, 0, 0, 0}} << QByteArray("deviceStatusUpdated()") << QVariantList{}
        << false;
    QTest::newRow("consoleStatusChanged")
        << 14 << QList<Call>{{23, 0, 0, 0}} << QByteArray("consoleStatusUpdated()")
        << QVariantList{} << false;
}

void TestConsoleNotify::changeReports()
{
    QFETCH(int, report);
    QFETCH(QList<Call>, updates);
    QFETCH(QByteArray, signal);
    QFETCH(QVariantList, arguments);
    QFETCH(bool, runsHooks);

    HookLog& log = m_log;
    m_console->appendHook(new ProbeHook(&log, updates.first().code));
    SignalRecorder recorder(m_console);
    Console* c = m_console;
    switch (report) {
    case 0:
        c->systemSettingsChanged();
        break;
    case 1:
        c->patchChanged();
        break;
    case 2:
        c->midiPatchChanged();
        break;
    case 3:
        c->independentsChanged();
        break;
    case 4:
        c->effectsChanged();
        break;
    case 5:
        c->memoryChanged(Console::Memory(2, 9));
        break;
    case 6:
        c->memoryChanged(Console::Memory(-1, 9));
        break;
    case 7:
        c->paletteChanged(4);
        break;
    case 8:
        c->sequenceChanged(Console::Sequence(1, 3));
        break;
    case 9:
        c->sequenceChanged(Console::Sequence());
        break;
    case 10:
        c->sequenceStepChanged(Console::Sequence(1, 3), 6);
        break;
    case 11:
        c->sequenceStepChanged(Console::Sequence(), 6);
        break;
    case 12:
        c->groupChanged(8);
        break;
    case 13:
        c->deviceStatusChanged();
        break;
    case 14:
        c->consoleStatusChanged();
        break;
    }
    QCOMPARE(m_engine->updates(), updates);
    QCOMPARE(recorder.signatures(), QList<QByteArray>{signal});
    QVERIFY2(sameArguments(recorder.emissions().first().arguments, arguments),
             "signal arguments differ from the report");
    QCOMPARE(log.runs, runsHooks ? 1 : 0);
}

void TestConsoleNotify::signalDeclarationOrder()
{
    const QList<QByteArray> expected = {"systemSettingsUpdated()",
                                        "playLoaded()",
                                        "playFileNameUpdated()",
                                        "lumideskCommand(int,int)",
                                        "systemBusyCommand(int)",
                                        "consoleVersionUpdated()",
                                        "channelTextUpdated(int)",
                                        "patchUpdated()",
                                        "independentsUpdated()",
                                        "deviceUpdated(int)",
                                        "channelsUpdated()",
                                        "outputsUpdated()",
                                        "inputsUpdated()",
                                        "effectUpdated()",
                                        "groupUpdated(int)",
                                        "pageUpdated(int)",
                                        "memoryUpdated(Console::Memory)",
                                        "paletteUpdated(int)",
                                        "sequenceUpdated(Console::Sequence)",
                                        "sequenceStepUpdated(Console::Sequence,int)",
                                        "deviceStatusUpdated()",
                                        "consoleStatusUpdated()",
                                        "playbackUpdated()",
                                        "faderUpdated()",
                                        "blindLevelsUpdated()",
                                        "ledUpdated()",
                                        "displayUpdated(int)",
                                        "buttonBlink(bool)"};
    const QMetaObject& meta = Console::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("Console"));
    QCOMPARE(meta.methodCount() - meta.methodOffset(), int(expected.size()) + 1);
    for (int i = 0; i < expected.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.methodSignature(), expected.at(i));
    }
    const QMetaMethod slot = meta.method(meta.methodOffset() + int(expected.size()));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.methodSignature(), QByteArray("buttonBlinkTimerTimeout()"));

    // QObject is the first base, the handler interface the second.
    QCOMPARE(static_cast<void*>(static_cast<QObject*>(m_console)), static_cast<void*>(m_console));
    QVERIFY(static_cast<void*>(static_cast<IConsoleHandler*>(m_console)) !=
            static_cast<void*>(m_console));
}

void TestConsoleNotify::buttonBlinkAlternates()
{
    SignalRecorder recorder(m_console);
    for (int i = 0; i < 4; ++i)
        QVERIFY(QMetaObject::invokeMethod(m_console, "buttonBlinkTimerTimeout"));
    QList<bool> lit;
    for (const SignalRecorder::Emission& emission : recorder.emissions()) {
        QCOMPARE(emission.signature, QByteArray("buttonBlink(bool)"));
        lit.append(emission.arguments.first().toBool());
    }
    QCOMPARE(lit, (QList<bool>{false, true, false, true}));
}

QTEST_GUILESS_MAIN(TestConsoleNotify)
#include "tst_console_notify.moc"
