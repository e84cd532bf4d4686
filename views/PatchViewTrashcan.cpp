// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewTrashcan.h"

#include "toolkit/ConsoleLink.h"
#include "toolkit/MakeFont.h"

#include <QGraphicsSceneDragDropEvent>
#include <QPainter>

namespace {

constexpr int labelHeight = 16;

} // namespace

PatchView::Trashcan::Trashcan(PatchView* view)
    : m_view(view), m_label(PatchView::tr("Un-patch")),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 10))
{
    setAcceptDrops(true);
    view->m_scene->addItem(this);
}

PatchView::Trashcan::~Trashcan() = default;

QRectF PatchView::Trashcan::boundingRect() const
{
    return QRectF(0, 0, itemWidth, itemHeight);
}

void PatchView::Trashcan::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QImage& image = ConsoleLink::image(Resources::Id::Trashcan);
    if (!image.isNull()) {
        const QSize room(itemWidth, itemHeight - labelHeight);
        const QSize size = image.size().scaled(room, Qt::KeepAspectRatio).boundedTo(image.size());
        painter->drawImage(
            QRect(QPoint((itemWidth - size.width()) / 2, (room.height() - size.height()) / 2),
                  size),
            image);
    }
    painter->setFont(m_font);
    painter->setPen(QColor(176, 176, 176));
    painter->drawText(QRectF(0, itemHeight - labelHeight, itemWidth, labelHeight), Qt::AlignCenter,
                      m_label);
}

void PatchView::Trashcan::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    event->setAccepted(keywordOf(event->mimeData()) != Keyword::None);
}

void PatchView::Trashcan::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    m_view->dropOnTrashcan(m_view->parse(event->mimeData()));
    event->acceptProposedAction();
}
