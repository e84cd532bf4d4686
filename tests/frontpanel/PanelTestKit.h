// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Shared by the front panel and playback block tests: a console on an
// in-process engine that the panel items talk to, and mouse input through a
// real view.

#include "Console.h"
#include "ConsoleLink.h"
#include "FakeEngine.h"
#include "PanelEvent.h"

#include <QApplication>
#include <QByteArray>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMouseEvent>

#include <cstring>
#include <memory>

// A started console for one model, installed for the panel items.
struct PanelConsole
{
    explicit PanelConsole(ConsoleCache::ConsoleType model) : engine(model)
    {
        console.reset(engine.createConsole());
        ConsoleLink::setConsole(console.get());
    }
    ~PanelConsole() { ConsoleLink::setConsole(nullptr); }

    ConsoleStateRecord* record() { return engine.record(); }
    // Delivers a notification and runs the queued slots it triggered.
    void notify(int code, int a = 0, int b = 0, int c = 0)
    {
        engine.notify(code, a, b, c);
        QCoreApplication::processEvents();
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
};

// The 12 bytes of a panel event as the engine receives them.
inline QByteArray eventBytes(const PanelEvent& event)
{
    return QByteArray(reinterpret_cast<const char*>(&event), sizeof(PanelEvent));
}

inline QByteArray eventBytes(quint32 kind, int control, int value, quint32 state)
{
    PanelEvent event;
    event.kind = kind;
    event.control = quint8(control);
    event.value = quint8(value);
    event.buttonState = state;
    return eventBytes(event);
}

inline QList<QByteArray> allEventBytes(const FakeEngine& engine)
{
    QList<QByteArray> bytes;
    for (const PanelEvent& event : engine.panelEvents())
        bytes << eventBytes(event);
    return bytes;
}

// A shown view over a scene, for mouse input at scene positions.
struct SceneView
{
    explicit SceneView(QGraphicsScene* scene, QSize size = QSize(800, 500)) : view(scene)
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.setSceneRect(QRectF(QPointF(0, 0), size));
        view.resize(size);
        view.show();
    }

    void send(QEvent::Type type, const QPointF& scenePos, Qt::MouseButtons held,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint at = view.mapFromScene(scenePos);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, held, modifiers);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void press(const QPointF& p) { send(QEvent::MouseButtonPress, p, Qt::LeftButton); }
    void move(const QPointF& p) { send(QEvent::MouseMove, p, Qt::LeftButton); }
    void release(const QPointF& p, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseButtonRelease, p, Qt::NoButton, modifiers);
    }

    QGraphicsView view;
};
