// SPDX-License-Identifier: GPL-3.0-or-later
#include "citp/StreamReader.h"

#include <QTest>

using CITP::Message;
using CITP::StreamReader;

namespace {

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

// What the reader makes of a run of reads: the PNam names of the messages it
// delivered after each read ("|" between reads), or "closed" on a bad size.
QString feed(const QList<QByteArray>& reads)
{
    StreamReader reader;
    QStringList perRead;
    for (const QByteArray& read : reads) {
        reader.append(read);
        QStringList names;
        Message message;
        for (;;) {
            const StreamReader::Status status = reader.next(message);
            if (status == StreamReader::Status::NeedMoreBytes)
                break;
            if (status == StreamReader::Status::BadSize)
                return perRead.join('|') + (perRead.isEmpty() ? "" : "|") + "closed";
            names.append(message.pinfType() == QLatin1String("PNam")
                             ? message.parsePNam()
                             : QStringLiteral("<%1:%2>")
                                   .arg(message.layerType())
                                   .arg(message.payload().size()));
        }
        perRead.append(names.join(','));
    }
    return perRead.join('|');
}

} // namespace

class TestCitpStreamReader : public QObject
{
    Q_OBJECT

private slots:
    void framing_data();
    void framing();
    void bufferStaysBounded();
};

void TestCitpStreamReader::framing_data()
{
    QTest::addColumn<QList<QByteArray>>("reads");
    QTest::addColumn<QString>("delivered");

    const QByteArray a = pnam(QStringLiteral("A"));
    const QByteArray b = pnam(QStringLiteral("Bee"));
    Message emptyMessage;
    emptyMessage.init(QStringLiteral("SDMX"), QByteArray());
    const QByteArray empty = emptyMessage.toByteArray();

    QTest::newRow("one message") << QList<QByteArray>{a} << "A";
    QTest::newRow("two messages in one segment, in order") << QList<QByteArray>{a + b} << "A,Bee";
    QTest::newRow("one message in three segments: header in two, body in the third")
        << QList<QByteArray>{a.left(7), a.mid(7, 13), a.mid(20)} << "||A";
    QTest::newRow("message, then half of the next")
        << QList<QByteArray>{a + b.left(25), b.mid(25)} << "A|Bee";
    QTest::newRow("empty payload (size 20)") << QList<QByteArray>{empty, a} << "<SDMX:0>|A";
    QTest::newRow("garbage with a valid message in the same read is thrown away")
        << QList<QByteArray>{QByteArray("garbage and more garbage") + a, b} << "|Bee";
    QTest::newRow("short garbage waits, then goes with the next read")
        << QList<QByteArray>{QByteArray("junk"), QByteArray(20, 'j') + a, b} << "||Bee";
    QTest::newRow("a valid header in a later read is found")
        << QList<QByteArray>{QByteArray(40, '\xff'), a} << "|A";
    QTest::newRow("size below 20 closes") << QList<QByteArray>{withSize(19)} << "closed";
    QTest::newRow("size 0 closes") << QList<QByteArray>{a + withSize(0)} << "closed";
    QTest::newRow("size beyond any accepted message closes")
        << QList<QByteArray>{withSize(StreamReader::maxMessageSize + 1)} << "closed";
    QTest::newRow("the size limit itself is waited for")
        << QList<QByteArray>{withSize(StreamReader::maxMessageSize)} << "";
    QTest::newRow("bytes one at a time") << [&] {
        QList<QByteArray> reads;
        for (char c : a)
            reads.append(QByteArray(1, c));
        return reads;
    }() << QString(a.size() - 1, '|') + "A";
}

void TestCitpStreamReader::framing()
{
    QFETCH(QList<QByteArray>, reads);
    QTEST(feed(reads), "delivered");
}

void TestCitpStreamReader::bufferStaysBounded()
{
    // A peer announcing the largest size and then sending forever: the reader
    // holds one message at most, then delivers it and starts over.
    StreamReader reader;
    const quint32 size = StreamReader::maxMessageSize;
    QByteArray first = withSize(size);
    first.resize(int(size), 'z');
    Message message;
    int delivered = 0;
    qsizetype largest = 0;
    for (int round = 0; round < 3; ++round) {
        for (qsizetype sent = 0; sent < first.size(); sent += 4096) {
            reader.append(first.mid(sent, 4096));
            largest = std::max(largest, reader.bufferedBytes());
            while (reader.next(message) == StreamReader::Status::MessageReady)
                ++delivered;
        }
    }
    QCOMPARE(delivered, 3);
    QCOMPARE(reader.bufferedBytes(), 0);
    QVERIFY2(largest <= qsizetype(size), qPrintable(QString::number(largest)));
}

QTEST_APPLESS_MAIN(TestCitpStreamReader)
#include "tst_citp_streamreader.moc"
