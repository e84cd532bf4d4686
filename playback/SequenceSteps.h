// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

#include <QList>
#include <QString>

class ConsoleCache;
struct PlaybackRecord;
struct StepRecord;

// The steps of one sequence, or of the stack, as the playback blocks and
// the step dialogs read them. A key outside the console (as a stray signal
// may carry) reads as an empty list without a playback.
class SequenceSteps
{
public:
    SequenceSteps(const ConsoleCache* cache, Console::Sequence sequence);

    static bool isValid(Console::Sequence sequence);
    // A stack cue number (stored times ten) as "N.M".
    static QString cueText(int value);

    Console::Sequence sequence() const { return key; }
    bool isStack() const { return key.isStack(); }
    int count() const;
    // Steps the list can hold: 199 for the stack, 24 for a sequence.
    int capacity() const;
    bool isFull() const { return count() >= capacity(); }
    // Null outside 0..count-1.
    const StepRecord* step(int index) const;
    int cueNumber(int index) const;
    // The playback entry playing the list, or null while none does.
    const PlaybackRecord* playback() const;

    // Cue numbers that fit between the steps before and at a position: on
    // the stack only, between two steps, or (withFirst) before the first.
    QList<int> freeCueNumbers(int position, bool withFirst) const;
    // No stack cue number fits between two neighbouring steps there.
    bool isCrowdedAt(int position, bool withFirst) const;

private:
    const ConsoleCache* cache;
    Console::Sequence key;
    bool valid;
};
