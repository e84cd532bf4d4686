// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated console as the program drives it: through Console, panel
// events and the show operations, observed in the record and the signals.
#include "ConsoleEngine.h"
#include "EngineSession.h"
#include "EngineTestCodes.h"
#include "PanelKey.h"
#include "RecordArea.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>
#include <memory>

namespace {
constexpr int stackPlayback = 12;

void writeFile(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Records the live look with channel 1 at level as a new cue at the
// stack's end ("Rec Seq" held, GO).
void recordCue(EngineSession& s, int level)
{
    s.moveFader(0, level);
    s.press(PanelKey::RecordSequence);
    s.tap(PanelKey::Go);
    s.release(PanelKey::RecordSequence);
}

// Counts a Console signal on the test's thread (queued, like a view).
class SignalCount : public QObject
{
public:
    template <typename Signal> SignalCount(Console* console, Signal signal)
    {
        connect(console, signal, this, [this] { ++count; });
    }
    int count = 0;
};
} // namespace

class SimulatedConsoleTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void cuePlaysBackWithItsTimes_data();
    void cuePlaysBackWithItsTimes();
    void faderGrandMasterAndBlackOutReachTheOutput_data();
    void faderGrandMasterAndBlackOutReachTheOutput();
    void savedShowOpensByteIdentical();
    void refusedShowFileLeavesTheShowIntact_data();
    void refusedShowFileLeavesTheShowIntact();
    void failedSaveKeepsTheOldFile();
    void stepEditsKeepTheListConsistent_data();
    void stepEditsKeepTheListConsistent();
    void patchedDeviceFollowsItsPersonality();
    void eraseRequestsAreBulkChanges_data();
    void eraseRequestsAreBulkChanges();
    void showSurvivesARestart();
    void memoryRecordedAndPlayedOnItsFader();
    void sequenceRunsWithItsTimes_data();
    void sequenceRunsWithItsTimes();
    void independentKeysLatchOrBump();
    void displayAndLedsFollowTheMode();
    void stackFollowsOnAndPauses();
    void crossfaderPairRunsTheStackByHand();
    void cueDataTravelsWithItsStep_data();
    void cueDataTravelsWithItsStep();
    void stackRecordsPastTwoHundredCues();
    void paletteOutputUndoesInversionAndHonoursIncludes_data();
    void paletteOutputUndoesInversionAndHonoursIncludes();
    void repatchReleasesAParkedWrite_data();
    void repatchReleasesAParkedWrite();

private:
    QTemporaryDir files_;
    QString mapleShow_;
};

void SimulatedConsoleTest::initTestCase()
{
    QVERIFY(files_.isValid());
    // A show from another model for the refusal tests.
    mapleShow_ = files_.filePath("maple.asc");
    EngineSession maple("glowproEngine", 0);
    maple.engine()->saveShowAs(mapleShow_);
    QVERIFY(QFile::exists(mapleShow_));
}

void SimulatedConsoleTest::init()
{
    // Every test starts from a console that has never run: the demo show.
    QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Lumidesk")
        .removeRecursively();
}

void SimulatedConsoleTest::cuePlaysBackWithItsTimes_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("upTime");
    QTest::addColumn<int>("downTime");
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("upProgress");
    QTest::addColumn<int>("downProgress");
    QTest::addColumn<int>("remainingUp");
    QTest::addColumn<int>("remainingDown");
    QTest::newRow("rising, halfway through a 2 s up time")
        << 0 << 200 << 20 << 50 << 1000 << 100 << 127 << 51 << 10 << 40;
    QTest::newRow("falling, a quarter into a 4 s down time")
        << 200 << 0 << 20 << 40 << 1000 << 150 << 127 << 63 << 10 << 30;
    QTest::newRow("rising, one tick in") << 40 << 240 << 30 << 30 << 25 << 41 << 2 << 2 << 30 << 30;
    QTest::newRow("complete after the longer time")
        << 200 << 10 << 10 << 30 << 3000 << 10 << 255 << 255 << 0 << 0;
    QTest::newRow("zero times snap") << 0 << 255 << 0 << 0 << 0 << 255 << 255 << 255 << 0 << 0;
}

