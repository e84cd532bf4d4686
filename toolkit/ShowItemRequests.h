// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

#include <QWidget>

// How views and blocks ask the main window to bring a memory or a sequence
// into sight: the window implements it, and they find it from the widget
// they were given as their window.
class ShowItemRequests
{
public:
    virtual void showMemory(int page, int memory) = 0;
    virtual void showSequence(Console::Sequence sequence) = 0;

    // The window's requests, or null for a widget that is no such window.
    static ShowItemRequests* of(QWidget* window) { return dynamic_cast<ShowItemRequests*>(window); }

protected:
    ~ShowItemRequests() = default;
};
