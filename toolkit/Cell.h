// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>

class CellRow;
class CellRowTable;
class QGraphicsScene;
class QGraphicsSceneEvent;
class QGraphicsView;

// One cell of a CellRow. Its column is the order in which the cells of the row
// are constructed. Cell kinds override paint() and the mouse handlers.
class Cell : public QGraphicsItem
{
public:
    Cell(CellRow* row, int height);
    ~Cell() override;

    Cell(const Cell&) = delete;
    Cell& operator=(const Cell&) = delete;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    virtual qreal height() const;

    CellRow* row() const { return m_row; }
    CellRowTable* table() const;

    // The view whose viewport received the event, to open an editor in.
    QGraphicsView* viewForEvent(QGraphicsSceneEvent* event) const;
    static QGraphicsView* viewForEvent(const QGraphicsScene* scene,
                                       const QGraphicsSceneEvent* event);

protected:
    // The rounded frame shared by the level and number cells.
    static void paintFrame(QPainter* painter, const QRectF& bounds, const QBrush& brush,
                           const QPen& pen);

private:
    static void drawFrame(QPainter* painter, const QRectF& bounds, const QBrush& brush,
                          const QPen& pen);

    CellRow* m_row;
    int m_height;
};
