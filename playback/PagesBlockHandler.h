// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The view that owns a PagesBlock opens what the user double-clicks in it.
// Both operations get the page and the cell's fader (not the sequence index).
class PagesBlockHandler
{
public:
    virtual void openSequence(int page, int fader) = 0;
    virtual void openMemory(int page, int fader) = 0;

protected:
    ~PagesBlockHandler() = default;
};