void SimulatedConsoleTest::cuePlaysBackWithItsTimes()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, upTime);
    QFETCH(int, downTime);
    QFETCH(int, elapsed);
    QFETCH(int, level);
    QFETCH(int, upProgress);
    QFETCH(int, downProgress);
    QFETCH(int, remainingUp);
    QFETCH(int, remainingDown);

    EngineSession s("glowEngine", 0);
    s.engine()->newShow();
    s.record()->dmxPatch[0] = 1;
    s.console()->patchChanged();

    // Record two cues from the channel fader with Rec Seq + GO.
    for (int cueLevel : {from, to})
        recordCue(s, cueLevel);
    s.moveFader(0, 0);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->stackStepCount), 2);
    QCOMPARE(int(s.record()->stackSteps[1].cueNumber), 20);

    StepRecord* first = s.cache()->step(-1, -1, 0);
    first->upTime = first->downTime = 0;
    s.console()->sequenceStepChanged(Console::Sequence(), 0);
    StepRecord* second = s.cache()->step(-1, -1, 1);
    second->upTime = quint16(upTime);
    second->downTime = quint16(downTime);
    s.console()->sequenceStepChanged(Console::Sequence(), 1);

    s.tap(PanelKey::Go);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->channelLevels[0]), from);

    SignalCount playback(s.console(), &Console::playbackUpdated);
    s.tap(PanelKey::Go);
    QVERIFY(s.step(elapsed));
    const PlaybackRecord& p = s.record()->playbacks[stackPlayback];
    QCOMPARE(int(s.record()->channelLevels[0]), level);
    QCOMPARE(int(s.record()->dmxOutput[0]), level);
    QCOMPARE(int(p.upProgress), upProgress);
    QCOMPARE(int(p.downProgress), downProgress);
    QCOMPARE(int(p.remainingUp), remainingUp);
    QCOMPARE(int(p.remainingDown), remainingDown);
    QCOMPARE(int(p.afterLiveStep), 2);
    QCOMPARE(int(p.nextStep), 0); // a looping stack comes back to its first cue
    QVERIFY(playback.count > 0);
}

void SimulatedConsoleTest::faderGrandMasterAndBlackOutReachTheOutput_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::addColumn<int>("fader");
    QTest::newRow("Alder fader 4") << "glowEngine" << 0 << 3;
    QTest::newRow("Birch fader 24") << "glowEngine" << 1 << 23;
    QTest::newRow("Cedar fader 40") << "glowEngine" << 2 << 39;
    QTest::newRow("Maple fader 1") << "glowproEngine" << 0 << 0;
}

void SimulatedConsoleTest::faderGrandMasterAndBlackOutReachTheOutput()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(int, fader);
    EngineSession s(library, variant);
    ConsoleStateRecord* r = s.record();
    // The demo show patches channel n to address n.
    QCOMPARE(int(r->dmxPatch[fader]), fader + 1);
    SignalCount outputs(s.console(), &Console::outputsUpdated);

    s.moveFader(fader, 200);
    QVERIFY(s.step());
    QCOMPARE(int(r->channelLevels[fader]), 200);
    QCOMPARE(int(r->faders[fader].level), 200);
    QCOMPARE(int(r->dmxOutput[fader]), 200);
    QCOMPARE(int(r->dmxOutput[fader + 1]), 0);
    QCOMPARE(outputs.count, 1);

    s.moveFader(PanelKey::GrandMasterFader, 128);
    QVERIFY(s.step());
    QCOMPARE(int(r->grandMasterLevel), 128);
    QCOMPARE(int(r->dmxOutput[fader]), 100);
    QCOMPARE(int(r->channelLevels[fader]), 200); // channel levels stay before the master

    s.tap(PanelKey::BlackOut);
    QVERIFY(s.step());
    QCOMPARE(int(r->dmxOutput[fader]), 0);
    QVERIFY(r->leds[PanelKey::BlackOut].on[0] != r->leds[PanelKey::BlackOut].off[0]); // blinking

    s.tap(PanelKey::BlackOut);
    QVERIFY(s.step());
    QCOMPARE(int(r->dmxOutput[fader]), 100);
    QCOMPARE(outputs.count, 4);

    // Nothing changed: nothing announced.
    s.moveFader(fader, 200);
    QVERIFY(s.step(100));
    QCOMPARE(outputs.count, 4);
}

