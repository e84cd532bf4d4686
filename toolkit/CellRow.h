// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Spacing.h"

#include <QGraphicsItem>
#include <QList>

class Cell;
class CellRowTable;

// One row of a CellRowTable: a label column and the row's cells, placed left to
// right in the order they are constructed.
class CellRow : public QGraphicsItem
{
public:
    CellRow(CellRowTable* table, Spacing spacingAbove, Spacing spacingBelow);
    ~CellRow() override;

    CellRow(const CellRow&) = delete;
    CellRow& operator=(const CellRow&) = delete;

    // Called by the Cell constructor only.
    void addCell(Cell* cell);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    virtual qreal height() const;
    virtual qreal width() const;

    CellRowTable* table() const { return m_table; }
    Spacing spacingAbove() const { return m_spacingAbove; }
    Spacing spacingBelow() const { return m_spacingBelow; }
    const QList<Cell*>& cells() const { return m_cells; }
    // Pixels of a gap kind in this row's table.
    int spacingFor(Spacing spacing) const;

protected:
    void paintHeaderSeparator(QPainter* painter, const QStyleOptionGraphicsItem* option,
                              QWidget* widget);

private:
    CellRowTable* m_table;
    Spacing m_spacingAbove;
    Spacing m_spacingBelow;
    QList<Cell*> m_cells;
};
