// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DataRows.h"
#include "toolkit/InPlaceLineEdit.h"

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <functional>

// Mouse input delivered through a real scene, so that grabbing, hit testing
// and coordinate mapping are the scene's own.
struct SceneMouse
{
    QGraphicsScene& scene;
    Qt::MouseButtons held = Qt::NoButton;

    bool press(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        held = Qt::LeftButton;
        return send(QEvent::GraphicsSceneMousePress, at, modifiers);
    }
    bool move(QPointF at) { return send(QEvent::GraphicsSceneMouseMove, at, {}); }
    bool release(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        held = Qt::NoButton;
        return send(QEvent::GraphicsSceneMouseRelease, at, modifiers);
    }
    void click(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(at, modifiers);
        release(at, modifiers);
    }
    bool send(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers)
    {
        QGraphicsSceneMouseEvent event(type);
        event.setScenePos(at);
        event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
        event.setButtons(held);
        event.setModifiers(modifiers);
        event.setButtonDownScenePos(Qt::LeftButton, at);
        event.setAccepted(false);
        QCoreApplication::sendEvent(&scene, &event);
        return event.isAccepted();
    }
};

// A scene in an active, frameless, top-left aligned view, as a tab shows it.
struct ShownScene
{
    QGraphicsScene scene{0, 0, 400, 200};
    QGraphicsView view{&scene};

    bool show()
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.resize(420, 220);
        view.show();
        view.activateWindow();
        return QTest::qWaitForWindowActive(&view);
    }
    QWidget* viewport() const { return view.viewport(); }
    QPoint at(QPointF scenePos) const { return view.mapFromScene(scenePos); }
    // A double click as a mouse gives it: press, release, double click, release.
    void doubleClick(QPointF scenePos, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(viewport(), button, {}, at(scenePos));
        QTest::mouseDClick(viewport(), button, {}, at(scenePos));
        QTest::mouseRelease(viewport(), button, {}, at(scenePos));
    }
    InPlaceLineEdit* editor() const
    {
        for (auto* editor : viewport()->findChildren<InPlaceLineEdit*>())
            if (editor->isVisible())
                return editor;
        return nullptr;
    }
    // What the scene shows in an area, on black.
    QImage render(const QRectF& area)
    {
        QImage image(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        scene.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
        return image;
    }
    QImage render(const QGraphicsItem* item) { return render(item->sceneBoundingRect()); }
};

// What an item draws by itself, on a background of the given colour.
inline QImage renderItem(QGraphicsItem& item, const QColor& background = Qt::black)
{
    const QRect bounds = item.boundingRect().toAlignedRect();
    QImage image(bounds.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    painter.translate(-bounds.topLeft());
    item.paint(&painter, nullptr, nullptr);
    return image;
}

// The box around the pixels that pass a test (by default: not black).
inline QRect inkBox(const QImage& image, QRect region = QRect(),
                    const std::function<bool(QRgb)>& inked = {})
{
    if (region.isNull())
        region = image.rect();
    QRect box;
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            if (inked ? inked(image.pixel(x, y)) : image.pixel(x, y) != qRgb(0, 0, 0))
                box |= QRect(x, y, 1, 1);
    return box;
}

// A colour blended over an opaque background, as the raster engine does it.
inline QRgb over(QRgb background, const QColor& colour)
{
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(background);
    QPainter painter(&pixel);
    painter.fillRect(0, 0, 1, 1, colour);
    painter.end();
    return pixel.pixel(0, 0);
}
