// SPDX-License-Identifier: GPL-3.0-or-later
// lumidesk-manual-images [--out DIR] [--readme DIR] MODEL[:PICTURE,...]...
// Takes the manual's pictures on the simulated consoles, offscreen, on a
// 1280 x 1024 screen, with fresh settings and the demo show.
#include "Lumidesk.h"
#include "ManualPictures.h"

#include <QCommandLineParser>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

namespace {

constexpr int badUsage = 2;

// The offscreen screen is small by default: views would take their narrow
// layout.
bool useWideOffscreenScreen(const QTemporaryDir& home)
{
    QFile config(home.filePath(QStringLiteral("screen.json")));
    if (!config.open(QIODevice::WriteOnly))
        return false;
    config.write(R"({"screens": [{"name": "manual", "x": 0, "y": 0, "width": 1280,
                  "height": 1024, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    config.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(config.fileName()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    // A private home: English, and each simulated console starts with its demo show.
    QTemporaryDir home;
    if (!home.isValid() || !useWideOffscreenScreen(home)) {
        std::fputs("lumidesk-manual-images: no temporary folder\n", stderr);
        return 1;
    }
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(home.path()));

    Lumidesk app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption out(QStringLiteral("out"), QStringLiteral("Folder for the pictures."),
                                 QStringLiteral("DIR"), QStringLiteral("."));
    const QCommandLineOption readme(QStringLiteral("readme"),
                                    QStringLiteral("Folder for the README's pictures too."),
                                    QStringLiteral("DIR"));
    parser.addOptions({out, readme});
    parser.addPositionalArgument(QStringLiteral("models"),
                                 QStringLiteral("alder, birch, cedar or maple, each with an "
                                                "optional :picture,... list"));
    parser.process(app);

    std::vector<ManualPictures::Request> requests;
    for (const QString& argument : parser.positionalArguments()) {
        const auto request = ManualPictures::parseRequest(argument);
        if (!request) {
            std::fprintf(stderr, "lumidesk-manual-images: unknown model or picture in %s\n",
                         qPrintable(argument));
            return badUsage;
        }
        requests.push_back(*request);
    }
    if (requests.empty()) {
        std::fputs(qPrintable(parser.helpText()), stderr);
        return badUsage;
    }

    ManualPictures pictures(parser.value(out), parser.value(readme));
    for (const ManualPictures::Request& request : requests) {
        QString error;
        if (!pictures.take(request, &error)) {
            std::fprintf(stderr, "lumidesk-manual-images: %s\n", qPrintable(error));
            return 1;
        }
    }
    for (const QString& file : pictures.written())
        std::printf("%s\n", qPrintable(file));
    return 0;
}
