// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PeerInfo.h"
#include "Session.h"

#include <QDateTime>
#include <QHostAddress>
#include <QList>
#include <QMutex>
#include <QNetworkInterface>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>

#include <functional>

namespace CITP {

// Listens for peer announcements (it never announces itself), keeps the peers
// heard within the last few seconds, and opens sessions to them on request.
class Manager : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 locationPort = 4809;       // PINF/PLoc, multicast
    static constexpr quint16 namePort = 4810;           // PINF/PNam
    static constexpr quint16 assumedSessionPort = 4811; // for peers known only by PNam
    static constexpr int silenceMs = 3000;
    static constexpr int purgeIntervalMs = 1000;
    // More than any show network holds; keeps a flood of forged
    // announcements from growing the list (and the sessions) without bound.
    static constexpr int maxKnownPeers = 256;

    // Where and how to listen. Tests use free ports, the loopback interface
    // and their own clock; the program uses the defaults.
    struct Settings
    {
        QHostAddress bindAddress = QHostAddress::AnyIPv4;
        quint16 locationPort = Manager::locationPort;
        quint16 namePort = Manager::namePort;
        quint16 assumedSessionPort = Manager::assumedSessionPort;
        QList<QHostAddress> groups = defaultGroups();
        // Empty: every running multicast-capable IPv4 interface.
        QList<QNetworkInterface> multicastInterfaces;
        std::function<QDateTime()> clock;
    };

    class KnownPeer : public PeerInfo
    {
    public:
        KnownPeer(const PeerInfo& peer, const QDateTime& lastSeen)
            : PeerInfo(peer), lastSeen(lastSeen)
        {
        }
        QDateTime lastSeen;
    };

    // The older group and the one current visualisers announce on.
    static QList<QHostAddress> defaultGroups();

    static bool start(const QHostAddress& address);
    static bool start(const Settings& settings);
    static void stop();
    static Manager* instance() { return s_instance; }

    QList<PeerInfo> peerList();
    Session* connectToPeer(const PeerInfo& peer, Session::Handler* handler);
    void sessionClosed(Session* session);

    // The ports actually bound (useful when port 0 asked for a free one).
    quint16 boundLocationPort() const { return m_multicastSocket.localPort(); }
    quint16 boundNamePort() const { return m_broadcastSocket.localPort(); }
    // How many group memberships succeeded.
    int joinedGroups() const { return m_joinedGroups; }
    int sessionCount();

signals:
    void peerListChanged();
    // Every announcement of a listed peer, also of one already known.
    void peerHeard(const CITP::PeerInfo& peer);

private slots:
    void multicastDataReceived();
    void broadcastDataReceived();
    void purgeTimeout();

private:
    explicit Manager(const Settings& settings);
    ~Manager() override;

    void bindSockets();
    void joinGroups();
    QList<QNetworkInterface> membershipInterfaces() const;
    void receive(QUdpSocket& socket, bool location);
    enum class Remembered
    {
        Added,
        Refreshed,
        Ignored
    };
    Remembered remember(const PeerInfo& peer);
    bool purge();
    QDateTime now() const;

    static Manager* s_instance;

    Settings m_settings;
    QUdpSocket m_multicastSocket;
    QUdpSocket m_broadcastSocket;
    QMutex m_mutex;
    QTimer m_purgeTimer;
    QList<KnownPeer> m_knownPeers;
    QList<Session*> m_sessions;
    int m_joinedGroups = 0;
};

} // namespace CITP
