// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/CITPAgent.h"
#include "citp/Manager.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "tools/citp-peer/CitpPeer.h"

#include "DataRows.h"
#include "FakeEngine.h"

#include <QNetworkInterface>
#include <QNetworkProxyFactory>
#include <QPointer>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QUdpSocket>
#include <QtEndian>

#include <memory>

using CITP::Manager;
using CITP::Message;
using CITP::PeerInfo;
using DeviceSet = QList<int>;

namespace {

const QHostAddress loopback(QHostAddress::LocalHost);

QByteArray pnam(const QString& name)
{
    Message message;
    message.initPNam(name);
    return message.toByteArray();
}

QByteArray ploc(quint16 port, const QString& name = QStringLiteral("viz"))
{
    QByteArray payload("PLoc");
    char le[2];
    qToLittleEndian(port, le);
    payload.append(le, 2).append("Visualizer", 11).append(name.toLatin1()).append("\0Running", 9);
    Message message;
    message.init(QStringLiteral("PINF"), payload);
    return message.toByteArray();
}

QString describe(const QList<PeerInfo>& peers)
{
    QStringList parts;
    for (const PeerInfo& peer : peers)
        parts.append(QStringLiteral("%1:%2 %3")
                         .arg(QHostAddress(peer.address.toIPv4Address()).toString())
                         .arg(peer.port)
                         .arg(peer.name));
    return parts.join(QStringLiteral(", "));
}

QStringList greeting()
{
    return {"PINF/PNam name=\"Lumidesk\"", "SDMX/EnId identifier=\"Lumidesk\"",
            "SDMX/UNam universe=0 name=\"1\"", "SDMX/UNam universe=1 name=\"2\""};
}

QString universeLine(const quint8* levels, int universe)
{
    const QByteArray bytes(reinterpret_cast<const char*>(levels) + universe * 512, 512);
    return QStringLiteral("SDMX/ChBk blind=0 universe=%1 first=0 count=512 levels=%2")
        .arg(universe)
        .arg(QString::fromLatin1(bytes.toHex()));
}

// A visualiser stand-in with every message it received, described line by
// line (levels deciphered with the shared key).
struct TestPeer
{
    explicit TestPeer(const CitpPeer::Options& options) : peer(options)
    {
        QObject::connect(&peer, &CitpPeer::messageReceived, &peer,
                         [this](const Message& m) { lines.append(peer.describe(m)); });
    }
    bool start()
    {
        QString error;
        return peer.start(&error);
    }
    QStringList from(int n) const { return lines.mid(n); }

    CitpPeer peer;
    QStringList lines;
};

// Reports of a session opened straight through the manager, in order. A
// queued "tick" after each message shows which came in the same read.
struct Recorder : CITP::Session::Handler
{
    void connected(CITP::Session*) override { events.append(QStringLiteral("connected")); }
    void messageReceived(CITP::Session*, const Message& message) override
    {
        events.append(message.parsePNam());
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { events.append(QStringLiteral("tick")); },
            Qt::QueuedConnection);
    }
    void disconnected(CITP::Session*) override { events.append(QStringLiteral("disconnected")); }

    QStringList events;
};

} // namespace

// Discovery, sessions, the agent and the peer tool over loopback, around one
// running agent on a fake engine. Discovery sees a clock the test moves.
class TestCitpLoopback : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void discovery_data();
    void discovery();
    void knownPeersAgeOut();
    void peerListIsBounded();

    void sessionEnds_data();
    void sessionEnds();
    void slowPeerKeepsOnlyTheNewestState();

    void greetingStopAndStartWithoutCipher();
    void outputChangeSendsBothUniversesEnciphered_data();
    void outputChangeSendsBothUniversesEnciphered();
    void selectionOut_data();
    void selectionOut();
    void selectionIn_data();
    void selectionIn();
    void everyLevelOfAPeerReachesTheEngine_data();
    void everyLevelOfAPeerReachesTheEngine();
    void peerDroppingTheSession_data();
    void peerDroppingTheSession();
    void peersOnBothPortsListeningLate();
    void toolAgainstTheAgent();

