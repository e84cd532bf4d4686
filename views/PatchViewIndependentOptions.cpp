// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewIndependentOptions.h"

#include "console/Console.h"
#include "console/ConsoleCache.h"
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/MakeFont.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int labelHeight = 16;
constexpr int valueTop = 17;
constexpr int valueHeight = 16;
constexpr int onLevelLength = 3;
constexpr float valueFontSize = 10;
const QColor background(157, 157, 157);
const QColor labelColour(176, 176, 176);

QRectF valueRect(int line, int independent)
{
    using Options = PatchView::IndependentOptions;
    return QRectF(independent * Options::columnWidth, line * Options::lineHeight + valueTop,
                  Options::columnWidth, valueHeight);
}

} // namespace

PatchView::IndependentOptions::IndependentOptions(PatchView* view)
    : m_view(view), m_labels{PatchView::tr("On level"), PatchView::tr("Button mode"),
                             PatchView::tr("Affected by GM")},
      m_labelFont(makeFont(QStringLiteral("Gill Sans MT"), 9)),
      m_valueFont(makeFont(QStringLiteral("Gill Sans MT"), valueFontSize))
{
    view->m_scene->addItem(this);
    for (int i = 0; i < 2; ++i) {
        auto* text = new InPlaceEditableText(this, this, valueRect(0, i), onLevelLength,
                                             valueFontSize, Qt::white, Qt::AlignHCenter);
        text->setEditable(true);
        m_onLevels[size_t(i)] = text;
    }
    refresh();
}

PatchView::IndependentOptions::~IndependentOptions() = default;

QRectF PatchView::IndependentOptions::boundingRect() const
{
    return QRectF(0, 0, itemWidth, itemHeight);
}

void PatchView::IndependentOptions::refresh()
{
    const ConsoleCache* data = m_view->cache();
    for (int i = 0; i < 2; ++i) {
        m_onLevels[size_t(i)]->setText(
            data ? ConsoleCache::formatLevel(data->independentOnLevel(i), true) : QString());
    }
    update();
}

QString PatchView::IndependentOptions::buttonModeText(int independent) const
{
    const ConsoleCache* data = m_view->cache();
    if (!data)
        return QString();
    return data->isIndependentLatch(independent) ? PatchView::tr("LATCH") : PatchView::tr("BUMP");
}

QString PatchView::IndependentOptions::grandMasterText(int independent) const
{
    const ConsoleCache* data = m_view->cache();
    if (!data)
        return QString();
    return data->isIndependentAffectedByGrandMaster(independent) ? PatchView::tr("YES")
                                                                 : PatchView::tr("NO");
}

void PatchView::IndependentOptions::setOnLevelText(int independent, const QString& text)
{
    ConsoleCache* data = m_view->cache();
    if (!data)
        return;
    const QString trimmed = text.trimmed();
    int level = 255;
    if (trimmed != QLatin1String("F"))
        level = ConsoleCache::levelFromPercent(std::clamp(trimmed.toInt(), 0, 100));
    data->setIndependentOnLevel(independent, level);
    m_view->m_console->independentsChanged();
    refresh();
}

void PatchView::IndependentOptions::textChanged(InPlaceEditableText* item, const QString& text)
{
    for (int i = 0; i < 2; ++i) {
        if (m_onLevels[size_t(i)] == item)
            setOnLevelText(i, text);
    }
}

void PatchView::IndependentOptions::paint(QPainter* painter, const QStyleOptionGraphicsItem*,
                                          QWidget*)
{
    painter->fillRect(boundingRect(), background);
    painter->setFont(m_labelFont);
    painter->setPen(labelColour);
    for (int line = 0; line < 3; ++line) {
        painter->drawText(QRectF(4, line * lineHeight + 1, itemWidth - 8, labelHeight),
                          Qt::AlignLeft | Qt::AlignVCenter, m_labels[size_t(line)]);
    }
    painter->setFont(m_valueFont);
    painter->setPen(Qt::white);
    for (int i = 0; i < 2; ++i) {
        painter->drawText(valueRect(1, i), Qt::AlignCenter, buttonModeText(i));
        painter->drawText(valueRect(2, i), Qt::AlignCenter, grandMasterText(i));
    }
}

void PatchView::IndependentOptions::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
}

void PatchView::IndependentOptions::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    ConsoleCache* data = m_view->cache();
    const QPointF at = event->pos();
    if (!data || event->button() != Qt::LeftButton || at.y() <= lineHeight)
        return;
    const int independent = at.x() > columnWidth ? 1 : 0;
    if (at.y() > 2 * lineHeight)
        data->setIndependentAffectedByGrandMaster(
            independent, !data->isIndependentAffectedByGrandMaster(independent));
    else
        data->setIndependentLatch(independent, !data->isIndependentLatch(independent));
    m_view->m_console->independentsChanged();
    update();
}
