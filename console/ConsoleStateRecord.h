// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The engine-owned state record, laid out byte for byte as the engine keeps
// it. The program reads it in place; nothing here may change size or offset.

#include <QString>
#include <QtGlobal>

#include <cstddef>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the state record is little-endian");

#pragma pack(push, 1)

// Three lines of 7 UTF-16 units; a shorter line ends with a NUL unit.
struct TextBlock
{
    static constexpr int lineCount = 3;
    static constexpr int lineLength = 7;
    char16_t lines[lineCount][lineLength];
};
static_assert(sizeof(TextBlock) == 42);

struct ParameterEntry
{
    // Bit 7: the parameter is set; bit 6: value is a palette index.
    static constexpr quint8 setBit = 0x80;
    static constexpr quint8 paletteBit = 0x40;
    quint8 flags;
    quint8 value;
};

struct ContentRecord
{
    static constexpr int deviceCount = 24;
    static constexpr int parameterCount = 50;
    quint8 channelLevels[96];
    quint8 contentMask; // bit 0 levels, 1 Focus, 2 Color, 3 Beam
    ParameterEntry parameters[deviceCount * parameterCount];
    quint8 reserved[168];
};
static_assert(sizeof(ContentRecord) == 2665);
static_assert(offsetof(ContentRecord, contentMask) == 96);
static_assert(offsetof(ContentRecord, parameters) == 97);

struct MemoryRecord
{
    ContentRecord content;
    quint8 padding;
    TextBlock name;
    quint16 time;
    quint8 recorded;
    quint8 hasEffect;
};
static_assert(sizeof(MemoryRecord) == 2712);
static_assert(offsetof(MemoryRecord, name) == 2666);
static_assert(offsetof(MemoryRecord, time) == 2708);
static_assert(offsetof(MemoryRecord, recorded) == 2710);
static_assert(offsetof(MemoryRecord, hasEffect) == 2711);

struct StepRecord
{
    quint16 cueNumber; // cue number times 10
    quint16 contentIndex;
    quint32 contentType; // 0 channel, 1 memory, 2 direct cue, other empty
    quint16 upTime;
    quint16 downTime;
    quint16 waitTime;
    quint8 flags; // bits 0..3 I F C B, bit 4 move in dark, bit 5 fx
    quint8 padding;
};
static_assert(sizeof(StepRecord) == 16);
static_assert(offsetof(StepRecord, contentIndex) == 2);
static_assert(offsetof(StepRecord, contentType) == 4);
static_assert(offsetof(StepRecord, upTime) == 8);
static_assert(offsetof(StepRecord, downTime) == 10);
static_assert(offsetof(StepRecord, waitTime) == 12);
static_assert(offsetof(StepRecord, flags) == 14);

struct SequenceRecord
{
    static constexpr int maxSteps = 24;
    StepRecord steps[maxSteps];
    quint8 stepCount;
    quint8 padding[3];
    quint32 mode; // 0 Loop, 1 One Shot, 2 Manual
    quint16 marked;
    quint16 rate;
    quint16 fade;
    TextBlock name;
};
static_assert(sizeof(SequenceRecord) == 440);
static_assert(offsetof(SequenceRecord, stepCount) == 384);
static_assert(offsetof(SequenceRecord, mode) == 388);
static_assert(offsetof(SequenceRecord, marked) == 392);
static_assert(offsetof(SequenceRecord, rate) == 394);
static_assert(offsetof(SequenceRecord, fade) == 396);
static_assert(offsetof(SequenceRecord, name) == 398);

struct PaletteRecord
{
    quint8 flags; // bit 1 Focus, bit 2 Color, bit 3 Beam
    quint8 padding;
    TextBlock names[3]; // Focus, Color, Beam
    quint8 values[24][50];
    quint8 include[24][7];
};
static_assert(sizeof(PaletteRecord) == 1496);
static_assert(offsetof(PaletteRecord, names) == 2);
static_assert(offsetof(PaletteRecord, values) == 128);
static_assert(offsetof(PaletteRecord, include) == 1328);

struct GroupRecord
{
    quint8 memberCount;
    quint8 members[25];
    TextBlock name;
};
static_assert(sizeof(GroupRecord) == 68);
static_assert(offsetof(GroupRecord, members) == 1);
static_assert(offsetof(GroupRecord, name) == 26);

