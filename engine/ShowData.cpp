// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShowData.h"

#include "ConsoleStateRecord.h"
#include "ModelProfile.h"

#include <cstddef>
#include <cstring>

namespace {
struct Region
{
    size_t begin;
    size_t end;
};

// Contiguous stretches of the record that hold show data.
constexpr Region regions[] = {
    {offsetof(ConsoleStateRecord, channelLegends), offsetof(ConsoleStateRecord, sequences)},
    {offsetof(ConsoleStateRecord, sequences), offsetof(ConsoleStateRecord, engineReserved)},
    {offsetof(ConsoleStateRecord, cueLabels), offsetof(ConsoleStateRecord, deviceSelected)},
    {offsetof(ConsoleStateRecord, crossfaderMode), offsetof(ConsoleStateRecord, showFileName)},
};

constexpr quint16 fullRate = 256;
constexpr quint8 noEffect = 255;

char* bytes(ConsoleStateRecord* record)
{
    return reinterpret_cast<char*>(record);
}

template <typename T> void zero(T& field)
{
    std::memset(static_cast<void*>(&field), 0, sizeof field);
}

void resetSequence(SequenceRecord& sequence)
{
    zero(sequence);
    sequence.rate = fullRate;
    sequence.fade = fullRate;
}
} // namespace

qsizetype ShowData::size()
{
    qsizetype total = 0;
    for (const Region& region : regions)
        total += qsizetype(region.end - region.begin);
    return total;
}

QByteArray ShowData::capture(const ConsoleStateRecord* record)
{
    QByteArray data;
    data.reserve(size());
    const char* base = reinterpret_cast<const char*>(record);
    for (const Region& region : regions)
        data.append(base + region.begin, qsizetype(region.end - region.begin));
    return data;
}

bool ShowData::restore(ConsoleStateRecord* record, const QByteArray& data,
                       const ModelProfile& profile)
{
    if (data.size() != size())
        return false;
    const char* source = data.constData();
    for (const Region& region : regions) {
        std::memcpy(bytes(record) + region.begin, source, region.end - region.begin);
        source += region.end - region.begin;
    }
    // The operating mode belongs to the console, not to the show, except for
    // Maple's user mode.
    if (!profile.isMaple())
        record->consoleMode = profile.consoleMode;
    for (IndependentRecord& independent : record->independents)
        independent.currentLevel = 0;
    return true;
}

void ShowData::clearMemories(ConsoleStateRecord* record)
{
    zero(record->memories);
}

void ShowData::clearSequences(ConsoleStateRecord* record)
{
    for (SequenceRecord& sequence : record->sequences)
        resetSequence(sequence);
}

void ShowData::clearStack(ConsoleStateRecord* record)
{
    zero(record->stackSteps);
    record->stackStepCount = 0;
    record->stackMode = 0;
    zero(record->cueLabels);
    zero(record->cueRecorded);
    zero(record->cueContents);
    zero(record->cueNames);
}

void ShowData::clearPalettes(ConsoleStateRecord* record)
{
    zero(record->palettes);
}

void ShowData::clearPatch(ConsoleStateRecord* record)
{
    zero(record->dmxPatch);
    zero(record->midiCircuits);
    zero(record->devices);
}

void ShowData::clearShow(ConsoleStateRecord* record)
{
    zero(record->channelLegends);
    clearMemories(record);
    clearSequences(record);
    clearStack(record);
    clearPalettes(record);
    zero(record->groups);
    zero(record->pageNames);
    clearPatch(record);
    zero(record->independents);
    zero(record->effects);
    for (EffectRecord& effect : record->effects)
        effect.pattern = noEffect;
    // A colour effect's chroma counts from 256: an empty one shows 0 %.
    for (int e = 24; e < 36; ++e)
        record->effects[e].depth = 256;
}

void ShowData::resetSettings(ConsoleStateRecord* record, const ModelProfile& profile)
{
    const size_t begin = offsetof(ConsoleStateRecord, crossfaderMode);
    const size_t end = offsetof(ConsoleStateRecord, showFileName);
    std::memset(bytes(record) + begin, 0, end - begin);
    record->defaultUpFade = 30;
    record->defaultDownFade = 30;
    record->defaultMoveDark = 10;
    record->consoleMode = profile.consoleMode;
}
