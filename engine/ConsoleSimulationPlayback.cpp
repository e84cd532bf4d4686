// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "SimulationRules.h"

#include <algorithm>
#include <cstring>

using namespace SimulationRules;

int ConsoleSimulation::faderPage(int fader) const
{
    if (fader < 0 || fader >= LiveState::faders)
        return record_->memoryPage;
    const int loaded = live_.loadedPage[size_t(fader)];
    return loaded >= 0 ? loaded : record_->memoryPage;
}

const StepRecord* ConsoleSimulation::stepsOf(int playback, int* count, quint32* mode) const
{
    if (playback == stackPlayback) {
        *count = record_->stackStepCount;
        *mode = record_->stackMode;
        return record_->stackSteps;
    }
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    const SequenceRecord& sequence = record_->sequences[page * sequencesPerPage + playback];
    *count = sequence.stepCount;
    *mode = sequence.mode;
    return sequence.steps;
}

bool ConsoleSimulation::sequenceHasSteps(int page, int sequenceFader) const
{
    if (sequenceFader < 0 || sequenceFader >= profile_.sequenceFaderCount || page < 0 || page >= 12)
        return false;
    return record_->sequences[page * sequencesPerPage + sequenceFader].stepCount > 0;
}

int ConsoleSimulation::nextIndex(int playback, int from) const
{
    int count = 0;
    quint32 mode = 0;
    stepsOf(playback, &count, &mode);
    if (count == 0)
        return -1;
    if (from + 1 < count)
        return from + 1;
    return mode == modeLoop ? 0 : -1;
}

void ConsoleSimulation::resolveContent(const ContentRecord& content, CueTarget& target) const
{
    std::copy(std::begin(content.channelLevels), std::end(content.channelLevels),
              target.levels.begin());
    for (int d = 0; d < profile_.deviceCount; ++d) {
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            const int i = LiveState::parameterIndex(d, p);
            const ParameterEntry& entry = content.parameters[i];
            if (!(entry.flags & ParameterEntry::setBit))
                continue;
            if (entry.flags & ParameterEntry::paletteBit) {
                // A reference to a palette without this parameter brings nothing.
                if (entry.value >= paletteCount ||
                    !paletteOutput(*record_, entry.value, d, p, &target.parameterValue[size_t(i)]))
                    continue;
                target.parameterPalette[size_t(i)] = quint8(entry.value + 1);
            } else {
                target.parameterValue[size_t(i)] = entry.value;
                target.parameterPalette[size_t(i)] = 0;
            }
            target.parameterSet.set(size_t(i));
        }
    }
}

void ConsoleSimulation::resolveStep(const StepRecord& step, int cueSlot, CueTarget& target) const
{
    target.clear();
    target.flags = step.flags;
    switch (step.contentType) {
    case stepChannel:
        if (step.contentIndex < profile_.channelCount)
            target.levels[step.contentIndex] = 255;
        break;
    case stepMemory: {
        const int page = step.contentIndex / profile_.faderCount;
        const int memory = step.contentIndex % profile_.faderCount;
        if (page < ConsoleStateRecord::pages)
            resolveContent(
                record_->memories[page * ConsoleStateRecord::memoriesPerPage + memory].content,
                target);
        break;
    }
    case stepDirectCue:
        if (cueSlot >= 0 && cueSlot < ConsoleStateRecord::stackCues)
            resolveContent(record_->cueContents[cueSlot], target);
        break;
    default:
        break;
    }
}

void ConsoleSimulation::startStep(int playback, int index)
{
    int count = 0;
    quint32 mode = 0;
    const StepRecord* steps = stepsOf(playback, &count, &mode);
    if (index < 0 || index >= count)
        return;
    const StepRecord& step = steps[index];
    CueTarget target;
    // A stack cue's content is kept at its step's position.
    resolveStep(step, playback == stackPlayback ? index : step.contentIndex, target);
    const int fade = playbackFade(playback);
    CuePlayer::Timing timing;
    timing.upMs = int(qint64(step.upTime) * 100 * fade / 256);
    timing.downMs = int(qint64(step.downTime) * 100 * fade / 256);
    timing.waitMs = step.waitTime * 100;
    const int next = nextIndex(playback, index);
    if (playback == stackPlayback)
        timing.autoFollow = mode != modeManual && step.waitTime > 0 && next >= 0;
    else
        timing.autoFollow = mode != modeManual && next >= 0;
    CuePlayer& player = players_[size_t(playback)];
    player.start(index, target, timing, live_);
    player.setNext(next);
    dirty_ = true;
}

