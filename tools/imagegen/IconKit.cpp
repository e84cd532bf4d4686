// SPDX-License-Identifier: GPL-3.0-or-later
#include "IconKit.h"

#include <QFont>
#include <QtMath>

#include <array>

namespace IconKit {

QPen stroke(const QColor& colour, qreal width)
{
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

namespace {

struct Glyph
{
    char c;
    std::array<const char*, 5> rows;
};

constexpr std::array<Glyph, 13> glyphs{{
    {'1', {".#.", "##.", ".#.", ".#.", "###"}},
    {'2', {"##.", "..#", ".#.", "#..", "###"}},
    {'3', {"##.", "..#", ".#.", "..#", "##."}},
    {'4', {"#.#", "#.#", "###", "..#", "..#"}},
    {'5', {"###", "#..", "##.", "..#", "##."}},
    {'6', {".##", "#..", "###", "#.#", "###"}},
    {'7', {"###", "..#", ".#.", ".#.", ".#."}},
    {'8', {"###", "#.#", "###", "#.#", "###"}},
    {'a', {"...", "##.", ".##", "#.#", "###"}},
    {'b', {"#..", "#..", "##.", "#.#", "##."}},
    {'U', {"#.#", "#.#", "#.#", "#.#", "###"}},
    {'M', {"#.#", "###", "###", "#.#", "#.#"}},
    {'A', {".#.", "#.#", "###", "#.#", "#.#"}},
}};

} // namespace

void pixelGlyph(QPainter& p, int x, int y, QChar glyph, const QColor& colour)
{
    for (const Glyph& g : glyphs) {
        if (QChar(QLatin1Char(g.c)) != glyph)
            continue;
        for (int row = 0; row < 5; ++row)
            for (int col = 0; col < 3; ++col)
                if (g.rows[static_cast<std::size_t>(row)][col] == '#')
                    p.fillRect(QRect(x + col, y + row, 1, 1), colour);
    }
}

void text(QPainter& p, const QRectF& rect, const QString& text, const QString& family,
          int pixelSize, bool bold, const QColor& colour, int flags)
{
    QFont font(family);
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferFullHinting);
    p.setFont(font);
    p.setPen(colour);
    p.drawText(rect, flags, text);
}

QPainterPath star(const QPointF& centre, qreal outer, qreal inner, int points, qreal turn)
{
    QPainterPath path;
    for (int i = 0; i < points * 2; ++i) {
        const qreal r = i % 2 == 0 ? outer : inner;
        const qreal a = turn + M_PI * i / points - M_PI / 2;
        const QPointF pt = centre + QPointF(r * std::cos(a), r * std::sin(a));
        if (i == 0)
            path.moveTo(pt);
        else
            path.lineTo(pt);
    }
    path.closeSubpath();
    return path;
}

QPainterPath gear(const QPointF& centre, qreal outer, qreal inner, int teeth)
{
    QPainterPath path;
    const int steps = teeth * 4;
    for (int i = 0; i < steps; ++i) {
        const qreal r = (i % 4 == 0 || i % 4 == 1) ? outer : inner;
        const qreal a = 2 * M_PI * i / steps;
        const QPointF pt = centre + QPointF(r * std::cos(a), r * std::sin(a));
        if (i == 0)
            path.moveTo(pt);
        else
            path.lineTo(pt);
    }
    path.closeSubpath();
    return path;
}

void arrowHead(QPainter& p, const QPointF& tip, qreal angleDeg, qreal size, const QColor& colour)
{
    const qreal a = qDegreesToRadians(angleDeg);
    const QPointF back(-std::cos(a) * size, -std::sin(a) * size);
    const QPointF side(-std::sin(a) * size * 0.6, std::cos(a) * size * 0.6);
    QPainterPath head;
    head.moveTo(tip);
    head.lineTo(tip + back + side);
    head.lineTo(tip + back - side);
    head.closeSubpath();
    p.fillPath(head, colour);
}

void arcArrow(QPainter& p, const QPointF& centre, qreal radius, qreal startDeg, qreal sweepDeg,
              const QColor& colour, qreal width, qreal head)
{
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath arc;
    arc.arcMoveTo(box, startDeg);
    arc.arcTo(box, startDeg, sweepDeg);
    p.strokePath(arc, QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    // Qt's angles run counter-clockwise with y pointing down.
    const qreal end = qDegreesToRadians(startDeg + sweepDeg);
    const QPointF tip = centre + QPointF(radius * std::cos(end), -radius * std::sin(end));
    const qreal tangent = -(startDeg + sweepDeg) + (sweepDeg > 0 ? -90 : 90);
    arrowHead(p, tip, tangent, head, colour);
}

} // namespace IconKit