private:
    Manager* manager() const { return Manager::instance(); }
    bool startAgent(quint16 assumedSessionPort = Manager::assumedSessionPort,
                    QByteArrayView levelKey = CITPAgent::sharedLevelKey());
    void send(const QByteArray& datagram, quint16 port);
    // Sends, then a marker datagram behind it on the same path, and waits for
    // the marker: whatever the first one did has happened by then.
    void sendThenMarker(const QByteArray& datagram, quint16 port);
    bool openSession(Recorder& recorder);
    CitpPeer::Options peerOptions(const QString& name) const;
    // A peer announced straight to the location port, greeted and shown the
    // current state.
    std::unique_ptr<TestPeer> establishedPeer(const QString& name = QStringLiteral("viz"));
    void select(const DeviceSet& devices);
    DeviceSet selected() const;

    std::unique_ptr<FakeEngine> m_engine;
    Console* m_console = nullptr;
    QNetworkInterface m_lo;
    QDateTime m_now;
    QUdpSocket m_sender;
    QTcpServer m_server;
    QPointer<QTcpSocket> m_accepted;
    QPointer<CITP::Session> m_session;
};

void TestCitpLoopback::initTestCase()
{
    // The test's own sockets talk over loopback directly, never by proxy.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
    m_lo = QNetworkInterface::interfaceFromName(QStringLiteral("lo"));
}

void TestCitpLoopback::init()
{
    m_now = QDateTime(QDate(2026, 5, 1), QTime(20, 0), Qt::UTC);
    m_engine = std::make_unique<FakeEngine>(ConsoleCache::ModelMaple);
    m_console = m_engine->createConsole();
    QVERIFY(startAgent());
    QVERIFY(m_sender.bind(loopback, 0));
    if (m_lo.isValid())
        m_sender.setMulticastInterface(m_lo);
    m_sender.setSocketOption(QAbstractSocket::MulticastLoopbackOption, 1);
}

void TestCitpLoopback::cleanup()
{
    CITPAgent::stop();
    QVERIFY(!CITPAgent::instance());
    QVERIFY(!manager());
    QVERIFY(!m_session); // the manager deletes what is left
    m_sender.close();
    m_server.close();
    delete m_accepted;
    delete m_console;
    m_engine.reset();
}

bool TestCitpLoopback::startAgent(quint16 assumedSessionPort, QByteArrayView levelKey)
{
    Manager::Settings settings;
    settings.locationPort = 0;
    settings.namePort = 0;
    settings.assumedSessionPort = assumedSessionPort;
    if (m_lo.isValid())
        settings.multicastInterfaces = {m_lo};
    settings.clock = [this] { return m_now; };
    return CITPAgent::start(m_console, settings, levelKey);
}

void TestCitpLoopback::send(const QByteArray& datagram, quint16 port)
{
    QCOMPARE(m_sender.writeDatagram(datagram, loopback, port), qint64(datagram.size()));
}

void TestCitpLoopback::sendThenMarker(const QByteArray& datagram, quint16 port)
{
    QSignalSpy heard(manager(), &Manager::peerHeard);
    send(datagram, port);
    send(ploc(9, QStringLiteral("marker")), manager()->boundLocationPort());
    QTRY_VERIFY(std::any_of(heard.cbegin(), heard.cend(), [](const QVariantList& args) {
        return args.at(0).value<PeerInfo>().name == QLatin1String("marker");
    }));
}

void TestCitpLoopback::discovery_data()
{
    // peer: "" when it is to be ignored
    addColumns<QString, QByteArray, QString>({"via", "datagram", "peer"});
    Message other;
    other.init(QStringLiteral("MSEX"), QByteArray("VSrc"));

    QTest::newRow("PLoc through the group 224.0.0.180")
        << "224.0.0.180" << ploc(6000, QStringLiteral("Studio")) << "127.0.0.1:6000 Studio";
    QTest::newRow("PLoc through the group 239.224.0.180")
        << "239.224.0.180" << ploc(6001, QStringLiteral("Stage")) << "127.0.0.1:6001 Stage";
    QTest::newRow("PLoc sent straight to the port")
        << "location" << ploc(6002, QStringLiteral("Direct")) << "127.0.0.1:6002 Direct";
    QTest::newRow("PNam on the name port: assumed session port 4811")
        << "name" << pnam(QStringLiteral("Named")) << "127.0.0.1:4811 Named";
    QTest::newRow("PLoc on the name port") << "name" << ploc(7100) << "";
    QTest::newRow("PNam on the location port") << "location" << pnam(QStringLiteral("x")) << "";
    QTest::newRow("another layer") << "location" << other.toByteArray() << "";
    QTest::newRow("empty datagram") << "location" << QByteArray() << "";
}

