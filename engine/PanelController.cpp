// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelController.h"

#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "PanelEvent.h"
#include "PanelKey.h"

namespace {
constexpr int parametersPerFaderPage = 24;
}

void PanelController::handle(const PanelEvent& event)
{
    switch (event.kind) {
    case PanelEvent::PanelFader:
        handleFader(event.control, event.value);
        break;
    case PanelEvent::PanelButton:
        handleButton(event.control, event.buttonState != 0);
        break;
    case PanelEvent::PanelWheel:
        console_.turnWheel(event.control, qint8(event.value), isHeld(PanelKey::Rate));
        break;
    default:
        break;
    }
}

void PanelController::handleFader(int control, quint8 level)
{
    switch (control) {
    case PanelKey::GrandMasterFader:
        console_.setGrandMaster(level);
        break;
    case PanelKey::BumpFader:
        console_.setBumpLevel(level);
        break;
    case PanelKey::CrossfaderA:
    case PanelKey::CrossfaderB:
        console_.setCrossfader(control - PanelKey::CrossfaderA, level);
        break;
    default:
        console_.setPageFader(control, level);
        break;
    }
}

int PanelController::channelOfFader(int fader) const
{
    const ConsoleStateRecord* r = console_.record();
    switch (r->channelPage) {
    case 0:
        return fader;
    case 1:
        return r->faderCount + fader;
    case 2:
        return fader + 48;
    default:
        return fader + 72;
    }
}

int PanelController::parameterOfFader(int fader) const
{
    return console_.record()->faderParameterPage * parametersPerFaderPage + fader;
}

quint8 PanelController::parameterFaderLevel(int fader) const
{
    ConsoleSimulation& console = console_;
    const ConsoleStateRecord* r = console.record();
    const int parameter = parameterOfFader(fader);
    if (parameter >= ContentRecord::parameterCount)
        return 0;
    for (int d = 0; d < console.profile().deviceCount; ++d) {
        if (r->deviceSelected[d] && r->devices[d].parameterMap[parameter])
            return console.live().parameterValue[size_t(LiveState::parameterIndex(d, parameter))];
    }
    return 0;
}

void PanelController::setParameterFromFader(int fader, quint8 level)
{
    const ConsoleStateRecord* r = console_.record();
    const int parameter = parameterOfFader(fader);
    if (parameter >= ContentRecord::parameterCount)
        return;
    LiveState& live = console_.live();
    for (int d = 0; d < console_.profile().deviceCount; ++d) {
        if (!r->deviceSelected[d])
            continue;
        const size_t i = size_t(LiveState::parameterIndex(d, parameter));
        live.parameterValue[i] = level;
        live.parameterPalette[i] = 0;
    }
}

int PanelController::faderOfKey(int key) const
{
    const int faders = console_.profile().faderCount;
    if (key >= 0 && key < 24 && key < faders)
        return key;
    const int high = key - PanelKey::flashHighOffset;
    if (high >= 24 && high < faders)
        return high;
    return -1;
}

void PanelController::handleButton(int key, bool pressed)
{
    if (key < 0 || key >= keyCount)
        return;
    held_.set(size_t(key), pressed);
    console_.markChanged(); // the key's LED follows it while held
    if (key == PanelKey::Lumidesk) {
        if (pressed)
            lumideskUsed_ = false;
        else if (!lumideskUsed_)
            console_.sendProgramCommand(0, 0);
        return;
    }
    if (key == PanelKey::RecordSequence && !pressed)
        console_.endSequenceRecording();
    const int fader = faderOfKey(key);
    if (fader >= 0) {
        handleFlashKey(fader, pressed);
        return;
    }
    if (key == PanelKey::Independent1 || key == PanelKey::Independent2) {
        console_.setIndependentKey(key - PanelKey::Independent1, pressed);
        return;
    }
    if (!pressed)
        return;
    if (isHeld(PanelKey::Lumidesk) && handleProgramCommand(key))
        return;
    handleModeKey(key);
}

void PanelController::handleFlashKey(int fader, bool pressed)
{
    if (pressed && isHeld(PanelKey::Lumidesk)) {
        lumideskUsed_ = true;
        const bool sequence =
            console_.record()->liveMode == 1 && fader >= console_.profile().firstSequenceFader();
        console_.sendProgramCommand(sequence ? 4 : 5, fader);
        return;
    }
    if (pressed && isHeld(PanelKey::RecordSequence)) {
        console_.recordSequenceKey(fader);
        return;
    }
    if (pressed && (isHeld(PanelKey::RecordMemory) || isHeld(PanelKey::RecordSelected))) {
        console_.recordMemory(fader, isHeld(PanelKey::RecordSelected));
        return;
    }
    console_.setFlash(fader, pressed);
}

