// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"

#include <cstring>

// A simulation has no DMX cable plugged in. So that the input side shows
// something recognisable, it receives a fixed pattern: a ramp on the first
// slots and the last slot at full, everything else at zero. It never moves,
// so the input never costs a repaint.
void ConsoleSimulation::publishInput()
{
    if (profile_.isMaple())
        return;
    std::memset(record_->dmxInput, 0, sizeof(record_->dmxInput));
    for (int slot = 0; slot < inputRampSlots; ++slot)
        record_->dmxInput[slot] = quint8((slot + 1) * 256 / inputRampSlots - 1);
    record_->dmxInput[sizeof(record_->dmxInput) - 1] = 255;
    record_->dmxInputValid = 1;
    notifier_.mark(ConsoleCode::InputsChanged);
}
