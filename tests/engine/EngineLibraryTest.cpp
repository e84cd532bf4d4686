// SPDX-License-Identifier: GPL-3.0-or-later
// The engine libraries as the program sees them: opened by name, driven
// through the engine interface, observed through notifications and the record.
#include "EngineHarness.h"
#include "EngineTestCodes.h"
#include "RecordArea.h"

#include <QtTest>

namespace {
constexpr int versionKnown = 37;
constexpr int ready = 38;
constexpr int outputLevels = 16;
constexpr int stepDone = 39; // the step barrier's answer

struct EnvironmentGuard
{
    QByteArray name;
    EnvironmentGuard(std::string_view variable, const QByteArray& value)
        : name(variable.data(), int(variable.size()))
    {
        qputenv(name.constData(), value);
    }
    ~EnvironmentGuard() { qunsetenv(name.constData()); }
};

void queueDmxWrite(ConsoleStateRecord* record, int universe, int address, quint8 level,
                   quint8 palette)
{
    const int index = record->dmxWriteIndex;
    DmxWrite& entry = record->dmxWriteRing[index];
    entry.kind = 0;
    entry.address = quint16(universe << 9 | address);
    entry.level = level;
    entry.palette = palette;
    __atomic_store_n(&record->dmxWriteIndex,
                     quint8((index + 1) % ConsoleStateRecord::dmxWriteRingSize), __ATOMIC_RELEASE);
}
} // namespace

class EngineLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void factoryAnswersOnlyVersionFive_data();
    void factoryAnswersOnlyVersionFive();
    void startLaysOutTheModel_data();
    void startLaysOutTheModel();
    void versionArrivesBeforeReady();
    void otherConsoleVersionNeverBecomesReady();
    void dmxWritesReachTheOutput_data();
    void dmxWritesReachTheOutput();
    void dmxRingWrapsAround();
    void runningClockConsumesTheRing();
};

void EngineLibraryTest::factoryAnswersOnlyVersionFive_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("version");
    QTest::addColumn<bool>("expectEngine");
    for (const char* library : {"glowEngine", "glowproEngine"}) {
        QTest::addRow("%s version 5", library) << library << 5 << true;
        QTest::addRow("%s version 4", library) << library << 4 << false;
        QTest::addRow("%s version 6", library) << library << 6 << false;
        QTest::addRow("%s version 0", library) << library << 0 << false;
    }
}

void EngineLibraryTest::factoryAnswersOnlyVersionFive()
{
    QFETCH(QString, library);
    QFETCH(int, version);
    QFETCH(bool, expectEngine);
    QLibrary lib(library);
    auto getConsole = reinterpret_cast<GetConsoleFunction>(lib.resolve("getConsole"));
    QVERIFY2(getConsole, qPrintable(lib.errorString()));
    ConsoleEngine* engine = getConsole(version);
    QCOMPARE(engine != nullptr, expectEngine);
    if (engine) {
        QVERIFY(engine->stateRecord());
        QCOMPARE(engine->softwareVersion().isEmpty(), false);
        engine->release(); // released without start: nothing to stop
    }
}

void EngineLibraryTest::startLaysOutTheModel_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("faders");
    QTest::addColumn<int>("devices");
    QTest::addColumn<int>("addresses");
    QTest::addColumn<int>("mode");
    QTest::newRow("Alder") << "glowEngine" << 0 << 48 << 24 << 0 << 512 << 1;
    QTest::newRow("Birch") << "glowEngine" << 1 << 96 << 24 << 0 << 512 << 1;
    QTest::newRow("Cedar") << "glowEngine" << 2 << 96 << 48 << 0 << 512 << 1;
    QTest::newRow("unknown variant falls back to Alder")
        << "glowEngine" << 7 << 48 << 24 << 0 << 512 << 1;
    QTest::newRow("Maple") << "glowproEngine" << 0 << 72 << 24 << 24 << 1024 << 1;
}

void EngineLibraryTest::startLaysOutTheModel()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(int, channels);
    QFETCH(int, faders);
    QFETCH(int, devices);
    QFETCH(int, addresses);
    QFETCH(int, mode);
    EngineHarness harness(library);
    QVERIFY(harness.isLoaded());
    harness.start(variant);
    QVERIFY(harness.waitFor(ready));
    const ConsoleStateRecord* r = harness.record();
    QCOMPARE(r->channelCount, channels);
    QCOMPARE(r->faderCount, faders);
    QCOMPARE(r->deviceCount, devices);
    QCOMPARE(r->patchAddressCount, addresses);
    QCOMPARE(r->pageCount, 12);
    QCOMPARE(r->sequenceFaderCount, 12);
    QCOMPARE(int(r->consoleMode), mode);
    QCOMPARE(int(r->consoleStatus), 0);
    QCOMPARE(int(r->grandMasterLevel), 255);
    QCOMPARE(RecordArea::slotText(r, r->consoleVersion), harness.engine()->softwareVersion());
    QCOMPARE(RecordArea::slotText(r, r->libraryVersion).isEmpty(), devices == 0);
    // Playbacks without a cue read full rate and fade.
    for (const PlaybackRecord& p : r->playbacks) {
        QCOMPARE(int(p.rate), 256);
        QCOMPARE(int(p.fade), 256);
    }
}

