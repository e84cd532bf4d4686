// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleCache.h"

#include "Console.h"
#include "ConsoleCodes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
constexpr int stackPlaybackPages = 12; // the stack's key is sequenceFaderCount x 12
constexpr int blockLineLength = 6;     // a whole-block text is 3 lines of 6
constexpr int paletteLineLength = 6;
constexpr int panParameter = 1;
constexpr int tiltParameter = 2;
constexpr int panFineParameter = 48;
constexpr int tiltFineParameter = 49;
constexpr int midiCircuitCount = 128;
constexpr double hueScale = 1.411764705882353; // 360 / 255
// 2.55 as the single-precision value the console's own firmware rounds with.
constexpr double percentScale = double(2.55f);

bool isColourMixParameter(int parameter)
{
    return parameter == 0 || parameter == 3 || parameter == 4;
}

int clampCount(qint32 value, int maximum)
{
    return std::clamp(int(value), 0, maximum);
}
} // namespace

ConsoleCache::ConsoleCache(Console* console) : m_console(console) {}

void ConsoleCache::report(int code, int a, int b, int c)
{
    m_console->report(code, a, b, c);
}

void ConsoleCache::sendUpdate(int code, int a, int b, int c)
{
    m_console->sendUpdate(code, a, b, c);
}

// Counts -----------------------------------------------------------------

void ConsoleCache::copyCounts()
{
    if (!m_record)
        return;
    m_channelCount = m_record->channelCount;
    m_pageCount = m_record->pageCount;
    m_firstDeviceChannel = m_record->channelCount - m_record->deviceCount;
    m_firstSequenceFader = m_record->faderCount - m_record->sequenceFaderCount;
}

int ConsoleCache::deviceCount() const
{
    return m_record ? m_record->deviceCount : 0;
}

int ConsoleCache::faderCount() const
{
    return m_record ? m_record->faderCount : 0;
}

int ConsoleCache::sequenceFaderCount() const
{
    return m_record ? m_record->sequenceFaderCount : 0;
}

int ConsoleCache::patchAddressCount() const
{
    return m_record ? m_record->patchAddressCount : 0;
}

ConsoleCache::ConsoleType ConsoleCache::consoleType() const
{
    if (!m_record)
        return ModelUnknown;
    if (m_record->deviceCount > 0)
        return ModelMaple;
    const int faders = m_record->faderCount;
    const int channels = m_record->channelCount;
    if (faders == 24 && channels == 48)
        return ModelAlder;
    if (faders == 24 && channels == 96)
        return ModelBirch;
    if (faders == 48 && channels == 96)
        return ModelCedar;
    return ModelUnknown;
}

// Derived caches -----------------------------------------------------------

std::shared_ptr<const ConsoleCache::DerivedCaches> ConsoleCache::derivedCaches() const
{
    std::lock_guard lock(m_derivedMutex);
    return m_derived;
}

void ConsoleCache::rebuildDerivedCaches(bool addresses, bool midiCircuits)
{
    std::lock_guard rebuild(m_rebuildMutex);
    auto next = std::make_shared<DerivedCaches>(*derivedCaches());
    if (addresses) {
        buildAddressMap(*next);
        buildChannelFlags(*next);
    }
    if (midiCircuits)
        buildMidiCircuitFlags(*next);
    std::shared_ptr<const DerivedCaches> published = std::move(next);
    std::lock_guard lock(m_derivedMutex);
    m_derived.swap(published);
}

void ConsoleCache::buildAddressMap(DerivedCaches& caches) const
{
    caches.addressFlags.fill(0);
    caches.addressDevice.fill(0);
    if (!m_record)
        return;
    for (int address = 0; address < ConsoleStateRecord::addressCount; ++address) {
        if (m_record->dmxPatch[address] != 0)
            caches.addressFlags[address] |= AddressPatched;
    }
    for (int device = 0; device < ConsoleStateRecord::maxDevices; ++device) {
        const DeviceRecord& record = m_record->devices[device];
        if (record.firstAddress == 0)
            continue;
        const int first = record.firstAddress - 1;
        if (first >= ConsoleStateRecord::addressCount)
            continue;
        caches.addressFlags[first] |= AddressDeviceStart;
        const int last = std::min(first + int(record.footprint), ConsoleStateRecord::addressCount);
        for (int address = first; address < last; ++address) {
            quint8& flags = caches.addressFlags[address];
            flags |= (flags & AddressDevice) ? AddressConflict : AddressDevice;
            caches.addressDevice[address] = quint8(device + 1);
        }
    }
}

