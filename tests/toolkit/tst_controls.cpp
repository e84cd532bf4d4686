// SPDX-License-Identifier: GPL-3.0-or-later
#include "LumideskTestMain.h"
#include "ToolkitFixture.h"
#include "toolkit/Button.h"
#include "toolkit/ButtonHandler.h"
#include "toolkit/Dropdown.h"
#include "toolkit/DropdownHandler.h"
#include "toolkit/Fader.h"
#include "toolkit/FaderHandler.h"
#include "toolkit/ScrollBar.h"

#include <QGraphicsSceneHoverEvent>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

struct Recorder : ButtonHandler, DropdownHandler, FaderHandler
{
    void buttonClicked(Button* button) override { clicked << button; }
    void dropdownClicked(Dropdown*, QWidget* widget) override { widgets << widget; }
    void faderValueChanged(Fader* fader) override { values << fader->value(); }
    QList<Button*> clicked;
    QList<QWidget*> widgets;
    QList<float> values;
};

using Style = Button::ButtonStyle;
const QString resources = QStringLiteral(":/Lumidesk/Resources/");
const QColor keyColour(78, 78, 78);

QList<int> spied(const QSignalSpy& spy)
{
    QList<int> values;
    for (const QList<QVariant>& arguments : spy)
        values << arguments.at(0).toInt();
    return values;
}

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void ledColour_data();
    void ledColour();
    void keyRepaintsEachLook_data();
    void keyRepaintsEachLook();
    void buttonImages();
    void momentaryClick_data();
    void momentaryClick();
    void latch_data();
    void latch();
    void toggleCallsOnThePressDownAndTheReleaseUp();
    void labelSizeAndLines_data();
    void labelSizeAndLines();
    void dropdown();
    void faderDrag_data();
    void faderDrag();
    void faderPixels_data();
    void faderPixels();
    void scrollBarThumb_data();
    void scrollBarThumb();
    void scrollBarShrinks_data();
    void scrollBarShrinks();
    void scrollBarDrag();

private:
    Button* key(const QString& text, QPointF at = {});

    QGraphicsScene m_scene;
    Recorder m_recorder;
};

void TestControls::init()
{
    m_scene.clear();
    m_recorder = Recorder();
    QCOMPARE(Button::latchedButton(), nullptr);
}

Button* TestControls::key(const QString& text, QPointF at)
{
    auto* button = new Button(nullptr, &m_scene, &m_recorder, Style::ConsoleTextStyle, text);
    button->setPos(at);
    return button;
}

void TestControls::ledColour_data()
{
    addColumns<QColor, QColor>({"console", "shown"});
    QTest::newRow("black is dark grey") << QColor(0, 0, 0) << QColor(65, 65, 65);
    QTest::newRow("white stays white") << QColor(255, 255, 255) << QColor(255, 255, 255);
    QTest::newRow("pink keeps its hue") << QColor(255, 0, 128) << QColor(255, 65, 160);
    QTest::newRow("alpha is dropped") << QColor(0, 255, 0, 10) << QColor(65, 255, 65, 255);
}

void TestControls::ledColour()
{
    auto [console, shown] = fetch<QColor, QColor>({"console", "shown"});
    Button* button = key(QString());
    QCOMPARE(button->ledColour(), QColor(65, 65, 65));
    const QImage unlit = renderItem(*button);
    button->setLedColour(console);
    QCOMPARE(button->ledColour(), shown);
    // The key face is translucent: the LED shows through it.
    const QColor face = renderItem(*button).pixelColor(8, 20);
    QCOMPARE(face.red() > unlit.pixelColor(8, 20).red(), shown.red() > 65);
    QCOMPARE(face.green() > unlit.pixelColor(8, 20).green(), shown.green() > 65);
}

void TestControls::keyRepaintsEachLook_data()
{
    // LED colours in turn, and which of them are shown pressed (bit per step).
    addColumns<QList<QColor>, int>({"leds", "pressed"});
    QTest::newRow("lights up") << QList<QColor>{Qt::black, Qt::red} << 0;
    QTest::newRow("pressed, then released") << QList<QColor>{Qt::red, Qt::red, Qt::red} << 0b010;
    QTest::newRow("blinks back and forth")
        << QList<QColor>{Qt::black, Qt::red, Qt::black, Qt::red} << 0;
    QTest::newRow("a third colour") << QList<QColor>{Qt::black, Qt::red, Qt::blue, Qt::black} << 0;
}

