// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Lumidesk.h"
#include "toolkit/CellText.h"
#include "toolkit/MakeFont.h"

#include <QPainter>
#include <QTest>

namespace {

QRect inkBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 96)
                box |= QRect(x, y, 1, 1);
    return box;
}

QImage blank()
{
    QImage image(80, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

// Cell texts are drawn from a rendering made once; they must land where
// QPainter::drawText puts the same line.
class TestCellText : public QObject
{
    Q_OBJECT

private slots:
    void placedAsDrawText_data();
    void placedAsDrawText();
    void redrawsWhenTextOrColourChanges();
};

void TestCellText::placedAsDrawText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("points");
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<int>("alignment");
    const int rightMiddle = Qt::AlignRight | Qt::AlignVCenter;
    QTest::newRow("level text") << "50" << 17 << QRectF(4, 0, 41, 26) << rightMiddle;
    QTest::newRow("full level") << "F" << 17 << QRectF(4, 0, 41, 26) << rightMiddle;
    QTest::newRow("parameter value") << "255 " << 11 << QRectF(0, 0, 27, 16) << rightMiddle;
    QTest::newRow("focus value centred")
        << "128 " << 11 << QRectF(0, 0, 49, 16) << int(Qt::AlignCenter);
    QTest::newRow("legend line") << "Spot L" << 8 << QRectF(1, 26, 46, 12)
                                 << int(Qt::AlignHCenter | Qt::AlignVCenter);
    QTest::newRow("row title at the top")
        << "Ch 1-24" << 11 << QRectF(0, 0, 78, 30) << int(Qt::AlignRight | Qt::AlignTop);
    QTest::newRow("half-pixel box")
        << "Wash" << 8 << QRectF(1.5, 2.5, 40, 13) << int(Qt::AlignHCenter | Qt::AlignVCenter);
}

void TestCellText::placedAsDrawText()
{
    QFETCH(QString, text);
    QFETCH(int, points);
    QFETCH(QRectF, rect);
    QFETCH(int, alignment);
    const QFont font = makeFont(QStringLiteral("Gill Sans MT"), points);
    QImage direct = blank();
    {
        QPainter painter(&direct);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(rect, alignment, text);
    }
    QImage cached = blank();
    CellText cellText;
    {
        QPainter painter(&cached);
        cellText.draw(&painter, rect, Qt::Alignment(alignment), text, font, Qt::white);
    }
    const QRect expected = inkBox(direct);
    const QRect actual = inkBox(cached);
    QVERIFY(!expected.isEmpty());
    QVERIFY2(qAbs(actual.left() - expected.left()) <= 1 &&
                 qAbs(actual.right() - expected.right()) <= 1 &&
                 qAbs(actual.top() - expected.top()) <= 1 &&
                 qAbs(actual.bottom() - expected.bottom()) <= 1,
             qPrintable(QStringLiteral("drawText ink %1,%2 %3x%4, cell text %5,%6 %7x%8")
                            .arg(expected.x())
                            .arg(expected.y())
                            .arg(expected.width())
                            .arg(expected.height())
                            .arg(actual.x())
                            .arg(actual.y())
                            .arg(actual.width())
                            .arg(actual.height())));
}

void TestCellText::redrawsWhenTextOrColourChanges()
{
    const QFont font = makeFont(QStringLiteral("Gill Sans MT"), 11);
    CellText cellText;
    const auto draw = [&](const QString& text, const QColor& colour) {
        QImage image = blank();
        QPainter painter(&image);
        cellText.draw(&painter, QRectF(0, 0, 80, 40), Qt::AlignCenter, text, font, colour);
        painter.end();
        return image;
    };
    const QImage first = draw(QStringLiteral("12"), Qt::red);
    QCOMPARE(draw(QStringLiteral("12"), Qt::red), first);
    const QImage other = draw(QStringLiteral("13"), Qt::red);
    QVERIFY(other != first);
    const QImage blue = draw(QStringLiteral("13"), Qt::blue);
    const QRect ink = inkBox(blue);
    QVERIFY(!ink.isEmpty());
    bool anyBlue = false;
    for (int x = ink.left(); x <= ink.right(); ++x)
        anyBlue |= qBlue(blue.pixel(x, ink.center().y())) > 128;
    QVERIFY(anyBlue);
    QVERIFY(inkBox(draw(QString(), Qt::red)).isEmpty());
}

int main(int argc, char** argv)
{
    Lumidesk application(argc, argv);
    TestCellText test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_grid_celltext.moc"
