// SPDX-License-Identifier: GPL-3.0-or-later
// The text and number helpers every view shares: times, labels, levels,
// colours, fader modes and the step requests.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"

#include <QTest>

#include <memory>

namespace {
using Call = FakeEngine::Call;
} // namespace

Q_DECLARE_METATYPE(Call)

class TestConsoleHelpers : public QObject
{
    Q_OBJECT

private slots:
    void timeText_data();
    void timeText();
    void parseTime_data();
    void parseTime();
    void formatLevel_data();
    void formatLevel();
    void typedPercentage_data();
    void typedPercentage();
    void dmxAddressText_data();
    void dmxAddressText();
    void parameterGroups_data();
    void parameterGroups();
    void consoleType_data();
    void consoleType();
    void channelLabel_data();
    void channelLabel();
    void stepContentLabel_data();
    void stepContentLabel();
    void memoryNumberText_data();
    void memoryNumberText();
    void faderMode_data();
    void faderMode();
    void faderChannelAndSequence();
    void languageIndex_data();
    void languageIndex();
    void stepRequests_data();
    void stepRequests();
    void colourMix_data();
    void colourMix();
    void liveAndPaletteColour();
    void wholeBlockText();
};

void TestConsoleHelpers::timeText_data()
{
    QTest::addColumn<int>("tenths");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0 << "0";
    QTest::newRow("a tenth") << 1 << "0.1";
    QTest::newRow("2.5 s") << 25 << "2.5";
    QTest::newRow("whole 3 s") << 30 << "3";
    QTest::newRow("9.9 s") << 99 << "9.9";
    QTest::newRow("10 s drops tenths") << 100 << "10";
    QTest::newRow("10.5 s truncates") << 105 << "10";
    QTest::newRow("59 s") << 590 << "59";
    QTest::newRow("59.1 s as minutes") << 591 << "0:59";
    QTest::newRow("one minute") << 600 << "1:00";
    QTest::newRow("1:05") << 653 << "1:05";
    QTest::newRow("largest") << 65535 << "109:13";
}

void TestConsoleHelpers::timeText()
{
    QFETCH(int, tenths);
    QFETCH(QString, text);
    QCOMPARE(ConsoleCache::timeText(quint16(tenths)), text);
}

void TestConsoleHelpers::parseTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("tenths");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("seconds") << "3" << 30;
    QTest::newRow("2.5") << "2.5" << 25;
    QTest::newRow("1:30") << "1:30" << 900;
    QTest::newRow("1:05") << "1:05" << 650;
    QTest::newRow("last tenth digit wins") << "2.57" << 27;
    QTest::newRow("letters skipped") << "1s 5" << 150;
    QTest::newRow("minutes and tenths") << "2:10.4" << 1304;
    QTest::newRow("leading dot") << ".7" << 7;
    QTest::newRow("too long keeps the longest time") << "999:00" << 65535;
}

void TestConsoleHelpers::parseTime()
{
    QFETCH(QString, text);
    QFETCH(int, tenths);
    QCOMPARE(int(ConsoleCache::parseTime(text)), tenths);
}

void TestConsoleHelpers::formatLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("fullAsF");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << true << "0";
    QTest::newRow("1 rounds to 0") << 1 << true << "0";
    QTest::newRow("2 rounds to 1") << 2 << true << "1";
    QTest::newRow("127") << 127 << true << "50";
    QTest::newRow("128") << 128 << true << "50";
    QTest::newRow("25") << 25 << true << "10";
    QTest::newRow("254 reads full") << 254 << true << "F";
    QTest::newRow("253 reads 99") << 253 << true << "99";
    QTest::newRow("255 as F") << 255 << true << "F";
    QTest::newRow("255 as number") << 255 << false << "100";
}

void TestConsoleHelpers::formatLevel()
{
    QFETCH(int, level);
    QFETCH(bool, fullAsF);
    QFETCH(QString, text);
    QCOMPARE(ConsoleCache::formatLevel(level, fullAsF), text);
}

