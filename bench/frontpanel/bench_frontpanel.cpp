// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of the emulated front panel of the largest model (Maple: 97 keys, 28
// faders, 3 wheels, 2 LCDs): building it from its layout file when the main
// window opens, painting one whole frame, and one blink tick with every LED
// blinking (the console's blink timer fires every 300 ms) followed by the
// frame it causes.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "frontpanel/FrontPanel.h"
#include "toolkit/ConsoleLink.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <memory>

namespace {

struct Panel
{
    Panel() : engine(ConsoleCache::ModelMaple)
    {
        // Every LED blinks between two colours.
        for (LedRecord& led : engine.record()->leds) {
            led.on[0] = 255;
            led.off[2] = 200;
        }
        console.reset(engine.createConsole());
        ConsoleLink::setConsole(console.get());
        panel = std::make_unique<FrontPanel>();
    }
    ~Panel()
    {
        panel.reset();
        ConsoleLink::setConsole(nullptr);
    }
    void paintFrame(QImage& frame)
    {
        QPainter painter(&frame);
        panel->render(&painter);
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<FrontPanel> panel;
};

void BM_BuildMaplePanel(benchmark::State& state)
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    ConsoleLink::setConsole(console.get());
    for (auto _ : state) {
        FrontPanel panel;
        benchmark::DoNotOptimize(panel.panelScene()->items().size());
    }
    ConsoleLink::setConsole(nullptr);
}
BENCHMARK(BM_BuildMaplePanel)->Unit(benchmark::kMillisecond);

void BM_PaintMaplePanel(benchmark::State& state)
{
    Panel panel;
    QImage frame(panel.panel->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        panel.paintFrame(frame);
}
BENCHMARK(BM_PaintMaplePanel)->Unit(benchmark::kMillisecond);

void BM_BlinkTickAndFrame(benchmark::State& state)
{
    Panel panel;
    QImage frame(panel.panel->size(), QImage::Format_ARGB32_Premultiplied);
    bool lit = false;
    for (auto _ : state) {
        lit = !lit;
        emit panel.console->buttonBlink(lit);
        QCoreApplication::processEvents();
        panel.paintFrame(frame);
    }
}
BENCHMARK(BM_BlinkTickAndFrame)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
