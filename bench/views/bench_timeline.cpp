// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of one playback change while the stack fades: the engine's
// notification, the queued playbackUpdated() reaching the timeline, and the
// repaint of the timeline's area of the view. The target is below 2 ms.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "playback/Timeline.h"
#include "toolkit/ConsoleLink.h"

#include <benchmark/benchmark.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>

#include <memory>

namespace {

struct Fixture
{
    FakeEngine engine{ConsoleCache::ModelMaple};
    std::unique_ptr<Console> console{engine.createConsole()};
    QGraphicsScene scene;
    QGraphicsView view{&scene};
    QImage frame{QSize(600, 120), QImage::Format_ARGB32_Premultiplied};
    Timeline* timeline = nullptr;
    int tick = 0;

    Fixture()
    {
        ConsoleLink::setConsole(console.get());
        ConsoleStateRecord* record = engine.record();
        record->stackStepCount = 3;
        record->stackSteps[1].upTime = 20;
        record->stackSteps[1].downTime = 40;
        timeline = new Timeline(&scene);
        timeline->setPos(0, 5);
        view.setFrameShape(QFrame::NoFrame);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.resize(frame.size());
        view.show();
    }
    ~Fixture() { ConsoleLink::setConsole(nullptr); }

    // One 25 ms engine tick of a 4 s fade into step 1.
    void advanceFade()
    {
        tick = (tick + 1) % 160;
        PlaybackRecord& playback = engine.record()->playbacks[12];
        playback.nextStep = 1;
        playback.upProgress = quint8(std::min(255, tick * 255 / 80));
        playback.downProgress = quint8(tick * 255 / 160);
        playback.remainingUp = quint16(std::max(0, 20 - tick / 4));
        playback.remainingDown = quint16(40 - tick / 4);
    }
};

Fixture* fixture = nullptr;

void BM_TimelinePlaybackUpdate(benchmark::State& state)
{
    Fixture& f = *fixture;
    const QRect area = f.view.mapFromScene(f.timeline->sceneBoundingRect()).boundingRect();
    for (auto _ : state) {
        f.advanceFade();
        f.engine.notify(ConsoleCode::PlaybackChanged);
        QCoreApplication::processEvents(); // the queued signal reaches the timeline
        f.frame.fill(Qt::black);
        f.view.viewport()->render(&f.frame, QPoint(), QRegion(area));
        benchmark::DoNotOptimize(f.frame.constBits());
    }
}

BENCHMARK(BM_TimelinePlaybackUpdate)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk application(argc, argv);
    Fixture shared;
    fixture = &shared;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
