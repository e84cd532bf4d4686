// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "ConsoleFader.h"
#include "ConsoleWheel.h"
#include "FrontPanel.h"
#include "LumideskTestMain.h"

class TestFrontPanelControls : public QObject
{
    Q_OBJECT

private slots:
    void keySendsEveryCall();
    void ledShowsTheConsoleColours();
    void dragsSendEvents_data();
    void dragsSendEvents();
    void displayDrawsCellsInBlack_data();
    void displayDrawsCellsInBlack();
    void displayReadsTheRecord();
};

void TestFrontPanelControls::keySendsEveryCall()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    ConsoleButton key(nullptr, nullptr, 300, QStringLiteral("X")); // 8 bits travel: 44
    key.setDown(true);
    key.setDown(false);
    key.setDown(false); // also a state that does not change
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, 44, 0, 1),
                                eventBytes(PanelEvent::PanelButton, 44, 0, 0),
                                eventBytes(PanelEvent::PanelButton, 44, 0, 0)}));
}

void TestFrontPanelControls::ledShowsTheConsoleColours()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* key = new ConsoleButton(nullptr, &scene, 63, QStringLiteral("Mems"));
    const auto stored = [&](const char* onThenOff) {
        std::memcpy(&console.record()->leds[63], onThenOff, 6);
        console.notify(ConsoleCode::LedsChanged);
    };
    const auto afterBlink = [&](bool lit) {
        emit console.console->buttonBlink(lit);
        QCoreApplication::processEvents();
        return key->ledColour();
    };
    // Equal colours, stored red, blue, green, are steady.
    stored("\x10\x20\x30\x10\x20\x30");
    const QColor steady = Button::shownLedColour(QColor(16, 48, 32));
    QCOMPARE(key->ledColour(), steady);
    QCOMPARE(afterBlink(false), steady);
    // Different colours wait for the blink ticks.
    stored("\0\0\xc8\x28\0\0");
    QCOMPARE(key->ledColour(), steady);
    QCOMPARE(afterBlink(true), Button::shownLedColour(QColor(0, 200, 0)));
    QCOMPARE(afterBlink(false), Button::shownLedColour(QColor(40, 0, 0)));
}

struct DragCase
{
    const char* name;
    int travel;       // of a fader; 0 for a wheel
    QList<int> moves; // mouse y of each move, from the press
    QList<int> sent;  // levels or steps
    int remainder;    // of the wheel
};

void TestFrontPanelControls::dragsSendEvents_data()
{
    const DragCase cases[] = {
        {"fader to the top", 110, {-110}, {255}, 0},
        {"fader past the top", 110, {-200}, {255}, 0},
        {"fader half way", 110, {-55}, {127}, 0},
        {"master half way", 128, {-64}, {127}, 0},
        {"fader one pixel", 110, {-1}, {2}, 0},
        {"fader held still, sent again", 110, {-110, -110, -300}, {255, 255, 255}, 0},
        {"wheel 11 up sends nothing", 0, {-11}, {}, 11},
        {"wheel one more sends +1", 0, {-11, -12}, {1}, 0},
        {"wheel 30 down sends -2", 0, {30}, {-2}, -6},
    };
    addRows(cases);
}

void TestFrontPanelControls::dragsSendEvents()
{
    QFETCH(DragCase, c);
    PanelConsole console(ConsoleCache::ModelMaple);
    QGraphicsScene scene;
    ConsoleWheel* wheel = c.travel ? nullptr : new ConsoleWheel(nullptr, &scene, 50);
    QPointF grip(41, 41);
    if (c.travel) {
        auto* fader = new ConsoleFader(nullptr, &scene, 50, c.travel, false, false);
        grip = fader->mapToScene(fader->knobRect().center());
    }
    const float angle = wheel ? wheel->angle() : 0.0f;
    SceneView view(&scene);
    view.press(grip);
    for (const int y : c.moves)
        view.move(grip + QPointF(0, y));
    view.release(grip + QPointF(0, c.moves.last()));
    QList<QByteArray> expected;
    for (const int value : c.sent)
        expected << eventBytes(wheel ? PanelEvent::PanelWheel : PanelEvent::PanelFader, 50,
                               quint8(qint8(value)), 0);
    QCOMPARE(allEventBytes(console.engine), expected);
    if (!wheel)
        return;
    QCOMPARE(wheel->remainder(), c.remainder);
    // One degree per pixel, forward for an upward drag.
    QCOMPARE(qRound((angle - wheel->angle()) * 180.0f / 3.1415f), c.moves.last());
}

struct CellCase
{
    const char* name;
    int code, cell, line;
    int barHeight; // -1: a glyph
};

void TestFrontPanelControls::displayDrawsCellsInBlack_data()
{
    const CellCase cases[] = {{"0x83 is 4 high", 0x83, 0, 0, 4},
                              {"0x7F is empty", 0x7F, 3, 0, 0},
                              {"0x86 is 7 high", 0x86, 19, 1, 7},
                              {"after NUL cells", 0x80, 19, 0, 1},
                              {"a letter", 'M', 5, 1, -1}};
    addRows(cases);
}

void TestFrontPanelControls::displayDrawsCellsInBlack()
{
    QFETCH(CellCase, c);
    FrontPanel::Display display(nullptr);
    QString text(FrontPanel::Display::charactersPerLine, QChar(0));
    text[c.cell] = QChar(c.code);
    display.setLine(c.line, text);
    // Over the LCD's light glass, with the light pen of a dark palette.
    const QImage image = paintedItem(&display, QRect(0, 0, 170, 30), Qt::white, Qt::white);
    // A bar stands on the baseline, 5 pixels wide from the cell's second.
    const int left = 4 + c.cell * FrontPanel::Display::pitch;
    const QRect bar(left + 1, (c.line ? 29 : 15) - c.barHeight, 5, c.barHeight);
    int black = 0;
    int barBlack = 0;
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = left - 1; x <= left + FrontPanel::Display::pitch; ++x) {
            black += image.pixel(x, y) == qRgb(0, 0, 0);
            barBlack += image.pixel(x, y) == qRgb(0, 0, 0) && bar.contains(x, y);
            dark += qGray(image.pixel(x, y)) < 128;
        }
    }
    if (c.barHeight < 0) {
        QVERIFY2(dark > 10, "the letter is drawn in dark ink");
    } else {
        QCOMPARE(black, 5 * c.barHeight);
        QCOMPARE(barBlack, black);
    }
}

void TestFrontPanelControls::displayReadsTheRecord()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    std::memcpy(console.record()->lcdDisplays[1][0], "Select channel\x83   ok", 20);
    std::memcpy(console.record()->lcdDisplays[1][1], "Fa\003ade \365\020", 9);
    FrontPanel panel;
    QVERIFY(panel.display(1));
    QCOMPARE(panel.display(1)->line(0), QString::fromLatin1("Select channel\x83   ok"));
    QCOMPARE(panel.display(1)->line(1), QStringLiteral("Façade üa") + QString(11, QChar(0)));

    std::memcpy(console.record()->lcdDisplays[0][0], "Page 2              ", 20);
    console.notify(ConsoleCode::DisplayChanged, 0);
    QCOMPARE(panel.display(0)->line(0), QStringLiteral("Page 2              "));
    QCOMPARE(panel.display(1)->line(0), QString::fromLatin1("Select channel\x83   ok"));
}

LUMIDESK_TEST_MAIN(TestFrontPanelControls)

#include "tst_frontpanel_controls.moc"