struct IndependentRecord
{
    quint8 unused;
    quint8 onLevel;
    quint8 currentLevel;
    quint8 buttonMode;        // 0 latch, nonzero bump
    quint8 grandMasterExempt; // 0 affected by the grand master
    quint8 padding;
    TextBlock legend;
};
static_assert(sizeof(IndependentRecord) == 48);
static_assert(offsetof(IndependentRecord, onLevel) == 1);
static_assert(offsetof(IndependentRecord, currentLevel) == 2);
static_assert(offsetof(IndependentRecord, buttonMode) == 3);
static_assert(offsetof(IndependentRecord, grandMasterExempt) == 4);
static_assert(offsetof(IndependentRecord, legend) == 6);

struct EffectRecord
{
    quint8 pattern; // 0..34, 255 none
    quint8 padding;
    quint16 speed;
    quint16 depth;
    quint16 aspect;
    quint16 rotation;
    quint16 base;
    quint16 range;
    quint16 direction; // 0 forward, 1 backward, 2 bounce
    TextBlock name;
};
static_assert(sizeof(EffectRecord) == 58);
static_assert(offsetof(EffectRecord, speed) == 2);
static_assert(offsetof(EffectRecord, direction) == 14);
static_assert(offsetof(EffectRecord, name) == 16);

struct DeviceRecord
{
    static constexpr int parameterCount = 50;
    static constexpr quint8 hueSaturationModel = 254;
    static constexpr quint8 subtractiveModel = 0;
    quint16 firstAddress; // first DMX address + 1, 0 = not patched
    quint8 footprint;
    quint8 padding0;
    quint8 invertedColourMixing;
    quint8 colourModel;
    char personalityName[19];
    char secondName[19];
    quint8 parameterMap[parameterCount]; // slot + 1 of parameter p, 0 absent
    quint8 padding1[8];
    quint8 notInvertedMask; // bit (p + 1): colour-mix parameter p not inverted
    quint8 padding2[147];
    quint8 colourComponents[7]; // parameter + 1 per component, 0 none
    quint8 padding3;
};
static_assert(sizeof(DeviceRecord) == 258);
static_assert(offsetof(DeviceRecord, footprint) == 2);
static_assert(offsetof(DeviceRecord, invertedColourMixing) == 4);
static_assert(offsetof(DeviceRecord, colourModel) == 5);
static_assert(offsetof(DeviceRecord, personalityName) == 6);
static_assert(offsetof(DeviceRecord, secondName) == 25);
static_assert(offsetof(DeviceRecord, parameterMap) == 44);
static_assert(offsetof(DeviceRecord, notInvertedMask) == 102);
static_assert(offsetof(DeviceRecord, colourComponents) == 250);

struct FaderRecord
{
    quint8 level;
    quint8 active;
    quint8 pageLoaded;
    quint8 rest[193];
};
static_assert(sizeof(FaderRecord) == 196);
static_assert(offsetof(FaderRecord, pageLoaded) == 2);

struct PlaybackRecord
{
    quint8 nextStep;
    quint8 afterLiveStep; // live step index + 1
    quint8 downProgress;
    quint8 upProgress;
    quint8 unused[2];
    quint16 rate; // 256 = 100 %
    quint16 fade; // 256 = 100 %
    quint16 remainingDown;
    quint16 remainingUp;
    quint16 remainingWait;
};
static_assert(sizeof(PlaybackRecord) == 16);
static_assert(offsetof(PlaybackRecord, rate) == 6);
static_assert(offsetof(PlaybackRecord, fade) == 8);
static_assert(offsetof(PlaybackRecord, remainingDown) == 10);
static_assert(offsetof(PlaybackRecord, remainingWait) == 14);

// Colours stored red, blue, green; equal on/off colours mean steady.
struct LedRecord
{
    quint8 on[3];
    quint8 off[3];
};
static_assert(sizeof(LedRecord) == 6);

struct DmxWrite
{
    quint32 kind;    // always 0
    quint16 address; // universe << 9 | address in universe (0-based)
    quint8 level;
    quint8 palette; // palette index + 1, 0 for a level write
};
static_assert(sizeof(DmxWrite) == 8);
static_assert(offsetof(DmxWrite, address) == 4);
static_assert(offsetof(DmxWrite, level) == 6);
static_assert(offsetof(DmxWrite, palette) == 7);

// The three text slots and the personality list slot hold a byte offset from
// the record base into the engine's area right after the record (a 64-bit
// QString does not fit a 4-byte slot). 0 means empty.
using AreaOffset = quint32;

struct ConsoleStateRecord
{
    static constexpr int maxChannels = 96;
    static constexpr int maxDevices = 24;
    static constexpr int maxFaders = 48;
    static constexpr int pages = 12;
    static constexpr int memoriesPerPage = 48;
    static constexpr int sequenceFadersPerPage = 12;
    static constexpr int maxStackSteps = 199;
    static constexpr int stackCues = 200;
    static constexpr int addressCount = 1024;
    static constexpr int ledCount = 125;
    static constexpr int dmxWriteRingSize = 100;

