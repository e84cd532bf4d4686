// SPDX-License-Identifier: GPL-3.0-or-later
#include "Manager.h"

#include "Message.h"

#include <QMutexLocker>
#include <QNetworkDatagram>
#include <QNetworkProxy>

namespace CITP {

Manager* Manager::s_instance = nullptr;

QList<QHostAddress> Manager::defaultGroups()
{
    return {QHostAddress(QStringLiteral("224.0.0.180")),
            QHostAddress(QStringLiteral("239.224.0.180"))};
}

bool Manager::start(const QHostAddress& address)
{
    Settings settings;
    settings.bindAddress = address;
    return start(settings);
}

bool Manager::start(const Settings& settings)
{
    if (s_instance)
        return false;
    s_instance = new Manager(settings);
    return true;
}

void Manager::stop()
{
    delete s_instance;
    s_instance = nullptr;
}

Manager::Manager(const Settings& settings) : m_settings(settings)
{
    // IPv4 groups can only be joined on an IPv4 socket; "any" means any IPv4
    // address here.
    if (m_settings.bindAddress == QHostAddress(QHostAddress::Any))
        m_settings.bindAddress = QHostAddress::AnyIPv4;
    if (!m_settings.clock)
        m_settings.clock = [] { return QDateTime::currentDateTimeUtc(); };

    // Show networks are local: a system-wide proxy must never carry CITP
    // (and asking for one costs a lookup per socket).
    m_multicastSocket.setProxy(QNetworkProxy::NoProxy);
    m_broadcastSocket.setProxy(QNetworkProxy::NoProxy);
    bindSockets();
    connect(&m_multicastSocket, &QUdpSocket::readyRead, this, &Manager::multicastDataReceived);
    connect(&m_broadcastSocket, &QUdpSocket::readyRead, this, &Manager::broadcastDataReceived);
    connect(&m_purgeTimer, &QTimer::timeout, this, &Manager::purgeTimeout);
    m_purgeTimer.start(purgeIntervalMs);
}

Manager::~Manager()
{
    m_purgeTimer.stop();
    {
        QMutexLocker locker(&m_mutex);
        m_knownPeers.clear();
    }
    // Each session takes itself out of the list as it is deleted.
    QList<Session*> sessions;
    {
        QMutexLocker locker(&m_mutex);
        sessions = m_sessions;
    }
    for (Session* session : sessions)
        delete session;
}

void Manager::bindSockets()
{
    // A manager that cannot bind simply hears nothing; the program runs on.
    constexpr auto mode = QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint;
    if (!m_multicastSocket.bind(m_settings.bindAddress, m_settings.locationPort, mode))
        qWarning("CITP: cannot listen on UDP port %u: %s", m_settings.locationPort,
                 qPrintable(m_multicastSocket.errorString()));
    else
        joinGroups();
    if (!m_broadcastSocket.bind(m_settings.bindAddress, m_settings.namePort, mode))
        qWarning("CITP: cannot listen on UDP port %u: %s", m_settings.namePort,
                 qPrintable(m_broadcastSocket.errorString()));
}

QList<QNetworkInterface> Manager::membershipInterfaces() const
{
    if (!m_settings.multicastInterfaces.isEmpty())
        return m_settings.multicastInterfaces;
    QList<QNetworkInterface> result;
    const auto wanted =
        QNetworkInterface::IsUp | QNetworkInterface::IsRunning | QNetworkInterface::CanMulticast;
    for (const QNetworkInterface& candidate : QNetworkInterface::allInterfaces()) {
        if ((candidate.flags() & wanted) != wanted)
            continue;
        for (const QNetworkAddressEntry& entry : candidate.addressEntries()) {
            const bool usable = entry.ip().protocol() == QAbstractSocket::IPv4Protocol &&
                                (m_settings.bindAddress == QHostAddress(QHostAddress::AnyIPv4) ||
                                 entry.ip() == m_settings.bindAddress);
            if (usable) {
                result.append(candidate);
                break;
            }
        }
    }
    return result;
}

void Manager::joinGroups()
{
    // Visualisers may sit on any of the machine's networks, so membership is
    // taken on each; without such an interface the system picks one.
    const QList<QNetworkInterface> interfaces = membershipInterfaces();
    for (const QHostAddress& group : m_settings.groups) {
        if (interfaces.isEmpty()) {
            m_joinedGroups += m_multicastSocket.joinMulticastGroup(group) ? 1 : 0;
            continue;
        }
        for (const QNetworkInterface& interface : interfaces) {
            if (m_multicastSocket.joinMulticastGroup(group, interface))
                ++m_joinedGroups;
            else
                qWarning("CITP: cannot join %s on %s: %s", qPrintable(group.toString()),
                         qPrintable(interface.name()), qPrintable(m_multicastSocket.errorString()));
        }
    }
}

void Manager::multicastDataReceived()
{
    receive(m_multicastSocket, true);
}

void Manager::broadcastDataReceived()
{
    receive(m_broadcastSocket, false);
}

void Manager::receive(QUdpSocket& socket, bool location)
{
    const QString wanted = location ? QStringLiteral("PLoc") : QStringLiteral("PNam");
    bool grew = false;
    QList<PeerInfo> heard;
    while (socket.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = socket.receiveDatagram();
        if (!datagram.isValid())
            break;
        Message message;
        if (!message.parse(datagram.data()) || message.pinfType() != wanted)
            continue;
        PeerInfo peer;
        peer.address = datagram.senderAddress();
        if (location) {
            const Message::PeerLocation where = message.parsePLoc();
            peer.port = where.port;
            peer.name = where.name;
        } else {
            peer.port = m_settings.assumedSessionPort;
            peer.name = message.parsePNam();
        }
        const Remembered remembered = remember(peer);
        if (remembered == Remembered::Ignored)
            continue;
        grew = grew || remembered == Remembered::Added;
        heard.append(peer);
    }
    const bool dropped = purge();
    if (grew || dropped)
        emit peerListChanged();
    for (const PeerInfo& peer : std::as_const(heard))
        emit peerHeard(peer);
}

Manager::Remembered Manager::remember(const PeerInfo& peer)
{
    QMutexLocker locker(&m_mutex);
    for (KnownPeer& known : m_knownPeers) {
        if (known == peer) {
            known.name = peer.name;
            known.port = peer.port;
            known.lastSeen = now();
            return Remembered::Refreshed;
        }
    }
    if (m_knownPeers.size() >= maxKnownPeers)
        return Remembered::Ignored;
    m_knownPeers.append(KnownPeer(peer, now()));
    return Remembered::Added;
}

bool Manager::purge()
{
    QMutexLocker locker(&m_mutex);
    const QDateTime oldest = now().addMSecs(-silenceMs);
    return m_knownPeers.removeIf([&](const KnownPeer& peer) { return peer.lastSeen < oldest; }) > 0;
}

void Manager::purgeTimeout()
{
    if (purge())
        emit peerListChanged();
}

QList<PeerInfo> Manager::peerList()
{
    purge();
    QMutexLocker locker(&m_mutex);
    QList<PeerInfo> peers;
    peers.reserve(m_knownPeers.size());
    for (const KnownPeer& known : std::as_const(m_knownPeers))
        peers.append(known);
    return peers;
}

Session* Manager::connectToPeer(const PeerInfo& peer, Session::Handler* handler)
{
    // The session may fail (and report it) only once the event loop runs, so
    // it is listed before anything can happen to it.
    auto* session = new Session(this, peer, handler);
    QMutexLocker locker(&m_mutex);
    m_sessions.append(session);
    return session;
}

void Manager::sessionClosed(Session* session)
{
    QMutexLocker locker(&m_mutex);
    m_sessions.removeAll(session);
}

int Manager::sessionCount()
{
    QMutexLocker locker(&m_mutex);
    return int(m_sessions.size());
}

QDateTime Manager::now() const
{
    return m_settings.clock();
}

} // namespace CITP
