// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleStateRecord.h"
#include "RecordArea.h"

#include <QColor>
#include <QList>
#include <QString>

#include <array>
#include <memory>
#include <mutex>
#include <optional>

class Console;

// The views' window on the engine's state record: accessors that read the
// record in place, edit operations that write it and report the change, the
// caches derived from it (rebuilt by Console on the engine's thread) and the
// text helpers every view shares.
//
// Keys: a memory is (page, index), page -1 naming a cue of the stack; a
// sequence is (page, fader), (-1, -1) naming the stack. Text lines are 0..2,
// or -1 for the whole block as one text. Accessors expect indexes below the
// record's counts.
class ConsoleCache
{
public:
    enum ConsoleType : int
    {
        ModelAlder = 0,
        ModelBirch = 1,
        ModelCedar = 2,
        ModelMaple = 3,
        ModelUnknown = 4
    };

    // addressFlags bits.
    static constexpr quint8 AddressPatched = 0x01;     // a channel or independent
    static constexpr quint8 AddressDevice = 0x02;      // a device covers it
    static constexpr quint8 AddressDeviceStart = 0x04; // a device starts here
    static constexpr quint8 AddressConflict = 0x08;    // a second device covers it
    // channelFlags bits.
    static constexpr quint8 ChannelPatched = 0x01;
    static constexpr quint8 ChannelDevicePatched = 0x02;

    // Step content types.
    static constexpr quint32 StepChannel = 0;
    static constexpr quint32 StepMemory = 1;
    static constexpr quint32 StepDirectCue = 2;

    static constexpr int wholeBlock = -1;
    static constexpr int colourComponentCount = 7;

    explicit ConsoleCache(Console* console);

    Console* console() const { return m_console; }
    // Set once by Console::load (or a test engine) before the engine starts.
    void setRecord(ConsoleStateRecord* record) { m_record = record; }
    ConsoleStateRecord* record() { return m_record; }
    const ConsoleStateRecord* record() const { return m_record; }

    // Counts copied when the engine reports ready.
    int channelCount() const { return m_channelCount; }
    int pageCount() const { return m_pageCount; }
    int firstDeviceChannel() const { return m_firstDeviceChannel; }
    int firstSequenceFader() const { return m_firstSequenceFader; }
    void copyCounts();
    // Counts read from the record.
    int deviceCount() const;
    int faderCount() const;
    int sequenceFaderCount() const;
    int patchAddressCount() const;
    ConsoleType consoleType() const;

    // The caches derived from the patch, rebuilt on the engine's thread and
    // read on the GUI thread: a rebuild fills a fresh copy and publishes it
    // whole, so a reader never sees a half-built map.
    struct DerivedCaches
    {
        std::array<quint8, ConsoleStateRecord::addressCount> addressFlags{};
        std::array<quint8, ConsoleStateRecord::addressCount> addressDevice{};
        std::array<quint8, ConsoleStateRecord::maxChannels> channelFlags{};
        std::array<quint8, 2> independentFlags{};
        std::array<quint8, 128> midiCircuitFlags{};
    };
    // One consistent version, for readers that look at many entries.
    std::shared_ptr<const DerivedCaches> derivedCaches() const;
    quint8 addressFlags(int address) const
    {
        return derivedByte(&DerivedCaches::addressFlags, address);
    }
    int addressDevice(int address) const
    {
        return derivedByte(&DerivedCaches::addressDevice, address);
    }
    quint8 channelFlags(int channel) const
    {
        return derivedByte(&DerivedCaches::channelFlags, channel);
    }
    quint8 independentFlags(int independent) const
    {
        return derivedByte(&DerivedCaches::independentFlags, independent);
    }
    quint8 midiCircuitFlags(int circuit) const
    {
        return derivedByte(&DerivedCaches::midiCircuitFlags, circuit);
    }
    // Rebuilds the address map with the channel flags, and/or the MIDI
    // circuit flags, and publishes the result.
    void rebuildDerivedCaches(bool addresses, bool midiCircuits);

    // Texts the engine keeps in its area after the record.
    QString showFileName() const;
    QString consoleVersion() const;
    QString libraryVersion() const;
    QList<RecordArea::Personality> personalities() const;

