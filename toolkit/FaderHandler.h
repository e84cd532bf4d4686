// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Fader;

// Called on every move of a knob drag, also when the value did not change,
// so that a console receives a steady stream of levels while the knob is held.
class FaderHandler
{
public:
    virtual void faderValueChanged(Fader* fader) = 0;

protected:
    ~FaderHandler() = default;
};
