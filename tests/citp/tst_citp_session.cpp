// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/Manager.h"
#include "citp/Message.h"
#include "citp/Session.h"

#include <QNetworkProxyFactory>
#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using CITP::Manager;
using CITP::Message;
using CITP::PeerInfo;
using CITP::Session;

namespace {

QByteArray pnam(const QString& name)
{
    Message message;
    message.initPNam(name);
    return message.toByteArray();
}

// Records what a session reports, in order. A queued "tick" after each
// delivery shows whether later deliveries came in the same read.
class Recorder : public Session::Handler
{
public:
    void connected(Session*) override { events.append(QStringLiteral("connected")); }
    void messageReceived(Session*, const Message& message) override
    {
        events.append(
            message.pinfType() == QLatin1String("PNam")
                ? message.parsePNam()
                : QStringLiteral("%1+%2").arg(message.layerType()).arg(message.payload().size()));
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { events.append(QStringLiteral("tick")); },
            Qt::QueuedConnection);
    }
    void disconnected(Session*) override { events.append(QStringLiteral("disconnected")); }

    QStringList messages() const
    {
        QStringList result = events;
        result.removeAll(QStringLiteral("tick"));
        result.removeAll(QStringLiteral("connected"));
        return result;
    }

    QStringList events;
};

} // namespace

class TestCitpSession : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void twoMessagesInOneSegmentComeInOneRead();
    void messageInThreeSegmentsIsDeliveredOnce();
    void emptyPayload();
    void garbageIsDroppedAndALaterHeaderFound();
    void impossibleSizeClosesTheSession_data();
    void impossibleSizeClosesTheSession();
    void peerClosingEndsTheSession();
    void failedConnectionIsReportedAndForgotten();
    void sendWritesTheMessageBytes();
    void slowPeerKeepsOnlyTheNewestState();

private:
    // Opens a session to the test server and accepts it.
    bool openSession();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_peer;
    Recorder m_recorder;
    QPointer<Session> m_session;
};

void TestCitpSession::init()
{
    Manager::Settings settings;
    settings.bindAddress = QHostAddress(QHostAddress::LocalHost);
    settings.locationPort = 0;
    settings.namePort = 0;
    settings.groups.clear();
    QVERIFY(Manager::start(settings));
    QVERIFY(m_server.listen(QHostAddress(QHostAddress::LocalHost), 0));
    m_recorder.events.clear();
}

void TestCitpSession::cleanup()
{
    Manager::stop();
    QVERIFY(!m_session); // the manager deletes what is left
    m_server.close();
    delete m_peer;
}

bool TestCitpSession::openSession()
{
    const PeerInfo peer(QHostAddress(QHostAddress::LocalHost), m_server.serverPort(),
                        QStringLiteral("test"));
    m_session = Manager::instance()->connectToPeer(peer, &m_recorder);
    if (!m_session || m_session->peer() != peer || Manager::instance()->sessionCount() != 1)
        return false;
    // The session connects from the event loop.
    QSignalSpy accepted(&m_server, &QTcpServer::newConnection);
    if (!accepted.wait(5000))
        return false;
    m_peer = m_server.nextPendingConnection();
    return QTest::qWaitFor([&] { return m_recorder.events == QStringList{"connected"}; }, 5000);
}

void TestCitpSession::twoMessagesInOneSegmentComeInOneRead()
{
    QVERIFY(openSession());
    m_peer->write(pnam(QStringLiteral("first")) + pnam(QStringLiteral("second")));
    QTRY_COMPARE(m_recorder.events.size(), 5);
    QCOMPARE(m_recorder.events, (QStringList{"connected", "first", "second", "tick", "tick"}));
}

void TestCitpSession::messageInThreeSegmentsIsDeliveredOnce()
{
    QVERIFY(openSession());
    const QByteArray bytes = pnam(QStringLiteral("pieces"));
    m_peer->write(bytes.left(9));
    QTRY_COMPARE(m_session->bufferedInputBytes(), 9);
    m_peer->write(bytes.mid(9, 11));
    QTRY_COMPARE(m_session->bufferedInputBytes(), 20);
    QVERIFY(m_recorder.messages().isEmpty());
    m_peer->write(bytes.mid(20));
    QTRY_COMPARE(m_recorder.messages(), QStringList{"pieces"});
    QCOMPARE(m_session->bufferedInputBytes(), 0);
}

void TestCitpSession::emptyPayload()
{
    QVERIFY(openSession());
    Message empty;
    empty.init(QStringLiteral("SDMX"), QByteArray());
    m_peer->write(empty.toByteArray());
    QTRY_COMPARE(m_recorder.messages(), QStringList{"SDMX+0"});
}

void TestCitpSession::garbageIsDroppedAndALaterHeaderFound()
{
    QVERIFY(openSession());
    m_peer->write("junk");
    QTRY_COMPARE(m_session->bufferedInputBytes(), 4);
    // Not a header: thrown away together with the valid message behind it.
    m_peer->write(QByteArray("more junk, more junk") + pnam(QStringLiteral("lost")));
    QTRY_COMPARE(m_session->bufferedInputBytes(), 0);
    m_peer->write(pnam(QStringLiteral("found")));
    QTRY_COMPARE(m_recorder.messages(), QStringList{"found"});
    QVERIFY(m_session);
}

