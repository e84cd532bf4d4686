// SPDX-License-Identifier: GPL-3.0-or-later
#include "Olad.h"
#include "dmxout/OlaOutput.h"

#include "DataRows.h"
#include "EngineSession.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

class TestOlaOutput : public QObject
{
    Q_OBJECT

private slots:
    void levelsArrive_data();
    void levelsArrive();
};

void TestOlaOutput::levelsArrive_data()
{
    // universes: 1: Alder, 2: Maple
    addColumns<int, int, QString>({"universes", "changes", "olad"});
    QTest::newRow("alder: its universe") << 1 << 2 << "running";
    QTest::newRow("maple: both universes") << 2 << 2 << "running";
    QTest::newRow("burst of 1000 changes") << 2 << 1000 << "running";
    QTest::newRow("olad killed, restarted") << 2 << 2 << "restarted";
    QTest::newRow("no olad at start") << 2 << 2 << "late";
}

// Levels set on the console reach OLA universes 7 (and 8 on Maple), however
// olad comes and goes; a burst goes out at no more than 44 frames a second.
// Universes without an output port in olad are named in a warning.
void TestOlaOutput::levelsArrive()
{
    auto [universes, changes, olad] = fetch<int, int, QString>({"universes", "changes", "olad"});
    Olad daemon;
    if (const QString problem = daemon.start(); !problem.isEmpty())
        QSKIP(qPrintable(problem));
    if (olad == "late")
        daemon.kill();
    EngineSession session(universes == 1 ? "glowEngine" : "glowproEngine", 0);
    std::unique_ptr<Olad::Reader> reader(olad == "late" ? nullptr : new Olad::Reader(daemon.port));
    for (int universe = 7; olad == "running" && universe < 7 + universes; ++universe)
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression(QString("universe %1 has no output port").arg(universe)));
    QElapsedTimer sending;
    sending.start();
    OlaOutput output(session.console(), 7, daemon.port);
    QSignalSpy connections(&output, &OlaOutput::connectedChanged);
    if (olad == "restarted") {
        QTRY_VERIFY(output.isConnected());
        daemon.kill();
        QTRY_VERIFY_WITH_TIMEOUT(!output.isConnected(), 3 * OlaOutput::refreshIntervalMs);
    }
    for (int change = 0; change < changes; ++change) {
        session.console()->writeDmx(quint16((change % universes) << 9 | change % 512),
                                    quint8(200 - change % 100), false);
        QVERIFY(session.step(25));
    }
    if (olad != "running") {
        QCOMPARE(daemon.start(), QString());
        reader = std::make_unique<Olad::Reader>(daemon.port);
    }
    for (int universe = 0; universe < universes; ++universe) {
        const auto* levels = reinterpret_cast<const char*>(session.record()->dmxOutput);
        const QByteArray expected(levels + universe * 512, 512);
        QVERIFY(expected.count('\0') < 512);
        QVERIFY(reader->waitFor([&] { return reader->frames[7 + universe].endsWith(expected); }));
    }
    QCOMPARE(reader->frames.value(8).isEmpty(), universes == 1);
    const qint64 ms = sending.elapsed();
    QCOMPARE_LE(reader->frames.value(7).size(),
                3 + ms * OlaOutput::maxFramesPerSecond / 1000 + ms / OlaOutput::refreshIntervalMs);
    QTRY_COMPARE(connections.size(), olad == "restarted" ? 3 : 1);
}

QTEST_GUILESS_MAIN(TestOlaOutput)
#include "DataRows.h"
#include "tst_ola_output.moc"
