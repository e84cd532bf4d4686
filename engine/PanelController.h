// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <bitset>

class ConsoleSimulation;
struct PanelEvent;

// Turns panel input (faders, keys, wheels) into console actions, per model.
class PanelController
{
public:
    explicit PanelController(ConsoleSimulation& console) : console_(console) {}

    void handle(const PanelEvent& event);
    bool isHeld(int key) const { return key >= 0 && key < keyCount && held_.test(size_t(key)); }

    // The channel a page fader drives in the current channel bank.
    int channelOfFader(int fader) const;
    // In a fader parameter mode: the parameter a fader drives.
    int parameterOfFader(int fader) const;
    quint8 parameterFaderLevel(int fader) const;
    void setParameterFromFader(int fader, quint8 level);
    // The page fader of a flash key, or -1.
    int faderOfKey(int key) const;

private:
    static constexpr int keyCount = 128;

    void handleFader(int control, quint8 level);
    void handleButton(int key, bool pressed);
    void handleFlashKey(int fader, bool pressed);
    bool handleProgramCommand(int key);
    void handleModeKey(int key);
    void handleSelectModeKey(int key);

    ConsoleSimulation& console_;
    std::bitset<keyCount> held_;
    bool lumideskUsed_ = false;
};
