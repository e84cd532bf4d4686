// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewIndependentCell.h"

#include "console/ConsoleCache.h"

#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>

PatchView::IndependentCell::IndependentCell(CellRow* row, PatchView* view, int independent)
    : ::IndependentCell(row, view->m_console, independent), m_view(view)
{
    setAcceptDrops(true);
}

PatchView::IndependentCell::~IndependentCell() = default;

QString PatchView::IndependentCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

quint8 PatchView::IndependentCell::level() const
{
    const ConsoleCache* data = m_view->cache();
    return data ? quint8(data->independentLevel(independent())) : 0;
}

bool PatchView::IndependentCell::isHighlighted() const
{
    return m_view->isIndependentSelected(independent());
}

void PatchView::IndependentCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_dragArmed = false;
    event->accept();
    if (event->button() == Qt::LeftButton)
        m_dragArmed = m_view->pressIndependent(independent(), event->modifiers());
}

void PatchView::IndependentCell::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_dragArmed)
        return;
    m_dragArmed = false;
    m_view->startDrag(event->widget(), m_view->selectionPayload(Keyword::Independents));
}

void PatchView::IndependentCell::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    event->setAccepted(keywordOf(event->mimeData()) == Keyword::Outputs);
}

void PatchView::IndependentCell::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    m_view->dropOnIndependent(independent(), m_view->parse(event->mimeData()));
    event->acceptProposedAction();
}
