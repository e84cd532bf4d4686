// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "ConsoleFader.h"
#include "FaderBlock.h"
#include "Lumidesk.h"

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
    return qstrdup(QStringLiteral("\"%1\" visible %2 editable %3")
                       .arg(legend.text)
                       .arg(legend.visible)
                       .arg(legend.editable)
                       .toUtf8()
                       .constData());
}

Legend legendOf(const InPlaceEditableText* item)
{
    return {item->text(), item->isVisible(), item->isEditable()};
}

void name(TextBlock& block, const QString& text)
{
    ConsoleCache::writeText(block, 0, text);
}

MemoryRecord& memory(ConsoleStateRecord* record, int page, int index)
{
    return record->memories[page * ConsoleStateRecord::memoriesPerPage + index];
}

SequenceRecord& sequence(ConsoleStateRecord* record, int page, int fader)
{
    return record->sequences[page * ConsoleStateRecord::sequenceFadersPerPage + fader];
}

// Names every channel "Ch<n>", memory "M<page>.<n>" and sequence "S<page>.<n>".
void nameEverything(ConsoleStateRecord* record)
{
    for (int channel = 0; channel < ConsoleStateRecord::maxChannels; ++channel)
        name(record->channelLegends[channel], QStringLiteral("Ch%1").arg(channel));
    for (int page = 0; page < ConsoleStateRecord::pages; ++page) {
        for (int index = 0; index < ConsoleStateRecord::memoriesPerPage; ++index)
            name(memory(record, page, index).name, QStringLiteral("M%1.%2").arg(page).arg(index));
        for (int fader = 0; fader < ConsoleStateRecord::sequenceFadersPerPage; ++fader)
            name(sequence(record, page, fader).name, QStringLiteral("S%1.%2").arg(page).arg(fader));
    }
}

void setMode(ConsoleStateRecord* record, int liveMode, int channelPage, int parameterPage)
{
    record->liveMode = quint32(liveMode);
    record->channelPage = channelPage;
    record->faderParameterPage = parameterPage;
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
    void zeroKeySendsZeroForEveryFader();
    void legendEditsStoreByMode_data();
    void legendEditsStoreByMode();
    void faderStatusColoursFollowTheMode_data();
    void faderStatusColoursFollowTheMode();
    void faderLevelsFollowTheConsole();
    void modeChangeFromTheConsoleRefreshes();
    void geometry();
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
    const int alder = ConsoleCache::ModelAlder;
    QTest::newRow("bank 1") << birch << 0 << 0 << 0 << 0 << Legend{"Ch3", true, true};
    QTest::newRow("bank 2, 24 memories a page")
        << birch << 0 << 1 << 0 << 1 << Legend{"Ch27", true, true};
    QTest::newRow("bank 3") << birch << 0 << 2 << 0 << 2 << Legend{"Ch51", true, true};
    QTest::newRow("bank 4") << birch << 0 << 3 << 0 << 6 << Legend{"Ch75", true, true};
    QTest::newRow("bank 3 beyond the Alder's channels")
        << alder << 0 << 2 << 0 << 2 << Legend{"", true, false};
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
    nameEverything(console.record());
    console.record()->memoryPage = 1;
    memory(console.record(), 1, 3).recorded = 1;
    setMode(console.record(), liveMode, channelPage, parameterPage);
    QGraphicsScene scene;
    FaderBlock block(&scene, 0, 12, 96, 2, 13, 3, false);
    QCOMPARE(block.faderMode(), mode);
    QCOMPARE(legendOf(block.legend(3, 0)), legend);
    QCOMPARE(block.valueItem(3)->isVisible(), false);
    scene.removeItem(&block);
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
    ConsoleStateRecord* record = console.record();
    nameEverything(record);
    setMode(record, 1, 0, 0);
    record->memoryPage = 2;
    for (int index : {3, 14, 15}) {
        memory(record, 2, index).recorded = 1;
        memory(record, 2, index).time = 25;
    }
    sequence(record, 2, 2).stepCount = 1; // fader 14 of 24
    QGraphicsScene scene;
    FaderBlock block(&scene, 0, 24, 96, 11, 13, 7, true);
    QCOMPARE(legendOf(block.legend(fader, 0)), legend);
    QCOMPARE(legendOf(block.valueItem(fader)), value);
    scene.removeItem(&block);
}

