// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Message.h"
#include "PeerInfo.h"
#include "StreamReader.h"

#include <QTcpSocket>
#include <QTimer>

#include <map>

namespace CITP {

class Manager;

// One TCP connection to a peer. It frames the incoming stream into messages
// for its handler and sends what the handler gives it. It deletes itself
// (through the event loop) once the connection has ended or could not be made.
class Session : public QTcpSocket
{
    Q_OBJECT

public:
    class Handler
    {
    public:
        virtual void connected(Session* session) = 0;
        virtual void messageReceived(Session* session, const Message& message) = 0;
        // The connection ended (peer, network or a broken stream) or could not
        // be made at all. Called once; the session goes away afterwards.
        virtual void disconnected(Session* session) = 0;

    protected:
        ~Handler() = default;
    };

    // Output not yet taken by the peer's TCP stack beyond this is not queued:
    // state messages wait (newest per key) until the peer catches up.
    static constexpr qint64 maxQueuedBytes = 64 * 1024;
    // What is taken from the network per read; the rest waits in the kernel.
    static constexpr qint64 readChunkBytes = 64 * 1024;
    // A peer that does not answer the connection attempt is given up on.
    static constexpr int connectTimeoutMs = 5000;

    Session(Manager* manager, const PeerInfo& peer, Handler* handler);
    ~Session() override;

    const PeerInfo& peer() const { return m_peer; }

    // A message that carries a whole state (a universe's levels, the
    // selection), already in wire bytes, under the key of that state.
    struct State
    {
        int key;
        QByteArray bytes;
    };

    // Queues the message behind everything sent before.
    void send(const Message& message);
    // For state messages: while the peer is not keeping up, the newest
    // message of a key replaces an unsent older one instead of queueing
    // behind it. Several states go out with one flush.
    void sendState(int key, const Message& message);
    void sendStates(const QList<State>& states);

    qsizetype bufferedInputBytes() const { return m_reader.bufferedBytes(); }
    int heldStateMessages() const { return int(m_heldState.size()); }

private slots:
    void socketConnected();
    void socketDisconnected();
    void socketReadyRead();
    void socketError(QAbstractSocket::SocketError error);
    void socketBytesWritten();
    void connectTimeout();
    void startConnecting();

private:
    void writeNow(const QByteArray& bytes);
    bool mayWriteNow() const;
    void finish();

    Manager* m_manager;
    PeerInfo m_peer;
    Handler* m_handler;
    StreamReader m_reader;
    std::map<int, QByteArray> m_heldState;
    QTimer m_connectTimer;
    bool m_wasConnected = false;
    bool m_finished = false;
};

} // namespace CITP
