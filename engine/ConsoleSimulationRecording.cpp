// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "SimulationRules.h"
#include "StepList.h"

#include <algorithm>
#include <cstring>

using namespace SimulationRules;

void ConsoleSimulation::captureLive(ContentRecord& content, const quint8* levels,
                                    bool selectedDevicesOnly) const
{
    std::memset(static_cast<void*>(&content), 0, sizeof content);
    std::memcpy(content.channelLevels, levels, sizeof content.channelLevels);
    content.contentMask = 0x01;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->devices[d].firstAddress == 0 ||
            (selectedDevicesOnly && !record_->deviceSelected[d]))
            continue;
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            if (record_->devices[d].parameterMap[p] == 0)
                continue;
            const size_t i = size_t(LiveState::parameterIndex(d, p));
            ParameterEntry& entry = content.parameters[i];
            const int palette = live_.parameterPalette[i];
            entry.flags =
                quint8(ParameterEntry::setBit | (palette ? ParameterEntry::paletteBit : 0));
            entry.value = palette ? quint8(palette - 1) : live_.parameterValue[i];
            const int group = parameterGroup(p);
            if (group < 3)
                content.contentMask |= quint8(1 << (group + 1));
        }
    }
}

void ConsoleSimulation::recordMemory(int fader, bool selectedDevicesOnly)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    refresh(); // record what is on stage right now
    const int page = record_->memoryPage;
    MemoryRecord& memory = record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader];
    captureLive(memory.content, record_->blindMode ? record_->blindLevels : record_->channelLevels,
                selectedDevicesOnly);
    storeEffects(memory.content, selectedDevicesOnly);
    memory.hasEffect = EffectEngine::contentHasEffects(memory.content) ? 1 : 0;
    memory.recorded = 1;
    showChanged_ = true;
    notifier_.send(ConsoleCode::MemoryChanged, page, fader);
}

void ConsoleSimulation::recordStackCue()
{
    refresh(); // record what is on stage right now
    StepList stack(record_, profile_.sequenceFaderCount * ConsoleStateRecord::pages);
    const int index = stack.count();
    const int lastCue = index > 0 ? record_->stackSteps[index - 1].cueNumber : 0;
    if (!stack.insert(index, quint16((lastCue / 10 + 1) * 10), *record_))
        return;
    // The cue's data lives at its step's position.
    captureLive(record_->cueContents[index], record_->channelLevels, false);
    record_->cueRecorded[index] = 1;
    StepRecord& step = record_->stackSteps[index];
    step.contentType = stepDirectCue;
    step.contentIndex = quint16(index);
    storeEffects(record_->cueContents[index], false);
    step.flags = EffectEngine::contentHasEffects(record_->cueContents[index]) ? 0x21 : 0x01;
    if (players_[stackPlayback].next() < 0)
        players_[stackPlayback].setNext(index);
    showChanged_ = true;
    dirty_ = true;
    notifier_.send(ConsoleCode::StackCueChanged, index);
    notifier_.send(ConsoleCode::StackChanged);
}

void ConsoleSimulation::pressSelectKey(int key, bool recording)
{
    const quint32 mode = record_->selectMode;
    if (mode == 1) {
        if (key < profile_.deviceCount) {
            record_->deviceSelected[key] = record_->deviceSelected[key] ? 0 : 1;
            notifier_.mark(ConsoleCode::DeviceStatusChanged);
        }
    } else if (mode == 2 || mode == 3) {
        GroupRecord& group = record_->groups[key];
        if (recording) {
            group.memberCount = 0;
            for (int d = 0; d < profile_.deviceCount; ++d) {
                if (record_->deviceSelected[d] && group.memberCount < 24)
                    group.members[group.memberCount++] = quint8(d);
            }
            showChanged_ = true;
            notifier_.send(ConsoleCode::GroupChanged, key);
        } else {
            std::memset(record_->deviceSelected, 0, sizeof record_->deviceSelected);
            for (int m = 0; m < group.memberCount && m < 25; ++m) {
                if (group.members[m] < profile_.deviceCount)
                    record_->deviceSelected[group.members[m]] = 1;
            }
            notifier_.mark(ConsoleCode::DeviceStatusChanged);
        }
    } else if (mode >= 4 && mode <= 6) {
        const int parameterGroupOfMode = int(mode) - 4;
        PaletteRecord& palette = record_->palettes[key];
        for (int d = 0; d < profile_.deviceCount; ++d) {
            if (!record_->deviceSelected[d])
                continue;
            const DeviceRecord& device = record_->devices[d];
            for (int p = 0; p < ContentRecord::parameterCount; ++p) {
                if (parameterGroup(p) != parameterGroupOfMode || device.parameterMap[p] == 0)
                    continue;
                const size_t i = size_t(LiveState::parameterIndex(d, p));
                if (recording) {
                    palette.values[d][p] = isInvertedMix(device, p)
                                               ? quint8(~live_.parameterValue[i])
                                               : live_.parameterValue[i];
                    palette.include[d][p / 8] |= quint8(1 << (p % 8));
                    palette.flags |= quint8(1 << (parameterGroupOfMode + 1));
                } else if (paletteOutput(*record_, key, d, p, &live_.parameterValue[i])) {
                    live_.parameterPalette[i] = quint8(key + 1);
                }
            }
        }
        if (recording) {
            showChanged_ = true;
            notifier_.send(ConsoleCode::PaletteChanged, key);
        }
    } else {
        pressEffectKey(key);
    }
    dirty_ = true;
}