void ConsoleCache::buildChannelFlags(DerivedCaches& caches) const
{
    caches.channelFlags.fill(0);
    caches.independentFlags.fill(0);
    if (!m_record)
        return;
    const int channels = clampCount(m_record->channelCount, ConsoleStateRecord::maxChannels);
    const int devices = clampCount(m_record->deviceCount, ConsoleStateRecord::maxDevices);
    const int addresses = clampCount(m_record->patchAddressCount, ConsoleStateRecord::addressCount);
    for (int address = 0; address < addresses; ++address) {
        const int entry = m_record->dmxPatch[address];
        if (entry == 0)
            continue;
        if (entry - 1 < channels) {
            caches.channelFlags[entry - 1] |= ChannelPatched;
        } else {
            const size_t independent = size_t(entry - 1 - channels);
            if (independent < caches.independentFlags.size())
                caches.independentFlags[independent] = 1;
        }
    }
    for (int device = 0; device < ConsoleStateRecord::maxDevices; ++device) {
        const int channel = channels - devices + device;
        if (m_record->devices[device].firstAddress != 0 && channel >= 0 && channel < channels)
            caches.channelFlags[channel] |= ChannelDevicePatched;
    }
}

void ConsoleCache::buildMidiCircuitFlags(DerivedCaches& caches) const
{
    caches.midiCircuitFlags.fill(0);
    if (!m_record)
        return;
    for (int channel = 0; channel < ConsoleStateRecord::maxChannels; ++channel) {
        const int circuit = m_record->midiCircuits[channel];
        if (circuit >= 1 && circuit <= midiCircuitCount)
            caches.midiCircuitFlags[circuit - 1] |= 1;
    }
}

// Area texts -------------------------------------------------------------------

QString ConsoleCache::showFileName() const
{
    return m_record ? RecordArea::slotText(m_record, m_record->showFileName) : QString();
}

QString ConsoleCache::consoleVersion() const
{
    return m_record ? RecordArea::slotText(m_record, m_record->consoleVersion) : QString();
}

QString ConsoleCache::libraryVersion() const
{
    return m_record ? RecordArea::slotText(m_record, m_record->libraryVersion) : QString();
}

QList<RecordArea::Personality> ConsoleCache::personalities() const
{
    return RecordArea::personalities(m_record);
}

// Text cells -------------------------------------------------------------------

QString ConsoleCache::readText(const TextBlock& block, int line)
{
    if (line == wholeBlock) {
        QString text;
        for (int i = 0; i < TextBlock::lineCount; ++i)
            text += readText(block, i).leftJustified(blockLineLength, QLatin1Char(' '));
        while (!text.isEmpty() && text.back().isSpace())
            text.chop(1);
        return text;
    }
    if (line < 0 || line >= TextBlock::lineCount)
        return {};
    const char16_t* units = block.lines[line];
    int length = 0;
    while (length < TextBlock::lineLength && units[length] != 0)
        ++length;
    return QString(reinterpret_cast<const QChar*>(units), length);
}

void ConsoleCache::writeText(TextBlock& block, int line, const QString& text, int maxLineLength)
{
    if (line == wholeBlock) {
        for (int i = 0; i < TextBlock::lineCount; ++i)
            writeText(block, i, text.mid(i * blockLineLength, blockLineLength), blockLineLength);
        return;
    }
    if (line < 0 || line >= TextBlock::lineCount)
        return;
    const int length = std::min<int>(int(text.size()), std::min(maxLineLength, 7));
    char16_t* units = block.lines[line];
    for (int i = 0; i < TextBlock::lineLength; ++i)
        units[i] = i < length ? text.at(i).unicode() : u'\0';
}

// Channel legends --------------------------------------------------------------

QString ConsoleCache::channelLegend(int channel, int line) const
{
    return readText(m_record->channelLegends[channel], line);
}

void ConsoleCache::setChannelLegend(int channel, int line, const QString& text)
{
    writeText(m_record->channelLegends[channel], line, text);
    report(ConsoleCode::ChannelTextChanged, channel);
}

// Independents -----------------------------------------------------------------

QString ConsoleCache::independentLegend(int independent, int line) const
{
    return readText(m_record->independents[independent].legend, line);
}

