// SPDX-License-Identifier: GPL-3.0-or-later
// GUI-thread cost of one output update on the Live and DMX tabs: 24 devices
// patched on a Maple, every DMX address and channel level changed, then the
// view's update slots run and the event loop paints what they invalidated.
// At 44 Hz a frame may take 3 ms (about 13 % of one core).

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/ConsoleLink.h"
#include "views/DMXView.h"
#include "views/OutputView.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <optional>

namespace {

// A moving head with colour mixing and beam parameters: 17 slots.
const int rig[] = {1, 48, 2, 49, 0, 3, 4, 5, 9, 12, 14, 10, 20, 22, 23, 21, 7};

FakeEngine* engine = nullptr;
int frame = 0;

void patchRig()
{
    for (int device = 0; device < DevicePart::deviceCount; ++device) {
        DeviceRecord& record = engine->record()->devices[device];
        record.firstAddress = quint16(device * 40 + 1);
        record.footprint = quint8(std::size(rig) + 1);
        for (std::size_t slot = 0; slot < std::size(rig); ++slot)
            record.parameterMap[rig[slot]] = quint8(slot + 1);
    }
}

void changeEverything()
{
    ConsoleStateRecord* record = engine->record();
    ++frame;
    for (int address = 0; address < ConsoleStateRecord::addressCount; ++address)
        record->dmxOutput[address] = quint8(frame * 7 + address);
    for (int channel = 0; channel < OutputView::channelCount; ++channel)
        record->channelLevels[channel] = quint8(frame * 5 + channel);
}

void paintPending()
{
    QApplication::processEvents();
    QApplication::processEvents();
}

void BM_LiveTabUpdate(benchmark::State& state)
{
    OutputView view(nullptr, nullptr);
    view.resize(1280, 990);
    view.show();
    paintPending();
    for (auto _ : state) {
        changeEverything();
        view.consoleCacheChannelsUpdated();
        view.consoleCacheOutputsUpdated();
        paintPending();
    }
}

void BM_DmxTabUpdate(benchmark::State& state)
{
    DMXView view(nullptr, nullptr);
    view.resize(1280, 990);
    view.show();
    paintPending();
    for (auto _ : state) {
        changeEverything();
        view.consoleCacheOutputsUpdated();
        paintPending();
    }
}

BENCHMARK(BM_LiveTabUpdate)->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_DmxTabUpdate)->Unit(benchmark::kMillisecond)->MinTime(1.0);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk application(argc, argv);
    FakeEngine fake(ConsoleCache::ModelMaple);
    engine = &fake;
    Console* console = fake.createConsole();
    ConsoleLink::setConsole(console);
    patchRig();
    console->patchChanged();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    ConsoleLink::setConsole(nullptr);
    delete console;
    engine = nullptr;
    return 0;
}