void TestControls::keyRepaintsEachLook()
{
    auto [leds, pressed] = fetch<QList<QColor>, int>({"leds", "pressed"});
    const QColor panel(40, 40, 40);
    Button* changing = key(QStringLiteral("Rec All"));
    for (int step = 0; step < leds.size(); ++step) {
        const bool down = pressed & (1 << step);
        changing->setLedColour(leds[step]);
        changing->setDown(down);
        Button* fresh = key(QStringLiteral("Rec All"), QPointF(40, 0));
        fresh->setLedColour(leds[step]);
        fresh->setDown(down);
        QCOMPARE(renderItem(*changing, panel), renderItem(*fresh, panel));
    }
}

void TestControls::buttonImages()
{
    Button iconKey(nullptr, &m_scene, &m_recorder, Style::ConsoleIconStyle, false,
                   resources + QStringLiteral("FaderZeroButton.png"), keyColour);
    QCOMPARE(iconKey.boundingRect(), QRectF(0, 0, 35, 26));
    QCOMPARE(iconKey.ledColour(), QColor(Qt::white));
    // A language code is drawn into a 27 x 27 icon in grey.
    Button text(nullptr, &m_scene, &m_recorder, Style::TitleBarStyle, QStringLiteral("fr"));
    QCOMPARE(text.boundingRect(), QRectF(0, 0, 27, 27));
    const QImage label = renderItem(text);
    QVERIFY(!inkBox(label, QRect(), [](QRgb p) { return p == qRgb(163, 163, 163); }).isEmpty());
    // Pixels of the key colour become transparent, all others opaque.
    QTemporaryDir dir;
    QImage source(3, 1, QImage::Format_ARGB32);
    source.setPixel(0, 0, qRgba(78, 78, 78, 255));
    source.setPixel(1, 0, qRgba(200, 10, 10, 90));
    source.setPixel(2, 0, qRgba(78, 78, 79, 255));
    QVERIFY(source.save(dir.filePath(QStringLiteral("icon.png"))));
    Button keyed(nullptr, &m_scene, &m_recorder, Style::TitleBarStyle, false,
                 dir.filePath(QStringLiteral("icon.png")), keyColour);
    const QImage image = renderItem(keyed, Qt::blue);
    QVERIFY(image.pixelColor(0, 0) != keyColour);
    QCOMPARE(image.pixelColor(1, 0), QColor(200, 10, 10));
    QCOMPARE(image.pixelColor(2, 0), QColor(78, 78, 79));
}

void TestControls::momentaryClick_data()
{
    addColumns<bool, QPointF, int>({"track", "releaseAt", "clicks"});
    QTest::newRow("released inside") << true << QPointF(20, 12) << 1;
    QTest::newRow("released outside, tracked") << true << QPointF(80, 12) << 0;
    QTest::newRow("released outside, not tracked") << false << QPointF(80, 12) << 1;
}

void TestControls::momentaryClick()
{
    auto [track, releaseAt, clicks] = fetch<bool, QPointF, int>({"track", "releaseAt", "clicks"});
    Button* button = key(QStringLiteral("Go"), QPointF(10, 0));
    button->setTrackMouse(track);
    SceneMouse mouse{m_scene};
    QVERIFY(mouse.press(QPointF(20, 12)));
    QVERIFY(button->isDown());
    mouse.move(releaseAt);
    mouse.release(releaseAt);
    QVERIFY(!button->isDown());
    QCOMPARE(m_recorder.clicked.size(), clicks);
}

void TestControls::latch_data()
{
    addColumns<int, int, bool>({"modifier", "onOther", "latchedAfter"});
    const int none = Qt::NoModifier, shift = Qt::ShiftModifier, ctrl = Qt::ControlModifier;
    QTest::newRow("shift, then a plain key releases both") << shift << none << false;
    QTest::newRow("ctrl, then a plain key releases both") << ctrl << none << false;
    QTest::newRow("shift on another key keeps the latch") << shift << shift << true;
}

