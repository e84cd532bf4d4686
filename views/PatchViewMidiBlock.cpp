// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewMidiBlock.h"

#include "console/ConsoleCache.h"
#include "toolkit/MakeFont.h"

#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

const QColor background(157, 157, 157);
const QColor usedFill(92, 86, 116);
const QColor usedPen(132, 212, 249);
const QColor unusedPen(176, 176, 176);
const QColor unusedText(72, 72, 72);
const QColor selectedBorder(200, 255, 189);

constexpr int pitchX = PatchView::MidiBlock::cellWidth + PatchView::MidiBlock::gap;
constexpr int pitchY = PatchView::MidiBlock::cellHeight + PatchView::MidiBlock::gap;
constexpr int cellsTop = PatchView::MidiBlock::titleHeight + PatchView::MidiBlock::topMargin;

} // namespace

PatchView::MidiBlock::MidiBlock(PatchView* view)
    : m_view(view), m_titleFont(makeFont(QStringLiteral("Gill Sans MT"), 11)),
      m_numberFont(makeFont(QStringLiteral("Gill Sans MT"), 7))
{
    view->m_scene->addItem(this);
}

PatchView::MidiBlock::~MidiBlock() = default;

int PatchView::MidiBlock::circuitAt(const QPointF& pos)
{
    const qreal x = pos.x() - leftMargin;
    const qreal y = pos.y() - cellsTop;
    if (x < 0 || y < 0)
        return -1;
    const int column = int(x / pitchX);
    const int row = int(y / pitchY);
    if (column >= columns || row >= rows || column + row * columns >= circuitCount)
        return -1;
    return column + row * columns;
}

QRect PatchView::MidiBlock::cellRect(int circuit)
{
    return QRect(leftMargin + circuit % columns * pitchX, cellsTop + circuit / columns * pitchY,
                 cellWidth, cellHeight);
}

QRectF PatchView::MidiBlock::boundingRect() const
{
    return QRectF(0, 0, leftMargin * 2 + columns * pitchX - gap,
                  cellsTop + rows * pitchY - gap + topMargin);
}

void PatchView::MidiBlock::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF bounds = boundingRect();
    painter->fillRect(bounds, background);
    painter->setFont(m_titleFont);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(leftMargin + 2, 0, bounds.width(), titleHeight),
                      Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("MIDI"));
    const ConsoleCache* data = m_view->cache();
    if (!data)
        return;
    const auto caches = data->derivedCaches();
    painter->setFont(m_numberFont);
    for (int circuit = 0; circuit < circuitCount; ++circuit) {
        const QRect rect = cellRect(circuit);
        const bool used = caches->midiCircuitFlags[size_t(circuit)] & 1;
        if (used)
            painter->fillRect(rect, usedFill);
        const bool selected = m_view->isCircuitSelected(circuit);
        painter->setPen(selected ? selectedBorder : used ? usedPen : unusedPen);
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
        painter->setPen(used ? usedPen : unusedText);
        painter->drawText(rect, Qt::AlignCenter, QString::number(circuit + 1));
    }
}

void PatchView::MidiBlock::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_dragArmed = false;
    event->accept();
    const int circuit = circuitAt(event->pos());
    if (event->button() == Qt::LeftButton && circuit >= 0)
        m_dragArmed = m_view->pressCircuit(circuit, event->modifiers());
}

void PatchView::MidiBlock::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_dragArmed)
        return;
    m_dragArmed = false;
    m_view->startDrag(event->widget(), m_view->selectionPayload(Keyword::Circuits));
}

void PatchView::MidiBlock::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    event->ignore();
}
