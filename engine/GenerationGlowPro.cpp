// SPDX-License-Identifier: GPL-3.0-or-later
// The engine library of the Maple model.
#include "SimulatedEngine.h"

extern "C" __attribute__((visibility("default"))) ConsoleEngine* getConsole(int version)
{
    if (version != ConsoleEngine::interfaceVersion)
        return nullptr;
    return new SimulatedEngine(ModelProfile::Generation::GlowPro);
}
