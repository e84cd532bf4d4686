// SPDX-License-Identifier: GPL-3.0-or-later
#include "SceneMouse.h"

#include "app/Lumidesk.h"
#include "toolkit/Fader.h"
#include "toolkit/FaderHandler.h"

#include <QGraphicsScene>
#include <QTest>

namespace {

struct RecordingHandler : FaderHandler
{
    void faderValueChanged(Fader* fader) override { values << fader->value(); }
    QList<float> values;
};

} // namespace

class TestFader : public QObject
{
    Q_OBJECT

private slots:
    void dragMovesByTravelAndClamps_data();
    void dragMovesByTravelAndClamps();
    void dragReportsEveryMoveEvenAtTheEnd();
    void pressOutsideTheKnobDoesNotDrag_data();
    void pressOutsideTheKnobDoesNotDrag();
    void setValueNotifiesOnlyWhenAskedAndChanged();
    void geometryFollowsTheTravel();
    void grooveAndLevelBars_data();
    void grooveAndLevelBars();
    void knobFollowsTheValue_data();
    void knobFollowsTheValue();
};

void TestFader::dragMovesByTravelAndClamps_data()
{
    QTest::addColumn<float>("start");
    QTest::addColumn<int>("up");
    QTest::addColumn<float>("end");
    QTest::newRow("100 up from a quarter") << 0.25f << 100 << 0.75f;
    QTest::newRow("300 up stops at the top") << 0.25f << 300 << 1.0f;
    QTest::newRow("100 down stops at the bottom") << 0.25f << -100 << 0.0f;
    QTest::newRow("50 down from the top") << 1.0f << -50 << 0.75f;
}

void TestFader::dragMovesByTravelAndClamps()
{
    QFETCH(float, start);
    QFETCH(int, up);
    QFETCH(float, end);
    QGraphicsScene scene;
    RecordingHandler handler;
    Fader fader(nullptr, &scene, &handler, 200, false);
    fader.setPos(100, 50);
    fader.setValue(start, false);
    SceneMouse mouse(scene);
    // Whole pixels, as a mouse gives them.
    const QPointF grip = fader.mapToScene(QPointF(19, fader.knobRect().top() + 27));
    QVERIFY(mouse.press(grip));
    mouse.move(grip - QPointF(0, up / 2.0));
    mouse.move(grip - QPointF(0, up));
    mouse.release(grip - QPointF(0, up));
    QCOMPARE(fader.value(), end);
    QCOMPARE(handler.values.size(), 2);
    QCOMPARE(handler.values.last(), end);
}

void TestFader::dragReportsEveryMoveEvenAtTheEnd()
{
    QGraphicsScene scene;
    RecordingHandler handler;
    Fader fader(nullptr, &scene, &handler, 110, false);
    fader.setValue(1.0f, false);
    SceneMouse mouse(scene);
    const QPointF grip = fader.knobRect().center();
    mouse.press(grip);
    for (int i = 1; i <= 3; ++i)
        mouse.move(grip - QPointF(0, 10 * i));
    QCOMPARE(handler.values, (QList<float>{1.0f, 1.0f, 1.0f}));
    mouse.release(grip);
    // After the release, moves no longer drag.
    mouse.move(grip + QPointF(0, 40));
    QCOMPARE(handler.values.size(), 3);
}

void TestFader::pressOutsideTheKnobDoesNotDrag_data()
{
    QTest::addColumn<QPointF>("press");
    QTest::newRow("on the groove above the knob") << QPointF(18, 30);
    QTest::newRow("beside the knob") << QPointF(1, 180);
}

void TestFader::pressOutsideTheKnobDoesNotDrag()
{
    QFETCH(QPointF, press);
    QGraphicsScene scene;
    RecordingHandler handler;
    Fader fader(nullptr, &scene, &handler, 127, true);
    SceneMouse mouse(scene);
    QVERIFY(!mouse.press(press));
    mouse.move(press - QPointF(0, 50));
    mouse.release(press - QPointF(0, 50));
    QCOMPARE(fader.value(), 0.0f);
    QVERIFY(handler.values.isEmpty());
}

