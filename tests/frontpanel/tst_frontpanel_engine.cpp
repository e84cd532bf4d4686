// SPDX-License-Identifier: GPL-3.0-or-later
// The front panel against the simulated console: keys, faders and wheels
// pressed with the mouse change the console, and what the console shows
// comes back to the panel.
#include "PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleFader.h"
#include "ConsoleWheel.h"
#include "EngineSession.h"
#include "FaderBlock.h"
#include "FrontPanel.h"
#include "LumideskTestMain.h"

#include <QTest>

namespace {

template <typename Item> Item* panelItem(FrontPanel& panel, int (Item::*number)() const, int wanted)
{
    const QList<QGraphicsItem*> items = panel.panelScene()->items();
    for (QGraphicsItem* item : items) {
        auto* found = dynamic_cast<Item*>(item);
        if (found && !item->parentItem() && (found->*number)() == wanted)
            return found;
    }
    return nullptr;
}

// The steady colour the console keeps for a key's LED (red, blue, green).
QColor recordLed(const Console* console, int key)
{
    const LedRecord& led = console->cache()->record()->leds[key];
    return QColor(led.on[0], led.on[2], led.on[1]);
}

// Lit in a warm yellow-orange: red and green up, no blue.
bool isYellow(const QColor& colour)
{
    return colour.red() > 200 && colour.green() > 100 && colour.blue() < 60;
}

} // namespace

class TestFrontPanelEngine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void lcdShowsTheConsoleAtOnce();
    void modeKeyChangesTheConsoleAndComesBack();
    void channelFaderSetsTheChannelLevel();
    void blackOutBlinks();
    void wheelMovesTheStacksNextCue();

private:
    void click(ConsoleButton* key);

    std::unique_ptr<EngineSession> session;
    Console* console = nullptr;
    FrontPanel* panel = nullptr;
};

void TestFrontPanelEngine::initTestCase()
{
    session =
        std::make_unique<EngineSession>(QStringLiteral("glowEngine"), ConsoleCache::ModelAlder);
    console = session->console();
    ConsoleLink::setConsole(console);
    panel = new FrontPanel;
    panel->show();
    QVERIFY(session->step());
}

void TestFrontPanelEngine::cleanupTestCase()
{
    delete panel;
    ConsoleLink::setConsole(nullptr);
    session.reset();
}

void TestFrontPanelEngine::click(ConsoleButton* key)
{
    QVERIFY(key);
    const QPoint at = panel->mapFromScene(key->sceneBoundingRect().center());
    // Settled after each half, so that the panel never reads the record
    // while the engine is still writing the answer to the other half.
    QTest::mousePress(panel->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(session->step());
    QTest::mouseRelease(panel->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(session->step());
}

void TestFrontPanelEngine::lcdShowsTheConsoleAtOnce()
{
    QVERIFY(panel->display(0));
    QCOMPARE(panel->display(0)->line(0),
             QString::fromLatin1(
                 reinterpret_cast<const char*>(console->cache()->record()->lcdDisplays[0][0]), 20));
    QVERIFY2(panel->display(0)->line(0).startsWith(QStringLiteral("CH 1-24")),
             qPrintable(panel->display(0)->line(0)));
}

void TestFrontPanelEngine::modeKeyChangesTheConsoleAndComesBack()
{
    ConsoleButton* mems = panelItem(*panel, &ConsoleButton::buttonNumber, 63);
    click(mems);
    const ConsoleStateRecord* record = console->cache()->record();
    QCOMPARE(record->liveMode, 1u);
    QVERIFY2(panel->display(0)->line(0).contains(QStringLiteral("MEMS")),
             qPrintable(panel->display(0)->line(0)));
    QVERIFY(isYellow(recordLed(console, 63)));
    QCOMPARE(mems->ledColour(), Button::shownLedColour(recordLed(console, 63)));
    QCOMPARE(panel->faderBlocks().first()->faderMode(), 5);

    ConsoleButton* bank = panelItem(*panel, &ConsoleButton::buttonNumber, 65);
    click(bank);
    QCOMPARE(record->liveMode, 0u);
    QVERIFY(isYellow(recordLed(console, 65)));
    QCOMPARE(bank->ledColour(), Button::shownLedColour(recordLed(console, 65)));
    QVERIFY(!isYellow(recordLed(console, 63)));
    QCOMPARE(mems->ledColour(), Button::shownLedColour(recordLed(console, 63)));
    QCOMPARE(panel->faderBlocks().first()->faderMode(), 0);
}

void TestFrontPanelEngine::channelFaderSetsTheChannelLevel()
{
    click(panelItem(*panel, &ConsoleButton::buttonNumber, 65)); // channels 1-24
    ConsoleFader* fader = panel->faderBlocks().first()->fader(3);
    const QPoint knob = panel->mapFromScene(fader->mapToScene(fader->knobRect().center()));
    QTest::mousePress(panel->viewport(), Qt::LeftButton, Qt::NoModifier, knob);
    QMouseEvent move(QEvent::MouseMove, knob - QPoint(0, 48),
                     panel->viewport()->mapToGlobal(knob - QPoint(0, 48)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(panel->viewport(), &move);
    QTest::mouseRelease(panel->viewport(), Qt::LeftButton, Qt::NoModifier, knob - QPoint(0, 48));
    QVERIFY(session->step());
    QCOMPARE(fader->value(), 0.5f);
    QCOMPARE(int(console->cache()->record()->channelLevels[3]), 127);
}

void TestFrontPanelEngine::blackOutBlinks()
{
    ConsoleButton* blackOut = panelItem(*panel, &ConsoleButton::buttonNumber, 87);
    click(blackOut);
    QVERIFY(blackOut->isBlinking());
    QVERIFY2(panel->display(0)->line(0).contains(QStringLiteral("BO")),
             qPrintable(panel->display(0)->line(0)));
    QSet<QRgb> shown;
    for (bool lit : {true, false}) {
        emit console->buttonBlink(lit);
        QCoreApplication::processEvents();
        shown.insert(blackOut->ledColour().rgb());
    }
    QCOMPARE(shown.size(), 2);
    click(blackOut);
    QVERIFY(!blackOut->isBlinking());
}

void TestFrontPanelEngine::wheelMovesTheStacksNextCue()
{
    const ConsoleStateRecord* record = console->cache()->record();
    const int stack = ConsoleStateRecord::sequenceFadersPerPage;
    const int before = record->playbacks[stack].nextStep;
    ConsoleWheel* wheel = panelItem(*panel, &ConsoleWheel::wheelNumber, 0);
    QVERIFY(wheel);
    const QPoint start = panel->mapFromScene(wheel->mapToScene(QPointF(41, 60)));
    QTest::mousePress(panel->viewport(), Qt::LeftButton, Qt::NoModifier, start);
    const QPoint end = start - QPoint(0, 12);
    QMouseEvent move(QEvent::MouseMove, end, panel->viewport()->mapToGlobal(end), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(panel->viewport(), &move);
    QTest::mouseRelease(panel->viewport(), Qt::LeftButton, Qt::NoModifier, end);
    QVERIFY(session->step());
    QVERIFY2(record->playbacks[stack].nextStep != before,
             qPrintable(QString::number(record->playbacks[stack].nextStep)));
}

LUMIDESK_TEST_MAIN(TestFrontPanelEngine)

#include "tst_frontpanel_engine.moc"
