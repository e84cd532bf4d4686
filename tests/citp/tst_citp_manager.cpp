// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/Manager.h"
#include "citp/Message.h"

#include <QNetworkInterface>
#include <QNetworkProxyFactory>
#include <QSignalSpy>
#include <QTest>
#include <QUdpSocket>
#include <QtEndian>

using CITP::Manager;
using CITP::Message;
using CITP::PeerInfo;

namespace {

const QHostAddress loopback(QHostAddress::LocalHost);

QByteArray pnam(const QString& name)
{
    Message message;
    message.initPNam(name);
    return message.toByteArray();
}

QByteArray ploc(quint16 port, const QString& name)
{
    QByteArray payload("PLoc");
    char le[2];
    qToLittleEndian(port, le);
    payload.append(le, 2).append("Visualizer", 11).append(name.toLatin1()).append('\0');
    payload.append("Running", 8);
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

} // namespace

class TestCitpManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void startOnlyOnce();
    void discovery_data();
    void discovery();
    void knownPeerIsRefreshedQuietly();
    void wrongSocketOrContentIsIgnored_data();
    void wrongSocketOrContentIsIgnored();
    void silentPeersArePurged();
    void peerListIsBounded();

private:
    Manager* manager() const { return Manager::instance(); }
    // Sends and waits until the manager has taken in the marker datagram sent
    // right behind it on the same path, so that "nothing happened" is known.
    void sendThenMarker(const QByteArray& datagram, quint16 port);
    void send(const QByteArray& datagram, quint16 port);

    QDateTime m_now;
    QUdpSocket m_sender;
    QNetworkInterface m_loopback;
};

void TestCitpManager::init()
{
    m_now = QDateTime(QDate(2026, 5, 1), QTime(20, 0), Qt::UTC);
    m_loopback = QNetworkInterface::interfaceFromName(QStringLiteral("lo"));
    Manager::Settings settings;
    settings.locationPort = 0;
    settings.namePort = 0;
    settings.assumedSessionPort = 4811;
    // Multicast over the loopback interface: the sender names it too.
    if (m_loopback.isValid())
        settings.multicastInterfaces = {m_loopback};
    settings.clock = [this] { return m_now; };
    QVERIFY(Manager::start(settings));
    QVERIFY(manager()->boundLocationPort() != 0);
    QVERIFY(manager()->boundNamePort() != 0);

    QVERIFY(m_sender.bind(loopback, 0));
    if (m_loopback.isValid())
        m_sender.setMulticastInterface(m_loopback);
    m_sender.setSocketOption(QAbstractSocket::MulticastLoopbackOption, 1);
}

void TestCitpManager::cleanup()
{
    Manager::stop();
    QVERIFY(!Manager::instance());
    m_sender.close();
}

void TestCitpManager::send(const QByteArray& datagram, quint16 port)
{
    QCOMPARE(m_sender.writeDatagram(datagram, loopback, port), qint64(datagram.size()));
}

void TestCitpManager::sendThenMarker(const QByteArray& datagram, quint16 port)
{
    QSignalSpy changed(manager(), &Manager::peerHeard);
    send(datagram, port);
    send(ploc(9, QStringLiteral("marker")), manager()->boundLocationPort());
    QTRY_VERIFY(std::any_of(changed.cbegin(), changed.cend(), [](const QVariantList& args) {
        return args.at(0).value<PeerInfo>().name == QLatin1String("marker");
    }));
}

void TestCitpManager::startOnlyOnce()
{
    QVERIFY(!Manager::start(QHostAddress(QHostAddress::AnyIPv4)));
    Manager::stop();
    QVERIFY(!Manager::instance());
    QVERIFY(Manager::start(QHostAddress(QHostAddress::LocalHost)));
}

void TestCitpManager::discovery_data()
{
    QTest::addColumn<QString>("via");
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("peers");

    QTest::newRow("PLoc through the group 224.0.0.180")
        << "224.0.0.180" << ploc(6000, QStringLiteral("Studio")) << "127.0.0.1:6000 Studio";
    QTest::newRow("PLoc through the group 239.224.0.180")
        << "239.224.0.180" << ploc(6001, QStringLiteral("Stage")) << "127.0.0.1:6001 Stage";
    QTest::newRow("PLoc sent straight to the port")
        << "location" << ploc(6002, QStringLiteral("Direct")) << "127.0.0.1:6002 Direct";
    QTest::newRow("PNam on the name port: assumed session port 4811")
        << "name" << pnam(QStringLiteral("Named")) << "127.0.0.1:4811 Named";
}

