// SPDX-License-Identifier: GPL-3.0-or-later
#include "OladProcess.h"
#include "dmxout/OlaOutput.h"

#include "EngineSession.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

namespace {
QByteArray universeLevels(const EngineSession& session, int universe)
{
    return QByteArray(reinterpret_cast<const char*>(session.record()->dmxOutput) + universe * 512,
                      512);
}
} // namespace

class TestOlaOutput : public QObject
{
    Q_OBJECT

private slots:
    void levelsArrive_data();
    void levelsArrive();
    void burstIsCoalesced();
    void daemonComesAndGoes_data();
    void daemonComesAndGoes();
};

void TestOlaOutput::levelsArrive_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("firstUniverse");
    QTest::addColumn<int>("universes");
    QTest::newRow("alder: one universe") << "glowEngine" << 1 << 1;
    QTest::newRow("maple: both universes, from 7") << "glowproEngine" << 7 << 2;
}

// Levels written in console universes 1 and 2 arrive in the mapped OLA
// universes; a model with one universe leaves the next OLA universe alone.
void TestOlaOutput::levelsArrive()
{
    QFETCH(QString, library);
    QFETCH(int, firstUniverse);
    QFETCH(int, universes);
    OladProcess olad;
    if (const QString problem = olad.start(); !problem.isEmpty())
        QSKIP(qPrintable(problem));
    EngineSession session(library, 0);
    OlaReader reader(olad.port());
    reader.watch(firstUniverse);
    reader.watch(firstUniverse + 1);
    OlaOutput output(session.console(), firstUniverse, olad.port());
    QCOMPARE(output.universeCount(), universes);
    session.console()->writeDmx(0, 255, false);
    session.console()->writeDmx(quint16(1 << 9 | 511), 42, false);
    QVERIFY(session.step(50));
    QCOMPARE(universeLevels(session, 0).at(0), char(255));
    for (int u = 0; u < universes; ++u)
        QVERIFY(reader.waitFor(
            [&] { return reader.last(firstUniverse + u) == universeLevels(session, u); }));
    QCOMPARE(reader.frames.value(firstUniverse + 1).isEmpty(), universes == 1);
}

// A thousand changes in a row: at most one frame per 1/44 s goes out (plus
// the first and a refresh), and the last one carries the final levels.
void TestOlaOutput::burstIsCoalesced()
{
    OladProcess olad;
    if (const QString problem = olad.start(); !problem.isEmpty())
        QSKIP(qPrintable(problem));
    EngineSession session("glowproEngine", 0);
    OlaReader reader(olad.port());
    reader.watch(1);
    OlaOutput output(session.console(), 1, olad.port());
    QElapsedTimer burst;
    burst.start();
    for (int change = 0; change < 1000; ++change) {
        session.console()->writeDmx(quint16(change % 512), quint8(change), false);
        QVERIFY(session.step(25));
    }
    const qint64 elapsedMs = burst.elapsed();
    QVERIFY(reader.waitFor([&] { return reader.last(1) == universeLevels(session, 0); }));
    QCOMPARE_LE(reader.frames.value(1).size(),
                3 + elapsedMs * OlaOutput::maxFramesPerSecond / 1000 +
                    elapsedMs / OlaOutput::refreshIntervalMs);
    QCOMPARE_LT(reader.frames.value(1).size(), 1000);
}

void TestOlaOutput::daemonComesAndGoes_data()
{
    QTest::addColumn<bool>("runningAtStart");
    QTest::newRow("olad killed and restarted mid-show") << true;
    QTest::newRow("no olad at start") << false;
}

// Without olad the console carries on; once olad is (back) up the output
// reconnects and sends the levels as they are now.
void TestOlaOutput::daemonComesAndGoes()
{
    QFETCH(bool, runningAtStart);
    OladProcess olad;
    if (const QString problem = olad.start(); !problem.isEmpty())
        QSKIP(qPrintable(problem));
    if (!runningAtStart)
        olad.kill();
    EngineSession session("glowproEngine", 0);
    OlaOutput output(session.console(), 3, olad.port());
    QSignalSpy changes(&output, &OlaOutput::connectedChanged);
    if (runningAtStart) {
        QTRY_VERIFY(output.isConnected());
        olad.kill();
        QTRY_VERIFY_WITH_TIMEOUT(!output.isConnected(), 3 * OlaOutput::refreshIntervalMs);
    }
    session.console()->writeDmx(quint16(1 << 9 | 17), 99, false);
    QVERIFY(session.step(50));
    QCOMPARE(olad.start(), QString());
    OlaReader reader(olad.port());
    reader.watch(4);
    QVERIFY(reader.waitFor([&] { return !reader.frames.value(4).isEmpty(); }));
    QCOMPARE(reader.last(4), universeLevels(session, 1));
    QCOMPARE(reader.last(4).at(17), char(99));
    QTRY_COMPARE(changes.size(), runningAtStart ? 3 : 1);
}

QTEST_GUILESS_MAIN(TestOlaOutput)
#include "tst_ola_output.moc"
