// SPDX-License-Identifier: GPL-3.0-or-later
#include "OutputMixer.h"

#include "ConsoleStateRecord.h"

#include <cstring>

void OutputMixer::park(const DmxWrite& write)
{
    const int universe = write.address >> 9;
    const int address = universe * 512 + (write.address & 0x1ff);
    if (universe > 1)
        return;
    Parked& entry = parked_[size_t(address)];
    entry.held = true;
    entry.level = write.palette ? 0 : write.level;
    entry.palette = write.palette;
}

void OutputMixer::clearParked()
{
    parked_.fill(Parked{});
}

bool OutputMixer::publish()
{
    std::array<quint8, addressCount> output{};
    std::array<quint8, addressCount> palette{};
    for (int address = 0; address < addressCount; ++address) {
        const Parked& entry = parked_[size_t(address)];
        if (entry.held) {
            output[size_t(address)] = entry.level;
            palette[size_t(address)] = entry.palette;
        }
    }
    const bool changed = std::memcmp(record_->dmxOutput, output.data(), addressCount) != 0 ||
                         std::memcmp(record_->dmxPalette, palette.data(), addressCount) != 0;
    if (changed) {
        std::memcpy(record_->dmxOutput, output.data(), addressCount);
        std::memcpy(record_->dmxPalette, palette.data(), addressCount);
    }
    return changed;
}