void TestControls::latch()
{
    auto [modifier, onOther, latchedAfter] =
        fetch<int, int, bool>({"modifier", "onOther", "latchedAfter"});
    Button* held = key(QStringLiteral("Rec"));
    Button* other = key(QStringLiteral("1"), QPointF(40, 0));
    held->setLatchable(true);
    other->setLatchable(true);
    SceneMouse mouse{m_scene};
    mouse.click(QPointF(10, 10), Qt::KeyboardModifiers(modifier));
    QCOMPARE(Button::latchedButton(), held);
    mouse.press(QPointF(50, 10));
    QVERIFY(other->isDown() && held->isDown());
    mouse.release(QPointF(50, 10), Qt::KeyboardModifiers(onOther));
    QVERIFY(!other->isDown());
    QCOMPARE(held->isDown(), latchedAfter);
    QCOMPARE(Button::latchedButton(), latchedAfter ? held : nullptr);
    QVERIFY(m_recorder.clicked.isEmpty());
    if (!latchedAfter)
        return;
    // Pressing the latched key forgets the latch; releasing it clicks.
    mouse.press(QPointF(10, 10));
    QCOMPARE(Button::latchedButton(), nullptr);
    mouse.release(QPointF(10, 10));
    QCOMPARE(m_recorder.clicked, QList<Button*>{held});
    // A destroyed latched key takes the latch with it.
    mouse.click(QPointF(10, 10), Qt::ShiftModifier);
    delete held;
    QCOMPARE(Button::latchedButton(), nullptr);
}

void TestControls::toggleCallsOnThePressDownAndTheReleaseUp()
{
    Button toggle(nullptr, &m_scene, &m_recorder, Style::TitleBarStyle, true,
                  resources + QStringLiteral("TitleBarMapleConsoleButton.png"), keyColour);
    SceneMouse mouse{m_scene};
    QList<QPair<bool, int>> seen;
    for (int i = 0; i < 2; ++i) {
        mouse.press(QPointF(10, 10));
        seen << qMakePair(toggle.isDown(), int(m_recorder.clicked.size()));
        mouse.release(QPointF(10, 10));
        seen << qMakePair(toggle.isDown(), int(m_recorder.clicked.size()));
    }
    QCOMPARE(seen, (QList<QPair<bool, int>>{{true, 1}, {true, 1}, {true, 1}, {false, 2}}));
}

void TestControls::labelSizeAndLines_data()
{
    addColumns<QString, bool, int, int>({"label", "twoLines", "minHeight", "maxHeight"});
    // Digits at 13 pixels stand about 9 rows high, letters at 9 pixels about 6.
    QTest::newRow("fader number at size 10") << QStringLiteral("12") << false << 8 << 12;
    QTest::newRow("word at size 7") << QStringLiteral("Clear") << false << 5 << 8;
    QTest::newRow("two words on two lines") << QStringLiteral("Rec All") << true << 14 << 22;
}

void TestControls::labelSizeAndLines()
{
    auto [label, twoLines, minHeight, maxHeight] =
        fetch<QString, bool, int, int>({"label", "twoLines", "minHeight", "maxHeight"});
    const QImage image = renderItem(*key(label));
    QList<int> rows;
    for (int y = 3; y <= 22; ++y)
        if (!inkBox(image, QRect(4, y, 27, 1), [](QRgb p) { return qGray(p) < 120; }).isEmpty())
            rows << y;
    QVERIFY(!rows.isEmpty());
    const int height = rows.last() - rows.first() + 1;
    QVERIFY2(height >= minHeight && height <= maxHeight, qPrintable(QString::number(height)));
    QCOMPARE(height > rows.size(), twoLines);
    // "Rec" above the middle of the key, "All" below it.
    if (twoLines)
        QVERIFY(rows.first() < 13 && rows.last() > 13);
}

void TestControls::dropdown()
{
    ShownScene shown;
    auto* dropdown = new Dropdown(nullptr, &shown.scene, &m_recorder, QRectF(0, 0, 80, 16), 10,
                                  QColor(255, 0, 0), Qt::AlignLeft);
    dropdown->setText(QStringLiteral("One Shot"));
    const QImage plain = renderItem(*dropdown);
    QVERIFY(!inkBox(plain, QRect(), [](QRgb p) { return p == qRgb(255, 0, 0); }).isEmpty());
    // Hovering underlines the text.
    QGraphicsSceneHoverEvent enter(QEvent::GraphicsSceneHoverEnter);
    shown.scene.sendEvent(dropdown, &enter);
    QVERIFY(renderItem(*dropdown) != plain);
    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    shown.scene.sendEvent(dropdown, &leave);
    QCOMPARE(renderItem(*dropdown), plain);
    // The release asks the owner, with the viewport to place a menu in.
    QVERIFY(shown.show());
    QTest::mousePress(shown.viewport(), Qt::LeftButton, {}, shown.at(QPointF(20, 8)));
    QVERIFY(m_recorder.widgets.isEmpty());
    QTest::mouseRelease(shown.viewport(), Qt::LeftButton, {}, shown.at(QPointF(20, 8)));
    QCOMPARE(m_recorder.widgets, QList<QWidget*>{shown.viewport()});
}

