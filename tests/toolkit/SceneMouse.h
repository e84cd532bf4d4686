// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>

// Mouse input delivered through a real scene, so that grabbing, hit testing
// and coordinate mapping are the scene's own.
class SceneMouse
{
public:
    explicit SceneMouse(QGraphicsScene& scene) : scene(scene) {}

    bool press(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        held = Qt::LeftButton;
        return send(QEvent::GraphicsSceneMousePress, at, Qt::LeftButton, modifiers);
    }
    bool move(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        return send(QEvent::GraphicsSceneMouseMove, at, Qt::NoButton, modifiers);
    }
    bool release(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        held = Qt::NoButton;
        return send(QEvent::GraphicsSceneMouseRelease, at, Qt::LeftButton, modifiers);
    }
    void click(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(at, modifiers);
        release(at, modifiers);
    }

private:
    bool send(QEvent::Type type, QPointF at, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers)
    {
        QGraphicsSceneMouseEvent event(type);
        event.setScenePos(at);
        event.setScreenPos(at.toPoint());
        event.setLastScenePos(last);
        event.setLastScreenPos(last.toPoint());
        event.setButton(button);
        event.setButtons(held);
        event.setModifiers(modifiers);
        if (type == QEvent::GraphicsSceneMousePress) {
            event.setButtonDownScenePos(button, at);
            event.setButtonDownScreenPos(button, at.toPoint());
        }
        event.setAccepted(false);
        last = at;
        QCoreApplication::sendEvent(&scene, &event);
        return event.isAccepted();
    }

    QGraphicsScene& scene;
    Qt::MouseButtons held = Qt::NoButton;
    QPointF last;
};

// What an item draws, on a background of the given colour.
inline QImage renderItem(QGraphicsItem& item, const QColor& background = Qt::black)
{
    const QRect bounds = item.boundingRect().toAlignedRect();
    // Premultiplied, the raster engine's own format: no conversion on the way.
    QImage image(bounds.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    painter.translate(-bounds.topLeft());
    item.paint(&painter, nullptr, nullptr);
    return image;
}