void TestCitpLoopback::discovery()
{
    auto [via, datagram, peer] = fetch<QString, QByteArray, QString>({"via", "datagram", "peer"});
    const QHostAddress group(via);
    if (!group.isNull() && manager()->joinedGroups() == 0)
        QSKIP("No multicast membership could be taken on the loopback interface here.");
    if (!group.isNull())
        m_sender.writeDatagram(datagram, group, manager()->boundLocationPort());
    sendThenMarker(group.isNull() ? datagram : QByteArray("-"),
                   via == QLatin1String("name") ? manager()->boundNamePort()
                                                : manager()->boundLocationPort());
    QStringList peers = describe(manager()->peerList()).split(", ");
    QVERIFY(peers.removeAll("127.0.0.1:9 marker") == 1);
    QCOMPARE(peers.join(""), peer);
}

void TestCitpLoopback::knownPeersAgeOut()
{
    // Two ports of one address are two peers; the same pair again only
    // refreshes the entry (name, time) without a signal. Silent peers go
    // after 3 s.
    QSignalSpy changed(manager(), &Manager::peerListChanged);
    const quint16 port = manager()->boundLocationPort();
    send(ploc(7000, QStringLiteral("A")), port);
    send(ploc(7001, QStringLiteral("B")), port);
    QTRY_COMPARE(manager()->peerList().size(), 2);
    m_now = m_now.addMSecs(2500);
    changed.clear();
    sendThenMarker(ploc(7000, QStringLiteral("A renamed")), port);
    QCOMPARE(changed.size(), 1);  // the marker only
    m_now = m_now.addMSecs(2500); // A was refreshed, B was not
    QCOMPARE(describe(manager()->peerList()), "127.0.0.1:7000 A renamed, 127.0.0.1:9 marker");
    m_now = m_now.addMSecs(500);
    QCOMPARE(manager()->peerList().size(), 2); // exactly 3 s: still there
    m_now = m_now.addMSecs(1);
    QCOMPARE(manager()->peerList().size(), 0); // purged on reading, between ticks...
    QCOMPARE(changed.size(), 1);

    send(ploc(7201), manager()->boundLocationPort());
    QVERIFY(changed.wait(5000));
    m_now = m_now.addMSecs(Manager::silenceMs + 500);
    QVERIFY(changed.wait(2 * Manager::purgeIntervalMs + 1000)); // ...and by the timer, once
    QCOMPARE(changed.size(), 3);
}

void TestCitpLoopback::peerListIsBounded()
{
    // A flood of forged announcements, in batches the socket can hold.
    QSignalSpy heard(manager(), &Manager::peerHeard);
    for (int batch = 0; batch < 8; ++batch) {
        for (int i = 0; i < 40; ++i)
            send(ploc(quint16(10000 + batch * 40 + i)), manager()->boundLocationPort());
        sendThenMarker(ploc(10000), manager()->boundLocationPort());
    }
    QCOMPARE(manager()->peerList().size(), Manager::maxKnownPeers);
    // Peers left out of the list are not reported as heard either.
    for (const QVariantList& args : std::as_const(heard))
        QVERIFY(args.at(0).value<PeerInfo>().port < 10000 + Manager::maxKnownPeers);
}

bool TestCitpLoopback::openSession(Recorder& recorder)
{
    if (!m_server.listen(loopback, 0))
        return false;
    m_session =
        manager()->connectToPeer(PeerInfo(loopback, m_server.serverPort(), "test"), &recorder);
    QSignalSpy accepted(&m_server, &QTcpServer::newConnection);
    if (!accepted.wait(5000))
        return false;
    m_accepted = m_server.nextPendingConnection();
    return QTest::qWaitFor([&] { return recorder.events == QStringList{"connected"}; }, 5000);
}

void TestCitpLoopback::sessionEnds_data()
{
    // lastBytes: "": nobody listens
    addColumns<QByteArray, QStringList>({"lastBytes", "events"});
    QByteArray badSize = pnam(QStringLiteral("x"));
    badSize[8] = 19;
    // Both messages of one read come in one call, before the queued ticks.
    QTest::newRow("two messages in one read, then the peer closes")
        << pnam(QStringLiteral("last")) + pnam(QStringLiteral("words"))
        << QStringList{"connected", "last", "words", "tick", "tick", "disconnected"};
    QTest::newRow("a size below a header") << badSize << QStringList{"connected", "disconnected"};
    QTest::newRow("nobody listening") << QByteArray() << QStringList{"disconnected"};
}

