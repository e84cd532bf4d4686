// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/Blowfish.h"
#include "citp/CITPAgent.h"
#include "citp/Manager.h"
#include "citp/SessionKey.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "tools/citp-peer/CitpPeer.h"

#include "FakeEngine.h"

#include <QNetworkInterface>
#include <QNetworkProxyFactory>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QUdpSocket>
#include <QtEndian>

#include <memory>

using CITP::Message;

namespace {

using DeviceSet = QList<int>;

// A visualiser stand-in with everything it received, described line by line
// (levels deciphered) and kept raw.
class TestPeer
{
public:
    explicit TestPeer(const CitpPeer::Options& options) : peer(options)
    {
        QObject::connect(&peer, &CitpPeer::messageReceived, &peer, [this](const Message& m) {
            messages.append(m);
            lines.append(peer.describe(m));
        });
    }
    bool start()
    {
        QString error;
        return peer.start(&error);
    }
    // Lines from the n-th on.
    QStringList from(int n) const { return lines.mid(n); }

    CitpPeer peer;
    QList<Message> messages;
    QStringList lines;
};

QStringList greeting()
{
    return {QStringLiteral("PINF/PNam name=\"Lumidesk\""),
            QStringLiteral("SDMX/EnId identifier=\"Lumidesk\""),
            QStringLiteral("SDMX/UNam universe=0 name=\"1\""),
            QStringLiteral("SDMX/UNam universe=1 name=\"2\"")};
}

QString universeLine(const quint8* levels, int universe)
{
    return QStringLiteral("SDMX/ChBk blind=0 universe=%1 first=0 count=512 levels=%2")
        .arg(universe)
        .arg(QString::fromLatin1(
            QByteArray(reinterpret_cast<const char*>(levels) + universe * 512, 512).toHex()));
}

QByteArray ploc(quint16 port)
{
    QByteArray payload("PLoc");
    char le[2];
    qToLittleEndian(port, le);
    payload.append(le, 2).append("Visualizer\0raw\0Running", 23);
    Message message;
    message.init(QStringLiteral("PINF"), payload);
    return message.toByteArray();
}

} // namespace

class TestCitpAgent : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void startAndStop();
    void greetingThenCurrentState_data();
    void greetingThenCurrentState();
    void outputChangeSendsBothUniversesEnciphered_data();
    void outputChangeSendsBothUniversesEnciphered();
    void sessionStillConnectingGetsNothing();
    void selectionOut_data();
    void selectionOut();
    void selectionIn_data();
    void selectionIn();
    void channelBlockIn_data();
    void channelBlockIn();
    void restartedPeerGetsTheStreamAgain();
    void peerNotListeningYetIsTriedAgain();
    void bothDiscoveryPortsGiveTwoSessions();
    void peerDroppingTheSession_data();
    void peerDroppingTheSession();
    void everyLevelOfAPeerReachesTheEngine_data();
    void everyLevelOfAPeerReachesTheEngine();
    void noCipherNoLevels();
    void selectionsInOneReadAreOneChange_data();
    void selectionsInOneReadAreOneChange();

private:
    bool startAgent(quint16 assumedSessionPort = CITP::Manager::assumedSessionPort,
                    QByteArrayView levelKey = CITPAgent::sharedLevelKey());
    CitpPeer::Options peerOptions(const QString& name) const;
    // A peer announced straight to the agent's location port, established.
    std::unique_ptr<TestPeer> establishedPeer(const QString& name = QStringLiteral("viz"));
    void select(const DeviceSet& devices);
    DeviceSet selected() const;

    std::unique_ptr<FakeEngine> m_engine;
    Console* m_console = nullptr;
    QNetworkInterface m_loopback;
};

void TestCitpAgent::init()
{
    m_engine = std::make_unique<FakeEngine>(ConsoleCache::ModelMaple);
    m_console = m_engine->createConsole();
    m_loopback = QNetworkInterface::interfaceFromName(QStringLiteral("lo"));
    QVERIFY(startAgent());
}

void TestCitpAgent::cleanup()
{
    CITPAgent::stop();
    QVERIFY(!CITPAgent::instance());
    QVERIFY(!CITP::Manager::instance());
    delete m_console;
    m_console = nullptr;
    m_engine.reset();
}

