// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleLink.h"

#include "Console.h"
#include "Lumidesk.h"

#include <QImage>

Console* ConsoleLink::console()
{
    return Lumidesk::currentConsole();
}

ConsoleCache* ConsoleLink::cache()
{
    Console* console = Lumidesk::currentConsole();
    return console && console->cache()->record() ? console->cache() : nullptr;
}

void ConsoleLink::setConsole(Console* console)
{
    if (Lumidesk* app = Lumidesk::instance())
        app->setConsole(console);
}

const QImage& ConsoleLink::image(Resources::Id id)
{
    static const QImage none;
    const Lumidesk* app = Lumidesk::instance();
    return app ? app->resources().image(id) : none;
}
