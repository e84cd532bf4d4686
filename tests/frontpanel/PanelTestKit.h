// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Shared by the panel and playback block tests: console, mouse, painting.

#include "Console.h"
#include "ConsoleLink.h"
#include "FakeEngine.h"
#include "PanelEvent.h"

#include <QApplication>
#include <QByteArray>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <cstring>
#include <memory>

// Data rows as structs whose first field is the row's name, one column "c".
template <typename Case, std::size_t N> void addRows(const Case (&cases)[N])
{
    QTest::addColumn<Case>("c");
    for (const Case& c : cases)
        QTest::newRow(c.name) << c;
}

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
    MemoryRecord& memory(int page, int index)
    {
        return record()->memories[page * ConsoleStateRecord::memoriesPerPage + index];
    }
    SequenceRecord& sequence(int page, int fader)
    {
        return record()->sequences[page * ConsoleStateRecord::sequenceFadersPerPage + fader];
    }
    // Names "Ch<n>", "M<page>.<n>", "S<page>.<n>", "G<n>", "F|K|B<n>", "E<n>", "Page<n>" (line 1).
    void nameEverything()
    {
        ConsoleStateRecord* r = record();
        const auto name = [](TextBlock& block, const QString& prefix, int n, int line = 0) {
            ConsoleCache::writeText(block, line, prefix + QString::number(n));
        };
        for (int i = 0; i < ConsoleStateRecord::maxChannels; ++i)
            name(r->channelLegends[i], QStringLiteral("Ch"), i);
        for (int page = 0; page < ConsoleStateRecord::pages; ++page) {
            const QString prefix = QString::number(page) + QLatin1Char('.');
            for (int i = 0; i < ConsoleStateRecord::memoriesPerPage; ++i)
                name(memory(page, i).name, QLatin1Char('M') + prefix, i);
            for (int i = 0; i < ConsoleStateRecord::sequenceFadersPerPage; ++i)
                name(sequence(page, i).name, QLatin1Char('S') + prefix, i);
            name(r->pageNames[page], QStringLiteral("Page"), page, 1);
        }
        for (int i = 0; i < 24; ++i) {
            name(r->groups[i].name, QStringLiteral("G"), i);
            for (int group = 0; group < 3; ++group)
                name(r->palettes[i].names[group], QString(QLatin1Char("FKB"[group])), i);
        }
        for (int i = 0; i < 36; ++i)
            name(r->effects[i].name, QStringLiteral("E"), i);
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
};

// The 12 bytes of a panel event as the engine receives them.
inline QByteArray eventBytes(quint32 kind, int control, int value, quint32 state)
{
    PanelEvent event;
    event.kind = kind;
    event.control = quint8(control);
    event.value = quint8(value);
    event.buttonState = state;
    return QByteArray(reinterpret_cast<const char*>(&event), sizeof(PanelEvent));
}

inline QList<QByteArray> allEventBytes(const FakeEngine& engine)
{
    QList<QByteArray> bytes;
    for (const PanelEvent& event : engine.panelEvents())
        bytes << eventBytes(event.kind, event.control, event.value, event.buttonState);
    return bytes;
}

// What an item's paint() draws into `area` over `fill`, the pen preset as by a view.
inline QImage paintedItem(QGraphicsItem* item, const QRect& area, QColor fill = Qt::transparent,
                          QColor pen = Qt::black)
{
    QImage image(area.size(), QImage::Format_ARGB32);
    image.fill(fill);
    QPainter painter(&image);
    painter.setPen(pen);
    painter.translate(-area.topLeft());
    item->paint(&painter, nullptr, nullptr);
    return image;
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

    void send(QEvent::Type type, const QPointF& scenePos, Qt::MouseButtons held)
    {
        const QPoint at = view.mapFromScene(scenePos);
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, held, {});
        QApplication::sendEvent(view.viewport(), &event);
    }
    void press(const QPointF& p) { send(QEvent::MouseButtonPress, p, Qt::LeftButton); }
    void move(const QPointF& p) { send(QEvent::MouseMove, p, Qt::LeftButton); }
    void release(const QPointF& p) { send(QEvent::MouseButtonRelease, p, Qt::NoButton); }
    void click(const QPointF& p)
    {
        press(p);
        release(p);
    }

    QGraphicsView view;
};