void SimulatedConsoleTest::savedShowOpensByteIdentical()
{
    const QString name = files_.filePath("roundtrip.asc");
    EngineSession s("glowproEngine", 0);
    SignalCount fileName(s.console(), &Console::playFileNameUpdated);
    SignalCount loaded(s.console(), &Console::playLoaded);
    s.cache()->setChannelLegend(5, 0, "Spot");
    QVERIFY(s.step());
    const QByteArray saved = s.showBytes();

    s.engine()->saveShowAs(name);
    QVERIFY(s.step());
    QCOMPARE(s.showFileName(), name);
    QCOMPARE(fileName.count, 1);

    s.engine()->newShow();
    QVERIFY(s.step());
    QVERIFY(s.showBytes() != saved);
    QCOMPARE(s.showFileName(), QString());
    QCOMPARE(loaded.count, 1);

    QCOMPARE(s.engine()->openShow(name), 0);
    QVERIFY(s.step());
    QCOMPARE(loaded.count, 2);
    QCOMPARE(s.showFileName(), name);
    QVERIFY(s.showBytes() == saved);
    QCOMPARE(s.cache()->channelLegend(5, 0), QString("Spot"));
}

void SimulatedConsoleTest::refusedShowFileLeavesTheShowIntact_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("result");
    QTest::newRow("show of another console type") << "maple" << 1;
    QTest::newRow("truncated show") << "truncated" << 2;
    QTest::newRow("one byte changed") << "flipped" << 2;
    QTest::newRow("random bytes") << "random" << 2;
    QTest::newRow("empty file") << "empty" << 2;
    QTest::newRow("missing file") << "missing" << 2;
}

void SimulatedConsoleTest::refusedShowFileLeavesTheShowIntact()
{
    QFETCH(QString, kind);
    QFETCH(int, result);
    EngineSession s("glowEngine", 1);
    const QString good = files_.filePath("birch.asc");
    s.engine()->saveShowAs(good);
    QVERIFY(s.step());
    const QByteArray valid = readFile(good);
    QVERIFY(!valid.isEmpty());

    QString name = files_.filePath(kind + ".asc");
    if (kind == "maple") {
        name = mapleShow_;
    } else if (kind == "truncated") {
        writeFile(name, valid.left(valid.size() / 2));
    } else if (kind == "flipped") {
        QByteArray bytes = valid;
        bytes[bytes.size() / 3] = char(bytes[bytes.size() / 3] ^ 0x10);
        writeFile(name, bytes);
    } else if (kind == "random") {
        QByteArray bytes(valid.size(), Qt::Uninitialized);
        QRandomGenerator generator(7);
        for (char& byte : bytes)
            byte = char(generator.bounded(256));
        writeFile(name, bytes);
    } else if (kind == "empty") {
        writeFile(name, {});
    }

    s.cache()->setChannelLegend(0, 0, "Kept");
    QVERIFY(s.step());
    const QByteArray before = s.showBytes();
    SignalCount loaded(s.console(), &Console::playLoaded);
    SignalCount fileName(s.console(), &Console::playFileNameUpdated);

    QCOMPARE(s.engine()->openShow(name), result);
    QVERIFY(s.step());
    QVERIFY(s.showBytes() == before);
    QCOMPARE(s.showFileName(), good);
    QCOMPARE(loaded.count, 0);
    QCOMPARE(fileName.count, 0);
}

void SimulatedConsoleTest::failedSaveKeepsTheOldFile()
{
    EngineSession s("glowEngine", 2);
    const QString good = files_.filePath("cedar.asc");
    s.engine()->saveShowAs(good);
    QVERIFY(s.step());
    const QByteArray old = readFile(good);

    // A folder that is a plain file can hold nothing, whoever runs the test.
    const QString blocker = files_.filePath("not-a-folder");
    writeFile(blocker, "x");
    SignalCount fileName(s.console(), &Console::playFileNameUpdated);
    s.cache()->setChannelLegend(1, 0, "Edited");
    s.engine()->saveShowAs(blocker + "/show.asc");
    QVERIFY(s.step());
    QCOMPARE(s.showFileName(), good);
    QCOMPARE(fileName.count, 0);
    QVERIFY(readFile(good) == old);

    // Saving where the file is a folder fails the same way.
    const QString folder = files_.filePath("folder.asc");
    QVERIFY(QDir().mkpath(folder));
    s.engine()->saveShowAs(folder);
    QVERIFY(s.step());
    QCOMPARE(s.showFileName(), good);

    // Saving to the current file replaces it as a whole.
    s.engine()->saveShow();
    QVERIFY(s.step());
    const QByteArray replaced = readFile(good);
    QVERIFY(replaced != old);
    QCOMPARE(replaced.size(), old.size());
}

void SimulatedConsoleTest::stepEditsKeepTheListConsistent_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("fader");
    QTest::addColumn<int>("capacity");
    QTest::newRow("sequence of page 3, fader 5: 24 steps") << 2 << 4 << 24;
    QTest::newRow("stack: 199 steps") << -1 << -1 << 199;
}