void TestControls::faderDrag_data()
{
    addColumns<float, int, QList<float>>({"start", "up", "reported"});
    QTest::newRow("100 up from a quarter") << 0.25f << 100 << QList<float>{0.5f, 0.75f};
    QTest::newRow("300 up stops at the top") << 0.25f << 300 << QList<float>{1.0f, 1.0f};
    QTest::newRow("100 down stops at the bottom") << 0.25f << -100 << QList<float>{0.0f, 0.0f};
    QTest::newRow("50 down from the top") << 1.0f << -50 << QList<float>{0.875f, 0.75f};
    QTest::newRow("up at the top reports all the same") << 1.0f << 20 << QList<float>{1.0f, 1.0f};
}

void TestControls::faderDrag()
{
    auto [start, up, reported] = fetch<float, int, QList<float>>({"start", "up", "reported"});
    Fader fader(nullptr, &m_scene, &m_recorder, 200, false);
    fader.setPos(100, 50);
    fader.setValue(start, false);
    SceneMouse mouse{m_scene};
    const QPointF grip = fader.mapToScene(QPointF(19, fader.knobRect().top() + 27));
    QVERIFY(mouse.press(grip));
    mouse.move(grip - QPointF(0, up / 2.0));
    mouse.move(grip - QPointF(0, up));
    mouse.release(grip - QPointF(0, up));
    QCOMPARE(m_recorder.values, reported);
    QCOMPARE(fader.value(), reported.last());
    // After the release, moves no longer drag; presses beside the knob never do.
    mouse.move(grip);
    QVERIFY(!mouse.press(fader.mapToScene(QPointF(1, fader.knobRect().center().y()))));
    mouse.move(grip);
    mouse.release(grip);
    QCOMPARE(m_recorder.values.size(), 2);
    // setValue() reports only when asked to and when the value changes.
    fader.setValue(0.5f, false);
    fader.setValue(0.5f, true);
    fader.setValue(0.7f, true);
    QCOMPARE(m_recorder.values.mid(2), QList<float>{0.7f});
}

void TestControls::faderPixels_data()
{
    addColumns<float, QColor, QPoint, QColor>({"value", "colourB", "where", "expected"});
    const QColor none;
    const QColor blue(0, 0, 255);
    // Level 0.5 on a 100-pixel travel: the lit part runs from y 77 down. The
    // level (alpha 164) lies over the track (alpha 36): 36 + 219 * 164 / 255.
    QTest::newRow("groove") << 1.0f << none << QPoint(18, 110) << QColor(60, 60, 60);
    QTest::newRow("single bar lit") << 1.0f << none << QPoint(36, 100) << QColor(0, 177, 0);
    QTest::newRow("single bar track") << 1.0f << none << QPoint(36, 40) << QColor(0, 36, 0);
    QTest::newRow("bar A beside B") << 1.0f << blue << QPoint(30, 100) << QColor(0, 177, 0);
    QTest::newRow("bar B lit") << 1.0f << blue << QPoint(35, 120) << QColor(0, 0, 177);
    QTest::newRow("bar B track") << 1.0f << blue << QPoint(35, 90) << QColor(0, 0, 36);
    // The knob's white centre line, 27 below the knob's top.
    QTest::newRow("knob at the top") << 1.0f << none << QPoint(19, 27) << QColor(255, 255, 255);
    QTest::newRow("knob in the middle") << 0.5f << none << QPoint(19, 77) << QColor(255, 255, 255);
    QTest::newRow("knob at the bottom") << 0.0f << none << QPoint(19, 127) << QColor(255, 255, 255);
}

void TestControls::faderPixels()
{
    auto [value, colourB, where, expected] =
        fetch<float, QColor, QPoint, QColor>({"value", "colourB", "where", "expected"});
    Fader fader(nullptr, nullptr, nullptr, 100, true);
    fader.setValue(value, false);
    fader.setLevelColourA(QColor(0, 255, 0));
    fader.setLevelA(0.5f);
    fader.setLevelColourB(colourB);
    fader.setLevelB(0.25f);
    const QColor seen = renderItem(fader).pixelColor(where);
    // Alpha blending over black rounds by one either way; the knob's line is
    // rebuilt from its stored grey by the image loader.
    const int tolerance = expected == QColor(Qt::white) ? 25 : 1;
    QVERIFY2(qAbs(seen.red() - expected.red()) <= tolerance &&
                 qAbs(seen.green() - expected.green()) <= tolerance &&
                 qAbs(seen.blue() - expected.blue()) <= tolerance,
             qPrintable(seen.name() + QStringLiteral(" instead of ") + expected.name()));
}