void ConsoleCache::setIndependentLegend(int independent, int line, const QString& text)
{
    writeText(m_record->independents[independent].legend, line, text);
    report(ConsoleCode::IndependentsChanged);
}

int ConsoleCache::independentOnLevel(int independent) const
{
    return m_record->independents[independent].onLevel;
}

int ConsoleCache::independentLevel(int independent) const
{
    return m_record->independents[independent].currentLevel;
}

bool ConsoleCache::isIndependentLatch(int independent) const
{
    return m_record->independents[independent].buttonMode == 0;
}

bool ConsoleCache::isIndependentAffectedByGrandMaster(int independent) const
{
    return m_record->independents[independent].grandMasterExempt == 0;
}

void ConsoleCache::setIndependentOnLevel(int independent, int level)
{
    m_record->independents[independent].onLevel = quint8(std::clamp(level, 0, 255));
}

void ConsoleCache::setIndependentLatch(int independent, bool latch)
{
    m_record->independents[independent].buttonMode = latch ? 0 : 1;
}

void ConsoleCache::setIndependentAffectedByGrandMaster(int independent, bool affected)
{
    m_record->independents[independent].grandMasterExempt = affected ? 0 : 1;
}

// Devices ----------------------------------------------------------------------

bool ConsoleCache::isDevicePatched(int device) const
{
    return m_record->devices[device].firstAddress != 0;
}

int ConsoleCache::deviceFirstAddress(int device) const
{
    return int(m_record->devices[device].firstAddress) - 1;
}

int ConsoleCache::deviceFootprint(int device) const
{
    return m_record->devices[device].footprint;
}

bool ConsoleCache::deviceHasParameter(int device, int parameter) const
{
    if (parameter < 0 || parameter >= DeviceRecord::parameterCount)
        return false;
    return m_record->devices[device].parameterMap[parameter] != 0;
}

int ConsoleCache::deviceParameterAddress(int device, int parameter) const
{
    if (!isDevicePatched(device) || !deviceHasParameter(device, parameter))
        return -1;
    const DeviceRecord& record = m_record->devices[device];
    const int address = int(record.firstAddress) + int(record.parameterMap[parameter]) - 2;
    return address < ConsoleStateRecord::addressCount ? address : -1;
}

bool ConsoleCache::hasInvertedColourMixing(int device) const
{
    return m_record->devices[device].invertedColourMixing != 0;
}

int ConsoleCache::deviceColourModel(int device) const
{
    return m_record->devices[device].colourModel;
}

QString ConsoleCache::devicePersonalityName(int device) const
{
    const char* name = m_record->devices[device].personalityName;
    return QString::fromLatin1(name, int(qstrnlen(name, sizeof DeviceRecord::personalityName)));
}

QString ConsoleCache::deviceSecondName(int device) const
{
    const char* name = m_record->devices[device].secondName;
    return QString::fromLatin1(name, int(qstrnlen(name, sizeof DeviceRecord::secondName)));
}

void ConsoleCache::patchDevice(int device, int personality, int address)
{
    report(ConsoleCode::PatchDevice, device, personality, address);
}

void ConsoleCache::repatchDevice(int device, int address)
{
    report(ConsoleCode::MoveDevice, device, address);
}

void ConsoleCache::unpatchDevice(int device)
{
    report(ConsoleCode::UnpatchDevice, device);
}

// DMX levels -------------------------------------------------------------------

int ConsoleCache::outputLevel(int address) const
{
    return m_record->dmxOutput[address];
}

int ConsoleCache::inputLevel(int channel) const
{
    return m_record->dmxInput[channel];
}

bool ConsoleCache::hasPaletteReference(int address) const
{
    return m_record->dmxPalette[address] != 0;
}

int ConsoleCache::paletteReference(int address) const
{
    return int(m_record->dmxPalette[address]) - 1;
}

int ConsoleCache::deviceParameterValue(int device, int parameter, bool raw) const
{
    const int address = deviceParameterAddress(device, parameter);
    if (address < 0)
        return -1;
    if (!raw && hasPaletteReference(address))
        return paletteReference(address);
    return outputLevel(address);
}

// Memories ---------------------------------------------------------------------

ContentRecord* ConsoleCache::content(int page, int index)
{
    if (page == -1)
        return &m_record->cueContents[index];
    return &m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].content;
}

const ContentRecord* ConsoleCache::content(int page, int index) const
{
    return const_cast<ConsoleCache*>(this)->content(page, index);
}

