// SPDX-License-Identifier: GPL-3.0-or-later
#include "Message.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace CITP {

namespace {

constexpr char cookie[] = {'C', 'I', 'T', 'P'};
constexpr int sizeOffset = 8;
constexpr int layerOffset = 16;

void appendU8(QByteArray& bytes, quint8 value)
{
    bytes.append(char(value));
}

void appendU16(QByteArray& bytes, quint16 value)
{
    char le[2];
    qToLittleEndian(value, le);
    bytes.append(le, 2);
}

void appendU32(QByteArray& bytes, quint32 value)
{
    char le[4];
    qToLittleEndian(value, le);
    bytes.append(le, 4);
}

// Four-character codes: Latin-1 codes in order, characters above 255 as 0.
void appendCode(QByteArray& bytes, const QString& code)
{
    for (int i = 0; i < 4; ++i) {
        const char16_t c = i < code.size() ? code.at(i).unicode() : u'\0';
        bytes.append(c > 255 ? '\0' : char(c));
    }
}

void appendText(QByteArray& bytes, const QString& text)
{
    bytes.append(text.toLatin1());
    bytes.append('\0');
}

quint16 readU16(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

// A text runs to its NUL or to the end of the bytes; one that would begin
// beyond the end is empty. Returns where the next field begins.
qsizetype readText(const QByteArray& bytes, qsizetype offset, QString& text)
{
    if (offset >= bytes.size()) {
        text.clear();
        return bytes.size();
    }
    qsizetype end = bytes.indexOf('\0', offset);
    if (end < 0)
        end = bytes.size();
    text = QString::fromLatin1(bytes.constData() + offset, end - offset);
    return std::min(end + 1, bytes.size());
}

QByteArray codePayload(const char* code)
{
    QByteArray payload;
    appendCode(payload, QString::fromLatin1(code, 4));
    return payload;
}

} // namespace

bool Message::init(const QString& layerType, const QByteArray& payload)
{
    QByteArray header;
    header.reserve(headerSize);
    header.append(cookie, 4);
    appendU8(header, 1);
    appendU8(header, 0);
    appendU16(header, 0);
    appendU32(header, quint32(payload.size() + headerSize));
    appendU16(header, 1);
    appendU16(header, 1);
    appendCode(header, layerType);
    m_header = header;
    m_layerType = layerType;
    m_payload = payload;
    return true;
}

QByteArray Message::toByteArray() const
{
    return m_header + m_payload;
}

bool Message::parse(const QByteArray& bytes)
{
    if (bytes.size() < headerSize)
        return false;
    if (std::memcmp(bytes.constData(), cookie, 4) != 0)
        return false;
    if (qFromLittleEndian<quint32>(bytes.constData() + sizeOffset) != quint64(bytes.size()))
        return false;
    m_header = bytes.left(headerSize);
    m_layerType = QString::fromLatin1(bytes.constData() + layerOffset, 4);
    m_payload = bytes.mid(headerSize);
    return true;
}

QString Message::contentCode(const QString& layer) const
{
    if (m_layerType != layer || m_payload.size() < 4)
        return {};
    return QString::fromLatin1(m_payload.constData(), 4);
}

bool Message::initPNam(const QString& name)
{
    QByteArray payload = codePayload("PNam");
    appendText(payload, name);
    return init(QStringLiteral("PINF"), payload);
}

bool Message::initEnId(const QString& identifier)
{
    QByteArray payload = codePayload("EnId");
    appendText(payload, identifier);
    return init(QStringLiteral("SDMX"), payload);
}

bool Message::initUNam(quint8 universe, const QString& name)
{
    QByteArray payload = codePayload("UNam");
    appendU8(payload, universe);
    appendText(payload, name);
    return init(QStringLiteral("SDMX"), payload);
}

bool Message::initChBk(const ChannelBlock& block)
{
    QByteArray payload = codePayload("ChBk");
    payload.reserve(10 + block.channelCount);
    appendU8(payload, block.blind ? 1 : 0);
    appendU8(payload, block.universe);
    appendU16(payload, block.firstChannel);
    appendU16(payload, block.channelCount);
    // The level array holds one universe; a longer count cannot be filled.
    const int count = std::min<int>(block.channelCount, levelsPerUniverse);
    payload.append(reinterpret_cast<const char*>(block.levels.data()), count);
    payload.append(block.channelCount - count, '\0');
    return init(QStringLiteral("SDMX"), payload);
}

bool Message::initSele(const Selection& selection)
{
    QByteArray payload = codePayload("Sele");
    appendU8(payload, selection.complete ? 1 : 0);
    appendU8(payload, 0);
    appendU16(payload, quint16(selection.deviceIds.size()));
    for (quint16 id : selection.deviceIds)
        appendU16(payload, id);
    return init(QStringLiteral("FSEL"), payload);
}

bool Message::initDeSe(const QList<quint16>& deviceIds)
{
    QByteArray payload = codePayload("DeSe");
    appendU16(payload, quint16(deviceIds.size()));
    for (quint16 id : deviceIds)
        appendU16(payload, id);
    return init(QStringLiteral("FSEL"), payload);
}

Message::PeerLocation Message::parsePLoc() const
{
    PeerLocation location;
    if (m_payload.size() < 9)
        return location;
    location.port = readU16(m_payload, 4);
    qsizetype offset = readText(m_payload, 6, location.type);
    offset = readText(m_payload, offset, location.name);
    readText(m_payload, offset, location.state);
    return location;
}

QString Message::parsePNam() const
{
    QString name;
    if (m_payload.size() >= 5)
        readText(m_payload, 4, name);
    return name;
}

Message::ChannelBlock Message::parseChBk() const
{
    ChannelBlock block;
    if (m_payload.size() < 10)
        return block;
    block.blind = m_payload.at(4) != 0;
    block.universe = quint8(m_payload.at(5));
    block.firstChannel = readU16(m_payload, 6);
    // The count says how many levels follow; only those that arrived, and at
    // most one universe, are kept.
    const qsizetype available = m_payload.size() - 10;
    const qsizetype count =
        std::min<qsizetype>({readU16(m_payload, 8), available, levelsPerUniverse});
    block.channelCount = quint16(count);
    std::memcpy(block.levels.data(), m_payload.constData() + 10, size_t(count));
    return block;
}

Message::Selection Message::parseSele() const
{
    Selection selection;
    if (m_payload.size() < 8)
        return selection;
    selection.complete = m_payload.at(4) != 0;
    const qsizetype count = std::min<qsizetype>(readU16(m_payload, 6), (m_payload.size() - 8) / 2);
    selection.deviceIds.reserve(count);
    for (qsizetype i = 0; i < count; ++i)
        selection.deviceIds.append(readU16(m_payload, 8 + 2 * i));
    return selection;
}

QList<quint16> Message::parseDeSe() const
{
    QList<quint16> ids;
    if (m_payload.size() < 6)
        return ids;
    const qsizetype count = std::min<qsizetype>(readU16(m_payload, 4), (m_payload.size() - 6) / 2);
    ids.reserve(count);
    for (qsizetype i = 0; i < count; ++i)
        ids.append(readU16(m_payload, 6 + 2 * i));
    return ids;
}

} // namespace CITP