void TestCitpLoopback::sessionEnds()
{
    // Reported once, then the session deletes itself and leaves the manager.
    QFETCH(QByteArray, lastBytes);
    Recorder recorder;
    if (lastBytes.isEmpty()) {
        m_session = manager()->connectToPeer(PeerInfo(loopback, 9, "gone"), &recorder);
    } else {
        QVERIFY(openSession(recorder));
        if (lastBytes.at(8) == 19)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("closing the session"));
        m_accepted->write(lastBytes);
        m_accepted->disconnectFromHost();
    }
    QCOMPARE(manager()->sessionCount(), 1);
    QTRY_VERIFY(!m_session);
    QTEST(recorder.events, "events");
    QCOMPARE(manager()->sessionCount(), 0);
}

void TestCitpLoopback::slowPeerKeepsOnlyTheNewestState()
{
    // A peer that reads nothing: what is queued for it stays bounded, and once
    // it reads again the newest state of each kind arrives last.
    Recorder recorder;
    QVERIFY(openSession(recorder));
    m_session->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 16 * 1024);
    m_accepted->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 16 * 1024);
    m_accepted->setReadBufferSize(1);
    constexpr int rounds = 20000;
    QByteArray newest[2];
    for (int i = 0; i < rounds; ++i) {
        Message message;
        message.initPNam(QStringLiteral("k%1 %2 ").arg(i % 2).arg(i) + QString(500, 'x'));
        m_session->sendState(i % 2, message);
        newest[i % 2] = message.toByteArray();
        QVERIFY(m_session->bytesToWrite() <= CITP::Session::maxQueuedBytes + 1024);
    }
    m_accepted->setReadBufferSize(0);
    QByteArray received;
    QTRY_VERIFY_WITH_TIMEOUT((received += m_accepted->readAll()).endsWith(newest[0] + newest[1]),
                             10000);
    QVERIFY(received.size() < rounds * newest[1].size());
}

CitpPeer::Options TestCitpLoopback::peerOptions(const QString& name) const
{
    CitpPeer::Options options;
    options.name = name;
    options.locationAddress = loopback;
    options.locationPort = manager()->boundLocationPort();
    options.listenAddress = loopback;
    options.announceIntervalMs = 200;
    options.multicastInterface = QStringLiteral("lo");
    return options;
}

std::unique_ptr<TestPeer> TestCitpLoopback::establishedPeer(const QString& name)
{
    auto peer = std::make_unique<TestPeer>(peerOptions(name));
    if (!peer->start() || !QTest::qWaitFor([&] { return peer->lines.size() >= 6; }, 5000))
        return nullptr;
    return peer;
}

void TestCitpLoopback::select(const DeviceSet& devices)
{
    ConsoleStateRecord* record = m_engine->record();
    std::fill(std::begin(record->deviceSelected), std::end(record->deviceSelected), 0);
    for (int device : devices)
        record->deviceSelected[device - 1] = 1;
    m_engine->notify(ConsoleCode::DeviceStatusChanged);
}

DeviceSet TestCitpLoopback::selected() const
{
    DeviceSet devices;
    for (int d = 0; d < CITPAgent::devices; ++d) {
        if (m_engine->record()->deviceSelected[d])
            devices.append(d + 1);
    }
    return devices;
}

