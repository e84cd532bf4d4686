// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LiveState.h"

// What one step brings on stage, with palette references already resolved.
struct CueTarget
{
    std::array<quint8, LiveState::channels> levels{};
    std::bitset<LiveState::parameters> parameterSet;
    std::array<quint8, LiveState::parameters> parameterValue{};
    std::array<quint8, LiveState::parameters> parameterPalette{};
    quint8 flags = 0; // the step's flags

    void clear()
    {
        levels.fill(0);
        parameterSet.reset();
    }
};
