// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The title bar's way to the front panel: the main window implements it.
class FrontPanelHandler
{
public:
    virtual void setFrontPanelVisible(bool visible) = 0;
    // The panel's frame height, which the visualiser's area leaves free.
    virtual int frontPanelHeight() const = 0;

protected:
    ~FrontPanelHandler() = default;
};
