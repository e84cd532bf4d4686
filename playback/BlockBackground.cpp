// SPDX-License-Identifier: GPL-3.0-or-later
#include "BlockBackground.h"

#include "WholePixel.h"

#include <QPainter>

void BlockBackground::paint(QPainter* painter, const QRectF& bounds)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(QColor(255, 255, 255, 64), 1.7));
    painter->setBrush(QColor(255, 255, 255, 20));
    painter->drawRoundedRect(bounds.adjusted(1.5, 1.5, -1.5, -1.5), 4, 4);
    painter->restore();
}

void BlockBackground::draw(QPainter* painter, const QRectF& bounds)
{
    if (!isWholePixelTranslation(painter->deviceTransform())) {
        paint(painter, bounds);
        return;
    }
    if (rendering.isNull() || bounds != renderedBounds) {
        rendering = QPixmap(bounds.size().toSize());
        rendering.fill(Qt::transparent);
        QPainter cache(&rendering);
        paint(&cache, QRectF(QPointF(0, 0), bounds.size()));
        renderedBounds = bounds;
    }
    painter->drawPixmap(bounds.topLeft(), rendering);
}
