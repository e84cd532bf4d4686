// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelFeedback.h"

#include "ConsoleCodes.h"
#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "PanelKey.h"

#include <algorithm>
#include <cstring>

void PanelFeedback::set(LedRecord& led, Colour on, Colour off)
{
    // Stored red, blue, green.
    led.on[0] = on.red;
    led.on[1] = on.blue;
    led.on[2] = on.green;
    led.off[0] = off.red;
    led.off[1] = off.blue;
    led.off[2] = off.green;
}

void PanelFeedback::computeLeds(LedRecord* leds) const
{
    constexpr Colour dark{0, 0, 0};
    constexpr Colour red{255, 0, 0};
    constexpr Colour green{0, 255, 0};
    constexpr Colour yellow{255, 200, 0};
    const ConsoleStateRecord* r = console_.record();
    const LiveState& live = console_.live();
    const ModelProfile& profile = console_.profile();
    const PanelController& panel = console_.panel();
    auto steady = [&](int key, bool lit, Colour colour) {
        set(leds[key], lit ? colour : dark, lit ? colour : dark);
    };
    auto blink = [&](int key, Colour colour) { set(leds[key], colour, dark); };

    for (int key = 0; key < PanelKey::count; ++key)
        steady(key, panel.isHeld(key), red);
    for (int fader = 0; fader < profile.faderCount; ++fader) {
        const int key = fader < 24 ? fader : fader + PanelKey::flashHighOffset;
        const bool active = r->faders[fader].active != 0 || panel.isHeld(key);
        steady(key, active, green);
    }
    const bool channels = r->liveMode == 0;
    if (profile.isMaple()) {
        steady(PanelKey::BankLow, channels && r->channelPage == 0, yellow);
        steady(PanelKey::BankHigh, channels && r->channelPage == 1, yellow);
        steady(PanelKey::IntDevice, channels && r->channelPage == 2, yellow);
        steady(PanelKey::Param1, r->liveMode == 2 && r->faderParameterPage == 0, yellow);
        steady(PanelKey::Param2, r->liveMode == 2 && r->faderParameterPage == 1, yellow);
        const quint32 mode = r->selectMode;
        steady(PanelKey::DeviceSelect, mode == 1, yellow);
        steady(PanelKey::Group, mode == 2 || mode == 3, yellow);
        steady(PanelKey::Focus, mode == 4, yellow);
        steady(PanelKey::Color, mode == 5, yellow);
        steady(PanelKey::Beam, mode == 6, yellow);
        steady(PanelKey::Effect, mode == 7 || mode == 9, yellow);
        steady(PanelKey::EditEffect, mode == 8 || mode == 10, yellow);
        steady(PanelKey::More, mode == 3 || mode == 9 || mode == 10, yellow);
        steady(PanelKey::HighLight, live.highlight, red);
        for (int k = 0; k < 24; ++k) {
            const int key = PanelKey::firstSelect + k;
            steady(key,
                   (mode == 1 && k < profile.deviceCount && r->deviceSelected[k]) ||
                       panel.isHeld(key),
                   green);
        }
    } else {
        const bool birch = profile.model == ModelProfile::Model::Birch;
        const bool low = channels && (r->channelPage == 0 || (birch && r->channelPage == 1));
        steady(PanelKey::BankLow, low, yellow);
        steady(PanelKey::BankHigh, channels && !low, yellow);
    }
    steady(PanelKey::Memories, r->liveMode == 1, yellow);
    steady(PanelKey::Solo, live.solo, red);
    if (live.blackout)
        blink(PanelKey::BlackOut, red);
    if (r->blindMode)
        blink(PanelKey::Edit, red);
    const CuePlayer& stack = console_.player(ConsoleSimulation::stackPlayback);
    if (stack.phase() == CuePlayer::Phase::Fading && !stack.isPaused())
        blink(PanelKey::Go, green);
    else
        steady(PanelKey::Go, stack.next() >= 0 || panel.isHeld(PanelKey::Go), green);
    if (stack.isPaused())
        blink(PanelKey::Pause, yellow);
    steady(PanelKey::Independent1,
           r->independents[0].currentLevel > 0 || panel.isHeld(PanelKey::Independent1), red);
    steady(PanelKey::Independent2,
           r->independents[1].currentLevel > 0 || panel.isHeld(PanelKey::Independent2), red);
}

