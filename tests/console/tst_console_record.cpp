// SPDX-License-Identifier: GPL-3.0-or-later
// The record as the engine lays it out: bytes written at raw offsets are read
// back through the cache, edits land at the right offsets, the DMX write ring
// and the caches derived from the patch.
#include "Console.h"
#include "ConsoleCodes.h"
#include "FakeEngine.h"
#include "SignalRecorder.h"

#include <QTest>

#include <cstring>
#include <functional>
#include <memory>

namespace {
using Call = FakeEngine::Call;
using Reader = std::function<QVariant(const ConsoleCache&)>;
using Editor = std::function<void(ConsoleCache&)>;
using Pairs = QList<QPair<int, int>>;

// Raw bytes to place before reading: offset and bytes.
struct Poke
{
    quint32 offset;
    QByteArray bytes;
};

QByteArray utf16(const QString& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

QByteArray u16(quint16 value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), 2);
}

// A text block line as stored: up to 7 units, NUL-padded.
QByteArray line(const QString& text)
{
    QByteArray bytes = utf16(text);
    bytes.append(QByteArray(14 - bytes.size(), '\0'));
    return bytes;
}

constexpr quint32 memoryOffset(int page, int index)
{
    return 0x1096 + quint32(page * 48 + index) * 2712;
}
constexpr quint32 sequenceOffset(int page, int fader)
{
    return 0x17E698 + quint32(page * 12 + fader) * 440;
}
constexpr quint32 paletteOffset(int palette)
{
    return 0x297200 + quint32(palette) * 1496;
}
constexpr quint32 deviceOffset(int device)
{
    return 0x2A1380 + quint32(device) * 258;
}
} // namespace

Q_DECLARE_METATYPE(Reader)
Q_DECLARE_METATYPE(Editor)
Q_DECLARE_METATYPE(Poke)
Q_DECLARE_METATYPE(Call)

class TestConsoleRecord : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void readsAtOffsets_data();
    void readsAtOffsets();
    void editsLandAtOffsets_data();
    void editsLandAtOffsets();
    void areaTexts();
    void dmxRingDropsTheHundredthWrite();
    void dmxRingWrapsAroundTheReader();
    void addressMap_data();
    void addressMap();
    void channelFlags_data();
    void channelFlags();
    void midiCircuitFlags();

private:
    void poke(quint32 offset, const QByteArray& bytes)
    {
        std::memcpy(m_engine->bytes() + offset, bytes.constData(), size_t(bytes.size()));
    }
    QByteArray peek(quint32 offset, int size)
    {
        return QByteArray(reinterpret_cast<const char*>(m_engine->bytes() + offset), size);
    }

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
    m_console = nullptr;
    m_engine.reset();
}

