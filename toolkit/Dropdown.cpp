// SPDX-License-Identifier: GPL-3.0-or-later
#include "Dropdown.h"

#include "DropdownHandler.h"
#include "MakeFont.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

Dropdown::Dropdown(QGraphicsItem* parent, QGraphicsScene* scene, DropdownHandler* handler,
                   const QRectF& rect, float fontSize, const QColor& colour,
                   Qt::Alignment alignment)
    : QGraphicsItem(parent), handler(handler), rect(rect), colour(colour),
      alignment(alignment), font(makeFont(QStringLiteral("Gill Sans MT"), int(fontSize))),
      hoveredFont(font)
{
    hoveredFont.setUnderline(true);
    setAcceptHoverEvents(true);
    if (scene && !parent)
        scene->addItem(this);
}

void Dropdown::setText(const QString& text)
{
    label = text;
    update();
}

void Dropdown::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setPen(colour);
    painter->setFont(hovered ? hoveredFont : font);
    painter->drawText(rect, int(alignment | Qt::AlignVCenter), label);
}

void Dropdown::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    hovered = true;
    update();
}

void Dropdown::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    hovered = false;
    update();
}

void Dropdown::mousePressEvent(QGraphicsSceneMouseEvent*)
{
    // Taken so that the release comes here.
}

void Dropdown::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (handler)
        handler->dropdownClicked(this, event->widget());
}
