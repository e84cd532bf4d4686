// SPDX-License-Identifier: GPL-3.0-or-later
#include "CellRow.h"

#include "Cell.h"
#include "CellRowTable.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>

CellRow::CellRow(CellRowTable* table, Spacing spacingAbove, Spacing spacingBelow)
    : m_table(table), m_spacingAbove(spacingAbove), m_spacingBelow(spacingBelow)
{
    if (table && table->scene())
        table->scene()->addItem(this);
}

CellRow::~CellRow() = default;

void CellRow::addCell(Cell* cell)
{
    prepareGeometryChange();
    cell->setParentItem(this);
    cell->setPos(
        m_cells.size() * m_table->columnWidth() + m_table->gapWidth() + m_table->headerWidth(), 0);
    m_cells.append(cell);
}

qreal CellRow::height() const
{
    qreal tallest = 0;
    for (const Cell* cell : m_cells)
        tallest = std::max(tallest, cell->boundingRect().height());
    return float(tallest);
}

qreal CellRow::width() const
{
    return m_cells.size() * m_table->columnWidth() + 2 * m_table->gapWidth() +
           m_table->headerWidth();
}

QRectF CellRow::boundingRect() const
{
    return QRectF(0, 0, width(), height());
}

void CellRow::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

int CellRow::spacingFor(Spacing spacing) const
{
    switch (spacing) {
    case Spacing::ThinSpacing:
        return m_table->thinSpacing();
    case Spacing::ThickSpacing:
        return m_table->thickSpacing();
    default:
        return 0;
    }
}

void CellRow::paintHeaderSeparator(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_table->hideHeaderSeparator())
        return;
    painter->fillRect(QRect(m_table->headerWidth(), 0, m_table->gapWidth(), int(height())),
                      CellRowTable::separatorColour());
}
