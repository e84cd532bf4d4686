// SPDX-License-Identifier: GPL-3.0-or-later
#include "CitpPeer.h"

#include "citp/SessionKey.h"

#include <QNetworkInterface>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <QtEndian>

namespace {

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString idList(const QList<quint16>& ids)
{
    QStringList parts;
    for (quint16 id : ids)
        parts.append(QString::number(id));
    return parts.join(QLatin1Char(','));
}

bool parseNumbers(const QString& text, int maximum, QList<int>& numbers)
{
    numbers.clear();
    for (const QString& part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int value = part.trimmed().toInt(&ok);
        if (!ok || value < 0 || value > maximum)
            return false;
        numbers.append(value);
    }
    return true;
}

} // namespace

CitpPeer::CitpPeer(const Options& options, QObject* parent)
    : QObject(parent), m_options(options),
      m_cipher(QByteArrayView(CITP::sessionKey.data(), qsizetype(CITP::sessionKey.size())))
{
    // A visualiser on the show network is reached directly, never by proxy.
    m_server.setProxy(QNetworkProxy::NoProxy);
    m_announcer.setProxy(QNetworkProxy::NoProxy);
    connect(&m_server, &QTcpServer::newConnection, this, &CitpPeer::acceptConnections);
    connect(&m_announceTimer, &QTimer::timeout, this, &CitpPeer::announce);
}

CitpPeer::~CitpPeer()
{
    stop();
}

bool CitpPeer::start(QString* error)
{
    if (!m_server.listen(m_options.listenAddress, m_options.listenPort)) {
        *error = QStringLiteral("cannot listen on TCP port %1: %2")
                     .arg(m_options.listenPort)
                     .arg(m_server.errorString());
        return false;
    }
    if (!m_announcer.bind(QHostAddress(QHostAddress::AnyIPv4), 0)) {
        *error = QStringLiteral("cannot open a UDP socket: %1").arg(m_announcer.errorString());
        return false;
    }
    if (!m_options.multicastInterface.isEmpty()) {
        const QNetworkInterface interface =
            QNetworkInterface::interfaceFromName(m_options.multicastInterface);
        if (!interface.isValid()) {
            *error =
                QStringLiteral("no network interface named %1").arg(m_options.multicastInterface);
            return false;
        }
        m_announcer.setMulticastInterface(interface);
    }
    // A visualiser on the same machine must hear its own group as well.
    m_announcer.setSocketOption(QAbstractSocket::MulticastLoopbackOption, 1);
    announce();
    if (m_options.announceIntervalMs > 0)
        m_announceTimer.start(m_options.announceIntervalMs);
    return true;
}

void CitpPeer::stop()
{
    m_announceTimer.stop();
    m_server.close();
    m_announcer.close();
    for (const auto& connection : m_connections) {
        connection->socket->disconnect(this);
        connection->socket->abort();
        connection->socket->deleteLater();
    }
    m_connections.clear();
}

CITP::Message CitpPeer::locationMessage() const
{
    QByteArray payload("PLoc");
    char port[2];
    qToLittleEndian(listenPort(), port);
    payload.append(port, 2);
    payload.append("Visualizer", 11);
    payload.append(m_options.name.toLatin1()).append('\0');
    payload.append("Running", 8);
    CITP::Message message;
    message.init(QStringLiteral("PINF"), payload);
    return message;
}

void CitpPeer::announce()
{
    if (m_options.announceLocation)
        m_announcer.writeDatagram(locationMessage().toByteArray(), m_options.locationAddress,
                                  m_options.locationPort);
    if (m_options.announceName) {
        CITP::Message message;
        message.initPNam(m_options.name);
        m_announcer.writeDatagram(message.toByteArray(), m_options.nameAddress, m_options.namePort);
    }
}

void CitpPeer::acceptConnections()
{
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        auto connection = std::make_unique<Connection>();
        connection->socket = socket;
        Connection* raw = connection.get();
        m_connections.push_back(std::move(connection));
        connect(socket, &QTcpSocket::readyRead, this, [this, raw] { readFrom(raw); });
        connect(socket, &QTcpSocket::disconnected, this, [this, raw] { closed(raw); });
        emit sessionOpened(endpoint(socket));
        if (m_options.dropAfterMessages == 0)
            socket->abort();
        else if (socket->bytesAvailable() > 0)
            readFrom(raw);
    }
}

void CitpPeer::readFrom(Connection* connection)
{
    connection->reader.append(connection->socket->readAll());
    CITP::Message message;
    for (;;) {
        const CITP::StreamReader::Status status = connection->reader.next(message);
        if (status == CITP::StreamReader::Status::NeedMoreBytes)
            return;
        if (status == CITP::StreamReader::Status::BadSize) {
            connection->socket->abort();
            return;
        }
        emit messageReceived(message);
        if (++connection->received == m_options.dropAfterMessages) {
            // Unread bytes make the close a reset, as a crashing peer's does.
            connection->socket->abort();
            return;
        }
    }
}

void CitpPeer::closed(Connection* connection)
{
    const auto it = std::find_if(m_connections.begin(), m_connections.end(),
                                 [&](const auto& owned) { return owned.get() == connection; });
    if (it == m_connections.end())
        return;
    const QString from = endpoint(connection->socket);
    connection->socket->deleteLater();
    m_connections.erase(it);
    emit sessionClosed(from);
}

QString CitpPeer::endpoint(const QTcpSocket* socket)
{
    return socket->peerAddress().toString() + QLatin1Char(':') +
           QString::number(socket->peerPort());
}

void CitpPeer::send(const CITP::Message& message)
{
    sendBytes(message.toByteArray());
}