void SimulatedConsoleTest::stepEditsKeepTheListConsistent()
{
    QFETCH(int, page);
    QFETCH(int, fader);
    QFETCH(int, capacity);
    EngineSession s("glowEngine", 1);
    ConsoleCache* cache = s.cache();
    s.engine()->newShow();
    QVERIFY(s.step());

    // Fill the list from the back, so every insert lands at the front. One
    // at a time, as the program's insert hook names the step by position.
    for (int i = capacity - 1; i >= 0; --i) {
        cache->insertStep(page, fader, 0, (i + 1) * 10, 0, quint16(i % 96));
        QVERIFY(s.step());
    }
    QCOMPARE(cache->stepCount(page, fader), capacity);
    for (int i = 0; i < capacity; ++i) {
        QCOMPARE(int(cache->step(page, fader, i)->cueNumber), (i + 1) * 10);
        QCOMPARE(int(cache->step(page, fader, i)->contentIndex), i % 96);
        QCOMPARE(int(cache->step(page, fader, i)->contentType), 0);
    }

    // A full list refuses another step and stays as it was.
    cache->insertStep(page, fader, 3, 5, 0, 50);
    QVERIFY(s.step());
    QCOMPARE(cache->stepCount(page, fader), capacity);
    QCOMPARE(int(cache->step(page, fader, 3)->cueNumber), 40);

    cache->deleteStep(page, fader, 0);
    QVERIFY(s.step());
    QCOMPARE(cache->stepCount(page, fader), capacity - 1);
    QCOMPARE(int(cache->step(page, fader, 0)->cueNumber), 20);

    // Move the first step behind the last one, under a new number.
    cache->moveStep(page, fader, 0, capacity - 1, 9990);
    QVERIFY(s.step());
    QCOMPARE(cache->stepCount(page, fader), capacity - 1);
    QCOMPARE(int(cache->step(page, fader, 0)->cueNumber), 30);
    QCOMPARE(int(cache->step(page, fader, capacity - 2)->cueNumber), 9990);
    QCOMPARE(int(cache->step(page, fader, capacity - 2)->contentIndex), 1);
    // And back to the front.
    cache->moveStep(page, fader, capacity - 2, 0, 15);
    QVERIFY(s.step());
    QCOMPARE(int(cache->step(page, fader, 0)->cueNumber), 15);
    QCOMPARE(int(cache->step(page, fader, 1)->cueNumber), 30);

    // Room again for one step in the middle, whose content the hook stores.
    cache->insertStep(page, fader, 5, 55, 1, 7);
    QVERIFY(s.step());
    QCOMPARE(cache->stepCount(page, fader), capacity);
    QCOMPARE(int(cache->step(page, fader, 5)->cueNumber), 55);
    QCOMPARE(int(cache->step(page, fader, 5)->contentType), 1);
    QCOMPARE(int(cache->step(page, fader, 5)->contentIndex), 7);
    QCOMPARE(int(cache->step(page, fader, 5)->upTime), int(s.record()->defaultUpFade));
}

void SimulatedConsoleTest::patchedDeviceFollowsItsPersonality()
{
    EngineSession s("glowproEngine", 0);
    const QList<RecordArea::Personality> personalities = RecordArea::personalities(s.record());
    QVERIFY(personalities.size() >= 12);
    // The 16-bit spot: pan, pan fine, tilt, tilt fine, ..., intensity at slot 13.
    const auto spot = std::find_if(
        personalities.begin(), personalities.end(),
        [](const RecordArea::Personality& p) { return p.name.startsWith("Spot 575"); });
    QVERIFY(spot != personalities.end());
    SignalCount devices(s.console(), &Console::deviceUpdated);
    s.cache()->patchDevice(10, spot->id, 600);
    QVERIFY(s.step());
    QCOMPARE(devices.count, 1);
    const DeviceRecord& device = s.record()->devices[10];
    QCOMPARE(int(device.firstAddress), 601);
    QCOMPARE(int(device.footprint), spot->footprint);
    QCOMPARE(int(device.parameterMap[1]), 1);  // pan
    QCOMPARE(int(device.parameterMap[48]), 2); // pan fine
    QCOMPARE(int(device.parameterMap[2]), 3);  // tilt
    QCOMPARE(QByteArray(device.personalityName), QByteArray("Spot 575"));

    // Its control channel drives the intensity slot; the program's DMX
    // write moves the pan slot.
    const int controlChannel = s.record()->channelCount - s.record()->deviceCount + 10;
    s.tap(PanelKey::IntDevice);
    s.moveFader(controlChannel - 48, 255);
    s.console()->writeDmx(quint16(1 << 9 | (600 - 512)), 77, false);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->dmxOutput[600]), 77);
    QCOMPARE(int(s.record()->dmxOutput[600 + 12]), 255);

    s.cache()->unpatchDevice(10);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->devices[10].firstAddress), 0);
    QCOMPARE(int(s.record()->dmxOutput[600]), 0);
}

