// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleLink.h"

#include "Lumidesk.h"

#include <QImage>

namespace {
Console* replacement = nullptr;
}

Console* ConsoleLink::console()
{
    if (replacement)
        return replacement;
    const Lumidesk* app = Lumidesk::instance();
    return app ? app->console() : nullptr;
}

void ConsoleLink::setConsole(Console* console)
{
    replacement = console;
}

const QImage& ConsoleLink::image(Resources::Id id)
{
    static const QImage none;
    const Lumidesk* app = Lumidesk::instance();
    return app ? app->resources().image(id) : none;
}
