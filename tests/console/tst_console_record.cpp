// SPDX-License-Identifier: GPL-3.0-or-later
// The cache over the engine's record: reads that interpret fields and the
// helpers every view shares, per model; edits as record bytes; texts in the
// engine's area; the caches derived from the patch.
#include "Console.h"
#include "ConsoleCodes.h"
#include "DataRows.h"
#include "FakeEngine.h"

#include <QTest>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <string>

namespace {
using Call = FakeEngine::Call;
using Reader = std::function<QVariant(ConsoleStateRecord&, ConsoleCache&)>;
using Pairs = QList<QPair<int, int>>;
constexpr int alder = ConsoleCache::ModelAlder, birch = ConsoleCache::ModelBirch,
              cedar = ConsoleCache::ModelCedar, maple = ConsoleCache::ModelMaple;

void setLine(TextBlock& block, int line, const char16_t* text)
{
    std::memcpy(block.lines[line], text,
                std::min<size_t>(std::char_traits<char16_t>::length(text), 7) * 2);
}

QString bytesOf(const void* place, int size)
{
    return QString::fromLatin1(QByteArray(static_cast<const char*>(place), size).toHex(' '));
}

QString join(int first, int second)
{
    return QString::number(first) + u'/' + QString::number(second);
}

// A text line as stored: the UTF-16 units, NUL-padded to 7.
QString line(const QString& text)
{
    QByteArray bytes(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    return QString::fromLatin1(bytes.append(QByteArray(14 - bytes.size(), '\0')).toHex(' '));
}

Reader colour(int model, int keepMask, std::array<int, 7> values, bool invert)
{
    return [=](ConsoleStateRecord& r, ConsoleCache& c) {
        r.devices[2].colourModel = quint8(model);
        r.devices[2].notInvertedMask = quint8(keepMask);
        return c.colourMix(2, values, invert).name();
    };
}

} // namespace

Q_DECLARE_METATYPE(Reader)

class TestConsoleRecord : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void reads_data();
    void reads();
    void edits_data();
    void edits();
    void areaTexts_data();
    void areaTexts();
    void patchCaches_data();
    void patchCaches();
    void rebuildPublishesANewVersion();

private:
    std::unique_ptr<FakeEngine> m_engine;
    Console* m_console = nullptr;
};

void TestConsoleRecord::init()
{
    m_engine = std::make_unique<FakeEngine>(ConsoleCache::ModelMaple);
    m_console = m_engine->createConsole();
    m_engine->clearUpdates();
}

void TestConsoleRecord::cleanup()
{
    delete m_console;
    m_engine.reset();
}