void SimulatedConsoleTest::eraseRequestsAreBulkChanges_data()
{
    QTest::addColumn<int>("subCode");
    QTest::addColumn<bool>("memoriesKept");
    QTest::addColumn<bool>("stackKept");
    QTest::newRow("erase memories") << 11 << false << true;
    QTest::newRow("erase stack") << 13 << true << false;
    QTest::newRow("erase all") << 16 << false << false;
}

void SimulatedConsoleTest::eraseRequestsAreBulkChanges()
{
    QFETCH(int, subCode);
    QFETCH(bool, memoriesKept);
    QFETCH(bool, stackKept);
    EngineSession s("glowEngine", 0);
    QVERIFY(s.record()->memories[0].recorded);
    QVERIFY(s.record()->stackStepCount > 0);
    SignalCount loaded(s.console(), &Console::playLoaded);
    s.console()->sendUpdate(39, subCode, 0, 0);
    QVERIFY(s.step());
    QCOMPARE(loaded.count, 1);
    QCOMPARE(s.record()->memories[0].recorded != 0, memoriesKept);
    QCOMPARE(s.record()->stackStepCount != 0, stackKept);
}

void SimulatedConsoleTest::showSurvivesARestart()
{
    {
        EngineSession s("glowEngine", 0);
        s.cache()->setChannelLegend(2, 1, "Kept");
        s.cache()->setPageName(0, 0, "Prolog");
        QVERIFY(s.step());
    }
    EngineSession again("glowEngine", 0);
    QCOMPARE(again.cache()->channelLegend(2, 1), QString("Kept"));
    QCOMPARE(again.cache()->pageName(0, 0), QString("Prolog"));
}

void SimulatedConsoleTest::memoryRecordedAndPlayedOnItsFader()
{
    EngineSession s("glowEngine", 0);
    ConsoleStateRecord* r = s.record();
    std::memset(&r->memories[5], 0, sizeof r->memories[5]);
    QList<Console::Memory> updated;
    QObject receiver;
    connect(s.console(), &Console::memoryUpdated, &receiver,
            [&](Console::Memory m) { updated.append(m); });

    s.moveFader(0, 180);
    s.press(PanelKey::RecordMemory);
    s.tap(5); // flash key of fader 6
    s.release(PanelKey::RecordMemory);
    s.moveFader(0, 0);
    QVERIFY(s.step());
    QCOMPARE(updated.size(), 1);
    QCOMPARE(updated.at(0), Console::Memory(0, 5));
    QCOMPARE(int(r->memories[5].recorded), 1);
    QCOMPARE(int(r->memories[5].content.channelLevels[0]), 180);
    QCOMPARE(int(r->channelLevels[0]), 0);

    s.tap(PanelKey::Memories);
    s.moveFader(5, 128);
    QVERIFY(s.step());
    QCOMPARE(int(r->liveMode), 1);
    QCOMPARE(int(r->faders[5].level), 128);
    QCOMPARE(int(r->faders[5].active), 1);
    QCOMPARE(int(r->channelLevels[0]), 90);

    // Another page: the raised fader keeps the page it loaded.
    s.cache()->selectPage(2);
    QVERIFY(s.step());
    QCOMPARE(r->memoryPage, 2);
    QCOMPARE(int(r->faders[5].pageLoaded), 0);
    QCOMPARE(int(r->faders[4].pageLoaded), 2);
    QCOMPARE(int(r->channelLevels[0]), 90);
    s.moveFader(5, 0);
    QVERIFY(s.step());
    QCOMPARE(int(r->channelLevels[0]), 0);
    QCOMPARE(int(r->faders[5].pageLoaded), 2);
}

void SimulatedConsoleTest::sequenceRunsWithItsTimes_data()
{
    // The demo chase on the first sequence fader: channels 1-4, up and down
    // 0.2 s, wait 0.3 s, looping.
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<int>("afterLive");
    QTest::addColumn<int>("channel1");
    QTest::addColumn<int>("channel2");
    QTest::newRow("first step halfway up") << 100 << 1 << 127 << 0;
    QTest::newRow("first step waiting") << 475 << 1 << 255 << 0;
    QTest::newRow("second step starts") << 500 << 2 << 255 << 0;
    QTest::newRow("second step crossing") << 600 << 2 << 128 << 127;
    QTest::newRow("back to the first step") << 2000 << 1 << 0 << 0;
}