void TestConsoleHelpers::typedPercentage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("level"); // -1 rejected
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("10") << "10" << 25;
    QTest::newRow("20") << "20" << 51;
    QTest::newRow("30") << "30" << 76;
    QTest::newRow("50") << "50" << 127;
    QTest::newRow("70") << "70" << 178;
    QTest::newRow("90") << "90" << 229;
    QTest::newRow("100") << "100" << 255;
    QTest::newRow("blanks around") << " 40 " << 102;
    QTest::newRow("above 100") << "101" << -1;
    QTest::newRow("negative") << "-5" << -1;
    QTest::newRow("text") << "full" << -1;
    QTest::newRow("decimal") << "50.5" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TestConsoleHelpers::typedPercentage()
{
    QFETCH(QString, text);
    QFETCH(int, level);
    const std::optional<int> result = ConsoleCache::levelFromPercentText(text);
    QCOMPARE(result.value_or(-1), level);
    if (level >= 0) {
        // Every level typed back as its own percentage text stays put.
        QCOMPARE(ConsoleCache::formatLevel(level, false), text.trimmed());
    }
}

void TestConsoleHelpers::dmxAddressText_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<QString>("text");
    QTest::newRow("first") << 0 << "1:1";
    QTest::newRow("last of universe 1") << 511 << "1:512";
    QTest::newRow("2:17") << 512 + 16 << "2:17";
    QTest::newRow("last") << 1023 << "2:512";
}

void TestConsoleHelpers::dmxAddressText()
{
    QFETCH(int, address);
    QFETCH(QString, text);
    QCOMPARE(ConsoleCache::dmxAddressText(address), text);
}

void TestConsoleHelpers::parameterGroups_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shortName");
    QTest::newRow("pan") << 1 << 0 << "Focus"
                         << "F";
    QTest::newRow("tilt fine") << 49 << 0 << "Focus"
                               << "F";
    QTest::newRow("colour mix 0") << 0 << 1 << "Color"
                                  << "C";
    QTest::newRow("colour 8") << 8 << 1 << "Color"
                              << "C";
    QTest::newRow("shutter 9") << 9 << 2 << "Beam"
                               << "B";
    QTest::newRow("47") << 47 << 2 << "Beam"
                        << "B";
    QTest::newRow("50") << 50 << 3 << "User"
                        << "U";
}

void TestConsoleHelpers::parameterGroups()
{
    QFETCH(int, parameter);
    QFETCH(int, group);
    QFETCH(QString, name);
    QFETCH(QString, shortName);
    QCOMPARE(ConsoleCache::parameterGroup(parameter), group);
    QCOMPARE(ConsoleCache::parameterGroupName(group), name);
    QCOMPARE(ConsoleCache::parameterGroupShortName(group), shortName);
    QCOMPARE(ConsoleCache::parameterGroupName(4), QString());
    QCOMPARE(ConsoleCache::parameterGroupShortName(-1), QString());
}

void TestConsoleHelpers::consoleType_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("faders");
    QTest::addColumn<int>("devices");
    QTest::addColumn<int>("type");
    QTest::newRow("Alder") << 48 << 24 << 0 << int(ConsoleCache::ModelAlder);
    QTest::newRow("Birch") << 96 << 24 << 0 << int(ConsoleCache::ModelBirch);
    QTest::newRow("Cedar") << 96 << 48 << 0 << int(ConsoleCache::ModelCedar);
    QTest::newRow("Maple") << 72 << 24 << 24 << int(ConsoleCache::ModelMaple);
    QTest::newRow("devices make a Maple") << 48 << 24 << 1 << int(ConsoleCache::ModelMaple);
    QTest::newRow("48 channels on 48 faders") << 48 << 48 << 0 << int(ConsoleCache::ModelUnknown);
    QTest::newRow("empty record") << 0 << 0 << 0 << int(ConsoleCache::ModelUnknown);
}

void TestConsoleHelpers::consoleType()
{
    QFETCH(int, channels);
    QFETCH(int, faders);
    QFETCH(int, devices);
    QFETCH(int, type);
    FakeEngine engine;
    engine.record()->channelCount = channels;
    engine.record()->faderCount = faders;
    engine.record()->deviceCount = devices;
    std::unique_ptr<Console> console(engine.createConsole());
    QCOMPARE(int(console->consoleType()), type);
}

