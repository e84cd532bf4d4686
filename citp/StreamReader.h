// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Message.h"

#include <QByteArray>

namespace CITP {

// Cuts a session's incoming byte stream into messages. It sees the bytes that
// have arrived so far, exactly as the socket would offer them, so that the
// framing rules can be exercised (and fuzzed) without a network.
class StreamReader
{
public:
    // No message Lumidesk accepts comes near this (the longest, a selection of
    // 65535 devices, is 131098 bytes); a header that claims more belongs to a
    // broken or hostile peer, and so does one that claims less than a header.
    static constexpr quint32 maxMessageSize = 256 * 1024;

    enum class Status
    {
        NeedMoreBytes, // nothing complete yet: wait for the next read
        MessageReady,  // a message was taken out of the stream
        BadSize,       // the header's size cannot be honoured: close the stream
    };

    // Everything that has arrived since the last call.
    void append(const QByteArray& bytes);
    // Takes the next complete message out of the stream, if there is one.
    Status next(Message& message);

    // Bytes held: an incomplete header or message, never more than one message
    // plus what arrived in the last read.
    qsizetype bufferedBytes() const { return m_buffer.size() - m_readPosition; }
    bool awaitingBody() const { return m_headerRead; }

private:
    qsizetype available() const { return bufferedBytes(); }
    void consume(qsizetype count);
    void discardAll();

    QByteArray m_buffer;
    qsizetype m_readPosition = 0;
    bool m_headerRead = false;
    quint32 m_messageSize = 0;
};

} // namespace CITP