bool TestCitpAgent::startAgent(quint16 assumedSessionPort, QByteArrayView levelKey)
{
    CITP::Manager::Settings settings;
    settings.locationPort = 0;
    settings.namePort = 0;
    settings.assumedSessionPort = assumedSessionPort;
    if (m_loopback.isValid())
        settings.multicastInterfaces = {m_loopback};
    return CITPAgent::start(m_console, settings, levelKey);
}

CitpPeer::Options TestCitpAgent::peerOptions(const QString& name) const
{
    CitpPeer::Options options;
    options.name = name;
    options.locationAddress = QHostAddress(QHostAddress::LocalHost);
    options.locationPort = CITP::Manager::instance()->boundLocationPort();
    options.listenAddress = QHostAddress(QHostAddress::LocalHost);
    options.announceIntervalMs = 200;
    options.multicastInterface = QStringLiteral("lo");
    return options;
}

std::unique_ptr<TestPeer> TestCitpAgent::establishedPeer(const QString& name)
{
    auto peer = std::make_unique<TestPeer>(peerOptions(name));
    if (!peer->start())
        return nullptr;
    // Greeting and the two current universes.
    if (!QTest::qWaitFor([&] { return peer->lines.size() >= 6; }, 5000))
        return nullptr;
    return peer;
}

void TestCitpAgent::select(const DeviceSet& devices)
{
    ConsoleStateRecord* record = m_engine->record();
    std::fill(std::begin(record->deviceSelected), std::end(record->deviceSelected), 0);
    for (int device : devices)
        record->deviceSelected[device - 1] = 1;
    m_engine->notify(ConsoleCode::DeviceStatusChanged);
}

DeviceSet TestCitpAgent::selected() const
{
    DeviceSet devices;
    for (int d = 0; d < CITPAgent::devices; ++d) {
        if (m_engine->record()->deviceSelected[d])
            devices.append(d + 1);
    }
    return devices;
}

void TestCitpAgent::startAndStop()
{
    QVERIFY(!CITPAgent::start(m_console)); // one agent at a time
    auto peer = establishedPeer();
    QVERIFY(peer);
    QCOMPARE(CITPAgent::instance()->establishedSessionCount(), 1);
    QSignalSpy closed(&peer->peer, &CitpPeer::sessionClosed);
    CITPAgent::stop();
    QVERIFY(!CITPAgent::instance());
    QVERIFY(closed.wait(5000));
    QVERIFY(!CITPAgent::start(nullptr));
    QVERIFY(startAgent());
}

void TestCitpAgent::greetingThenCurrentState_data()
{
    QTest::addColumn<QString>("announceTo");
    QTest::newRow("PLoc straight to the port") << "127.0.0.1";
    QTest::newRow("PLoc through the group 239.224.0.180") << "239.224.0.180";
    QTest::newRow("PLoc through the group 224.0.0.180") << "224.0.0.180";
}

void TestCitpAgent::greetingThenCurrentState()
{
    QFETCH(QString, announceTo);
    if (QHostAddress(announceTo).isMulticast() && CITP::Manager::instance()->joinedGroups() == 0)
        QSKIP("No multicast membership could be taken on the loopback interface here.");
    m_engine->record()->dmxOutput[3] = 200;
    m_engine->record()->dmxOutput[700] = 9;
    CitpPeer::Options options = peerOptions(QStringLiteral("viz"));
    options.locationAddress = QHostAddress(announceTo);
    TestPeer peer(options);
    QVERIFY(peer.start());
    QTRY_COMPARE_WITH_TIMEOUT(peer.lines.size(), 6, 5000);
    QCOMPARE(peer.lines.mid(0, 4), greeting());
    // A (re)connected visualiser is shown the stage as it is.
    QCOMPARE(peer.lines.at(4), universeLine(m_engine->record()->dmxOutput, 0));
    QCOMPARE(peer.lines.at(5), universeLine(m_engine->record()->dmxOutput, 1));
    QCOMPARE(CITPAgent::instance()->sessionCount(), 1);
}

void TestCitpAgent::outputChangeSendsBothUniversesEnciphered_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("fromEngineThread");
    QTest::newRow("outputs changed (13)") << ConsoleCode::OutputsChanged << false;
    QTest::newRow("output levels changed (16)") << ConsoleCode::OutputLevelsChanged << false;
    QTest::newRow("notified on the engine's thread") << ConsoleCode::OutputLevelsChanged << true;
}

