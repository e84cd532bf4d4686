// SPDX-License-Identifier: GPL-3.0-or-later
#include "Cell.h"

#include "CellRow.h"
#include "CellRowTable.h"
#include "WholePixel.h"

#include <QGraphicsScene>
#include <QGraphicsSceneEvent>
#include <QGraphicsView>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

#include <utility>
#include <vector>

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
// handful of distinct ones, so each is drawn once into a pixmap. Looked up by
// value: building a text key on every paint cost more than the lookup saves.
struct FrameLook
{
    QSizeF size;
    QRgb brush;
    QRgb pen;

    bool operator==(const FrameLook& other) const
    {
        return size == other.size && brush == other.brush && pen == other.pen;
    }
};

std::vector<std::pair<FrameLook, QPixmapCache::Key>>& frameKeys()
{
    static std::vector<std::pair<FrameLook, QPixmapCache::Key>> keys;
    return keys;
}

QPixmapCache::Key& frameKey(const FrameLook& look)
{
    auto& keys = frameKeys();
    for (auto& [known, key] : keys) {
        if (known == look)
            return key;
    }
    keys.emplace_back(look, QPixmapCache::Key());
    return keys.back().second;
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
    QPixmapCache::Key& key = frameKey({bounds.size(), brush.color().rgba(), pen.color().rgba()});
    QPixmap frame;
    if (!QPixmapCache::find(key, &frame)) {
        frame = QPixmap(bounds.size().toSize());
        frame.fill(Qt::transparent);
        QPainter framePainter(&frame);
        drawFrame(&framePainter, bounds, brush, pen);
        framePainter.end();
        key = QPixmapCache::insert(frame);
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
