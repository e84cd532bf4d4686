// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

// Hooks for the program's tests, reached through the ordinary interface.
namespace EngineTest {
// Set (to any non-empty value) before start(): the engine's clock no longer
// runs by itself and only advances through the Step request.
constexpr std::string_view manualClockVariable = "LUMIDESK_ENGINE_MANUAL_CLOCK";
// Set before start(): the console reports this text as its software version,
// so that the program's version-mismatch handling can be exercised.
constexpr std::string_view consoleVersionVariable = "LUMIDESK_ENGINE_CONSOLE_VERSION";

// update(Step, milliseconds, token, 0): after every request queued before it
// has been handled, advance a manual clock by the given time in whole ticks
// (no advance with the running clock), publish, then answer twice: with the
// system message 39/5 (type Step, argument token), the program's
// lumideskCommand signal, whose types from 7 on it ignores; then with
// notification StepHooks (Step, token), which only runs the program's cache
// update hooks. Once the first arrives, everything sent before has been
// handled and every signal before it queued. A test that appends a hook for
// the second (from a direct connection to the first, so that no bulk change
// can drop it) knows when the engine thread has left the signal emission too.
constexpr int Step = 250;
constexpr int StepHooks = 40;

// Length of one engine tick in milliseconds.
constexpr int tickMilliseconds = 25;
} // namespace EngineTest