void TestCitpAgent::outputChangeSendsBothUniversesEnciphered()
{
    QFETCH(int, code);
    QFETCH(bool, fromEngineThread);
    auto peer = establishedPeer();
    QVERIFY(peer);
    auto second = establishedPeer(QStringLiteral("second"));
    QVERIFY(second);

    quint8* levels = m_engine->record()->dmxOutput;
    for (int a = 0; a < 1024; ++a)
        levels[a] = quint8((a * 13 + 7) & 0xff);
    const int before = peer->messages.size();
    if (fromEngineThread) {
        m_engine->post(code);
        m_engine->waitIdle();
    } else {
        m_engine->notify(code);
    }
    QTRY_COMPARE(peer->messages.size(), before + 2);
    QTRY_COMPARE(second->lines.size(), 8);
    QCOMPARE(peer->from(before), (QStringList{universeLine(levels, 0), universeLine(levels, 1)}));
    QCOMPARE(second->from(6), peer->from(before));

    // On the wire: each universe enciphered as 64 ECB blocks whose 4-byte
    // halves are little-endian around the standard block function.
    const CITP::Blowfish reference(
        QByteArrayView(CITP::sessionKey.data(), qsizetype(CITP::sessionKey.size())));
    for (int universe = 0; universe < 2; ++universe) {
        const QByteArray payload = peer->messages.at(before + universe).payload();
        QCOMPARE(payload.size(), 10 + 512);
        QByteArray expected(reinterpret_cast<const char*>(levels) + universe * 512, 512);
        for (int i = 0; i < expected.size(); i += 4)
            std::reverse(expected.begin() + i, expected.begin() + i + 4);
        reference.encrypt(reinterpret_cast<unsigned char*>(expected.data()), 512);
        for (int i = 0; i < expected.size(); i += 4)
            std::reverse(expected.begin() + i, expected.begin() + i + 4);
        QCOMPARE(payload.mid(10).toHex(), expected.toHex());
    }
}

void TestCitpAgent::sessionStillConnectingGetsNothing()
{
    // An output change while the session is being set up (right when the
    // peer has been listed) reaches nobody; the peer then gets the greeting,
    // the current state once, and the next change.
    m_engine->record()->dmxOutput[0] = 1;
    int earlyChanges = 0;
    connect(CITP::Manager::instance(), &CITP::Manager::peerListChanged, this, [&] {
        QCOMPARE(CITPAgent::instance()->sessionCount(), 1);
        QCOMPARE(CITPAgent::instance()->establishedSessionCount(), 0);
        m_engine->notify(ConsoleCode::OutputsChanged);
        ++earlyChanges;
    });
    auto peer = establishedPeer();
    QVERIFY(peer);
    QCOMPARE(earlyChanges, 1);
    select({1});
    QTRY_COMPARE(peer->lines.size(), 7);
    QCOMPARE(peer->lines.mid(0, 4), greeting());
    QCOMPARE(peer->lines.at(6), "FSEL/Sele complete=1 devices=1");
}

void TestCitpAgent::selectionOut_data()
{
    QTest::addColumn<QList<DeviceSet>>("steps");
    QTest::addColumn<QStringList>("sent");

    QTest::newRow("select 3 and 5, then none")
        << QList<DeviceSet>{{3, 5}, {}}
        << QStringList{"FSEL/Sele complete=1 devices=3,5", "FSEL/DeSe devices=all"};
    QTest::newRow("an unchanged selection sends nothing")
        << QList<DeviceSet>{{1}, {1}, {24}, {24}}
        << QStringList{"FSEL/Sele complete=1 devices=1", "FSEL/Sele complete=1 devices=24"};
    QTest::newRow("nothing selected at start sends nothing")
        << QList<DeviceSet>{{}, {2}} << QStringList{"FSEL/Sele complete=1 devices=2"};
    QTest::newRow("every device")
        << QList<DeviceSet>{{1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                             13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24}}
        << QStringList{"FSEL/Sele complete=1 devices=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,"
                       "17,18,19,20,21,22,23,24"};
}