void TestConsoleHelpers::channelLabel_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("channel");
    QTest::addColumn<QString>("label");
    const int alder = ConsoleCache::ModelAlder, cedar = ConsoleCache::ModelCedar,
              maple = ConsoleCache::ModelMaple;
    QTest::newRow("Alder first") << alder << 0 << "Ch:1";
    QTest::newRow("Alder last") << alder << 47 << "Ch:48";
    QTest::newRow("Alder independent A") << alder << 48 << "IND 1";
    QTest::newRow("Alder independent B") << alder << 49 << "IND 2";
    QTest::newRow("Cedar 96") << cedar << 95 << "Ch:96";
    QTest::newRow("Cedar independent A") << cedar << 96 << "IND 1";
    QTest::newRow("Maple A1") << maple << 0 << "Int A:1";
    QTest::newRow("Maple A24") << maple << 23 << "Int A:24";
    QTest::newRow("Maple B1") << maple << 24 << "Int B:1";
    QTest::newRow("Maple D1") << maple << 48 << "Int D:1";
    QTest::newRow("Maple D24") << maple << 71 << "Int D:24";
    QTest::newRow("Maple independent") << maple << 72 << "IND 1";
}

void TestConsoleHelpers::channelLabel()
{
    QFETCH(int, model);
    QFETCH(int, channel);
    QFETCH(QString, label);
    FakeEngine engine{ConsoleCache::ConsoleType(model)};
    std::unique_ptr<Console> console(engine.createConsole());
    QCOMPARE(console->cache()->channelLabel(channel), label);
}

void TestConsoleHelpers::stepContentLabel_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("label");
    const int birch = ConsoleCache::ModelBirch, cedar = ConsoleCache::ModelCedar,
              maple = ConsoleCache::ModelMaple;
    QTest::newRow("channel") << birch << 0 << 9 << "Ch 10";
    QTest::newRow("Maple channel A") << maple << 0 << 3 << "Ch A4";
    QTest::newRow("Maple channel B") << maple << 0 << 30 << "Ch B7";
    QTest::newRow("Maple channel D") << maple << 0 << 71 << "Ch D24";
    QTest::newRow("memory on 24 faders") << birch << 1 << 24 * 2 + 4 << "M 3/5";
    QTest::newRow("memory on 48 faders") << cedar << 1 << 48 * 2 + 4 << "M 3/5";
    QTest::newRow("direct cue") << birch << 2 << 0 << "Cue";
    QTest::newRow("empty") << birch << 255 << 0 << "";
}

void TestConsoleHelpers::stepContentLabel()
{
    QFETCH(int, model);
    QFETCH(int, type);
    QFETCH(int, index);
    QFETCH(QString, label);
    FakeEngine engine{ConsoleCache::ConsoleType(model)};
    std::unique_ptr<Console> console(engine.createConsole());
    QCOMPARE(console->cache()->stepContentLabel(quint32(type), index), label);
    // The same label through a step of a sequence.
    StepRecord* step = console->cache()->step(0, 0, 3);
    step->contentType = quint32(type);
    step->contentIndex = quint16(index);
    QCOMPARE(console->cache()->stepContentText(0, 0, 3), label);
}

void TestConsoleHelpers::memoryNumberText_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("cueNumber");
    QTest::addColumn<QString>("text");
    QTest::newRow("01/05") << 0 << 4 << 0 << "01/05";
    QTest::newRow("12/48") << 11 << 47 << 0 << "12/48";
    QTest::newRow("stack cue 1.5") << -1 << 3 << 15 << "Cue 1.5";
    QTest::newRow("stack cue 12.0") << -1 << 198 << 120 << "Cue 12.0";
}

void TestConsoleHelpers::memoryNumberText()
{
    QFETCH(int, page);
    QFETCH(int, index);
    QFETCH(int, cueNumber);
    QFETCH(QString, text);
    FakeEngine engine;
    std::unique_ptr<Console> console(engine.createConsole());
    if (page == -1)
        engine.record()->stackSteps[index].cueNumber = quint16(cueNumber);
    QCOMPARE(console->cache()->memoryNumberText(page, index), text);
}

void TestConsoleHelpers::faderMode_data()
{
    QTest::addColumn<int>("liveMode");
    QTest::addColumn<int>("faderParameterPage");
    QTest::addColumn<int>("channelPage");
    QTest::addColumn<int>("mode");
    QTest::newRow("channels page 0") << 0 << 0 << 0 << 0;
    QTest::newRow("channels page 2") << 0 << 0 << 2 << 2;
    QTest::newRow("channels page 3") << 0 << 0 << 3 << 6;
    QTest::newRow("memories") << 1 << 0 << 0 << 5;
    QTest::newRow("fader parameters page 0") << 2 << 0 << 0 << 3;
    QTest::newRow("fader parameters page 1") << 2 << 1 << 0 << 4;
    QTest::newRow("unknown live mode") << 3 << 0 << 0 << 0;
}

