// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataRows.h"
#include "citp/Blowfish.h"
#include "citp/Message.h"
#include "citp/SessionKey.h"
#include "citp/StreamReader.h"

#include <QTest>

using CITP::Message;
using CITP::StreamReader;
Q_DECLARE_METATYPE(CITP::Message)

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

// The header as it must appear on the wire for a payload of the given size.
QByteArray header(const char* layer, quint32 payloadSize)
{
    QByteArray bytes = hex("43495450 01 00 0000");
    for (int i = 0; i < 4; ++i)
        bytes.append(char(((payloadSize + 20) >> (8 * i)) & 0xff));
    return bytes + hex("0100 0100") + QByteArray(layer, 4);
}

QByteArray pnam(const QString& name)
{
    Message message;
    message.initPNam(name);
    return message.toByteArray();
}

QByteArray withSize(quint32 size)
{
    QByteArray bytes = pnam(QStringLiteral("x"));
    for (int i = 0; i < 4; ++i)
        bytes[8 + i] = char((size >> (8 * i)) & 0xff);
    return bytes;
}

// What the parser of the message's content code makes of it.
QString parsed(const Message& m)
{
    if (m.sdmxType() == QLatin1String("ChBk")) {
        const Message::ChannelBlock b = m.parseChBk();
        const QByteArray levels(reinterpret_cast<const char*>(b.levels.data()), b.channelCount);
        return QStringLiteral("blind=%1 universe=%2 first=%3 levels=")
                   .arg(b.blind)
                   .arg(b.universe)
                   .arg(b.firstChannel) +
               levels.toHex();
    }
    const Message::Selection s = m.fselType() == QLatin1String("DeSe")
                                     ? Message::Selection{false, m.parseDeSe()}
                                     : m.parseSele();
    if (!m.fselType().isEmpty()) {
        QStringList ids;
        for (quint16 id : s.deviceIds)
            ids.append(QString::number(id));
        return QStringLiteral("complete=%1 ids=%2").arg(s.complete).arg(ids.join(','));
    }
    if (m.pinfType() == QLatin1String("PNam"))
        return m.parsePNam();
    const Message::PeerLocation l = m.parsePLoc();
    return QStringLiteral("%1 [%2] [%3] [%4]").arg(l.port).arg(l.type, l.name, l.state);
}

// The names a stream reader delivers after each read ("|" between reads), or
// "closed" on a size that cannot be right.
QString feed(const QList<QByteArray>& reads)
{
    StreamReader reader;
    QStringList perRead;
    for (const QByteArray& read : reads) {
        reader.append(read);
        QStringList names;
        Message message;
        StreamReader::Status status;
        while ((status = reader.next(message)) != StreamReader::Status::NeedMoreBytes) {
            if (status == StreamReader::Status::BadSize)
                return (perRead << "closed").join('|');
            names.append(message.pinfType() == QLatin1String("PNam") ? message.parsePNam()
                                                                     : message.layerType());
        }
        perRead.append(names.join(','));
    }
    return perRead.join('|');
}

} // namespace

class TestCitpWire : public QObject
{
    Q_OBJECT

private slots:
    void builtBytes_data();
    void builtBytes();
    void parseRejects_data();
    void parseRejects();
    void parsers_data();
    void parsers();
    void framing_data();
    void framing();
    void blowfish_data();
    void blowfish();
    void keys_data();
    void keys();
};

void TestCitpWire::builtBytes_data()
{
    addColumns<Message, QByteArray>({"message", "expected"});

    Message m;
    m.initPNam(QString());
    QTest::newRow("PNam with an empty name is 25 bytes")
        << m << header("PINF", 5) + hex("504e616d 00");
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
    block.levels = {0xff, 0x80, 0x01, 0x55}; // the fourth is beyond the count
    m.initChBk(block);
    QTest::newRow("ChBk writes count levels, fields little-endian")
        << m << header("SDMX", 13) + hex("4368426b 01 01 0201 0300 ff8001");
    m.initSele({true, {3, 5, 0x0102}});
    QTest::newRow("Sele complete with three devices")
        << m << header("FSEL", 14) + hex("53656c65 01 00 0300 0300 0500 0201");
    m.initDeSe({});
    QTest::newRow("DeSe of every device") << m << header("FSEL", 6) + hex("44655365 0000");
    m.init(QString::fromUtf8("P\u0100NF"), QByteArray());
    QTest::newRow("a code character above 255 is written as 0")
        << m << hex("43495450 01 00 0000 14000000 0100 0100 50004e46");
}

void TestCitpWire::builtBytes()
{
    auto [message, expected] = fetch<Message, QByteArray>({"message", "expected"});
    QCOMPARE(message.toByteArray().toHex(' '), expected.toHex(' '));
    Message back;
    QVERIFY(back.parse(message.toByteArray()));
    QCOMPARE(back.layerType(), QString::fromLatin1(expected.mid(16, 4)));
    QCOMPARE(back.payload(), message.payload());
}

