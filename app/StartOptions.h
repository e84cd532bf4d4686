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
    // -platform was given: Qt is told where to draw.
    bool platformGiven = false;
    // --play: the show starts playing once the console is ready.
    bool play = false;

    static StartOptions parse(const QStringList& arguments);
    // Why no window can be opened (no display to draw on), or empty.
    QString displayProblem() const;

    // The process exit code for a start that ends before the program runs.
    static constexpr int badUsageExitCode = 2;
};
