// SPDX-License-Identifier: GPL-3.0-or-later
// Cost of the stack's editing blocks on a full Maple stack (199 steps of
// every kind with flags): one frame of the cue matrix with all 121 visible
// cells filled, and the cue list's share of a running fade: the engine's
// playback notification, the queued slot and the repaint of the list. The
// second figure also covers the frame where LIVE and NEXT move on.

#include "FakeEngine.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "playback/Cuelist.h"
#include "playback/Cuematrix.h"
#include "toolkit/ConsoleLink.h"

#include <benchmark/benchmark.h>

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>

#include <memory>

namespace {

constexpr int stackPlayback = 12;

void fillStack(ConsoleStateRecord* record)
{
    record->stackStepCount = ConsoleStateRecord::maxStackSteps;
    for (int i = 0; i < ConsoleStateRecord::maxStackSteps; ++i) {
        StepRecord& step = record->stackSteps[i];
        step.cueNumber = quint16(10 * (i + 1) + i % 3);
        step.contentType = quint32(i % 3);
        step.contentIndex = quint16(i % 24);
        step.upTime = quint16(i * 7 % 700);
        step.downTime = quint16(i * 3 % 90);
        step.waitTime = quint16(i % 5);
        step.flags = quint8(0x3F);
        ConsoleCache::writeText(record->cueLabels[i], ConsoleCache::wholeBlock,
                                QStringLiteral("Scene change %1").arg(i));
    }
    PlaybackRecord& playback = record->playbacks[stackPlayback];
    playback.afterLiveStep = 60;
    playback.nextStep = 60;
}

struct Stack
{
    Stack() : engine(ConsoleCache::ModelMaple)
    {
        fillStack(engine.record());
        console.reset(engine.createConsole());
        ConsoleLink::setConsole(console.get());
    }
    ~Stack()
    {
        scene.clear();
        ConsoleLink::setConsole(nullptr);
    }
    void paint(QGraphicsItem* item, QImage& frame)
    {
        QPainter painter(&frame);
        scene.render(&painter, QRectF(), item->sceneBoundingRect());
    }

    FakeEngine engine;
    std::unique_ptr<Console> console;
    QGraphicsScene scene;
};

void BM_PaintStackMatrix(benchmark::State& state)
{
    Stack stack;
    auto* matrix = new Cuematrix(&stack.scene, 11, nullptr);
    matrix->setSequence(Console::Sequence::makeStack());
    QImage frame(matrix->boundingRect().size().toSize(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        stack.paint(matrix, frame);
}
BENCHMARK(BM_PaintStackMatrix)->Unit(benchmark::kMillisecond);

// live: the fade ends every frame, so LIVE and NEXT move on each time.
void cuelistFrames(benchmark::State& state, bool live)
{
    Stack stack;
    auto* list = new Cuelist(&stack.scene, 13, true, 11);
    QImage frame(list->boundingRect().size().toSize(), QImage::Format_ARGB32_Premultiplied);
    PlaybackRecord& playback = stack.engine.record()->playbacks[stackPlayback];
    int tick = 0;
    for (auto _ : state) {
        ++tick;
        playback.upProgress = quint8(tick);
        if (live) {
            playback.afterLiveStep = quint8(tick % 198 + 1);
            playback.nextStep = quint8(tick % 198 + 1);
        }
        stack.engine.notify(ConsoleCode::PlaybackChanged);
        QCoreApplication::processEvents();
        stack.paint(list, frame);
    }
}

void BM_CuelistDuringFade(benchmark::State& state)
{
    cuelistFrames(state, false);
}
BENCHMARK(BM_CuelistDuringFade)->Unit(benchmark::kMillisecond);

void BM_CuelistOnCueChange(benchmark::State& state)
{
    cuelistFrames(state, true);
}
BENCHMARK(BM_CuelistOnCueChange)->Unit(benchmark::kMillisecond);

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
