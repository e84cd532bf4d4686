// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "PersonalityLibrary.h"
#include "SimulationRules.h"

#include <cstring>

using namespace SimulationRules;

void ConsoleSimulation::setDeviceDefaults(int device)
{
    for (int p = 0; p < ContentRecord::parameterCount; ++p) {
        const size_t i = size_t(LiveState::parameterIndex(device, p));
        live_.parameterValue[i] = (p == pan || p == tilt) ? 128 : p == shutter ? 255 : 0;
        live_.parameterPalette[i] = 0;
    }
}

void ConsoleSimulation::patchDevice(int device, int personalityId, int address)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    const PersonalityLibrary::Personality* personality = PersonalityLibrary::find(personalityId);
    const int footprint = personality ? int(personality->layout.size()) : 0;
    if (personality && address >= 0 && address + footprint <= profile_.patchAddressCount) {
        releaseDeviceAddresses(device);
        PersonalityLibrary::fillDevice(record_->devices[device], *personality, address);
        releaseDeviceAddresses(device);
        setDeviceDefaults(device);
        showChanged_ = true;
        dirty_ = true;
    } else {
        qWarning("Simulated console: cannot patch device %d with personality %d at %d", device + 1,
                 personalityId, address);
    }
    notifier_.send(ConsoleCode::DeviceChanged, device);
}

void ConsoleSimulation::unpatchDevice(int device)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    releaseDeviceAddresses(device);
    std::memset(static_cast<void*>(&record_->devices[device]), 0, sizeof(DeviceRecord));
    record_->deviceSelected[device] = 0;
    showChanged_ = true;
    dirty_ = true;
    notifier_.send(ConsoleCode::DeviceChanged, device);
}

void ConsoleSimulation::releaseDeviceAddresses(int device)
{
    // Writes held while nothing drove these addresses end where a device is
    // patched, and where it leaves.
    const DeviceRecord& record = record_->devices[device];
    if (record.firstAddress != 0)
        output_.releaseParked(record.firstAddress - 1, record.footprint);
}

void ConsoleSimulation::moveDevice(int device, int address)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    DeviceRecord& record = record_->devices[device];
    if (record.firstAddress != 0 && address >= 0 &&
        address + record.footprint <= profile_.patchAddressCount) {
        releaseDeviceAddresses(device);
        record.firstAddress = quint16(address + 1);
        releaseDeviceAddresses(device);
        showChanged_ = true;
        dirty_ = true;
    }
    notifier_.send(ConsoleCode::DeviceChanged, device);
}
