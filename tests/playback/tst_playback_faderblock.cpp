// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "ConsoleFader.h"
#include "FaderBlock.h"
#include "Lumidesk.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// Text, then "hidden" and "editable" where they apply.
QString shown(const InPlaceEditableText* item)
{
    return QStringLiteral("%1%2%3").arg(item->text(), item->isVisible() ? "" : " hidden",
                                        item->isEditable() ? " editable" : "");
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
FaderBlock* legendsBlock(QGraphicsScene* scene, bool trackLevels = true)
{
    return new FaderBlock(scene, 0, 24, 96, 11, 13, 7, trackLevels);
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
    void flashKeysOfHighFadersAreOffset_data();
    void flashKeysOfHighFadersAreOffset();
    void zeroKeySendsOnlyFadersThatMove();
    void playbackMarkerRepaints_data();
    void playbackMarkerRepaints();
    void faderStatusColoursFollowTheMode_data();
    void faderStatusColoursFollowTheMode();
    void faderLevelsFollowTheConsole();
    void consoleChangesRefresh();
};

struct LegendCase
{
    const char* name;
    int model, mode, fader;
    const char *legend, *value; // line 0, the value line
    FakeEngine::Call edit;      // what typing into line 0 (the value when shown) reports
};

void TestFaderBlock::legendsFollowTheFaderMode_data()
{
    const int alder = ConsoleCache::ModelAlder;
    const int birch = ConsoleCache::ModelBirch;
    const int cedar = ConsoleCache::ModelCedar;
    const int maple = ConsoleCache::ModelMaple;
    const char* hidden = " hidden";
    const auto channel = [](int n) { return FakeEngine::Call{ConsoleCode::ChannelTextChanged, n}; };
    const FakeEngine::Call memory{ConsoleCode::MemoryChanged, 2, 3};
    const FakeEngine::Call sequence{ConsoleCode::SequenceChanged, 2, 2};
    const LegendCase cases[] = {
        {"bank 1", birch, 0, 3, "Ch3 editable", hidden, channel(3)},
        {"bank 2, 24 memories a page", birch, 1, 3, "Ch27 editable", hidden, channel(27)},
        {"bank 2, 48 memories a page", cedar, 1, 3, "Ch51 editable", hidden, channel(51)},
        {"bank 3", birch, 2, 3, "Ch51 editable", hidden, {}},
        {"bank 4", birch, 6, 3, "Ch75 editable", hidden, {}},
        {"bank 3 beyond the Alder's channels", alder, 2, 3, "", hidden, {}},
        {"parameter page 0", birch, 3, 3, hidden, hidden, {}},
        {"other parameter page", birch, 4, 3, hidden, hidden, {}},
        {"recorded memory", birch, 5, 3, "M2.3 editable", hidden, memory},
        {"nothing on the fader", birch, 5, 5, "", hidden, {}},
        {"sequence with steps before memory", birch, 5, 14, "S2.2 editable", hidden, sequence},
        {"empty sequence shows the memory", birch, 5, 15, "M2.15 editable", hidden, {}},
        {"Maple shows the memory's time", maple, 5, 3, "M2.3 editable", "2.5 editable", memory},
        {"Maple sequence has no time", maple, 5, 14, "S2.2 editable", hidden, {}},
    };
    addRows(cases);
}

void TestFaderBlock::legendsFollowTheFaderMode()
{
    QFETCH(LegendCase, c);
    PanelConsole console{ConsoleCache::ConsoleType(c.model)};
    console.nameEverything();
    fillPageTwo(console);
    setFaderMode(console.record(), c.mode);
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene);
    QCOMPARE(block->faderMode(), c.mode);
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

void TestFaderBlock::flashKeysOfHighFadersAreOffset_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("lastKey"); // of the block's twelfth fader
    QTest::newRow("faders 13-24") << 12 << 23;
    QTest::newRow("faders 25-36") << 24 << 108;
    QTest::newRow("faders 37-48") << 36 << 120;
}

