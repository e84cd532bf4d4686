// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// One front-panel input, handed to the engine by pointer.
struct PanelEvent
{
    enum Kind : quint32 { PanelFader = 0, PanelButton = 1, PanelWheel = 2 };

    quint32 kind = PanelFader;
    quint8 control = 0; // the panel element's id from the layout
    quint8 value = 0;   // fader: trunc(position * 255.5); wheel: int8 step count
    quint8 padding[2] = {0, 0};
    quint32 buttonState = 0; // 1 pressed, 0 released
};
static_assert(sizeof(PanelEvent) == 12);
