// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>

// Hands an event that a view built itself (a help event in scene
// coordinates, say) to the scene-event handler of another item, which is
// protected in QGraphicsItem. Use a temporary one, outside any scene.
class PatchedQGraphicsItem : public QGraphicsItem
{
public:
    explicit PatchedQGraphicsItem(QGraphicsItem* target) : target(target) {}

    QRectF boundingRect() const override { return {}; }
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override {}

    bool sceneEvent(QEvent* event) override;

private:
    QGraphicsItem* target;
};
