// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/Message.h"

#include <QTest>

using CITP::Message;
Q_DECLARE_METATYPE(CITP::Message)

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

// The header as it must appear on the wire for a payload of the given size.
QByteArray header(const char* layer, quint32 payloadSize)
{
    const quint32 size = payloadSize + 20;
    QByteArray bytes = hex("43495450 01 00 0000");
    for (int i = 0; i < 4; ++i)
        bytes.append(char((size >> (8 * i)) & 0xff));
    bytes.append(hex("0100 0100"));
    bytes.append(layer, 4);
    return bytes;
}

Message received(const QByteArray& layer, const QByteArray& payload)
{
    Message message;
    const QByteArray bytes = header(layer.constData(), quint32(payload.size())) + payload;
    if (!message.parse(bytes))
        qFatal("test message does not parse");
    return message;
}

} // namespace

class TestCitpMessage : public QObject
{
    Q_OBJECT

private slots:
    void builtBytes_data();
    void builtBytes();
    void roundTrip_data();
    void roundTrip();
    void parseRejects_data();
    void parseRejects();
    void contentCodes_data();
    void contentCodes();
    void parseChBk_data();
    void parseChBk();
    void parseSelections_data();
    void parseSelections();
    void parsePLoc_data();
    void parsePLoc();
    void parsePNam_data();
    void parsePNam();
};

void TestCitpMessage::builtBytes_data()
{
    QTest::addColumn<Message>("message");
    QTest::addColumn<QByteArray>("expected");

    Message m;
    m.initPNam(QString());
    QTest::newRow("PNam with an empty name is 25 bytes")
        << m << header("PINF", 5) + hex("504e616d 00");

    m.initPNam(QStringLiteral("Lumidesk"));
    QTest::newRow("PNam Lumidesk")
        << m << header("PINF", 13) + hex("504e616d") + QByteArray("Lumidesk", 9);

    m.initPNam(QString::fromUtf8("Bühne"));
    QTest::newRow("PNam text is Latin-1") << m << header("PINF", 10) + hex("504e616d 42fc686e6500");

    m.initEnId(QStringLiteral("Lumidesk"));
    QTest::newRow("EnId") << m << header("SDMX", 13) + hex("456e4964") + QByteArray("Lumidesk", 9);

    m.initUNam(1, QStringLiteral("2"));
    QTest::newRow("UNam universe index 1") << m << header("SDMX", 7) + hex("554e616d 01 3200");

    Message::ChannelBlock block;
    block.blind = true;
    block.universe = 1;
    block.firstChannel = 0x0102;
    block.channelCount = 3;
    block.levels[0] = 0xff;
    block.levels[1] = 0x80;
    block.levels[2] = 0x01;
    block.levels[3] = 0x55; // beyond the count: not sent
    m.initChBk(block);
    QTest::newRow("ChBk writes count levels, fields little-endian")
        << m << header("SDMX", 13) + hex("4368426b 01 01 0201 0300 ff8001");

    Message::Selection selection;
    selection.complete = true;
    selection.deviceIds = {3, 5, 0x0102};
    m.initSele(selection);
    QTest::newRow("Sele complete with three devices")
        << m << header("FSEL", 14) + hex("53656c65 01 00 0300 0300 0500 0201");

    selection.complete = false;
    selection.deviceIds = {7};
    m.initSele(selection);
    QTest::newRow("Sele adding one device")
        << m << header("FSEL", 10) + hex("53656c65 00 00 0100 0700");

    m.initDeSe({});
    QTest::newRow("DeSe of every device") << m << header("FSEL", 6) + hex("44655365 0000");

    m.initDeSe({24, 1});
    QTest::newRow("DeSe of two devices")
        << m << header("FSEL", 10) + hex("44655365 0200 1800 0100");

    m.init(QString::fromUtf8("P\u0100NF"), QByteArray());
    QTest::newRow("a code character above 255 is written as 0")
        << m << hex("43495450 01 00 0000 14000000 0100 0100 50004e46");
}

void TestCitpMessage::builtBytes()
{
    QFETCH(Message, message);
    QFETCH(QByteArray, expected);
    QCOMPARE(message.toByteArray().toHex(' '), expected.toHex(' '));
}

