// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "ConsoleFader.h"
#include "DataRows.h"
#include "FaderBlock.h"
#include "LumideskTestMain.h"

#include <QSignalSpy>

namespace {

// Text, then "hidden" and "editable" where they apply.
QString shown(const InPlaceEditableText* item)
{
    return QStringLiteral("%1%2%3").arg(item->text(), item->isVisible() ? "" : " hidden",
                                        item->isEditable() ? " editable" : "");
}

// The colours of a fader's level bars: "#00ff00", "#00ff00+#0000ff" ...
QString bars(const ConsoleFader* fader)
{
    const QColor b = fader->levelColourB();
    return fader->levelColourA().name() + (b.isValid() ? QLatin1Char('+') + b.name() : QString());
}

// The record's words for a fader mode code (0-6).
void setFaderMode(ConsoleStateRecord* record, int mode)
{
    constexpr int words[7][3] = {{0, 0, 0}, {0, 1, 0}, {0, 2, 0}, {2, 0, 0},
                                 {2, 0, 1}, {1, 0, 0}, {0, 3, 0}};
    record->liveMode = quint32(words[mode][0]);
    record->channelPage = words[mode][1];
    record->faderParameterPage = words[mode][2];
}

// The block of a 24-fader Legends view, or of a 12-fader front-panel row.
FaderBlock* legendsBlock(QGraphicsScene* scene)
{
    return new FaderBlock(scene, 0, 24, 96, 11, 13, 7, true);
}
FaderBlock* panelBlock(QGraphicsScene* scene, int first)
{
    return new FaderBlock(scene, first, 12, 96, 2, 13, 3, false);
}

// Page 2 current: memories on faders 3, 14 and 15, the sequence of fader
// 14 (index 2 of 12) with steps.
void fillPageTwo(PanelConsole& console)
{
    console.record()->memoryPage = 2;
    for (int index : {3, 14, 15}) {
        console.memory(2, index).recorded = 1;
        console.memory(2, index).time = 25;
    }
    console.sequence(2, 2).stepCount = 1;
}

} // namespace

class TestFaderBlock : public QObject
{
    Q_OBJECT

private slots:
    void legendsFollowTheFaderMode_data();
    void legendsFollowTheFaderMode();
    void keysSendPanelEvents_data();
    void keysSendPanelEvents();
    void playbackMarkerRepaints_data();
    void playbackMarkerRepaints();
    void faderLevelsFollowTheConsole();
};

struct LegendCase
{
    const char* name;
    int model, mode, fader;
    const char *legend, *value; // line 0, the value line
    const char* bars;           // the fader's level bar colours
    FakeEngine::Call edit;      // what typing into line 0 (the value when shown) reports
};

void TestFaderBlock::legendsFollowTheFaderMode_data()
{
    const int alder = ConsoleCache::ModelAlder;
    const int birch = ConsoleCache::ModelBirch;
    const int cedar = ConsoleCache::ModelCedar;
    const int maple = ConsoleCache::ModelMaple;
    const char* hidden = " hidden";
    const char* green = "#00ff00";
    const char* red = "#ff0000";
    const char* yellow = "#ffff00";
    const auto channel = [](int n) { return FakeEngine::Call{ConsoleCode::ChannelTextChanged, n}; };
    const FakeEngine::Call memory{ConsoleCode::MemoryChanged, 2, 3};
    const FakeEngine::Call sequence{ConsoleCode::SequenceChanged, 2, 2};
    const LegendCase cases[] = {
        {"bank 1", birch, 0, 3, "Ch3 editable", hidden, green, channel(3)},
        {"bank 2, 24 memories a page", birch, 1, 3, "Ch27 editable", hidden, green, channel(27)},
        {"bank 2, 48 memories a page", cedar, 1, 3, "Ch51 editable", hidden, green, channel(51)},
        {"bank 3", birch, 2, 3, "Ch51 editable", hidden, green, {}},
        {"bank 4", birch, 6, 3, "Ch75 editable", hidden, green, {}},
        {"bank 3 beyond the Alder's channels", alder, 2, 3, "", hidden, green, {}},
        {"parameter page 0", birch, 3, 3, hidden, hidden, green, {}},
        {"other parameter page", birch, 4, 3, hidden, hidden, green, {}},
        {"recorded memory", birch, 5, 3, "M2.3 editable", hidden, red, memory},
        {"nothing on the fader", birch, 5, 5, "", hidden, red, {}},
        {"sequence before memory", birch, 5, 14, "S2.2 editable", hidden, yellow, sequence},
        {"empty sequence shows the memory", birch, 5, 15, "M2.15 editable", hidden, red, {}},
        {"Maple memory's time", maple, 5, 3, "M2.3 editable", "2.5 editable", red, memory},
        {"Maple sequence has no time", maple, 5, 14, "S2.2 editable", hidden, yellow, {}},
    };
    addRows(cases);
}

