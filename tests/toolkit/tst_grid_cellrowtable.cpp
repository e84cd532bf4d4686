// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/Cell.h"
#include "toolkit/CellRow.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/SpacingRow.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

// A cell that paints nothing, so that only the table's separators show.
class BlankCell : public Cell
{
public:
    BlankCell(CellRow* row, int height) : Cell(row, height), m_height(height) {}
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override {}
    qreal height() const override { return m_height; }
    void setHeight(int height)
    {
        prepareGeometryChange();
        m_height = height;
    }
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        pressedIn = viewForEvent(event);
    }
    QGraphicsView* pressedIn = nullptr;

private:
    int m_height;
};

// A row kind as the views write them: the header separator, then its label.
class LabelledRow : public CellRow
{
public:
    using CellRow::CellRow;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override
    {
        paintHeaderSeparator(painter, option, widget);
    }
};

QRgb separatorOver(QRgb background)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(background);
    QPainter painter(&pixel);
    painter.fillRect(0, 0, 1, 1, CellRowTable::separatorColour());
    painter.end();
    return pixel.pixel(0, 0);
}

QImage render(QGraphicsScene& scene, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), size), QRectF(QPointF(0, 0), size));
    painter.end();
    return image;
}

} // namespace

Q_DECLARE_METATYPE(Spacing)

class TestCellRowTable : public QObject
{
    Q_OBJECT

private slots:
    void cellPlacement_data();
    void cellPlacement();
    void rowHeightFollowsTallestCell();
    void rowGap_data();
    void rowGap();
    void emptyTableAndEmptyRows();
    void topOffsetPlacesFirstRow();
    void layoutRowsRestacksAfterHeightChange();
    void rowSeparatorsPainted_data();
    void rowSeparatorsPainted();
    void headerSeparator_data();
    void headerSeparator();
    void deletingTableDeletesRowsAndCells();
    void viewForEventFindsViewOfViewport();
};

void TestCellRowTable::cellPlacement_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("height");
    QTest::addColumn<qreal>("x");
    QTest::newRow("first cell after label and gap") << 0 << 23 << 83.0;
    QTest::newRow("second cell") << 1 << 45 << 132.0;
    QTest::newRow("tenth cell, short") << 9 << 16 << 83.0 + 49 * 9;
    QTest::newRow("24th cell, tall") << 23 << 63 << 83.0 + 49 * 23;
}

void TestCellRowTable::cellPlacement()
{
    QFETCH(int, column);
    QFETCH(int, height);
    QFETCH(qreal, x);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    auto* row = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    Cell* cell = nullptr;
    for (int k = 0; k <= column; ++k)
        cell = new BlankCell(row, k == column ? height : 25);
    table->addRow(row);
    QCOMPARE(cell->pos(), QPointF(x, 0));
    QCOMPARE(cell->parentItem(), row);
    QCOMPARE(cell->boundingRect(), QRectF(0, 0, 49, height));
    QCOMPARE(row->cells().indexOf(cell), column);
    QCOMPARE(row->width(), (column + 1) * 49.0 + 2 + 82);
    QCOMPARE(row->boundingRect().right(), x + 49 + 1);
}

void TestCellRowTable::rowHeightFollowsTallestCell()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    auto* row = new CellRow(table, Spacing::NoSpacing, Spacing::NoSpacing);
    new BlankCell(row, 23);
    new BlankCell(row, 63);
    new BlankCell(row, 16);
    QCOMPARE(row->height(), 63.0);
    QCOMPARE(row->boundingRect(), QRectF(0, 0, 3 * 49 + 2 + 82, 63));
}

