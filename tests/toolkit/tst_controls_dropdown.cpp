// SPDX-License-Identifier: GPL-3.0-or-later
#include "SceneMouse.h"

#include "app/Lumidesk.h"
#include "toolkit/Dropdown.h"
#include "toolkit/DropdownHandler.h"
#include "toolkit/PatchedQGraphicsItem.h"

#include <QGraphicsSceneHelpEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsView>
#include <QTest>

namespace {

struct RecordingHandler : DropdownHandler
{
    void dropdownClicked(Dropdown* dropdown, QWidget* widget) override
    {
        clicked << dropdown;
        widgets << widget;
    }
    QList<Dropdown*> clicked;
    QList<QWidget*> widgets;
};

// An item that remembers which events reached its scene-event handler.
class Target : public QGraphicsRectItem
{
public:
    explicit Target(bool answer) : answer(answer) {}
    QList<QEvent::Type> seen;

protected:
    bool sceneEvent(QEvent* event) override
    {
        seen << event->type();
        return answer;
    }

private:
    bool answer;
};

} // namespace

class TestDropdown : public QObject
{
    Q_OBJECT

private slots:
    void releaseAsksTheOwnerWithTheViewport();
    void hoverUnderlinesTheText();
    void textIsDrawnInItsColour();
    void patchedItemHandsEventsToItsTarget_data();
    void patchedItemHandsEventsToItsTarget();
};

void TestDropdown::releaseAsksTheOwnerWithTheViewport()
{
    QGraphicsScene scene;
    RecordingHandler handler;
    auto* dropdown =
        new Dropdown(nullptr, &scene, &handler, QRectF(0, 0, 80, 16), 10, Qt::white, Qt::AlignLeft);
    dropdown->setText(QStringLiteral("Loop"));
    QGraphicsView view(&scene);
    view.resize(200, 100);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint at = view.mapFromScene(QPointF(20, 8));
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(handler.clicked.isEmpty());
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(handler.clicked, QList<Dropdown*>{dropdown});
    QCOMPARE(handler.widgets, QList<QWidget*>{view.viewport()});
}

void TestDropdown::hoverUnderlinesTheText()
{
    QGraphicsScene scene;
    Dropdown dropdown(nullptr, &scene, nullptr, QRectF(0, 0, 80, 16), 10, Qt::white, Qt::AlignLeft);
    dropdown.setText(QStringLiteral("One Shot"));
    const QImage plain = renderItem(dropdown);
    QGraphicsSceneHoverEvent enter(QEvent::GraphicsSceneHoverEnter);
    enter.setScenePos(QPointF(10, 8));
    scene.sendEvent(&dropdown, &enter);
    QVERIFY(dropdown.isHovered());
    const QImage hovered = renderItem(dropdown);
    QVERIFY(plain != hovered);
    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    scene.sendEvent(&dropdown, &leave);
    QVERIFY(!dropdown.isHovered());
    QCOMPARE(renderItem(dropdown), plain);
}

void TestDropdown::textIsDrawnInItsColour()
{
    Dropdown dropdown(nullptr, nullptr, nullptr, QRectF(0, 0, 60, 20), 12, QColor(255, 0, 0),
                      Qt::AlignHCenter);
    dropdown.setText(QStringLiteral("WWW"));
    const QImage image = renderItem(dropdown);
    int red = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            red += image.pixelColor(x, y) == QColor(255, 0, 0);
    QVERIFY2(red > 10, qPrintable(QString::number(red)));
}

void TestDropdown::patchedItemHandsEventsToItsTarget_data()
{
    QTest::addColumn<bool>("answer");
    QTest::newRow("target takes it") << true;
    QTest::newRow("target declines") << false;
}

void TestDropdown::patchedItemHandsEventsToItsTarget()
{
    QFETCH(bool, answer);
    QGraphicsScene scene;
    auto* target = new Target(answer);
    scene.addItem(target);
    PatchedQGraphicsItem patched(target);
    QVERIFY(patched.boundingRect().isEmpty());
    QCOMPARE(patched.scene(), nullptr);
    QGraphicsSceneHelpEvent help(QEvent::GraphicsSceneHelp);
    help.setScenePos(QPointF(3, 4));
    QCOMPARE(patched.sceneEvent(&help), answer);
    QCOMPARE(target->seen, QList<QEvent::Type>{QEvent::GraphicsSceneHelp});
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestDropdown test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_controls_dropdown.moc"
