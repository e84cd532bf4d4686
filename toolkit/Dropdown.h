// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QString>

class DropdownHandler;

// A clickable text; its owner opens a menu when told.
class Dropdown : public QGraphicsItem
{
public:
    Dropdown(QGraphicsItem* parent, QGraphicsScene* scene, DropdownHandler* handler,
             const QRectF& rect, float fontSize, const QColor& colour, Qt::Alignment alignment);

    QString text() const { return label; }
    void setText(const QString& text);
    bool isHovered() const { return hovered; }

    QRectF boundingRect() const override { return rect; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    DropdownHandler* handler;
    QRectF rect;
    QColor colour;
    Qt::Alignment alignment;
    QFont font;
    QFont hoveredFont;
    bool hovered = false;
    QString label;
};
