// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>

class MainFrame;
class Tab;
class TitleBar;

// The one table from tab kind to the view behind it. The main window asks it
// for the views of its console model in strip order; a view joins the
// program by adding its factory to standard().
class TabRegistry
{
public:
    // Builds the view with the title bar and whether the screen is wide. The
    // view is its own widget() and a child of window, which deletes it.
    using Factory = std::function<Tab*(MainFrame* window, TitleBar* bar, bool wide)>;

    static constexpr int kindCount = 13; // kinds 1 to 12; 0 is no tab

    // The program's views.
    static const TabRegistry& standard();

    void setFactory(int kind, Factory factory);
    // A new view of the kind, or null for a kind without a view.
    Tab* create(int kind, MainFrame* window, TitleBar* bar, bool wide) const;

private:
    std::array<Factory, kindCount> factories;
};
