// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartOptions.h"

#include <QProcess>
#include <QtTest>

Q_DECLARE_METATYPE(StartOptions::Action)

class TestStartOptions : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void program_data();
    void program();
};

void TestStartOptions::parse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<StartOptions::Action>("action");
    QTest::addColumn<QString>("library"); // empty: no --model
    QTest::addColumn<int>("variant");
    QTest::addColumn<QString>("messagePart");

    using A = StartOptions::Action;
    QTest::newRow("no options: the dialog asks") << QStringList{} << A::Run << "" << 0 << "";
    QTest::newRow("alder") << QStringList{"--model", "alder"} << A::Run << "glowEngine" << 0 << "";
    QTest::newRow("birch") << QStringList{"--model", "birch"} << A::Run << "glowEngine" << 1 << "";
    QTest::newRow("cedar") << QStringList{"--model=cedar"} << A::Run << "glowEngine" << 2 << "";
    QTest::newRow("maple in capitals")
        << QStringList{"--model", "MAPLE"} << A::Run << "glowproEngine" << 0 << "";
    QTest::newRow("Qt's platform option passes")
        << QStringList{"-platform", "offscreen", "--model", "birch"} << A::Run << "glowEngine" << 1
        << "";
    QTest::newRow("unknown model")
        << QStringList{"--model", "oak"} << A::Fail << "" << 0
        << "Unknown console model 'oak'. Choose one of: alder, birch, cedar, maple.";
    QTest::newRow("model without name")
        << QStringList{"--model"} << A::Fail << "" << 0 << "Missing value after '--model'.";
    QTest::newRow("unknown option")
        << QStringList{"--colour"} << A::Fail << "" << 0 << "Unknown option 'colour'.";
    QTest::newRow("stray argument")
        << QStringList{"show.asc"} << A::Fail << "" << 0 << "Unexpected argument 'show.asc'.";
    QTest::newRow("help") << QStringList{"--help"} << A::ShowHelp << "" << 0 << "--model <name>";
    QTest::newRow("short help") << QStringList{"-h"} << A::ShowHelp << "" << 0 << "Usage: lumidesk";
}

void TestStartOptions::parse()
{
    QFETCH(QStringList, arguments);
    QFETCH(StartOptions::Action, action);
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(QString, messagePart);

    const StartOptions options = StartOptions::parse(QStringList{"lumidesk"} + arguments);
    QCOMPARE(options.action, action);
    QCOMPARE(options.model.has_value(), !library.isEmpty());
    if (options.model) {
        QCOMPARE(options.model->libraryName, library);
        QCOMPARE(options.model->modelVariant, variant);
    }
    QVERIFY2(options.message.contains(messagePart), qPrintable(options.message));
}

void TestStartOptions::program_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");

    QTest::newRow("bad model: message on standard error, exit code 2")
        << QStringList{"--model", "oak"} << 2 << ""
        << "Unknown console model 'oak'. Choose one of: alder, birch, cedar, maple.\n";
    QTest::newRow("help lists the options") << QStringList{"--help"} << 0 << "--model <name>"
                                            << "";
}

void TestStartOptions::program()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, out);
    QFETCH(QString, err);

    QProcess process;
    process.start(QStringLiteral(LUMIDESK_PROGRAM), arguments);
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), exitCode);
    const QString stdOut = QString::fromLocal8Bit(process.readAllStandardOutput());
    const QString stdErr = QString::fromLocal8Bit(process.readAllStandardError());
    QVERIFY2(stdOut.contains(out), qPrintable(stdOut));
    if (err.isEmpty())
        QCOMPARE(stdErr, QString());
    else
        QCOMPARE(stdErr, err);
}

QTEST_GUILESS_MAIN(TestStartOptions)
#include "tst_start_options.moc"
