// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleChoice.h"

#include <QString>
#include <QStringList>

#include <optional>

// The command line. It is read before the application object exists, so that
// --help and a mistyped option work without a display.
struct StartOptions
{
    enum class Action
    {
        Run,
        ShowHelp,
        Fail
    };

    Action action = Action::Run;
    // Set by --model: the console type dialog is skipped.
    std::optional<ConsoleChoice> model;
    // The help text (ShowHelp) or what is wrong (Fail).
    QString message;
    // --ola-universe N: DMX output through OLA from universe N on; --no-ola:
    // none. Either is remembered for later starts; unset keeps the last choice.
    std::optional<int> olaUniverse;
    bool noOla = false;
    // -platform was given: Qt is told where to draw.
    bool platformGiven = false;
    // --play: the show starts playing once the console is ready.
    bool play = false;

    static StartOptions parse(const QStringList& arguments);
    // Why no window can be opened (no display to draw on), or empty.
    QString displayProblem() const;

    // The process exit code for a start that ends before the program runs.
    static constexpr int badUsageExitCode = 2;
    // OLA numbers universes with 32 bits; N + 1 must stay a valid number.
    static constexpr int maxOlaUniverse = 0x7FFFFFFE;
};
