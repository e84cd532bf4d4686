// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated console engine as the program sees it: opened by name, driven
// through Console, panel events and the show operations, observed in the
// record and the signals.
#include "ConsoleEngine.h"
#include "DataRows.h"
#include "EngineSession.h"
#include "EngineTestCodes.h"
#include "PanelKey.h"
#include "RecordArea.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QLibrary>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cstring>
#include <memory>
#include <tuple>

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

// A record byte a scenario checks: "out A" dmxOutput, "pal A" dmxPalette,
// "ch C" channelLevels, "level F" / "loaded F" of a fader, "mem F" channel 1
// of memory F on page 1, "read" dmxReadIndex; of playback P: "next", "after",
// "up", "down", "upLeft", "downLeft", "waitLeft".
int recordByte(const ConsoleStateRecord* r, const QString& field, int i)
{
    const PlaybackRecord& p = r->playbacks[std::min(i, stackPlayback)];
    const QHash<QString, int> bytes{
        {"out", r->dmxOutput[i]},
        {"read", __atomic_load_n(&r->dmxReadIndex, __ATOMIC_ACQUIRE)},
        {"pal", r->dmxPalette[i]},
        {"ch", r->channelLevels[std::min(i, 95)]},
        {"level", r->faders[std::min(i, 47)].level},
        {"loaded", r->faders[std::min(i, 47)].pageLoaded},
        {"mem", r->memories[std::min(i, 47)].content.channelLevels[0]},
        {"next", p.nextStep},
        {"after", p.afterLiveStep},
        {"up", p.upProgress},
        {"down", p.downProgress},
        {"upLeft", p.remainingUp},
        {"downLeft", p.remainingDown},
        {"waitLeft", p.remainingWait},
    };
    return bytes.value(field, -1);
}

// What a scenario check reads: a record byte, or "lcd D R" (the line, spaces
// collapsed), "ledOn K" / "ledOff K" (hex, stored red, blue, green), "cues"
// (name:channel 1 level of each stack cue), "outputs" (outputsUpdated seen).
QString recordValue(const EngineSession& s, const QStringList& w, int outputs)
{
    const ConsoleStateRecord* r = s.record();
    const int i = w.value(1).toInt();
    if (w[0] == "lcd")
        return QString::fromLatin1(reinterpret_cast<const char*>(r->lcdDisplays[i][w[2].toInt()]),
                                   20)
            .simplified();
    if (w[0] == "ledOn" || w[0] == "ledOff") {
        const LedRecord& led = r->leds[i];
        return QByteArray(reinterpret_cast<const char*>(w[0] == "ledOn" ? led.on : led.off), 3)
            .toHex();
    }
    if (w[0] == "outputs")
        return QString::number(outputs);
    if (w[0] != "cues")
        return QString::number(recordByte(r, w[0], i));
    QStringList cues;
    for (int n = 0; n < r->stackStepCount; ++n)
        cues << s.cache()->memoryName(-1, n, -1) + ':' +
                    QString::number(r->cueContents[n].channelLevels[0]);
    return cues.join(' ');
}

// Panel keys by the names the scenarios use.
const QHash<QString, int> keys{
    {"GO", PanelKey::Go},
    {"Pause", PanelKey::Pause},
    {"Next", PanelKey::Next},
    {"Mems", PanelKey::Memories},
    {"PageDown", PanelKey::NextPage},
    {"RecMem", PanelKey::RecordMemory},
    {"BlackOut", PanelKey::BlackOut},
    {"Ind1", PanelKey::Independent1},
    {"Ind2", PanelKey::Independent2},
    {"Undo", PanelKey::Undo},
};

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
    void factoryAnswersOnlyVersionFive_data();
    void factoryAnswersOnlyVersionFive();
    void startLaysOutTheModel_data();
    void startLaysOutTheModel();
    void otherConsoleVersionNeverBecomesReady();
    void runningClockConsumesTheRing();

    void scenario_data();
    void scenario();
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
    void stackRecordsPastTwoHundredCues();

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

void SimulatedConsoleTest::factoryAnswersOnlyVersionFive_data()
{
    addColumns<QString, int>({"library", "version"});
    for (const char* library : {"glowEngine", "glowproEngine"}) {
        for (int version : {5, 4, 6})
            QTest::addRow("%s version %d", library, version) << library << version;
    }
}

