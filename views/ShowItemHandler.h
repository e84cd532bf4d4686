// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

// Views that can be asked to bring one memory or sequence into sight
// override what they show; the main window hands such requests on to them.
class ShowItemHandler
{
public:
    virtual void showMemory(int /*page*/, int /*memory*/) {}
    virtual void showSequence(Console::Sequence /*sequence*/) {}

protected:
    ~ShowItemHandler() = default;
};