TextBlock* ConsoleCache::memoryNameBlock(int page, int index)
{
    if (page == -1)
        return &m_record->cueNames[index];
    return &m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].name;
}

const TextBlock* ConsoleCache::memoryNameBlock(int page, int index) const
{
    return const_cast<ConsoleCache*>(this)->memoryNameBlock(page, index);
}

QString ConsoleCache::memoryName(int page, int index, int line) const
{
    return readText(*memoryNameBlock(page, index), line);
}

void ConsoleCache::setMemoryName(int page, int index, int line, const QString& text)
{
    writeText(*memoryNameBlock(page, index), line, text);
    if (page == -1)
        report(ConsoleCode::StackCueChanged, index);
    else
        report(ConsoleCode::MemoryChanged, page, index);
}

int ConsoleCache::memoryTime(int page, int index) const
{
    if (page == -1)
        return 0; // a stack cue's times live in its step
    return m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].time;
}

void ConsoleCache::setMemoryTime(int page, int index, quint16 time)
{
    if (page != -1)
        m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].time = time;
}

bool ConsoleCache::isMemoryRecorded(int page, int index) const
{
    if (page == -1)
        return m_record->cueRecorded[index] != 0;
    return m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].recorded != 0;
}

bool ConsoleCache::memoryHasEffect(int page, int index) const
{
    if (page == -1)
        return false;
    return m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].hasEffect != 0;
}

int ConsoleCache::memoryContentMask(int page, int index) const
{
    return content(page, index)->contentMask;
}

int ConsoleCache::memoryChannelLevel(int page, int index, int channel) const
{
    return content(page, index)->channelLevels[channel];
}

void ConsoleCache::setMemoryChannelLevel(int page, int index, int channel, int level)
{
    content(page, index)->channelLevels[channel] = quint8(std::clamp(level, 0, 255));
    if (page != -1)
        m_record->memories[page * ConsoleStateRecord::memoriesPerPage + index].recorded = 1;
}

int ConsoleCache::memoryParameterFlags(int page, int index, int device, int parameter) const
{
    return content(page, index)
        ->parameters[device * ContentRecord::parameterCount + parameter]
        .flags;
}

bool ConsoleCache::isMemoryParameterSet(int page, int index, int device, int parameter) const
{
    return memoryParameterFlags(page, index, device, parameter) & ParameterEntry::setBit;
}

bool ConsoleCache::isMemoryParameterPalette(int page, int index, int device, int parameter) const
{
    return memoryParameterFlags(page, index, device, parameter) & ParameterEntry::paletteBit;
}

int ConsoleCache::memoryParameterValue(int page, int index, int device, int parameter,
                                       bool resolvePalette) const
{
    const ParameterEntry& entry =
        content(page, index)->parameters[device * ContentRecord::parameterCount + parameter];
    if (resolvePalette && (entry.flags & ParameterEntry::paletteBit)) {
        if (entry.value >= std::size(m_record->palettes))
            return 0;
        return paletteValue(entry.value, device, parameter);
    }
    return entry.value;
}

void ConsoleCache::setMemoryParameter(int page, int index, int device, int parameter, int value,
                                      bool asPalette)
{
    ParameterEntry* parameters =
        content(page, index)->parameters + device * ContentRecord::parameterCount;
    const auto store = [&](int p, int v) {
        ParameterEntry& entry = parameters[p];
        entry.flags = quint8((entry.flags & 0x3F) | ParameterEntry::setBit |
                             (asPalette ? ParameterEntry::paletteBit : 0));
        entry.value = quint8(std::clamp(v, 0, 255));
    };
    store(parameter, value);
    // Pan and tilt carry their fine parameter: it follows a palette, or is
    // cleared by a coarse level.
    if (parameter == panParameter)
        store(panFineParameter, asPalette ? value : 0);
    else if (parameter == tiltParameter)
        store(tiltFineParameter, asPalette ? value : 0);
}

void ConsoleCache::clearMemoryParameter(int page, int index, int device, int parameter)
{
    content(page, index)->parameters[device * ContentRecord::parameterCount + parameter].flags &=
        quint8(~ParameterEntry::setBit);
}

// Sequences --------------------------------------------------------------------

SequenceRecord* ConsoleCache::sequenceRecord(int page, int fader)
{
    if (page < 0 || fader < 0)
        return nullptr;
    return &m_record->sequences[page * ConsoleStateRecord::sequenceFadersPerPage + fader];
}

