// SPDX-License-Identifier: GPL-3.0-or-later
// Paint cost of the grids the views build: 96 channel cells with legends (the
// Playback tab) and a Maple device grid of 24 devices x 50 parameters (the
// Output tab), each rendered into a 1280 x 1024 image as one frame. A 44 Hz
// level stream leaves about 22 ms per frame; the target is below 4 ms.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/ChannelCell.h"
#include "toolkit/ChannelRow.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/PanTiltMonitorCell.h"
#include "toolkit/ParameterCell.h"
#include "toolkit/ParameterRow.h"

#include <benchmark/benchmark.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

constexpr int deviceCount = 24;
constexpr int parameterCount = 50;
const QSize frameSize(1280, 1024);

class LiveChannelCell : public ChannelCell
{
public:
    LiveChannelCell(CellRow* row, Console* console, int channel)
        : ChannelCell(row, console, channel)
    {
    }
    QString text() const override
    {
        return ConsoleCache::formatLevel(console()->cache()->record()->channelLevels[channel()],
                                         true);
    }
    quint8 level() const override { return console()->cache()->record()->channelLevels[channel()]; }
    bool isHighlighted() const override { return channel() % 7 == 0; }
};

class LiveParameterCell : public ParameterCell
{
public:
    LiveParameterCell(CellRow* row, int device, int parameter)
        : ParameterCell(row, ConsoleCache::parameterGroup(parameter), parameter), m_device(device)
    {
    }
    QColor swatchColour(bool& valid) const override
    {
        valid = true;
        return QColor(m_device * 10, 255 - m_device * 10, 128);
    }
    QString text() const override { return QString::number((m_device * 37 + parameter()) % 256); }
    QString editText() const override { return text(); }
    void applyEditText(const QString&) override {}

private:
    int m_device;
};

class LivePanTiltCell : public PanTiltMonitorCell
{
public:
    LivePanTiltCell(CellRow* row, int device) : PanTiltMonitorCell(row), m_device(device) {}
    bool isActive() const override { return true; }
    float panPosition() const override { return position(m_device * 10, 0, false); }
    float tiltPosition() const override { return position(255 - m_device * 10, 0, false); }

private:
    int m_device;
};

// One engine, console and application for the whole run.
struct Fixture
{
    std::optional<FakeEngine> engine;
    Console* console = nullptr;

    Fixture()
    {
        engine.emplace(ConsoleCache::ModelBirch);
        console = engine->createConsole();
        ConsoleStateRecord* record = engine->record();
        const char* legends[] = {"Front", "Wash", "Spot L", "Back", "Cyc", "Floor"};
        for (int channel = 0; channel < 96; ++channel) {
            record->channelLevels[channel] = quint8((channel * 53) % 256);
            for (int line = 0; line < 3; ++line)
                ConsoleCache::writeText(record->channelLegends[channel], line,
                                        QString::fromLatin1(legends[(channel + line) % 6]));
        }
        for (int address = 0; address < 96; address += 2)
            record->dmxPatch[address] = quint8(address + 1);
        console->cache()->rebuildDerivedCaches(true, false);
    }
    ~Fixture() { delete console; }
};

Fixture* fixture = nullptr;

int addChannelGrid(QGraphicsScene& scene, int top)
{
    auto* table = new CellRowTable(&scene, true);
    for (int block = 0; block < 4; ++block) {
        auto* numbers = new NumberRow(table);
        for (int i = 0; i < 24; ++i)
            new NumberCell(numbers, block * 24 + i);
        table->addRow(numbers);
        auto* channels =
            new ChannelRow(table, fixture->console,
                           QStringLiteral("Ch %1-%2").arg(block * 24 + 1).arg(block * 24 + 24));
        for (int i = 0; i < 24; ++i)
            new LiveChannelCell(channels, fixture->console, block * 24 + i);
        table->addRow(channels);
    }
    table->setPos(0, top);
    return top + int(table->boundingRect().height());
}