void SimulatedConsoleTest::sequenceRunsWithItsTimes()
{
    QFETCH(int, elapsed);
    QFETCH(int, afterLive);
    QFETCH(int, channel1);
    QFETCH(int, channel2);
    EngineSession s("glowEngine", 0);
    ConsoleStateRecord* r = s.record();
    const int sequenceFader = r->faderCount - r->sequenceFaderCount;
    s.tap(PanelKey::Memories);
    s.moveFader(sequenceFader, 255);
    QVERIFY(s.step());
    QCOMPARE(int(r->playbacks[0].afterLiveStep), 1);
    QVERIFY(s.step(elapsed));
    QCOMPARE(int(r->playbacks[0].afterLiveStep), afterLive);
    QCOMPARE(int(r->channelLevels[0]), channel1);
    QCOMPARE(int(r->channelLevels[1]), channel2);

    s.moveFader(sequenceFader, 0);
    QVERIFY(s.step());
    QCOMPARE(int(r->playbacks[0].afterLiveStep), 0);
    QCOMPARE(int(r->channelLevels[0]), 0);
}

void SimulatedConsoleTest::independentKeysLatchOrBump()
{
    EngineSession s("glowEngine", 0);
    ConsoleStateRecord* r = s.record();
    // The demo show: "Works" latches at full on 1:51, "Haze" bumps at 128 on 1:52.
    QCOMPARE(int(r->dmxPatch[50]), r->channelCount + 1);
    QCOMPARE(int(r->dmxPatch[51]), r->channelCount + 2);
    s.tap(PanelKey::Independent1);
    s.press(PanelKey::Independent2);
    QVERIFY(s.step());
    QCOMPARE(int(r->dmxOutput[50]), 255);
    QCOMPARE(int(r->dmxOutput[51]), 128);
    s.release(PanelKey::Independent2);
    QVERIFY(s.step());
    QCOMPARE(int(r->dmxOutput[50]), 255);
    QCOMPARE(int(r->dmxOutput[51]), 0);
    s.tap(PanelKey::Independent1);
    QVERIFY(s.step());
    QCOMPARE(int(r->dmxOutput[50]), 0);
}

void SimulatedConsoleTest::displayAndLedsFollowTheMode()
{
    EngineSession s("glowEngine", 0);
    ConsoleStateRecord* r = s.record();
    auto line = [r](int display, int row) {
        return QByteArray(reinterpret_cast<const char*>(r->lcdDisplays[display][row]), 20);
    };
    QCOMPARE(line(0, 0), QByteArray("CH 1-24 PAGE 01     "));
    QList<int> displays;
    QObject receiver;
    connect(s.console(), &Console::displayUpdated, &receiver, [&](int d) { displays.append(d); });

    s.tap(PanelKey::Memories);
    s.tap(PanelKey::NextPage);
    s.tap(PanelKey::NextPage);
    QVERIFY(s.step());
    QCOMPARE(line(0, 0), QByteArray("MEMS    PAGE 03     "));
    QVERIFY(displays.contains(0));
    // Mode key lit steady (yellow, stored red, blue, green), the bank key dark.
    const LedRecord& mems = r->leds[PanelKey::Memories];
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(mems.on), 3), QByteArray("\xff\x00\xc8", 3));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(mems.off), 3), QByteArray("\xff\x00\xc8", 3));
    QCOMPARE(int(r->leds[PanelKey::BankLow].on[0]), 0);

    s.tap(PanelKey::BankHigh);
    s.tap(PanelKey::Go);
    QVERIFY(s.step());
    QCOMPARE(line(0, 0), QByteArray("CH 25-48PAGE 03     "));
    QVERIFY(line(0, 1).startsWith("CUE 1.0>2.0"));
    // A key the console does not act on lights while held.
    s.press(PanelKey::Undo);
    QVERIFY(s.step());
    QCOMPARE(int(r->leds[PanelKey::Undo].on[0]), 255);
    s.release(PanelKey::Undo);
    QVERIFY(s.step());
    QCOMPARE(int(r->leds[PanelKey::Undo].on[0]), 0);
}

