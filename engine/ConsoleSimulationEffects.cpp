// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleStateRecord.h"
#include "SimulationRules.h"

using namespace SimulationRules;

namespace {
constexpr quint8 stepEffectFlag = 0x20;
constexpr quint32 effectSelectMode = 7;
constexpr quint32 secondEffectSelectMode = 9;
} // namespace

void ConsoleSimulation::runEffects(int milliseconds)
{
    if (profile_.deviceCount == 0)
        return;
    const bool wasRunning = effects_.running();
    effects_.beginTick();
    // Memory faders first: the live steps of the playbacks take precedence.
    for (int fader = 0; fader < profile_.faderCount; ++fader) {
        if (live_.playbackFader[size_t(fader)] == 0)
            continue;
        const int page = faderPage(fader);
        const int sequence = fader - profile_.firstSequenceFader();
        if (sequence >= 0 && sequenceHasSteps(page, sequence))
            continue;
        const MemoryRecord& memory =
            record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader];
        if (memory.recorded && memory.hasEffect)
            effects_.wantContent(memory.content, profile_.deviceCount);
    }
    for (int p = 0; p <= stackPlayback; ++p) {
        if (p != stackPlayback && p >= profile_.sequenceFaderCount)
            continue;
        const int live = players_[size_t(p)].live();
        int count = 0;
        quint32 mode = 0;
        const StepRecord* steps = stepsOf(p, &count, &mode);
        if (live < 0 || live >= count || !(steps[live].flags & stepEffectFlag))
            continue;
        const StepRecord& step = steps[live];
        if (step.contentType == stepMemory) {
            const int page = step.contentIndex / profile_.faderCount;
            const int memory = step.contentIndex % profile_.faderCount;
            const MemoryRecord& record =
                record_->memories[page * ConsoleStateRecord::memoriesPerPage + memory];
            if (page < ConsoleStateRecord::pages && record.hasEffect)
                effects_.wantContent(record.content, profile_.deviceCount);
        } else if (step.contentType == stepDirectCue && p == stackPlayback &&
                   live < ConsoleStateRecord::stackCues) {
            // A stack cue's content is kept at its step's position.
            effects_.wantContent(record_->cueContents[live], profile_.deviceCount);
        }
    }
    effects_.advance(milliseconds, *record_);
    // One more refresh after the last effect stopped puts the devices back.
    if (wasRunning || effects_.running())
        dirty_ = true;
}

// In the effect select modes a select key gives the selected devices that
// effect, or takes it away again when they all run it already.
void ConsoleSimulation::pressEffectKey(int key)
{
    const quint32 mode = record_->selectMode;
    int effect = -1;
    if (mode == effectSelectMode)
        effect = key;
    else if (mode == secondEffectSelectMode && key < EffectEngine::familyStride)
        effect = 2 * EffectEngine::familyStride + key;
    if (effect < 0 || effect >= EffectEngine::effectCount ||
        effect % EffectEngine::familyStride >= EffectEngine::patternsPerFamily)
        return;
    const int family = effect / EffectEngine::familyStride;
    bool all = true;
    bool any = false;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (!record_->deviceSelected[d])
            continue;
        any = true;
        all = all && effects_.programmerEffect(family, d) == effect;
    }
    if (!any)
        return;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->deviceSelected[d])
            effects_.setProgrammerEffect(family, d, all ? -1 : effect);
    }
    dirty_ = true;
}

void ConsoleSimulation::storeEffects(ContentRecord& content, bool selectedDevicesOnly) const
{
    effects_.storeProgrammer(content, record_->deviceSelected, selectedDevicesOnly);
}
