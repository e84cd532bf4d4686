// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Resources.h"

class Console;
class QImage;

// Where the panel controls and the playback blocks find the console and the
// shared image set: the application's, unless a test put its own console in.
class ConsoleLink
{
public:
    // The console in use, or null when there is none.
    static Console* console();
    // Replaces the application's console (null restores it). For tests that
    // run a console on an in-process engine.
    static void setConsole(Console* console);
    // An image of the shared set; a null image outside the application.
    static const QImage& image(Resources::Id id);
};
