// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "ConsoleFader.h"
#include "ConsoleWheel.h"
#include "FrontPanel.h"
#include "Lumidesk.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <algorithm>

namespace {
QImage renderKey(Button* key)
{
    QImage image(35, 26, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    key->paint(&painter, nullptr, nullptr);
    return image;
}
} // namespace

class TestFrontPanelControls : public QObject
{
    Q_OBJECT

private slots:
    void keySendsPressAndRelease();
    void setDownSendsEvenWithoutChange();
    void ledColoursAreStoredRedBlueGreen_data();
    void ledColoursAreStoredRedBlueGreen();
    void ledBlinksBetweenDifferentColours();
    void ledWithEqualColoursIgnoresBlink();
    void ledFollowsConsoleSignals();
    void faderDragSendsLevels_data();
    void faderDragSendsLevels();
    void faderSendsOnEveryMoveOfADrag();
    void mastersStartAtTheTop();
    void wheelSendsStepsPerTwelvePixels();
    void wheelDragDownSendsNegativeSteps();
    void displaySubstitutesCharacters_data();
    void displaySubstitutesCharacters();
    void displayDrawsBarCells_data();
    void displayDrawsBarCells();
    void displayReadsTheRecord();
};

void TestFrontPanelControls::keySendsPressAndRelease()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 73, QStringLiteral("Undo"));
    key->setPos(100, 50);
    SceneView view(&scene);
    view.press(QPointF(115, 60));
    QCOMPARE(key->isDown(), true);
    view.release(QPointF(115, 60));
    QCOMPARE(key->isDown(), false);
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, 73, 0, 1),
                                eventBytes(PanelEvent::PanelButton, 73, 0, 0)}));
    // The record's layout of one event: kind, control, value, padding, state.
    QCOMPARE(eventBytes(PanelEvent::PanelButton, 73, 0, 1).toHex(), QByteArray("0100000049000000"
                                                                               "01000000"));
}

void TestFrontPanelControls::setDownSendsEvenWithoutChange()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    ConsoleButton key(nullptr, &scene, 300, QStringLiteral("X"));
    key.setDown(false);
    key.setDown(false);
    // Only the low 8 bits of the number travel.
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, 44, 0, 0),
                                eventBytes(PanelEvent::PanelButton, 44, 0, 0)}));
    scene.removeItem(&key);
}

void TestFrontPanelControls::ledColoursAreStoredRedBlueGreen_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("red") << QByteArray("\xff\x00\x00", 3) << QColor(255, 0, 0);
    QTest::newRow("second byte is blue") << QByteArray("\x00\xff\x00", 3) << QColor(0, 0, 255);
    QTest::newRow("third byte is green") << QByteArray("\x00\x00\xff", 3) << QColor(0, 255, 0);
    QTest::newRow("mixed") << QByteArray("\x10\x20\x30", 3) << QColor(0x10, 0x30, 0x20);
}

void TestFrontPanelControls::ledColoursAreStoredRedBlueGreen()
{
    QFETCH(QByteArray, stored);
    QFETCH(QColor, colour);
    PanelConsole console(ConsoleCache::ModelAlder);
    LedRecord& led = console.record()->leds[86];
    std::memcpy(led.on, stored.constData(), 3);
    std::memcpy(led.off, stored.constData(), 3);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 86, QString());
    QCOMPARE(key->onColour(), colour);
    QCOMPARE(key->ledColour(), Button::shownLedColour(colour));

    // The LED lights the key's face: its strongest channel is the colour's.
    key->setLedColour(QColor(0, 0, 0));
    const QImage dark = renderKey(key);
    key->setLedColour(colour);
    const QImage lit = renderKey(key);
    int gain[3] = {0, 0, 0};
    for (int y = 4; y < 22; ++y) {
        for (int x = 5; x < 30; ++x) {
            gain[0] += qRed(lit.pixel(x, y)) - qRed(dark.pixel(x, y));
            gain[1] += qGreen(lit.pixel(x, y)) - qGreen(dark.pixel(x, y));
            gain[2] += qBlue(lit.pixel(x, y)) - qBlue(dark.pixel(x, y));
        }
    }
    const int expected[3] = {colour.red(), colour.green(), colour.blue()};
    QCOMPARE(int(std::max_element(gain, gain + 3) - gain),
             int(std::max_element(expected, expected + 3) - expected));
}

void TestFrontPanelControls::ledBlinksBetweenDifferentColours()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    LedRecord& led = console.record()->leds[95];
    const quint8 on[3] = {0, 0, 200}; // green
    const quint8 off[3] = {40, 0, 0}; // dim red
    std::memcpy(led.on, on, 3);
    std::memcpy(led.off, off, 3);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 95, QStringLiteral("Ind 1"));
    QVERIFY(key->isBlinking());
    const QColor black = Button::shownLedColour(Qt::black);
    QCOMPARE(key->ledColour(), black); // left to the blink ticks
    key->consoleButtonBlink(true);
    QCOMPARE(key->ledColour(), Button::shownLedColour(QColor(0, 200, 0)));
    key->consoleButtonBlink(false);
    QCOMPARE(key->ledColour(), Button::shownLedColour(QColor(40, 0, 0)));
}

