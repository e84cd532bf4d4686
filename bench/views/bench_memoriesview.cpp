// SPDX-License-Identifier: GPL-3.0-or-later
// The memories and palettes views on a Maple with 24 devices of 50
// parameters, every parameter stored: one painted frame of each view
// (target below 8 ms, two grids at the 44 Hz level stream), switching the
// memory (below 10 ms), rebuilding the device rows after a patch change
// (below 30 ms) and building the memory menu of 12 x 24 entries (below 5 ms).

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "views/MemoriesView.h"
#include "views/PalettesView.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QMenu>

#include <memory>
#include <optional>

namespace {

const QSize frameSize(1280, 968);

struct Fixture
{
    std::optional<FakeEngine> engine;
    Console* console = nullptr;
    std::unique_ptr<MemoriesView> memories;
    std::unique_ptr<PalettesView> palettes;
    QImage frame{frameSize, QImage::Format_ARGB32_Premultiplied};

    Fixture()
    {
        engine.emplace(ConsoleCache::ModelMaple);
        ConsoleStateRecord* record = engine->record();
        for (int d = 0; d < 24; ++d) {
            record->devices[d].firstAddress = quint16(1 + d * 40);
            for (int p = 0; p < 50; ++p)
                record->devices[d].parameterMap[p] = quint8(p % 40 + 1);
        }
        for (int m = 0; m < 2; ++m) {
            MemoryRecord& memory = record->memories[m];
            memory.recorded = 1;
            memory.content.contentMask = 0x0F;
            for (int c = 0; c < 72; ++c)
                memory.content.channelLevels[c] = quint8(c * 3 + m);
            for (int i = 0; i < 24 * 50; ++i)
                memory.content.parameters[i] = {quint8(i % 3 ? 0x80 : 0xC0), quint8(i % 24)};
        }
        for (int p = 0; p < 24; ++p) {
            for (int d = 0; d < 24; ++d)
                for (int i = 0; i < 7; ++i)
                    record->palettes[p].include[d][i] = 0xFF;
            record->palettes[p].flags = 0x0E;
        }
        console = engine->createConsole();
        memories = std::make_unique<MemoriesView>(nullptr, console, nullptr);
        palettes = std::make_unique<PalettesView>(nullptr, console, nullptr);
        memories->resize(frameSize);
        palettes->resize(frameSize);
    }
    ~Fixture()
    {
        memories.reset();
        palettes.reset();
        delete console;
    }
    void paint(QWidget* widget)
    {
        frame.fill(Qt::black);
        widget->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
        benchmark::DoNotOptimize(frame.constBits());
    }
};

Fixture* fixture = nullptr;

void BM_MemoriesFrame(benchmark::State& state)
{
    for (auto _ : state)
        fixture->paint(fixture->memories.get());
}

void BM_PalettesFrame(benchmark::State& state)
{
    for (auto _ : state)
        fixture->paint(fixture->palettes.get());
}

void BM_SwitchMemory(benchmark::State& state)
{
    int index = 0;
    for (auto _ : state) {
        index = 1 - index;
        fixture->memories->selectMemory(0, index);
        fixture->paint(fixture->memories.get());
    }
}

void BM_RebuildDeviceRows(benchmark::State& state)
{
    for (auto _ : state) {
        fixture->memories->consoleCachePatchUpdated();
        // The event loop polishes the new items before the next change, as
        // in the program; without it the scene's list of items to polish
        // grows with every rebuild.
        QCoreApplication::processEvents();
    }
}

void BM_MemoryMenu(benchmark::State& state)
{
    for (auto _ : state)
        delete fixture->memories->createMemoryMenu(nullptr);
}

BENCHMARK(BM_MemoriesFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PalettesFrame)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SwitchMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RebuildDeviceRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MemoryMenu)->Unit(benchmark::kMillisecond);

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
    fixture = nullptr;
    return 0;
}
