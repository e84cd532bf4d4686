// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>

struct ConsoleStateRecord;
struct DmxWrite;

// Computes the DMX output from the console's sources and publishes it into
// dmxOutput / dmxPalette only when a byte really changes.
class OutputMixer
{
public:
    static constexpr int addressCount = 1024;

    explicit OutputMixer(ConsoleStateRecord* record) : record_(record) {}

    // A write from the program's DMX ring: the address is held at that level
    // (or follows that palette) until the show changes.
    void park(const DmxWrite& write);
    void clearParked();

    // Recomputes the output; true when dmxOutput or dmxPalette changed.
    bool publish();

private:
    struct Parked
    {
        bool held = false;
        quint8 level = 0;
        quint8 palette = 0;
    };

    ConsoleStateRecord* record_;
    std::array<Parked, addressCount> parked_{};
};
