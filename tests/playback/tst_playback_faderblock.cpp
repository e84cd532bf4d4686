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

struct Legend
{
    QString text;
    bool visible;
    bool editable;
    bool operator==(const Legend& other) const
    {
        return text == other.text && visible == other.visible && editable == other.editable;
    }
};

char* toString(const Legend& legend)
{
    return qstrdup(qPrintable(QStringLiteral("\"%1\" visible %2 editable %3")
                                  .arg(legend.text)
                                  .arg(legend.visible)
                                  .arg(legend.editable)));
}

Legend legendOf(const InPlaceEditableText* item)
{
    return {item->text(), item->isVisible(), item->isEditable()};
}

void setMode(ConsoleStateRecord* record, int liveMode, int channelPage, int parameterPage)
{
    record->liveMode = quint32(liveMode);
    record->channelPage = channelPage;
    record->faderParameterPage = parameterPage;
}

// The block of a 24-fader Legends view, or a 12-fader front-panel one.
FaderBlock* legendsBlock(QGraphicsScene* scene, bool trackLevels = true)
{
    return new FaderBlock(scene, 0, 24, 96, 11, 13, 7, trackLevels);
}
FaderBlock* panelBlock(QGraphicsScene* scene, int first)
{
    return new FaderBlock(scene, first, 12, 96, 2, 13, 3, false);
}

} // namespace

class TestFaderBlock : public QObject
{
    Q_OBJECT

private slots:
    void legendsFollowTheFaderMode_data();
    void legendsFollowTheFaderMode();
    void memoryModeShowsSequencesBeforeMemories_data();
    void memoryModeShowsSequencesBeforeMemories();
    void flashKeysOfHighFadersAreOffset_data();
    void flashKeysOfHighFadersAreOffset();
    void zeroKeySendsOnlyFadersThatMove();
    void playbackMarkerRepaints_data();
    void playbackMarkerRepaints();
    void legendEditsStoreByMode_data();
    void legendEditsStoreByMode();
    void faderStatusColoursFollowTheMode_data();
    void faderStatusColoursFollowTheMode();
    void faderLevelsFollowTheConsole();
    void modeChangeFromTheConsoleRefreshes();
};

void TestFaderBlock::legendsFollowTheFaderMode_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("liveMode");
    QTest::addColumn<int>("channelPage");
    QTest::addColumn<int>("parameterPage");
    QTest::addColumn<int>("mode");
    QTest::addColumn<Legend>("legend"); // of fader 3, line 0
    const int birch = ConsoleCache::ModelBirch;
    const int cedar = ConsoleCache::ModelCedar;
    QTest::newRow("bank 1") << birch << 0 << 0 << 0 << 0 << Legend{"Ch3", true, true};
    QTest::newRow("bank 2, 24 memories a page")
        << birch << 0 << 1 << 0 << 1 << Legend{"Ch27", true, true};
    QTest::newRow("bank 2, 48 memories a page")
        << cedar << 0 << 1 << 0 << 1 << Legend{"Ch51", true, true};
    QTest::newRow("bank 3") << birch << 0 << 2 << 0 << 2 << Legend{"Ch51", true, true};
    QTest::newRow("bank 4") << cedar << 0 << 3 << 0 << 6 << Legend{"Ch75", true, true};
    QTest::newRow("bank 3 beyond the Alder's channels")
        << int(ConsoleCache::ModelAlder) << 0 << 2 << 0 << 2 << Legend{"", true, false};
    QTest::newRow("parameter page 0") << birch << 2 << 0 << 0 << 3 << Legend{"", false, false};
    QTest::newRow("other parameter page") << birch << 2 << 0 << 4 << 4 << Legend{"", false, false};
    QTest::newRow("memories") << birch << 1 << 0 << 0 << 5 << Legend{"M1.3", true, true};
    QTest::newRow("unknown live mode is bank 1")
        << birch << 7 << 2 << 0 << 0 << Legend{"Ch3", true, true};
}

void TestFaderBlock::legendsFollowTheFaderMode()
{
    QFETCH(int, model);
    QFETCH(int, liveMode);
    QFETCH(int, channelPage);
    QFETCH(int, parameterPage);
    QFETCH(int, mode);
    QFETCH(Legend, legend);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    console.nameEverything();
    console.record()->memoryPage = 1;
    console.memory(1, 3).recorded = 1;
    setMode(console.record(), liveMode, channelPage, parameterPage);
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, 0);
    QCOMPARE(block->faderMode(), mode);
    QCOMPARE(legendOf(block->legend(3, 0)), legend);
    QCOMPARE(block->valueItem(3)->isVisible(), false);
}