void SimulatedConsoleTest::factoryAnswersOnlyVersionFive()
{
    auto [library, version] = fetch<QString, int>({"library", "version"});
    QLibrary lib(library);
    auto getConsole = reinterpret_cast<GetConsoleFunction>(lib.resolve("getConsole"));
    QVERIFY2(getConsole, qPrintable(lib.errorString()));
    ConsoleEngine* engine = getConsole(version);
    QCOMPARE(engine != nullptr, version == 5);
    if (engine) {
        QVERIFY(engine->stateRecord());
        QVERIFY(!engine->softwareVersion().isEmpty());
        engine->release(); // released without start: nothing to stop
    }
}

void SimulatedConsoleTest::startLaysOutTheModel_data()
{
    // layout: channels, faders, devices, addresses
    addColumns<QString, int, QString>({"library", "variant", "layout"});
    QTest::newRow("Alder") << "glowEngine" << 0 << "48 24 0 512";
    QTest::newRow("Birch") << "glowEngine" << 1 << "96 24 0 512";
    QTest::newRow("Cedar") << "glowEngine" << 2 << "96 48 0 512";
    QTest::newRow("unknown variant falls back to Alder") << "glowEngine" << 7 << "48 24 0 512";
    QTest::newRow("Maple") << "glowproEngine" << 0 << "72 24 24 1024";
}

void SimulatedConsoleTest::startLaysOutTheModel()
{
    auto [library, variant, layout] =
        fetch<QString, int, QString>({"library", "variant", "layout"});
    EngineSession s(library, variant);
    const ConsoleStateRecord* r = s.record();
    QCOMPARE(QString("%1 %2 %3 %4")
                 .arg(r->channelCount)
                 .arg(r->faderCount)
                 .arg(r->deviceCount)
                 .arg(r->patchAddressCount),
             layout);
    QCOMPARE(r->pageCount, 12);
    QCOMPARE(r->sequenceFaderCount, 12);
    QCOMPARE(int(r->consoleMode), 1);
    QCOMPARE(int(r->consoleStatus), 0);
    QCOMPARE(int(r->grandMasterLevel), 255);
    QCOMPARE(RecordArea::slotText(r, r->consoleVersion), s.engine()->softwareVersion());
    QCOMPARE(RecordArea::slotText(r, r->libraryVersion).isEmpty(), r->deviceCount == 0);
    // Playbacks without a cue read full rate and fade.
    for (const PlaybackRecord& p : r->playbacks)
        QCOMPARE(p.rate * 1000 + p.fade, 256 * 1000 + 256);
}

void SimulatedConsoleTest::otherConsoleVersionNeverBecomesReady()
{
    // The engine announces the other version and then stays silent, so the
    // program's handshake sees the mismatch instead of a ready console.
    qputenv(EngineTest::consoleVersionVariable.data(), "0.9.7");
    Console::LoadError error = Console::LoadFailed;
    Console* console = Console::load("glowproEngine", 0, &error);
    qunsetenv(EngineTest::consoleVersionVariable.data());
    QCOMPARE(console, nullptr);
    QCOMPARE(error, Console::VersionMismatch);
}

void SimulatedConsoleTest::runningClockConsumesTheRing()
{
    EngineSession s("glowEngine", 1, EngineSession::Clock::Running);
    int outputs = 0;
    QObject receiver;
    QObject::connect(s.console(), &Console::outputsUpdated, &receiver, [&] { ++outputs; });
    s.console()->writeDmx(305, 99, false);
    QTRY_VERIFY(outputs > 0);
    QCOMPARE(int(s.record()->dmxOutput[305]), 99);
}