QString ConsoleCache::sequenceName(int page, int fader, int line) const
{
    const SequenceRecord* record = const_cast<ConsoleCache*>(this)->sequenceRecord(page, fader);
    return record ? readText(record->name, line) : QString();
}

void ConsoleCache::setSequenceName(int page, int fader, int line, const QString& text)
{
    SequenceRecord* record = sequenceRecord(page, fader);
    if (!record)
        return; // the stack has no name
    writeText(record->name, line, text);
    report(ConsoleCode::SequenceChanged, page, fader);
}

int ConsoleCache::sequenceMode(int page, int fader) const
{
    const SequenceRecord* record = const_cast<ConsoleCache*>(this)->sequenceRecord(page, fader);
    return int(record ? record->mode : m_record->stackMode);
}

void ConsoleCache::setSequenceMode(int page, int fader, int mode)
{
    if (SequenceRecord* record = sequenceRecord(page, fader)) {
        record->mode = quint32(mode);
        report(ConsoleCode::SequenceChanged, page, fader);
    } else {
        m_record->stackMode = quint32(mode);
        report(ConsoleCode::StackChanged);
    }
}

int ConsoleCache::stepCount(int page, int fader) const
{
    const SequenceRecord* record = const_cast<ConsoleCache*>(this)->sequenceRecord(page, fader);
    if (record)
        return std::min<int>(record->stepCount, SequenceRecord::maxSteps);
    return std::min<int>(m_record->stackStepCount, ConsoleStateRecord::maxStackSteps);
}

int ConsoleCache::stackWholeCueCount() const
{
    const int count = stepCount(-1, -1);
    return int(std::count_if(m_record->stackSteps, m_record->stackSteps + count,
                             [](const StepRecord& step) { return step.cueNumber % 10 == 0; }));
}

StepRecord* ConsoleCache::step(int page, int fader, int step)
{
    if (step < 0)
        return nullptr;
    if (SequenceRecord* record = sequenceRecord(page, fader))
        return step < SequenceRecord::maxSteps ? &record->steps[step] : nullptr;
    return step < ConsoleStateRecord::maxStackSteps ? &m_record->stackSteps[step] : nullptr;
}

const StepRecord* ConsoleCache::step(int page, int fader, int step) const
{
    return const_cast<ConsoleCache*>(this)->step(page, fader, step);
}

QString ConsoleCache::stepNumberText(int page, int fader, int stepIndex) const
{
    const StepRecord* record = step(page, fader, stepIndex);
    if (!record)
        return {};
    const int number = record->cueNumber;
    if (page == -1)
        return QStringLiteral("%1.%2").arg(number / 10).arg(number % 10);
    return QString::number(number / 10);
}

QString ConsoleCache::stepContentText(int page, int fader, int stepIndex) const
{
    const StepRecord* record = step(page, fader, stepIndex);
    return record ? stepContentLabel(record->contentType, record->contentIndex) : QString();
}

QString ConsoleCache::stepContentName(int page, int fader, int stepIndex) const
{
    const StepRecord* record = step(page, fader, stepIndex);
    if (!record)
        return {};
    const int index = record->contentIndex;
    switch (record->contentType) {
    case StepChannel:
        return index < ConsoleStateRecord::maxChannels ? channelLegend(index, wholeBlock)
                                                       : QString();
    case StepMemory: {
        const int faders = faderCount();
        if (faders <= 0 || index / faders >= ConsoleStateRecord::pages)
            return {};
        return memoryName(index / faders, index % faders, wholeBlock);
    }
    case StepDirectCue:
        return stepIndex < ConsoleStateRecord::stackCues ? cueLabel(stepIndex, wholeBlock)
                                                         : QString();
    default:
        return {};
    }
}

int ConsoleCache::sequenceKey(int page, int fader) const
{
    const int faders = sequenceFaderCount();
    if (page == -1 && fader == -1)
        return faders * stackPlaybackPages;
    return faders * page + fader;
}

int ConsoleCache::stepCapacity(int page)
{
    return page == -1 ? ConsoleStateRecord::maxStackSteps : SequenceRecord::maxSteps;
}

