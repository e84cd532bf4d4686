// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleLink.h"

#include "ApplicationHandler.h"
#include "Console.h"

#include <QImage>

namespace {
ApplicationHandler* runningApplication = nullptr;
}

void ConsoleLink::setApplication(ApplicationHandler* application)
{
    runningApplication = application;
}

ApplicationHandler* ConsoleLink::application()
{
    return runningApplication;
}

Console* ConsoleLink::console()
{
    return runningApplication ? runningApplication->console() : nullptr;
}

ConsoleCache* ConsoleLink::cache()
{
    Console* console = ConsoleLink::console();
    return console && console->cache()->record() ? console->cache() : nullptr;
}

int ConsoleLink::consoleType()
{
    const Console* console = ConsoleLink::console();
    return console ? int(console->consoleType()) : int(ConsoleCache::ModelUnknown);
}

void ConsoleLink::setConsole(Console* console)
{
    if (runningApplication)
        runningApplication->setConsole(console);
}

const Resources* ConsoleLink::resources()
{
    return runningApplication ? &runningApplication->resources() : nullptr;
}

const QImage& ConsoleLink::image(Resources::Id id)
{
    static const QImage none;
    return runningApplication ? runningApplication->resources().image(id) : none;
}