void TestConsoleRecord::reads_data()
{
    addColumns<int, Reader, QString>({"model", "read", "expected"});
    const auto row = [](const char* name, QString expected, Reader read) {
        QTest::newRow(name) << maple << read << expected;
    };
    const auto helper = [](const char* name, int model, QString expected, Reader read) {
        QTest::newRow(name) << model << read << expected;
    };
    using R = ConsoleStateRecord;
    using C = ConsoleCache;
    row("legend line of 7 units has no NUL, whole block", "ABCDEFG/Front Left", [](R& r, C& c) {
        std::memcpy(r.channelLegends[0].lines[1], u"ABCDEFGHIJ", 20);
        setLine(r.channelLegends[95], 0, u"Front");
        setLine(r.channelLegends[95], 1, u"Left");
        return c.channelLegend(0, 1) + u'/' + c.channelLegend(95, -1);
    });
    row("memory parameter through its palette, raw", "119/3", [](R& r, C& c) {
        r.memories[1].content.parameters[5 * 50 + 9] = {0xC0, 3};
        r.palettes[3].values[5][9] = 0x77;
        return join(c.memoryParameterValue(0, 1, 5, 9, true),
                    c.memoryParameterValue(0, 1, 5, 9, false));
    });
    row("stack cue name, recorded, level", "Intro/1/64", [](R& r, C& c) {
        setLine(r.cueNames[12], 0, u"Intro");
        r.cueRecorded[12] = 1;
        r.cueContents[12].channelLevels[4] = 64;
        return c.memoryName(-1, 12, 0) + u'/' +
               join(c.isMemoryRecorded(-1, 12), c.memoryChannelLevel(-1, 12, 4));
    });
    row("step numbers of a sequence and the stack", "3/12.5", [](R& r, C& c) {
        r.sequences[0].steps[2].cueNumber = 35;
        r.stackSteps[198].cueNumber = 125;
        return c.stepNumberText(0, 0, 2) + u'/' + c.stepNumberText(-1, -1, 198);
    });
    row("stack whole cues", "2", [](R& r, C& c) {
        r.stackStepCount = 3;
        r.stackSteps[0].cueNumber = 10;
        r.stackSteps[1].cueNumber = 15;
        r.stackSteps[2].cueNumber = 20;
        r.stackSteps[3].cueNumber = 30; // beyond the count
        return c.stackWholeCueCount();
    });
    row("direct cue step names its label, memory step its memory", "Black/Warm  Front",
        [](R& r, C& c) {
            r.stackSteps[0] = StepRecord{0, 2 * 24 + 5, C::StepMemory, 0, 0, 0, 0, 0};
            r.stackSteps[4].contentType = C::StepDirectCue;
            setLine(r.cueLabels[4], 0, u"Black");
            setLine(r.memories[2 * 48 + 5].name, 0, u"Warm");
            setLine(r.memories[2 * 48 + 5].name, 1, u"Front");
            return c.stepContentName(-1, -1, 4) + u'/' + c.stepContentName(-1, -1, 0);
        });
    row("palette colour value of an inverted device", "239", [](R& r, C& c) {
        r.palettes[2].values[7][3] = 0x10;
        r.devices[7].invertedColourMixing = 1;
        return c.paletteValue(2, 7, 3);
    });
    row("independent options stored inverted", "0/0", [](R& r, C& c) {
        r.independents[0].buttonMode = 1;
        r.independents[0].grandMasterExempt = 1;
        return join(c.isIndependentLatch(0), c.isIndependentAffectedByGrandMaster(0));
    });
    row("device parameter address, absent parameter", "102/-1", [](R& r, C& c) {
        r.devices[4].firstAddress = 101;
        r.devices[4].parameterMap[2] = 3;
        return join(c.deviceParameterAddress(4, 2), c.deviceParameterAddress(4, 3));
    });
    row("device parameter shows its palette, raw, none", "2/85/-1", [](R& r, C& c) {
        r.devices[4].firstAddress = 101;
        r.devices[4].parameterMap[1] = 1;
        r.dmxOutput[100] = 0x55;
        r.dmxPalette[100] = 3;
        return join(c.deviceParameterValue(4, 1), c.deviceParameterValue(4, 1, true)) + u'/' +
               QString::number(c.paletteReference(7));
    });
    row("playback index loaded, not loaded, stack", "3/-1/12", [](R& r, C& c) {
        r.faders[12 + 3].pageLoaded = 4;
        return join(c.playbackIndex(4, 3), c.playbackIndex(5, 3)) + u'/' +
               QString::number(c.playbackIndex(-1, -1));
    });
    helper("times as text", alder, "2.5 0:59 109:13", [](R&, C&) {
        return QStringList{C::timeText(25), C::timeText(591), C::timeText(65535)}.join(u' ');
    });
    helper("times parsed: letters skipped, last tenth wins", alder, "157/1304", [](R&, C&) {
        return join(C::parseTime(QStringLiteral("1s 5.27")),
                    C::parseTime(QStringLiteral("2:10.4")));
    });
    helper("levels as text", alder, "1/F",
           [](R&, C&) { return C::formatLevel(2, true) + u'/' + C::formatLevel(254, true); });
    helper("typed percentages", alder, "178 102 -1 -1", [](R&, C&) {
        QStringList levels;
        for (const char* text : {"70", " 40 ", "50.5", "101"})
            levels << QString::number(
                C::levelFromPercentText(QString::fromLatin1(text)).value_or(-1));
        return levels.join(u' ');
    });
    helper("address text, devices make a Maple", alder, "2:17/3", [](R& r, C& c) {
        r.deviceCount = 1;
        return C::dmxAddressText(528) + u'/' + QString::number(c.consoleType());
    });
    helper("channel labels on Maple", maple, "Int B:1/IND 1",
           [](R&, C& c) { return c.channelLabel(24) + u'/' + c.channelLabel(72); });
    helper("independent label on Cedar", cedar, "IND 1",
           [](R&, C& c) { return c.channelLabel(96); });
    const auto content = [](quint32 type, int index) {
        return [=](R& r, C& c) {
            r.sequences[0].steps[3].contentType = type;
            r.sequences[0].steps[3].contentIndex = quint16(index);
            return c.stepContentText(0, 0, 3);
        };
    };
    helper("content Maple channel B", maple, "Ch B7", content(0, 30));
    helper("content memory on 48 faders", cedar, "M 3/5", content(1, 48 * 2 + 4));
    helper("content empty", birch, "", content(255, 0));
    helper("stack cue number", alder, "Cue 1.5/12/05", [](R& r, C& c) {
        r.stackSteps[3].cueNumber = 15;
        return c.memoryNumberText(-1, 3) + u'/' + c.memoryNumberText(11, 4);
    });
    const auto mode = [](quint32 live, int parameterPage, int channelPage) {
        return [=](R& r, C& c) {
            r.liveMode = live;
            r.faderParameterPage = parameterPage;
            r.channelPage = channelPage;
            return c.faderMode();
        };
    };
    helper("mode channels page 3", alder, "6", mode(0, 0, 3));
    helper("mode fader parameters page 1", alder, "4", mode(2, 1, 0));
    const auto faders = [](int mode) {
        return [mode](R&, C& c) {
            return QStringLiteral("%1 %2").arg(c.faderChannel(mode, 5)).arg(c.faderSequence(12));
        };
    };
    helper("fader mode 1 on Cedar", cedar, "53 -1", faders(1));
    helper("fader mode 1 on Birch", birch, "29 0", faders(1));
    helper("colour additive", maple, "#c83246", colour(1, 0, {10, 200, 30, 40, 50, 60, 70}, true));
    helper("colour subtractive", maple, "#00ffff", colour(0, 0, {255, 0, 0, 0, 0, 0, 0}, true));
    helper("colour green and blue kept", maple, "#ff1414",
           colour(0, 0x30, {0, 0, 0, 10, 20, 0, 0}, true));
    helper("colour hue truncated", maple, QColor::fromHsv(141, 255, 255).name(),
           colour(254, 0, {100, 0, 255, 0, 0, 0, 0}, true));
    helper("live colour through the patch", maple, "#00ff9b/#285a00", [](R& r, C& c) {
        DeviceRecord& device = r.devices[1];
        device.firstAddress = 11;
        device.footprint = 3;
        device.parameterMap[0] = 1;
        device.parameterMap[3] = 2;
        device.parameterMap[4] = 3;
        device.colourComponents[0] = 1;
        device.colourComponents[3] = 4;
        device.colourComponents[6] = 5;
        r.dmxOutput[10] = 255;
        r.dmxOutput[12] = 100;
        r.palettes[4].values[1][0] = 40;
        r.palettes[4].values[1][3] = 90;
        return c.liveColour(1).name() + u'/' + c.paletteColour(4, 1).name();
    });
    helper("whole block of 18", alder, "entre!|Down SB     entre!", [](R&, C&) {
        TextBlock block{};
        C::writeText(block, -1, QStringLiteral("Down Stage Centre!!"));
        C::writeText(block, 1, QStringLiteral("B"));
        return C::readText(block, 2) + u'|' + C::readText(block, -1);
    });
}

