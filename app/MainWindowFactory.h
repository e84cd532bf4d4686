// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

// Where start-up gets its main window from. Lumidesk::run() creates the
// window here after the console is loaded, shows it here, and deletes it
// after the event loop; tests and benchmarks use the same two steps.
class MainWindowFactory
{
public:
    // A new top-level main window without parent.
    static QWidget* create();
    // Shows it the way the main window is placed on screen.
    static void show(QWidget* window);
};
