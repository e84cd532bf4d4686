// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/Blowfish.h"
#include "citp/SessionKey.h"

#include <QTest>

using CITP::Blowfish;

namespace {

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

unsigned char* bytes(QByteArray& array)
{
    return reinterpret_cast<unsigned char*>(array.data());
}

QByteArrayView sessionKey()
{
    return QByteArrayView(CITP::sessionKey.data(), qsizetype(CITP::sessionKey.size()));
}

// Reverses each 4-byte group: turns little-endian halves into big-endian ones.
QByteArray swappedHalves(QByteArray data)
{
    for (int i = 0; i + 4 <= data.size(); i += 4)
        std::reverse(data.begin() + i, data.begin() + i + 4);
    return data;
}

} // namespace

class TestCitpBlowfish : public QObject
{
    Q_OBJECT

private slots:
    void publishedVectors_data();
    void publishedVectors();
    void littleEndianHalves_data();
    void littleEndianHalves();
    void levelBlockRoundTrip();
    void keys_data();
    void keys();
};

void TestCitpBlowfish::publishedVectors_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("cipher");

    // Eric Young's ECB vectors.
    QTest::newRow("zero key, zero block")
        << hex("0000000000000000") << hex("0000000000000000") << hex("4EF997456198DD78");
    QTest::newRow("all ones") << hex("FFFFFFFFFFFFFFFF") << hex("FFFFFFFFFFFFFFFF")
                              << hex("51866FD5B85ECB8A");
    QTest::newRow("3000.. / 1000..01")
        << hex("3000000000000000") << hex("1000000000000001") << hex("7D856F9A613063F2");
    QTest::newRow("1111..") << hex("1111111111111111") << hex("1111111111111111")
                            << hex("2466DD878B963C9D");
    QTest::newRow("0123456789ABCDEF / 1111..")
        << hex("0123456789ABCDEF") << hex("1111111111111111") << hex("61F9C3802281B096");
    QTest::newRow("1111.. / 0123456789ABCDEF")
        << hex("1111111111111111") << hex("0123456789ABCDEF") << hex("7D0CC630AFDA1EC7");
    QTest::newRow("FEDCBA9876543210")
        << hex("FEDCBA9876543210") << hex("0123456789ABCDEF") << hex("0ACEAB0FC6A0A28D");
    QTest::newRow("7CA110454A1A6E57")
        << hex("7CA110454A1A6E57") << hex("01A1D6D039776742") << hex("59C68245EB05282B");
    // libgcrypt's own test of a 448-bit (56-byte) key.
    QTest::newRow("56-byte key")
        << hex("F0E1D2C3B4A5968778695A4B3C2D1E0F 0011223344556677 04689104C2FD3B2F"
               "584023641ABA6176 1F1F1F1F0E0E0E0E FFFFFFFFFFFFFFFF")
        << hex("FEDCBA9876543210") << hex("C04504012E4E1F53");
}

void TestCitpBlowfish::publishedVectors()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, cipher);
    const Blowfish blowfish(key);
    QVERIFY(blowfish.isValid());
    QByteArray data = plain;
    blowfish.encrypt(bytes(data), size_t(data.size()));
    QCOMPARE(data.toHex(), cipher.toHex());
    blowfish.decrypt(bytes(data), size_t(data.size()));
    QCOMPARE(data.toHex(), plain.toHex());
}

void TestCitpBlowfish::littleEndianHalves_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("cipher");

    // The same vectors with every half stored little-endian on both sides.
    QTest::newRow("zero block is symmetric under the swap")
        << hex("0000000000000000") << hex("0000000000000000") << hex("4597F94E78DD9861");
    QTest::newRow("0123456789ABCDEF / 1111..")
        << hex("0123456789ABCDEF") << hex("1111111111111111") << hex("80C3F96196B08122");
    QTest::newRow("FEDCBA9876543210")
        << hex("FEDCBA9876543210") << hex("67452301EFCDAB89") << hex("0FABCE0A8DA2A0C6");
}

void TestCitpBlowfish::littleEndianHalves()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, cipher);
    const Blowfish blowfish(key);
    QByteArray data = plain;
    blowfish.encryptLittleEndian(bytes(data), size_t(data.size()));
    QCOMPARE(data.toHex(), cipher.toHex());
    blowfish.decryptLittleEndian(bytes(data), size_t(data.size()));
    QCOMPARE(data.toHex(), plain.toHex());
}

void TestCitpBlowfish::levelBlockRoundTrip()
{
    // A full universe under the session key: each 8-byte block is enciphered
    // on its own (ECB), in the little-endian order.
    QByteArray levels(512, '\0');
    for (int i = 0; i < levels.size(); ++i)
        levels[i] = char((i * 37 + 11) & 0xff);
    const Blowfish blowfish(sessionKey());
    QByteArray wire = levels;
    blowfish.encryptLittleEndian(bytes(wire), size_t(wire.size()));
    QVERIFY(wire != levels);

    for (int block = 0; block < 64; block += 21) {
        QByteArray standard = swappedHalves(levels.mid(block * 8, 8));
        blowfish.encrypt(bytes(standard), 8);
        QCOMPARE(wire.mid(block * 8, 8).toHex(), swappedHalves(standard).toHex());
    }
    blowfish.decryptLittleEndian(bytes(wire), size_t(wire.size()));
    QCOMPARE(wire, levels);
}

void TestCitpBlowfish::keys_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("weak");

    QTest::newRow("the session key is 56 bytes and not weak")
        << sessionKey().toByteArray() << true << false;
    // libgcrypt rejects this one as weak (an S-box entry repeats); the shared
    // cipher must still work with it.
    QTest::newRow("a key libgcrypt calls weak") << hex("00002297") << true << true;
    QTest::newRow("72 bytes is the longest key") << QByteArray(72, '\x5a') << true << false;
    QTest::newRow("73 bytes is too long") << QByteArray(73, '\x5a') << false << false;
    QTest::newRow("an empty key") << QByteArray() << false << false;
}

void TestCitpBlowfish::keys()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, valid);
    QFETCH(bool, weak);
    if (!valid)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot be used"));
    const Blowfish blowfish(key);
    QCOMPARE(blowfish.isValid(), valid);
    QCOMPARE(blowfish.isWeakKey(), weak);
    QCOMPARE(int(CITP::sessionKey.size()), 56);
    if (valid) {
        QByteArray data = hex("0011223344556677");
        blowfish.encrypt(bytes(data), 8);
        QVERIFY(data != hex("0011223344556677"));
        blowfish.decrypt(bytes(data), 8);
        QCOMPARE(data, hex("0011223344556677"));
    }
}

QTEST_APPLESS_MAIN(TestCitpBlowfish)
#include "tst_citp_blowfish.moc"
