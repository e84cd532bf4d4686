// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QHash>
#include <QImage>
#include <QRect>

#include <array>

// The 512 addresses of one DMX universe, coloured by what drives them. Takes
// channels, independents and devices dropped on an address.
class PatchView::UniverseBlock : public QGraphicsItem
{
public:
    static constexpr int leftMargin = 2;
    static constexpr int topMargin = 2;
    static constexpr int horizontalGap = 1;
    static constexpr int verticalGap = 1;
    static constexpr int cellWidth = 32;
    static constexpr int cellHeight = 14;
    static constexpr int blockWidth = 1059;
    static constexpr int columns =
        (blockWidth - 2 * leftMargin + horizontalGap) / (horizontalGap + cellWidth);
    static constexpr int rows = (512 + columns - 1) / columns;
    // The title band above the cells; the cells have no header column.
    static constexpr int titleHeight = 18;
    static constexpr int headerWidth = 0;
    static constexpr int addressesPerUniverse = 512;

    UniverseBlock(PatchView* view, int universe);
    ~UniverseBlock() override;

    int universe() const { return m_universe; }
    bool isDragArmed() const { return m_dragArmed; }
    // The address within the block under an item position, or -1.
    static int addressAt(const QPointF& pos);
    // Where the cell of an address within the block lies.
    static QRect cellRect(int address);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    struct CellColours
    {
        QColor fill; // invalid: no fill
        QColor pen;
        QColor text;
    };
    // How an address is drawn, from its address map entries.
    CellColours coloursOf(quint8 flags, int device) const;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragMoveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    const QImage& numbers(const QColor& colour);

    PatchView* m_view;
    int m_universe;
    bool m_dragArmed = false;
    QString m_title;
    QFont m_titleFont;
    QFont m_numberFont;
    // Every address number rendered once per text colour, blitted per cell.
    QHash<QRgb, QImage> m_numbers;
};