    // Channel legends.
    QString channelLegend(int channel, int line) const;
    void setChannelLegend(int channel, int line, const QString& text);

    // Independents (0 A, 1 B).
    QString independentLegend(int independent, int line) const;
    void setIndependentLegend(int independent, int line, const QString& text);
    int independentOnLevel(int independent) const;
    int independentLevel(int independent) const;
    bool isIndependentLatch(int independent) const;
    bool isIndependentAffectedByGrandMaster(int independent) const;
    // Option setters write the record only; callers follow with
    // Console::independentsChanged().
    void setIndependentOnLevel(int independent, int level);
    void setIndependentLatch(int independent, bool latch);
    void setIndependentAffectedByGrandMaster(int independent, bool affected);

    // Devices.
    bool isDevicePatched(int device) const;
    int deviceFirstAddress(int device) const; // 0-based, -1 when unpatched
    int deviceFootprint(int device) const;
    bool deviceHasParameter(int device, int parameter) const;
    int deviceParameterAddress(int device, int parameter) const; // 0-based, -1 absent
    bool hasInvertedColourMixing(int device) const;
    int deviceColourModel(int device) const;
    QString devicePersonalityName(int device) const;
    QString deviceSecondName(int device) const;
    void patchDevice(int device, int personality, int address);
    void repatchDevice(int device, int address);
    void unpatchDevice(int device);

    // DMX levels.
    int outputLevel(int address) const;
    int inputLevel(int channel) const;
    bool hasPaletteReference(int address) const;
    int paletteReference(int address) const; // palette index, -1 when none
    // The value shown for a device parameter: the palette index when a
    // palette drives it (unless raw), else the output level; -1 if the
    // device lacks the parameter.
    int deviceParameterValue(int device, int parameter, bool raw = false) const;

    // Memories (page -1: stack cue).
    QString memoryName(int page, int index, int line) const;
    void setMemoryName(int page, int index, int line, const QString& text);
    int memoryTime(int page, int index) const;
    bool isMemoryRecorded(int page, int index) const;
    bool memoryHasEffect(int page, int index) const;
    int memoryContentMask(int page, int index) const;
    int memoryChannelLevel(int page, int index, int channel) const;
    int memoryParameterFlags(int page, int index, int device, int parameter) const;
    bool isMemoryParameterSet(int page, int index, int device, int parameter) const;
    bool isMemoryParameterPalette(int page, int index, int device, int parameter) const;
    int memoryParameterValue(int page, int index, int device, int parameter,
                             bool resolvePalette) const;
    // These write the record only; callers follow with Console::memoryChanged().
    void setMemoryTime(int page, int index, quint16 time);
    void setMemoryChannelLevel(int page, int index, int channel, int level);
    void setMemoryParameter(int page, int index, int device, int parameter, int value,
                            bool asPalette);
    void clearMemoryParameter(int page, int index, int device, int parameter);

    // Sequences ((-1, -1): the stack).
    QString sequenceName(int page, int fader, int line) const;
    void setSequenceName(int page, int fader, int line, const QString& text);
    int sequenceMode(int page, int fader) const;
    void setSequenceMode(int page, int fader, int mode);
    int stepCount(int page, int fader) const;
    int stackWholeCueCount() const; // stack steps with a whole cue number
    StepRecord* step(int page, int fader, int step);
    const StepRecord* step(int page, int fader, int step) const;
    SequenceRecord* sequenceRecord(int page, int fader); // null for the stack
    QString stepNumberText(int page, int fader, int step) const;
    QString stepContentText(int page, int fader, int step) const;
    QString stepContentName(int page, int fader, int step) const;
    // Key of a sequence in the step requests.
    int sequenceKey(int page, int fader) const;
    // Steps a sequence (24) or the stack (199) can hold.
    static int stepCapacity(int page);
    // Asks the engine for a new step and fills in its content when the
    // engine has made it. False, and nothing sent, when the list is full.
    bool insertStep(int page, int fader, int step, int cueValue, quint32 contentType,
                    quint16 contentIndex);
    void deleteStep(int page, int fader, int step);
    void moveStep(int page, int fader, int from, int to, int value);
    // Text of a direct-cue step at a stack position.
    QString cueLabel(int step, int line) const;
    void setCueLabel(int step, int line, const QString& text);

