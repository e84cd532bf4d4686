// SPDX-License-Identifier: GPL-3.0-or-later
// The engine libraries as the program opens them: by name, through the
// engine interface and the program's Console, observed in the record.
#include "ConsoleEngine.h"
#include "EngineSession.h"
#include "EngineTestCodes.h"
#include "RecordArea.h"

#include <QLibrary>
#include <QtTest>

class EngineLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void factoryAnswersOnlyVersionFive_data();
    void factoryAnswersOnlyVersionFive();
    void startLaysOutTheModel_data();
    void startLaysOutTheModel();
    void otherConsoleVersionNeverBecomesReady();
    void dmxWritesReachTheOutput_data();
    void dmxWritesReachTheOutput();
    void runningClockConsumesTheRing();
};

void EngineLibraryTest::factoryAnswersOnlyVersionFive_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("version");
    for (const char* library : {"glowEngine", "glowproEngine"}) {
        for (int version : {5, 4, 6})
            QTest::addRow("%s version %d", library, version) << library << version;
    }
}

void EngineLibraryTest::factoryAnswersOnlyVersionFive()
{
    QFETCH(QString, library);
    QFETCH(int, version);
    QLibrary lib(library);
    auto getConsole = reinterpret_cast<GetConsoleFunction>(lib.resolve("getConsole"));
    QVERIFY2(getConsole, qPrintable(lib.errorString()));
    ConsoleEngine* engine = getConsole(version);
    QCOMPARE(engine != nullptr, version == 5);
    if (engine) {
        QVERIFY(engine->stateRecord());
        QVERIFY(!engine->softwareVersion().isEmpty());
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
    QTest::newRow("Alder") << "glowEngine" << 0 << 48 << 24 << 0 << 512;
    QTest::newRow("Birch") << "glowEngine" << 1 << 96 << 24 << 0 << 512;
    QTest::newRow("Cedar") << "glowEngine" << 2 << 96 << 48 << 0 << 512;
    QTest::newRow("unknown variant falls back to Alder")
        << "glowEngine" << 7 << 48 << 24 << 0 << 512;
    QTest::newRow("Maple") << "glowproEngine" << 0 << 72 << 24 << 24 << 1024;
}

void EngineLibraryTest::startLaysOutTheModel()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(int, channels);
    QFETCH(int, faders);
    QFETCH(int, devices);
    QFETCH(int, addresses);
    EngineSession s(library, variant);
    const ConsoleStateRecord* r = s.record();
    QCOMPARE(r->channelCount, channels);
    QCOMPARE(r->faderCount, faders);
    QCOMPARE(r->deviceCount, devices);
    QCOMPARE(r->patchAddressCount, addresses);
    QCOMPARE(r->pageCount, 12);
    QCOMPARE(r->sequenceFaderCount, 12);
    QCOMPARE(int(r->consoleMode), 1);
    QCOMPARE(int(r->consoleStatus), 0);
    QCOMPARE(int(r->grandMasterLevel), 255);
    QCOMPARE(RecordArea::slotText(r, r->consoleVersion), s.engine()->softwareVersion());
    QCOMPARE(RecordArea::slotText(r, r->libraryVersion).isEmpty(), devices == 0);
    // Playbacks without a cue read full rate and fade.
    for (const PlaybackRecord& p : r->playbacks)
        QCOMPARE(p.rate * 1000 + p.fade, 256 * 1000 + 256);
}

void EngineLibraryTest::otherConsoleVersionNeverBecomesReady()
{
    // The engine announces the other version and then stays silent, so the
    // program's handshake sees the mismatch instead of a ready console.
    qputenv(EngineTest::consoleVersionVariable.data(), "0.9.7");
    Console::LoadError error = Console::LoadFailed;
    Console* console = Console::load("glowproEngine", 0, &error);
    qunsetenv(EngineTest::consoleVersionVariable.data());
    QCOMPARE(console, nullptr);
    QCOMPARE(error, Console::VersionMismatch);
}

void EngineLibraryTest::dmxWritesReachTheOutput_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("address"); // universe << 9 | address in the universe
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("asPalette");
    QTest::addColumn<int>("writes"); // to consecutive addresses, value + k
    QTest::addColumn<int>("ringStart");
    // Addresses that nothing else drives in the demo show.
    QTest::newRow("level on 1:300") << "glowEngine" << 299 << 299 << 200 << false << 1 << 0;
    QTest::newRow("level on 1:512") << "glowEngine" << 511 << 511 << 17 << false << 1 << 0;
    QTest::newRow("palette 3 on 2:40")
        << "glowproEngine" << (1 << 9 | 39) << 551 << 3 << true << 1 << 0;
    QTest::newRow("level on 2:17")
        << "glowproEngine" << (1 << 9 | 16) << 528 << 128 << false << 1 << 0;
    QTest::newRow("six levels across the ring's end")
        << "glowEngine" << 400 << 400 << 10 << false << 6 << 97;
}

void EngineLibraryTest::dmxWritesReachTheOutput()
{
    QFETCH(QString, library);
    QFETCH(int, address);
    QFETCH(int, index);
    QFETCH(int, value);
    QFETCH(bool, asPalette);
    QFETCH(int, writes);
    QFETCH(int, ringStart);
    EngineSession s(library, 0);
    ConsoleStateRecord* r = s.record();
    r->dmxWriteIndex = r->dmxReadIndex = quint8(ringStart);
    int outputs = 0;
    QObject receiver;
    QObject::connect(s.console(), &Console::outputsUpdated, &receiver, [&] { ++outputs; });
    for (int twice = 1; twice <= 2; ++twice) {
        for (int k = 0; k < writes; ++k)
            s.console()->writeDmx(quint16(address + k), quint8(value + k), asPalette);
        QVERIFY(s.step());
        // The same values again change nothing, so nothing more is announced.
        QCOMPARE(outputs, 1);
    }
    for (int k = 0; k < writes; ++k) {
        QCOMPARE(int(r->dmxOutput[index + k]), asPalette ? 0 : value + k);
        QCOMPARE(int(r->dmxPalette[index + k]), asPalette ? value + 1 : 0);
    }
    QCOMPARE(int(r->dmxOutput[index + writes]), 0);
    QCOMPARE(int(__atomic_load_n(&r->dmxReadIndex, __ATOMIC_ACQUIRE)),
             (ringStart + 2 * writes) % ConsoleStateRecord::dmxWriteRingSize);
}

void EngineLibraryTest::runningClockConsumesTheRing()
{
    EngineSession s("glowEngine", 1, EngineSession::Clock::Running);
    int outputs = 0;
    QObject receiver;
    QObject::connect(s.console(), &Console::outputsUpdated, &receiver, [&] { ++outputs; });
    s.console()->writeDmx(305, 99, false);
    QTRY_VERIFY(outputs > 0);
    QCOMPARE(int(s.record()->dmxOutput[305]), 99);
}

QTEST_GUILESS_MAIN(EngineLibraryTest)
#include "EngineLibraryTest.moc"