void TestCitpLoopback::greetingStopAndStartWithoutCipher()
{
    QVERIFY(!CITPAgent::start(m_console)); // one agent at a time
    QVERIFY(!Manager::start(loopback));
    m_engine->record()->dmxOutput[3] = 200;
    m_engine->record()->dmxOutput[700] = 9;
    auto peer = establishedPeer();
    QVERIFY(peer);
    // A (re)connected visualiser is shown the stage as it is.
    QCOMPARE(peer->lines, greeting() << universeLine(m_engine->record()->dmxOutput, 0)
                                     << universeLine(m_engine->record()->dmxOutput, 1));
    QCOMPARE(CITPAgent::instance()->establishedSessionCount(), 1);
    QSignalSpy closed(&peer->peer, &CitpPeer::sessionClosed);
    CITPAgent::stop();
    QVERIFY(!manager());
    QVERIFY(closed.wait(5000));
    QVERIFY(!CITPAgent::start(nullptr));

    // Started again without a working cipher: never plaintext levels, and
    // it is said once.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Blowfish: a key of 73 bytes"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no levels are sent"));
    QTest::failOnWarning(QRegularExpression("cipher"));
    QVERIFY(startAgent(Manager::assumedSessionPort, QByteArray(73, 'k')));
    TestPeer again(peerOptions(QStringLiteral("viz")));
    QVERIFY(again.start());
    QTRY_COMPARE_WITH_TIMEOUT(again.lines.size(), 4, 5000);
    m_engine->notify(ConsoleCode::OutputsChanged);
    select({1});
    QTRY_COMPARE(again.lines.size(), 5);
    QCOMPARE(again.lines, greeting() << "FSEL/Sele complete=1 devices=1");
}

void TestCitpLoopback::outputChangeSendsBothUniversesEnciphered_data()
{
    addColumns<int, bool>({"code", "fromEngineThread"});
    QTest::newRow("outputs changed (13)") << ConsoleCode::OutputsChanged << false;
    QTest::newRow("output levels changed (16)") << ConsoleCode::OutputLevelsChanged << false;
    QTest::newRow("notified on the engine's thread") << ConsoleCode::OutputLevelsChanged << true;
}

void TestCitpLoopback::outputChangeSendsBothUniversesEnciphered()
{
    auto [code, fromEngineThread] = fetch<int, bool>({"code", "fromEngineThread"});
    auto peer = establishedPeer();
    auto second = establishedPeer(QStringLiteral("second"));
    QVERIFY(peer && second);
    quint8* levels = m_engine->record()->dmxOutput;
    for (int a = 0; a < 1024; ++a)
        levels[a] = quint8((a * 13 + 7) & 0xff);
    const int before = int(peer->lines.size());
    fromEngineThread ? m_engine->post(code) : m_engine->notify(code);
    m_engine->waitIdle();
    QTRY_COMPARE(peer->lines.size(), before + 2);
    QTRY_COMPARE(second->lines.size(), 8);
    QCOMPARE(peer->from(before), (QStringList{universeLine(levels, 0), universeLine(levels, 1)}));
    QCOMPARE(second->from(6), peer->from(before));
}

void TestCitpLoopback::selectionOut_data()
{
    addColumns<QList<DeviceSet>, QStringList>({"steps", "sent"});

    QTest::newRow("select 3 and 5, then none")
        << QList<DeviceSet>{{3, 5}, {}}
        << QStringList{"FSEL/Sele complete=1 devices=3,5", "FSEL/DeSe devices=all"};
    QTest::newRow("an unchanged selection sends nothing")
        << QList<DeviceSet>{{}, {1}, {1}, {24}, {24}}
        << QStringList{"FSEL/Sele complete=1 devices=1", "FSEL/Sele complete=1 devices=24"};
}

void TestCitpLoopback::selectionOut()
{
    auto [steps, sent] = fetch<QList<DeviceSet>, QStringList>({"steps", "sent"});
    auto peer = establishedPeer();
    QVERIFY(peer);
    for (const DeviceSet& step : steps)
        select(step);
    // An output change behind them shows that nothing else is on its way.
    m_engine->notify(ConsoleCode::OutputsChanged);
    QTRY_COMPARE(peer->lines.size(), 6 + sent.size() + 2);
    QCOMPARE(peer->lines.mid(6, sent.size()), sent);
}

void TestCitpLoopback::selectionIn_data()
{
    addColumns<DeviceSet, QString, DeviceSet>({"before", "command", "after"});

    QTest::newRow("Sele adding device 7") << DeviceSet{3} << "sele add 7" << DeviceSet{3, 7};
    QTest::newRow("complete Sele replaces the selection")
        << DeviceSet{3} << "sele 2,4" << DeviceSet{2, 4};
    QTest::newRow("identifiers outside 1..24 are ignored")
        << DeviceSet{} << "sele 0,25,300,24" << DeviceSet{24};
    QTest::newRow("DeSe of one device") << DeviceSet{1, 2, 3} << "dese 2" << DeviceSet{1, 3};
    QTest::newRow("DeSe with count 0 clears every device")
        << DeviceSet{1, 2} << "dese" << DeviceSet{};
    // Many in one read are one change for the console.
    QStringList replacing;
    QStringList adding;
    for (int i = 0; i < 500; ++i) {
        replacing.append(QStringLiteral("sele %1").arg(i % 24 + 1));
        adding.append(QString(i % 3 ? "sele add %1" : "dese %1").arg(i % 24 + 1));
    }
    QTest::newRow("500 complete Sele") << DeviceSet{} << replacing.join(';') << DeviceSet{20};
    QTest::newRow("500 Sele and DeSe")
        << DeviceSet{1} << adding.join(';')
        << DeviceSet{2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18, 20, 21, 23, 24};
}