    quint32 selectMode;
    quint32 liveMode; // 0 channels, 1 memories, 2 fader parameters
    qint32 memoryPage;
    qint32 faderParameterPage;
    qint32 channelPage;
    quint8 blindMode;
    quint8 channelLevels[maxChannels];
    quint8 blindLevels[maxChannels];
    quint8 padding0;
    TextBlock channelLegends[maxChannels];
    MemoryRecord memories[pages * memoriesPerPage];
    quint8 padding1[2];
    SequenceRecord sequences[pages * sequenceFadersPerPage];
    StepRecord stackSteps[maxStackSteps];
    quint8 stackStepCount;
    quint8 padding2[3];
    quint32 stackMode;
    quint8 engineReserved[0x210D90 - 0x18EA90];
    TextBlock cueLabels[stackCues];
    quint8 cueRecorded[stackCues];
    ContentRecord cueContents[stackCues];
    TextBlock cueNames[stackCues];
    PaletteRecord palettes[24];
    GroupRecord groups[24];
    TextBlock pageNames[pages];
    quint8 dmxPatch[addressCount];
    quint8 midiCircuits[maxChannels];
    IndependentRecord independents[2];
    EffectRecord effects[36];
    DeviceRecord devices[maxDevices];
    quint8 deviceSelected[maxDevices];
    FaderRecord faders[maxFaders];
    PlaybackRecord playbacks[13];
    AreaOffset libraryVersion;
    AreaOffset personalities;
    quint32 personalitiesHigh; // the slot is pointer-wide; unused
    quint8 crossfaderMode;
    quint8 dmxOutputSpeed;
    quint8 dmxInputMode;
    quint8 dmxBackupBump;
    quint8 midiChannel;
    quint8 midiMusicOn;
    quint8 midiMscId;
    quint8 midiMscOn;
    quint16 defaultUpFade;
    quint16 defaultDownFade;
    quint16 defaultWait;
    quint16 defaultMoveDark;
    quint16 defaultPalette;
    quint8 consoleMode;
    quint8 invertPan[maxDevices];
    quint8 invertTilt[maxDevices];
    quint8 swapPanTilt[maxDevices];
    quint8 padding3;
    AreaOffset showFileName;
    AreaOffset consoleVersion;
    quint8 consoleStatus;
    quint8 dmxOutput[addressCount];
    quint8 dmxInput[512];
    quint8 dmxInputValid;
    quint8 dmxPalette[addressCount];
    LedRecord leds[ledCount];
    quint8 lcdDisplays[2][2][20];
    DmxWrite dmxWriteRing[dmxWriteRingSize];
    quint8 dmxWriteIndex;
    quint8 dmxReadIndex;
    quint8 padding4[2];
    qint32 channelCount;
    qint32 patchAddressCount;
    qint32 deviceCount;
    qint32 faderCount;
    qint32 pageCount;
    qint32 sequenceFaderCount;
    quint8 bumpLevel;
    quint8 grandMasterLevel;
    quint8 padding5[2];
};

#pragma pack(pop)