void TestFaderBlock::memoryModeShowsSequencesBeforeMemories_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("fader");
    QTest::addColumn<Legend>("legend");
    QTest::addColumn<Legend>("value");
    const int alder = ConsoleCache::ModelAlder;
    const int maple = ConsoleCache::ModelMaple;
    const Legend noValue{"", false, false};
    QTest::newRow("recorded memory") << alder << 3 << Legend{"M2.3", true, true} << noValue;
    QTest::newRow("nothing on the fader") << alder << 5 << Legend{"", true, false} << noValue;
    QTest::newRow("sequence with steps wins over the memory")
        << alder << 14 << Legend{"S2.2", true, true} << noValue;
    QTest::newRow("empty sequence shows the memory")
        << alder << 15 << Legend{"M2.15", true, true} << noValue;
    QTest::newRow("Maple shows the memory's time")
        << maple << 3 << Legend{"M2.3", true, true} << Legend{"2.5", true, true};
    QTest::newRow("Maple sequence has no time")
        << maple << 14 << Legend{"S2.2", true, true} << noValue;
}

void TestFaderBlock::memoryModeShowsSequencesBeforeMemories()
{
    QFETCH(int, model);
    QFETCH(int, fader);
    QFETCH(Legend, legend);
    QFETCH(Legend, value);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    console.nameEverything();
    setMode(console.record(), 1, 0, 0);
    console.record()->memoryPage = 2;
    for (int index : {3, 14, 15}) {
        console.memory(2, index).recorded = 1;
        console.memory(2, index).time = 25;
    }
    console.sequence(2, 2).stepCount = 1; // fader 14 of 24
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene);
    QCOMPARE(legendOf(block->legend(fader, 0)), legend);
    QCOMPARE(legendOf(block->valueItem(fader)), value);
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
    setMode(console.record(), 1, 0, 0);
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
    const QRectF marker = block->mapRectToScene(QRectF(3 * 40 + 2, 0, 38, 12));
    QRectF repainted;
    for (const QList<QVariant>& signal : std::as_const(changed)) {
        for (const QRectF& rect : signal.at(0).value<QList<QRectF>>())
            repainted |= rect;
    }
    QVERIFY2(repainted.contains(marker), "the marker's area is repainted");
    const QImage image = paintedItem(block, QRect(0, -12, 480, 24), Qt::black);
    QCOMPARE(image.pixelColor(3 * 40 + 20, 12 + 6),
             playing ? QColor(252, 246, 105) : QColor(143, 120, 50));
}

void TestFaderBlock::legendEditsStoreByMode_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("liveMode");
    QTest::addColumn<int>("channelPage");
    QTest::addColumn<int>("fader");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("stored"); // where the text lands
    QTest::addColumn<FakeEngine::Call>("report");
    const int alder = ConsoleCache::ModelAlder;
    QTest::newRow("bank 1") << alder << 0 << 0 << 4 << 2 << "channel 4"
                            << FakeEngine::Call{ConsoleCode::ChannelTextChanged, 4};
    QTest::newRow("bank 2 stores fader + 24")
        << alder << 0 << 1 << 3 << 1 << "channel 27"
        << FakeEngine::Call{ConsoleCode::ChannelTextChanged, 27};
    QTest::newRow("memory name") << alder << 1 << 0 << 3 << 0 << "memory"
                                 << FakeEngine::Call{ConsoleCode::MemoryChanged, 2, 3};
    QTest::newRow("sequence name") << alder << 1 << 0 << 14 << 1 << "sequence"
                                   << FakeEngine::Call{ConsoleCode::SequenceChanged, 2, 2};
    QTest::newRow("memory time") << int(ConsoleCache::ModelMaple) << 1 << 0 << 3 << 3 << "time"
                                 << FakeEngine::Call{ConsoleCode::MemoryChanged, 2, 3};
}