void TestCitpAgent::selectionOut()
{
    QFETCH(QList<DeviceSet>, steps);
    QFETCH(QStringList, sent);
    auto peer = establishedPeer();
    QVERIFY(peer);
    for (const DeviceSet& step : steps)
        select(step);
    // An output change behind them shows that nothing else is on its way.
    m_engine->notify(ConsoleCode::OutputsChanged);
    QTRY_COMPARE(peer->lines.size(), 6 + sent.size() + 2);
    QCOMPARE(peer->lines.mid(6, sent.size()), sent);
}

void TestCitpAgent::selectionIn_data()
{
    QTest::addColumn<DeviceSet>("before");
    QTest::addColumn<QString>("command");
    QTest::addColumn<DeviceSet>("after");

    QTest::newRow("Sele adding device 7") << DeviceSet{3} << "sele add 7" << DeviceSet{3, 7};
    QTest::newRow("complete Sele replaces the selection")
        << DeviceSet{3} << "sele 2,4" << DeviceSet{2, 4};
    QTest::newRow("identifiers outside 1..24 are ignored")
        << DeviceSet{} << "sele 0,25,300,24" << DeviceSet{24};
    QTest::newRow("DeSe of one device") << DeviceSet{1, 2, 3} << "dese 2" << DeviceSet{1, 3};
    QTest::newRow("DeSe with count 0 clears every device")
        << DeviceSet{1, 2} << "dese" << DeviceSet{};
}

void TestCitpAgent::selectionIn()
{
    QFETCH(DeviceSet, before);
    QFETCH(QString, command);
    QFETCH(DeviceSet, after);
    auto peer = establishedPeer();
    QVERIFY(peer);
    select(before);
    const int published = peer->lines.size() + (before.isEmpty() ? 0 : 1);
    QTRY_COMPARE(peer->lines.size(), published);
    m_engine->clearUpdates();

    QString error;
    QVERIFY2(peer->peer.sendCommand(command, &error), qPrintable(error));
    QTRY_COMPARE(selected(), after);
    const FakeEngine::Call reported{ConsoleCode::DeviceStatusChanged, 0, 0, 0};
    QTRY_COMPARE(m_engine->updates(), (QList<FakeEngine::Call>{reported}));
    // Not echoed: neither now nor on the engine's own report of the change.
    m_engine->notify(ConsoleCode::DeviceStatusChanged);
    m_engine->notify(ConsoleCode::OutputsChanged);
    QTRY_COMPARE(peer->lines.size(), published + 2);
    QVERIFY(peer->lines.at(published).startsWith("SDMX/ChBk"));
}

void TestCitpAgent::channelBlockIn_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<int>>("writes"); // address, level pairs

    QTest::newRow("universe 1, channel 10, three levels")
        << "chbk 1 10 5,6,255" << QList<int>{522, 5, 523, 6, 524, 255};
    QTest::newRow("universe 0 from the first channel")
        << "chbk 0 0 0,128" << QList<int>{0, 0, 1, 128};
    QTest::newRow("levels past address 1023 are dropped")
        << "chbk 1 510 1,2,3,4" << QList<int>{1022, 1, 1023, 2};
    QTest::newRow("a third universe is dropped") << "chbk 2 0 9" << QList<int>{};
}

void TestCitpAgent::channelBlockIn()
{
    QFETCH(QString, command);
    QFETCH(QList<int>, writes);
    auto peer = establishedPeer();
    QVERIFY(peer);
    QString error;
    QVERIFY2(peer->peer.sendCommand(command, &error), qPrintable(error));
    // A marker write behind it: once it is in the ring, so is everything else.
    QVERIFY(peer->peer.sendCommand(QStringLiteral("chbk 0 100 77"), &error));
    writes << 100 << 77;
    const ConsoleStateRecord* record = m_engine->record();
    QTRY_COMPARE(int(record->dmxWriteIndex), writes.size() / 2);
    for (int i = 0; i < writes.size() / 2; ++i) {
        const DmxWrite& entry = record->dmxWriteRing[i];
        QCOMPARE(int(entry.kind), 0);
        QCOMPARE(int(entry.address), writes[2 * i]);
        QCOMPARE(int(entry.level), writes[2 * i + 1]);
        QCOMPARE(int(entry.palette), 0); // a level, not a palette reference
    }
}

