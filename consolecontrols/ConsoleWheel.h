// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>

// An endless wheel: a vertical drag turns it one degree per pixel and sends
// the engine one step per 12 pixels, keeping the rest for the next move.
class ConsoleWheel : public QGraphicsItem
{
public:
    ConsoleWheel(QGraphicsItem* parent, QGraphicsScene* scene, int wheelNumber);

    int wheelNumber() const { return number; }
    float angle() const { return turn; }
    int remainder() const { return rest; }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    static constexpr int pixelsPerStep = 12;
    static constexpr int size = 82;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void sendSteps(int steps) const;

    int number;
    float turn;
    int rest = 0;
};
