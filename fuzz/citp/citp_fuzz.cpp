// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to everything that reads CITP input from the network:
// a datagram to Message::parse and every parser, and a stream, cut into reads
// of varying length, to the session's StreamReader.

#include "citp/Message.h"
#include "citp/StreamReader.h"

#include <cstdint>
#include <cstdlib>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

void readAsDatagram(const QByteArray& bytes)
{
    CITP::Message message;
    if (!message.parse(bytes))
        return;
    check(message.toByteArray() == bytes);
    check(message.header().size() == CITP::Message::headerSize);
    message.pinfType();
    message.sdmxType();
    message.fselType();
    // The callers check the codes first, but no parser may trust them.
    const CITP::Message::PeerLocation location = message.parsePLoc();
    check(location.type.size() <= message.payload().size());
    message.parsePNam();
    const CITP::Message::ChannelBlock block = message.parseChBk();
    check(block.channelCount <= CITP::Message::levelsPerUniverse);
    check(block.channelCount <= qMax<qsizetype>(0, message.payload().size() - 10));
    const CITP::Message::Selection selection = message.parseSele();
    check(selection.deviceIds.size() <= message.payload().size() / 2);
    const QList<quint16> ids = message.parseDeSe();
    check(ids.size() <= message.payload().size() / 2);

    // What was read builds the same fields again.
    CITP::Message rebuilt;
    rebuilt.initChBk(block);
    const CITP::Message::ChannelBlock again = rebuilt.parseChBk();
    check(again.channelCount == block.channelCount && again.levels == block.levels);
    rebuilt.initSele(selection);
    check(rebuilt.parseSele().deviceIds == selection.deviceIds);
}

void readAsStream(const uint8_t* data, size_t size)
{
    if (size < 2)
        return;
    // The first byte sets how the rest is cut into reads.
    uint32_t state = data[0] * 2654435761u + 1;
    ++data;
    --size;
    CITP::StreamReader reader;
    CITP::Message message;
    size_t offset = 0;
    while (offset < size) {
        state = state * 1103515245u + 12345u;
        const size_t length = std::min<size_t>(size - offset, 1 + (state >> 16) % 97);
        reader.append(QByteArray(reinterpret_cast<const char*>(data + offset), qsizetype(length)));
        offset += length;
        for (;;) {
            const CITP::StreamReader::Status status = reader.next(message);
            if (status == CITP::StreamReader::Status::NeedMoreBytes)
                break;
            if (status == CITP::StreamReader::Status::BadSize)
                return; // the session closes here
            const QByteArray bytes = message.toByteArray();
            check(bytes.size() >= CITP::Message::headerSize);
            check(bytes.size() <= qsizetype(CITP::StreamReader::maxMessageSize));
            readAsDatagram(bytes);
        }
        // Never more than one message plus the last read is held.
        check(reader.bufferedBytes() <=
              qsizetype(CITP::StreamReader::maxMessageSize) + qsizetype(length));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    readAsDatagram(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    readAsStream(data, size);
    return 0;
}