void TestConsoleHelpers::faderMode()
{
    QFETCH(int, liveMode);
    QFETCH(int, faderParameterPage);
    QFETCH(int, channelPage);
    QFETCH(int, mode);
    FakeEngine engine;
    std::unique_ptr<Console> console(engine.createConsole());
    engine.record()->liveMode = quint32(liveMode);
    engine.record()->faderParameterPage = faderParameterPage;
    engine.record()->channelPage = channelPage;
    QCOMPARE(console->cache()->faderMode(), mode);
}

void TestConsoleHelpers::faderChannelAndSequence()
{
    FakeEngine engine(ConsoleCache::ModelCedar); // 48 faders, 12 sequence faders
    std::unique_ptr<Console> console(engine.createConsole());
    const ConsoleCache* cache = console->cache();
    QCOMPARE(cache->faderChannel(0, 5), 5);
    QCOMPARE(cache->faderChannel(1, 5), 53);
    QCOMPARE(cache->faderChannel(2, 5), 53);
    QCOMPARE(cache->faderChannel(6, 5), 77);
    QCOMPARE(cache->faderChannel(3, 5), 0);
    QCOMPARE(cache->faderSequence(35), -1);
    QCOMPARE(cache->faderSequence(36), 0);
    QCOMPARE(cache->faderSequence(47), 11);
    QCOMPARE(cache->sequenceFader(0), 36);
    QCOMPARE(cache->firstSequenceFader(), 36);
}

void TestConsoleHelpers::languageIndex_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("index");
    QTest::newRow("en") << "en" << 0;
    QTest::newRow("fr") << "fr" << 1;
    QTest::newRow("de") << "de" << 2;
    QTest::newRow("es") << "es" << 3;
    QTest::newRow("it") << "it" << 4;
    QTest::newRow("nl") << "nl" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestConsoleHelpers::languageIndex()
{
    QFETCH(QString, code);
    QFETCH(int, index);
    QCOMPARE(Console::languageIndex(code), index);
    FakeEngine engine;
    std::unique_ptr<Console> console(engine.createConsole(code));
    QCOMPARE(engine.languageIndex(), index);
}

void TestConsoleHelpers::stepRequests_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("fader");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<Call>>("updates");
    QTest::newRow("2 to 5 moves before 5")
        << 1 << 2 << 2 << 5 << QList<Call>{{35, 14, 2, 4}, {42, 14, 4, 99}};
    QTest::newRow("5 to 2") << 1 << 2 << 5 << 2 << QList<Call>{{35, 14, 5, 2}, {42, 14, 2, 99}};
    QTest::newRow("stack 0 to 1") << -1 << -1 << 0 << 1
                                  << QList<Call>{{35, 144, 0, 0}, {42, 144, 0, 99}};
}

void TestConsoleHelpers::stepRequests()
{
    QFETCH(int, page);
    QFETCH(int, fader);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QList<Call>, updates);
    FakeEngine engine;
    std::unique_ptr<Console> console(engine.createConsole());
    engine.clearUpdates();
    console->cache()->moveStep(page, fader, from, to, 99);
    QCOMPARE(engine.updates(), updates);
}