void SimulatedConsoleTest::scenario_data()
{
    // Each script is ";"-separated: "fader F L", "press K", "release K", "tap K"
    // (key names above), "step [ms]", "newShow", "dmx A L", "dmxPalette A P",
    // "patch A C" (channel C on address A, reported), "device D P A" (patch
    // device D with personality P at A), "palette P D p V" (value V of
    // parameter p, -1 takes it out, reported), "cue L" (record a stack cue
    // with channel 1 at L), "times S U D" (stack step S's up and down times,
    // reported), "ring I" (both DMX ring indexes), "name S X" (stack cue S),
    // "insert S C", "delete S", "move F T C" (stack steps, cue number C), and
    // checks "FIELD ... = VALUE" (above).
    addColumns<QString, int, QString>({"library", "variant", "script"});
    const QString masters = "fader %1 200; step; ch %1 = 200; level %1 = 200; out %1 = 200; "
                            "out %2 = 0; fader 48 128; step; out %1 = 100; ch %1 = 200; "
                            "tap BlackOut; step; out %1 = 0; tap BlackOut; step; out %1 = 100";
    for (const auto& [model, library, variant, fader] : {std::tuple{"Alder", "glowEngine", 0, 3},
                                                         {"Birch", "glowEngine", 1, 23},
                                                         {"Cedar", "glowEngine", 2, 39},
                                                         {"Maple", "glowproEngine", 0, 0}})
        QTest::addRow("%s: fader %d, grand master and black out", model, fader + 1)
            << library << variant << masters.arg(fader).arg(fader + 1);
    QTest::newRow("memory recorded, played, keeping its page")
        << "glowEngine" << 0
        << "fader 0 180; press RecMem; tap 5; release RecMem; fader 0 0; step; mem 5 = 180; "
           "ch 0 = 0; tap Mems; fader 5 128; step; level 5 = 128; ch 0 = 90; tap PageDown; "
           "tap PageDown; step; loaded 5 = 0; loaded 4 = 2; ch 0 = 90; fader 5 0; step; "
           "ch 0 = 0; loaded 5 = 2";
    const QString cue = "newShow; patch 0 1; cue %1; cue %2; fader 0 0; step; times 0 0 0; "
                        "times 1 %3 %4; tap GO; step; ch 0 = %1; tap GO; step %5; ch 0 = %6; "
                        "out 0 = %6; up 12 = %7; down 12 = %8; upLeft 12 = %9; "
                        "downLeft 12 = %10; after 12 = 2; next 12 = 0";
    const auto cueRow = [&](const char* name, std::array<int, 10> v) {
        QString script = cue;
        for (int value : v)
            script = script.arg(value);
        QTest::newRow(name) << "glowEngine" << 0 << script;
    };
    cueRow("cue rising, halfway through a 2 s up time",
           {0, 200, 20, 50, 1000, 100, 127, 51, 10, 40});
    cueRow("cue falling, a quarter into a 4 s down time",
           {200, 0, 20, 40, 1000, 150, 127, 63, 10, 30});
    cueRow("cue rising, one tick in", {40, 240, 30, 30, 25, 41, 2, 2, 30, 30});
    cueRow("cue complete after the longer time", {200, 10, 10, 30, 3000, 10, 255, 255, 0, 0});
    cueRow("cue with zero times snaps", {0, 255, 0, 0, 0, 255, 255, 255, 0, 0});
    // DMX writes on addresses nothing drives in the demo show; the same
    // values again change nothing, so nothing more is announced.
    const QString twice = "%1; step; %1; step; %2; outputs 0 = 1";
    QTest::newRow("DMX level on 1:300")
        << "glowEngine" << 0
        << twice.arg("dmx 299 200", "out 299 = 200; pal 299 = 0; out 300 = 0; read 0 = 2");
    QTest::newRow("DMX level on 1:512")
        << "glowEngine" << 0 << twice.arg("dmx 511 17", "out 511 = 17; out 510 = 0; read 0 = 2");
    QTest::newRow("DMX palette 3 on 2:40")
        << "glowproEngine" << 0 << twice.arg("dmxPalette 551 3", "out 551 = 0; pal 551 = 4");
    QTest::newRow("DMX level on 2:17")
        << "glowproEngine" << 0 << twice.arg("dmx 528 128", "out 528 = 128; out 529 = 0");
    QTest::newRow("DMX levels across the ring's end")
        << "glowEngine" << 0
        << "ring 98; dmx 400 10; dmx 401 11; dmx 402 12; step; out 400 = 10; out 401 = 11; "
           "out 402 = 12; read 0 = 1; outputs 0 = 1";
    QTest::newRow("display and LEDs follow the mode")
        << "glowEngine" << 0
        << "lcd 0 0 = CH 1-24 PAGE 01; tap Mems; tap PageDown; tap PageDown; step; "
           "lcd 0 0 = MEMS PAGE 03; ledOn 63 = ff00c8; ledOff 63 = ff00c8; ledOn 65 = 000000; "
           "tap 66; tap GO; step; lcd 0 0 = CH 25-48PAGE 03; lcd 0 1 = CUE 1.0>2.0; "
           "press Undo; step; ledOn 73 = ff0000; release Undo; step; ledOn 73 = 000000";
    // Stack cue texts and contents move with their steps; GO keeps its place.
    const QString cues = "newShow; cue 10; cue 20; cue 30; fader 0 0; step; name 0 A; name 1 B; "
                         "name 2 C; %1; step; cues = %2; tap GO; step 10000; ch 0 = %3";
    QTest::newRow("cue inserted before the first")
        << "glowEngine" << 0 << cues.arg("insert 0 5", ":0 A:10 B:20 C:30", "10");
    QTest::newRow("cue inserted in the middle")
        << "glowEngine" << 0 << cues.arg("insert 2 25", "A:10 B:20 :0 C:30", "10");
    QTest::newRow("first cue deleted")
        << "glowEngine" << 0 << cues.arg("delete 0", "B:20 C:30", "20");
    QTest::newRow("first cue moved behind the last")
        << "glowEngine" << 0 << cues.arg("move 0 3 35", "B:20 C:30 A:10", "20");
    QTest::newRow("last cue moved to the front")
        << "glowEngine" << 0 << cues.arg("move 2 0 5", "C:30 A:10 B:20", "30");
    // The demo chase on the first sequence fader: channels 1-4, up and down
    // 0.2 s, wait 0.3 s, looping.
    QTest::newRow("chase runs with its times")
        << "glowEngine" << 0
        << "tap Mems; fader 12 255; step; after 0 = 1; step 100; ch 0 = 127; ch 1 = 0; "
           "step 375; after 0 = 1; ch 0 = 255; step 25; after 0 = 2; ch 1 = 0; step 100; "
           "ch 0 = 128; ch 1 = 127; step 1400; after 0 = 1; ch 0 = 0; ch 1 = 0; fader 12 0; "
           "step; after 0 = 0; ch 0 = 0";
    // The demo show: "Works" latches at full on 1:51, "Haze" bumps at 128 on 1:52.
    QTest::newRow("independents latch or bump")
        << "glowEngine" << 0
        << "tap Ind1; press Ind2; step; out 50 = 255; out 51 = 128; release Ind2; step; "
           "out 50 = 255; out 51 = 0; tap Ind1; step; out 50 = 0";
    // The demo stack: cue 4 (3 s fades) goes on to cue 5 two seconds later.
    QTest::newRow("stack follows on, pauses and resumes")
        << "glowEngine" << 1
        << "tap Next; tap Next; tap Next; step; next 12 = 3; tap GO; step 3000; after 12 = 4; "
           "up 12 = 255; waitLeft 12 = 20; step 1000; waitLeft 12 = 10; step 1000; "
           "after 12 = 5; downLeft 12 = 30; step 500; tap Pause; step 1000; downLeft 12 = 25; "
           "tap GO; step 500; downLeft 12 = 20";
    // The demo's first cue brings channel 1 to 80 with 3 s fades; the clock
    // does not move a fade held by hand.
    QTest::newRow("crossfader pair runs the stack by hand")
        << "glowEngine" << 0
        << "fader 50 128; fader 51 200; step 1000; after 12 = 1; ch 0 = 40; fader 50 255; "
           "fader 51 255; step; ch 0 = 80; up 12 = 255; fader 50 0; fader 51 0; step; "
           "after 12 = 2; ch 0 = 200";
    // "Wash 300" (11) mixes inverted: pan, tilt, red (parameter 0 on 1:3), green (3), ...
    const QString wash = "newShow; device 0 11 0; step; palette 5 0 %1 200; dmx 2 90; "
                         "dmxPalette 2 5; step; out 2 = %2; palette 5 0 0 %3; step; ";
    QTest::newRow("inverted mix: followed palette value edited")
        << "glowproEngine" << 0 << wash.arg(0).arg(200).arg(60) + "out 2 = 60; pal 2 = 6";
    QTest::newRow("inverted mix: followed palette value taken out")
        << "glowproEngine" << 0 << wash.arg(0).arg(200).arg(-1) + "out 2 = 200; pal 2 = 0";
    QTest::newRow("palette without the parameter is not followed")
        << "glowproEngine" << 0 << wash.arg(3).arg(90).arg(60) + "out 2 = 90; pal 2 = 0";
    // A write held on an address nothing drives ends where something is patched.
    const QString parked = "newShow; fader 4 40; dmx 300 200; step; out 300 = 200; %1; step; "
                           "out 300 = %2";
    QTest::newRow("channel patched onto a held address")
        << "glowEngine" << 0 << parked.arg("patch 300 5").arg(40);
    QTest::newRow("channel patched next to a held address")
        << "glowEngine" << 0 << parked.arg("patch 301 5").arg(200);
    QTest::newRow("device patched over a held address (pan at rest)")
        << "glowproEngine" << 0 << parked.arg("device 0 11 300").arg(128);
}

