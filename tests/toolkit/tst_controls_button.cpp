// SPDX-License-Identifier: GPL-3.0-or-later
#include "SceneMouse.h"

#include "app/Lumidesk.h"
#include "toolkit/Button.h"
#include "toolkit/ButtonHandler.h"

#include <QGraphicsScene>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

struct CountingHandler : ButtonHandler
{
    void buttonClicked(Button* button) override { clicked << button; }
    QList<Button*> clicked;
};

using Style = Button::ButtonStyle;

// Rows of the image whose pixels are darker than the light key face.
QList<int> inkRows(const QImage& image, const QRect& area)
{
    QList<int> rows;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 120) {
                rows << y;
                break;
            }
        }
    }
    return rows;
}

} // namespace

class TestButton : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ledColourIsMappedIntoTheVisibleRange_data();
    void ledColourIsMappedIntoTheVisibleRange();
    void ledStartsBlackOnConsoleKeysAndWhiteOnIcons();
    void ledColourLightsTheKey();
    void geometryFollowsTheStyle();
    void keyColourBecomesTransparentAndTheRestOpaque();
    void titleBarTextIsDrawnIntoAnIcon();

    void momentaryClick_data();
    void momentaryClick();
    void latchHoldsUntilTheNextPlainRelease_data();
    void latchHoldsUntilTheNextPlainRelease();
    void modifierOnAnotherKeyKeepsTheLatch();
    void pressingTheLatchedKeyReleasesTheLatch();
    void toggleCallsOnThePressDownAndTheReleaseUp();
    void destroyingTheLatchedKeyForgetsTheLatch();

    void labelSizeAndLines_data();
    void labelSizeAndLines();

private:
    Button* consoleKey(const QString& text, QPointF at);

    std::unique_ptr<QGraphicsScene> scene;
    CountingHandler handler;
};

void TestButton::init()
{
    scene = std::make_unique<QGraphicsScene>();
    handler.clicked.clear();
}

void TestButton::cleanup()
{
    scene.reset();
    QCOMPARE(Button::latchedButton(), nullptr);
}

Button* TestButton::consoleKey(const QString& text, QPointF at)
{
    auto* button = new Button(nullptr, scene.get(), &handler, Style::ConsoleTextStyle, text);
    button->setPos(at);
    return button;
}

void TestButton::ledColourIsMappedIntoTheVisibleRange_data()
{
    QTest::addColumn<QColor>("console");
    QTest::addColumn<QColor>("shown");
    QTest::newRow("black is dark grey") << QColor(0, 0, 0) << QColor(65, 65, 65);
    QTest::newRow("white stays white") << QColor(255, 255, 255) << QColor(255, 255, 255);
    QTest::newRow("pink keeps its hue") << QColor(255, 0, 128) << QColor(255, 65, 160);
    QTest::newRow("half grey") << QColor(128, 128, 128) << QColor(160, 160, 160);
    QTest::newRow("alpha is dropped") << QColor(0, 255, 0, 10) << QColor(65, 255, 65, 255);
}

void TestButton::ledColourIsMappedIntoTheVisibleRange()
{
    QFETCH(QColor, console);
    QFETCH(QColor, shown);
    Button* key = consoleKey(QStringLiteral("Go"), {});
    key->setLedColour(console);
    QCOMPARE(key->ledColour(), shown);
}

void TestButton::ledStartsBlackOnConsoleKeysAndWhiteOnIcons()
{
    Button* key = consoleKey(QStringLiteral("Go"), {});
    QCOMPARE(key->ledColour(), QColor(65, 65, 65));
    Button icon(nullptr, scene.get(), &handler, Style::ConsoleIconStyle, false,
                QStringLiteral(":/Lumidesk/Resources/FaderZeroButton.png"), QColor(78, 78, 78));
    QCOMPARE(icon.ledColour(), QColor(Qt::white));
}

void TestButton::ledColourLightsTheKey()
{
    // The key face is translucent: a red LED shows through it, an unlit one
    // leaves it grey.
    Button* key = consoleKey(QString(), {});
    const QImage unlit = renderItem(*key);
    key->setLedColour(Qt::red);
    const QImage lit = renderItem(*key);
    const QPoint face(8, 20);
    const QColor grey = unlit.pixelColor(face);
    const QColor red = lit.pixelColor(face);
    QVERIFY2(qAbs(grey.red() - grey.green()) < 8, qPrintable(grey.name()));
    QVERIFY2(red.red() > red.green() + 60, qPrintable(red.name()));
    QCOMPARE(red.green(), grey.green());
}

