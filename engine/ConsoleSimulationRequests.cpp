// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "PersonalityLibrary.h"
#include "ShowData.h"
#include "SimulationRules.h"
#include "StepList.h"

#include <algorithm>

using namespace SimulationRules;

void ConsoleSimulation::handleUpdate(int code, int a, int b, int c)
{
    switch (code) {
    case ConsoleCode::PatchDevice:
        patchDevice(a, b, c);
        break;
    case ConsoleCode::UnpatchDevice:
        unpatchDevice(a);
        break;
    case ConsoleCode::MoveDevice:
        moveDevice(a, b);
        break;
    case ConsoleCode::InsertStep:
        insertStep(a, b, c);
        break;
    case ConsoleCode::DeleteStep:
        deleteStep(a, b);
        break;
    case ConsoleCode::MoveStepFrom:
        pendingMove_ = {true, a, b};
        break;
    case ConsoleCode::MoveStepTo:
        moveStep(a, b, c);
        break;
    case ConsoleCode::System:
        if (a == SystemCode::SelectPage)
            selectPage(b);
        else if (a >= SystemCode::EraseFirst && a <= SystemCode::EraseLast)
            erase(a);
        break;
    case ConsoleCode::MemoryChanged:
        memoryEdited(a, b);
        break;
    case ConsoleCode::PaletteChanged:
        paletteEdited(a);
        break;
    case ConsoleCode::PatchChanged:
        output_.patchChanged();
        showChanged_ = true;
        dirty_ = true;
        break;
    case ConsoleCode::DeviceStatusChanged:
    case ConsoleCode::ConsoleStatusChanged:
        dirty_ = true;
        break;
    default:
        if ((code >= 0 && code <= 24) || code == ConsoleCode::SystemSettingsChanged) {
            showChanged_ = true;
            dirty_ = true;
        }
        break;
    }
}

void ConsoleSimulation::followPalette(int palette)
{
    if (palette < 0 || palette >= paletteCount)
        return;
    // Parameters that follow this palette take its new values; one it no
    // longer includes keeps its last value as a plain level.
    for (int d = 0; d < profile_.deviceCount; ++d) {
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            const size_t i = size_t(LiveState::parameterIndex(d, p));
            if (live_.parameterPalette[i] != palette + 1)
                continue;
            if (!paletteOutput(*record_, palette, d, p, &live_.parameterValue[i]))
                live_.parameterPalette[i] = 0;
        }
    }
}

int ConsoleSimulation::playbackOfKey(int key) const
{
    StepList list(record_, key);
    if (!list.isValid())
        return -1;
    if (list.isStack())
        return stackPlayback;
    return faderPage(profile_.firstSequenceFader() + list.fader()) == list.page() ? list.fader()
                                                                                  : -1;
}

void ConsoleSimulation::answerSequence(int key, int step)
{
    StepList list(record_, key);
    if (list.isStack()) {
        if (step >= 0)
            notifier_.send(ConsoleCode::StackCueChanged, step);
        notifier_.send(ConsoleCode::StackChanged);
    } else {
        notifier_.send(ConsoleCode::SequenceChanged, list.page(), list.fader());
    }
}

void ConsoleSimulation::insertStep(int key, int step, int cue)
{
    StepList list(record_, key);
    if (!list.isValid())
        return;
    const int index = std::min(step, list.count());
    if (!list.insert(index, quint16(cue), *record_)) {
        qWarning("Simulated console: no room for another step (%d of %d)", list.count(),
                 list.capacity());
        return;
    }
    const int playback = playbackOfKey(key);
    if (playback >= 0)
        players_[size_t(playback)].stepInserted(index);
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, index);
}

void ConsoleSimulation::deleteStep(int key, int step)
{
    StepList list(record_, key);
    if (!list.isValid() || !list.remove(step))
        return;
    const int playback = playbackOfKey(key);
    if (playback >= 0) {
        CuePlayer& player = players_[size_t(playback)];
        player.stepRemoved(step);
        if (player.next() >= list.count())
            player.setNext(list.count() > 0 ? nextIndex(playback, list.count() - 1) : -1);
    }
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, -1);
}