int addDeviceGrid(QGraphicsScene& scene, int top)
{
    auto* table = new CellRowTable(&scene, false);
    auto* numbers = new NumberRow(table, QStringLiteral("Device"));
    for (int device = 0; device < deviceCount; ++device)
        new NumberCell(numbers, device);
    table->addRow(numbers);
    auto* monitor = new ParameterRow(table, QStringLiteral("Pan/Tilt"), true);
    for (int device = 0; device < deviceCount; ++device)
        new LivePanTiltCell(monitor, device);
    table->addRow(monitor);
    for (int parameter = 0; parameter < parameterCount; ++parameter) {
        auto* row = new ParameterRow(table, QStringLiteral("Param %1").arg(parameter), true);
        for (int device = 0; device < deviceCount; ++device) {
            auto* cell = new LiveParameterCell(row, device, parameter);
            cell->setSelected(device % 5 == 0);
        }
        table->addRow(row);
    }
    table->setPos(0, top);
    return top + int(table->boundingRect().height());
}

// A tab as the program shows it: a frameless, top-left aligned view over its
// scene. Built once; the benchmarks repaint it as a tab repaints.
struct Tab
{
    QGraphicsScene scene;
    QGraphicsView view;
    QImage frame;

    Tab() : view(&scene), frame(frameSize, QImage::Format_ARGB32_Premultiplied)
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.resize(frameSize);
    }

    // One frame: the viewport paints its whole area.
    void paintFrame()
    {
        frame.fill(Qt::black);
        view.viewport()->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
        benchmark::DoNotOptimize(frame.constBits());
    }
};

Tab* channelTab = nullptr;
Tab* deviceTab = nullptr;
Tab* bothTab = nullptr;

void renderFrames(benchmark::State& state, Tab& tab)
{
    for (auto _ : state)
        tab.paintFrame();
    state.counters["items"] = double(tab.scene.items().size());
}

void BM_ChannelGrid(benchmark::State& state)
{
    renderFrames(state, *channelTab);
}

void BM_DeviceGrid(benchmark::State& state)
{
    renderFrames(state, *deviceTab);
}

// Both grids in one scene, stacked as a tall view would; the frame shows what
// fits in 1024 rows.
void BM_BothGrids(benchmark::State& state)
{
    renderFrames(state, *bothTab);
}

// The first frame after a view rebuilt its grid lays out every text once.
void BM_DeviceGridFirstFrame(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto* tab = new Tab;
        addDeviceGrid(tab->scene, 0);
        state.ResumeTiming();
        tab->paintFrame();
        state.PauseTiming();
        delete tab;
        state.ResumeTiming();
    }
}

double percentile99(const std::vector<double>& values)
{
    std::vector<double> sorted = values;
    std::sort(sorted.begin(), sorted.end());
    return sorted[std::min(sorted.size() - 1, size_t(double(sorted.size()) * 0.99))];
}

// One frame per repetition, so that median and p99 are per frame.
void frameStatistics(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(200)
        ->ReportAggregatesOnly(true)
        ->ComputeStatistics("p99", percentile99);
}

BENCHMARK(BM_ChannelGrid)->Apply(frameStatistics);
BENCHMARK(BM_DeviceGrid)->Apply(frameStatistics);
BENCHMARK(BM_BothGrids)->Apply(frameStatistics);
BENCHMARK(BM_DeviceGridFirstFrame)->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Lumidesk application(argc, argv);
    Fixture shared;
    fixture = &shared;
    Tab channels;
    addChannelGrid(channels.scene, 0);
    Tab devices;
    addDeviceGrid(devices.scene, 0);
    Tab both;
    addDeviceGrid(both.scene, addChannelGrid(both.scene, 0) + 10);
    channelTab = &channels;
    deviceTab = &devices;
    bothTab = &both;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    fixture = nullptr;
    return 0;
}
