// SPDX-License-Identifier: GPL-3.0-or-later
// lumidesk-soak [--peers N] [--minutes T] [--seed S] PROGRAM
// Runs PROGRAM (a Lumidesk build) on the simulated Maple for T minutes with N
// visualiser stand-ins on loopback; exit 1 when memory grew.
#include "SoakRun.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption peers(QStringLiteral("peers"), QStringLiteral("Peers (1-64)."),
                                   QStringLiteral("N"), QStringLiteral("16"));
    const QCommandLineOption minutes(QStringLiteral("minutes"), QStringLiteral("Length (1-600)."),
                                     QStringLiteral("T"), QStringLiteral("10"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Churn seed."),
                                  QStringLiteral("S"), QStringLiteral("1"));
    parser.addOptions({peers, minutes, seed});
    parser.addPositionalArgument(QStringLiteral("program"), QStringLiteral("The lumidesk binary."));
    parser.process(app);

    SoakRun::Options options;
    options.peers = parser.value(peers).toInt();
    options.minutes = parser.value(minutes).toInt();
    options.seed = parser.value(seed).toUInt();
    if (parser.positionalArguments().size() != 1 || options.peers < 1 || options.peers > 64 ||
        options.minutes < 1 || options.minutes > 600) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.helpText()));
        return 2;
    }
    options.program = parser.positionalArguments().first();
    SoakRun run(options);
    QString error;
    if (!run.start(&error)) {
        std::fprintf(stderr, "lumidesk-soak: %s\n", qPrintable(error));
        return 2;
    }
    QObject::connect(&run, &SoakRun::finished, &app, [&app, &run] { app.exit(run.result()); });
    return app.exec();
}