void CitpPeer::sendBytes(const QByteArray& bytes)
{
    for (const auto& connection : m_connections) {
        connection->socket->write(bytes);
        connection->socket->flush();
    }
}

bool CitpPeer::sendCommand(const QString& commands, QString* error)
{
    QByteArray bytes;
    CITP::Message message;
    for (const QString& command : commands.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        if (!parseCommand(command, message, error))
            return false;
        bytes += message.toByteArray();
    }
    if (m_connections.empty()) {
        *error = QStringLiteral("no session open yet");
        return false;
    }
    sendBytes(bytes);
    return true;
}

bool CitpPeer::parseCommand(const QString& command, CITP::Message& message, QString* error)
{
    const QStringList words = command.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString verb = words.value(0).toLower();
    QList<int> numbers;
    if (verb == QLatin1String("chbk")) {
        bool universeOk = false;
        bool firstOk = false;
        const int universe = words.value(1).toInt(&universeOk);
        const int first = words.value(2).toInt(&firstOk);
        if (words.size() != 4 || !universeOk || !firstOk || universe < 0 || universe > 255 ||
            first < 0 || first > 65535 || !parseNumbers(words[3], 255, numbers) ||
            numbers.isEmpty() || numbers.size() > CITP::Message::levelsPerUniverse) {
            *error = QStringLiteral("usage: chbk UNIVERSE FIRST LEVEL,LEVEL,... (levels 0-255)");
            return false;
        }
        CITP::Message::ChannelBlock block;
        block.universe = quint8(universe);
        block.firstChannel = quint16(first);
        block.channelCount = quint16(numbers.size());
        for (int i = 0; i < numbers.size(); ++i)
            block.levels[size_t(i)] = quint8(numbers[i]);
        message.initChBk(block);
    } else if (verb == QLatin1String("sele")) {
        const bool adding = words.size() == 3 && words[1].toLower() == QLatin1String("add");
        if ((words.size() != 2 && !adding) || !parseNumbers(words.last(), 65535, numbers)) {
            *error = QStringLiteral("usage: sele [add] ID,ID,...");
            return false;
        }
        CITP::Message::Selection selection;
        selection.complete = !adding;
        for (int id : std::as_const(numbers))
            selection.deviceIds.append(quint16(id));
        message.initSele(selection);
    } else if (verb == QLatin1String("dese")) {
        if (words.size() > 2 || (words.size() == 2 && !parseNumbers(words[1], 65535, numbers))) {
            *error = QStringLiteral("usage: dese [ID,ID,...]");
            return false;
        }
        QList<quint16> ids;
        for (int id : std::as_const(numbers))
            ids.append(quint16(id));
        message.initDeSe(ids);
    } else {
        *error = QStringLiteral("unknown command \"%1\" (chbk, sele or dese)").arg(command);
        return false;
    }
    return true;
}

CITP::Message::ChannelBlock CitpPeer::decipheredBlock(const CITP::Message& message) const
{
    CITP::Message::ChannelBlock block = message.parseChBk();
    const std::size_t whole = block.channelCount - block.channelCount % CITP::Blowfish::blockSize;
    m_cipher.decryptLittleEndian(block.levels.data(), whole);
    return block;
}

QString CitpPeer::describe(const CITP::Message& message) const
{
    const QString pinf = message.pinfType();
    const QString sdmx = message.sdmxType();
    const QString fsel = message.fselType();
    if (pinf == QLatin1String("PNam"))
        return QStringLiteral("PINF/PNam name=%1").arg(quoted(message.parsePNam()));
    if (sdmx == QLatin1String("EnId") || sdmx == QLatin1String("UNam")) {
        QString text;
        const QByteArray& payload = message.payload();
        const int textAt = sdmx == QLatin1String("UNam") ? 5 : 4;
        if (payload.size() > textAt)
            text = QString::fromLatin1(payload.mid(textAt).split('\0').first());
        if (sdmx == QLatin1String("EnId"))
            return QStringLiteral("SDMX/EnId identifier=%1").arg(quoted(text));
        return QStringLiteral("SDMX/UNam universe=%1 name=%2")
            .arg(payload.size() > 4 ? int(quint8(payload.at(4))) : 0)
            .arg(quoted(text));
    }
    if (sdmx == QLatin1String("ChBk")) {
        const CITP::Message::ChannelBlock block = decipheredBlock(message);
        const QByteArray levels(reinterpret_cast<const char*>(block.levels.data()),
                                block.channelCount);
        return QStringLiteral("SDMX/ChBk blind=%1 universe=%2 first=%3 count=%4 levels=%5")
            .arg(block.blind ? 1 : 0)
            .arg(int(block.universe))
            .arg(int(block.firstChannel))
            .arg(int(block.channelCount))
            .arg(QString::fromLatin1(levels.toHex()));
    }
    if (fsel == QLatin1String("Sele")) {
        const CITP::Message::Selection selection = message.parseSele();
        return QStringLiteral("FSEL/Sele complete=%1 devices=%2")
            .arg(selection.complete ? 1 : 0)
            .arg(idList(selection.deviceIds));
    }
    if (fsel == QLatin1String("DeSe")) {
        const QList<quint16> ids = message.parseDeSe();
        return QStringLiteral("FSEL/DeSe devices=%1")
            .arg(ids.isEmpty() ? QStringLiteral("all") : idList(ids));
    }
    const QString code = QString::fromLatin1(message.payload().left(4));
    return QStringLiteral("%1/%2 bytes=%3")
        .arg(message.layerType(), code)
        .arg(message.payload().size() + CITP::Message::headerSize);
}
