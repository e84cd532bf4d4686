// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataRows.h"
#include "EngineSession.h"
#include "ShowStarter.h"
#include "StartOptions.h"

#include <QProcess>
#include <QtTest>

class TestStartOptions : public QObject
{
    Q_OBJECT

private slots:
    void program_data();
    void program();
    void showStarts_data();
    void showStarts();
};

void TestStartOptions::program_data()
{
    // model: library and variant parsed; empty: none
    addColumns<QStringList, int, QString>({"arguments", "exitCode", "model"});
    QTest::newRow("birch after -platform")
        << QStringList{"-platform", "offscreen", "--model", "birch"} << -1 << "glowEngine 1";
    QTest::newRow("cedar") << QStringList{"--model=cedar"} << -1 << "glowEngine 2";
    QTest::newRow("maple in capitals")
        << QStringList{"--model", "MAPLE"} << -1 << "glowproEngine 0";
    QTest::newRow("unknown model") << QStringList{"--model", "oak"} << 2 << "";
    QTest::newRow("stray argument") << QStringList{"show.asc"} << 2 << "";
    QTest::newRow("help") << QStringList{"--help"} << 0 << "";
    QTest::newRow("ola universe not a number") << QStringList{"--ola-universe=x"} << 2 << "";
    QTest::newRow("ola universe and no ola")
        << QStringList{"--ola-universe", "1", "--no-ola"} << 2 << "";
}

// Rows with an exit code are also run: the program stops with it before any window.
void TestStartOptions::program()
{
    auto [arguments, exitCode, model] =
        fetch<QStringList, int, QString>({"arguments", "exitCode", "model"});
    const StartOptions options = StartOptions::parse(QStringList{"lumidesk"} + arguments);
    const auto& chosen = options.model;
    QCOMPARE(chosen ? chosen->libraryName + ' ' + QString::number(chosen->modelVariant) : "",
             model);
    if (exitCode < 0) {
        QVERIFY(options.action == StartOptions::Action::Run);
        return;
    }
    QProcess process;
    process.start(QStringLiteral(LUMIDESK_PROGRAM), arguments);
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitCode(), exitCode);
    QCOMPARE(process.readAllStandardError().isEmpty(), exitCode == 0);
    QCOMPARE(process.readAllStandardOutput().isEmpty(), exitCode != 0);
}

void TestStartOptions::showStarts_data()
{
    addColumns<QString, int>({"library", "variant"});
    QTest::newRow("alder") << "glowEngine" << 0;
    QTest::newRow("cedar") << "glowEngine" << 2;
    QTest::newRow("maple") << "glowproEngine" << 0;
}

// --play: the faders play memories at full and the stack's first cue is
// live, and the output keeps moving (the demo chase loops).
void TestStartOptions::showStarts()
{
    auto [library, variant] = fetch<QString, int>({"library", "variant"});
    EngineSession session(library, variant);
    QVERIFY(session.step());
    const ConsoleStateRecord* record = session.record();
    QCOMPARE(record->playbacks[12].afterLiveStep, 0);
    ShowStarter starter(session.console());
    QSignalSpy started(&starter, &ShowStarter::started);
    starter.start();
    QCOMPARE(started.count(), 1);
    QVERIFY(session.step(5000));
    const int firstSequence = session.cache()->firstSequenceFader();
    for (int fader = 0; fader < record->faderCount; ++fader)
        QCOMPARE(int(record->faders[fader].level), fader >= firstSequence ? 255 : 128);
    QCOMPARE(record->playbacks[12].afterLiveStep, 1);
    QCOMPARE(int(record->liveMode), 1);
    QSet<QByteArray> outputs;
    for (int k = 0; k < 8; ++k) {
        outputs.insert(QByteArray(reinterpret_cast<const char*>(record->dmxOutput),
                                  int(sizeof(record->dmxOutput))));
        QVERIFY(session.step(250));
    }
    QVERIFY(outputs.size() > 1);
}

QTEST_GUILESS_MAIN(TestStartOptions)
#include "tst_start_options.moc"