void TestConsoleHelpers::colourMix_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("keepMask");
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<bool>("applyInversion");
    QTest::addColumn<QColor>("colour");
    using V = QList<int>;
    QTest::newRow("additive maxima")
        << 1 << 0 << V{10, 200, 30, 40, 50, 60, 70} << true << QColor(200, 50, 70);
    QTest::newRow("half of c2 for green")
        << 1 << 0 << V{0, 0, 240, 100, 0, 0, 0} << true << QColor(240, 120, 0);
    QTest::newRow("subtractive inverted")
        << 0 << 0 << V{255, 0, 0, 0, 0, 0, 0} << true << QColor(0, 255, 255);
    QTest::newRow("subtractive, palette swatch not inverted")
        << 0 << 0 << V{255, 0, 0, 0, 0, 0, 0} << false << QColor(255, 0, 0);
    QTest::newRow("subtractive, red kept")
        << 0 << 0x02 << V{255, 0, 0, 0, 0, 0, 0} << true << QColor(255, 255, 255);
    QTest::newRow("subtractive, green and blue kept")
        << 0 << 0x30 << V{0, 0, 0, 10, 20, 0, 0} << true << QColor(255, 20, 20);
    QTest::newRow("hue 0 full saturation")
        << 254 << 0 << V{0, 0, 255, 0, 0, 0, 0} << true << QColor::fromHsv(0, 255, 255);
    QTest::newRow("hue from 100 truncates to 141")
        << 254 << 0 << V{100, 0, 255, 0, 0, 0, 0} << true << QColor::fromHsv(141, 255, 255);
    QTest::newRow("hue from 128 half saturated")
        << 254 << 0 << V{128, 0, 128, 0, 0, 0, 0} << true << QColor::fromHsv(180, 128, 255);
    QTest::newRow("hue 255 wraps to red")
        << 254 << 0 << V{255, 0, 255, 0, 0, 0, 0} << true << QColor(255, 0, 0);
    QTest::newRow("no saturation is white")
        << 254 << 0 << V{50, 0, 0, 0, 0, 0, 0} << false << QColor(255, 255, 255);
}

void TestConsoleHelpers::colourMix()
{
    QFETCH(int, model);
    QFETCH(int, keepMask);
    QFETCH(QList<int>, values);
    QFETCH(bool, applyInversion);
    QFETCH(QColor, colour);
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    engine.record()->devices[2].colourModel = quint8(model);
    engine.record()->devices[2].notInvertedMask = quint8(keepMask);
    std::array<int, 7> c{};
    std::copy(values.begin(), values.end(), c.begin());
    const QColor result = console->cache()->colourMix(2, c, applyInversion);
    QCOMPARE(result.name(), colour.name());
}

void TestConsoleHelpers::liveAndPaletteColour()
{
    // An RGB device at address 10: red, green, blue on slots 1-3 as
    // parameters 0, 3, 4 and swatch components 0, 3, 4... through the record.
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    DeviceRecord& device = engine.record()->devices[1];
    device.firstAddress = 11;
    device.footprint = 3;
    device.colourModel = 0; // subtractive: CMY wheels
    device.parameterMap[0] = 1;
    device.parameterMap[3] = 2;
    device.parameterMap[4] = 3;
    device.colourComponents[0] = 1;       // parameter 0
    device.colourComponents[3] = 4;       // parameter 3
    device.colourComponents[6] = 5;       // parameter 4
    engine.record()->dmxOutput[10] = 255; // cyan full
    engine.record()->dmxOutput[11] = 0;
    engine.record()->dmxOutput[12] = 100;
    QCOMPARE(console->cache()->liveColour(1).name(), QColor(0, 255, 155).name());

    engine.record()->palettes[4].values[1][0] = 40;
    engine.record()->palettes[4].values[1][3] = 90;
    engine.record()->palettes[4].values[1][4] = 7;
    QCOMPARE(console->cache()->paletteColour(4, 1).name(), QColor(40, 90, 7).name());
}

void TestConsoleHelpers::wholeBlockText()
{
    TextBlock block{};
    ConsoleCache::writeText(block, -1, QStringLiteral("Down Stage Centre!!"));
    QCOMPARE(ConsoleCache::readText(block, 0), QStringLiteral("Down S"));
    QCOMPARE(ConsoleCache::readText(block, 1), QStringLiteral("tage C"));
    QCOMPARE(ConsoleCache::readText(block, 2), QStringLiteral("entre!"));
    QCOMPARE(ConsoleCache::readText(block, -1), QStringLiteral("Down Stage Centre!"));

    ConsoleCache::writeText(block, -1, QStringLiteral("Key"));
    QCOMPARE(ConsoleCache::readText(block, -1), QStringLiteral("Key"));
    QCOMPARE(ConsoleCache::readText(block, 1), QString());

    // Short lines are padded to 6 characters when joined.
    ConsoleCache::writeText(block, 0, QStringLiteral("A"));
    ConsoleCache::writeText(block, 2, QStringLiteral("B"));
    QCOMPARE(ConsoleCache::readText(block, -1), QStringLiteral("A           B"));
}

QTEST_GUILESS_MAIN(TestConsoleHelpers)
#include "tst_console_helpers.moc"