void TestFaderBlock::flashKeysOfHighFadersAreOffset_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("faders 1-12") << 0 << QList<int>{0, 11} << QStringList{"1", "12"};
    QTest::newRow("faders 13-24") << 12 << QList<int>{12, 23} << QStringList{"13", "24"};
    QTest::newRow("faders 25-36") << 24 << QList<int>{97, 108} << QStringList{"25", "36"};
    QTest::newRow("faders 37-48") << 36 << QList<int>{109, 120} << QStringList{"37", "48"};
}

void TestFaderBlock::flashKeysOfHighFadersAreOffset()
{
    QFETCH(int, first);
    QFETCH(QList<int>, keys);
    QFETCH(QStringList, labels);
    PanelConsole console(ConsoleCache::ModelCedar);
    QGraphicsScene scene;
    auto* block = new FaderBlock(&scene, first, 12, 96, 2, 13, 3, false);
    QCOMPARE(
        (QList<int>{block->flashButton(0)->buttonNumber(), block->flashButton(11)->buttonNumber()}),
        keys);
    QCOMPARE((QStringList{block->flashButton(0)->text(), block->flashButton(11)->text()}), labels);
    QCOMPARE(block->fader(11)->faderNumber(), first + 11);

    SceneView view(&scene, QSize(600, 300));
    const QPointF key = block->flashButton(11)->sceneBoundingRect().center();
    view.press(key);
    view.release(key);
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, keys[1], 0, 1),
                                eventBytes(PanelEvent::PanelButton, keys[1], 0, 0)}));
}

void TestFaderBlock::zeroKeySendsZeroForEveryFader()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    auto* block = new FaderBlock(&scene, 12, 3, 96, 2, 13, 3, false);
    block->fader(1)->setValue(0.5f, false);
    SceneView view(&scene, QSize(600, 300));
    const QPointF zero = block->zeroButton()->sceneBoundingRect().center();
    view.press(zero);
    view.release(zero);
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelFader, 12, 0, 0),
                                eventBytes(PanelEvent::PanelFader, 13, 0, 0),
                                eventBytes(PanelEvent::PanelFader, 14, 0, 0)}));
    QCOMPARE(block->fader(1)->value(), 0.0f);
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
    const int maple = ConsoleCache::ModelMaple;
    QTest::newRow("bank 1") << alder << 0 << 0 << 4 << 2 << "channel 4"
                            << FakeEngine::Call{ConsoleCode::ChannelTextChanged, 4};
    QTest::newRow("bank 2 stores fader + 24")
        << alder << 0 << 1 << 3 << 1 << "channel 27"
        << FakeEngine::Call{ConsoleCode::ChannelTextChanged, 27};
    QTest::newRow("memory name") << alder << 1 << 0 << 3 << 0 << "memory"
                                 << FakeEngine::Call{ConsoleCode::MemoryChanged, 2, 3};
    QTest::newRow("sequence name") << alder << 1 << 0 << 14 << 1 << "sequence"
                                   << FakeEngine::Call{ConsoleCode::SequenceChanged, 2, 2};
    QTest::newRow("memory time") << maple << 1 << 0 << 3 << 3 << "time"
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
    ConsoleStateRecord* record = console.record();
    setMode(record, liveMode, channelPage, 0);
    record->memoryPage = 2;
    memory(record, 2, 3).recorded = 1;
    sequence(record, 2, 2).stepCount = 3;
    QGraphicsScene scene;
    FaderBlock block(&scene, 0, 24, 96, 11, 13, 7, false);
    InPlaceEditableText* item =
        line == FaderBlock::valueLine ? block.valueItem(fader) : block.legend(fader, line);
    QVERIFY(item->isEditable());
    console.engine.clearUpdates();
    const QString text =
        line == FaderBlock::valueLine ? QStringLiteral("12.5") : QStringLiteral("Wash");
    block.textChanged(item, text);

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
    scene.removeItem(&block);
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
    ConsoleStateRecord* record = console.record();
    record->memoryPage = 4;
    sequence(record, 4, 2).stepCount = 1;
    QGraphicsScene scene;
    FaderBlock block(&scene, 0, 24, 96, 11, 13, 7, true);
    // Set up after construction: the console tells the block what changed.
    setMode(record, liveMode, 0, parameterPage);
    record->blindMode = blind ? 1 : 0;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    ConsoleFader* consoleFader = block.fader(fader);
    QCOMPARE(consoleFader->levelColourA(), colourA);
    QCOMPARE(consoleFader->levelColourB(), colourB);
    QCOMPARE(consoleFader->lastFaderMode(), block.faderMode());
    scene.removeItem(&block);
}