void TestFrontPanelControls::ledWithEqualColoursIgnoresBlink()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    LedRecord& led = console.record()->leds[87];
    const quint8 colour[3] = {200, 10, 20};
    std::memcpy(led.on, colour, 3);
    std::memcpy(led.off, colour, 3);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 87, QStringLiteral("Black Out"));
    const QColor steady = Button::shownLedColour(QColor(200, 20, 10));
    QCOMPARE(key->ledColour(), steady);
    key->consoleButtonBlink(false);
    QCOMPARE(key->ledColour(), steady);
    key->consoleButtonBlink(true);
    QCOMPARE(key->ledColour(), steady);
}

void TestFrontPanelControls::ledFollowsConsoleSignals()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 63, QStringLiteral("Mems"));
    LedRecord& led = console.record()->leds[63];
    const quint8 on[3] = {255, 0, 255};
    std::memcpy(led.on, on, 3);
    std::memcpy(led.off, on, 3);
    console.notify(ConsoleCode::LedsChanged);
    QCOMPARE(key->ledColour(), Button::shownLedColour(QColor(255, 255, 0)));

    const quint8 off[3] = {0, 0, 0};
    std::memcpy(led.off, off, 3);
    console.notify(ConsoleCode::LedsChanged);
    emit console.console->buttonBlink(false);
    QCoreApplication::processEvents();
    QCOMPARE(key->ledColour(), Button::shownLedColour(Qt::black));
    emit console.console->buttonBlink(true);
    QCoreApplication::processEvents();
    QCOMPARE(key->ledColour(), Button::shownLedColour(QColor(255, 255, 0)));
}

void TestFrontPanelControls::faderDragSendsLevels_data()
{
    QTest::addColumn<int>("travel");
    QTest::addColumn<int>("pixelsUp");
    QTest::addColumn<int>("level");
    QTest::newRow("to the top") << 110 << 110 << 255;
    QTest::newRow("past the top") << 110 << 200 << 255;
    QTest::newRow("half way") << 110 << 55 << 127;
    QTest::newRow("half of a master") << 128 << 64 << 127;
    QTest::newRow("one pixel") << 110 << 1 << 2;
    QTest::newRow("no move") << 110 << 0 << 0;
}

void TestFrontPanelControls::faderDragSendsLevels()
{
    QFETCH(int, travel);
    QFETCH(int, pixelsUp);
    QFETCH(int, level);
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* fader = new ConsoleFader(nullptr, &scene, 50, travel, false, false);
    fader->setPos(20, 20);
    SceneView view(&scene);
    const QPointF knob = fader->mapToScene(fader->knobRect().center());
    view.press(knob);
    view.move(knob - QPointF(0, pixelsUp));
    view.release(knob - QPointF(0, pixelsUp));
    QCOMPARE(allEventBytes(console.engine),
             QList<QByteArray>{eventBytes(PanelEvent::PanelFader, 50, level, 0)});
}

void TestFrontPanelControls::faderSendsOnEveryMoveOfADrag()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* fader = new ConsoleFader(nullptr, &scene, 7, 110, false, false);
    SceneView view(&scene);
    const QPointF knob = fader->mapToScene(fader->knobRect().center());
    view.press(knob);
    view.move(knob - QPointF(0, 110));
    view.move(knob - QPointF(0, 110)); // held still: the level is sent again
    view.move(knob - QPointF(0, 300));
    view.release(knob);
    const QByteArray full = eventBytes(PanelEvent::PanelFader, 7, 255, 0);
    QCOMPARE(allEventBytes(console.engine), (QList<QByteArray>{full, full, full}));
}

void TestFrontPanelControls::mastersStartAtTheTop()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    for (int number : {47, 48, 49, 50}) {
        auto* fader = new ConsoleFader(nullptr, &scene, number, 127, false, false);
        QCOMPARE(fader->value(), number == 48 || number == 49 ? 1.0f : 0.0f);
    }
    QVERIFY(console.engine.panelEvents().isEmpty());
}

void TestFrontPanelControls::wheelSendsStepsPerTwelvePixels()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    QGraphicsScene scene;
    auto* wheel = new ConsoleWheel(nullptr, &scene, 2);
    wheel->setPos(100, 100);
    SceneView view(&scene);
    const QPointF start(141, 141);
    view.press(start);
    view.move(start - QPointF(0, 11));
    QVERIFY(console.engine.panelEvents().isEmpty());
    QCOMPARE(wheel->remainder(), 11);
    view.move(start - QPointF(0, 12));
    QCOMPARE(allEventBytes(console.engine),
             QList<QByteArray>{eventBytes(PanelEvent::PanelWheel, 2, 1, 0)});
    QCOMPARE(wheel->remainder(), 0);
    view.release(start - QPointF(0, 12));
}