QByteArray PanelFeedback::modeText() const
{
    const ConsoleStateRecord* r = console_.record();
    const ModelProfile& profile = console_.profile();
    QByteArray text;
    if (r->liveMode == 1) {
        text = "MEMS";
    } else if (r->liveMode == 2) {
        text = r->faderParameterPage == 0 ? "PARAM 1" : "PARAM 2";
    } else if (profile.isMaple()) {
        static const char* const banks[] = {"INT A", "INT B", "INT DEV"};
        text = banks[std::clamp(r->channelPage, 0, 2)];
    } else {
        const int first = console_.panel().channelOfFader(0) + 1;
        const int last = std::min(first + profile.faderCount - 1, profile.channelCount);
        text = "CH " + QByteArray::number(first) + "-" + QByteArray::number(last);
    }
    text = text.leftJustified(8, ' ');
    text += "PAGE " + QByteArray::number(r->memoryPage + 1).rightJustified(2, '0');
    if (console_.live().blackout)
        text += " BO";
    else if (r->blindMode)
        text += " BL";
    return text;
}

QByteArray PanelFeedback::stackText() const
{
    const ConsoleStateRecord* r = console_.record();
    const CuePlayer& stack = console_.player(ConsoleSimulation::stackPlayback);
    auto cueText = [r](int index) -> QByteArray {
        if (index < 0 || index >= r->stackStepCount)
            return "-";
        const int number = r->stackSteps[index].cueNumber;
        return QByteArray::number(number / 10) + "." + QByteArray::number(number % 10);
    };
    QByteArray text = "CUE " + cueText(stack.live()) + ">" + cueText(stack.next());
    text = text.leftJustified(15, ' ');
    const PlaybackRecord& playback = r->playbacks[ConsoleSimulation::stackPlayback];
    if (stack.isPaused())
        text += "PAUSE";
    else if (stack.phase() == CuePlayer::Phase::Fading)
        text += QByteArray::number(playback.upProgress * 100 / 255) + "%";
    return text;
}

QByteArray PanelFeedback::selectText() const
{
    const ConsoleStateRecord* r = console_.record();
    static const char* const modes[] = {"",        "DEV SEL",  "GROUP",    "GROUP 2",
                                        "FOCUS",   "COLOR",    "BEAM",     "EFFECT",
                                        "FX EDIT", "EFFECT 2", "FX EDIT 2"};
    return QByteArray(r->selectMode <= 10 ? modes[r->selectMode] : "");
}

QByteArray PanelFeedback::displayLine(int display, int line) const
{
    const ConsoleStateRecord* r = console_.record();
    QByteArray text;
    if (display == 0) {
        text = line == 0 ? modeText() : stackText();
    } else {
        if (line == 0) {
            text = "SELECT " + selectText();
        } else {
            int selected = 0;
            for (int d = 0; d < console_.profile().deviceCount; ++d)
                selected += r->deviceSelected[d] ? 1 : 0;
            text = "DEV " + QByteArray::number(selected) + " GM " +
                   QByteArray::number((r->grandMasterLevel * 100 + 127) / 255) + "%";
        }
    }
    return text.leftJustified(lineLength, ' ', true);
}

void PanelFeedback::publish(EngineNotifier& notifier)
{
    ConsoleStateRecord* r = console_.record();
    LedRecord leds[PanelKey::count];
    computeLeds(leds);
    if (std::memcmp(leds, r->leds, sizeof leds) != 0) {
        std::memcpy(r->leds, leds, sizeof leds);
        notifier.mark(ConsoleCode::LedsChanged);
    }
    const int displays = console_.profile().isMaple() ? 2 : 1;
    for (int display = 0; display < displays; ++display) {
        char lines[2][lineLength];
        for (int line = 0; line < 2; ++line)
            std::memcpy(lines[line], displayLine(display, line).constData(), lineLength);
        if (std::memcmp(lines, r->lcdDisplays[display], sizeof lines) != 0) {
            std::memcpy(r->lcdDisplays[display], lines, sizeof lines);
            notifier.send(ConsoleCode::DisplayChanged, display);
        }
    }
}
