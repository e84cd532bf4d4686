// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QString>

// Drawing helpers shared by the image sets, so that every icon uses the same
// stroke weights, inks and lettering.
namespace IconKit {

// Light ink of the keyed icons: bright enough to survive the loader's
// luminance key (dark pixels become transparent).
inline QColor ink()
{
    return QColor(236, 236, 236);
}
inline QColor softInk()
{
    return QColor(170, 170, 170);
}
inline QColor amber()
{
    return QColor(255, 190, 70);
}

QPen stroke(const QColor& colour, qreal width);
// A 3 x 5 pixel glyph (digits, "a", "b", "U", "M"), crisp at icon sizes.
void pixelGlyph(QPainter& p, int x, int y, QChar glyph, const QColor& colour);
// Text in one of the compiled-in families, centred in rect.
void text(QPainter& p, const QRectF& rect, const QString& text, const QString& family,
          int pixelSize, bool bold, const QColor& colour, int flags = Qt::AlignCenter);
QPainterPath star(const QPointF& centre, qreal outer, qreal inner, int points, qreal turn = 0);
QPainterPath gear(const QPointF& centre, qreal outer, qreal inner, int teeth);
// An arc from startDeg sweeping sweepDeg (Qt's counter-clockwise degrees) with
// an arrowhead at its end.
void arcArrow(QPainter& p, const QPointF& centre, qreal radius, qreal startDeg, qreal sweepDeg,
              const QColor& colour, qreal width, qreal head);
void arrowHead(QPainter& p, const QPointF& tip, qreal angleDeg, qreal size, const QColor& colour);

} // namespace IconKit
