// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Views that react to the title bar's view buttons override what they need.
class TitleBarHandler
{
public:
    // false after the SM button, true after the MS button.
    virtual void setMsMode(bool /*ms*/) {}
    // false after the IFCB Fx button, true after the Time button.
    virtual void setTimeMode(bool /*time*/) {}
    // 0 to 3 after the no-lines to three-lines buttons.
    virtual void setLineCount(int /*lines*/) {}

protected:
    ~TitleBarHandler() = default;
};