void TestFaderBlock::faderLevelsFollowTheConsole()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    ConsoleStateRecord* record = console.record();
    record->faders[2].level = 51;
    QGraphicsScene scene;
    FaderBlock tracking(&scene, 0, 12, 96, 11, 13, 7, true);
    FaderBlock still(&scene, 0, 12, 96, 2, 13, 3, false);
    QCOMPARE(tracking.fader(2)->levelA(), 0.2f);
    QCOMPARE(still.fader(2)->levelA(), 0.0f);

    record->faders[2].level = 255;
    console.notify(ConsoleCode::FadersChanged);
    QCOMPARE(tracking.fader(2)->levelA(), 1.0f);

    record->channelPage = 1; // bank 2: fader 2 is channel 26
    record->blindLevels[26] = 102;
    console.notify(ConsoleCode::BlindLevelsChanged);
    QCOMPARE(tracking.fader(2)->levelB(), 0.4f);
    QCOMPARE(still.fader(2)->levelB(), 0.0f);
    scene.removeItem(&tracking);
    scene.removeItem(&still);
}

void TestFaderBlock::modeChangeFromTheConsoleRefreshes()
{
    PanelConsole console(ConsoleCache::ModelBirch);
    nameEverything(console.record());
    QGraphicsScene scene;
    FaderBlock block(&scene, 12, 12, 96, 2, 13, 3, false);
    QCOMPARE(block.legend(0, 0)->text(), QStringLiteral("Ch12"));
    console.record()->channelPage = 2;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block.legend(0, 0)->text(), QStringLiteral("Ch60"));

    // A legend changed in the console reloads only in a channel mode.
    ConsoleCache::writeText(console.record()->channelLegends[60], 0, QStringLiteral("Spot"));
    console.notify(ConsoleCode::ChannelTextChanged, 60);
    QCOMPARE(block.legend(0, 0)->text(), QStringLiteral("Spot"));

    console.record()->liveMode = 2;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block.faderMode(), 3);
    QCOMPARE(block.legend(0, 0)->isVisible(), false);
    scene.removeItem(&block);
}

void TestFaderBlock::geometry()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    QGraphicsScene scene;
    FaderBlock block(&scene, 0, 12, 96, 11, 13, 7, false);
    QCOMPARE(block.boundingRect(), QRectF(0, -12, 11 * 11 + 12 * 38 + 2, 235));
    QCOMPARE(block.fader(2)->pos(), QPointF(98, 17));
    QCOMPARE(block.fader(2)->length(), 96);
    QCOMPARE(block.flashButton(2)->pos(), QPointF(105, 96 + 55 + 13));
    QCOMPARE(block.legend(2, 1)->rect(), QRectF(98, 96 + 82 + 13 + 10, 49, 12));
    QCOMPARE(block.valueItem(2)->rect(), QRectF(117, -12, 25, 12));
    QCOMPARE(block.legend(2, 1)->maxLength(), 6);
    scene.removeItem(&block);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFaderBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_faderblock.moc"