void TestFaderBlock::legendsFollowTheFaderMode()
{
    QFETCH(LegendCase, c);
    PanelConsole console{ConsoleCache::ConsoleType(c.model)};
    console.nameEverything();
    fillPageTwo(console);
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene);
    // The console switches from bank 1 to the mode.
    setFaderMode(console.record(), c.mode);
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(bars(block->fader(c.fader)), QString::fromUtf8(c.bars));
    QCOMPARE(shown(block->legend(c.fader, 0)), QString::fromUtf8(c.legend));
    QCOMPARE(shown(block->valueItem(c.fader)), QString::fromUtf8(c.value));
    if (!c.edit.code)
        return;
    // The edit is stored and reported, and comes back through the console.
    const bool time = block->valueItem(c.fader)->isVisible();
    InPlaceEditableText* item = time ? block->valueItem(c.fader) : block->legend(c.fader, 0);
    const QString text = time ? QStringLiteral("12.5") : QStringLiteral("Wash");
    block->textChanged(item, text);
    QCoreApplication::processEvents();
    QCOMPARE(console.engine.updates(), QList<FakeEngine::Call>{c.edit});
    QCOMPARE(item->text(), text);
}

void TestFaderBlock::keysSendPanelEvents_data()
{
    // lastKey: of the block's twelfth fader
    addColumns<int, int>({"first", "lastKey"});
    QTest::newRow("faders 13-24") << 12 << 23;
    QTest::newRow("faders 25-36, keys after the others") << 24 << 108;
    QTest::newRow("faders 37-48") << 36 << 120;
}

void TestFaderBlock::keysSendPanelEvents()
{
    auto [first, lastKey] = fetch<int, int>({"first", "lastKey"});
    PanelConsole console(ConsoleCache::ModelCedar);
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, first);
    block->fader(1)->setValue(0.5f, false);
    SceneView view(&scene, QSize(600, 300));
    view.click(block->flashButton(11)->sceneBoundingRect().center());
    // The zero key sends only the faders that move.
    view.click(block->zeroButton()->sceneBoundingRect().center());
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, lastKey, 0, 1),
                                eventBytes(PanelEvent::PanelButton, lastKey, 0, 0),
                                eventBytes(PanelEvent::PanelFader, first + 1, 0, 0)}));
}

void TestFaderBlock::playbackMarkerRepaints_data()
{
    QTest::addColumn<bool>("playing"); // from not playing, or the other way round
    QTest::newRow("starts playing") << true;
    QTest::newRow("stops playing") << false;
}

void TestFaderBlock::playbackMarkerRepaints()
{
    QFETCH(bool, playing);
    PanelConsole console(ConsoleCache::ModelAlder);
    setFaderMode(console.record(), 5);
    console.memory(0, 3).recorded = 1;
    console.record()->faders[3].active = !playing;
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, 0);
    block->setPos(30, 40);
    QSignalSpy changed(&scene, &QGraphicsScene::changed);
    QCoreApplication::processEvents();
    changed.clear();

    console.record()->faders[3].active = playing;
    console.notify(ConsoleCode::FadersChanged);
    QCoreApplication::processEvents(); // the scene reports what to repaint
    QRectF repainted;
    for (const QList<QVariant>& signal : std::as_const(changed)) {
        for (const QRectF& rect : signal.at(0).value<QList<QRectF>>())
            repainted |= rect;
    }
    QVERIFY(repainted.contains(block->mapRectToScene(QRectF(3 * 40 + 2, 0, 38, 12))));
    const QImage image = paintedItem(block, QRect(0, -12, 480, 24), Qt::black);
    QCOMPARE(image.pixelColor(3 * 40 + 20, 12 + 6),
             playing ? QColor(252, 246, 105) : QColor(143, 120, 50));
}

void TestFaderBlock::faderLevelsFollowTheConsole()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    console.record()->faders[2].level = 51;
    QGraphicsScene scene;
    FaderBlock* tracking = legendsBlock(&scene);
    QCOMPARE(tracking->fader(2)->levelA(), 0.2f);

    console.record()->faders[2].level = 255;
    console.notify(ConsoleCode::FadersChanged);
    QCOMPARE(tracking->fader(2)->levelA(), 1.0f);

    setFaderMode(console.record(), 1); // bank 2: fader 2 is channel 26
    console.record()->blindMode = 1;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(bars(tracking->fader(2)), QStringLiteral("#00ff00+#0000ff"));
    console.record()->blindLevels[26] = 102;
    console.notify(ConsoleCode::BlindLevelsChanged);
    QCOMPARE(tracking->fader(2)->levelB(), 0.4f);
}

LUMIDESK_TEST_MAIN(TestFaderBlock)

#include "tst_playback_faderblock.moc"