bool ConsoleCache::insertStep(int page, int fader, int step, int cueValue, quint32 contentType,
                              quint16 contentIndex)
{
    // The engine refuses a step beyond the capacity; a hook left waiting
    // for it would fill whatever step a later notification names.
    const int count = stepCount(page, fader);
    if (count >= stepCapacity(page))
        return false;
    // The engine appends a step asked for beyond the end.
    m_console->appendHook(new Console::InsertSequenceStepCacheUpdateHook(
        this, page, fader, std::min(step, count), contentType, contentIndex, quint16(cueValue)));
    report(ConsoleCode::InsertStep, sequenceKey(page, fader), step, cueValue);
    return true;
}

void ConsoleCache::deleteStep(int page, int fader, int step)
{
    report(ConsoleCode::DeleteStep, sequenceKey(page, fader), step);
}

void ConsoleCache::moveStep(int page, int fader, int from, int to, int value)
{
    // The engine takes the target as the place after removing the source.
    if (to > from)
        --to;
    const int key = sequenceKey(page, fader);
    report(ConsoleCode::MoveStepFrom, key, from, to);
    report(ConsoleCode::MoveStepTo, key, to, value);
}

QString ConsoleCache::cueLabel(int step, int line) const
{
    return readText(m_record->cueLabels[step], line);
}

void ConsoleCache::setCueLabel(int step, int line, const QString& text)
{
    writeText(m_record->cueLabels[step], line, text);
    report(ConsoleCode::StackCueChanged, step);
}

// Palettes ---------------------------------------------------------------------

QString ConsoleCache::paletteName(int palette, int group, int line) const
{
    return readText(m_record->palettes[palette].names[group], line);
}

void ConsoleCache::setPaletteName(int palette, int group, int line, const QString& text)
{
    writeText(m_record->palettes[palette].names[group], line, text, paletteLineLength);
    report(ConsoleCode::PaletteChanged, palette);
}

int ConsoleCache::paletteFlags(int palette) const
{
    return m_record->palettes[palette].flags;
}

bool ConsoleCache::paletteIncludes(int palette, int device, int parameter) const
{
    return m_record->palettes[palette].include[device][parameter / 8] & (1u << (parameter % 8));
}

int ConsoleCache::paletteValue(int palette, int device, int parameter) const
{
    const int stored = m_record->palettes[palette].values[device][parameter];
    if (isColourMixParameter(parameter) && hasInvertedColourMixing(device))
        return 255 - stored;
    return stored;
}

void ConsoleCache::setPaletteValue(int palette, int device, int parameter, int value)
{
    PaletteRecord& record = m_record->palettes[palette];
    int stored = std::clamp(value, 0, 255);
    if (isColourMixParameter(parameter) && hasInvertedColourMixing(device))
        stored = 255 - stored;
    record.values[device][parameter] = quint8(stored);
    record.include[device][parameter / 8] |= quint8(1u << (parameter % 8));
}

void ConsoleCache::clearPaletteInclude(int palette, int device, int parameter)
{
    m_record->palettes[palette].include[device][parameter / 8] &= quint8(~(1u << (parameter % 8)));
}

// Groups, pages, effects -------------------------------------------------------------

QString ConsoleCache::groupName(int group, int line) const
{
    return readText(m_record->groups[group].name, line);
}

void ConsoleCache::setGroupName(int group, int line, const QString& text)
{
    writeText(m_record->groups[group].name, line, text);
    report(ConsoleCode::GroupChanged, group);
}

QString ConsoleCache::pageName(int page, int line) const
{
    return readText(m_record->pageNames[page], line);
}

void ConsoleCache::setPageName(int page, int line, const QString& text)
{
    writeText(m_record->pageNames[page], line, text);
    report(ConsoleCode::PageChanged, page);
}

QString ConsoleCache::effectName(int effect, int line) const
{
    return readText(m_record->effects[effect].name, line);
}

void ConsoleCache::setEffectName(int effect, int line, const QString& text)
{
    writeText(m_record->effects[effect].name, line, text);
    report(ConsoleCode::EffectsChanged, effect);
}

// Playback ---------------------------------------------------------------------

int ConsoleCache::faderPage(int fader) const
{
    return m_record->faders[fader].pageLoaded;
}

int ConsoleCache::playbackIndex(int page, int fader) const
{
    if (page == -1 && fader == -1)
        return sequenceFaderCount();
    const int pageFader = faderCount() - sequenceFaderCount() + fader;
    if (pageFader < 0 || pageFader >= ConsoleStateRecord::maxFaders)
        return -1;
    return faderPage(pageFader) == page ? fader : -1;
}