void EngineLibraryTest::versionArrivesBeforeReady()
{
    EngineHarness harness("glowEngine");
    harness.start(0);
    QVERIFY(harness.waitFor(ready));
    const QList<EngineHarness::Notification> received = harness.notifications();
    QVERIFY(received.size() >= 2);
    QCOMPARE(received.at(0).code, versionKnown);
    QCOMPARE(received.at(1).code, ready);
}

void EngineLibraryTest::otherConsoleVersionNeverBecomesReady()
{
    EnvironmentGuard version(EngineTest::consoleVersionVariable, "0.9.7");
    EngineHarness harness("glowproEngine");
    harness.start(0);
    QVERIFY(harness.waitFor(versionKnown));
    QCOMPARE(RecordArea::slotText(harness.record(), harness.record()->consoleVersion),
             QString("0.9.7"));
    QVERIFY(harness.engine()->softwareVersion() != QString("0.9.7"));
    // A change request would normally be answered; a mismatched engine stays silent.
    harness.engine()->update(EngineTest::Step, 0, 0, 0);
    harness.release(); // joins the engine thread: nothing can arrive afterwards
    QCOMPARE(harness.countOf(ready), 0);
    QCOMPARE(harness.countOf(stepDone), 0);
    QCOMPARE(harness.notifications().size(), 1);
}

void EngineLibraryTest::dmxWritesReachTheOutput_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("universe");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("palette");
    QTest::addColumn<int>("index");
    // Addresses that nothing else drives in the demo show.
    QTest::newRow("level on 1:300") << "glowEngine" << 0 << 299 << 200 << 0 << 299;
    QTest::newRow("level on 1:512") << "glowEngine" << 0 << 511 << 17 << 0 << 511;
    QTest::newRow("palette 3 on 2:40") << "glowproEngine" << 1 << 39 << 0 << 4 << 551;
    QTest::newRow("level on 2:17") << "glowproEngine" << 1 << 16 << 128 << 0 << 528;
}

void EngineLibraryTest::dmxWritesReachTheOutput()
{
    QFETCH(QString, library);
    QFETCH(int, universe);
    QFETCH(int, address);
    QFETCH(int, level);
    QFETCH(int, palette);
    QFETCH(int, index);
    EnvironmentGuard manual(EngineTest::manualClockVariable, "1");
    EngineHarness harness(library);
    harness.start(0);
    QVERIFY(harness.waitFor(ready));
    ConsoleStateRecord* r = harness.record();
    queueDmxWrite(r, universe, address, quint8(level), quint8(palette));
    harness.engine()->update(EngineTest::Step, 0, 0, 0);
    QVERIFY(harness.waitFor(stepDone));
    QCOMPARE(int(r->dmxOutput[index]), level);
    QCOMPARE(int(r->dmxPalette[index]), palette);
    QCOMPARE(int(__atomic_load_n(&r->dmxReadIndex, __ATOMIC_ACQUIRE)), 1);
    QCOMPARE(harness.countOf(outputLevels), 1);
    // Neighbouring addresses are untouched.
    QCOMPARE(int(r->dmxOutput[(index + 1) % 1024]), 0);

    // The same value again changes nothing, so nothing is announced.
    queueDmxWrite(r, universe, address, quint8(level), quint8(palette));
    harness.engine()->update(EngineTest::Step, 0, 0, 0);
    QVERIFY(harness.waitFor(stepDone, 2));
    QCOMPARE(harness.countOf(outputLevels), 1);
}

void EngineLibraryTest::dmxRingWrapsAround()
{
    EnvironmentGuard manual(EngineTest::manualClockVariable, "1");
    EngineHarness harness("glowEngine");
    harness.start(0);
    QVERIFY(harness.waitFor(ready));
    ConsoleStateRecord* r = harness.record();
    // Move both indexes near the end, then write across the wrap.
    r->dmxWriteIndex = 97;
    r->dmxReadIndex = 97;
    harness.engine()->update(EngineTest::Step, 0, 0, 0);
    QVERIFY(harness.waitFor(stepDone));
    for (int k = 0; k < 6; ++k)
        queueDmxWrite(r, 0, 400 + k, quint8(10 + k), 0);
    harness.engine()->update(EngineTest::Step, 0, 0, 0);
    QVERIFY(harness.waitFor(stepDone, 2));
    for (int k = 0; k < 6; ++k)
        QCOMPARE(int(r->dmxOutput[400 + k]), 10 + k);
    QCOMPARE(int(__atomic_load_n(&r->dmxReadIndex, __ATOMIC_ACQUIRE)), 3);
}

void EngineLibraryTest::runningClockConsumesTheRing()
{
    EngineHarness harness("glowEngine");
    harness.start(1);
    QVERIFY(harness.waitFor(ready));
    ConsoleStateRecord* r = harness.record();
    queueDmxWrite(r, 0, 305, 99, 0);
    QVERIFY(harness.waitFor(outputLevels));
    QCOMPARE(int(r->dmxOutput[305]), 99);
}

QTEST_GUILESS_MAIN(EngineLibraryTest)
#include "EngineLibraryTest.moc"
