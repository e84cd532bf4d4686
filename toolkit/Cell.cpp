// SPDX-License-Identifier: GPL-3.0-or-later
#include "Cell.h"

#include "CellRow.h"
#include "CellRowTable.h"

#include <QGraphicsScene>
#include <QGraphicsSceneEvent>
#include <QGraphicsView>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

Cell::Cell(CellRow* row, int height) : m_row(row), m_height(height)
{
    row->addCell(this);
}

Cell::~Cell() = default;

CellRowTable* Cell::table() const
{
    return m_row->table();
}

qreal Cell::height() const
{
    return m_height;
}

QRectF Cell::boundingRect() const
{
    return QRectF(0, 0, table()->columnWidth(), height());
}

// A cell kind that forgets to paint shows up at once.
void Cell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->fillRect(boundingRect(), QColor(255, 0, 0));
}

QGraphicsView* Cell::viewForEvent(QGraphicsSceneEvent* event) const
{
    return viewForEvent(scene(), event);
}

QGraphicsView* Cell::viewForEvent(const QGraphicsScene* scene, const QGraphicsSceneEvent* event)
{
    if (!scene || !event || !event->widget())
        return nullptr;
    const QList<QGraphicsView*> views = scene->views();
    for (QGraphicsView* view : views) {
        if (view->isAncestorOf(event->widget()))
            return view;
    }
    return nullptr;
}

namespace {

// Antialiased rounded frames cost tens of microseconds each; a grid shows a
// handful of distinct ones, so each is drawn once into a pixmap.
QString frameKey(const QRectF& bounds, const QBrush& brush, const QPen& pen)
{
    return QStringLiteral("CellFrame/%1x%2/%3/%4")
        .arg(bounds.width())
        .arg(bounds.height())
        .arg(brush.color().rgba(), 0, 16)
        .arg(pen.color().rgba(), 0, 16);
}

bool isWholePixelTranslation(const QTransform& transform)
{
    return transform.type() <= QTransform::TxTranslate && transform.dx() == int(transform.dx()) &&
           transform.dy() == int(transform.dy());
}

} // namespace

void Cell::paintFrame(QPainter* painter, const QRectF& bounds, const QBrush& brush, const QPen& pen)
{
    const bool cacheable = brush.style() == Qt::SolidPattern && pen.style() == Qt::SolidLine &&
                           pen.widthF() <= 1 && bounds.topLeft() == QPointF(0, 0) &&
                           isWholePixelTranslation(painter->deviceTransform());
    if (!cacheable) {
        drawFrame(painter, bounds, brush, pen);
        return;
    }
    const QString key = frameKey(bounds, brush, pen);
    QPixmap frame;
    if (!QPixmapCache::find(key, &frame)) {
        frame = QPixmap(bounds.size().toSize());
        frame.fill(Qt::transparent);
        QPainter framePainter(&frame);
        drawFrame(&framePainter, bounds, brush, pen);
        framePainter.end();
        QPixmapCache::insert(key, frame);
    }
    painter->drawPixmap(0, 0, frame);
}

void Cell::drawFrame(QPainter* painter, const QRectF& bounds, const QBrush& brush, const QPen& pen)
{
    const QRectF frame = bounds.adjusted(1.7, 2.7, -1.7, -2.7);
    const bool antialiased = painter->testRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setBrush(brush);
    painter->setPen(pen);
    // Percent roundness that gives a 2.5 pixel corner radius.
    painter->drawRoundedRect(frame, 250.0 / (frame.width() / 2), 250.0 / (frame.height() / 2),
                             Qt::RelativeSize);
    painter->setRenderHint(QPainter::Antialiasing, antialiased);
}
