// SPDX-License-Identifier: GPL-3.0-or-later
// The Maple system view: a whole frame repainted after a settings change
// (every menu, value and the 24-row pan/tilt table read from the record), and
// building the view as the main window does at start. A click must answer
// within a frame; the targets are below 4 ms per frame and 20 ms per build.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/ConsoleLink.h"
#include "views/SystemView.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <memory>

namespace {

const QSize frameSize(1280, 968);

struct Fixture
{
    FakeEngine engine{ConsoleCache::ModelMaple};
    std::unique_ptr<Console> console{engine.createConsole()};

    Fixture()
    {
        ConsoleStateRecord* record = engine.record();
        for (int device = 0; device < 24; device += 3)
            record->invertPan[device] = record->swapPanTilt[device] = 1;
        record->defaultUpFade = 905;
        ConsoleLink::setConsole(console.get());
    }
    ~Fixture() { ConsoleLink::setConsole(nullptr); }
};

void BM_SystemViewFrame(benchmark::State& state)
{
    SystemView view(nullptr, nullptr, true);
    view.resize(frameSize);
    QImage frame(frameSize, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.viewport()->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
        benchmark::DoNotOptimize(frame.constBits());
    }
    state.counters["items"] = double(view.scene()->items().size());
}

void BM_SystemViewBuild(benchmark::State& state)
{
    for (auto _ : state) {
        SystemView view(nullptr, nullptr, true);
        benchmark::DoNotOptimize(view.scene());
    }
}

BENCHMARK(BM_SystemViewFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SystemViewBuild)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk application(argc, argv);
    Fixture fixture;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
