// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "citp/Blowfish.h"
#include "citp/Message.h"
#include "citp/StreamReader.h"

#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QTcpServer>
#include <QTimer>
#include <QUdpSocket>

#include <memory>
#include <vector>

class QTcpSocket;

// A visualiser stand-in: announces itself by PLoc and/or PNam, accepts the
// sessions Lumidesk opens, reports every message that arrives and sends
// levels and selections back.
class CitpPeer : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        QString name = QStringLiteral("citp-peer");
        bool announceLocation = true;
        bool announceName = false;
        QHostAddress locationAddress = QHostAddress(QStringLiteral("239.224.0.180"));
        quint16 locationPort = 4809;
        QHostAddress nameAddress = QHostAddress(QHostAddress::Broadcast);
        quint16 namePort = 4810;
        // Interface for multicast announcements; empty: the system's choice.
        QString multicastInterface;
        QHostAddress listenAddress = QHostAddress(QHostAddress::AnyIPv4);
        // 0 picks a free port (PLoc tells it); a peer heard only by PNam must
        // listen on 4811.
        quint16 listenPort = 0;
        int announceIntervalMs = 1000;
        // A visualiser that gives up: drops each session after this many
        // messages (0: as soon as it is accepted); -1 keeps it.
        int dropAfterMessages = -1;
    };

    explicit CitpPeer(const Options& options, QObject* parent = nullptr);
    ~CitpPeer() override;

    bool start(QString* error);
    // Stops announcing and closes the listener and every session.
    void stop();
    void announce();

    quint16 listenPort() const { return m_server.serverPort(); }
    int sessionCount() const { return int(m_connections.size()); }

    // To every open session.
    void send(const CITP::Message& message);
    // "chbk UNIVERSE FIRST LEVEL,LEVEL,...", "sele [add] ID,ID,...",
    // "dese [ID,ID,...]" (no list: every device). Several commands joined
    // by ";" go out in one write.
    bool sendCommand(const QString& commands, QString* error);

    // Levels of a received ChBk, deciphered with the session key.
    CITP::Message::ChannelBlock decipheredBlock(const CITP::Message& message) const;
    // One line describing a received message, as the tool prints it.
    QString describe(const CITP::Message& message) const;

    CITP::Message locationMessage() const;

signals:
    void sessionOpened(const QString& from);
    void sessionClosed(const QString& from);
    void messageReceived(const CITP::Message& message);

private:
    struct Connection
    {
        QTcpSocket* socket = nullptr;
        CITP::StreamReader reader;
        int received = 0;
    };

    static bool parseCommand(const QString& command, CITP::Message& message, QString* error);
    void sendBytes(const QByteArray& bytes);
    void acceptConnections();
    void readFrom(Connection* connection);
    void closed(Connection* connection);
    static QString endpoint(const QTcpSocket* socket);

    Options m_options;
    QTcpServer m_server;
    QUdpSocket m_announcer;
    QTimer m_announceTimer;
    std::vector<std::unique_ptr<Connection>> m_connections;
    CITP::Blowfish m_cipher;
};
