// SPDX-License-Identifier: GPL-3.0-or-later
#include "CellText.h"

#include "WholePixel.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace {

// Room around the advance for glyphs that overhang it.
constexpr int margin = 2;

} // namespace

void CellText::layOut(const QString& text, const QFont& font)
{
    m_text = text;
    m_font = font;
    m_layout.setText(text);
    m_layout.setTextFormat(Qt::PlainText);
    m_layout.prepare(QTransform(), font);
    const QFontMetricsF metrics(font);
    m_advance = metrics.horizontalAdvance(text);
    m_lineHeight = metrics.height();
    m_ink = metrics.tightBoundingRect(text).translated(0, metrics.ascent()).adjusted(-1, -1, 1, 1);
    m_laidOut = true;
    m_rendering = QPixmap();
}

void CellText::render(const QPointF& fraction, const QColor& colour)
{
    const QSize size(int(std::ceil(m_advance)) + 2 * margin + 1,
                     int(std::ceil(m_lineHeight)) + 2 * margin + 1);
    m_rendering = QPixmap(size);
    m_rendering.fill(Qt::transparent);
    QPainter painter(&m_rendering);
    painter.setFont(m_font);
    painter.setPen(colour);
    painter.drawStaticText(QPointF(margin, margin) + fraction, m_layout);
    painter.end();
    m_renderedColour = colour;
    m_renderedFraction = fraction;
}

void CellText::draw(QPainter* painter, const QRectF& rect, Qt::Alignment alignment,
                    const QString& text, const QFont& font, const QColor& colour)
{
    if (text.isEmpty())
        return;
    if (!m_laidOut || text != m_text || font != m_font)
        layOut(text, font);
    qreal x = rect.x();
    if (alignment & Qt::AlignRight)
        x = rect.right() - m_advance;
    else if (alignment & Qt::AlignHCenter)
        x = rect.x() + (rect.width() - m_advance) / 2;
    qreal y = rect.y();
    if (alignment & Qt::AlignBottom)
        y = rect.bottom() - m_lineHeight;
    else if (alignment & Qt::AlignVCenter)
        y = rect.y() + (rect.height() - m_lineHeight) / 2;

    // drawText cuts a line that does not fit at its rectangle; so must we, or
    // a long value paints over the neighbouring cells. A line box taller than a
    // small cell is common, so the cut is made only where ink would cross it.
    const bool clipped = !rect.contains(m_ink.translated(x, y));
    if (clipped) {
        painter->save();
        painter->setClipRect(rect, Qt::IntersectClip);
    }
    drawAt(painter, QPointF(x, y), font, colour);
    if (clipped)
        painter->restore();
}

void CellText::drawAt(QPainter* painter, const QPointF& at, const QFont& font, const QColor& colour)
{
    // A scaled or sub-pixel placed painter draws the glyphs directly.
    if (!isWholePixelTranslation(painter->deviceTransform()) ||
        !qFuzzyCompare(painter->opacity(), 1.0)) {
        painter->setFont(font);
        painter->setPen(colour);
        painter->drawStaticText(at, m_layout);
        return;
    }
    const QPointF whole(std::floor(at.x()), std::floor(at.y()));
    const QPointF fraction = at - whole;
    if (m_rendering.isNull() || colour != m_renderedColour || fraction != m_renderedFraction)
        render(fraction, colour);
    painter->drawPixmap(whole - QPointF(margin, margin), m_rendering);
}
