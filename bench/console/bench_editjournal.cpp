// SPDX-License-Identifier: GPL-3.0-or-later
// The undo history: what Ctrl+Z and Ctrl+Shift+Z pay for an edit of 24
// memory cells, and what journaling adds to a one-cell edit.
#include "Console.h"
#include "FakeEngine.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {
struct EditedConsole
{
    FakeEngine engine{ConsoleCache::ModelMaple};
    std::unique_ptr<Console> console{engine.createConsole()};

    void editCells(int cells, int level)
    {
        ConsoleCache* cache = console->cache();
        for (int channel = 0; channel < cells; ++channel) {
            cache->setMemoryChannelLevel(0, 1, channel, level + channel);
            console->memoryChanged(Console::Memory(0, 1));
        }
        console->journal()->commit();
    }
};

void BM_UndoRedo24Cells(benchmark::State& state)
{
    EditedConsole edited;
    edited.editCells(24, 100);
    EditJournal* journal = edited.console->journal();
    int round = 0;
    for (auto _ : state) {
        journal->undo();
        journal->redo();
        if ((++round & 0xff) == 0)
            edited.engine.clearUpdates(); // the fake engine keeps every call
    }
    if (journal->undoCount() != 1)
        state.SkipWithError("the edit was refused");
}
BENCHMARK(BM_UndoRedo24Cells);

// One cell typed and reported, with the journal keeping the edit.
void BM_OneCellEditJournaled(benchmark::State& state)
{
    EditedConsole edited;
    int level = 0;
    for (auto _ : state) {
        edited.editCells(1, ++level & 0x7f);
        if ((level & 0xff) == 0)
            edited.engine.clearUpdates();
    }
}
BENCHMARK(BM_OneCellEditJournaled);

// The same edit while the journal only follows the record (as during a
// show load): the difference to the above is journaling's cost.
void BM_OneCellEditNotJournaled(benchmark::State& state)
{
    EditedConsole edited;
    edited.console->journal()->bulkBegan();
    int level = 0;
    for (auto _ : state) {
        edited.editCells(1, ++level & 0x7f);
        if ((level & 0xff) == 0)
            edited.engine.clearUpdates();
    }
}
BENCHMARK(BM_OneCellEditNotJournaled);
} // namespace

BENCHMARK_MAIN();