void TestCitpSession::impossibleSizeClosesTheSession_data()
{
    QTest::addColumn<quint32>("size");
    QTest::newRow("below a header") << quint32(19);
    QTest::newRow("zero") << quint32(0);
    QTest::newRow("beyond any accepted message") << quint32(CITP::StreamReader::maxMessageSize + 1);
}

void TestCitpSession::impossibleSizeClosesTheSession()
{
    QFETCH(quint32, size);
    QVERIFY(openSession());
    QByteArray bytes = pnam(QStringLiteral("x"));
    for (int i = 0; i < 4; ++i)
        bytes[8 + i] = char((size >> (8 * i)) & 0xff);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("closing the session"));
    m_peer->write(bytes);
    QTRY_VERIFY(!m_session);
    QCOMPARE(m_recorder.events, (QStringList{"connected", "disconnected"}));
    QCOMPARE(Manager::instance()->sessionCount(), 0);
    QTRY_COMPARE(m_peer->state(), QAbstractSocket::UnconnectedState);
}

void TestCitpSession::peerClosingEndsTheSession()
{
    QVERIFY(openSession());
    m_peer->write(pnam(QStringLiteral("last words")));
    m_peer->disconnectFromHost();
    QTRY_VERIFY(!m_session);
    QCOMPARE(m_recorder.events, (QStringList{"connected", "last words", "tick", "disconnected"}));
    QCOMPARE(Manager::instance()->sessionCount(), 0);
}

void TestCitpSession::failedConnectionIsReportedAndForgotten()
{
    const quint16 port = m_server.serverPort();
    m_server.close(); // nobody listens there now
    const PeerInfo peer(QHostAddress(QHostAddress::LocalHost), port, QStringLiteral("gone"));
    m_session = Manager::instance()->connectToPeer(peer, &m_recorder);
    QCOMPARE(Manager::instance()->sessionCount(), 1);
    QTRY_VERIFY(!m_session);
    QCOMPARE(m_recorder.events, QStringList{"disconnected"});
    QCOMPARE(Manager::instance()->sessionCount(), 0);
}

void TestCitpSession::sendWritesTheMessageBytes()
{
    QVERIFY(openSession());
    Message message;
    message.initUNam(1, QStringLiteral("2"));
    m_session->send(message);
    message.initEnId(QStringLiteral("Lumidesk"));
    m_session->sendState(0, message);
    const QByteArray expected = [] {
        Message a;
        a.initUNam(1, QStringLiteral("2"));
        Message b;
        b.initEnId(QStringLiteral("Lumidesk"));
        return a.toByteArray() + b.toByteArray();
    }();
    QByteArray received;
    QTRY_VERIFY((received += m_peer->readAll()).size() >= expected.size());
    QCOMPARE(received.toHex(' '), expected.toHex(' '));
}

void TestCitpSession::slowPeerKeepsOnlyTheNewestState()
{
    // A peer that reads nothing: what Lumidesk queues for it stays bounded,
    // and once it reads again the newest state of each kind arrives last.
    QVERIFY(openSession());
    m_session->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 16 * 1024);
    m_peer->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 16 * 1024);
    m_peer->setReadBufferSize(1); // Qt itself stops reading for the peer
    Message message;
    qint64 largestQueue = 0;
    constexpr int rounds = 20000;
    for (int i = 0; i < rounds; ++i) {
        const int key = i % 2;
        message.initPNam(QStringLiteral("k%1 %2 ").arg(key).arg(i) + QString(500, 'x'));
        m_session->sendState(key, message);
        largestQueue = std::max(largestQueue, m_session->bytesToWrite());
        QVERIFY(m_session->heldStateMessages() <= 2);
    }
    QVERIFY2(largestQueue <= Session::maxQueuedBytes + 1024,
             qPrintable(QString::number(largestQueue)));
    QVERIFY(m_session->heldStateMessages() > 0);

    // Read everything now; the last two names are the newest of each key.
    m_peer->setReadBufferSize(0);
    CITP::StreamReader reader;
    QStringList names;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            reader.append(m_peer->readAll());
            Message received;
            while (reader.next(received) == CITP::StreamReader::Status::MessageReady)
                names.append(received.parsePNam().section(' ', 0, 1));
            return names.size() >= 2 && names.constLast() == QStringLiteral("k1 19999");
        }(),
        10000);
    QCOMPARE(names.mid(names.size() - 2), (QStringList{"k0 19998", "k1 19999"}));
    QVERIFY(names.size() < rounds);
}

void TestCitpSession::initTestCase()
{
    // The test's own sockets talk over loopback directly, without asking
    // the system for a proxy.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
}

QTEST_GUILESS_MAIN(TestCitpSession)
#include "tst_citp_session.moc"