void ConsoleCache::selectPage(int page)
{
    report(ConsoleCode::System, SystemCode::SelectPage, page);
}

// Modes ------------------------------------------------------------------------

int ConsoleCache::selectMode() const
{
    return int(m_record->selectMode);
}

int ConsoleCache::faderMode() const
{
    switch (m_record->liveMode) {
    case 0: {
        const int page = m_record->channelPage;
        return (page >= 0 && page <= 2) ? page : 6;
    }
    case 1:
        return 5;
    case 2:
        return m_record->faderParameterPage != 0 ? 4 : 3;
    default:
        return 0;
    }
}

int ConsoleCache::faderChannel(int mode, int fader) const
{
    switch (mode) {
    case 0:
        return fader;
    case 1:
        return faderCount() + fader;
    case 2:
        return fader + 48;
    case 6:
        return fader + 72;
    default:
        return 0;
    }
}

int ConsoleCache::faderSequence(int fader) const
{
    const int index = fader + sequenceFaderCount() - faderCount();
    return index < 0 ? -1 : index;
}

int ConsoleCache::sequenceFader(int index) const
{
    return index + faderCount() - sequenceFaderCount();
}

// Colour -------------------------------------------------------------------------

QColor ConsoleCache::colourMix(int device, const std::array<int, colourComponentCount>& c,
                               bool applyInversion) const
{
    int red = std::max({c[0], c[1], c[2]});
    int green = std::max({c[2] / 2, c[3], c[4]});
    int blue = std::max({c[4], c[5], c[6]});
    const DeviceRecord& record = m_record->devices[device];
    if (record.colourModel == DeviceRecord::hueSaturationModel) {
        // A full-scale hue is 360 degrees, the same colour as 0.
        const int hue = int(c[0] * hueScale) % 360;
        return QColor::fromHsv(std::max(hue, 0), std::clamp(c[2], 0, 255), 255);
    }
    if (applyInversion && record.colourModel == DeviceRecord::subtractiveModel) {
        const quint8 keep = record.notInvertedMask;
        if (!(keep & 0x02))
            red = 255 - red;
        if (!(keep & 0x10))
            green = 255 - green;
        if (!(keep & 0x20))
            blue = 255 - blue;
    }
    return QColor(std::clamp(red, 0, 255), std::clamp(green, 0, 255), std::clamp(blue, 0, 255));
}

int ConsoleCache::colourComponentParameter(int device, int component) const
{
    const int value = m_record->devices[device].colourComponents[component];
    return value == 0 ? -1 : value - 1;
}

QColor ConsoleCache::liveColour(int device) const
{
    std::array<int, colourComponentCount> values{};
    for (int i = 0; i < colourComponentCount; ++i) {
        const int parameter = colourComponentParameter(device, i);
        if (parameter >= 0 && parameter < DeviceRecord::parameterCount)
            values[size_t(i)] = std::max(0, deviceParameterValue(device, parameter, true));
    }
    return colourMix(device, values, true);
}

QColor ConsoleCache::paletteColour(int palette, int device) const
{
    std::array<int, colourComponentCount> values{};
    for (int i = 0; i < colourComponentCount; ++i) {
        const int parameter = colourComponentParameter(device, i);
        if (parameter >= 0 && parameter < DeviceRecord::parameterCount)
            values[size_t(i)] = m_record->palettes[palette].values[device][parameter];
    }
    return colourMix(device, values, false);
}

// Labels -----------------------------------------------------------------------

QString ConsoleCache::memoryNumberText(int page, int index) const
{
    if (page == -1)
        return QCoreApplication::translate("ConsoleCache", "Cue") + QLatin1Char(' ') +
               stepNumberText(-1, -1, index);
    return QStringLiteral("%1/%2")
        .arg(page + 1, 2, 10, QLatin1Char('0'))
        .arg(index + 1, 2, 10, QLatin1Char('0'));
}

QString ConsoleCache::channelLabel(int channel) const
{
    if (channel >= m_channelCount)
        return QStringLiteral("IND ") + QString::number(channel - m_channelCount + 1);
    if (consoleType() != ModelMaple)
        return QStringLiteral("Ch:") + QString::number(channel + 1);
    if (channel < 24)
        return QStringLiteral("Int A:") + QString::number(channel + 1);
    if (channel < 48)
        return QStringLiteral("Int B:") + QString::number(channel - 23);
    if (channel < 72)
        return QStringLiteral("Int D:") + QString::number(channel - 47);
    return QString::number(channel);
}