    // Palettes (group 0 Focus, 1 Color, 2 Beam).
    QString paletteName(int palette, int group, int line) const;
    void setPaletteName(int palette, int group, int line, const QString& text);
    int paletteFlags(int palette) const;
    bool paletteIncludes(int palette, int device, int parameter) const;
    // The palette's value as the device takes it (colour-mix values of an
    // inverted device are stored inverted).
    int paletteValue(int palette, int device, int parameter) const;
    // These write the record only; callers follow with Console::paletteChanged().
    void setPaletteValue(int palette, int device, int parameter, int value);
    void clearPaletteInclude(int palette, int device, int parameter);

    // Groups, pages, effects.
    QString groupName(int group, int line) const;
    void setGroupName(int group, int line, const QString& text);
    QString pageName(int page, int line) const;
    void setPageName(int page, int line, const QString& text);
    QString effectName(int effect, int line) const;
    void setEffectName(int effect, int line, const QString& text);

    // Playback.
    int faderPage(int fader) const; // page loaded on a fader
    // Playback index of a sequence, -1 while its page is not loaded.
    int playbackIndex(int page, int fader) const;
    void selectPage(int page);

    // Modes.
    int selectMode() const;
    int faderMode() const;
    int faderChannel(int mode, int fader) const;
    int faderSequence(int fader) const;
    int sequenceFader(int index) const;

    // Colour of a device's colour-mix swatch from the values of its seven
    // colour components.
    QColor colourMix(int device, const std::array<int, colourComponentCount>& values,
                     bool applyInversion) const;
    // Parameter of colour component i of a device, -1 when none.
    int colourComponentParameter(int device, int component) const;
    QColor liveColour(int device) const;
    QColor paletteColour(int palette, int device) const;

    // Labels.
    QString memoryNumberText(int page, int index) const;
    QString channelLabel(int channel) const;
    QString stepContentLabel(quint32 contentType, int contentIndex) const;

    // Shared text helpers.
    static QString timeText(quint16 tenths);
    static quint16 parseTime(const QString& text);
    static QString dmxAddressText(int address);
    static int parameterGroup(int parameter);
    static QString parameterGroupName(int group);
    static QString parameterGroupShortName(int group);
    static QString formatLevel(int level, bool fullAsF);
    // A typed percentage as a level: n x 2.55 in single precision, exact
    // halves rounded down.
    static int levelFromPercent(int percent);
    // A typed percentage text 0..100 as a level; nullopt for anything else.
    static std::optional<int> levelFromPercentText(const QString& text);

    // Text cells.
    static QString readText(const TextBlock& block, int line);
    static void writeText(TextBlock& block, int line, const QString& text,
                          int maxLineLength = TextBlock::lineLength);

private:
    ContentRecord* content(int page, int index);
    const ContentRecord* content(int page, int index) const;
    TextBlock* memoryNameBlock(int page, int index);
    const TextBlock* memoryNameBlock(int page, int index) const;
    void report(int code, int a = 0, int b = 0, int c = 0);
    void sendUpdate(int code, int a = 0, int b = 0, int c = 0);
    template <size_t N>
    quint8 derivedByte(std::array<quint8, N> DerivedCaches::*table, int index) const
    {
        std::lock_guard lock(m_derivedMutex);
        return (m_derived.get()->*table)[size_t(index)];
    }
    void buildAddressMap(DerivedCaches& caches) const;
    void buildChannelFlags(DerivedCaches& caches) const;
    void buildMidiCircuitFlags(DerivedCaches& caches) const;

    int m_channelCount = 0;
    int m_pageCount = 0;
    int m_firstDeviceChannel = 0;
    int m_firstSequenceFader = 0;
    // Guards the pointer only; a published version is never written again.
    mutable std::mutex m_derivedMutex;
    std::shared_ptr<const DerivedCaches> m_derived = std::make_shared<DerivedCaches>();
    // Serialises rebuilds, so that one does not publish over another's part.
    std::mutex m_rebuildMutex;
    Console* m_console;
    ConsoleStateRecord* m_record = nullptr;
};