void TestCitpAgent::restartedPeerGetsTheStreamAgain()
{
    auto peer = establishedPeer();
    QVERIFY(peer);
    const quint16 port = peer->peer.listenPort();
    peer.reset(); // the visualiser quits...
    QTRY_COMPARE(CITPAgent::instance()->sessionCount(), 0);

    CitpPeer::Options options = peerOptions(QStringLiteral("viz"));
    options.listenPort = port; // ...and comes back on its port
    TestPeer restarted(options);
    QVERIFY(restarted.start());
    QTRY_COMPARE_WITH_TIMEOUT(restarted.lines.size(), 6, 5000);
    QCOMPARE(restarted.lines.mid(0, 4), greeting());
    m_engine->notify(ConsoleCode::OutputsChanged);
    QTRY_COMPARE(restarted.lines.size(), 8);
}

void TestCitpAgent::peerNotListeningYetIsTriedAgain()
{
    // Announced before its session port is open: the failed attempt is
    // forgotten and the peer is connected to once it listens.
    QTcpServer reserve;
    QVERIFY(reserve.listen(QHostAddress(QHostAddress::LocalHost), 0));
    const quint16 port = reserve.serverPort();
    reserve.close();

    QUdpSocket announcer;
    const quint16 locationPort = CITP::Manager::instance()->boundLocationPort();
    QSignalSpy listed(CITP::Manager::instance(), &CITP::Manager::peerListChanged);
    announcer.writeDatagram(ploc(port), QHostAddress(QHostAddress::LocalHost), locationPort);
    QVERIFY(listed.wait(5000));
    QTRY_COMPARE(CITPAgent::instance()->sessionCount(), 0);

    QTcpServer server;
    QVERIFY(server.listen(QHostAddress(QHostAddress::LocalHost), port));
    QTimer announcing;
    connect(&announcer, &QObject::destroyed, &announcing, &QTimer::stop);
    connect(&announcing, &QTimer::timeout, this, [&] {
        announcer.writeDatagram(ploc(port), QHostAddress(QHostAddress::LocalHost), locationPort);
    });
    announcing.start(200);
    QTRY_VERIFY_WITH_TIMEOUT(server.hasPendingConnections(), 5000);
    QTRY_COMPARE(CITPAgent::instance()->establishedSessionCount(), 1);
}

void TestCitpAgent::bothDiscoveryPortsGiveTwoSessions()
{
    // One machine announcing by PLoc (its own port) and by PNam (the assumed
    // port): two different ports, two sessions.
    QTcpServer reserve;
    QVERIFY(reserve.listen(QHostAddress(QHostAddress::LocalHost), 0));
    const quint16 assumedPort = reserve.serverPort();
    reserve.close();
    CITPAgent::stop();
    QVERIFY(startAgent(assumedPort));

    CitpPeer::Options named = peerOptions(QStringLiteral("named"));
    named.announceLocation = false;
    named.announceName = true;
    named.nameAddress = QHostAddress(QHostAddress::LocalHost);
    named.namePort = CITP::Manager::instance()->boundNamePort();
    named.listenPort = assumedPort;
    TestPeer byName(named);
    QVERIFY(byName.start());
    TestPeer byLocation(peerOptions(QStringLiteral("located")));
    QVERIFY(byLocation.start());

    QTRY_COMPARE(byName.lines.size(), 6);
    QTRY_COMPARE(byLocation.lines.size(), 6);
    QCOMPARE(CITPAgent::instance()->establishedSessionCount(), 2);
    QCOMPARE(CITP::Manager::instance()->peerList().size(), 2);
}

void TestCitpAgent::peerDroppingTheSession_data()
{
    QTest::addColumn<int>("dropAfter");
    QTest::newRow("accepts and closes at once") << 0;
    QTest::newRow("reads one message and closes") << 1;
}

void TestCitpAgent::peerDroppingTheSession()
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
    const int before = steady->lines.size();
    select({1});
    QTRY_COMPARE(steady->from(before), QStringList{"FSEL/Sele complete=1 devices=1"});
}