quint16 ConsoleSimulation::playbackRate(int playback) const
{
    if (playback == stackPlayback)
        return stackRate_;
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    return record_->sequences[page * sequencesPerPage + playback].rate;
}

quint16 ConsoleSimulation::playbackFade(int playback) const
{
    if (playback == stackPlayback)
        return fullRate;
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    return record_->sequences[page * sequencesPerPage + playback].fade;
}

void ConsoleSimulation::go()
{
    CuePlayer& stack = players_[stackPlayback];
    if (stack.isPaused() && stack.phase() == CuePlayer::Phase::Fading) {
        stack.setPaused(false);
        dirty_ = true;
        return;
    }
    startStep(stackPlayback, stack.next());
}

void ConsoleSimulation::back()
{
    CuePlayer& stack = players_[stackPlayback];
    if (stack.live() > 0)
        startStep(stackPlayback, stack.live() - 1);
    else
        releaseStack();
}

void ConsoleSimulation::togglePause()
{
    CuePlayer& stack = players_[stackPlayback];
    stack.setPaused(!stack.isPaused());
    dirty_ = true;
}

void ConsoleSimulation::skipToNextCue(int direction)
{
    int count = 0;
    quint32 mode = 0;
    stepsOf(stackPlayback, &count, &mode);
    if (count == 0)
        return;
    CuePlayer& stack = players_[stackPlayback];
    const int current = stack.next() >= 0 ? stack.next() : (direction > 0 ? -1 : count);
    stack.setNext(((current + direction) % count + count) % count);
    dirty_ = true;
}

void ConsoleSimulation::releaseStack()
{
    CuePlayer& stack = players_[stackPlayback];
    int count = 0;
    quint32 mode = 0;
    const StepRecord* steps = stepsOf(stackPlayback, &count, &mode);
    const int live = stack.live();
    const int downMs = live >= 0 && live < count ? steps[live].downTime * 100 : 0;
    stack.release(downMs);
    stack.setNext(count > 0 ? 0 : -1);
    dirty_ = true;
}

void ConsoleSimulation::stepSequence(int sequenceFader)
{
    if (sequenceFader < 0 || sequenceFader >= profile_.sequenceFaderCount)
        return;
    CuePlayer& player = players_[size_t(sequenceFader)];
    startStep(sequenceFader, player.next() >= 0 ? player.next() : 0);
}

void ConsoleSimulation::runSequences()
{
    for (int f = 0; f < profile_.sequenceFaderCount; ++f) {
        const int fader = profile_.firstSequenceFader() + f;
        CuePlayer& player = players_[size_t(f)];
        const bool up = live_.playbackFader[size_t(fader)] > 0;
        if (!up || !sequenceHasSteps(faderPage(fader), f)) {
            if (player.isActive()) {
                player.reset();
                player.setNext(0);
            }
            continue;
        }
        if (!player.isActive())
            startStep(f, 0);
    }
}

void ConsoleSimulation::advancePlayers(int milliseconds)
{
    for (int p = 0; p < 13; ++p) {
        CuePlayer& player = players_[size_t(p)];
        if (!player.isActive())
            continue;
        if (player.tick(milliseconds, playbackRate(p)))
            startStep(p, player.next());
        dirty_ = true;
    }
}

// ---- mixing and publishing -------------------------------------------------

void ConsoleSimulation::tick(int milliseconds)
{
    consumeDmxWrites();
    runSequences();
    advancePlayers(milliseconds);
    runEffects(milliseconds);
    if (dirty_)
        refresh();
    if (showChanged_) {
        quietMs_ += milliseconds;
        if (quietMs_ >= keepStateAfterMs)
            keepState();
    }
}

void ConsoleSimulation::refresh()
{
    dirty_ = false;
    runSequences(); // a sequence starts as soon as its fader leaves zero
    for (CuePlayer& player : players_)
        player.applyParameters(live_);
    effects_.apply(*record_, profile_, live_);
    mixChannels();
    publishOutput();
    publishFaders();
    publishPlaybacks();
    feedback_.publish(notifier_);
}