void TestCitpWire::parseRejects_data()
{
    addColumns<QByteArray, bool>({"bytes", "accepted"});

    const QByteArray valid = header("PINF", 0);
    QTest::newRow("a bare header is a message") << valid << true;
    QTest::newRow("fewer than 20 bytes") << valid.left(19) << false;
    QTest::newRow("cookie in lower case") << QByteArray(valid).replace(0, 4, "citp") << false;
    QTest::newRow("21 bytes whose size says 20") << valid + QByteArray(1, 'x') << false;
    QTest::newRow("size says more than arrived") << header("PINF", 4) << false;
    QByteArray multipart = header("PINF", 1) + QByteArray(1, 'x');
    multipart[12] = 3;
    multipart[14] = 2;
    QTest::newRow("part numbers are not looked at") << multipart << true;
}

void TestCitpWire::parseRejects()
{
    QFETCH(QByteArray, bytes);
    Message message;
    QTEST(message.parse(bytes), "accepted");
}

void TestCitpWire::parsers_data()
{
    // codes: PINF, SDMX and FSEL content codes
    addColumns<QByteArray, QByteArray, QString, QString>({"layer", "payload", "codes", "result"});

    const auto row = [](const char* name, const char* layer, const QByteArray& payload,
                        const char* codes, const QString& result) {
        QTest::newRow(name) << QByteArray(layer) << payload << codes << result;
    };
    row("ChBk universe 1 from channel 10", "SDMX", hex("4368426b 00 01 0a00 0300 0a0b0c"), "/ChBk/",
        "blind=0 universe=1 first=10 levels=0a0b0c");
    row("ChBk count cut short by the payload", "SDMX", hex("4368426b 07 00 0000 0500 0102"),
        "/ChBk/", "blind=1 universe=0 first=0 levels=0102");
    row("ChBk shorter than 10 bytes", "SDMX", hex("4368426b 01 01 0000 00"), "/ChBk/",
        "blind=0 universe=0 first=0 levels=");
    row("ChBk count 600 yields 512 levels", "SDMX",
        hex("4368426b 00 00 0000 5802") + QByteArray(600, '\x01'), "/ChBk/",
        "blind=0 universe=0 first=0 levels=" + QString("01").repeated(512));
    row("sdmxType of a 3-byte payload is empty", "SDMX", "ChB", "//", "0 [] [] []");
    row("Sele complete 3, 5", "FSEL", hex("53656c65 01 00 0200 0300 0500"), "//Sele",
        "complete=1 ids=3,5");
    row("Sele count 3 with room for two", "FSEL", hex("53656c65 00 00 0300 0100 0200 03"), "//Sele",
        "complete=0 ids=1,2");
    row("DeSe count 0", "FSEL", hex("44655365 0000"), "//DeSe", "complete=0 ids=");
    row("DeSe count 2 with room for one", "FSEL", hex("44655365 0200 1800"), "//DeSe",
        "complete=0 ids=24");
    row("PLoc", "PINF", hex("504c6f63 2b13") + QByteArray("Visualizer\0Studio\0Running\0", 26),
        "PLoc//", "4907 [Visualizer] [Studio] [Running]");
    row("PLoc state without NUL ends at the payload's end", "PINF",
        hex("504c6f63 0100") + QByteArray("T\0N\0Sta", 7), "PLoc//", "1 [T] [N] [Sta]");
    row("PLoc shorter than 9 bytes", "PINF", hex("504c6f63 0100 00"), "PLoc//", "0 [] [] []");
    row("PNam Latin-1", "PINF", hex("504e616d 42fc686e6500"), "PNam//", QString::fromUtf8("Bühne"));
    row("PNam without NUL", "PINF", hex("504e616d") + "Desk", "PNam//", "Desk");
    row("PNam of only the code", "PINF", hex("504e616d"), "PNam//", "");
    row("another layer has no codes", "MSEX", "VSrc", "//", "0 [] [] []");
}

void TestCitpWire::parsers()
{
    auto [layer, payload] = fetch<QByteArray, QByteArray>({"layer", "payload"});
    Message message;
    QVERIFY(message.parse(header(layer.constData(), quint32(payload.size())) + payload));
    QCOMPARE(message.layerType(), QString::fromLatin1(layer));
    QTEST(message.pinfType() + '/' + message.sdmxType() + '/' + message.fselType(), "codes");
    QTEST(parsed(message), "result");
}