QString ConsoleCache::stepContentLabel(quint32 contentType, int contentIndex) const
{
    switch (contentType) {
    case StepChannel:
        if (consoleType() == ModelMaple) {
            const char bank = contentIndex < 24 ? 'A' : contentIndex < 48 ? 'B' : 'D';
            return QStringLiteral("Ch ") + QLatin1Char(bank) +
                   QString::number(contentIndex % 24 + 1);
        }
        return QStringLiteral("Ch ") + QString::number(contentIndex + 1);
    case StepMemory: {
        const int faders = faderCount();
        if (faders <= 0)
            return {};
        return QStringLiteral("M %1/%2")
            .arg(contentIndex / faders + 1)
            .arg(contentIndex % faders + 1);
    }
    case StepDirectCue:
        return QCoreApplication::translate("ConsoleCache", "Cue");
    default:
        return {};
    }
}

// Shared text helpers ----------------------------------------------------------------

QString ConsoleCache::timeText(quint16 tenths)
{
    const int t = tenths;
    if (t == 0)
        return QStringLiteral("0");
    if (t < 100) {
        QString text = QString::number(t / 10);
        if (t % 10 != 0)
            text += QLatin1Char('.') + QString::number(t % 10);
        return text;
    }
    if (t <= 590)
        return QString::number(t / 10);
    return QStringLiteral("%1:%2").arg(t / 600).arg((t / 10) % 60, 2, 10, QLatin1Char('0'));
}

quint16 ConsoleCache::parseTime(const QString& text)
{
    qint64 minutes = 0;
    qint64 seconds = 0;
    int tenths = 0;
    bool inTenths = false;
    for (const QChar ch : text) {
        if (ch == QLatin1Char(':')) {
            minutes = seconds;
            seconds = 0;
        } else if (ch == QLatin1Char('.')) {
            inTenths = true;
        } else if (ch >= QLatin1Char('0') && ch <= QLatin1Char('9')) {
            const int digit = ch.unicode() - '0';
            if (inTenths)
                tenths = digit;
            else
                seconds = std::min<qint64>(seconds * 10 + digit, 65535);
        }
    }
    // Longer than the console can hold: keep the longest time it can.
    const qint64 total = tenths + (seconds + minutes * 60) * 10;
    return quint16(std::min<qint64>(total, 65535));
}

QString ConsoleCache::dmxAddressText(int address)
{
    return QStringLiteral("%1:%2").arg((address >> 9) + 1).arg((address & 0x1ff) + 1);
}

int ConsoleCache::parameterGroup(int parameter)
{
    switch (parameter) {
    case 1:
    case 2:
    case 48:
    case 49:
        return 0;
    case 0:
    case 3:
    case 4:
    case 5:
    case 6:
    case 7:
    case 8:
        return 1;
    default:
        return (parameter >= 9 && parameter <= 47) ? 2 : 3;
    }
}

QString ConsoleCache::parameterGroupName(int group)
{
    switch (group) {
    case 0:
        return QCoreApplication::translate("ConsoleCache", "Focus");
    case 1:
        return QCoreApplication::translate("ConsoleCache", "Color");
    case 2:
        return QCoreApplication::translate("ConsoleCache", "Beam");
    case 3:
        return QCoreApplication::translate("ConsoleCache", "User");
    default:
        return {};
    }
}

QString ConsoleCache::parameterGroupShortName(int group)
{
    static const char* const names[] = {"F", "C", "B", "U"};
    if (group < 0 || group >= int(std::size(names)))
        return {};
    return QString::fromLatin1(names[group]);
}

QString ConsoleCache::formatLevel(int level, bool fullAsF)
{
    const int percent = int(level / 255.0 * 100.0 + 0.5);
    if (fullAsF && percent == 100)
        return QStringLiteral("F");
    return QString::number(percent);
}

int ConsoleCache::levelFromPercent(int percent)
{
    return int(percent * percentScale + 0.5);
}

std::optional<int> ConsoleCache::levelFromPercentText(const QString& text)
{
    bool ok = false;
    const int percent = text.trimmed().toInt(&ok, 10);
    if (!ok || percent < 0 || percent > 100)
        return std::nullopt;
    return levelFromPercent(percent);
}