void SimulatedConsoleTest::stackFollowsOnAndPauses()
{
    // The demo stack: cue 4 (3 s fades) goes on to cue 5 two seconds later.
    EngineSession s("glowEngine", 1);
    ConsoleStateRecord* r = s.record();
    const PlaybackRecord& stack = r->playbacks[stackPlayback];
    for (int i = 0; i < 3; ++i)
        s.tap(PanelKey::Next);
    QVERIFY(s.step());
    QCOMPARE(int(stack.nextStep), 3);
    s.tap(PanelKey::Go);
    QVERIFY(s.step(3000));
    QCOMPARE(int(stack.afterLiveStep), 4);
    QCOMPARE(int(stack.upProgress), 255);
    QCOMPARE(int(stack.remainingWait), 20);
    QVERIFY(s.step(1000));
    QCOMPARE(int(stack.remainingWait), 10);
    QVERIFY(s.step(1000));
    QCOMPARE(int(stack.afterLiveStep), 5);
    QCOMPARE(int(stack.remainingDown), 30);

    // Paused, the fade stands still; GO carries on.
    QVERIFY(s.step(500));
    const int level = r->channelLevels[0];
    s.tap(PanelKey::Pause);
    QVERIFY(s.step(1000));
    QCOMPARE(int(r->channelLevels[0]), level);
    QCOMPARE(int(stack.remainingDown), 25);
    QVERIFY(QByteArray(reinterpret_cast<const char*>(r->lcdDisplays[0][1]), 20).contains("PAUSE"));
    s.tap(PanelKey::Go);
    QVERIFY(s.step(500));
    QCOMPARE(int(stack.remainingDown), 20);
    QVERIFY(int(r->channelLevels[0]) < level);
}

void SimulatedConsoleTest::crossfaderPairRunsTheStackByHand()
{
    EngineSession s("glowEngine", 0);
    ConsoleStateRecord* r = s.record();
    // The demo's first cue brings channel 1 to 80 with 3 s fades.
    s.moveFader(PanelKey::CrossfaderA, 128);
    s.moveFader(PanelKey::CrossfaderB, 200);
    QVERIFY(s.step(1000)); // the clock does not move a fade held by hand
    QCOMPARE(int(r->playbacks[stackPlayback].afterLiveStep), 1);
    QCOMPARE(int(r->channelLevels[0]), 40);
    s.moveFader(PanelKey::CrossfaderA, 255);
    s.moveFader(PanelKey::CrossfaderB, 255);
    QVERIFY(s.step());
    QCOMPARE(int(r->channelLevels[0]), 80);
    QCOMPARE(int(r->playbacks[stackPlayback].upProgress), 255);
    // Back down runs the next cue (200).
    s.moveFader(PanelKey::CrossfaderA, 0);
    s.moveFader(PanelKey::CrossfaderB, 0);
    QVERIFY(s.step());
    QCOMPARE(int(r->playbacks[stackPlayback].afterLiveStep), 2);
    QCOMPARE(int(r->channelLevels[0]), 200);
}

void SimulatedConsoleTest::cueDataTravelsWithItsStep_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("cues"); // name:channel 1 level of each stack cue, in step order
    QTest::newRow("insert before the first") << "insert" << 0 << 0 << ":0 A:10 B:20 C:30";
    QTest::newRow("insert in the middle") << "insert" << 2 << 0 << "A:10 B:20 :0 C:30";
    QTest::newRow("delete the first") << "delete" << 0 << 0 << "B:20 C:30";
    QTest::newRow("move the first behind the last") << "move" << 0 << 3 << "B:20 C:30 A:10";
    QTest::newRow("move the last to the front") << "move" << 2 << 0 << "C:30 A:10 B:20";
}

void SimulatedConsoleTest::cueDataTravelsWithItsStep()
{
    QFETCH(QString, edit);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, cues);
    EngineSession s("glowEngine", 0);
    s.engine()->newShow();
    for (int n = 0; n < 3; ++n)
        recordCue(s, (n + 1) * 10);
    s.moveFader(0, 0);
    QVERIFY(s.step());
    for (int n = 0; n < 3; ++n)
        s.cache()->setMemoryName(-1, n, -1, QString(QChar('A' + n)));
    if (edit == "insert")
        s.cache()->insertStep(-1, -1, from, from * 10 + 5, 3, 0);
    else if (edit == "delete")
        s.cache()->deleteStep(-1, -1, from);
    else
        s.cache()->moveStep(-1, -1, from, to, to * 10 + 5);
    QVERIFY(s.step());
    QStringList shown;
    for (int n = 0; n < s.record()->stackStepCount; ++n)
        shown << s.cache()->memoryName(-1, n, -1) + ':' +
                     QString::number(s.record()->cueContents[n].channelLevels[0]);
    QCOMPARE(shown.join(' '), cues);
    // GO plays the content of the step it names.
    const int next = s.record()->playbacks[stackPlayback].nextStep;
    s.tap(PanelKey::Go);
    QVERIFY(s.step(10000));
    QCOMPARE(int(s.record()->channelLevels[0]), shown.at(next).section(':', 1).toInt());
}