void TestControls::scrollBarThumb_data()
{
    addColumns<int, int, int, QRectF>({"lines", "visible", "current", "thumb"});
    QTest::newRow("first line") << 10 << 4 << 0 << QRectF(2, 10, 10, 40);
    QTest::newRow("ten pixels per line") << 10 << 4 << 3 << QRectF(2, 40, 10, 40);
    QTest::newRow("last first line") << 10 << 4 << 6 << QRectF(2, 70, 10, 40);
    QTest::newRow("beyond the end stays in the track") << 10 << 4 << 50 << QRectF(2, 70, 10, 40);
    QTest::newRow("everything visible fills the track") << 3 << 4 << 0 << QRectF(2, 10, 10, 100);
    QTest::newRow("nothing visible stays on top") << 10 << 0 << 5 << QRectF(2, 10, 10, 0);
}

void TestControls::scrollBarThumb()
{
    auto [lines, visible, current, thumb] =
        fetch<int, int, int, QRectF>({"lines", "visible", "current", "thumb"});
    ScrollBar bar(nullptr, QRectF(2, 10, 10, 100));
    bar.setLineCount(lines);
    bar.setVisibleLines(visible);
    QSignalSpy spy(&bar, &ScrollBar::currentLineChanged);
    bar.setCurrentLine(current);
    QCOMPARE(spied(spy), QList<int>{current}); // unclamped, always
    QCOMPARE(bar.thumbRect(), thumb);
    // Track white at alpha 32; the thumb at alpha 60 more on top.
    const QImage image = renderItem(bar);
    for (int y = 1; y < 99; y += 7) {
        const qreal sceneY = y + 10.5;
        if (qAbs(sceneY - thumb.top()) < 3 || qAbs(sceneY - thumb.bottom()) < 3)
            continue;
        const int expected = thumb.contains(QPointF(7, sceneY)) ? 85 : 32;
        QVERIFY2(qAbs(image.pixelColor(5, y).red() - expected) <= 2,
                 qPrintable(QString::number(y)));
    }
}

void TestControls::scrollBarShrinks_data()
{
    addColumns<bool, int, QList<int>>({"viaLineCount", "newCount", "emitted"});
    QTest::newRow("fewer lines") << true << 5 << QList<int>{1};
    QTest::newRow("more visible lines") << false << 8 << QList<int>{2};
    QTest::newRow("still room") << true << 12 << QList<int>{};
    QTest::newRow("all visible") << false << 20 << QList<int>{0};
}

void TestControls::scrollBarShrinks()
{
    auto [viaLineCount, newCount, emitted] =
        fetch<bool, int, QList<int>>({"viaLineCount", "newCount", "emitted"});
    ScrollBar bar(nullptr, QRectF(0, 0, 8, 100));
    bar.setLineCount(10);
    bar.setVisibleLines(4);
    bar.setCurrentLine(6);
    QSignalSpy spy(&bar, &ScrollBar::currentLineChanged);
    if (viaLineCount)
        bar.setLineCount(newCount);
    else
        bar.setVisibleLines(newCount);
    QCOMPARE(spied(spy), emitted);
    QCOMPARE(bar.currentLine(), emitted.isEmpty() ? 6 : emitted.last());
}

void TestControls::scrollBarDrag()
{
    auto* bar = new ScrollBar(nullptr, QRectF(0, 0, 10, 100));
    m_scene.addItem(bar);
    bar->setLineCount(10);
    bar->setVisibleLines(4);
    bar->setCurrentLine(3);
    QSignalSpy spy(bar, &ScrollBar::currentLineChanged);
    SceneMouse mouse{m_scene};
    QVERIFY(!mouse.press(QPointF(5, 90))); // below the thumb
    mouse.release(QPointF(5, 90));
    QVERIFY(mouse.press(QPointF(5, 35)));
    // The thumb follows the mouse; the line moves in whole steps and stops at the ends.
    QList<qreal> tops;
    for (qreal y : {44, 60, 300, -300}) {
        mouse.move(QPointF(5, y));
        tops << bar->thumbRect().top();
    }
    QCOMPARE(tops, (QList<qreal>{39, 55, 60, 0}));
    mouse.release(QPointF(5, -300));
    QVERIFY(!bar->isDragging());
    QCOMPARE(spied(spy), (QList<int>{5, 6, 0, 0}));
    // Nothing to scroll: no drag.
    bar->setLineCount(4);
    spy.clear();
    QVERIFY(!mouse.press(QPointF(5, 10)));
    mouse.release(QPointF(5, 40));
    QVERIFY(spy.isEmpty());
}

LUMIDESK_TEST_MAIN(TestControls)

#include "tst_controls.moc"
