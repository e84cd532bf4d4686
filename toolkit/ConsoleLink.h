// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Resources.h"

class ApplicationHandler;
class Console;
class ConsoleCache;
class QImage;

// Where items find the application's console and shared image set.
class ConsoleLink
{
public:
    // The running application registers itself here for its lifetime.
    static void setApplication(ApplicationHandler* application);
    // The running application, or null outside its lifetime.
    static ApplicationHandler* application();
    // The console in use, or null when there is none.
    static Console* console();
    // Its cache, or null while there is no console or no record yet.
    static ConsoleCache* cache();
    // The console's model; ModelUnknown without a console.
    static int consoleType();
    // Hands the application a console (null: none). For tests that run a
    // console on an in-process engine.
    static void setConsole(Console* console);
    // The shared image set; null outside the application (tools and some
    // tests), where items then draw no images.
    static const Resources* resources();
    // An image of the shared set; a null image outside the application.
    static const QImage& image(Resources::Id id);
};
