// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleStateRecord.h"
#include "SimulationRules.h"
#include "StepList.h"

using namespace SimulationRules;

void ConsoleSimulation::recordSequenceKey(int fader)
{
    const int first = profile_.firstSequenceFader();
    const int page = record_->memoryPage;
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    if (record_->liveMode == 1 && fader >= first) {
        sequenceTarget_ = {page, fader - first};
        return;
    }
    if (sequenceTarget_.page < 0)
        return;
    quint32 type = stepMemory;
    int index = page * profile_.faderCount + fader;
    if (record_->liveMode == 0) {
        type = stepChannel;
        index = panel_.channelOfFader(fader);
        if (index >= profile_.channelCount)
            return;
    } else if (record_->liveMode != 1) {
        return; // fader parameters are no step content
    }
    const int key = sequenceTarget_.page * profile_.sequenceFaderCount + sequenceTarget_.fader;
    StepList list(record_, key);
    if (!list.isValid())
        return;
    const int at = list.count();
    const int lastCue = at > 0 ? list.step(at - 1)->cueNumber : 0;
    if (!list.insert(at, quint16((lastCue / 10 + 1) * 10), *record_))
        return;
    StepRecord* step = list.step(at);
    step->contentType = type;
    step->contentIndex = quint16(index);
    const int playback = playbackOfKey(key);
    if (playback >= 0)
        players_[size_t(playback)].stepInserted(at);
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, at);
}

void ConsoleSimulation::endSequenceRecording()
{
    sequenceTarget_ = {};
}
