// SPDX-License-Identifier: GPL-3.0-or-later
#include "SequenceSteps.h"

#include "ConsoleCache.h"

#include <type_traits>

SequenceSteps::SequenceSteps(const ConsoleCache* cache, Console::Sequence sequence)
    : cache(cache), key(sequence), valid(cache && cache->record() && isValid(sequence))
{
}

bool SequenceSteps::isValid(Console::Sequence sequence)
{
    return sequence.isStack() ||
           (sequence.page >= 0 && sequence.page < ConsoleStateRecord::pages &&
            sequence.fader >= 0 && sequence.fader < ConsoleStateRecord::sequenceFadersPerPage);
}

QString SequenceSteps::cueText(int value)
{
    return QStringLiteral("%1.%2").arg(value / 10).arg(value % 10);
}

int SequenceSteps::count() const
{
    return valid ? cache->stepCount(key.page, key.fader) : 0;
}

int SequenceSteps::capacity() const
{
    return ConsoleCache::stepCapacity(key.page);
}

const StepRecord* SequenceSteps::step(int index) const
{
    if (index < 0 || index >= count())
        return nullptr;
    return cache->step(key.page, key.fader, index);
}

int SequenceSteps::cueNumber(int index) const
{
    const StepRecord* record = step(index);
    return record ? record->cueNumber : 0;
}

const PlaybackRecord* SequenceSteps::playback() const
{
    if (!valid)
        return nullptr;
    const int index = cache->playbackIndex(key.page, key.fader);
    constexpr int playbacks = int(std::extent_v<decltype(ConsoleStateRecord::playbacks)>);
    if (index < 0 || index >= playbacks)
        return nullptr;
    return &cache->record()->playbacks[index];
}

QList<int> SequenceSteps::freeCueNumbers(int position, bool withFirst) const
{
    QList<int> numbers;
    const int n = count();
    if (!isStack() || position >= n || position < 0 || (position == 0 && !withFirst))
        return numbers;
    const int lower = position > 0 ? cueNumber(position - 1) : 0;
    for (int value = lower + 1; value < cueNumber(position); ++value)
        numbers << value;
    return numbers;
}

bool SequenceSteps::isCrowdedAt(int position, bool withFirst) const
{
    const int n = count();
    if (!isStack() || position >= n || position < 0 || (position == 0 && !withFirst))
        return false;
    const int lower = position > 0 ? cueNumber(position - 1) : 0;
    // Out-of-order numbers leave no room either.
    return lower + 1 >= cueNumber(position);
}