void TestConsoleRecord::reads()
{
    auto [model, read, expected] = fetch<int, Reader, QString>({"model", "read", "expected"});
    m_engine->setupModel(ConsoleCache::ConsoleType(model));
    m_engine->notify(ConsoleCode::Ready);
    QCOMPARE(read(*m_engine->record(), *m_console->cache()).toString(), expected);
}

void TestConsoleRecord::edits_data()
{
    // edit: edits, then gives the bytes it changed
    addColumns<Reader, QString, QList<Call>>({"edit", "expected", "updates"});
    const auto row = [](const char* name, QString expected, QList<Call> updates, Reader edit) {
        QTest::newRow(name) << edit << expected << updates;
    };
    using R = ConsoleStateRecord;
    using C = ConsoleCache;
    // Text edits rewrite the whole line: what stood behind the text goes.
    row("legend cut to 7, whole block",
        "46 00 6f 00 6c 00 6c 00 6f 00 77 00 73 00/" + line("Front ") + ' ' + line("Left S") + ' ' +
            line("tage S"),
        {{9, 0, 0, 0}, {9, 1, 0, 0}}, [](R& r, C& c) {
            c.setChannelLegend(0, 0, "Followspot");
            c.setChannelLegend(1, -1, "Front Left Stage Side");
            return bytesOf(r.channelLegends[0].lines[0], 14) + u'/' +
                   bytesOf(&r.channelLegends[1], 42);
        });
    row("stack cue name", line("Storm"), {{4, 150, 0, 0}}, [](R& r, C& c) {
        c.setMemoryName(-1, 150, 0, "Storm");
        return bytesOf(&r.cueNames[150], 14);
    });
    row("palette name keeps 6", line("Gobo12"), {{1, 5, 0, 0}}, [](R& r, C& c) {
        std::memset(&r.palettes[5].names[2], 0x5a, 14);
        c.setPaletteName(5, 2, 0, "Gobo1234");
        return bytesOf(&r.palettes[5].names[2], 14);
    });
    row("independent options stored inverted", "01 01", {}, [](R& r, C& c) {
        c.setIndependentLatch(0, false);
        c.setIndependentAffectedByGrandMaster(0, false);
        return bytesOf(&r.independents[0].buttonMode, 2);
    });
    row("memory level marks it recorded, stack cue level does not", "63 01/63 00", {},
        [](R& r, C& c) {
            c.setMemoryChannelLevel(4, 20, 3, 99);
            c.setMemoryChannelLevel(-1, 7, 3, 99);
            const MemoryRecord& memory = r.memories[4 * 48 + 20];
            return bytesOf(&memory.content.channelLevels[3], 1) + ' ' +
                   bytesOf(&memory.recorded, 1) + u'/' +
                   bytesOf(&r.cueContents[7].channelLevels[3], 1) + ' ' +
                   bytesOf(&r.cueRecorded[7], 1);
        });
    row("parameter palette keeps flag bits, clearing keeps the value", "c5 04/45 04", {},
        [](R& r, C& c) {
            ParameterEntry& entry = r.memories[0].content.parameters[2 * 50 + 10];
            entry.flags = 0x05;
            c.setMemoryParameter(0, 0, 2, 10, 4, true);
            const QString set = bytesOf(&entry, 2);
            c.clearMemoryParameter(0, 0, 2, 10);
            return set + u'/' + bytesOf(&entry, 2);
        });
    row("pan level clears pan fine, tilt palette sets tilt fine", "80 00/c0 06", {},
        [](R& r, C& c) {
            c.setMemoryParameter(0, 0, 2, 48, 77, false);
            c.setMemoryParameter(0, 0, 2, 1, 200, false);
            c.setMemoryParameter(0, 0, 2, 2, 6, true);
            const ParameterEntry* device = &r.memories[0].content.parameters[2 * 50];
            return bytesOf(device + 48, 2) + u'/' + bytesOf(device + 49, 2);
        });
    row("move 2 to 5 lands before 5", "", {{35, 14, 2, 4}, {42, 14, 4, 99}},
        [](R&, C& c) { return c.moveStep(1, 2, 2, 5, 99), QString(); });
    row("move in the stack", "", {{35, 144, 0, 0}, {42, 144, 0, 99}},
        [](R&, C& c) { return c.moveStep(-1, -1, 0, 1, 99), QString(); });
    row("stack mode", "02 00 00 00", {{3, 0, 0, 0}}, [](R& r, C& c) {
        c.setSequenceMode(-1, -1, 2);
        return bytesOf(&r.stackMode, 4);
    });
    row("palette include bits", "02", {}, [](R& r, C& c) {
        c.setPaletteValue(5, 3, 16, 1);
        c.setPaletteValue(5, 3, 17, 1);
        c.clearPaletteInclude(5, 3, 16);
        return bytesOf(&r.palettes[5].include[3][2], 1);
    });
    row("palette colour value of an inverted device", "cf", {}, [](R& r, C& c) {
        r.devices[3].invertedColourMixing = 1;
        c.setPaletteValue(5, 3, 4, 0x30);
        return bytesOf(&r.palettes[5].values[3][4], 1);
    });
}