void SimulatedConsoleTest::scenario()
{
    auto [library, variant, script] =
        fetch<QString, int, QString>({"library", "variant", "script"});
    EngineSession s(library, variant);
    SignalCount outputs(s.console(), &Console::outputsUpdated);
    for (const QString& command : script.split(';', Qt::SkipEmptyParts)) {
        const QStringList w = command.simplified().split(' ');
        const auto n = [&w](int k) { return w.value(k).toInt(); };
        const int key = keys.value(w.value(1), n(1));
        if (const int equals = int(w.indexOf("=")); equals > 0) {
            const QString expected = w.mid(equals + 1).join(' ');
            QString actual = recordValue(s, w.mid(0, equals), outputs.count);
            if (w[0] == "lcd") // the rest of the line moves with fades
                actual.truncate(int(expected.size()));
            QVERIFY2(actual == expected, qPrintable(command + ", but it is " + actual));
        } else if (w[0] == "step") {
            QVERIFY(s.step(n(1)));
        } else if (w[0] == "fader") {
            s.moveFader(n(1), n(2));
        } else if (w[0] == "press" || w[0] == "tap") {
            s.press(key);
            if (w[0] == "tap")
                s.release(key);
        } else if (w[0] == "release") {
            s.release(key);
        } else if (w[0] == "cue") {
            recordCue(s, n(1));
        } else if (w[0] == "times") {
            StepRecord* step = s.cache()->step(-1, -1, n(1));
            step->upTime = quint16(n(2));
            step->downTime = quint16(n(3));
            s.console()->sequenceStepChanged(Console::Sequence(), n(1));
        } else if (w[0] == "ring") {
            s.record()->dmxWriteIndex = s.record()->dmxReadIndex = quint8(n(1));
        } else if (w[0] == "name") {
            s.cache()->setMemoryName(-1, n(1), -1, w.value(2));
        } else if (w[0] == "insert") {
            s.cache()->insertStep(-1, -1, n(1), n(2), 3, 0);
        } else if (w[0] == "delete") {
            s.cache()->deleteStep(-1, -1, n(1));
        } else if (w[0] == "move") {
            s.cache()->moveStep(-1, -1, n(1), n(2), n(3));
        } else if (w[0] == "newShow") {
            s.engine()->newShow();
        } else if (w[0] == "dmx" || w[0] == "dmxPalette") {
            s.console()->writeDmx(quint16(n(1)), quint8(n(2)), w[0] == "dmxPalette");
        } else if (w[0] == "patch") {
            s.record()->dmxPatch[n(1)] = quint8(n(2));
            s.console()->patchChanged();
        } else if (w[0] == "device") {
            s.cache()->patchDevice(n(1), n(2), n(3));
        } else if (w[0] == "palette") {
            if (n(4) >= 0)
                s.cache()->setPaletteValue(n(1), n(2), n(3), n(4));
            else
                s.cache()->clearPaletteInclude(n(1), n(2), n(3));
            s.console()->paletteChanged(n(1));
        } else {
            QFAIL(qPrintable("unknown command " + command));
        }
    }
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
    addColumns<QString, int>({"kind", "result"});
    QTest::newRow("show of another console type") << "maple" << 1;
    QTest::newRow("truncated show") << "truncated" << 2;
    QTest::newRow("one byte changed") << "flipped" << 2;
    QTest::newRow("empty file") << "empty" << 2;
    QTest::newRow("missing file") << "missing" << 2;
}