void TestButton::geometryFollowsTheStyle()
{
    Button* key = consoleKey(QStringLiteral("Go"), {});
    QCOMPARE(key->boundingRect(), QRectF(0, 0, 35, 26));
    Button wide(nullptr, scene.get(), &handler, Style::TitleBarStyle, false,
                QStringLiteral(":/Lumidesk/Resources/TitleBarIFCBFxButton.png"),
                QColor(78, 78, 78));
    QCOMPARE(wide.boundingRect(), QRectF(0, 0, 66, 27));
    Button text(nullptr, scene.get(), &handler, Style::TitleBarStyle, QStringLiteral("de"));
    QCOMPARE(text.boundingRect(), QRectF(0, 0, 27, 27));
    Button iconKey(nullptr, scene.get(), &handler, Style::ConsoleIconStyle, false,
                   QStringLiteral(":/Lumidesk/Resources/FaderZeroButton.png"), QColor(78, 78, 78));
    QCOMPARE(iconKey.boundingRect(), QRectF(0, 0, 35, 26));
}

void TestButton::keyColourBecomesTransparentAndTheRestOpaque()
{
    QTemporaryDir dir;
    QImage source(3, 1, QImage::Format_ARGB32);
    source.setPixel(0, 0, qRgba(78, 78, 78, 255));
    source.setPixel(1, 0, qRgba(200, 10, 10, 90));
    source.setPixel(2, 0, qRgba(78, 78, 79, 255));
    const QString path = dir.filePath(QStringLiteral("icon.png"));
    QVERIFY(source.save(path));

    // Drawn with the pressed look the icon sits at (1, 1), over nothing but
    // the background image's transparent outside... so look at the icon
    // through a title-bar button without backgrounds: render on blue.
    Button button(nullptr, scene.get(), &handler, Style::TitleBarStyle, false, path,
                  QColor(78, 78, 78));
    QImage image(3, 27, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    QPainter painter(&image);
    button.paint(&painter, nullptr, nullptr);
    painter.end();
    // The face of the title-bar background lies under the keyed pixel.
    QVERIFY(image.pixelColor(0, 0) != QColor(78, 78, 78));
    QCOMPARE(image.pixelColor(1, 0), QColor(200, 10, 10));
    QCOMPARE(image.pixelColor(2, 0), QColor(78, 78, 79));
}

void TestButton::titleBarTextIsDrawnIntoAnIcon()
{
    Button text(nullptr, scene.get(), &handler, Style::TitleBarStyle, QStringLiteral("fr"));
    QVERIFY(text.text().isEmpty());
    const QImage image = renderItem(text);
    int label = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            label += image.pixelColor(x, y) == QColor(163, 163, 163);
    QVERIFY2(label > 8, qPrintable(QString::number(label)));
}

void TestButton::momentaryClick_data()
{
    QTest::addColumn<bool>("track");
    QTest::addColumn<QPointF>("releaseAt");
    QTest::addColumn<int>("clicks");
    QTest::newRow("released inside") << true << QPointF(20, 12) << 1;
    QTest::newRow("released outside, tracked") << true << QPointF(80, 12) << 0;
    QTest::newRow("released outside, not tracked") << false << QPointF(80, 12) << 1;
}

void TestButton::momentaryClick()
{
    QFETCH(bool, track);
    QFETCH(QPointF, releaseAt);
    QFETCH(int, clicks);
    Button* key = consoleKey(QStringLiteral("Go"), QPointF(10, 0));
    key->setTrackMouse(track);
    SceneMouse mouse(*scene);
    QVERIFY(mouse.press(QPointF(20, 12)));
    QVERIFY(key->isDown());
    mouse.move(releaseAt);
    mouse.release(releaseAt);
    QVERIFY(!key->isDown());
    QCOMPARE(handler.clicked.size(), clicks);
}

void TestButton::latchHoldsUntilTheNextPlainRelease_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifier");
    QTest::newRow("shift") << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("ctrl") << Qt::KeyboardModifiers(Qt::ControlModifier);
}

void TestButton::latchHoldsUntilTheNextPlainRelease()
{
    QFETCH(Qt::KeyboardModifiers, modifier);
    Button* held = consoleKey(QStringLiteral("Rec"), QPointF(0, 0));
    Button* other = consoleKey(QStringLiteral("1"), QPointF(40, 0));
    held->setLatchable(true);
    SceneMouse mouse(*scene);

    mouse.click(QPointF(10, 10), modifier);
    QVERIFY(held->isDown());
    QCOMPARE(Button::latchedButton(), held);

    mouse.press(QPointF(50, 10));
    QVERIFY(other->isDown());
    QVERIFY(held->isDown());
    mouse.release(QPointF(50, 10));
    QVERIFY(!other->isDown());
    QVERIFY(!held->isDown());
    QCOMPARE(Button::latchedButton(), nullptr);
    QCOMPARE(handler.clicked.size(), 0);
}