void TestConsoleRecord::readsAtOffsets_data()
{
    QTest::addColumn<QList<Poke>>("pokes");
    QTest::addColumn<Reader>("read");
    QTest::addColumn<QVariant>("expected");

    const auto row = [](const char* name, QList<Poke> pokes, Reader read, QVariant expected) {
        QTest::newRow(name) << pokes << read << expected;
    };
    row(
        "select mode", {{0x0, QByteArray::fromHex("05000000")}},
        [](const ConsoleCache& c) { return c.selectMode(); }, 5);
    row(
        "channel legend line 1", {{0xD6 + 7 * 42 + 14, line("Wash")}},
        [](const ConsoleCache& c) { return c.channelLegend(7, 1); }, QStringLiteral("Wash"));
    row(
        "channel legend 7 units, no NUL", {{0xD6 + 14, utf16(QStringLiteral("ABCDEFGHIJ"))}},
        [](const ConsoleCache& c) { return c.channelLegend(0, 1); }, QStringLiteral("ABCDEFG"));
    row(
        "channel legend whole block", {{0xD6 + 95 * 42, line("Front") + line("Left") + line("")}},
        [](const ConsoleCache& c) { return c.channelLegend(95, -1); },
        QStringLiteral("Front Left"));
    row(
        "memory name", {{memoryOffset(11, 47) + 2666 + 28, line("Finale")}},
        [](const ConsoleCache& c) { return c.memoryName(11, 47, 2); }, QStringLiteral("Finale"));
    row(
        "memory time", {{memoryOffset(2, 3) + 2708, u16(653)}},
        [](const ConsoleCache& c) { return c.memoryTime(2, 3); }, 653);
    row(
        "memory recorded", {{memoryOffset(2, 3) + 2710, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.isMemoryRecorded(2, 3); }, true);
    row(
        "memory effect flag", {{memoryOffset(2, 3) + 2711, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.memoryHasEffect(2, 3); }, true);
    row(
        "memory content mask", {{memoryOffset(1, 0) + 96, QByteArray("\x0b", 1)}},
        [](const ConsoleCache& c) { return c.memoryContentMask(1, 0); }, 11);
    row(
        "memory channel level", {{memoryOffset(1, 0) + 71, QByteArray("\xc8", 1)}},
        [](const ConsoleCache& c) { return c.memoryChannelLevel(1, 0, 71); }, 200);
    row(
        "memory parameter flags",
        {{memoryOffset(0, 1) + 97 + (5 * 50 + 9) * 2, QByteArray("\xc0\x03", 2)}},
        [](const ConsoleCache& c) { return c.memoryParameterFlags(0, 1, 5, 9); }, 0xC0);
    row(
        "memory parameter through palette",
        {{memoryOffset(0, 1) + 97 + (5 * 50 + 9) * 2, QByteArray("\xc0\x03", 2)},
         {paletteOffset(3) + 128 + 5 * 50 + 9, QByteArray("\x77", 1)}},
        [](const ConsoleCache& c) { return c.memoryParameterValue(0, 1, 5, 9, true); }, 0x77);
    row(
        "memory parameter raw",
        {{memoryOffset(0, 1) + 97 + (5 * 50 + 9) * 2, QByteArray("\xc0\x03", 2)}},
        [](const ConsoleCache& c) { return c.memoryParameterValue(0, 1, 5, 9, false); }, 3);
    row(
        "stack cue name", {{0x295130 + 12 * 42, line("Intro")}},
        [](const ConsoleCache& c) { return c.memoryName(-1, 12, 0); }, QStringLiteral("Intro"));
    row(
        "stack cue recorded", {{0x212E60 + 12, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.isMemoryRecorded(-1, 12); }, true);
    row(
        "stack cue level", {{0x212F28 + 12 * 2665 + 4, QByteArray("\x40", 1)}},
        [](const ConsoleCache& c) { return c.memoryChannelLevel(-1, 12, 4); }, 64);
    row(
        "sequence name", {{sequenceOffset(3, 11) + 398, line("Chase")}},
        [](const ConsoleCache& c) { return c.sequenceName(3, 11, 0); }, QStringLiteral("Chase"));
    row(
        "sequence mode", {{sequenceOffset(3, 11) + 388, QByteArray::fromHex("02000000")}},
        [](const ConsoleCache& c) { return c.sequenceMode(3, 11); }, 2);
    row(
        "sequence step count", {{sequenceOffset(3, 11) + 384, QByteArray("\x09", 1)}},
        [](const ConsoleCache& c) { return c.stepCount(3, 11); }, 9);
    row(
        "sequence step number", {{sequenceOffset(0, 0) + 2 * 16, u16(30)}},
        [](const ConsoleCache& c) { return c.stepNumberText(0, 0, 2); }, QStringLiteral("3"));
    row(
        "stack step count", {{0x18EA88, QByteArray("\x2a", 1)}},
        [](const ConsoleCache& c) { return c.stepCount(-1, -1); }, 42);
    row(
        "stack mode", {{0x18EA8C, QByteArray::fromHex("01000000")}},
        [](const ConsoleCache& c) { return c.sequenceMode(-1, -1); }, 1);
    row(
        "stack step number", {{0x18DE18 + 198 * 16, u16(125)}},
        [](const ConsoleCache& c) { return c.stepNumberText(-1, -1, 198); },
        QStringLiteral("12.5"));
    row(
        "stack whole cues",
        {{0x18EA88, QByteArray("\x03", 1)},
         {0x18DE18, u16(10) + QByteArray(14, 0) + u16(15) + QByteArray(14, 0) + u16(20)}},
        [](const ConsoleCache& c) { return c.stackWholeCueCount(); }, 2);
    row(
        "direct cue content name",
        {{0x18DE18 + 4 * 16 + 4, QByteArray::fromHex("02000000")},
         {0x210D90 + 4 * 42, line("Black")}},
        [](const ConsoleCache& c) { return c.stepContentName(-1, -1, 4); },
        QStringLiteral("Black"));
    row(
        "memory step content name",
        {{0x18DE18 + 4, QByteArray::fromHex("01000000")},
         {0x18DE18 + 2, u16(2 * 24 + 5)},
         {memoryOffset(2, 5) + 2666, line("Warm") + line("Front")}},
        [](const ConsoleCache& c) { return c.stepContentName(-1, -1, 0); },
        QStringLiteral("Warm  Front"));
    row(
        "palette colour name", {{paletteOffset(23) + 44, line("Amber")}},
        [](const ConsoleCache& c) { return c.paletteName(23, 1, 0); }, QStringLiteral("Amber"));
    row(
        "palette flags", {{paletteOffset(2), QByteArray("\x06", 1)}},
        [](const ConsoleCache& c) { return c.paletteFlags(2); }, 6);
    row(
        "palette include bit", {{paletteOffset(2) + 1328 + 7 * 7 + 1, QByteArray("\x04", 1)}},
        [](const ConsoleCache& c) { return c.paletteIncludes(2, 7, 10); }, true);
    row(
        "palette value", {{paletteOffset(2) + 128 + 7 * 50 + 10, QByteArray("\x99", 1)}},
        [](const ConsoleCache& c) { return c.paletteValue(2, 7, 10); }, 0x99);
    row(
        "palette colour value of an inverted device",
        {{paletteOffset(2) + 128 + 7 * 50 + 3, QByteArray("\x10", 1)},
         {deviceOffset(7) + 4, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.paletteValue(2, 7, 3); }, 0xEF);
    row(
        "group name", {{0x29FE40 + 5 * 68 + 26, line("Spots")}},
        [](const ConsoleCache& c) { return c.groupName(5, 0); }, QStringLiteral("Spots"));
    row(
        "page name", {{0x2A04A0 + 11 * 42 + 14, line("Act 2")}},
        [](const ConsoleCache& c) { return c.pageName(11, 1); }, QStringLiteral("Act 2"));
    row(
        "effect name", {{0x2A0B58 + 35 * 58 + 16, line("Circle")}},
        [](const ConsoleCache& c) { return c.effectName(35, 0); }, QStringLiteral("Circle"));
    row(
        "independent B legend", {{0x2A0AF8 + 48 + 6, line("Haze")}},
        [](const ConsoleCache& c) { return c.independentLegend(1, 0); }, QStringLiteral("Haze"));
    row(
        "independent on level", {{0x2A0AF8 + 48 + 1, QByteArray("\x80", 1)}},
        [](const ConsoleCache& c) { return c.independentOnLevel(1); }, 128);
    row(
        "independent level", {{0x2A0AF8 + 2, QByteArray("\x11", 1)}},
        [](const ConsoleCache& c) { return c.independentLevel(0); }, 17);
    row(
        "independent bump mode", {{0x2A0AF8 + 3, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.isIndependentLatch(0); }, false);
    row(
        "independent latch mode", {{0x2A0AF8 + 3, QByteArray("\x00", 1)}},
        [](const ConsoleCache& c) { return c.isIndependentLatch(0); }, true);
    row(
        "independent not affected by GM", {{0x2A0AF8 + 4, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.isIndependentAffectedByGrandMaster(0); }, false);
    row(
        "device first address", {{deviceOffset(23), u16(513)}},
        [](const ConsoleCache& c) { return c.deviceFirstAddress(23); }, 512);
    row(
        "device footprint", {{deviceOffset(23) + 2, QByteArray("\x10", 1)}},
        [](const ConsoleCache& c) { return c.deviceFootprint(23); }, 16);
    row(
        "device with address 0 is unpatched", {{deviceOffset(1) + 2, QByteArray("\x10", 1)}},
        [](const ConsoleCache& c) { return c.isDevicePatched(1); }, false);
    row(
        "device colour model", {{deviceOffset(1) + 5, QByteArray("\xfe", 1)}},
        [](const ConsoleCache& c) { return c.deviceColourModel(1); }, 254);
    row(
        "device personality name", {{deviceOffset(1) + 6, QByteArray("Spot 575\0", 9)}},
        [](const ConsoleCache& c) { return c.devicePersonalityName(1); },
        QStringLiteral("Spot 575"));
    row(
        "device second name", {{deviceOffset(1) + 25, QByteArray("Mode 2\0", 7)}},
        [](const ConsoleCache& c) { return c.deviceSecondName(1); }, QStringLiteral("Mode 2"));
    row(
        "device parameter address",
        {{deviceOffset(4), u16(101)}, {deviceOffset(4) + 44 + 2, QByteArray("\x03", 1)}},
        [](const ConsoleCache& c) { return c.deviceParameterAddress(4, 2); }, 102);
    row(
        "device lacks parameter", {{deviceOffset(4), u16(101)}},
        [](const ConsoleCache& c) { return c.deviceHasParameter(4, 2); }, false);
    row(
        "device parameter shows its palette",
        {{deviceOffset(4), u16(101)},
         {deviceOffset(4) + 44 + 1, QByteArray("\x01", 1)},
         {0x2A51C9 + 100, QByteArray("\x55", 1)},
         {0x2A57CA + 100, QByteArray("\x03", 1)}},
        [](const ConsoleCache& c) { return c.deviceParameterValue(4, 1); }, 2);
    row(
        "device parameter raw level",
        {{deviceOffset(4), u16(101)},
         {deviceOffset(4) + 44 + 1, QByteArray("\x01", 1)},
         {0x2A51C9 + 100, QByteArray("\x55", 1)},
         {0x2A57CA + 100, QByteArray("\x03", 1)}},
        [](const ConsoleCache& c) { return c.deviceParameterValue(4, 1, true); }, 0x55);
    row(
        "output level", {{0x2A51C9 + 1023, QByteArray("\xfe", 1)}},
        [](const ConsoleCache& c) { return c.outputLevel(1023); }, 254);
    row(
        "input level", {{0x2A55C9 + 511, QByteArray("\x21", 1)}},
        [](const ConsoleCache& c) { return c.inputLevel(511); }, 0x21);
    row(
        "no palette reference", {}, [](const ConsoleCache& c) { return c.paletteReference(7); },
        -1);
    row(
        "fader page", {{0x2A2BC8 + 47 * 196 + 2, QByteArray("\x05", 1)}},
        [](const ConsoleCache& c) { return c.faderPage(47); }, 5);
    row(
        "playback index of a loaded sequence",
        {{0x2A2BC8 + (12 + 3) * 196 + 2, QByteArray("\x04", 1)}},
        [](const ConsoleCache& c) { return c.playbackIndex(4, 3); }, 3);
    row(
        "playback index of an unloaded sequence",
        {{0x2A2BC8 + (12 + 3) * 196 + 2, QByteArray("\x04", 1)}},
        [](const ConsoleCache& c) { return c.playbackIndex(5, 3); }, -1);
    row(
        "playback index of the stack", {},
        [](const ConsoleCache& c) { return c.playbackIndex(-1, -1); }, 12);
    row(
        "console status", {{0x2A51C8, QByteArray("\x01", 1)}},
        [](const ConsoleCache& c) { return c.console()->consoleStatus(); }, 1);
}

void TestConsoleRecord::readsAtOffsets()
{
    QFETCH(QList<Poke>, pokes);
    QFETCH(Reader, read);
    QFETCH(QVariant, expected);

    for (const Poke& p : pokes)
        poke(p.offset, p.bytes);
    const QVariant actual = read(*m_console->cache());
    QCOMPARE(actual.toString(), expected.toString());
}

void TestConsoleRecord::editsLandAtOffsets_data()
{
    QTest::addColumn<Editor>("edit");
    QTest::addColumn<quint32>("offset");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QList<Call>>("updates");
    QTest::addColumn<bool>("scribble");

    const auto row = [](const char* name, Editor edit, quint32 offset, QByteArray bytes,
                        QList<Call> updates, bool scribble = false) {
        QTest::newRow(name) << edit << offset << bytes << updates << scribble;
    };
    // Text edits rewrite the whole line: garbage behind the text goes.
    const auto textRow = [&row](const char* name, Editor edit, quint32 offset, QByteArray bytes,
                                QList<Call> updates) {
        row(name, edit, offset, bytes, updates, true);
    };
    textRow("channel legend line", [](ConsoleCache& c) { c.setChannelLegend(70, 2, "Strobe"); },
            0xD6 + 70 * 42 + 28, line("Strobe"), {{9, 70, 0, 0}});
    textRow("channel legend cut to 7",
            [](ConsoleCache& c) { c.setChannelLegend(0, 0, "Followspot"); }, 0xD6,
            utf16("Followspot").left(14), {{9, 0, 0, 0}});
    textRow("channel legend whole block",
            [](ConsoleCache& c) { c.setChannelLegend(1, -1, "Front Left Stage Side"); }, 0xD6 + 42,
            line("Front ") + line("Left S") + line("tage S"), {{9, 1, 0, 0}});
    textRow("independent legend", [](ConsoleCache& c) { c.setIndependentLegend(1, 0, "Smoke"); },
            0x2A0AF8 + 48 + 6, line("Smoke"), {{12, 0, 0, 0}});
    row("independent latch stored inverted",
        [](ConsoleCache& c) { c.setIndependentLatch(0, false); }, 0x2A0AF8 + 3,
        QByteArray("\x01", 1), {});
    row("independent GM stored inverted",
        [](ConsoleCache& c) { c.setIndependentAffectedByGrandMaster(1, true); }, 0x2A0AF8 + 48 + 4,
        QByteArray("\x00", 1), {});
    row("independent on level", [](ConsoleCache& c) { c.setIndependentOnLevel(0, 191); },
        0x2A0AF8 + 1, QByteArray("\xbf", 1), {});
    textRow("memory name", [](ConsoleCache& c) { c.setMemoryName(4, 20, 1, "Sunset"); },
            memoryOffset(4, 20) + 2666 + 14, line("Sunset"), {{0, 4, 20, 0}});
    textRow("stack cue name", [](ConsoleCache& c) { c.setMemoryName(-1, 150, 0, "Storm"); },
            0x295130 + 150 * 42, line("Storm"), {{4, 150, 0, 0}});
    row("memory time", [](ConsoleCache& c) { c.setMemoryTime(4, 20, 0x1234); },
        memoryOffset(4, 20) + 2708, u16(0x1234), {});
    row("memory level marks it recorded",
        [](ConsoleCache& c) { c.setMemoryChannelLevel(4, 20, 3, 99); }, memoryOffset(4, 20) + 2710,
        QByteArray("\x01", 1), {});
    row("memory level", [](ConsoleCache& c) { c.setMemoryChannelLevel(4, 20, 3, 99); },
        memoryOffset(4, 20) + 3, QByteArray("\x63", 1), {});
    row("stack cue level leaves cueRecorded",
        [](ConsoleCache& c) { c.setMemoryChannelLevel(-1, 7, 3, 99); }, 0x212E60 + 7,
        QByteArray("\x00", 1), {});
    row("stack cue level", [](ConsoleCache& c) { c.setMemoryChannelLevel(-1, 7, 3, 99); },
        0x212F28 + 7 * 2665 + 3, QByteArray("\x63", 1), {});
    row("memory parameter level",
        [](ConsoleCache& c) { c.setMemoryParameter(0, 0, 2, 10, 200, false); },
        memoryOffset(0, 0) + 97 + (2 * 50 + 10) * 2, QByteArray("\x80\xc8", 2), {});
    row("memory parameter palette",
        [](ConsoleCache& c) { c.setMemoryParameter(0, 0, 2, 10, 4, true); },
        memoryOffset(0, 0) + 97 + (2 * 50 + 10) * 2, QByteArray("\xc0\x04", 2), {});
    row("pan level clears pan fine",
        [](ConsoleCache& c) {
            c.setMemoryParameter(0, 0, 2, 48, 77, false);
            c.setMemoryParameter(0, 0, 2, 1, 200, false);
        },
        memoryOffset(0, 0) + 97 + (2 * 50 + 48) * 2, QByteArray("\x80\x00", 2), {});
    row("tilt palette sets tilt fine",
        [](ConsoleCache& c) { c.setMemoryParameter(0, 0, 2, 2, 6, true); },
        memoryOffset(0, 0) + 97 + (2 * 50 + 49) * 2, QByteArray("\xc0\x06", 2), {});
    row("clear parameter",
        [](ConsoleCache& c) {
            c.setMemoryParameter(0, 0, 2, 10, 4, true);
            c.clearMemoryParameter(0, 0, 2, 10);
        },
        memoryOffset(0, 0) + 97 + (2 * 50 + 10) * 2, QByteArray("\x40\x04", 2), {});
    textRow("sequence name", [](ConsoleCache& c) { c.setSequenceName(11, 11, 0, "Rain"); },
            sequenceOffset(11, 11) + 398, line("Rain"), {{2, 11, 11, 0}});
    row("sequence mode", [](ConsoleCache& c) { c.setSequenceMode(1, 2, 1); },
        sequenceOffset(1, 2) + 388, QByteArray::fromHex("01000000"), {{2, 1, 2, 0}});
    row("stack mode", [](ConsoleCache& c) { c.setSequenceMode(-1, -1, 2); }, 0x18EA8C,
        QByteArray::fromHex("02000000"), {{3, 0, 0, 0}});
    textRow("cue label", [](ConsoleCache& c) { c.setCueLabel(3, 0, "Go"); }, 0x210D90 + 3 * 42,
            line("Go"), {{4, 3, 0, 0}});
    textRow("palette name keeps 6", [](ConsoleCache& c) { c.setPaletteName(5, 2, 0, "Gobo1234"); },
            paletteOffset(5) + 86, line("Gobo12"), {{1, 5, 0, 0}});
    row("palette value and include bit", [](ConsoleCache& c) { c.setPaletteValue(5, 3, 17, 90); },
        paletteOffset(5) + 1328 + 3 * 7 + 2, QByteArray("\x02", 1), {});
    row("palette colour value of an inverted device",
        [](ConsoleCache& c) {
            c.record()->devices[3].invertedColourMixing = 1;
            c.setPaletteValue(5, 3, 4, 0x30);
        },
        paletteOffset(5) + 128 + 3 * 50 + 4, QByteArray("\xcf", 1), {});
    row("palette clear include",
        [](ConsoleCache& c) {
            c.setPaletteValue(5, 3, 16, 1);
            c.setPaletteValue(5, 3, 17, 1);
            c.clearPaletteInclude(5, 3, 16);
        },
        paletteOffset(5) + 1328 + 3 * 7 + 2, QByteArray("\x02", 1), {});
    textRow("group name", [](ConsoleCache& c) { c.setGroupName(23, 0, "Wash"); },
            0x29FE40 + 23 * 68 + 26, line("Wash"), {{7, 23, 0, 0}});
    textRow("page name", [](ConsoleCache& c) { c.setPageName(0, 0, "Act 1"); }, 0x2A04A0,
            line("Act 1"), {{8, 0, 0, 0}});
    textRow("effect name", [](ConsoleCache& c) { c.setEffectName(14, 0, "Wave"); },
            0x2A0B58 + 14 * 58 + 16, line("Wave"), {{10, 14, 0, 0}});
    row("patch device", [](ConsoleCache& c) { c.patchDevice(3, 77, 600); }, 0, QByteArray(),
        {{29, 3, 77, 600}});
    row("repatch device", [](ConsoleCache& c) { c.repatchDevice(3, 12); }, 0, QByteArray(),
        {{31, 3, 12, 0}});
    row("unpatch device", [](ConsoleCache& c) { c.unpatchDevice(3); }, 0, QByteArray(),
        {{30, 3, 0, 0}});
    row("delete step", [](ConsoleCache& c) { c.deleteStep(2, 5, 7); }, 0, QByteArray(),
        {{34, 12 * 2 + 5, 7, 0}});
    row("select page", [](ConsoleCache& c) { c.selectPage(6); }, 0, QByteArray(), {{39, 10, 6, 0}});
}

void TestConsoleRecord::editsLandAtOffsets()
{
    QFETCH(Editor, edit);
    QFETCH(quint32, offset);
    QFETCH(QByteArray, bytes);
    QFETCH(QList<Call>, updates);
    QFETCH(bool, scribble);

    if (scribble)
        poke(offset, QByteArray(bytes.size(), '\x5a'));
    edit(*m_console->cache());
    if (!bytes.isEmpty())
        QCOMPARE(peek(offset, int(bytes.size())).toHex(' '), bytes.toHex(' '));
    QCOMPARE(m_engine->updates(), updates);
}

void TestConsoleRecord::areaTexts()
{
    m_engine->setShowFileName(QStringLiteral("C:/Shows/Hamlet.asc"));
    m_engine->setConsoleVersion(QStringLiteral("2.14"));
    m_engine->setLibraryVersion(QStringLiteral("lib 7"));
    m_engine->setPersonalities({{3, 16, QStringLiteral("Maker"), QStringLiteral("Spot")},
                                {9, 2, QStringLiteral("Other"), QStringLiteral("Dimmer")}});
    const ConsoleCache* cache = m_console->cache();
    QCOMPARE(cache->showFileName(), QStringLiteral("C:/Shows/Hamlet.asc"));
    QCOMPARE(cache->consoleVersion(), QStringLiteral("2.14"));
    QCOMPARE(cache->libraryVersion(), QStringLiteral("lib 7"));
    const QList<RecordArea::Personality> list = cache->personalities();
    QCOMPARE(list.size(), 2);
    QCOMPARE(list.at(1).id, 9);
    QCOMPARE(list.at(1).footprint, 2);
    QCOMPARE(list.at(1).name, QStringLiteral("Dimmer"));
    // A new show has no file name.
    RecordArea::storeSlot(m_engine->record()->showFileName, 0);
    QCOMPARE(cache->showFileName(), QString());
}

void TestConsoleRecord::dmxRingDropsTheHundredthWrite()
{
    constexpr quint32 ring = 0x2A5F08;
    for (int i = 0; i < 99; ++i)
        m_console->writeDmx(quint16(i * 10), quint8(i), false);
    QCOMPARE(int(peek(0x2A6228, 1).at(0)), 99);
    // The engine read nothing: the 100th write would make the ring look empty.
    m_console->writeDmx(1023, 255, false);
    QCOMPARE(int(peek(0x2A6228, 1).at(0)), 99);
    QCOMPARE(peek(ring + 99 * 8, 8), QByteArray(8, '\0'));
    // Entry 98 as the engine will read it: kind 0, address 980, level 98.
    QCOMPARE(peek(ring + 98 * 8, 8).toHex(' '), QByteArray("00 00 00 00 d4 03 62 00"));
}

void TestConsoleRecord::dmxRingWrapsAroundTheReader()
{
    constexpr quint32 ring = 0x2A5F08;
    poke(0x2A6228, QByteArray("\x62", 1));  // write index 98
    poke(0x2A6229, QByteArray("\x03", 1));  // engine has read up to 3
    m_console->writeDmx(512 + 16, 7, true); // palette 7 at 2:17
    m_console->writeDmx(1, 128, false);
    m_console->writeDmx(2, 129, false);
    m_console->writeDmx(3, 130, false); // slot 2: the one before the reader
    m_console->writeDmx(4, 131, false); // full
    QCOMPARE(int(peek(0x2A6228, 1).at(0)), 2);
    QCOMPARE(peek(ring + 98 * 8, 8).toHex(' '), QByteArray("00 00 00 00 10 02 00 08"));
    QCOMPARE(peek(ring + 99 * 8, 8).toHex(' '), QByteArray("00 00 00 00 01 00 80 00"));
    QCOMPARE(peek(ring + 1 * 8, 8).toHex(' '), QByteArray("00 00 00 00 03 00 82 00"));
    QCOMPARE(peek(ring + 2 * 8, 8), QByteArray(8, '\0'));
}

void TestConsoleRecord::addressMap_data()
{
    // Devices as (first address + 1, footprint); patch entries as (address, value).
    QTest::addColumn<Pairs>("devices");
    QTest::addColumn<Pairs>("patch");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("device");

    QTest::newRow("unpatched") << Pairs{} << Pairs{} << 0 << 0 << 0;
    QTest::newRow("channel patched") << Pairs{} << Pairs{{5, 1}} << 5 << 0x01 << 0;
    QTest::newRow("device start") << Pairs{{11, 4}} << Pairs{} << 10 << 0x06 << 1;
    QTest::newRow("device body") << Pairs{{11, 4}} << Pairs{} << 13 << 0x02 << 1;
    QTest::newRow("after device") << Pairs{{11, 4}} << Pairs{} << 14 << 0x00 << 0;
    QTest::newRow("overlap takes the later device")
        << Pairs{{11, 4}, {13, 4}} << Pairs{} << 13 << 0x0A << 2;
    QTest::newRow("overlap at the second start")
        << Pairs{{11, 4}, {13, 4}} << Pairs{} << 12 << 0x0E << 2;
    QTest::newRow("second device alone") << Pairs{{11, 4}, {13, 4}} << Pairs{} << 15 << 0x02 << 2;
    QTest::newRow("device on a channel") << Pairs{{11, 4}} << Pairs{{11, 2}} << 11 << 0x03 << 1;
    QTest::newRow("address 0 means unpatched") << Pairs{{0, 8}} << Pairs{} << 0 << 0 << 0;
    QTest::newRow("second universe") << Pairs{{0, 0}, {1000, 30}} << Pairs{} << 1023 << 0x02 << 2;
    QTest::newRow("patch beyond patchAddressCount still marks")
        << Pairs{} << Pairs{{1020, 3}} << 1020 << 0x01 << 0;
}

void TestConsoleRecord::addressMap()
{
    QFETCH(Pairs, devices);
    QFETCH(Pairs, patch);
    QFETCH(int, address);
    QFETCH(int, flags);
    QFETCH(int, device);

    m_engine->record()->patchAddressCount = 512;
    for (int d = 0; d < devices.size(); ++d) {
        poke(deviceOffset(d), u16(quint16(devices[d].first)));
        poke(deviceOffset(d) + 2, QByteArray(1, char(devices[d].second)));
    }
    for (const auto& [at, value] : patch)
        poke(0x2A0698 + quint32(at), QByteArray(1, char(value)));
    SignalRecorder recorder(m_console);
    m_engine->notify(ConsoleCode::DeviceChanged, 0);

    QCOMPARE(recorder.signatures(), QList<QByteArray>{"deviceUpdated(int)"});
    QCOMPARE(int(m_console->cache()->addressFlags(address)), flags);
    QCOMPARE(m_console->cache()->addressDevice(address), device);
}

void TestConsoleRecord::channelFlags_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<Pairs>("patch");
    QTest::addColumn<int>("patchedDevice"); // -1 none
    QTest::addColumn<QList<int>>("channels");
    QTest::addColumn<QList<int>>("independents");

    QTest::newRow("Alder channel 1") << int(ConsoleCache::ModelAlder) << Pairs{{0, 1}} << -1
                                     << QList<int>{0} << QList<int>{0, 0};
    QTest::newRow("Alder entry 49 is independent A")
        << int(ConsoleCache::ModelAlder) << Pairs{{9, 49}} << -1 << QList<int>{}
        << QList<int>{1, 0};
    QTest::newRow("Birch entry 98 is independent B")
        << int(ConsoleCache::ModelBirch) << Pairs{{9, 98}} << -1 << QList<int>{}
        << QList<int>{0, 1};
    QTest::newRow("Alder beyond 512 addresses ignored")
        << int(ConsoleCache::ModelAlder) << Pairs{{600, 3}, {700, 49}} << -1 << QList<int>{}
        << QList<int>{0, 0};
    QTest::newRow("Maple uses 1024 addresses") << int(ConsoleCache::ModelMaple) << Pairs{{1000, 72}}
                                               << -1 << QList<int>{71} << QList<int>{0, 0};
    QTest::newRow("Maple device 5 marks channel 53")
        << int(ConsoleCache::ModelMaple) << Pairs{} << 5 << QList<int>{53} << QList<int>{0, 0};
    QTest::newRow("two addresses, one channel")
        << int(ConsoleCache::ModelCedar) << Pairs{{1, 96}, {2, 96}} << -1 << QList<int>{95}
        << QList<int>{0, 0};
}

void TestConsoleRecord::channelFlags()
{
    QFETCH(int, model);
    QFETCH(Pairs, patch);
    QFETCH(int, patchedDevice);
    QFETCH(QList<int>, channels);
    QFETCH(QList<int>, independents);

    FakeEngine engine{ConsoleCache::ConsoleType(model)};
    Console* console = engine.createConsole();
    for (const auto& [at, value] : patch)
        engine.record()->dmxPatch[at] = quint8(value);
    if (patchedDevice >= 0)
        engine.record()->devices[patchedDevice].firstAddress = 200;
    console->patchChanged();

    const ConsoleCache* cache = console->cache();
    for (int c = 0; c < cache->channelCount(); ++c) {
        const int expected =
            channels.contains(c)
                ? (c == cache->firstDeviceChannel() + patchedDevice && patchedDevice >= 0
                       ? ConsoleCache::ChannelDevicePatched
                       : ConsoleCache::ChannelPatched)
                : 0;
        QCOMPARE(int(cache->channelFlags(c)), expected);
    }
    QCOMPARE(int(cache->independentFlags(0)), independents.at(0));
    QCOMPARE(int(cache->independentFlags(1)), independents.at(1));
    QCOMPARE(engine.updates(), (QList<Call>{{5, 0, 0, 0}}));
    delete console;
}

void TestConsoleRecord::midiCircuitFlags()
{
    ConsoleStateRecord* record = m_engine->record();
    record->midiCircuits[0] = 1;
    record->midiCircuits[10] = 128;
    record->midiCircuits[20] = 64;
    record->midiCircuits[30] = 64;
    record->midiCircuits[40] = 129; // out of range: no circuit
    SignalRecorder recorder(m_console);
    m_console->midiPatchChanged();

    QCOMPARE(recorder.signatures(), QList<QByteArray>{"patchUpdated()"});
    QList<int> set;
    for (int n = 0; n < 128; ++n) {
        if (m_console->cache()->midiCircuitFlags(n))
            set.append(n);
    }
    QCOMPARE(set, (QList<int>{0, 63, 127}));

    record->midiCircuits[0] = 0;
    m_engine->notify(ConsoleCode::MidiPatchChanged);
    QCOMPARE(int(m_console->cache()->midiCircuitFlags(0)), 0);
}

QTEST_GUILESS_MAIN(TestConsoleRecord)
#include "tst_console_record.moc"