void TestConsoleRecord::edits()
{
    auto [edit, expected, updates] =
        fetch<Reader, QString, QList<Call>>({"edit", "expected", "updates"});
    QCOMPARE(edit(*m_engine->record(), *m_console->cache()).toString(), expected);
    QCOMPARE(m_engine->updates(), updates);
}

void TestConsoleRecord::areaTexts_data()
{
    // Slot values as the engine could leave them; -1 keeps the engine's.
    // length: written at the slot when inside
    addColumns<qint64, quint32, QString, int>({"slot", "length", "text", "personalities"});

    constexpr qint64 begin = RecordArea::begin, end = RecordArea::end;
    QTest::newRow("as written") << qint64(-1) << 0u << "C:/Shows/Hamlet.asc" << 2;
    QTest::newRow("just before the area") << begin - 2 << 0u << "" << 0;
    QTest::newRow("header past the end") << end - 2 << 0u << "" << 0;
    QTest::newRow("length past the end") << end - 12 << 5u << "" << 0;
    QTest::newRow("huge length") << end - 12 << 0x80000000u << "" << 0;
    QTest::newRow("fits the end exactly") << end - 14 << 5u << QString(5, QChar()) << 0;
}

void TestConsoleRecord::areaTexts()
{
    auto [slot, length, text, personalities] =
        fetch<qint64, quint32, QString, int>({"slot", "length", "text", "personalities"});

    m_engine->setShowFileName(QStringLiteral("C:/Shows/Hamlet.asc"));
    m_engine->setPersonalities({{3, 16, QStringLiteral("Maker"), QStringLiteral("Spot")},
                                {9, 2, QStringLiteral("Other"), QStringLiteral("Dimmer")}});
    ConsoleStateRecord* record = m_engine->record();
    if (slot >= 0) {
        if (slot >= RecordArea::begin && slot + 4 <= RecordArea::end)
            std::memcpy(reinterpret_cast<char*>(record) + slot, &length, 4);
        RecordArea::storeSlot(record->showFileName, AreaOffset(slot));
        RecordArea::storeSlot(record->personalities, AreaOffset(slot));
    }
    const ConsoleCache* cache = m_console->cache();
    QCOMPARE(cache->showFileName(), text);
    const QList<RecordArea::Personality> list = cache->personalities();
    QCOMPARE(list.size(), personalities);
    if (personalities) {
        const RecordArea::Personality& second = list.at(1);
        QCOMPARE(join(second.id, second.footprint) + second.manufacturer + second.name,
                 QStringLiteral("9/2OtherDimmer"));
    }
}