void TestFader::setValueNotifiesOnlyWhenAskedAndChanged()
{
    RecordingHandler handler;
    Fader fader(nullptr, nullptr, &handler, 110, false);
    fader.setValue(0.5f, false);
    QCOMPARE(fader.value(), 0.5f);
    QVERIFY(handler.values.isEmpty());
    fader.setValue(0.5f, true);
    QVERIFY(handler.values.isEmpty());
    fader.setValue(0.7f, true);
    QCOMPARE(handler.values, QList<float>{0.7f});
    Fader lonely(nullptr, nullptr, nullptr, 110, false);
    lonely.setValue(0.3f, true);
    QCOMPARE(lonely.value(), 0.3f);
}

void TestFader::geometryFollowsTheTravel()
{
    Fader fader(nullptr, nullptr, nullptr, 127, false);
    QCOMPARE(fader.boundingRect(), QRectF(0, 0, 38, 182));
    QCOMPARE(fader.knobRect(), QRectF(3, 127, 33, 55));
    fader.setValue(1.0f, false);
    QCOMPARE(fader.knobRect(), QRectF(3, 0, 33, 55));
}

void TestFader::grooveAndLevelBars_data()
{
    QTest::addColumn<QColor>("colourB");
    QTest::addColumn<QPoint>("where");
    QTest::addColumn<QColor>("expected");
    const QColor none;
    const QColor blue(0, 0, 255);
    // Level 0.5 on a 100-pixel travel: the lit part runs from y 77 down. The
    // level (alpha 164) lies over the track (alpha 36): 36 + 219 * 164 / 255.
    QTest::newRow("groove") << none << QPoint(18, 110) << QColor(60, 60, 60);
    QTest::newRow("single bar lit") << none << QPoint(36, 100) << QColor(0, 177, 0);
    QTest::newRow("single bar track") << none << QPoint(36, 40) << QColor(0, 36, 0);
    QTest::newRow("bar A beside B") << blue << QPoint(30, 100) << QColor(0, 177, 0);
    QTest::newRow("bar B lit") << blue << QPoint(35, 120) << QColor(0, 0, 177);
    QTest::newRow("bar B track") << blue << QPoint(35, 90) << QColor(0, 0, 36);
    QTest::newRow("nothing right of the bars") << blue << QPoint(37, 20) << QColor(0, 0, 0);
}

void TestFader::grooveAndLevelBars()
{
    QFETCH(QColor, colourB);
    QFETCH(QPoint, where);
    QFETCH(QColor, expected);
    Fader fader(nullptr, nullptr, nullptr, 100, true);
    fader.setValue(1.0f, false); // the knob out of the way at the top
    fader.setLevelColourA(QColor(0, 255, 0));
    fader.setLevelA(0.5f);
    fader.setLevelColourB(colourB);
    fader.setLevelB(0.25f);
    const QImage image = renderItem(fader);
    QColor seen = image.pixelColor(where);
    // Alpha blending over black rounds by one either way.
    QVERIFY2(qAbs(seen.red() - expected.red()) <= 1 && qAbs(seen.green() - expected.green()) <= 1 &&
                 qAbs(seen.blue() - expected.blue()) <= 1,
             qPrintable(seen.name() + QStringLiteral(" instead of ") + expected.name()));
}

void TestFader::knobFollowsTheValue_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("knobTop");
    QTest::newRow("bottom") << 0.0f << 100;
    QTest::newRow("middle") << 0.5f << 50;
    QTest::newRow("top") << 1.0f << 0;
}

void TestFader::knobFollowsTheValue()
{
    QFETCH(float, value);
    QFETCH(int, knobTop);
    Fader fader(nullptr, nullptr, nullptr, 100, false);
    fader.setValue(value, false);
    const QImage image = renderItem(fader);
    // The knob's white centre line, drawn from the shared image set (whose
    // loader rebuilds grey and alpha from the stored file).
    const QColor line = image.pixelColor(19, knobTop + 27);
    QVERIFY2(line.red() > 230 && line.red() == line.green() && line.green() == line.blue(),
             qPrintable(line.name()));
    const QColor below = image.pixelColor(19, knobTop + 40);
    QVERIFY2(below.red() < 200, qPrintable(below.name()));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFader test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_controls_fader.moc"