void SimulatedConsoleTest::refusedShowFileLeavesTheShowIntact()
{
    auto [kind, result] = fetch<QString, int>({"kind", "result"});
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

    // Saving to the current file replaces it as a whole.
    s.engine()->saveShow();
    QVERIFY(s.step());
    const QByteArray replaced = readFile(good);
    QVERIFY(replaced != old);
    QCOMPARE(replaced.size(), old.size());
}

void SimulatedConsoleTest::stepEditsKeepTheListConsistent_data()
{
    addColumns<int, int, int>({"page", "fader", "capacity"});
    QTest::newRow("sequence of page 3, fader 5: 24 steps") << 2 << 4 << 24;
    QTest::newRow("stack: 199 steps") << -1 << -1 << 199;
}

void SimulatedConsoleTest::stepEditsKeepTheListConsistent()
{
    auto [page, fader, capacity] = fetch<int, int, int>({"page", "fader", "capacity"});
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
    addColumns<int, bool, bool>({"subCode", "memoriesKept", "stackKept"});
    QTest::newRow("erase memories") << 11 << false << true;
    QTest::newRow("erase stack") << 13 << true << false;
    QTest::newRow("erase all") << 16 << false << false;
}

void SimulatedConsoleTest::eraseRequestsAreBulkChanges()
{
    auto [subCode, memoriesKept, stackKept] =
        fetch<int, bool, bool>({"subCode", "memoriesKept", "stackKept"});
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

QTEST_GUILESS_MAIN(SimulatedConsoleTest)
#include "SimulatedConsoleTest.moc"
