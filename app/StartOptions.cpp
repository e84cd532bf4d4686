// SPDX-License-Identifier: GPL-3.0-or-later
#include "StartOptions.h"

#include <QCommandLineParser>

StartOptions StartOptions::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lumidesk, the desktop companion of the Glowcraft lighting consoles.\n"
                       "Without options it looks for a console on USB and otherwise asks "
                       "for the console model."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and exit."));
    const QCommandLineOption model(QStringLiteral("model"),
                                   QStringLiteral("Load this console model without asking: %1.")
                                       .arg(ConsoleChoice::modelNames().join(QStringLiteral(", "))),
                                   QStringLiteral("name"));
    const QCommandLineOption olaUniverse(
        QStringLiteral("ola-universe"),
        QStringLiteral("Send the DMX output to olad: console universe 1 to OLA universe N, "
                       "universe 2 to N + 1. Remembered for later starts."),
        QStringLiteral("N"));
    const QCommandLineOption noOla(QStringLiteral("no-ola"),
                                   QStringLiteral("Send no DMX output to olad (the default). "
                                                  "Remembered for later starts."));
    // Qt's own -platform option (e.g. offscreen) is passed on to Qt.
    const QCommandLineOption platform(QStringLiteral("platform"),
                                      QStringLiteral("Qt platform plugin to use (e.g. offscreen)."),
                                      QStringLiteral("plugin"));
    const QCommandLineOption play(
        QStringLiteral("play"),
        QStringLiteral("Start the show once the console is ready: memories half up, "
                       "sequences full up, then GO on the stack."));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption(help);
    parser.addOption(model);
    parser.addOption(olaUniverse);
    parser.addOption(noOla);
    parser.addOption(platform);
    parser.addOption(play);

    StartOptions options;
    if (!parser.parse(arguments)) {
        options.action = Action::Fail;
        options.message = parser.errorText() + QStringLiteral("\nTry 'lumidesk --help'.");
        return options;
    }
    if (parser.isSet(help)) {
        options.action = Action::ShowHelp;
        // Qt names the running file (or nothing before the application exists).
        const QString help = parser.helpText();
        options.message =
            QStringLiteral("Usage: lumidesk [options]") + help.mid(help.indexOf('\n'));
        return options;
    }
    if (!parser.positionalArguments().isEmpty()) {
        options.action = Action::Fail;
        options.message = QStringLiteral("Unexpected argument '%1'.\nTry 'lumidesk --help'.")
                              .arg(parser.positionalArguments().constFirst());
        return options;
    }
    options.platformGiven = parser.isSet(platform);
    options.play = parser.isSet(play);
    const bool olaOff = parser.isSet(noOla);
    if (parser.isSet(olaUniverse)) {
        bool number = false;
        const int universe = parser.value(olaUniverse).toInt(&number);
        if (!number || universe < 0 || universe > maxOlaUniverse || olaOff) {
            options.action = Action::Fail;
            options.message =
                olaOff ? QStringLiteral("--ola-universe and --no-ola cannot be given together.")
                       : QStringLiteral("'%1' is not an OLA universe number (0 to %2).")
                             .arg(parser.value(olaUniverse))
                             .arg(maxOlaUniverse);
            return options;
        }
        options.olaUniverse = universe;
    }
    options.noOla = olaOff;
    if (parser.isSet(model)) {
        options.model = ConsoleChoice::fromModelName(parser.value(model));
        if (!options.model) {
            options.action = Action::Fail;
            options.message = QStringLiteral("Unknown console model '%1'. Choose one of: %2.")
                                  .arg(parser.value(model),
                                       ConsoleChoice::modelNames().join(QStringLiteral(", ")));
        }
    }
    return options;
}

QString StartOptions::displayProblem() const
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (platformGiven || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return {};
    return QStringLiteral(
        "Lumidesk needs a display, but neither DISPLAY nor WAYLAND_DISPLAY is set.\n"
        "Start it from a desktop session, under a virtual display "
        "(xvfb-run -a -s '-screen 0 1280x1024x24' lumidesk), or without any window "
        "with '-platform offscreen'.");
#else
    return {};
#endif
}