void TestCellRowTable::rowGap_data()
{
    QTest::addColumn<Spacing>("upperBelow");
    QTest::addColumn<Spacing>("lowerAbove");
    QTest::addColumn<int>("gap");
    QTest::newRow("none and none touch") << Spacing::NoSpacing << Spacing::NoSpacing << 0;
    QTest::newRow("thin and thin is one, not two")
        << Spacing::ThinSpacing << Spacing::ThinSpacing << 1;
    QTest::newRow("thick below, thin above") << Spacing::ThickSpacing << Spacing::ThinSpacing << 2;
    QTest::newRow("thin below, thick above") << Spacing::ThinSpacing << Spacing::ThickSpacing << 2;
    QTest::newRow("thick and thick is two, not four")
        << Spacing::ThickSpacing << Spacing::ThickSpacing << 2;
    QTest::newRow("none below, thin above") << Spacing::NoSpacing << Spacing::ThinSpacing << 1;
    QTest::newRow("unknown kind counts as none")
        << static_cast<Spacing>(7) << Spacing::NoSpacing << 0;
}

void TestCellRowTable::rowGap()
{
    QFETCH(Spacing, upperBelow);
    QFETCH(Spacing, lowerAbove);
    QFETCH(int, gap);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    auto* upper = new CellRow(table, Spacing::ThickSpacing, upperBelow);
    new BlankCell(upper, 23);
    table->addRow(upper);
    auto* lower = new CellRow(table, lowerAbove, Spacing::ThickSpacing);
    new BlankCell(lower, 45);
    table->addRow(lower);
    QCOMPARE(upper->pos(), QPointF(0, 0));
    QCOMPARE(lower->pos(), QPointF(0, 23 + gap));
    QCOMPARE(table->boundingRect(), QRectF(0, 0, 49 + 84, 23 + gap + 45));
}

void TestCellRowTable::emptyTableAndEmptyRows()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    QVERIFY(table->boundingRect().isEmpty());
    QCOMPARE(table->scene(), &scene);
    QCOMPARE(table->parentItem(), nullptr);

    auto* bare = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    QCOMPARE(bare->height(), 0.0);
    QCOMPARE(bare->width(), 84.0);
    auto* spacing = new SpacingRow(table);
    QCOMPARE(spacing->height(), 25.0);
    QCOMPARE(spacing->width(), 84.0);
    QCOMPARE(spacing->spacingAbove(), Spacing::ThinSpacing);
    QCOMPARE(spacing->spacingBelow(), Spacing::ThinSpacing);

    table->addRow(spacing);
    auto* row = new CellRow(table, Spacing::NoSpacing, Spacing::NoSpacing);
    new BlankCell(row, 23);
    table->addRow(row);
    QCOMPARE(row->pos(), QPointF(0, 26));
}

void TestCellRowTable::topOffsetPlacesFirstRow()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    table->setTopOffset(30);
    auto* first = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    new BlankCell(first, 20);
    table->addRow(first);
    auto* second = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    new BlankCell(second, 20);
    table->addRow(second);
    QCOMPARE(first->pos(), QPointF(0, 30));
    QCOMPARE(second->pos(), QPointF(0, 51));
}

void TestCellRowTable::layoutRowsRestacksAfterHeightChange()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    QList<BlankCell*> cells;
    QList<CellRow*> rows;
    for (int i = 0; i < 4; ++i) {
        auto* row = new CellRow(table, Spacing::ThinSpacing, Spacing::ThickSpacing);
        cells << new BlankCell(row, 20);
        table->addRow(row);
        rows << row;
    }
    QCOMPARE(rows[3]->y(), 3 * 22.0);
    cells[0]->setHeight(40);
    cells[2]->setHeight(5);
    // Nothing moves until the owner asks.
    QCOMPARE(rows[1]->y(), 22.0);
    table->layoutRows();
    QCOMPARE(rows[0]->y(), 0.0);
    QCOMPARE(rows[1]->y(), 42.0);
    QCOMPARE(rows[2]->y(), 64.0);
    QCOMPARE(rows[3]->y(), 71.0);
}

void TestCellRowTable::rowSeparatorsPainted_data()
{
    QTest::addColumn<bool>("hideHeaderSeparator");
    QTest::newRow("with header separator") << false;
    QTest::newRow("header separator hidden") << true;
}