void TestConsoleRecord::patchCaches_data()
{
    // devices: (first address + 1, footprint) by device
    // patch: (address, entry)
    // caches: address=flags/device, channel=flags, independent
    addColumns<int, Pairs, Pairs, QString>({"model", "devices", "patch", "caches"});

    const int alder = ConsoleCache::ModelAlder, birch = ConsoleCache::ModelBirch;
    const int maple = ConsoleCache::ModelMaple;
    QTest::newRow("channel, independent A, beyond the patchable addresses")
        << alder << Pairs{} << Pairs{{0, 1}, {9, 49}, {600, 3}} << "A0=1/0 A9=1/0 A600=1/0 C0=1 I0";
    QTest::newRow("independent B, two addresses for one channel")
        << birch << Pairs{} << Pairs{{9, 98}, {1, 96}, {2, 96}} << "A1=1/0 A2=1/0 A9=1/0 C95=1 I1";
    QTest::newRow("overlapping devices: the later one wins")
        << maple << Pairs{{11, 3}, {13, 2}} << Pairs{}
        << "A10=6/1 A11=2/1 A12=14/2 A13=2/2 C48=2 C49=2";
    QTest::newRow("device over a channel, address 0 unpatched")
        << maple << Pairs{{0, 8}, {3, 1}} << Pairs{{2, 72}} << "A2=7/2 C49=2 C71=1";
    QTest::newRow("footprint cut at the last address")
        << maple << Pairs{{1022, 5}} << Pairs{} << "A1021=6/1 A1022=2/1 A1023=2/1 C48=2";
}

