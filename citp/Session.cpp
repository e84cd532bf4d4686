// SPDX-License-Identifier: GPL-3.0-or-later
#include "Session.h"

#include "Manager.h"

#include <QNetworkProxy>
#include <QPointer>

namespace CITP {

Session::Session(Manager* manager, const PeerInfo& peer, Handler* handler)
    : m_manager(manager), m_peer(peer), m_handler(handler)
{
    connect(this, &QTcpSocket::connected, this, &Session::socketConnected);
    connect(this, &QTcpSocket::disconnected, this, &Session::socketDisconnected);
    connect(this, &QTcpSocket::readyRead, this, &Session::socketReadyRead);
    connect(this, &QTcpSocket::errorOccurred, this, &Session::socketError);
    connect(this, &QTcpSocket::bytesWritten, this, &Session::socketBytesWritten);
    m_connectTimer.setSingleShot(true);
    connect(&m_connectTimer, &QTimer::timeout, this, &Session::connectTimeout);

    // Visualisers sit on the local show network, never behind a proxy.
    setProxy(QNetworkProxy::NoProxy);
    // Without a limit Qt would pull whatever a peer sends into memory.
    setReadBufferSize(readChunkBytes);
    // Connecting from the event loop: a refusal can then never reach the
    // handler before its owner has stored the session.
    QMetaObject::invokeMethod(this, &Session::startConnecting, Qt::QueuedConnection);
}

void Session::startConnecting()
{
    m_connectTimer.start(connectTimeoutMs);
    connectToHost(m_peer.address, m_peer.port, QIODevice::ReadWrite);
}

Session::~Session()
{
    // The socket's own teardown must not reach this half-destroyed object.
    disconnect(this, nullptr, this, nullptr);
    m_handler = nullptr;
    abort();
    if (m_manager)
        m_manager->sessionClosed(this);
}

void Session::send(const Message& message)
{
    if (state() != ConnectedState)
        return;
    writeNow(message.toByteArray());
}

void Session::sendState(int key, const Message& message)
{
    sendStates({{key, message.toByteArray()}});
}

void Session::sendStates(const QList<State>& states)
{
    if (state() != ConnectedState)
        return;
    bool written = false;
    for (const State& item : states) {
        if (mayWriteNow()) {
            write(item.bytes);
            written = true;
        } else {
            m_heldState[item.key] = item.bytes;
        }
    }
    if (written)
        flush();
}

bool Session::mayWriteNow() const
{
    return m_heldState.empty() && bytesToWrite() < maxQueuedBytes;
}

void Session::writeNow(const QByteArray& bytes)
{
    write(bytes);
    flush();
}

void Session::socketBytesWritten()
{
    while (!m_heldState.empty() && bytesToWrite() < maxQueuedBytes && state() == ConnectedState) {
        const QByteArray bytes = std::move(m_heldState.begin()->second);
        m_heldState.erase(m_heldState.begin());
        writeNow(bytes);
    }
}

void Session::socketConnected()
{
    m_connectTimer.stop();
    m_wasConnected = true;
    if (m_handler)
        m_handler->connected(this);
}

void Session::socketDisconnected()
{
    finish();
}

void Session::socketReadyRead()
{
    const QPointer<Session> alive(this);
    m_reader.append(readAll());
    Message message;
    while (alive && !m_finished) {
        switch (m_reader.next(message)) {
        case StreamReader::Status::NeedMoreBytes:
            return;
        case StreamReader::Status::BadSize:
            qWarning("CITP: %s:%u sent a message size that cannot be right; closing the session",
                     qPrintable(m_peer.address.toString()), m_peer.port);
            abort();
            finish();
            return;
        case StreamReader::Status::MessageReady:
            if (m_handler)
                m_handler->messageReceived(this, message);
            break;
        }
    }
}

void Session::socketError(QAbstractSocket::SocketError)
{
    // A failed attempt is reported like a lost connection, so that the owner
    // can forget the session and try again when the peer is heard next.
    abort();
    finish();
}

void Session::connectTimeout()
{
    if (state() != ConnectedState) {
        abort();
        finish();
    }
}

void Session::finish()
{
    if (m_finished)
        return;
    m_finished = true;
    m_connectTimer.stop();
    m_heldState.clear();
    Handler* handler = m_handler;
    m_handler = nullptr;
    if (handler)
        handler->disconnected(this);
    deleteLater();
}

} // namespace CITP
