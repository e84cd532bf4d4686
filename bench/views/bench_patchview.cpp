// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of the Maple patch view: rebuilding its scene when a show is loaded
// (target below 5 ms) and one full repaint of both universes with 24 devices
// patched (target below 4 ms).

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "views/PatchView.h"
#include "views/PatchViewUniverseBlock.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

namespace {

PatchView* view = nullptr;

// 24 devices of 16 slots over both universes, the channels and independents
// patched one-to-one, a few MIDI circuits.
void fillPatch(ConsoleStateRecord* record)
{
    for (int d = 0; d < 24; ++d) {
        DeviceRecord& device = record->devices[d];
        device.firstAddress = quint16(100 + d * 36 + 1);
        device.footprint = 16;
        qstrcpy(device.personalityName, "Spot 575");
        qstrcpy(device.secondName, "16bit 14ch");
    }
    for (int c = 0; c < 48; ++c)
        record->dmxPatch[c] = quint8(c + 1);
    record->dmxPatch[60] = 73;
    record->dmxPatch[61] = 74;
    for (int c = 0; c < 24; ++c)
        record->midiCircuits[c] = quint8(c * 3 + 1);
}

void BM_RebuildOnPlayLoaded(benchmark::State& state)
{
    for (auto _ : state) {
        view->consoleCachePlayLoaded();
        // The event loop runs between two loaded shows: items get polished.
        state.PauseTiming();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void BM_RepaintBothUniverses(benchmark::State& state)
{
    const auto& blocks = view->universeBlocks();
    const QRectF area =
        blocks.first()->sceneBoundingRect().united(blocks.last()->sceneBoundingRect());
    QImage frame(area.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    {
        // The first frame after a rebuild renders the address numbers once.
        QPainter warm(&frame);
        view->patchScene()->render(&warm, QRectF(QPointF(), area.size()), area);
    }
    for (auto _ : state) {
        QPainter painter(&frame);
        view->patchScene()->render(&painter, QRectF(QPointF(), area.size()), area);
    }
}

BENCHMARK(BM_RebuildOnPlayLoaded)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RepaintBothUniverses)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk application(argc, argv);
    FakeEngine engine(ConsoleCache::ModelMaple);
    Console* console = engine.createConsole();
    fillPatch(engine.record());
    console->cache()->rebuildDerivedCaches(true, true);
    {
        PatchView patch(console, nullptr);
        view = &patch;
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        view = nullptr;
    }
    delete console;
    return 0;
}
