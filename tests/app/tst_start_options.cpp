// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartOptions.h"

#include <QProcess>
#include <QtTest>

class TestStartOptions : public QObject
{
    Q_OBJECT

private slots:
    void program_data();
    void program();
};

void TestStartOptions::program_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("model"); // library and variant parsed; empty: none
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
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, model);
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

QTEST_GUILESS_MAIN(TestStartOptions)
#include "tst_start_options.moc"
