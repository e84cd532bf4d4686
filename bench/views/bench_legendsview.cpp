// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program window on the simulated Maple, 24 devices patched.
// ShowLoad: from the engine's end of a show load (39/1) until every tab has
// re-read the show and the current tab is painted; target below 50 ms.
// PlayingFrame: one frame of the playback tab (and of the Live tab, when the
// program has it) while the stack runs and a fader moves: one engine tick's queued signals
// handled and the window repainted where they changed it; target below
// 4 ms. PlayingWholeTab paints the whole tab on top, the worst case.

#include "EngineSession.h"
#include "app/Lumidesk.h"
#include "app/MainFrame.h"
#include "console/Console.h"
#include "console/ConsoleEngine.h"
#include "toolkit/ConsoleLink.h"
#include "toolkit/Tab.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int goKey = 84;
constexpr std::chrono::milliseconds tick{25};
constexpr int goEvery = 20;
constexpr int frameCount = 200;

struct Fixture
{
    std::unique_ptr<EngineSession> session;
    std::unique_ptr<MainFrame> window;
    QTemporaryDir folder;
    QString showFile;
    QImage frame{MainFrame::fixedSize, QImage::Format_ARGB32_Premultiplied};
    std::atomic<Clock::rep> loadedAt{0};

    Fixture()
    {
        session = std::make_unique<EngineSession>(QStringLiteral("glowproEngine"), 3,
                                                  EngineSession::Clock::Running);
        ConsoleLink::setConsole(session->console());
        ConsoleCache* cache = session->cache();
        const RecordArea::Personality kind = cache->personalities().value(0);
        for (int device = 0; device < ConsoleStateRecord::maxDevices; ++device)
            cache->patchDevice(device, kind.id, device * kind.footprint);
        session->step();
        showFile = QDir(folder.path()).filePath(QStringLiteral("bench.asc"));
        session->engine()->saveShowAs(showFile);
        session->step();
        window = std::make_unique<MainFrame>();
        window->resize(MainFrame::fixedSize);
        window->show();
        QCoreApplication::processEvents();
        // Caught on the engine thread at the end of a load, once the views'
        // queued calls (connected before) are posted.
        QObject::connect(
            session->console(), &Console::playLoaded, session->console(),
            [this] { loadedAt = Clock::now().time_since_epoch().count(); }, Qt::DirectConnection);
    }
    ~Fixture()
    {
        window.reset();
        ConsoleLink::setConsole(nullptr);
    }

    void paintCurrentTab()
    {
        QWidget* tab = window->tabStrip()->tab(window->tabStrip()->currentIndex())->widget();
        tab->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
        benchmark::DoNotOptimize(frame.constBits());
    }
};

Fixture* fixture = nullptr;

void BM_ShowLoad(benchmark::State& state)
{
    for (auto _ : state) {
        // Loaded from another thread, as a load from the console's own keys
        // comes: the program does not wait for the engine's work after 39/1.
        fixture->loadedAt = 0;
        std::thread loader([] { fixture->session->engine()->openShow(fixture->showFile); });
        while (fixture->loadedAt.load() == 0)
            std::this_thread::yield();
        QCoreApplication::processEvents();
        fixture->paintCurrentTab();
        const Clock::duration spent =
            Clock::now() - Clock::time_point(Clock::duration(fixture->loadedAt.load()));
        state.SetIterationTime(std::chrono::duration<double>(spent).count());
        loader.join();
    }
}

void playingFrames(benchmark::State& state, int kind, bool wholeTab)
{
    const int index = fixture->window->tabIndexOfKind(kind);
    if (index < 0) {
        state.SkipWithError("the program has no such tab");
        return;
    }
    fixture->window->tabStrip()->setCurrentTab(index);
    int frames = 0;
    for (auto _ : state) {
        // A new cue every half second, and a fader moved on every frame.
        if (frames % goEvery == 0)
            fixture->session->tap(goKey);
        fixture->session->moveFader(frames % 12, (frames * 37) % 256);
        ++frames;
        // One engine tick's worth of changes arrives between two frames.
        std::this_thread::sleep_for(tick);
        const Clock::time_point start = Clock::now();
        // The queued signals, then the repaint of what they marked dirty.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        if (wholeTab)
            fixture->paintCurrentTab();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

void BM_PlayingFramePlayback(benchmark::State& state)
{
    playingFrames(state, MainFrame::LegendsTab, false);
}

void BM_PlayingFrameLive(benchmark::State& state)
{
    playingFrames(state, MainFrame::OutputTab, false);
}

// The worst case: the whole playback tab painted again on top.
void BM_PlayingWholeTabPlayback(benchmark::State& state)
{
    playingFrames(state, MainFrame::LegendsTab, true);
}

} // namespace

BENCHMARK(BM_ShowLoad)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlayingFramePlayback)
    ->Iterations(frameCount)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlayingFrameLive)
    ->Iterations(frameCount)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlayingWholeTabPlayback)
    ->Iterations(frameCount)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Fixture shared;
    fixture = &shared;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    fixture = nullptr;
    return 0;
}
