// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Lumidesk.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/ChannelRow.h"
#include "toolkit/GroupColour.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/ParameterRow.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QTest>

namespace {

const QRgb black = qRgb(0, 0, 0);

// The bounding box of everything not black in a region of the image.
QRect inkBox(const QImage& image, const QRect& region)
{
    QRect box;
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            if (image.pixel(x, y) != black)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace

class TestRowsAndNumbers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void groupColours_data();
    void groupColours();
    void numberCellText_data();
    void numberCellText();
    void rowSpacingKinds();
    void channelRowTitleTopRight();
    void parameterRowTitleCentredVertically();
    void numberRowTitleOrArrow();

private:
    QImage render();

    QGraphicsScene* m_scene = nullptr;
    CellRowTable* m_table = nullptr;
};

void TestRowsAndNumbers::init()
{
    m_scene = new QGraphicsScene(0, 0, 300, 100);
    m_table = new CellRowTable(m_scene, true);
}

void TestRowsAndNumbers::cleanup()
{
    delete m_scene;
}

QImage TestRowsAndNumbers::render()
{
    QImage image(300, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    m_scene->render(&painter, QRectF(0, 0, 300, 100), QRectF(0, 0, 300, 100));
    return image;
}

void TestRowsAndNumbers::groupColours_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("Focus") << 0 << 255 << QColor(116, 78, 20);
    QTest::newRow("Color") << 1 << 100 << QColor(130, 82, 124, 100);
    QTest::newRow("Beam") << 2 << 80 << QColor(101, 92, 143, 80);
    QTest::newRow("User as Beam") << 3 << 80 << QColor(101, 92, 143, 80);
    QTest::newRow("other: white") << 4 << 30 << QColor(255, 255, 255, 30);
    QTest::newRow("negative: white") << -1 << 255 << QColor(255, 255, 255);
}

void TestRowsAndNumbers::groupColours()
{
    QFETCH(int, group);
    QFETCH(int, alpha);
    QFETCH(QColor, colour);
    QCOMPARE(groupColour(group, alpha), colour);
}

void TestRowsAndNumbers::numberCellText_data()
{
    QTest::addColumn<bool>("byNumber");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("number 0 shows 1") << true << "1" << 17;
    QTest::newRow("label") << false << "Pan" << 14;
}

void TestRowsAndNumbers::numberCellText()
{
    QFETCH(bool, byNumber);
    QFETCH(QString, shown);
    auto* row = new NumberRow(m_table, QStringLiteral("#"));
    NumberCell* cell =
        byNumber ? new NumberCell(row, 0) : new NumberCell(row, QStringLiteral("Pan"));
    m_table->addRow(row);
    QCOMPARE(cell->shownText(), shown);
    QCOMPARE(cell->number(), byNumber ? 0 : -1);
    QCOMPARE(cell->label().isNull(), byNumber);
    QCOMPARE(cell->boundingRect(), QRectF(0, 0, 49, 23));
    const QImage image = render();
    // Grey frame with white text centred in the cell.
    QCOMPARE(image.pixel(83 + 4, 11), qRgb(45, 45, 45));
    const QRect ink = inkBox(image, QRect(83 + 8, 6, 33, 12));
    QVERIFY(!ink.isEmpty());
    QVERIFY(qAbs(ink.center().x() - (83 + 24)) <= 2);
}

void TestRowsAndNumbers::rowSpacingKinds()
{
    auto* channels = new ChannelRow(m_table, nullptr, QStringLiteral("Ch"));
    auto* numbers = new NumberRow(m_table);
    auto* thin = new ParameterRow(m_table, QStringLiteral("Pan"), true);
    auto* touching = new ParameterRow(m_table, QStringLiteral("Pan"), false);
    QCOMPARE(channels->spacingAbove(), Spacing::NoSpacing);
    QCOMPARE(channels->spacingBelow(), Spacing::NoSpacing);
    QCOMPARE(numbers->spacingAbove(), Spacing::NoSpacing);
    QCOMPARE(thin->spacingAbove(), Spacing::ThinSpacing);
    QCOMPARE(thin->spacingBelow(), Spacing::ThinSpacing);
    QCOMPARE(touching->spacingAbove(), Spacing::NoSpacing);
    QCOMPARE(thin->resources(), &Lumidesk::instance()->resources());
}

void TestRowsAndNumbers::channelRowTitleTopRight()
{
    auto* row = new ChannelRow(m_table, nullptr, QStringLiteral("CH"));
    new NumberCell(row, QString()); // gives the row a height
    auto* tall = new NumberCell(row, QString());
    Q_UNUSED(tall);
    m_table->addRow(row);
    QImage image = render();
    const QRect ink = inkBox(image, QRect(0, 0, 82, 23));
    QVERIFY(!ink.isEmpty());
    QVERIFY2(ink.right() <= 78 && ink.right() >= 70, qPrintable(QString::number(ink.right())));
    QVERIFY2(ink.top() <= 6, qPrintable(QString::number(ink.top())));
}

void TestRowsAndNumbers::parameterRowTitleCentredVertically()
{
    auto* row = new ParameterRow(m_table, QStringLiteral("Zoom"), true);
    new NumberCell(row, QString());
    m_table->addRow(row);
    const QRect ink = inkBox(render(), QRect(0, 0, 82, 23));
    QVERIFY(!ink.isEmpty());
    QVERIFY(ink.right() <= 78 && ink.right() >= 70);
    QVERIFY2(qAbs(ink.center().y() - 11.5) <= 2.5, qPrintable(QString::number(ink.center().y())));
}

void TestRowsAndNumbers::numberRowTitleOrArrow()
{
    auto* arrowRow = new NumberRow(m_table);
    new NumberCell(arrowRow, 0);
    m_table->addRow(arrowRow);
    const QImage& arrow = Lumidesk::instance()->resources().image(Resources::Id::ArrowRight);
    QVERIFY(!arrow.isNull());
    QCOMPARE(arrowRow->arrowOrigin(), QPoint(82 - 3 - arrow.width(), 4));
    const QRect ink = inkBox(render(), QRect(0, 0, 82, 23));
    QVERIFY(!ink.isEmpty());
    QVERIFY(QRect(arrowRow->arrowOrigin(), arrow.size()).contains(ink));
}

int main(int argc, char** argv)
{
    Lumidesk application(argc, argv);
    TestRowsAndNumbers test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_cells_rows.moc"
