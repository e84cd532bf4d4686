// SPDX-License-Identifier: GPL-3.0-or-later
#include "Lumidesk.h"
#include "StartOptions.h"

#include <QTime>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    std::srand(static_cast<unsigned>(QTime::currentTime().msecsSinceStartOfDay() / 1000));

    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const StartOptions options = StartOptions::parse(arguments);
    if (options.action == StartOptions::Action::ShowHelp) {
        std::fputs(qPrintable(options.message), stdout);
        return 0;
    }
    if (options.action == StartOptions::Action::Fail) {
        std::fprintf(stderr, "%s\n", qPrintable(options.message));
        return StartOptions::badUsageExitCode;
    }
    if (const QString problem = options.displayProblem(); !problem.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(problem));
        return 1;
    }

    auto* app = new Lumidesk(argc, argv);
    app->setPlayOnStart(options.play);
    if (options.noOla || options.olaUniverse)
        Lumidesk::setOlaUniverse(options.noOla ? -1 : *options.olaUniverse);
    const int result = app->run(options.model);
    delete app;
    return result;
}
