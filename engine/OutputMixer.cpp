// SPDX-License-Identifier: GPL-3.0-or-later
#include "OutputMixer.h"

#include "ConsoleStateRecord.h"
#include "ModelProfile.h"
#include "PersonalityLibrary.h"

#include <algorithm>
#include <cstring>

namespace {
quint8 scaled(int level, int master)
{
    return quint8((level * master + 127) / 255);
}

bool isColourMix(int parameter)
{
    return parameter == 0 || parameter == 3 || parameter == 4 || parameter == 24 || parameter == 25;
}
} // namespace

void OutputMixer::park(int address, quint8 level, quint8 palette)
{
    if (address < 0 || address >= addressCount)
        return;
    parked_[size_t(address)] = {true, palette ? quint8(0) : level, palette};
}

void OutputMixer::clearParked()
{
    parked_.fill(Parked{});
    std::memcpy(knownPatch_.data(), record_->dmxPatch, addressCount);
}

void OutputMixer::patchChanged()
{
    for (int address = 0; address < addressCount; ++address) {
        if (record_->dmxPatch[address] != knownPatch_[size_t(address)])
            parked_[size_t(address)] = Parked{};
    }
    std::memcpy(knownPatch_.data(), record_->dmxPatch, addressCount);
}

void OutputMixer::releaseParked(int first, int count)
{
    const int end = std::min(first + count, addressCount);
    for (int address = std::max(first, 0); address < end; ++address)
        parked_[size_t(address)] = Parked{};
}

void OutputMixer::mixChannels(int grandMaster)
{
    const ConsoleStateRecord& r = *record_;
    const int channels = r.channelCount;
    const int limit = std::clamp(r.patchAddressCount, 0, addressCount);
    for (int address = 0; address < limit; ++address) {
        const int entry = r.dmxPatch[address];
        if (entry == 0)
            continue;
        int level = 0;
        if (entry <= channels) {
            level = scaled(r.channelLevels[entry - 1], grandMaster);
        } else if (entry <= channels + 2) {
            const IndependentRecord& independent = r.independents[entry - channels - 1];
            const int master = independent.grandMasterExempt && grandMaster > 0 ? 255 : grandMaster;
            level = scaled(independent.currentLevel, master);
        }
        output_[size_t(address)] = std::max(output_[size_t(address)], quint8(level));
    }
}

void OutputMixer::mixDevices(const LiveState& live, const ModelProfile& profile, int grandMaster)
{
    const ConsoleStateRecord& r = *record_;
    for (int d = 0; d < profile.deviceCount; ++d) {
        const DeviceRecord& device = r.devices[d];
        if (device.firstAddress == 0)
            continue;
        const PersonalityLibrary::Personality* personality =
            PersonalityLibrary::find(PersonalityLibrary::deviceId(device));
        if (!personality)
            continue;
        const int first = device.firstAddress - 1;
        int intensity = scaled(r.channelLevels[profile.firstDeviceChannel() + d], grandMaster);
        if (live.highlight && r.deviceSelected[d])
            intensity = grandMaster;
        intensity = scaled(intensity, live.effectIntensity[size_t(d)]);
        const bool ownIntensity =
            std::find(personality->layout.begin(), personality->layout.end(),
                      PersonalityLibrary::intensitySlot) != personality->layout.end();
        const int layout = std::min<int>(int(personality->layout.size()), addressCount - first);
        for (int slot = 0; slot < layout; ++slot) {
            const int parameter = personality->layout[size_t(slot)];
            const size_t address = size_t(first + slot);
            if (parameter == PersonalityLibrary::intensitySlot) {
                output_[address] = std::max(output_[address], quint8(intensity));
                continue;
            }
            const size_t index = size_t(LiveState::parameterIndex(d, parameter));
            const bool effect = live.effectSet.test(index);
            int value = effect ? live.effectValue[index] : live.parameterValue[index];
            if (!ownIntensity && isColourMix(parameter))
                value = scaled(value, intensity);
            output_[address] = std::max(output_[address], quint8(value));
            palette_[address] = effect ? quint8(0) : live.parameterPalette[index];
        }
    }
}

bool OutputMixer::publish(const LiveState& live, const ModelProfile& profile)
{
    output_.fill(0);
    palette_.fill(0);
    const int grandMaster = live.blackout ? 0 : record_->grandMasterLevel;
    mixChannels(grandMaster);
    mixDevices(live, profile, grandMaster);
    for (int address = 0; address < addressCount; ++address) {
        const Parked& entry = parked_[size_t(address)];
        if (entry.held) {
            output_[size_t(address)] = entry.level;
            palette_[size_t(address)] = entry.palette;
        }
    }
    const bool changed = std::memcmp(record_->dmxOutput, output_.data(), addressCount) != 0 ||
                         std::memcmp(record_->dmxPalette, palette_.data(), addressCount) != 0;
    if (changed) {
        std::memcpy(record_->dmxOutput, output_.data(), addressCount);
        std::memcpy(record_->dmxPalette, palette_.data(), addressCount);
    }
    return changed;
}
