// SPDX-License-Identifier: GPL-3.0-or-later
#include "StepList.h"

#include "ConsoleStateRecord.h"
#include "SimulationRules.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

template <typename Apply> void forEachCueArray(ConsoleStateRecord& record, Apply apply)
{
    apply(record.cueLabels);
    apply(record.cueRecorded);
    apply(record.cueContents);
    apply(record.cueNames);
}
} // namespace

StepList::StepList(ConsoleStateRecord* record, int key) : record_(record)
{
    constexpr int perPage = ConsoleStateRecord::sequenceFadersPerPage;
    const int faders = record->sequenceFaderCount;
    if (faders <= 0 || faders > perPage || key < 0)
        return;
    if (key == faders * ConsoleStateRecord::pages) {
        stack_ = true;
        steps_ = record->stackSteps;
        count_ = &record->stackStepCount;
        capacity_ = ConsoleStateRecord::maxStackSteps;
        return;
    }
    page_ = key / faders;
    fader_ = key % faders;
    if (page_ >= ConsoleStateRecord::pages)
        return;
    SequenceRecord& sequence = record->sequences[page_ * perPage + fader_];
    steps_ = sequence.steps;
    count_ = &sequence.stepCount;
    capacity_ = SequenceRecord::maxSteps;
}

StepRecord* StepList::step(int index) const
{
    return index >= 0 && index < count() ? steps_ + index : nullptr;
}

bool StepList::insert(int index, quint16 cueNumber, const ConsoleStateRecord& defaults)
{
    const int n = count();
    if (n >= capacity_ || index < 0)
        return false;
    if (index > n)
        index = n;
    std::memmove(steps_ + index + 1, steps_ + index, size_t(n - index) * sizeof(StepRecord));
    StepRecord& step = steps_[index];
    std::memset(static_cast<void*>(&step), 0, sizeof step);
    step.cueNumber = cueNumber;
    step.contentType = SimulationRules::stepEmpty;
    step.upTime = defaults.defaultUpFade;
    step.downTime = defaults.defaultDownFade;
    step.waitTime = defaults.defaultWait;
    *count_ = quint8(n + 1);
    if (stack_) {
        clearCue(n);
        rotateCues(index, n, n + 1);
        renumberDirectCues();
    }
    return true;
}

bool StepList::remove(int index)
{
    const int n = count();
    if (index < 0 || index >= n)
        return false;
    std::memmove(steps_ + index, steps_ + index + 1, size_t(n - index - 1) * sizeof(StepRecord));
    std::memset(static_cast<void*>(steps_ + n - 1), 0, sizeof(StepRecord));
    *count_ = quint8(n - 1);
    if (stack_) {
        clearCue(index);
        rotateCues(index, index + 1, n);
        renumberDirectCues();
    }
    return true;
}

bool StepList::move(int from, int to, quint16 cueNumber)
{
    const int n = count();
    if (from < 0 || from >= n || to < 0 || to >= n)
        return false;
    StepRecord moved = steps_[from];
    if (cueNumber != 0)
        moved.cueNumber = cueNumber;
    if (to > from)
        std::memmove(steps_ + from, steps_ + from + 1, size_t(to - from) * sizeof(StepRecord));
    else if (to < from)
        std::memmove(steps_ + to + 1, steps_ + to, size_t(from - to) * sizeof(StepRecord));
    steps_[to] = moved;
    if (stack_) {
        if (to > from)
            rotateCues(from, from + 1, to + 1);
        else
            rotateCues(to, from, from + 1);
        renumberDirectCues();
    }
    return true;
}

void StepList::rotateCues(int first, int middle, int last)
{
    if (first >= middle || middle >= last)
        return;
    forEachCueArray(*record_, [&](auto& cues) {
        std::rotate(std::begin(cues) + first, std::begin(cues) + middle, std::begin(cues) + last);
    });
}

void StepList::clearCue(int index)
{
    forEachCueArray(*record_, [&](auto& cues) {
        std::memset(static_cast<void*>(&cues[index]), 0, sizeof cues[index]);
    });
}

void StepList::renumberDirectCues()
{
    for (int i = 0; i < count(); ++i) {
        if (steps_[i].contentType == SimulationRules::stepDirectCue)
            steps_[i].contentIndex = quint16(i);
    }
}