void TestCitpMessage::roundTrip_data()
{
    QTest::addColumn<Message>("message");
    Message m;
    m.initPNam(QStringLiteral("Visualiser"));
    QTest::newRow("PNam") << m;
    Message::ChannelBlock block;
    block.channelCount = 512;
    for (int i = 0; i < 512; ++i)
        block.levels[i] = quint8(i * 7);
    m.initChBk(block);
    QTest::newRow("ChBk of a full universe") << m;
    m.init(QStringLiteral("MSEX"), QByteArray());
    QTest::newRow("empty payload of another layer") << m;
}

void TestCitpMessage::roundTrip()
{
    QFETCH(Message, message);
    Message parsed;
    QVERIFY(parsed.parse(message.toByteArray()));
    QCOMPARE(parsed.layerType(), message.layerType());
    QCOMPARE(parsed.payload(), message.payload());
    QCOMPARE(parsed.header(), message.header());
}

void TestCitpMessage::parseRejects_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("accepted");

    const QByteArray valid = header("PINF", 0);
    QTest::newRow("a bare header is a message") << valid << true;
    QTest::newRow("fewer than 20 bytes") << valid.left(19) << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QByteArray lower = valid;
    lower.replace(0, 4, "citp");
    QTest::newRow("cookie in lower case") << lower << false;
    QTest::newRow("21 bytes whose size says 20") << valid + QByteArray(1, 'x') << false;
    QByteArray longer = header("PINF", 4);
    QTest::newRow("size says more than arrived") << longer << false;
    QByteArray multipart = header("PINF", 1) + QByteArray(1, 'x');
    multipart[12] = 3;
    multipart[14] = 2;
    QTest::newRow("part numbers are not looked at") << multipart << true;
}

void TestCitpMessage::parseRejects()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, accepted);
    Message message;
    QCOMPARE(message.parse(bytes), accepted);
}

void TestCitpMessage::contentCodes_data()
{
    QTest::addColumn<QByteArray>("layer");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("pinf");
    QTest::addColumn<QString>("sdmx");
    QTest::addColumn<QString>("fsel");

    QTest::newRow("PINF/PLoc") << QByteArray("PINF") << QByteArray("PLoc\0\0", 6) << "PLoc"
                               << QString() << QString();
    QTest::newRow("pinfType of an SDMX message is empty")
        << QByteArray("SDMX") << QByteArray("ChBk") << QString() << "ChBk" << QString();
    QTest::newRow("sdmxType with a 3-byte payload is empty")
        << QByteArray("SDMX") << QByteArray("ChB") << QString() << QString() << QString();
    QTest::newRow("FSEL/DeSe") << QByteArray("FSEL") << QByteArray("DeSe\0\0", 6) << QString()
                               << QString() << "DeSe";
    QTest::newRow("another layer has no codes")
        << QByteArray("MSEX") << QByteArray("VSrc") << QString() << QString() << QString();
}

void TestCitpMessage::contentCodes()
{
    QFETCH(QByteArray, layer);
    QFETCH(QByteArray, payload);
    const Message message = received(layer, payload);
    QCOMPARE(message.layerType(), QString::fromLatin1(layer));
    QTEST(message.pinfType(), "pinf");
    QTEST(message.sdmxType(), "sdmx");
    QTEST(message.fselType(), "fsel");
}

void TestCitpMessage::parseChBk_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("blind");
    QTest::addColumn<int>("universe");
    QTest::addColumn<int>("firstChannel");
    QTest::addColumn<QByteArray>("levels");

    QTest::newRow("three levels for universe 1 from channel 10")
        << hex("4368426b 00 01 0a00 0300 0a0b0c") << false << 1 << 10 << hex("0a0b0c");
    QTest::newRow("blind flag") << hex("4368426b 07 00 0000 0100 ff") << true << 0 << 0
                                << hex("ff");
    QTest::newRow("count cut short by the payload")
        << hex("4368426b 00 00 0000 0500 0102") << false << 0 << 0 << hex("0102");
    QTest::newRow("shorter than 10 bytes: nothing")
        << hex("4368426b 01 01 0000 00") << false << 0 << 0 << QByteArray();
    QByteArray big = hex("4368426b 00 00 0000 5802"); // count 600
    for (int i = 0; i < 600; ++i)
        big.append(char(i % 251));
    QByteArray first512;
    for (int i = 0; i < 512; ++i)
        first512.append(char(i % 251));
    QTest::newRow("count 600 yields 512 levels") << big << false << 0 << 0 << first512;
}