void TestCitpManager::discovery()
{
    QFETCH(QString, via);
    QFETCH(QByteArray, datagram);
    const QHostAddress group(via);
    if (!group.isNull() && manager()->joinedGroups() == 0)
        QSKIP("No multicast membership could be taken on this machine (no loopback interface "
              "or multicast disabled); the group path cannot be exercised here.");

    QSignalSpy changed(manager(), &Manager::peerListChanged);
    if (!group.isNull())
        QCOMPARE(m_sender.writeDatagram(datagram, group, manager()->boundLocationPort()),
                 qint64(datagram.size()));
    else
        send(datagram, via == QLatin1String("name") ? manager()->boundNamePort()
                                                    : manager()->boundLocationPort());
    QVERIFY(changed.wait(5000));
    QCOMPARE(changed.size(), 1);
    QTEST(describe(manager()->peerList()), "peers");
}

void TestCitpManager::knownPeerIsRefreshedQuietly()
{
    // Two ports from one address are two peers; the same pair again only
    // refreshes the entry (new name, new time) without a signal.
    QSignalSpy changed(manager(), &Manager::peerListChanged);
    const quint16 port = manager()->boundLocationPort();
    send(ploc(7000, QStringLiteral("A")), port);
    send(ploc(7001, QStringLiteral("B")), port);
    QTRY_COMPARE(manager()->peerList().size(), 2);

    m_now = m_now.addMSecs(2500);
    changed.clear();
    sendThenMarker(ploc(7000, QStringLiteral("A renamed")), port);
    QCOMPARE(changed.size(), 1); // the marker only
    // 2.5 s on: A was refreshed and survives another 2.5 s, B does not.
    m_now = m_now.addMSecs(2500);
    QCOMPARE(describe(manager()->peerList()), "127.0.0.1:7000 A renamed, 127.0.0.1:9 marker");
}

void TestCitpManager::wrongSocketOrContentIsIgnored_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<bool>("toNamePort");

    QTest::newRow("PLoc on the name port") << ploc(7100, QStringLiteral("x")) << true;
    QTest::newRow("PNam on the location port") << pnam(QStringLiteral("x")) << false;
    QByteArray bad = pnam(QStringLiteral("x"));
    bad[0] = 'c';
    QTest::newRow("lower-case cookie") << bad << true;
    QTest::newRow("size field off by one") << pnam(QStringLiteral("x")) + "!" << true;
    Message other;
    other.init(QStringLiteral("MSEX"), QByteArray("VSrc"));
    QTest::newRow("another layer") << other.toByteArray() << false;
    QTest::newRow("empty datagram") << QByteArray() << false;
}

void TestCitpManager::wrongSocketOrContentIsIgnored()
{
    QFETCH(QByteArray, datagram);
    QFETCH(bool, toNamePort);
    sendThenMarker(datagram,
                   toNamePort ? manager()->boundNamePort() : manager()->boundLocationPort());
    QCOMPARE(describe(manager()->peerList()), "127.0.0.1:9 marker");
}

void TestCitpManager::silentPeersArePurged()
{
    QSignalSpy changed(manager(), &Manager::peerListChanged);
    send(ploc(7200, QStringLiteral("Quiet")), manager()->boundLocationPort());
    QVERIFY(changed.wait(5000));
    changed.clear();

    m_now = m_now.addMSecs(Manager::silenceMs);
    QCOMPARE(manager()->peerList().size(), 1); // exactly 3 s: still there
    m_now = m_now.addMSecs(1);
    // Between timer ticks the list is purged on reading...
    QCOMPARE(manager()->peerList().size(), 0);
    QCOMPARE(changed.size(), 0);

    // ...and the timer tick reports a drop once.
    send(ploc(7201, QStringLiteral("Quiet too")), manager()->boundLocationPort());
    QVERIFY(changed.wait(5000));
    changed.clear();
    m_now = m_now.addMSecs(Manager::silenceMs + 500);
    QVERIFY(changed.wait(2 * Manager::purgeIntervalMs + 1000));
    QCOMPARE(changed.size(), 1);
    QVERIFY(manager()->peerList().isEmpty());
}

void TestCitpManager::peerListIsBounded()
{
    // A flood of forged announcements, in batches the socket can hold.
    const quint16 port = manager()->boundLocationPort();
    QSignalSpy heard(manager(), &Manager::peerHeard);
    for (int batch = 0; batch < 8; ++batch) {
        for (int i = 0; i < 40; ++i)
            send(ploc(quint16(10000 + batch * 40 + i), QStringLiteral("flood")), port);
        sendThenMarker(ploc(10000, QStringLiteral("flood")), port);
    }
    QCOMPARE(manager()->peerList().size(), Manager::maxKnownPeers);
    // Peers left out of the list are not reported as heard either.
    const auto unlisted = std::count_if(heard.cbegin(), heard.cend(), [](const QVariantList& a) {
        return a.at(0).value<PeerInfo>().port >= 10000 + Manager::maxKnownPeers;
    });
    QCOMPARE(unlisted, 0);
}

void TestCitpManager::initTestCase()
{
    // The test's own sockets talk over loopback directly, without asking
    // the system for a proxy.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
}

QTEST_GUILESS_MAIN(TestCitpManager)
#include "tst_citp_manager.moc"
