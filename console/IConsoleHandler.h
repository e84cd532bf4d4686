// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The engine's callback: every change inside the engine arrives here, on the
// engine's own thread.
class IConsoleHandler
{
public:
    virtual void notify(int code, int a, int b, int c) = 0;

protected:
    ~IConsoleHandler() = default;
};
