// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

struct ConsoleStateRecord;
struct StepRecord;

// The steps of one sequence or of the stack, edited in place in the record.
class StepList
{
public:
    // The list named by a sequence key (sequenceFaderCount * page + fader,
    // or sequenceFaderCount * 12 for the stack); invalid for other keys.
    StepList(ConsoleStateRecord* record, int key);

    bool isValid() const { return steps_ != nullptr; }
    bool isStack() const { return stack_; }
    int page() const { return page_; }
    int fader() const { return fader_; }
    int count() const { return *count_; }
    int capacity() const { return capacity_; }
    // Null outside the list.
    StepRecord* step(int index) const;

    // Inserts an empty step (content type "empty", default times) at index,
    // clamped to the end; false when the list is full.
    bool insert(int index, quint16 cueNumber, const ConsoleStateRecord& defaults);
    bool remove(int index);
    // Moves the step at from so that it ends up at index to (after removal).
    // Cue number 0 keeps the step's own number (a sequence move names none).
    bool move(int from, int to, quint16 cueNumber);

private:
    // The stack's cue texts, contents and recorded flags are kept by step
    // position, so they move with their step, and a direct cue names its own
    // position.
    void rotateCues(int first, int middle, int last);
    void clearCue(int index);
    void renumberDirectCues();

    ConsoleStateRecord* record_ = nullptr;
    StepRecord* steps_ = nullptr;
    quint8* count_ = nullptr;
    int capacity_ = 0;
    bool stack_ = false;
    int page_ = -1;
    int fader_ = -1;
};