void TestCitpWire::framing_data()
{
    addColumns<QList<QByteArray>, QString>({"reads", "delivered"});

    const QByteArray a = pnam(QStringLiteral("A"));
    const QByteArray b = pnam(QStringLiteral("Bee"));
    Message empty;
    empty.init(QStringLiteral("SDMX"), QByteArray());
    QList<QByteArray> bytewise;
    for (char c : a)
        bytewise.append(QByteArray(1, c));

    QTest::newRow("two messages in one read, in order") << QList<QByteArray>{a + b} << "A,Bee";
    QTest::newRow("one message in three reads: header in two, body in the third")
        << QList<QByteArray>{a.left(7), a.mid(7, 13), a.mid(20)} << "||A";
    QTest::newRow("bytes one at a time") << bytewise << QString(a.size() - 1, '|') + "A";
    QTest::newRow("empty payload (size 20)")
        << QList<QByteArray>{empty.toByteArray(), a} << "SDMX|A";
    QTest::newRow("garbage with a valid message in the same read is thrown away")
        << QList<QByteArray>{QByteArray("garbage and more garbage") + a, b} << "|Bee";
    QTest::newRow("short garbage waits, then goes with the next read")
        << QList<QByteArray>{QByteArray("junk"), QByteArray(20, 'j') + a, b} << "||Bee";
    QTest::newRow("size below 20 closes") << QList<QByteArray>{withSize(19)} << "closed";
    QTest::newRow("size 0 after a message closes")
        << QList<QByteArray>{a + withSize(0)} << "closed";
    QTest::newRow("size beyond any accepted message closes")
        << QList<QByteArray>{withSize(StreamReader::maxMessageSize + 1)} << "closed";
    QTest::newRow("the size limit itself is waited for")
        << QList<QByteArray>{withSize(StreamReader::maxMessageSize)} << "";
}

void TestCitpWire::framing()
{
    QFETCH(QList<QByteArray>, reads);
    QTEST(feed(reads), "delivered");
}

void TestCitpWire::blowfish_data()
{
    // littleEndian: each 4-byte half stored little-endian
    addColumns<QByteArray, bool, QByteArray, QByteArray>(
        {"key", "littleEndian", "plain", "cipher"});

    // Eric Young's ECB vectors and libgcrypt's 448-bit key test.
    QTest::newRow("56-byte key")
        << hex("F0E1D2C3B4A5968778695A4B3C2D1E0F 0011223344556677 04689104C2FD3B2F"
               "584023641ABA6176 1F1F1F1F0E0E0E0E FFFFFFFFFFFFFFFF")
        << false << hex("FEDCBA9876543210") << hex("C04504012E4E1F53");
    QTest::newRow("little-endian halves, 0123456789ABCDEF")
        << hex("0123456789ABCDEF") << true << hex("1111111111111111") << hex("80C3F96196B08122");
    QTest::newRow("little-endian halves, FEDCBA9876543210")
        << hex("FEDCBA9876543210") << true << hex("67452301EFCDAB89") << hex("0FABCE0A8DA2A0C6");
}

void TestCitpWire::blowfish()
{
    auto [key, littleEndian, plain] =
        fetch<QByteArray, bool, QByteArray>({"key", "littleEndian", "plain"});
    const CITP::Blowfish blowfish(key);
    QByteArray block = plain;
    auto* data = reinterpret_cast<unsigned char*>(block.data());
    littleEndian ? blowfish.encryptLittleEndian(data, 8) : blowfish.encrypt(data, 8);
    QTEST(block, "cipher");
    littleEndian ? blowfish.decryptLittleEndian(data, 8) : blowfish.decrypt(data, 8);
    QCOMPARE(block.toHex(), plain.toHex());
}

void TestCitpWire::keys_data()
{
    addColumns<QByteArray, bool, bool>({"key", "valid", "weak"});

    QTest::newRow("the 56-byte session key, not weak")
        << QByteArray(reinterpret_cast<const char*>(CITP::sessionKey.data()), 56) << true << false;
    // libgcrypt calls it weak (an S-box entry repeats); the peers use it anyway.
    QTest::newRow("a key libgcrypt calls weak") << hex("00002297") << true << true;
    QTest::newRow("72 bytes is the longest key") << QByteArray(72, '\x5a') << true << false;
    QTest::newRow("73 bytes is too long") << QByteArray(73, '\x5a') << false << false;
    QTest::newRow("an empty key") << QByteArray() << false << false;
}

void TestCitpWire::keys()
{
    auto [key, valid] = fetch<QByteArray, bool>({"key", "valid"});
    if (!valid)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot be used"));
    const CITP::Blowfish blowfish(key);
    QCOMPARE(blowfish.isValid(), valid);
    QTEST(blowfish.isWeakKey(), "weak");
    QByteArray data = hex("0011223344556677");
    blowfish.encrypt(reinterpret_cast<unsigned char*>(data.data()), 8);
    QCOMPARE(data != hex("0011223344556677"), valid); // an invalid key leaves the bytes alone
}

QTEST_APPLESS_MAIN(TestCitpWire)
#include "tst_citp_wire.moc"
