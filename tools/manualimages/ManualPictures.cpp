// SPDX-License-Identifier: GPL-3.0-or-later
#include "ManualPictures.h"

#include "Console.h"
#include "ConsoleChoice.h"
#include "ConsoleEngine.h"
#include "FrontPanel.h"
#include "Lumidesk.h"
#include "MainFrame.h"
#include "ShowStarter.h"
#include "TabStrip.h"
#include "Timeline.h"

#include <QEventLoop>
#include <QImage>
#include <QTimer>

#include <array>
#include <memory>
#include <utility>

namespace {

// Panel controls of the simulated consoles.
constexpr int deviceSelectKey = 57;
constexpr int firstSelectKey = 24;
// The last twelve faders of a page play sequences.
constexpr int sequenceFaders = 12;

// Time for fades to get going and for views to repaint after a switch.
constexpr int playMilliseconds = 1500;
constexpr int settleMilliseconds = 150;
// The pictures are committed: compressed hardest.
constexpr int smallestPng = 0;

// The README's pictures come from these.
struct ReadmePicture
{
    const char* model;
    const char* picture;
    const char* file;
};
constexpr std::array<ReadmePicture, 2> readmePictures{{
    {"cedar", "playback", "playbackview-cedar.png"},
    {"maple", "frontpanel", "frontpanel.png"},
}};

void wait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}


} // namespace

ManualPictures::ManualPictures(const QString& outputFolder, const QString& readmeFolder)
    : out(outputFolder), readme(readmeFolder)
{
}

std::optional<ManualPictures::Request> ManualPictures::parseRequest(const QString& text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    Request request{text.left(colon).trimmed().toLower(), {}};
    if (!ConsoleChoice::fromModelName(request.model))
        return std::nullopt;
    if (colon >= 0)
        request.pictures = text.mid(colon + 1).split(QLatin1Char(','), Qt::SkipEmptyParts);
    QStringList known{frontPanelName()};
    for (int kind = MainFrame::LegendsTab; kind <= MainFrame::SystemTab; ++kind)
        known << pictureName(kind);
    for (const QString& picture : std::as_const(request.pictures)) {
        if (!known.contains(picture))
            return std::nullopt;
    }
    return request;
}

QString ManualPictures::pictureName(int tabKind)
{
    switch (tabKind) {
    case MainFrame::LegendsTab:
        return QStringLiteral("playback");
    case MainFrame::OutputTab:
        return QStringLiteral("live");
    case MainFrame::PagesTab:
        return QStringLiteral("pages");
    case MainFrame::SecondPagesTab:
        return QStringLiteral("pages2");
    case MainFrame::MemoriesTab:
        return QStringLiteral("memories");
    case MainFrame::SequencesTab:
        return QStringLiteral("sequences");
    case MainFrame::EffectsTab:
        return QStringLiteral("effects");
    case MainFrame::GroupsTab:
        return QStringLiteral("groups");
    case MainFrame::PalettesTab:
        return QStringLiteral("palettes");
    case MainFrame::PatchTab:
        return QStringLiteral("patch");
    case MainFrame::DmxTab:
        return QStringLiteral("dmx");
    case MainFrame::SystemTab:
        return QStringLiteral("system");
    default:
        return {};
    }
}

// Memories on the first faders, the chase sequence running, the stack fading
// into its second cue and, on the Maple, two devices selected.
void ManualPictures::playDemoShow(Console* console)
{
    ConsoleEngine* engine = console->engine();
    ShowStarter::tap(engine, ShowStarter::memoriesKey);
    constexpr std::array<int, 3> memoryLevels{255, 190, 120};
    for (std::size_t fader = 0; fader < memoryLevels.size(); ++fader)
        ShowStarter::moveFader(engine, int(fader), memoryLevels[fader]);
    ShowStarter::moveFader(engine, console->cache()->faderCount() - sequenceFaders, 255);
    if (console->consoleType() == ConsoleCache::ModelMaple) {
        ShowStarter::tap(engine, deviceSelectKey);
        ShowStarter::tap(engine, firstSelectKey);
        ShowStarter::tap(engine, firstSelectKey + 1);
    }
    ShowStarter::tap(engine, Timeline::goKey);
    wait(playMilliseconds);
    ShowStarter::tap(engine, Timeline::goKey);
    wait(playMilliseconds / 2);
}

bool ManualPictures::take(const Request& request, QString* error)
{
    const std::optional<ConsoleChoice> choice = ConsoleChoice::fromModelName(request.model);
    auto* app = Lumidesk::instance();
    if (!choice || !app) {
        *error = QStringLiteral("no such model: ") + request.model;
        return false;
    }
    Console::LoadError loadError = Console::LoadFailed;
    Console* console = Console::load(choice->libraryName, choice->modelVariant, &loadError);
    if (!console) {
        *error = QStringLiteral("the simulated %1 did not load (error %2)")
                     .arg(request.model)
                     .arg(int(loadError));
        return false;
    }
    app->setConsole(console);
    auto wanted = [&request](const QString& name) {
        return request.pictures.isEmpty() || request.pictures.contains(name);
    };

    bool ok = true;
    {
        MainFrame frame;
        frame.resize(MainFrame::fixedSize);
        frame.show();
        playDemoShow(console);
        TabStrip* strip = frame.tabStrip();
        for (int index = 0; ok && index < strip->count(); ++index) {
            const QString name = pictureName(frame.tabKind(index));
            if (!wanted(name))
                continue;
            strip->setCurrentTab(index);
            wait(settleMilliseconds);
            ok = save(frame.grab().toImage(), request.model, name, error);
        }
        if (ok && wanted(frontPanelName())) {
            frame.setFrontPanelVisible(true);
            wait(settleMilliseconds);
            ok = save(frame.frontPanel()->grab().toImage(), request.model, frontPanelName(), error);
        }
    }
    // The window and its views go before the console they read.
    app->setConsole(nullptr);
    console->unload();
    return ok;
}

bool ManualPictures::save(const QImage& image, const QString& model, const QString& picture,
                          QString* error)
{
    QStringList targets{out.filePath(model + QLatin1Char('-') + picture + QStringLiteral(".png"))};
    for (const ReadmePicture& shown : readmePictures) {
        if (!readme.isEmpty() && model == QLatin1String(shown.model) &&
            picture == QLatin1String(shown.picture))
            targets << QDir(readme).filePath(QLatin1String(shown.file));
    }
    for (const QString& target : std::as_const(targets)) {
        if (image.isNull() || !image.save(target, "PNG", smallestPng)) {
            *error = QStringLiteral("cannot write ") + target;
            return false;
        }
        files << target;
    }
    return true;
}