void TestFaderBlock::legendEditsStoreByMode()
{
    QFETCH(int, model);
    QFETCH(int, liveMode);
    QFETCH(int, channelPage);
    QFETCH(int, fader);
    QFETCH(int, line);
    QFETCH(QString, stored);
    QFETCH(FakeEngine::Call, report);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    setMode(console.record(), liveMode, channelPage, 0);
    console.record()->memoryPage = 2;
    console.memory(2, 3).recorded = 1;
    console.sequence(2, 2).stepCount = 3;
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene, false);
    const bool value = line == FaderBlock::valueLine;
    InPlaceEditableText* item = value ? block->valueItem(fader) : block->legend(fader, line);
    QVERIFY(item->isEditable());
    console.engine.clearUpdates();
    const QString text = value ? QStringLiteral("12.5") : QStringLiteral("Wash");
    block->textChanged(item, text);

    ConsoleCache* cache = console.console->cache();
    if (stored == QLatin1String("memory"))
        QCOMPARE(cache->memoryName(2, fader, line), text);
    else if (stored == QLatin1String("sequence"))
        QCOMPARE(cache->sequenceName(2, 2, line), text);
    else if (stored == QLatin1String("time"))
        QCOMPARE(cache->memoryTime(2, fader), 125);
    else
        QCOMPARE(cache->channelLegend(stored.mid(8).toInt(), line), text);
    QVERIFY(console.engine.updates().contains(report));
}

void TestFaderBlock::faderStatusColoursFollowTheMode_data()
{
    QTest::addColumn<int>("liveMode");
    QTest::addColumn<int>("parameterPage");
    QTest::addColumn<bool>("blind");
    QTest::addColumn<int>("fader");
    QTest::addColumn<QColor>("colourA");
    QTest::addColumn<QColor>("colourB");
    const QColor none;
    QTest::newRow("channels") << 0 << 0 << false << 3 << QColor(0, 255, 0) << none;
    QTest::newRow("channels in blind")
        << 0 << 0 << true << 3 << QColor(0, 255, 0) << QColor(0, 0, 255);
    QTest::newRow("parameters, blind ignored") << 2 << 1 << true << 3 << QColor(0, 255, 0) << none;
    QTest::newRow("memories: sequence with steps")
        << 1 << 0 << false << 14 << QColor(255, 255, 0) << none;
    QTest::newRow("memories: empty sequence") << 1 << 0 << false << 15 << QColor(255, 0, 0) << none;
    QTest::newRow("memories: memory fader") << 1 << 0 << false << 3 << QColor(255, 0, 0) << none;
}

void TestFaderBlock::faderStatusColoursFollowTheMode()
{
    QFETCH(int, liveMode);
    QFETCH(int, parameterPage);
    QFETCH(bool, blind);
    QFETCH(int, fader);
    QFETCH(QColor, colourA);
    QFETCH(QColor, colourB);
    PanelConsole console(ConsoleCache::ModelAlder);
    console.record()->memoryPage = 4;
    console.sequence(4, 2).stepCount = 1;
    QGraphicsScene scene;
    FaderBlock* block = legendsBlock(&scene);
    // Set up after construction: the console tells the block what changed.
    setMode(console.record(), liveMode, 0, parameterPage);
    console.record()->blindMode = blind ? 1 : 0;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->fader(fader)->levelColourA(), colourA);
    QCOMPARE(block->fader(fader)->levelColourB(), colourB);
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

    console.record()->channelPage = 1; // bank 2: fader 2 is channel 26
    console.record()->blindLevels[26] = 102;
    console.notify(ConsoleCode::BlindLevelsChanged);
    QCOMPARE(tracking->fader(2)->levelB(), 0.4f);
    QCOMPARE(still->fader(2)->levelB(), 0.0f);
}

void TestFaderBlock::modeChangeFromTheConsoleRefreshes()
{
    PanelConsole console(ConsoleCache::ModelBirch);
    console.nameEverything();
    QGraphicsScene scene;
    FaderBlock* block = panelBlock(&scene, 12);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Ch12"));
    console.record()->channelPage = 2;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Ch60"));

    ConsoleCache::writeText(console.record()->channelLegends[60], 0, QStringLiteral("Spot"));
    console.notify(ConsoleCode::ChannelTextChanged, 60);
    QCOMPARE(block->legend(0, 0)->text(), QStringLiteral("Spot"));

    console.record()->liveMode = 2;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->faderMode(), 3);
    QCOMPARE(block->legend(0, 0)->isVisible(), false);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFaderBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_faderblock.moc"
