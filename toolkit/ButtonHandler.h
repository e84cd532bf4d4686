// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Button;

// The owner of a Button hears about clicks through this, not through signals,
// so that plain graphics items can own buttons.
class ButtonHandler
{
public:
    virtual void buttonClicked(Button* button) = 0;

protected:
    ~ButtonHandler() = default;
};