void ConsoleSimulation::moveStep(int key, int to, int cue)
{
    if (!pendingMove_.valid || pendingMove_.key != key)
        return;
    const int from = pendingMove_.from;
    pendingMove_ = {};
    StepList list(record_, key);
    if (!list.isValid() || !list.move(from, to, quint16(cue)))
        return;
    const int playback = playbackOfKey(key);
    if (playback >= 0) {
        // The playback keeps its place by position, as a console does.
        players_[size_t(playback)].setNext(
            std::min(players_[size_t(playback)].next(), list.count() - 1));
    }
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, -1);
}

void ConsoleSimulation::erase(int subCode)
{
    beginBulk();
    switch (subCode) {
    case 11:
        ShowData::clearMemories(record_);
        break;
    case 12:
        ShowData::clearSequences(record_);
        break;
    case 13:
        ShowData::clearStack(record_);
        break;
    case 14:
        ShowData::clearPalettes(record_);
        break;
    case 15:
        ShowData::clearPatch(record_);
        break;
    default:
        ShowData::clearShow(record_);
        break;
    }
    resetLive();
    endBulk();
    refresh();
}

// ---- DMX ring ------------------------------------------------------------

void ConsoleSimulation::consumeDmxWrites()
{
    constexpr int ringSize = ConsoleStateRecord::dmxWriteRingSize;
    const quint8 write = __atomic_load_n(&record_->dmxWriteIndex, __ATOMIC_ACQUIRE);
    quint8 read = record_->dmxReadIndex;
    if (write >= ringSize || read >= ringSize || read == write)
        return;
    while (read != write) {
        applyDmxWrite(record_->dmxWriteRing[read]);
        read = quint8((read + 1) % ringSize);
    }
    __atomic_store_n(&record_->dmxReadIndex, read, __ATOMIC_RELEASE);
    dirty_ = true;
}

void ConsoleSimulation::applyDmxWrite(const DmxWrite& write)
{
    const int universe = write.address >> 9;
    if (universe > 1)
        return;
    const int address = universe * 512 + (write.address & 0x1ff);
    const int palette = write.palette; // index + 1, 0 for a level
    for (int d = 0; d < profile_.deviceCount; ++d) {
        const DeviceRecord& device = record_->devices[d];
        const int first = device.firstAddress - 1;
        if (device.firstAddress == 0 || address < first || address >= first + device.footprint)
            continue;
        const PersonalityLibrary::Personality* personality =
            PersonalityLibrary::find(PersonalityLibrary::deviceId(device));
        if (!personality || address - first >= int(personality->layout.size()))
            continue;
        const int parameter = personality->layout[size_t(address - first)];
        if (parameter == PersonalityLibrary::intensitySlot) {
            live_.manual[size_t(profile_.firstDeviceChannel() + d)] = write.level;
            return;
        }
        const size_t i = size_t(LiveState::parameterIndex(d, parameter));
        if (palette > 0 && palette <= 24) {
            // A palette without a value for this parameter leaves it alone.
            if (paletteOutput(*record_, palette - 1, d, parameter, &live_.parameterValue[i]))
                live_.parameterPalette[i] = quint8(palette);
        } else {
            live_.parameterValue[i] = write.level;
            live_.parameterPalette[i] = 0;
        }
        return;
    }
    const int entry = address < profile_.patchAddressCount ? record_->dmxPatch[address] : 0;
    if (entry >= 1 && entry <= profile_.channelCount) {
        live_.manual[size_t(entry - 1)] = write.level;
    } else if (entry > profile_.channelCount && entry <= profile_.channelCount + 2) {
        record_->independents[entry - profile_.channelCount - 1].currentLevel = write.level;
        notifier_.mark(ConsoleCode::IndependentsChanged);
    } else {
        output_.park(address, write.level, quint8(palette));
    }
}