void TestFrontPanelControls::wheelDragDownSendsNegativeSteps()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    QGraphicsScene scene;
    auto* wheel = new ConsoleWheel(nullptr, &scene, 0);
    SceneView view(&scene);
    const float angle = wheel->angle();
    view.press(QPointF(41, 20));
    view.move(QPointF(41, 50));
    QCOMPARE(allEventBytes(console.engine),
             QList<QByteArray>{eventBytes(PanelEvent::PanelWheel, 0, 0xFE, 0)});
    QCOMPARE(wheel->remainder(), -6);
    // One degree per pixel, turning back for a downward drag.
    QCOMPARE(qRound((angle - wheel->angle()) * 180.0f / 3.1415f), 30);
    view.release(QPointF(41, 50));
}

void TestFrontPanelControls::displaySubstitutesCharacters_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QStringLiteral("Mem 1") << QStringLiteral("Mem 1");
    QTest::newRow("cedilla") << QStringLiteral("Fa\x03"
                                               "ade")
                             << QStringLiteral("Façade");
    QTest::newRow("both n tildes") << QString::fromLatin1("a\x07o a\xee"
                                                          "o")
                                   << QStringLiteral("año año");
    QTest::newRow("vowel codes") << QStringLiteral("\x10\x11\x1a\x1b\x1d\x1c")
                                 << QStringLiteral("aAeEou");
    QTest::newRow("umlauts") << QString::fromLatin1("\xf5\xe1\x14\xef") << QStringLiteral("üäÄö");
}

void TestFrontPanelControls::displaySubstitutesCharacters()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    FrontPanel::Display display(nullptr);
    display.setLine(1, stored);
    QCOMPARE(display.line(1), shown);
    QCOMPARE(display.line(0), QString());
}

void TestFrontPanelControls::displayDrawsBarCells_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("cell");
    QTest::addColumn<int>("line");
    QTest::newRow("0x83 is 4 high") << 0x83 << 0 << 0;
    QTest::newRow("0x7F is empty") << 0x7F << 3 << 0;
    QTest::newRow("0x86 is 7 high") << 0x86 << 19 << 1;
    QTest::newRow("after NUL cells") << 0x80 << 19 << 0;
}

void TestFrontPanelControls::displayDrawsBarCells()
{
    QFETCH(int, code);
    QFETCH(int, cell);
    QFETCH(int, line);
    FrontPanel::Display display(nullptr);
    QString text(FrontPanel::Display::charactersPerLine, QChar(0));
    text[cell] = QChar(code);
    display.setLine(line, text);

    QImage image(170, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    display.paint(&painter, nullptr, nullptr);
    painter.end();

    const int baseline = line == 0 ? 15 : 29;
    const int left = 4 + cell * FrontPanel::Display::pitch;
    const int height = code - 0x7F;
    int blackColumns = 0;
    for (int x = left - 1; x <= left + FrontPanel::Display::pitch; ++x) {
        int black = 0;
        for (int y = 0; y < 30; ++y)
            black += image.pixel(x, y) == qRgb(0, 0, 0);
        if (black) {
            QCOMPARE(black, height);
            QCOMPARE(image.pixel(x, baseline - 1), qRgb(0, 0, 0));
            QCOMPARE(image.pixel(x, baseline - 1 - height), qRgb(255, 255, 255));
            ++blackColumns;
        }
    }
    QCOMPARE(blackColumns, height ? 5 : 0);
}

void TestFrontPanelControls::displayReadsTheRecord()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    std::memcpy(console.record()->lcdDisplays[1][0], "Select channel\x83   ok", 20);
    std::memcpy(console.record()->lcdDisplays[1][1],
                "Fa\x03"
                "ade",
                6);
    FrontPanel panel;
    QVERIFY(panel.display(1));
    QCOMPARE(panel.display(1)->line(0), QString::fromLatin1("Select channel\x83   ok"));
    QCOMPARE(panel.display(1)->line(1).size(), 20);
    QVERIFY(panel.display(1)->line(1).startsWith(QStringLiteral("Façade")));

    std::memcpy(console.record()->lcdDisplays[0][0], "Page 2              ", 20);
    console.notify(ConsoleCode::DisplayChanged, 0);
    QCOMPARE(panel.display(0)->line(0), QStringLiteral("Page 2              "));
    QCOMPARE(panel.display(1)->line(0), QString::fromLatin1("Select channel\x83   ok"));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFrontPanelControls test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frontpanel_controls.moc"