bool PanelController::handleProgramCommand(int key)
{
    int type = -1;
    switch (key) {
    case PanelKey::Stack:
        type = 3;
        break;
    case PanelKey::Copy:
        type = 1;
        break;
    case PanelKey::Snapshot:
        type = 2;
        break;
    case PanelKey::Edit:
    case PanelKey::Magic:
        type = 6;
        break;
    default:
        return false;
    }
    lumideskUsed_ = true;
    console_.sendProgramCommand(type, 0);
    return true;
}

void PanelController::handleModeKey(int key)
{
    const ModelProfile& profile = console_.profile();
    LiveState& live = console_.live();
    ConsoleStateRecord* r = console_.record();
    switch (key) {
    case PanelKey::Go:
        if (isHeld(PanelKey::RecordSequence))
            console_.recordStackCue();
        else
            console_.go();
        break;
    case PanelKey::Pause:
        console_.togglePause();
        break;
    case PanelKey::Back:
        console_.back();
        break;
    case PanelKey::Next:
        console_.skipToNextCue(1);
        break;
    case PanelKey::Clear:
        console_.releaseStack();
        break;
    case PanelKey::PreviousPage:
        console_.stepPage(-1);
        break;
    case PanelKey::NextPage:
        console_.stepPage(1);
        break;
    case PanelKey::Memories:
        console_.setMemoriesMode();
        break;
    case PanelKey::BankLow:
        // Birch pages through channels 1-24 and 25-48 with the same key.
        if (profile.model == ModelProfile::Model::Birch && r->liveMode == 0 && r->channelPage == 0)
            console_.setChannelBank(1);
        else
            console_.setChannelBank(0);
        break;
    case PanelKey::BankHigh:
        if (profile.model == ModelProfile::Model::Birch)
            console_.setChannelBank(r->liveMode == 0 && r->channelPage == 2 ? 3 : 2);
        else
            console_.setChannelBank(1);
        break;
    case PanelKey::IntDevice:
        if (profile.isMaple())
            console_.setChannelBank(2);
        break;
    case PanelKey::Param1:
    case PanelKey::Param2:
        if (profile.isMaple())
            console_.setParameterPage(key - PanelKey::Param1);
        break;
    case PanelKey::Solo:
        live.solo = !live.solo;
        console_.markStatusChanged();
        break;
    case PanelKey::BlackOut:
        live.blackout = !live.blackout;
        console_.markStatusChanged();
        break;
    case PanelKey::HighLight:
        live.highlight = !live.highlight;
        console_.markChanged();
        break;
    case PanelKey::Edit:
        console_.toggleBlind();
        break;
    case PanelKey::ClearSelection:
        console_.clearSelection();
        break;
    case PanelKey::SelectActive:
        console_.selectActiveDevices();
        break;
    case PanelKey::Home:
        console_.homeSelectedDevices();
        break;
    default:
        if (key >= PanelKey::firstSelect && key <= PanelKey::lastSelect && profile.isMaple())
            console_.pressSelectKey(key - PanelKey::firstSelect,
                                    isHeld(PanelKey::RecordPaletteGroup));
        else
            handleSelectModeKey(key);
        break;
    }
}

void PanelController::handleSelectModeKey(int key)
{
    if (!console_.profile().isMaple())
        return;
    const quint32 mode = console_.record()->selectMode;
    switch (key) {
    case PanelKey::DeviceSelect:
    case PanelKey::Select:
        console_.setSelectMode(1);
        break;
    case PanelKey::Group:
        console_.setSelectMode(2);
        break;
    case PanelKey::Focus:
        console_.setSelectMode(4);
        break;
    case PanelKey::Color:
        console_.setSelectMode(5);
        break;
    case PanelKey::Beam:
        console_.setSelectMode(6);
        break;
    case PanelKey::Effect:
        console_.setSelectMode(7);
        break;
    case PanelKey::EditEffect:
        console_.setSelectMode(8);
        break;
    case PanelKey::More:
        // The second bank of groups and effects.
        if (mode == 2 || mode == 3)
            console_.setSelectMode(mode == 2 ? 3 : 2);
        else if (mode >= 7 && mode <= 10)
            console_.setSelectMode(mode <= 8 ? mode + 2 : mode - 2);
        break;
    default:
        break;
    }
}