void TestCitpLoopback::selectionIn()
{
    auto [before, command] = fetch<DeviceSet, QString>({"before", "command"});
    auto peer = establishedPeer();
    QVERIFY(peer);
    select(before);
    const int published = int(peer->lines.size()) + (before.isEmpty() ? 0 : 1);
    QTRY_COMPARE(peer->lines.size(), published);
    m_engine->clearUpdates();
    QString error;
    QVERIFY2(peer->peer.sendCommand(command, &error), qPrintable(error));
    const FakeEngine::Call reported{ConsoleCode::DeviceStatusChanged, 0, 0, 0};
    QTRY_COMPARE(m_engine->updates(), (QList<FakeEngine::Call>{reported}));
    QTEST(selected(), "after");
    // Not echoed: neither now nor on the engine's own report of the change.
    m_engine->notify(ConsoleCode::DeviceStatusChanged);
    m_engine->notify(ConsoleCode::OutputsChanged);
    QTRY_COMPARE(peer->lines.size(), published + 2);
    QVERIFY(peer->lines.at(published).startsWith("SDMX/ChBk"));
}

void TestCitpLoopback::everyLevelOfAPeerReachesTheEngine_data()
{
    // writes: entries the engine takes in all
    addColumns<QStringList, int>({"commands", "writes"});
    const auto block = [](int universe, int seed) {
        QStringList levels;
        for (int i = 0; i < 512; ++i)
            levels.append(QString::number((i * seed + universe) & 0xff));
        return QStringLiteral("chbk %1 0 %2").arg(universe).arg(levels.join(','));
    };
    QTest::newRow("universe 1, channel 10, three levels") << QStringList{"chbk 1 10 5,6,255"} << 3;
    QTest::newRow("levels past address 1023 are dropped") << QStringList{"chbk 1 510 1,2,3,4"} << 2;
    QTest::newRow("a third universe is dropped") << QStringList{"chbk 2 0 9", "chbk 0 7 1"} << 1;
    QTest::newRow("a whole universe") << QStringList{block(1, 7)} << 512;
    QTest::newRow("both universes") << QStringList{block(0, 3), block(1, 5)} << 1024;
    // Only the newest of a waiting address goes on; the first 99 of the
    // first block were in the ring already.
    QTest::newRow("a universe sent twice") << QStringList{block(0, 3), block(0, 11)} << 512 + 99;
}

void TestCitpLoopback::everyLevelOfAPeerReachesTheEngine()
{
    auto [commands, writes] = fetch<QStringList, int>({"commands", "writes"});
    auto peer = establishedPeer();
    QVERIFY(peer);
    QMap<int, int> sent; // address: the level last sent, within the two universes
    for (const QString& command : commands) {
        const QStringList words = command.split(' ');
        const QStringList levels = words.at(3).split(',');
        const int first = words.at(1).toInt() * 512 + words.at(2).toInt();
        for (int i = 0; i < levels.size() && first + i < 1024; ++i)
            sent[first + i] = levels.at(i).toInt();
    }
    QString error;
    QVERIFY2(peer->peer.sendCommand(commands.join(';'), &error), qPrintable(error));
    // The engine empties the ring a tick at a time.
    QList<DmxWrite> taken;
    QTRY_VERIFY_WITH_TIMEOUT((taken += m_engine->drainDmxWrites()).size() >= writes, 10000);
    QCOMPARE(taken.size(), writes);
    QMap<int, int> applied;
    for (int i = 0; i < taken.size(); ++i) {
        if (i < sent.size()) // each address first in the order it was sent
            QCOMPARE(int(taken.at(i).address), sent.keys().at(i));
        QCOMPARE(int(taken.at(i).kind) + taken.at(i).palette, 0); // a level
        applied[taken.at(i).address] = taken.at(i).level;
    }
    QCOMPARE(applied, sent);
}

