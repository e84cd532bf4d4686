// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScrollBar.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

ScrollBar::ScrollBar(QGraphicsItem* parent, const QRectF& rect) : QGraphicsItem(parent), area(rect)
{
}

void ScrollBar::setRect(const QRectF& rect)
{
    prepareGeometryChange();
    area = rect;
    update();
}

void ScrollBar::setCurrentLine(int line)
{
    current = line;
    update();
    emit currentLineChanged(current);
}

void ScrollBar::setLineCount(int count)
{
    lines = count;
    update();
    pullBackCurrentLine();
}

void ScrollBar::setVisibleLines(int count)
{
    visible = count;
    update();
    pullBackCurrentLine();
}

void ScrollBar::pullBackCurrentLine()
{
    if (current <= lastFirstLine())
        return;
    current = lastFirstLine();
    emit currentLineChanged(current);
}

double ScrollBar::pixelsPerLine(double thumbHeight) const
{
    return (area.height() - thumbHeight) / double(lines - visible);
}

QRectF ScrollBar::thumbRect() const
{
    const double fraction = lines > 0 ? std::min(double(visible) / double(lines), 1.0) : 1.0;
    QRectF thumb(area.x(), area.y(), area.width(), area.height() * fraction);
    if (visible == 0 || lines <= visible)
        return thumb;
    const double perLine = pixelsPerLine(thumb.height());
    double y = area.y() + (dragging ? dragStartLine : current) * perLine;
    if (dragging)
        y += mousePos.y() - pressPos.y();
    // A current line beyond the end (allowed by setCurrentLine) keeps the
    // thumb inside the track as well.
    y = std::clamp(y, area.top(), area.bottom() - thumb.height());
    thumb.moveTop(y);
    return thumb;
}

void ScrollBar::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->fillRect(area, QColor(255, 255, 255, 32));
    if (lines <= 0)
        return;
    const QRectF thumb = thumbRect();
    if (thumb.width() < 1 || thumb.height() < 1)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QPen pen(QColor(255, 255, 255, dragging ? 192 : 0), 1.7, Qt::SolidLine, Qt::SquareCap,
             Qt::BevelJoin);
    painter->setPen(pen);
    painter->setBrush(QColor(255, 255, 255, 60));
    // A three-pixel corner radius, expressed the relative way.
    painter->drawRoundedRect(thumb, int(600 / thumb.width()), int(600 / thumb.height()),
                             Qt::RelativeSize);
    painter->restore();
}

void ScrollBar::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (lines <= visible || !thumbRect().contains(event->pos())) {
        event->ignore();
        return;
    }
    dragging = true;
    dragStartLine = current;
    pressPos = mousePos = event->pos();
    update();
}

void ScrollBar::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!dragging)
        return;
    const double perLine = pixelsPerLine(thumbRect().height());
    const int line = std::clamp(int((event->pos().y() - pressPos.y()) / perLine) + dragStartLine, 0,
                                lastFirstLine());
    if (line != current) {
        current = line;
        emit currentLineChanged(current);
    }
    mousePos = event->pos();
    update();
}

void ScrollBar::mouseReleaseEvent(QGraphicsSceneMouseEvent*)
{
    if (!dragging)
        return;
    dragging = false;
    update();
    emit currentLineChanged(current);
}
