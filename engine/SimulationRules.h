// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleStateRecord.h"

// The console's fixed numbers and rules that the simulation's concerns
// (requests, playback, recording, panel) share.
namespace SimulationRules {
constexpr quint16 fullRate = 256;
constexpr quint32 stepChannel = 0;
constexpr quint32 stepMemory = 1;
constexpr quint32 stepDirectCue = 2;
constexpr quint32 stepEmpty = 3;
constexpr quint32 modeLoop = 0;
constexpr quint32 modeManual = 2;
constexpr int pan = 1;
constexpr int tilt = 2;
constexpr int shutter = 9;
constexpr int panFine = 48;
constexpr int tiltFine = 49;
constexpr int sequencesPerPage = ConsoleStateRecord::sequenceFadersPerPage;
constexpr int paletteCount = int(sizeof(ConsoleStateRecord::palettes) / sizeof(PaletteRecord));

// Parameter group: 0 Focus, 1 Color, 2 Beam, 3 User.
constexpr int parameterGroup(int parameter)
{
    if (parameter == 1 || parameter == 2 || parameter == 48 || parameter == 49)
        return 0;
    if (parameter == 0 || (parameter >= 3 && parameter <= 8))
        return 1;
    if (parameter >= 9 && parameter <= 47)
        return 2;
    return 3;
}

inline bool isInvertedMix(const DeviceRecord& device, int parameter)
{
    return device.invertedColourMixing && (parameter == 0 || parameter == 3 || parameter == 4);
}

inline bool paletteIncludes(const PaletteRecord& palette, int device, int parameter)
{
    return palette.include[device][parameter / 8] & (1 << (parameter % 8));
}

// What a parameter shows when it follows a palette: the stored value with
// the inversion of inverted colour mixing undone; false when the palette
// does not include the parameter for this device.
inline bool paletteOutput(const ConsoleStateRecord& record, int palette, int device, int parameter,
                          quint8* value)
{
    const PaletteRecord& stored = record.palettes[palette];
    if (!paletteIncludes(stored, device, parameter))
        return false;
    const quint8 raw = stored.values[device][parameter];
    *value = isInvertedMix(record.devices[device], parameter) ? quint8(~raw) : raw;
    return true;
}

constexpr quint8 scaled(int level, int master)
{
    return quint8((level * master + 127) / 255);
}
} // namespace SimulationRules