void TestCitpLoopback::peerDroppingTheSession_data()
{
    QTest::addColumn<int>("dropAfter");
    QTest::newRow("accepts and closes at once") << 0;
    QTest::newRow("reads one message and closes") << 1;
}

void TestCitpLoopback::peerDroppingTheSession()
{
    // The console changes right when the peer goes, before Lumidesk has
    // noticed: the greeting or the walks over the sessions find it gone.
    QFETCH(int, dropAfter);
    auto steady = establishedPeer(QStringLiteral("steady"));
    QVERIFY(steady);
    select({2});
    CitpPeer::Options options = peerOptions(QStringLiteral("dropping"));
    options.dropAfterMessages = dropAfter;
    TestPeer dropping(options);
    QSignalSpy dropped(&dropping.peer, &CitpPeer::sessionClosed);
    connect(&dropping.peer, &CitpPeer::sessionClosed, this, [&] {
        select({int(dropped.size() % 20) + 2});
        m_engine->notify(ConsoleCode::OutputsChanged);
    });
    QVERIFY(dropping.start());
    QTRY_VERIFY_WITH_TIMEOUT(dropped.size() >= 2, 5000); // tried again, dropped again
    dropping.peer.stop();
    QTRY_COMPARE(CITPAgent::instance()->sessionCount(), 1);
    const int before = int(steady->lines.size());
    select({1});
    QTRY_COMPARE(steady->from(before), QStringList{"FSEL/Sele complete=1 devices=1"});
}

void TestCitpLoopback::peersOnBothPortsListeningLate()
{
    // One machine announcing by PNam (the assumed port) before it listens and
    // by PLoc (its own port): the refused attempt is forgotten, and the two
    // ports make two sessions.
    QVERIFY(m_server.listen(loopback, 0));
    const quint16 assumedPort = m_server.serverPort();
    m_server.close();
    CITPAgent::stop();
    QVERIFY(startAgent(assumedPort));
    QSignalSpy listed(manager(), &Manager::peerListChanged);
    send(pnam(QStringLiteral("named")), manager()->boundNamePort());
    QVERIFY(listed.wait(5000));
    QTRY_COMPARE(CITPAgent::instance()->sessionCount(), 0);
    CitpPeer::Options named = peerOptions(QStringLiteral("named"));
    named.announceLocation = false;
    named.announceName = true;
    named.nameAddress = loopback;
    named.namePort = manager()->boundNamePort();
    named.listenPort = assumedPort;
    TestPeer byName(named);
    TestPeer byLocation(peerOptions(QStringLiteral("located")));
    QVERIFY(byName.start() && byLocation.start());
    QTRY_COMPARE_WITH_TIMEOUT(byName.lines.size(), 6, 5000);
    QTRY_COMPARE(byLocation.lines.size(), 6);
    QCOMPARE(byName.lines.mid(0, 4), greeting());
    QCOMPARE(CITPAgent::instance()->establishedSessionCount(), 2);
    QCOMPARE(manager()->peerList().size(), 2);
}

void TestCitpLoopback::toolAgainstTheAgent()
{
    // The program as a user runs it: it announces, takes the session, prints
    // every message (levels deciphered) and sends what --send gives it.
    QProcess tool;
    tool.start(QStringLiteral(CITP_PEER_PROGRAM),
               {"--name", "checker", "--to", "127.0.0.1", "--ploc-port",
                QString::number(manager()->boundLocationPort()), "--interval", "200", "--send",
                "chbk 1 10 5,6,7", "--send", "sele 4", "--exit-after", "30000"});
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
    QCOMPARE(lines.mid(2), greeting() << universeLine(m_engine->record()->dmxOutput, 0)
                                      << universeLine(m_engine->record()->dmxOutput, 1));
    QTRY_COMPARE(int(m_engine->record()->dmxWriteIndex), 3);
    QCOMPARE(m_engine->record()->dmxWriteRing[2].address, 524);
    QCOMPARE(m_engine->record()->dmxWriteRing[2].level, 7);
    QTRY_COMPARE(int(m_engine->record()->deviceSelected[3]), 1);
}

QTEST_GUILESS_MAIN(TestCitpLoopback)
#include "tst_citp_loopback.moc"
