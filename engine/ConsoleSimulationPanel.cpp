// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "PanelEvent.h"
#include "SimulationRules.h"

#include <algorithm>
#include <cstring>

using namespace SimulationRules;

void ConsoleSimulation::handlePanel(const PanelEvent& event)
{
    panel_.handle(event);
    dirty_ = true;
}

void ConsoleSimulation::markStatusChanged()
{
    notifier_.mark(ConsoleCode::ConsoleStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::usbDeviceRemoved()
{
    // A simulation never has a console attached, so the status is already 0;
    // it is only announced again. Rewriting it would race with the program's
    // lock-free read of the last announcement.
    if (record_->consoleStatus != 0)
        record_->consoleStatus = 0;
    markStatusChanged();
}

void ConsoleSimulation::setPageFader(int fader, quint8 level)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    switch (record_->liveMode) {
    case 0: {
        const int channel = panel_.channelOfFader(fader);
        if (channel >= profile_.channelCount)
            return;
        if (record_->blindMode) {
            record_->blindLevels[channel] = level;
            notifier_.mark(ConsoleCode::BlindLevelsChanged);
        } else {
            live_.manual[size_t(channel)] = level;
        }
        break;
    }
    case 1: {
        quint8& current = live_.playbackFader[size_t(fader)];
        if (current == 0 && level > 0) {
            live_.loadedPage[size_t(fader)] = qint8(record_->memoryPage);
            const int sequence = fader - profile_.firstSequenceFader();
            if (sequence < 0 || !sequenceHasSteps(record_->memoryPage, sequence)) {
                // A memory's parameters jump in when its fader leaves zero.
                applyMemoryParameters(record_->memoryPage, fader);
            }
        } else if (level == 0) {
            live_.loadedPage[size_t(fader)] = -1;
        }
        current = level;
        break;
    }
    default:
        panel_.setParameterFromFader(fader, level);
        break;
    }
    dirty_ = true;
}

void ConsoleSimulation::setGrandMaster(quint8 level)
{
    record_->grandMasterLevel = level;
    notifier_.mark(ConsoleCode::FadersChanged);
    dirty_ = true;
}

void ConsoleSimulation::setBumpLevel(quint8 level)
{
    record_->bumpLevel = level;
    notifier_.mark(ConsoleCode::FadersChanged);
    dirty_ = true;
}

void ConsoleSimulation::setCrossfader(int which, quint8 level)
{
    live_.crossfader[size_t(which)] = level;
    const int low = std::min(live_.crossfader[0], live_.crossfader[1]);
    const int high = std::max(live_.crossfader[0], live_.crossfader[1]);
    const int position = live_.crossfadeSide == 0 ? low : 255 - high;
    CuePlayer& stack = players_[stackPlayback];
    if (!stack.isManual()) {
        if (position == 0 || stack.next() < 0)
            return;
        startStep(stackPlayback, stack.next());
    }
    stack.setManualPosition(position);
    if (position >= 255)
        live_.crossfadeSide = 1 - live_.crossfadeSide;
    dirty_ = true;
}

void ConsoleSimulation::setFlash(int fader, bool held)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    if (record_->liveMode == 0) {
        const int channel = panel_.channelOfFader(fader);
        if (channel < profile_.channelCount)
            live_.channelFlash.set(size_t(channel), held);
    } else if (record_->liveMode == 1) {
        const int sequence = fader - profile_.firstSequenceFader();
        if (sequence >= 0 && sequenceHasSteps(record_->memoryPage, sequence)) {
            if (held)
                stepSequence(sequence);
        } else {
            live_.flashHeld.set(size_t(fader), held);
        }
    }
    dirty_ = true;
}

void ConsoleSimulation::setChannelBank(int bank)
{
    record_->liveMode = 0;
    record_->channelPage = bank;
    markStatusChanged();
}

void ConsoleSimulation::setMemoriesMode()
{
    record_->liveMode = 1;
    markStatusChanged();
}

void ConsoleSimulation::setParameterPage(int page)
{
    record_->liveMode = 2;
    record_->faderParameterPage = page;
    markStatusChanged();
}

void ConsoleSimulation::selectPage(int page)
{
    if (page < 0 || page >= profile_.pageCount)
        return;
    const int previous = record_->memoryPage;
    record_->memoryPage = page;
    markStatusChanged();
    // Page rows mark the current page: both rows change their look.
    if (previous != page) {
        notifier_.send(ConsoleCode::PageChanged, previous);
        notifier_.send(ConsoleCode::PageChanged, page);
    }
}

void ConsoleSimulation::stepPage(int direction)
{
    selectPage(((record_->memoryPage + direction) % profile_.pageCount + profile_.pageCount) %
               profile_.pageCount);
}

void ConsoleSimulation::setIndependentKey(int independent, bool pressed)
{
    IndependentRecord& record = record_->independents[independent];
    if (record.buttonMode == 0) {
        if (pressed)
            record.currentLevel = record.currentLevel ? 0 : record.onLevel;
    } else {
        record.currentLevel = pressed ? record.onLevel : 0;
    }
    notifier_.mark(ConsoleCode::IndependentsChanged);
    dirty_ = true;
}

void ConsoleSimulation::toggleBlind()
{
    record_->blindMode = record_->blindMode ? 0 : 1;
    if (record_->blindMode)
        std::memcpy(record_->blindLevels, record_->channelLevels, sizeof record_->blindLevels);
    notifier_.mark(ConsoleCode::BlindLevelsChanged);
    markStatusChanged();
}

void ConsoleSimulation::sendProgramCommand(int type, int argument)
{
    notifier_.send(ConsoleCode::System, SystemCode::LumideskCommand, type, argument);
}

void ConsoleSimulation::setSelectMode(quint32 mode)
{
    record_->selectMode = mode;
    markStatusChanged();
}

void ConsoleSimulation::clearSelection()
{
    std::memset(record_->deviceSelected, 0, sizeof record_->deviceSelected);
    notifier_.mark(ConsoleCode::DeviceStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::selectActiveDevices()
{
    for (int d = 0; d < profile_.deviceCount; ++d)
        record_->deviceSelected[d] =
            record_->channelLevels[profile_.firstDeviceChannel() + d] > 0 ? 1 : 0;
    notifier_.mark(ConsoleCode::DeviceStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::homeSelectedDevices()
{
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->deviceSelected[d])
            setDeviceDefaults(d);
    }
    dirty_ = true;
}

void ConsoleSimulation::turnWheel(int wheel, int steps, bool rateHeld)
{
    if (wheel == 0) {
        if (rateHeld) {
            stackRate_ = quint16(std::clamp(int(stackRate_) + steps * 8, 0, 1024));
            dirty_ = true;
        } else {
            skipToNextCue(steps > 0 ? 1 : -1);
        }
        return;
    }
    const int parameter = wheel == 1 ? pan : tilt;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (!record_->deviceSelected[d])
            continue;
        const size_t i = size_t(LiveState::parameterIndex(d, parameter));
        live_.parameterValue[i] =
            quint8(std::clamp(int(live_.parameterValue[i]) + steps * 2, 0, 255));
        live_.parameterPalette[i] = 0;
        const size_t fine = size_t(LiveState::parameterIndex(d, wheel == 1 ? panFine : tiltFine));
        live_.parameterValue[fine] = 0;
        live_.parameterPalette[fine] = 0;
    }
    dirty_ = true;
}