void TestCitpMessage::parseChBk()
{
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, levels);
    const Message::ChannelBlock block = received("SDMX", payload).parseChBk();
    QTEST(block.blind, "blind");
    QTEST(int(block.universe), "universe");
    QTEST(int(block.firstChannel), "firstChannel");
    QCOMPARE(int(block.channelCount), levels.size());
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(block.levels.data()), block.channelCount),
             levels);
}

void TestCitpMessage::parseSelections_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QList<quint16>>("ids");

    QTest::newRow("Sele complete 3, 5")
        << hex("53656c65 01 00 0200 0300 0500") << true << QList<quint16>{3, 5};
    QTest::newRow("Sele count 3 with room for two")
        << hex("53656c65 00 00 0300 0100 0200 03") << false << QList<quint16>{1, 2};
    QTest::newRow("Sele shorter than 8 bytes")
        << hex("53656c65 01 00 01") << false << QList<quint16>{};
    QTest::newRow("DeSe count 0") << hex("44655365 0000") << false << QList<quint16>{};
    QTest::newRow("DeSe two") << hex("44655365 0200 1800 0700") << false << QList<quint16>{24, 7};
    QTest::newRow("DeSe count 2 with room for one")
        << hex("44655365 0200 1800") << false << QList<quint16>{24};
    QTest::newRow("DeSe shorter than 6 bytes") << hex("44655365 01") << false << QList<quint16>{};
}

void TestCitpMessage::parseSelections()
{
    QFETCH(QByteArray, payload);
    QFETCH(bool, complete);
    QFETCH(QList<quint16>, ids);
    const Message message = received("FSEL", payload);
    if (message.fselType() == QLatin1String("Sele")) {
        const Message::Selection selection = message.parseSele();
        QCOMPARE(selection.complete, complete);
        QCOMPARE(selection.deviceIds, ids);
    } else {
        QCOMPARE(message.parseDeSe(), ids);
    }
}

void TestCitpMessage::parsePLoc_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("state");

    QTest::newRow("full location")
        << hex("504c6f63 2b13") + QByteArray("Visualizer\0Studio\0Running\0", 26) << 4907
        << "Visualizer"
        << "Studio"
        << "Running";
    QTest::newRow("three empty texts")
        << hex("504c6f63 cb12 000000") << 4811 << QString() << QString() << QString();
    QTest::newRow("state without NUL ends at the payload's end")
        << hex("504c6f63 0100") + QByteArray("T\0N\0Sta", 7) << 1 << "T"
        << "N"
        << "Sta";
    QTest::newRow("name and state beyond the end are empty")
        << hex("504c6f63 0200") + QByteArray("Type", 4) << 2 << "Type" << QString() << QString();
    QTest::newRow("shorter than 9 bytes")
        << hex("504c6f63 0100 00") << 0 << QString() << QString() << QString();
}

void TestCitpMessage::parsePLoc()
{
    QFETCH(QByteArray, payload);
    const Message::PeerLocation location = received("PINF", payload).parsePLoc();
    QTEST(int(location.port), "port");
    QTEST(location.type, "type");
    QTEST(location.name, "name");
    QTEST(location.state, "state");
}

void TestCitpMessage::parsePNam_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("name");
    QTest::newRow("name") << hex("504e616d") + QByteArray("Desk\0", 5) << "Desk";
    QTest::newRow("Latin-1 name") << hex("504e616d 42fc686e6500") << QString::fromUtf8("Bühne");
    QTest::newRow("name without NUL") << hex("504e616d") + QByteArray("Desk") << "Desk";
    QTest::newRow("only the code") << hex("504e616d") << QString();
}

void TestCitpMessage::parsePNam()
{
    QFETCH(QByteArray, payload);
    QTEST(received("PINF", payload).parsePNam(), "name");
}

QTEST_APPLESS_MAIN(TestCitpMessage)
#include "tst_citp_message.moc"
