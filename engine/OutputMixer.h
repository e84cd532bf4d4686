// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LiveState.h"

#include <array>

struct ConsoleStateRecord;
struct ModelProfile;

// Computes the DMX output and publishes it into dmxOutput / dmxPalette only
// when a byte really changes.
//
// Channels reach their addresses through dmxPatch (an address carrying a
// channel and a device takes the higher level), independents likewise; the
// grand master scales intensities (not device parameters), black out takes
// them to zero. Device slots carry the live parameter values through the
// device's parameter map, and its intensity slot the level of its control
// channel. An address the program wrote through the DMX ring while nothing
// drives it is held at that value until the show changes or the address is
// patched anew.
class OutputMixer
{
public:
    static constexpr int addressCount = ConsoleStateRecord::addressCount;

    explicit OutputMixer(ConsoleStateRecord* record) : record_(record) {}

    void park(int address, quint8 level, quint8 palette);
    // Forgets every held address and takes the current patch as known.
    void clearParked();
    // Releases the held addresses whose dmxPatch entry changed since the
    // last call (the program edits the patch in place, then reports it).
    void patchChanged();
    // Releases the held addresses first .. first + count - 1.
    void releaseParked(int first, int count);

    // True when dmxOutput or dmxPalette changed.
    bool publish(const LiveState& live, const ModelProfile& profile);

private:
    struct Parked
    {
        bool held = false;
        quint8 level = 0;
        quint8 palette = 0;
    };

    void mixChannels(int grandMaster);
    void mixDevices(const LiveState& live, const ModelProfile& profile, int grandMaster);

    ConsoleStateRecord* record_;
    std::array<Parked, addressCount> parked_{};
    std::array<quint8, addressCount> knownPatch_{};
    std::array<quint8, addressCount> output_{};
    std::array<quint8, addressCount> palette_{};
};
