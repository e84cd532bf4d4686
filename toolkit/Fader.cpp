// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fader.h"

#include "ConsoleLink.h"
#include "FaderHandler.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int grooveTop = 27;
constexpr QColor grooveColour(60, 60, 60);
constexpr int trackAlpha = 36;
constexpr int levelAlpha = 164;

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

// The knob of the shared image set, with its pixel mode applied; null
// outside the application.
const QImage* knobImage()
{
    const Resources* images = ConsoleLink::resources();
    return images ? &images->image(Resources::Id::FaderKnobDark) : nullptr;
}
} // namespace

Fader::Fader(QGraphicsItem* parent, QGraphicsScene* scene, FaderHandler* handler, int length,
             bool showLevels)
    : QGraphicsItem(parent), handler(handler), travel(length), showLevels(showLevels)
{
    if (scene && !parent)
        scene->addItem(this);
}

void Fader::setValue(float value, bool notify)
{
    if (value == position)
        return;
    position = value;
    if (notify && handler)
        handler->faderValueChanged(this);
    update();
}

void Fader::setLevelA(float level)
{
    if (level == levelA_)
        return;
    levelA_ = level;
    update();
}

void Fader::setLevelColourA(const QColor& colour)
{
    if (colour == colourA)
        return;
    colourA = colour;
    update();
}

void Fader::setLevelB(float level)
{
    if (level == levelB_)
        return;
    levelB_ = level;
    update();
}

void Fader::setLevelColourB(const QColor& colour)
{
    if (colour == colourB)
        return;
    colourB = colour;
    update();
}

QRectF Fader::knobRect() const
{
    return QRectF(3, (1.0 - position) * travel, 33, knobHeight);
}

QRectF Fader::boundingRect() const
{
    return QRectF(0, 0, width, travel + knobHeight);
}

void Fader::paintBar(QPainter* painter, int left, int barWidth, const QColor& colour,
                     float level) const
{
    if (!colour.isValid())
        return;
    painter->fillRect(QRect(left, grooveTop, barWidth, travel), withAlpha(colour, trackAlpha));
    const int top = int((1.0f - level) * travel + grooveTop);
    const int height = int(travel * level);
    painter->fillRect(QRect(left, top, barWidth, height), withAlpha(colour, levelAlpha));
}

void Fader::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->fillRect(QRect(15, grooveTop, 8, travel), grooveColour);
    if (showLevels) {
        if (colourB.isValid()) {
            paintBar(painter, 28, 5, colourA, levelA_);
            paintBar(painter, 33, 5, colourB, levelB_);
        } else {
            paintBar(painter, 28, 10, colourA, levelA_);
        }
    }
    if (const QImage* knob = knobImage())
        painter->drawImage(3, int((1.0f - position) * travel), *knob);
}

void Fader::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (!knobRect().contains(event->pos())) {
        event->ignore();
        return;
    }
    dragging = true;
    dragStartY = int(event->pos().y());
    dragStartValue = position;
}

void Fader::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!dragging)
        return;
    const float moved = float(event->pos().y() - dragStartY) / float(travel);
    position = std::clamp(dragStartValue - moved, 0.0f, 1.0f);
    if (handler)
        handler->faderValueChanged(this);
    update();
}

void Fader::mouseReleaseEvent(QGraphicsSceneMouseEvent*)
{
    dragging = false;
}