void SimulatedConsoleTest::stackRecordsPastTwoHundredCues()
{
    EngineSession s("glowEngine", 0);
    s.engine()->newShow();
    for (int n = 0; n < ConsoleStateRecord::maxStackSteps; ++n)
        recordCue(s, 1);
    for (int n = 0; n < 10; ++n)
        s.cache()->deleteStep(-1, -1, 0);
    for (int n = 0; n < 10; ++n)
        recordCue(s, 7);
    QVERIFY(s.step());
    const int last = ConsoleStateRecord::maxStackSteps - 1;
    QCOMPARE(int(s.record()->stackStepCount), last + 1);
    QCOMPARE(int(s.record()->cueRecorded[last]), 1);
    QCOMPARE(int(s.record()->cueContents[last].channelLevels[0]), 7);
}

void SimulatedConsoleTest::paletteOutputUndoesInversionAndHonoursIncludes_data()
{
    QTest::addColumn<bool>("includesRed");
    QTest::addColumn<int>("edit"); // the palette's new red value; -1 takes red out
    QTest::addColumn<int>("output");
    QTest::addColumn<int>("shownPalette"); // dmxPalette: index + 1, 0 for a plain level
    QTest::newRow("followed value edited") << true << 60 << 60 << 6;
    QTest::newRow("followed value taken out") << true << -1 << 200 << 0;
    QTest::newRow("palette without the parameter") << false << 60 << 90 << 0;
}

void SimulatedConsoleTest::paletteOutputUndoesInversionAndHonoursIncludes()
{
    QFETCH(bool, includesRed);
    QFETCH(int, edit);
    QFETCH(int, output);
    QFETCH(int, shownPalette);
    // "Wash 300" mixes inverted; its slots are pan, tilt, red (parameter 0), green (3), ...
    constexpr int wash = 11, red = 0, green = 3, redAddress = 2;
    EngineSession s("glowproEngine", 0);
    ConsoleCache* cache = s.cache();
    s.engine()->newShow();
    cache->patchDevice(0, wash, 0);
    QVERIFY(s.step());
    cache->setPaletteValue(5, 0, includesRed ? red : green, 200);
    s.console()->paletteChanged(5);
    s.console()->writeDmx(redAddress, 90, false);
    s.console()->writeDmx(redAddress, 5, true);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->dmxOutput[redAddress]), includesRed ? 200 : 90);
    if (edit >= 0)
        cache->setPaletteValue(5, 0, red, edit);
    else
        cache->clearPaletteInclude(5, 0, red);
    s.console()->paletteChanged(5);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->dmxOutput[redAddress]), output);
    QCOMPARE(int(s.record()->dmxPalette[redAddress]), shownPalette);
}

void SimulatedConsoleTest::repatchReleasesAParkedWrite_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QString>("repatch");
    QTest::addColumn<int>("output");
    QTest::newRow("channel patched onto it") << "glowEngine"
                                             << "channel" << 40;
    QTest::newRow("channel patched next to it") << "glowEngine"
                                                << "neighbour" << 200;
    QTest::newRow("device patched over it (pan at rest)") << "glowproEngine"
                                                          << "device" << 128;
}

void SimulatedConsoleTest::repatchReleasesAParkedWrite()
{
    QFETCH(QString, library);
    QFETCH(QString, repatch);
    QFETCH(int, output);
    EngineSession s(library, 0);
    s.engine()->newShow();
    s.moveFader(4, 40); // channel 5
    s.console()->writeDmx(300, 200, false);
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->dmxOutput[300]), 200);
    if (repatch == "device") {
        s.cache()->patchDevice(0, 11, 300);
    } else {
        s.record()->dmxPatch[repatch == "channel" ? 300 : 301] = 5;
        s.console()->patchChanged();
    }
    QVERIFY(s.step());
    QCOMPARE(int(s.record()->dmxOutput[300]), output);
}

QTEST_GUILESS_MAIN(SimulatedConsoleTest)
#include "SimulatedConsoleTest.moc"