void TestCellRowTable::rowSeparatorsPainted()
{
    QFETCH(bool, hideHeaderSeparator);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, hideHeaderSeparator);
    const Spacing kinds[][2] = {{Spacing::ThinSpacing, Spacing::ThickSpacing},
                                {Spacing::ThinSpacing, Spacing::NoSpacing},
                                {Spacing::NoSpacing, Spacing::ThinSpacing},
                                {Spacing::ThinSpacing, Spacing::ThinSpacing}};
    for (const auto& kind : kinds) {
        auto* row = new CellRow(table, kind[0], kind[1]);
        new BlankCell(row, 10);
        new BlankCell(row, 10);
        table->addRow(row);
    }
    // Rows at 0, 12, 22 (touching), 33; bands at y 10-11, 32 and nowhere else.
    const QImage image = render(scene, QSize(200, 50));
    const QRgb band = separatorOver(qRgb(0, 0, 0));
    const QRgb black = qRgb(0, 0, 0);
    const int width = 2 * 49 + 84;
    for (int y = 0; y < 50; ++y) {
        const bool inBand = y == 10 || y == 11 || y == 32;
        QCOMPARE(image.pixel(0, y), inBand ? band : black);
        QCOMPARE(image.pixel(width - 1, y), inBand ? band : black);
        QCOMPARE(image.pixel(width, y), black);
    }
}

void TestCellRowTable::headerSeparator_data()
{
    QTest::addColumn<bool>("hideHeaderSeparator");
    QTest::newRow("shown") << false;
    QTest::newRow("hidden") << true;
}

void TestCellRowTable::headerSeparator()
{
    QFETCH(bool, hideHeaderSeparator);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, hideHeaderSeparator);
    for (int i = 0; i < 2; ++i) {
        auto* row = new LabelledRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
        new BlankCell(row, 20);
        table->addRow(row);
    }
    const QImage image = render(scene, QSize(200, 50));
    const QRgb band = separatorOver(qRgb(0, 0, 0));
    const QRgb black = qRgb(0, 0, 0);
    // Vertical band in both rows, at x = 82 only.
    for (int y : {0, 10, 19, 21, 40}) {
        QCOMPARE(image.pixel(82, y), hideHeaderSeparator ? black : band);
        QCOMPARE(image.pixel(81, y), black);
        QCOMPARE(image.pixel(83, y), black);
    }
    QCOMPARE(image.pixel(82, 41), black);
    // The horizontal band is painted either way.
    QCOMPARE(image.pixel(40, 20), band);
}

void TestCellRowTable::deletingTableDeletesRowsAndCells()
{
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    auto* row = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    new BlankCell(row, 20);
    new BlankCell(row, 20);
    table->addRow(row);
    QCOMPARE(scene.items().size(), 4);
    delete table;
    QCOMPARE(scene.items().size(), 0);
}

void TestCellRowTable::viewForEventFindsViewOfViewport()
{
    QGraphicsScene scene(0, 0, 300, 100);
    auto* table = new CellRowTable(&scene, false);
    auto* row = new CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing);
    auto* cell = new BlankCell(row, 40);
    table->addRow(row);
    QGraphicsView first(&scene);
    QGraphicsView second(&scene);
    for (QGraphicsView* view : {&first, &second}) {
        view->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view->setFrameShape(QFrame::NoFrame);
        view->resize(320, 120);
        view->show();
    }
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    QTest::mouseClick(second.viewport(), Qt::LeftButton, {}, QPoint(100, 10));
    QCOMPARE(cell->pressedIn, &second);
    QTest::mouseClick(first.viewport(), Qt::LeftButton, {}, QPoint(100, 10));
    QCOMPARE(cell->pressedIn, &first);
}

QTEST_MAIN(TestCellRowTable)
#include "tst_grid_cellrowtable.moc"