void ConsoleSimulation::mixChannels()
{
    std::array<quint8, LiveState::channels> levels{};
    const int channels = profile_.channelCount;
    const bool soloing = live_.solo && (live_.flashHeld.any() || live_.channelFlash.any());
    const int bump = record_->bumpLevel;
    auto raise = [&levels](int c, int level) {
        levels[size_t(c)] = std::max(levels[size_t(c)], quint8(level));
    };
    if (!soloing) {
        for (int c = 0; c < channels; ++c)
            raise(c, live_.manual[size_t(c)]);
        for (int fader = 0; fader < profile_.faderCount; ++fader) {
            const int master = live_.playbackFader[size_t(fader)];
            if (master == 0)
                continue;
            const int page = faderPage(fader);
            const int sequence = fader - profile_.firstSequenceFader();
            if (sequence >= 0 && sequenceHasSteps(page, sequence)) {
                const auto& played = players_[size_t(sequence)].levels();
                for (int c = 0; c < channels; ++c)
                    raise(c, scaled(played[size_t(c)], master));
                continue;
            }
            const MemoryRecord& memory =
                record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader];
            if (!memory.recorded)
                continue;
            for (int c = 0; c < channels; ++c)
                raise(c, scaled(memory.content.channelLevels[c], master));
        }
        const auto& stack = players_[stackPlayback].levels();
        for (int c = 0; c < channels; ++c)
            raise(c, stack[size_t(c)]);
    }
    for (int c = 0; c < channels; ++c) {
        if (live_.channelFlash.test(size_t(c)))
            raise(c, bump);
    }
    for (int fader = 0; fader < profile_.faderCount; ++fader) {
        if (!live_.flashHeld.test(size_t(fader)))
            continue;
        const MemoryRecord& memory =
            record_->memories[record_->memoryPage * ConsoleStateRecord::memoriesPerPage + fader];
        for (int c = 0; c < channels; ++c)
            raise(c, scaled(memory.content.channelLevels[c], bump));
    }
    if (std::memcmp(record_->channelLevels, levels.data(), sizeof record_->channelLevels) != 0) {
        std::memcpy(record_->channelLevels, levels.data(), sizeof record_->channelLevels);
        notifier_.mark(ConsoleCode::ChannelsChanged);
    }
}

void ConsoleSimulation::publishOutput()
{
    if (output_.publish(live_, profile_))
        notifier_.mark(ConsoleCode::OutputLevelsChanged);
}

void ConsoleSimulation::publishFaders()
{
    bool changed = false;
    const int mode = int(record_->liveMode);
    for (int fader = 0; fader < ConsoleStateRecord::maxFaders; ++fader) {
        FaderRecord& record = record_->faders[fader];
        quint8 level = 0;
        bool active = false;
        if (fader < profile_.faderCount) {
            const int playback = live_.playbackFader[size_t(fader)];
            if (mode == 0) {
                const int channel = panel_.channelOfFader(fader);
                if (channel < profile_.channelCount)
                    level = record_->blindMode ? record_->blindLevels[channel]
                                               : live_.manual[size_t(channel)];
            } else if (mode == 1) {
                level = quint8(playback);
            } else {
                level = panel_.parameterFaderLevel(fader);
            }
            active = playback > 0 || live_.flashHeld.test(size_t(fader));
        }
        const quint8 page = quint8(faderPage(fader));
        if (record.level != level || record.active != quint8(active) || record.pageLoaded != page) {
            record.level = level;
            record.active = quint8(active);
            record.pageLoaded = page;
            changed = true;
        }
    }
    if (changed)
        notifier_.mark(ConsoleCode::FadersChanged);
}

void ConsoleSimulation::publishPlaybacks()
{
    bool changed = false;
    for (int p = 0; p < 13; ++p) {
        int count = 0;
        quint32 mode = 0;
        if (p != stackPlayback && p >= profile_.sequenceFaderCount)
            continue;
        stepsOf(p, &count, &mode);
        changed |= players_[size_t(p)].publish(record_->playbacks[p], count, playbackRate(p),
                                               playbackFade(p));
    }
    if (changed)
        notifier_.mark(ConsoleCode::PlaybackChanged);
}
