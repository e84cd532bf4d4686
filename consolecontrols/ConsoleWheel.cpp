// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleWheel.h"

#include "Console.h"
#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "PanelEvent.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QRandomGenerator>

#include <cmath>

namespace {
// The console's own rounding of pi, so that a turn matches the hardware's.
constexpr float radiansPerDegree = 3.1415f / 180.0f;
constexpr float dipRadius = 23.0f;
} // namespace

ConsoleWheel::ConsoleWheel(QGraphicsItem* parent, QGraphicsScene* scene, int wheelNumber)
    : QGraphicsItem(parent), number(wheelNumber),
      turn(float(QRandomGenerator::global()->bounded(360)) * radiansPerDegree)
{
    if (scene && !parent)
        scene->addItem(this);
}

QRectF ConsoleWheel::boundingRect() const
{
    return QRectF(0, 0, size, size);
}

void ConsoleWheel::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QImage& base = ConsoleLink::image(Resources::Id::WheelBase);
    const QImage& dip = ConsoleLink::image(Resources::Id::WheelDip);
    painter->drawImage(0, 0, base);
    const QPointF dipAt((base.width() - dip.width()) * 0.5 + dipRadius * std::cos(turn) + 1,
                        (base.height() - dip.height()) * 0.5 + dipRadius * std::sin(turn));
    painter->drawImage(dipAt, dip);
}

void ConsoleWheel::mousePressEvent(QGraphicsSceneMouseEvent*)
{
    // Accepted, so that the moves of the drag come here.
}

void ConsoleWheel::mouseReleaseEvent(QGraphicsSceneMouseEvent*) {}

void ConsoleWheel::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    const qreal dy = event->lastPos().y() - event->pos().y();
    turn += float(dy) * radiansPerDegree;
    update();
    const int total = int(rest + dy);
    const int steps = total / pixelsPerStep;
    rest = total;
    if (steps != 0) {
        sendSteps(steps);
        rest -= pixelsPerStep * steps;
    }
}

void ConsoleWheel::sendSteps(int steps) const
{
    Console* console = ConsoleLink::console();
    if (!console || !console->engine())
        return;
    PanelEvent event;
    event.kind = PanelEvent::PanelWheel;
    event.control = quint8(number);
    event.value = quint8(qint8(steps));
    console->engine()->panelEvent(&event);
}
