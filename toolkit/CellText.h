// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QStaticText>
#include <QString>

class QPainter;

// A single line of item text, rendered once and redrawn from that rendering
// until the text, font, colour or sub-pixel placement changes. Grids repaint
// hundreds of short texts at the console's level rate; laying each out and
// rasterising its glyphs on every paint costs milliseconds per frame.
class CellText
{
public:
    // Draws text in rect with the alignment (one horizontal and one vertical
    // flag), placed and cut at rect as QPainter::drawText places a single line.
    void draw(QPainter* painter, const QRectF& rect, Qt::Alignment alignment, const QString& text,
              const QFont& font, const QColor& colour);

private:
    void layOut(const QString& text, const QFont& font);
    void render(const QPointF& fraction, const QColor& colour);
    void drawAt(QPainter* painter, const QPointF& at, const QFont& font, const QColor& colour);
    // The glyph layout, made only when glyphs are drawn rather than copied.
    const QStaticText& glyphs();

    QString m_text;
    QFont m_font;
    QStaticText m_layout;
    qreal m_advance = 0;
    qreal m_lineHeight = 0;
    // The glyphs' ink around the line's top-left, a pixel larger for antialiasing.
    QRectF m_ink;
    bool m_laidOut = false;
    bool m_prepared = false;

    QPixmap m_rendering;
    QColor m_renderedColour;
    QPointF m_renderedFraction;
};