void TestCitpAgent::everyLevelOfAPeerReachesTheEngine_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<int>("writes"); // entries the engine takes in all
    const auto block = [](int universe, int seed) {
        QStringList levels;
        for (int i = 0; i < 512; ++i)
            levels.append(QString::number((i * seed + universe) & 0xff));
        return QStringLiteral("chbk %1 0 %2").arg(universe).arg(levels.join(','));
    };
    QTest::newRow("a whole universe") << QStringList{block(1, 7)} << 512;
    QTest::newRow("both universes") << QStringList{block(0, 3), block(1, 5)} << 1024;
    // Only the newest of a waiting address goes on; the first 99 of the
    // first block were in the ring already.
    QTest::newRow("a universe sent twice") << QStringList{block(0, 3), block(0, 11)} << 512 + 99;
}

void TestCitpAgent::everyLevelOfAPeerReachesTheEngine()
{
    QFETCH(QStringList, commands);
    QFETCH(int, writes);
    auto peer = establishedPeer();
    QVERIFY(peer);
    QMap<int, int> sent; // address: the level last sent
    QString error;
    for (const QString& command : commands) {
        QVERIFY2(peer->peer.sendCommand(command, &error), qPrintable(error));
        const QStringList words = command.split(' ');
        const QStringList levels = words.at(3).split(',');
        for (int i = 0; i < levels.size(); ++i)
            sent[words.at(1).toInt() * 512 + i] = levels.at(i).toInt();
    }
    // The engine empties the ring a tick at a time.
    QList<DmxWrite> taken;
    QTRY_VERIFY_WITH_TIMEOUT((taken += m_engine->drainDmxWrites()).size() >= writes, 10000);
    QCOMPARE(taken.size(), writes);
    QMap<int, int> applied;
    for (int i = 0; i < taken.size(); ++i) {
        if (i < sent.size()) // each address first in the order it was sent
            QCOMPARE(int(taken.at(i).address), sent.firstKey() + i);
        applied[taken.at(i).address] = taken.at(i).level;
    }
    QCOMPARE(applied, sent);
}

void TestCitpAgent::noCipherNoLevels()
{
    CITPAgent::stop();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Blowfish: a key of 73 bytes"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no levels are sent"));
    QTest::failOnWarning(QRegularExpression("cipher"));
    QVERIFY(startAgent(CITP::Manager::assumedSessionPort, QByteArray(73, 'k')));
    TestPeer peer(peerOptions(QStringLiteral("viz")));
    QVERIFY(peer.start());
    QTRY_COMPARE_WITH_TIMEOUT(peer.lines.size(), 4, 5000);
    m_engine->notify(ConsoleCode::OutputsChanged);
    select({1});
    QTRY_COMPARE(peer.lines.size(), 5);
    QCOMPARE(peer.lines, greeting() << "FSEL/Sele complete=1 devices=1");
}

void TestCitpAgent::selectionsInOneReadAreOneChange_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<DeviceSet>("after");
    QStringList replacing;
    for (int i = 0; i < 500; ++i)
        replacing.append(QStringLiteral("sele %1").arg(i % 24 + 1));
    QTest::newRow("500 complete selections") << replacing << DeviceSet{20};
    QStringList adding;
    for (int i = 0; i < 300; ++i)
        adding.append(QString(i % 3 ? "sele add %1" : "dese %1").arg(i % 24 + 1));
    QTest::newRow("300 additions and removals")
        << adding << DeviceSet{2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18, 20, 21, 23, 24};
}

void TestCitpAgent::selectionsInOneReadAreOneChange()
{
    QFETCH(QStringList, commands);
    QFETCH(DeviceSet, after);
    auto peer = establishedPeer();
    QVERIFY(peer);
    m_engine->clearUpdates();
    QString error;
    QVERIFY2(peer->peer.sendCommand(commands.join(';'), &error), qPrintable(error));
    const FakeEngine::Call reported{ConsoleCode::DeviceStatusChanged, 0, 0, 0};
    QTRY_COMPARE(m_engine->updates(), (QList<FakeEngine::Call>{reported}));
    QCOMPARE(selected(), after);
}

void TestCitpAgent::initTestCase()
{
    // The test's own sockets talk over loopback directly, without asking
    // the system for a proxy.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
}

QTEST_GUILESS_MAIN(TestCitpAgent)
#include "tst_citp_agent.moc"
