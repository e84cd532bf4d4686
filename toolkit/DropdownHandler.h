// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Dropdown;
class QWidget;

// The owner opens its menu itself; widget is the viewport that took the
// click, so that the menu can be placed on screen.
class DropdownHandler
{
public:
    virtual void dropdownClicked(Dropdown* dropdown, QWidget* widget) = 0;

protected:
    ~DropdownHandler() = default;
};
