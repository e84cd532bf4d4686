// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "CueTarget.h"
#include "EngineNotifier.h"
#include "SimulationRules.h"

using namespace SimulationRules;

namespace {
constexpr quint8 levelsBit = 0x01;
constexpr quint8 groupBits = 0x0E; // Focus, Color, Beam

constexpr quint8 groupBit(int group)
{
    return group < 3 ? quint8(1 << (group + 1)) : 0;
}
} // namespace

void ConsoleSimulation::applyMemoryParameters(int page, int fader)
{
    CueTarget target;
    resolveContent(record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader].content,
                   target);
    for (int i = 0; i < LiveState::parameters; ++i) {
        if (target.parameterSet.test(size_t(i))) {
            live_.parameterValue[size_t(i)] = target.parameterValue[size_t(i)];
            live_.parameterPalette[size_t(i)] = target.parameterPalette[size_t(i)];
        }
    }
}

void ConsoleSimulation::memoryEdited(int page, int index)
{
    if (page < 0 || page >= profile_.pageCount || index < 0 || index >= profile_.faderCount)
        return;
    MemoryRecord& memory = record_->memories[page * ConsoleStateRecord::memoriesPerPage + index];
    ContentRecord& content = memory.content;
    // The program writes levels and parameters in place; what the memory
    // holds is summed up here, as the console does when it records.
    quint8 mask = 0;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            if (content.parameters[LiveState::parameterIndex(d, p)].flags & ParameterEntry::setBit)
                mask |= groupBit(parameterGroup(p));
        }
    }
    const quint8 recorded = (memory.recorded || mask) ? 1 : 0;
    if (recorded)
        mask |= levelsBit; // a used memory always carries its channel levels
    const bool summaryChanged =
        memory.recorded != recorded || (content.contentMask & (levelsBit | groupBits)) != mask;
    memory.recorded = recorded;
    content.contentMask = quint8((content.contentMask & ~(levelsBit | groupBits)) | mask);

    // A memory on stage plays its edited parameters at once; its levels are
    // mixed from the record every tick anyway.
    const int sequence = index - profile_.firstSequenceFader();
    if (live_.playbackFader[size_t(index)] > 0 && live_.loadedPage[size_t(index)] == page &&
        (sequence < 0 || !sequenceHasSteps(page, sequence)))
        applyMemoryParameters(page, index);
    showChanged_ = true;
    dirty_ = true;
    if (summaryChanged)
        notifier_.send(ConsoleCode::MemoryChanged, page, index);
}

void ConsoleSimulation::paletteEdited(int palette)
{
    if (palette < 0 || palette >= paletteCount)
        return;
    PaletteRecord& record = record_->palettes[palette];
    quint8 flags = 0;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            if (paletteIncludes(record, d, p))
                flags |= groupBit(parameterGroup(p));
        }
    }
    const bool flagsChanged = (record.flags & groupBits) != flags;
    record.flags = quint8((record.flags & ~groupBits) | flags);
    followPalette(palette);
    showChanged_ = true;
    dirty_ = true;
    if (flagsChanged)
        notifier_.send(ConsoleCode::PaletteChanged, palette);
}
