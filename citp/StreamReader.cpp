// SPDX-License-Identifier: GPL-3.0-or-later
#include "StreamReader.h"

#include <QtEndian>

#include <cstring>

namespace CITP {

namespace {
constexpr qsizetype sizeOffset = 8;
} // namespace

void StreamReader::append(const QByteArray& bytes)
{
    // Drop what has been read before growing, so the buffer never holds
    // consumed bytes across reads.
    if (m_readPosition > 0) {
        m_buffer.remove(0, m_readPosition);
        m_readPosition = 0;
    }
    m_buffer.append(bytes);
}

StreamReader::Status StreamReader::next(Message& message)
{
    for (;;) {
        if (!m_headerRead) {
            if (available() < Message::headerSize)
                return Status::NeedMoreBytes;
            const char* header = m_buffer.constData() + m_readPosition;
            if (std::memcmp(header, "CITP", 4) != 0) {
                // Out of step: what has arrived cannot be framed. The next
                // message is looked for in bytes that arrive later.
                discardAll();
                continue;
            }
            m_messageSize = qFromLittleEndian<quint32>(header + sizeOffset);
            if (m_messageSize < quint32(Message::headerSize) || m_messageSize > maxMessageSize)
                return Status::BadSize;
            m_headerRead = true;
        }
        if (available() < qsizetype(m_messageSize))
            return Status::NeedMoreBytes;
        const QByteArray bytes = m_buffer.mid(m_readPosition, m_messageSize);
        consume(m_messageSize);
        m_headerRead = false;
        if (message.parse(bytes))
            return Status::MessageReady;
    }
}

void StreamReader::consume(qsizetype count)
{
    m_readPosition += count;
    if (m_readPosition == m_buffer.size()) {
        m_buffer.clear();
        m_readPosition = 0;
    }
}

void StreamReader::discardAll()
{
    m_buffer.clear();
    m_readPosition = 0;
}

} // namespace CITP
