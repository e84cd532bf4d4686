// SPDX-License-Identifier: GPL-3.0-or-later
#include "CellRowTable.h"

#include "CellRow.h"
#include "ConsoleLink.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>

CellRowTable::CellRowTable(QGraphicsScene* scene, bool hideHeaderSeparator)
    : m_resources(ConsoleLink::resources()), m_hideHeaderSeparator(hideHeaderSeparator)
{
    if (scene)
        scene->addItem(this);
}

// Rows and cells are child items: the scene graph deletes them.
CellRowTable::~CellRowTable() = default;

QColor CellRowTable::separatorColour()
{
    return QColor(150, 150, 150, 120);
}

qreal CellRowTable::rowTopBelow(const CellRow* upper, const CellRow* lower) const
{
    // The larger of the two wishes, never their sum.
    const int gap = std::max(lower->spacingFor(lower->spacingAbove()),
                             upper->spacingFor(upper->spacingBelow()));
    return upper->y() + upper->boundingRect().bottom() + gap;
}

void CellRowTable::addRow(CellRow* row)
{
    prepareGeometryChange();
    row->setParentItem(this);
    if (m_rows.isEmpty())
        row->setPos(0, m_topOffset);
    else
        row->setPos(0, rowTopBelow(m_rows.last(), row));
    m_rows.append(row);
}

void CellRowTable::layoutRows()
{
    prepareGeometryChange();
    for (qsizetype i = 1; i < m_rows.size(); ++i)
        m_rows[i]->setPos(0, rowTopBelow(m_rows[i - 1], m_rows[i]));
}

QRectF CellRowTable::boundingRect() const
{
    QRectF bounds;
    for (const CellRow* row : m_rows)
        bounds = bounds.united(row->boundingRect().translated(row->pos()));
    return bounds;
}

void CellRowTable::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintBackground(painter, option, widget);
    paintRowSeparators(painter);
}

void CellRowTable::paintBackground(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

void CellRowTable::paintRowSeparators(QPainter* painter)
{
    if (m_rows.size() < 2)
        return;
    const int width = int(float(boundingRect().width()));
    const QColor colour = separatorColour();
    int y = m_topOffset;
    for (qsizetype i = 0; i + 1 < m_rows.size(); ++i) {
        const CellRow* upper = m_rows[i];
        const CellRow* lower = m_rows[i + 1];
        const int gap = std::max(lower->spacingFor(lower->spacingAbove()),
                                 upper->spacingFor(upper->spacingBelow()));
        const int top = int(upper->height() + y);
        if (gap > 0)
            painter->fillRect(QRect(0, top, width, gap), colour);
        y = top + gap;
    }
}
