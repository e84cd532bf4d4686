// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/CITPAgent.h"
#include "citp/Manager.h"
#include "console/Console.h"
#include "tools/citp-peer/CitpPeer.h"

#include "FakeEngine.h"

#include <QNetworkProxyFactory>
#include <QProcess>
#include <QTest>

#include <memory>

class TestCitpPeerTool : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void badCommandLine_data();
    void badCommandLine();
    void commands_data();
    void commands();
    void againstTheAgent();
};

void TestCitpPeerTool::badCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("unknown announcement")
        << QStringList{"--announce", "tcp"} << "--announce takes ploc, pnam or both";
    QTest::newRow("port out of range")
        << QStringList{"--ploc-port", "70000"} << "--ploc-port needs a port number (0-65535)";
    QTest::newRow("address that is not one")
        << QStringList{"--to", "stage-left"} << "--to needs an IPv4 address, not \"stage-left\"";
    QTest::newRow("negative interval")
        << QStringList{"--interval", "-5"} << "--interval needs a number of milliseconds";
}

void TestCitpPeerTool::badCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    QProcess tool;
    tool.start(QStringLiteral(CITP_PEER_PROGRAM), arguments);
    QVERIFY(tool.waitForFinished(10000));
    QCOMPARE(tool.exitCode(), 2);
    QCOMPARE(QString::fromLocal8Bit(tool.readAllStandardError()).trimmed(),
             QStringLiteral("citp-peer: ") + message);
}

void TestCitpPeerTool::commands_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("error");
    QTest::newRow("level above 255") << "chbk 0 0 1,256"
                                     << "usage: chbk UNIVERSE FIRST LEVEL,LEVEL,... (levels 0-255)";
    QTest::newRow("chbk without levels")
        << "chbk 0 0"
        << "usage: chbk UNIVERSE FIRST LEVEL,LEVEL,... (levels 0-255)";
    QTest::newRow("sele with a stray word") << "sele some 1"
                                            << "usage: sele [add] ID,ID,...";
    QTest::newRow("dese with text") << "dese all"
                                    << "usage: dese [ID,ID,...]";
    QTest::newRow("unknown command") << "blackout"
                                     << "unknown command \"blackout\" (chbk, sele or dese)";
    QTest::newRow("valid, but nobody to send to") << "sele 1,2"
                                                  << "no session open yet";
}

void TestCitpPeerTool::commands()
{
    QFETCH(QString, command);
    QFETCH(QString, error);
    CitpPeer peer({});
    QString message;
    QVERIFY(!peer.sendCommand(command, &message));
    QCOMPARE(message, error);
}

void TestCitpPeerTool::againstTheAgent()
{
    // The program as a user runs it: it announces, takes the session, prints
    // every message (levels deciphered) and sends what --send gives it.
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    for (int a = 0; a < 1024; ++a)
        engine.record()->dmxOutput[a] = quint8(255 - a % 256);
    CITP::Manager::Settings settings;
    settings.bindAddress = QHostAddress(QHostAddress::LocalHost);
    settings.locationPort = 0;
    settings.namePort = 0;
    settings.groups.clear();
    QVERIFY(CITPAgent::start(console.get(), settings));
    const auto stopAgent = qScopeGuard([] { CITPAgent::stop(); });

    QProcess tool;
    tool.start(QStringLiteral(CITP_PEER_PROGRAM),
               {"--name", "checker", "--to", "127.0.0.1", "--ploc-port",
                QString::number(CITP::Manager::instance()->boundLocationPort()), "--interval",
                "200", "--send", "chbk 1 10 5,6,7", "--send", "sele 4", "--exit-after", "30000"});
    QVERIFY(tool.waitForStarted(10000));
    const auto stopTool = qScopeGuard([&] {
        tool.kill();
        tool.waitForFinished(5000);
    });

    QStringList lines;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            while (tool.canReadLine())
                lines.append(QString::fromLocal8Bit(tool.readLine()).trimmed());
            return lines.size() >= 8;
        }(),
        10000);
    QVERIFY(lines.at(0).startsWith("listening on TCP port "));
    QVERIFY(lines.at(1).startsWith("session opened by 127.0.0.1:"));
    QCOMPARE(lines.mid(2, 4),
             (QStringList{"PINF/PNam name=\"Lumidesk\"", "SDMX/EnId identifier=\"Lumidesk\"",
                          "SDMX/UNam universe=0 name=\"1\"", "SDMX/UNam universe=1 name=\"2\""}));
    for (int universe = 0; universe < 2; ++universe) {
        const QByteArray levels(
            reinterpret_cast<const char*>(engine.record()->dmxOutput) + universe * 512, 512);
        QCOMPARE(lines.at(6 + universe),
                 QStringLiteral("SDMX/ChBk blind=0 universe=%1 first=0 count=512 levels=%2")
                     .arg(universe)
                     .arg(QString::fromLatin1(levels.toHex())));
    }

    // What it sent on opening reached the console.
    QTRY_COMPARE(int(engine.record()->dmxWriteIndex), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(int(engine.record()->dmxWriteRing[i].address), 522 + i);
        QCOMPARE(int(engine.record()->dmxWriteRing[i].level), 5 + i);
    }
    QTRY_COMPARE(int(engine.record()->deviceSelected[3]), 1);
}

void TestCitpPeerTool::initTestCase()
{
    // The test's own sockets talk over loopback directly, without asking
    // the system for a proxy.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
}

QTEST_GUILESS_MAIN(TestCitpPeerTool)
#include "tst_citp_peer_tool.moc"
