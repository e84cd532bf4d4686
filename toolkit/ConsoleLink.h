// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Resources.h"

class Console;
class ConsoleCache;
class QImage;

// Where the panel controls and the playback blocks find the application's
// console and shared image set.
class ConsoleLink
{
public:
    // The console in use, or null when there is none.
    static Console* console();
    // Its cache, or null while there is no console or no record yet.
    static ConsoleCache* cache();
    // Hands the application a console (null: none). For tests that run a
    // console on an in-process engine.
    static void setConsole(Console* console);
    // An image of the shared set; a null image outside the application.
    static const QImage& image(Resources::Id id);
};
