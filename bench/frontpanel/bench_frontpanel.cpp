// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of the emulated front panel of the largest model (Maple: 97 keys, 28
// faders, 3 wheels, 2 LCDs): building it from its layout file when the main
// window opens, painting one whole frame, and one blink tick with every LED
// blinking (the console's blink timer fires every 300 ms) followed by the
// frame it causes. The console is busy: full LCDs, memory fader mode with
// memories and sequences on every fader. Then the playback blocks of the
// Pages and Legends views: one frame of the whole pages grid and of the
// master and mode key rows.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "frontpanel/FrontPanel.h"
#include "playback/GMButtonRow.h"
#include "playback/MLButtonRow.h"
#include "playback/PagesBlock.h"
#include "toolkit/ConsoleLink.h"

#include <benchmark/benchmark.h>

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

#include <cstring>
#include <memory>

namespace {

// Both LCDs full, memory fader mode, every memory recorded with a name and
// all content flags, every sequence with steps and its own rate, half the
// faders playing.
void fillConsole(ConsoleStateRecord* record)
{
    for (auto& display : record->lcdDisplays) {
        std::memcpy(display[0], "INT A   PAGE 01 \x83\x84\x85\x86", 20);
        std::memcpy(display[1], "CUE ->1.0  GM 100% \x80", 20);
    }
    record->liveMode = 1;
    for (MemoryRecord& memory : record->memories) {
        memory.recorded = 1;
        ConsoleCache::writeText(memory.name, 0, QStringLiteral("Wash"));
    }
    for (SequenceRecord& sequence : record->sequences) {
        sequence.stepCount = 4;
        sequence.rate = 200;
    }
    for (int fader = 0; fader < ConsoleStateRecord::maxFaders; fader += 2)
        record->faders[fader].active = 1;
}

struct Panel
{
    Panel() : engine(ConsoleCache::ModelMaple)
    {
        // Every LED blinks between two colours.
        for (LedRecord& led : engine.record()->leds) {
            led.on[0] = 255;
            led.off[2] = 200;
        }
        fillConsole(engine.record());
        console.reset(engine.createConsole());
        ConsoleLink::setConsole(console.get());
        panel = std::make_unique<FrontPanel>();
        // Laid out and painted as on screen: QGraphicsView::render() would
        // scale the panel and offset it by half a pixel.
        panel->setAttribute(Qt::WA_DontShowOnScreen);
        panel->show();
    }
    ~Panel()
    {
        panel.reset();
        ConsoleLink::setConsole(nullptr);
    }
    void paintFrame(QImage& frame)
    {
        QPainter painter(&frame);
        panel->viewport()->render(&painter);
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

// A scene of playback blocks on the busy console, painted whole.
struct Blocks
{
    explicit Blocks(ConsoleCache::ConsoleType model) : engine(model)
    {
        fillConsole(engine.record());
        console.reset(engine.createConsole());
        ConsoleLink::setConsole(console.get());
    }
    ~Blocks()
    {
        scene.clear();
        ConsoleLink::setConsole(nullptr);
    }
    void run(benchmark::State& state)
    {
        QImage frame(scene.itemsBoundingRect().size().toSize(),
                     QImage::Format_ARGB32_Premultiplied);
        for (auto _ : state) {
            QPainter painter(&frame);
            scene.render(&painter);
        }
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
    QGraphicsScene scene;
};

void BM_PaintPagesGrid(benchmark::State& state)
{
    Blocks blocks(ConsoleCache::ModelMaple);
    new PagesBlock(&blocks.scene, nullptr, 0, 24, 2, false);
    blocks.run(state);
}
BENCHMARK(BM_PaintPagesGrid)->Unit(benchmark::kMillisecond);

void BM_PaintKeyRows(benchmark::State& state)
{
    Blocks blocks(ConsoleCache::ModelMaple);
    new MLButtonRow(&blocks.scene);
    new GMButtonRow(&blocks.scene);
    blocks.run(state);
}
BENCHMARK(BM_PaintKeyRows)->Unit(benchmark::kMillisecond);

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
