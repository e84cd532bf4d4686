// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>

namespace CITP {

// One single-part CITP message: the 20-byte header, the layer type it names
// and the layer payload. Building and parsing never touch a socket, so the
// wire format can be checked byte by byte.
class Message
{
public:
    static constexpr int headerSize = 20;
    static constexpr int levelsPerUniverse = 512;

    // The parsed forms of the messages Lumidesk accepts.
    struct ChannelBlock
    {
        bool blind = false;
        quint8 universe = 0;
        quint16 firstChannel = 0;
        quint16 channelCount = 0;
        std::array<quint8, levelsPerUniverse> levels{};
    };
    struct Selection
    {
        bool complete = false;
        QList<quint16> deviceIds;
    };
    struct PeerLocation
    {
        quint16 port = 0;
        QString type;
        QString name;
        QString state;
    };

    Message() = default;
    virtual ~Message() = default;
    Message(const Message&) = default;
    Message& operator=(const Message&) = default;

    bool init(const QString& layerType, const QByteArray& payload);
    QByteArray toByteArray() const;
    bool parse(const QByteArray& bytes);

    const QString& layerType() const { return m_layerType; }
    const QByteArray& payload() const { return m_payload; }
    const QByteArray& header() const { return m_header; }

    QString pinfType() const { return contentCode(QStringLiteral("PINF")); }
    QString sdmxType() const { return contentCode(QStringLiteral("SDMX")); }
    QString fselType() const { return contentCode(QStringLiteral("FSEL")); }

    bool initPNam(const QString& name);
    bool initEnId(const QString& identifier);
    bool initUNam(quint8 universe, const QString& name);
    bool initChBk(const ChannelBlock& block);
    bool initSele(const Selection& selection);
    bool initDeSe(const QList<quint16>& deviceIds);

    PeerLocation parsePLoc() const;
    QString parsePNam() const;
    ChannelBlock parseChBk() const;
    Selection parseSele() const;
    QList<quint16> parseDeSe() const;

private:
    QString contentCode(const QString& layer) const;

    QByteArray m_header;
    QString m_layerType;
    QByteArray m_payload;
};

} // namespace CITP