void TestFaderBlock::flashKeysOfHighFadersAreOffset()
{
    QFETCH(int, first);
    QFETCH(int, lastKey);
    PanelConsole console(ConsoleCache::ModelCedar);
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, first);
    QCOMPARE(block->flashButton(11)->text(), QString::number(first + 12));
    SceneView(&scene, QSize(600, 300)).click(block->flashButton(11)->sceneBoundingRect().center());
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, lastKey, 0, 1),
                                eventBytes(PanelEvent::PanelButton, lastKey, 0, 0)}));
}

void TestFaderBlock::zeroKeySendsOnlyFadersThatMove()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* block = new FaderBlock(&scene, 12, 3, 96, 2, 13, 3, false);
    block->fader(1)->setValue(0.5f, false);
    SceneView(&scene, QSize(600, 300)).click(block->zeroButton()->sceneBoundingRect().center());
    QCOMPARE(allEventBytes(console.engine),
             QList<QByteArray>{eventBytes(PanelEvent::PanelFader, 13, 0, 0)});
    QCOMPARE(block->fader(1)->value(), 0.0f);
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

struct StatusCase
{
    const char* name;
    int mode;
    bool blind;
    int fader;
    QColor colourA, colourB;
};

void TestFaderBlock::faderStatusColoursFollowTheMode_data()
{
    const QColor green(0, 255, 0);
    const QColor red(255, 0, 0);
    const StatusCase cases[] = {
        {"channels", 0, false, 3, green, {}},
        {"channels in blind", 0, true, 3, green, QColor(0, 0, 255)},
        {"parameters, blind ignored", 4, true, 3, green, {}},
        {"memories: sequence with steps", 5, false, 14, QColor(255, 255, 0), {}},
        {"memories: empty sequence", 5, false, 16, red, {}},
        {"memories: memory fader", 5, false, 3, red, {}},
    };
    addRows(cases);
}

void TestFaderBlock::faderStatusColoursFollowTheMode()
{
    QFETCH(StatusCase, c);
    PanelConsole console(ConsoleCache::ModelAlder);
    fillPageTwo(console);
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene);
    // Set up after construction: the console tells the block what changed.
    setFaderMode(console.record(), c.mode);
    console.record()->blindMode = c.blind ? 1 : 0;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->fader(c.fader)->levelColourA(), c.colourA);
    QCOMPARE(block->fader(c.fader)->levelColourB(), c.colourB);
}

void TestFaderBlock::faderLevelsFollowTheConsole()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    console.record()->faders[2].level = 51;
    QGraphicsScene scene;
    FaderBlock* tracking = legendsBlock(&scene);
    FaderBlock* still = panelBlock(&scene, 0);
    QCOMPARE(tracking->fader(2)->levelA(), 0.2f);
    QCOMPARE(still->fader(2)->levelA(), 0.0f);

    console.record()->faders[2].level = 255;
    console.notify(ConsoleCode::FadersChanged);
    QCOMPARE(tracking->fader(2)->levelA(), 1.0f);

    setFaderMode(console.record(), 1); // bank 2: fader 2 is channel 26
    console.record()->blindLevels[26] = 102;
    console.notify(ConsoleCode::BlindLevelsChanged);
    QCOMPARE(tracking->fader(2)->levelB(), 0.4f);
    QCOMPARE(still->fader(2)->levelB(), 0.0f);
}

void TestFaderBlock::consoleChangesRefresh()
{
    PanelConsole console(ConsoleCache::ModelBirch);
    console.nameEverything();
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, 12);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Ch12"));
    setFaderMode(console.record(), 2);
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Ch60"));

    ConsoleCache::writeText(console.record()->channelLegends[60], 0, QStringLiteral("Spot"));
    console.notify(ConsoleCode::ChannelTextChanged, 60);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Spot"));

    setFaderMode(console.record(), 3);
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(shown(block->legend(0, 0)), QStringLiteral(" hidden"));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFaderBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_faderblock.moc"
