// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleStateRecord.h"

#include <array>
#include <bitset>

// The console's live sources that are not part of the show: what the
// faders, keys and the program's DMX writes have set. Owned by the
// simulation, read by the output stage.
struct LiveState
{
    static constexpr int channels = ConsoleStateRecord::maxChannels;
    static constexpr int faders = ConsoleStateRecord::maxFaders;
    static constexpr int parameters = ContentRecord::deviceCount * ContentRecord::parameterCount;

    // Manual channel levels set by the faders in a channel mode (or, while
    // blind is on, nothing here: the blind levels live in the record).
    std::array<quint8, channels> manual{};
    // Level of each page fader in its memory/sequence role.
    std::array<quint8, faders> playbackFader{};
    // Page the memory/sequence role of a fader loaded when it left zero
    // (-1 while at zero: it follows the current page).
    std::array<qint8, faders> loadedPage{};
    // Flash keys held: memories by page fader, channels by channel.
    std::bitset<faders> flashHeld;
    std::bitset<channels> channelFlash;
    // The latest value of each device parameter (last takes precedence) and
    // the palette it follows (index + 1, 0 for a plain value).
    std::array<quint8, parameters> parameterValue{};
    std::array<quint8, parameters> parameterPalette{};
    // The running effects' overlay: a parameter whose bit is set shows
    // effectValue instead; a device's intensity is scaled by effectIntensity.
    std::bitset<parameters> effectSet;
    std::array<quint8, parameters> effectValue{};
    std::array<quint8, ContentRecord::deviceCount> effectIntensity{};

    bool blackout = false;
    bool solo = false;
    bool highlight = false;
    bool pause = false;
    int crossfadeSide = 0; // the end the crossfader pair rests at: 0 bottom, 1 top
    std::array<quint8, 2> crossfader{};

    LiveState()
    {
        loadedPage.fill(-1);
        effectIntensity.fill(255);
    }

    static int parameterIndex(int device, int parameter)
    {
        return device * ContentRecord::parameterCount + parameter;
    }
};
