// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewChannelCell.h"

#include "console/ConsoleCache.h"

#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>

PatchView::ChannelCell::ChannelCell(CellRow* row, PatchView* view, int channel)
    : ::ChannelCell(row, view->m_console, channel), m_view(view), m_cache(view->cache())
{
    setAcceptDrops(true);
}

PatchView::ChannelCell::~ChannelCell() = default;

QString PatchView::ChannelCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

quint8 PatchView::ChannelCell::level() const
{
    return m_cache ? m_cache->record()->channelLevels[channel()] : 0;
}

bool PatchView::ChannelCell::isHighlighted() const
{
    return m_view->isChannelSelected(channel());
}

bool PatchView::ChannelCell::isBlind() const
{
    return false;
}

void PatchView::ChannelCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_dragArmed = false;
    event->accept();
    if (event->button() == Qt::LeftButton)
        m_dragArmed = m_view->pressChannel(channel(), event->modifiers());
}

void PatchView::ChannelCell::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_dragArmed)
        return;
    m_dragArmed = false;
    m_view->startDrag(event->widget(), m_view->selectionPayload(Keyword::Channels));
}

void PatchView::ChannelCell::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    const Keyword keyword = keywordOf(event->mimeData());
    event->setAccepted(keyword == Keyword::Outputs || keyword == Keyword::Circuits);
}

void PatchView::ChannelCell::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    m_view->dropOnChannel(channel(), m_view->parse(event->mimeData()));
    event->acceptProposedAction();
}