static_assert(sizeof(ConsoleStateRecord) == 0x2A6248);
static_assert(offsetof(ConsoleStateRecord, liveMode) == 0x4);
static_assert(offsetof(ConsoleStateRecord, memoryPage) == 0x8);
static_assert(offsetof(ConsoleStateRecord, faderParameterPage) == 0xC);
static_assert(offsetof(ConsoleStateRecord, channelPage) == 0x10);
static_assert(offsetof(ConsoleStateRecord, blindMode) == 0x14);
static_assert(offsetof(ConsoleStateRecord, channelLevels) == 0x15);
static_assert(offsetof(ConsoleStateRecord, blindLevels) == 0x75);
static_assert(offsetof(ConsoleStateRecord, channelLegends) == 0xD6);
static_assert(offsetof(ConsoleStateRecord, memories) == 0x1096);
static_assert(offsetof(ConsoleStateRecord, sequences) == 0x17E698);
static_assert(offsetof(ConsoleStateRecord, stackSteps) == 0x18DE18);
static_assert(offsetof(ConsoleStateRecord, stackStepCount) == 0x18EA88);
static_assert(offsetof(ConsoleStateRecord, stackMode) == 0x18EA8C);
static_assert(offsetof(ConsoleStateRecord, cueLabels) == 0x210D90);
static_assert(offsetof(ConsoleStateRecord, cueRecorded) == 0x212E60);
static_assert(offsetof(ConsoleStateRecord, cueContents) == 0x212F28);
static_assert(offsetof(ConsoleStateRecord, cueNames) == 0x295130);
static_assert(offsetof(ConsoleStateRecord, palettes) == 0x297200);
static_assert(offsetof(ConsoleStateRecord, groups) == 0x29FE40);
static_assert(offsetof(ConsoleStateRecord, pageNames) == 0x2A04A0);
static_assert(offsetof(ConsoleStateRecord, dmxPatch) == 0x2A0698);
static_assert(offsetof(ConsoleStateRecord, midiCircuits) == 0x2A0A98);
static_assert(offsetof(ConsoleStateRecord, independents) == 0x2A0AF8);
static_assert(offsetof(ConsoleStateRecord, effects) == 0x2A0B58);
static_assert(offsetof(ConsoleStateRecord, devices) == 0x2A1380);
static_assert(offsetof(ConsoleStateRecord, deviceSelected) == 0x2A2BB0);
static_assert(offsetof(ConsoleStateRecord, faders) == 0x2A2BC8);
static_assert(offsetof(ConsoleStateRecord, playbacks) == 0x2A5088);
static_assert(offsetof(ConsoleStateRecord, libraryVersion) == 0x2A5158);
static_assert(offsetof(ConsoleStateRecord, personalities) == 0x2A515C);
static_assert(offsetof(ConsoleStateRecord, crossfaderMode) == 0x2A5164);
static_assert(offsetof(ConsoleStateRecord, dmxOutputSpeed) == 0x2A5165);
static_assert(offsetof(ConsoleStateRecord, dmxInputMode) == 0x2A5166);
static_assert(offsetof(ConsoleStateRecord, dmxBackupBump) == 0x2A5167);
static_assert(offsetof(ConsoleStateRecord, midiChannel) == 0x2A5168);
static_assert(offsetof(ConsoleStateRecord, midiMusicOn) == 0x2A5169);
static_assert(offsetof(ConsoleStateRecord, midiMscId) == 0x2A516A);
static_assert(offsetof(ConsoleStateRecord, midiMscOn) == 0x2A516B);
static_assert(offsetof(ConsoleStateRecord, defaultUpFade) == 0x2A516C);
static_assert(offsetof(ConsoleStateRecord, defaultPalette) == 0x2A5174);
static_assert(offsetof(ConsoleStateRecord, consoleMode) == 0x2A5176);
static_assert(offsetof(ConsoleStateRecord, invertPan) == 0x2A5177);
static_assert(offsetof(ConsoleStateRecord, invertTilt) == 0x2A518F);
static_assert(offsetof(ConsoleStateRecord, swapPanTilt) == 0x2A51A7);
static_assert(offsetof(ConsoleStateRecord, showFileName) == 0x2A51C0);
static_assert(offsetof(ConsoleStateRecord, consoleVersion) == 0x2A51C4);
static_assert(offsetof(ConsoleStateRecord, consoleStatus) == 0x2A51C8);
static_assert(offsetof(ConsoleStateRecord, dmxOutput) == 0x2A51C9);
static_assert(offsetof(ConsoleStateRecord, dmxInput) == 0x2A55C9);
static_assert(offsetof(ConsoleStateRecord, dmxInputValid) == 0x2A57C9);
static_assert(offsetof(ConsoleStateRecord, dmxPalette) == 0x2A57CA);
static_assert(offsetof(ConsoleStateRecord, leds) == 0x2A5BCA);
static_assert(offsetof(ConsoleStateRecord, lcdDisplays) == 0x2A5EB8);
static_assert(offsetof(ConsoleStateRecord, dmxWriteRing) == 0x2A5F08);
static_assert(offsetof(ConsoleStateRecord, dmxWriteIndex) == 0x2A6228);
static_assert(offsetof(ConsoleStateRecord, dmxReadIndex) == 0x2A6229);
static_assert(offsetof(ConsoleStateRecord, channelCount) == 0x2A622C);
static_assert(offsetof(ConsoleStateRecord, patchAddressCount) == 0x2A6230);
static_assert(offsetof(ConsoleStateRecord, deviceCount) == 0x2A6234);
static_assert(offsetof(ConsoleStateRecord, faderCount) == 0x2A6238);
static_assert(offsetof(ConsoleStateRecord, pageCount) == 0x2A623C);
static_assert(offsetof(ConsoleStateRecord, sequenceFaderCount) == 0x2A6240);
static_assert(offsetof(ConsoleStateRecord, bumpLevel) == 0x2A6244);
static_assert(offsetof(ConsoleStateRecord, grandMasterLevel) == 0x2A6245);
