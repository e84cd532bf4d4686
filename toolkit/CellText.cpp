// SPDX-License-Identifier: GPL-3.0-or-later
#include "CellText.h"

#include "WholePixel.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>

#include <cmath>

namespace {

// Room around the advance for glyphs that overhang it.
constexpr int margin = 2;

// Level texts come from a small set ("0" to "99", "F"), but every cell that
// shows a changing level would measure and rasterise each new one again. The
// GUI thread keeps one set of metrics and one rendering per text, font, colour
// and sub-pixel placement for all cells; the sets are bounded by clearing
// them. Glyph layouts are not shared: they hold on to font engines, which a
// change of the application's fonts frees.
constexpr int cacheLimit = 4096;

struct SharedLayout
{
    qreal advance = 0;
    qreal lineHeight = 0;
    QRectF ink;
};

struct LayoutKey
{
    QString text;
    QFont font;
    bool operator==(const LayoutKey& other) const
    {
        return text == other.text && font == other.font;
    }
};

size_t qHash(const LayoutKey& key, size_t seed = 0)
{
    return qHashMulti(seed, key.text, key.font);
}

struct RenderingKey
{
    LayoutKey layout;
    QRgb colour;
    // The sub-pixel placement in 1/64 pixel.
    int x;
    int y;
    bool operator==(const RenderingKey& other) const
    {
        return layout == other.layout && colour == other.colour && x == other.x && y == other.y;
    }
};

size_t qHash(const RenderingKey& key, size_t seed = 0)
{
    return qHashMulti(seed, key.layout, key.colour, key.x, key.y);
}

template <typename Key, typename Value> Value* cached(QHash<Key, Value>& cache, const Key& key)
{
    const auto found = cache.find(key);
    return found == cache.end() ? nullptr : &found.value();
}

template <typename Key, typename Value>
void keep(QHash<Key, Value>& cache, const Key& key, const Value& value)
{
    if (cache.size() >= cacheLimit)
        cache.clear();
    cache.insert(key, value);
}

QHash<LayoutKey, SharedLayout>& sharedLayouts()
{
    static QHash<LayoutKey, SharedLayout> layouts;
    return layouts;
}

QHash<RenderingKey, QPixmap>& sharedRenderings()
{
    static QHash<RenderingKey, QPixmap> renderings;
    return renderings;
}

} // namespace

void CellText::layOut(const QString& text, const QFont& font)
{
    m_text = text;
    m_font = font;
    m_laidOut = true;
    m_prepared = false;
    m_rendering = QPixmap();
    const LayoutKey key{text, font};
    if (const SharedLayout* shared = cached(sharedLayouts(), key)) {
        m_advance = shared->advance;
        m_lineHeight = shared->lineHeight;
        m_ink = shared->ink;
        return;
    }
    const QFontMetricsF metrics(font);
    m_advance = metrics.horizontalAdvance(text);
    m_lineHeight = metrics.height();
    m_ink = metrics.tightBoundingRect(text).translated(0, metrics.ascent()).adjusted(-1, -1, 1, 1);
    keep(sharedLayouts(), key, SharedLayout{m_advance, m_lineHeight, m_ink});
}

const QStaticText& CellText::glyphs()
{
    if (!m_prepared) {
        m_layout.setText(m_text);
        m_layout.setTextFormat(Qt::PlainText);
        m_layout.prepare(QTransform(), m_font);
        m_prepared = true;
    }
    return m_layout;
}

void CellText::render(const QPointF& fraction, const QColor& colour)
{
    m_renderedColour = colour;
    m_renderedFraction = fraction;
    const RenderingKey key{{m_text, m_font},
                           colour.rgba(),
                           int(std::lround(fraction.x() * 64)),
                           int(std::lround(fraction.y() * 64))};
    if (const QPixmap* shared = cached(sharedRenderings(), key)) {
        m_rendering = *shared;
        return;
    }
    const QSize size(int(std::ceil(m_advance)) + 2 * margin + 1,
                     int(std::ceil(m_lineHeight)) + 2 * margin + 1);
    m_rendering = QPixmap(size);
    m_rendering.fill(Qt::transparent);
    QPainter painter(&m_rendering);
    painter.setFont(m_font);
    painter.setPen(colour);
    painter.drawStaticText(QPointF(margin, margin) + fraction, glyphs());
    painter.end();
    keep(sharedRenderings(), key, m_rendering);
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
        painter->drawStaticText(at, glyphs());
        return;
    }
    const QPointF whole(std::floor(at.x()), std::floor(at.y()));
    const QPointF fraction = at - whole;
    if (m_rendering.isNull() || colour != m_renderedColour || fraction != m_renderedFraction)
        render(fraction, colour);
    painter->drawPixmap(whole - QPointF(margin, margin), m_rendering);
}