void TestButton::modifierOnAnotherKeyKeepsTheLatch()
{
    Button* held = consoleKey(QStringLiteral("Rec"), QPointF(0, 0));
    Button* other = consoleKey(QStringLiteral("1"), QPointF(40, 0));
    held->setLatchable(true);
    other->setLatchable(true);
    SceneMouse mouse(*scene);
    mouse.click(QPointF(10, 10), Qt::ShiftModifier);
    mouse.click(QPointF(50, 10), Qt::ShiftModifier);
    QVERIFY(held->isDown());
    QVERIFY(!other->isDown());
    QCOMPARE(Button::latchedButton(), held);
    QCOMPARE(handler.clicked.size(), 0);
    mouse.click(QPointF(50, 10));
    QVERIFY(!held->isDown());
}

void TestButton::pressingTheLatchedKeyReleasesTheLatch()
{
    Button* held = consoleKey(QStringLiteral("Rec"), QPointF(0, 0));
    held->setLatchable(true);
    SceneMouse mouse(*scene);
    mouse.click(QPointF(10, 10), Qt::ShiftModifier);
    QCOMPARE(Button::latchedButton(), held);
    mouse.press(QPointF(10, 10));
    QCOMPARE(Button::latchedButton(), nullptr);
    QVERIFY(held->isDown());
    mouse.release(QPointF(10, 10));
    QVERIFY(!held->isDown());
    QCOMPARE(handler.clicked, QList<Button*>{held});
}

void TestButton::toggleCallsOnThePressDownAndTheReleaseUp()
{
    Button toggle(nullptr, scene.get(), &handler, Style::TitleBarStyle, true,
                  QStringLiteral(":/Lumidesk/Resources/TitleBarMapleConsoleButton.png"),
                  QColor(78, 78, 78));
    SceneMouse mouse(*scene);
    mouse.press(QPointF(10, 10));
    QVERIFY(toggle.isDown());
    QCOMPARE(handler.clicked.size(), 1);
    mouse.release(QPointF(10, 10));
    QVERIFY(toggle.isDown());
    QCOMPARE(handler.clicked.size(), 1);
    mouse.press(QPointF(10, 10));
    QVERIFY(toggle.isDown());
    QCOMPARE(handler.clicked.size(), 1);
    mouse.release(QPointF(10, 10));
    QVERIFY(!toggle.isDown());
    QCOMPARE(handler.clicked.size(), 2);
}

void TestButton::destroyingTheLatchedKeyForgetsTheLatch()
{
    Button* held = consoleKey(QStringLiteral("Rec"), QPointF(0, 0));
    held->setLatchable(true);
    SceneMouse(*scene).click(QPointF(10, 10), Qt::ShiftModifier);
    QCOMPARE(Button::latchedButton(), held);
    delete held;
    QCOMPARE(Button::latchedButton(), nullptr);
}

void TestButton::labelSizeAndLines_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("twoLines");
    QTest::addColumn<int>("minHeight");
    QTest::addColumn<int>("maxHeight");
    // Digits at 13 pixels stand about 9 rows high, letters at 9 pixels about 6.
    QTest::newRow("fader number at size 10") << QStringLiteral("12") << false << 8 << 12;
    QTest::newRow("word at size 7") << QStringLiteral("Clear") << false << 5 << 8;
    QTest::newRow("two words on two lines") << QStringLiteral("Rec All") << true << 14 << 22;
}

void TestButton::labelSizeAndLines()
{
    QFETCH(QString, label);
    QFETCH(bool, twoLines);
    QFETCH(int, minHeight);
    QFETCH(int, maxHeight);
    Button* key = consoleKey(label, {});
    const QImage image = renderItem(*key);
    const QList<int> rows = inkRows(image, QRect(4, 3, 27, 20));
    QVERIFY(!rows.isEmpty());
    const int height = rows.last() - rows.first() + 1;
    QVERIFY2(height >= minHeight && height <= maxHeight, qPrintable(QString::number(height)));
    bool gap = false;
    for (int i = 1; i < rows.size(); ++i)
        gap = gap || rows[i] - rows[i - 1] > 1;
    QCOMPARE(gap, twoLines);
    if (twoLines) {
        // "Rec" above the middle of the key, "All" below it.
        QVERIFY(rows.first() < 13);
        QVERIFY(rows.last() > 13);
    }
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestButton test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_controls_button.moc"
