// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QString>
#include <QtGlobal>

// Finds the window of a lighting visualiser running beside Lumidesk and
// brings it over the program's work area or sends it away again. Only
// Windows lets one program place another's window; elsewhere nothing is
// ever found and the title bar keeps its capture button hidden.
class VisualiserFinder
{
public:
    // Looks through the top-level windows for the first visualiser window.
    bool find();
    bool isFound() const { return found; }
    // A minimised visualiser is restored topmost over area; any other is
    // minimised. Nothing happens until a window was found.
    void toggle(const QRect& area);

    // The top-level window classes of the visualiser's full and demo
    // editions.
    static bool isVisualiserWindowClass(const QString& className);

private:
    bool found = false;
    quintptr window = 0; // native window handle
};