void TestConsoleRecord::patchCaches()
{
    auto [model, devices, patch, caches] =
        fetch<int, Pairs, Pairs, QString>({"model", "devices", "patch", "caches"});

    m_engine->setupModel(ConsoleCache::ConsoleType(model));
    m_engine->notify(ConsoleCode::Ready);
    ConsoleStateRecord* record = m_engine->record();
    for (int d = 0; d < devices.size(); ++d) {
        record->devices[d].firstAddress = quint16(devices[d].first);
        record->devices[d].footprint = quint8(devices[d].second);
    }
    for (const auto& [at, value] : patch)
        record->dmxPatch[at] = quint8(value);
    m_engine->notify(ConsoleCode::DeviceChanged, 0);

    const auto derived = m_console->cache()->derivedCaches();
    QStringList found;
    for (int a = 0; a < ConsoleStateRecord::addressCount; ++a) {
        if (derived->addressFlags[a] || derived->addressDevice[a])
            found << u'A' + QString::number(a) + u'=' +
                         join(derived->addressFlags[a], derived->addressDevice[a]);
    }
    for (int c = 0; c < ConsoleStateRecord::maxChannels; ++c) {
        if (derived->channelFlags[c])
            found << QStringLiteral("C%1=%2").arg(c).arg(derived->channelFlags[c]);
    }
    for (int i : {0, 1}) {
        if (derived->independentFlags[i])
            found << QStringLiteral("I%1").arg(i);
    }
    QCOMPARE(found.join(u' '), caches);
}

void TestConsoleRecord::rebuildPublishesANewVersion()
{
    ConsoleStateRecord* record = m_engine->record();
    record->dmxPatch[10] = 3;
    record->midiCircuits[5] = 9;
    record->midiCircuits[6] = 129; // out of range: no circuit
    m_console->patchChanged();
    m_console->midiPatchChanged();
    const auto painting = m_console->cache()->derivedCaches();

    // The engine repatches while a view paints from the version it holds.
    record->dmxPatch[10] = 0;
    record->dmxPatch[20] = 4;
    m_engine->notify(ConsoleCode::PatchChanged);
    QCOMPARE(painting->addressFlags[10], ConsoleCache::AddressPatched);
    QCOMPARE(painting->channelFlags[2], ConsoleCache::ChannelPatched);
    QCOMPARE(int(painting->addressFlags[20]), 0);
    // The new version has the new patch and keeps the MIDI flags.
    const auto current = m_console->cache()->derivedCaches();
    QCOMPARE(int(current->addressFlags[10]), 0);
    QCOMPARE(current->channelFlags[3], ConsoleCache::ChannelPatched);
    QCOMPARE(int(std::count(current->midiCircuitFlags.begin(), current->midiCircuitFlags.end(), 1)),
             1);
    QCOMPARE(int(current->midiCircuitFlags[8]), 1);
}

QTEST_GUILESS_MAIN(TestConsoleRecord)
#include "tst_console_record.moc"
