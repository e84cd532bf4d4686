// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineSession.h"
#include "FakeEngine.h"

#include "DataRows.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using EditAction = std::function<void(Console*)>;
Q_DECLARE_METATYPE(EditAction)

namespace {
using Memory = Console::Memory;
const Console::Sequence stack = Console::Sequence::makeStack();

qsizetype firstDifference(const QByteArray& a, const QByteArray& b)
{
    if (a == b)
        return -1;
    return std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
}
} // namespace

class TestEditJournal : public QObject
{
    Q_OBJECT

private slots:
    void edits_data();
    void undoRestoresTheConsole_data() { edits_data(); }
    void undoRestoresTheConsole();
    void undoRepeatsTheReports_data() { edits_data(); }
    void undoRepeatsTheReports();
    void refusedWhenTheConsoleChangedIt();
    void clearedByABulkChange();
    void keepsTheLatestEdits();
    void cleanupTestCase() { session.reset(); }

private:
    std::unique_ptr<EngineSession> session;
};

void TestEditJournal::edits_data()
{
    // byEngine: an engine command: needs the simulated console
    addColumns<EditAction, bool>({"edit", "byEngine"});
    const auto row = [](const char* name, bool byEngine, EditAction edit) {
        QTest::newRow(name) << edit << byEngine;
    };
    row("channel patch", false, [](Console* c) {
        c->cache()->record()->dmxPatch[1020] = 5;
        c->patchChanged();
    });
    row("MIDI patch", false, [](Console* c) {
        c->cache()->record()->midiCircuits[3] = 9;
        c->midiPatchChanged();
    });
    row("independent option", false, [](Console* c) {
        c->cache()->setIndependentOnLevel(0, 77);
        c->independentsChanged();
    });
    row("independent legend", false,
        [](Console* c) { c->cache()->setIndependentLegend(1, 0, QStringLiteral("Smoke")); });
    row("channel legend", false,
        [](Console* c) { c->cache()->setChannelLegend(2, 0, QStringLiteral("Wash")); });
    row("memory level", false, [](Console* c) {
        c->cache()->setMemoryChannelLevel(0, 1, 4, 200);
        c->memoryChanged(Memory(0, 1));
    });
    row("24 memory cells at once", false, [](Console* c) {
        // One cell in each of 24 memories: each report's memory is one the
        // engine is not still reading from the report before.
        for (int index = 0; index < 24; ++index) {
            c->cache()->setMemoryChannelLevel(1, index, 3, 10 + index);
            c->memoryChanged(Memory(1, index));
        }
    });
    row("memory name", false,
        [](Console* c) { c->cache()->setMemoryName(0, 1, 0, QStringLiteral("Intro")); });
    row("palette value", false, [](Console* c) {
        c->cache()->setPaletteValue(2, 0, 1, 99);
        c->paletteChanged(2);
    });
    row("palette name", false,
        [](Console* c) { c->cache()->setPaletteName(2, 1, -1, QStringLiteral("Deep")); });
    row("group name", false,
        [](Console* c) { c->cache()->setGroupName(3, 0, QStringLiteral("Front")); });
    row("effect name", false,
        [](Console* c) { c->cache()->setEffectName(1, 0, QStringLiteral("Chase")); });
    row("page name", false,
        [](Console* c) { c->cache()->setPageName(1, 0, QStringLiteral("Encore")); });
    row("step time", false, [](Console* c) {
        c->cache()->step(-1, -1, 1)->upTime = 55;
        c->sequenceStepChanged(stack, 1);
    });
    row("cue text", false,
        [](Console* c) { c->cache()->setCueLabel(0, -1, QStringLiteral("Open")); });
    row("system setting", false, [](Console* c) {
        c->cache()->record()->defaultUpFade = 33;
        c->systemSettingsChanged();
    });
    row("device patch", true, [](Console* c) {
        c->cache()->patchDevice(23, c->cache()->personalities().constFirst().id, 1000);
    });
    row("device move", true, [](Console* c) { c->cache()->repatchDevice(0, 900); });
    row("device unpatch", true, [](Console* c) { c->cache()->unpatchDevice(1); });
    row("step insert", true,
        [](Console* c) { c->cache()->insertStep(-1, -1, 1, 15, ConsoleCache::StepMemory, 3); });
    row("step delete", true, [](Console* c) { c->cache()->deleteStep(-1, -1, 2); });
    row("step move", true, [](Console* c) { c->cache()->moveStep(-1, -1, 0, 3, 0); });
}

void TestEditJournal::undoRestoresTheConsole()
{
    QFETCH(EditAction, edit);
    if (!session) {
        session = std::make_unique<EngineSession>(QStringLiteral("glowproEngine"), 3);
        QVERIFY(session->step()); // the start's own show load
    }
    EditJournal* journal = session->console()->journal();
    journal->clear();
    const QByteArray before = session->showBytes();
    edit(session->console());
    QVERIFY(session->step());
    const QByteArray after = session->showBytes();
    QVERIFY(firstDifference(before, after) >= 0);
    QCOMPARE(journal->undoCount(), 1);

    QVERIFY(journal->undo());
    QVERIFY(session->step());
    QCOMPARE(firstDifference(session->showBytes(), before), -1);
    QVERIFY(journal->redo());
    QVERIFY(session->step());
    QCOMPARE(firstDifference(session->showBytes(), after), -1);
    QVERIFY(journal->undo()); // leaves the show as the next row expects it
    QVERIFY(session->step());
}

void TestEditJournal::undoRepeatsTheReports()
{
    auto [edit, byEngine] = fetch<EditAction, bool>({"edit", "byEngine"});
    if (byEngine)
        QSKIP("engine commands are checked on the simulated console");
    FakeEngine engine(ConsoleCache::ModelMaple);
    engine.record()->stackStepCount = 3;
    std::unique_ptr<Console> console(engine.createConsole());
    console->journal()->takeSnapshot();
    engine.clearUpdates();
    edit(console.get());
    // An edit of many cells reports each cell; undo and redo report once.
    QList<FakeEngine::Call> reports;
    for (const FakeEngine::Call& call : engine.takeUpdates()) {
        if (!reports.contains(call))
            reports << call;
    }
    console->journal()->commit();
    QVERIFY(console->journal()->undo());
    QCOMPARE(engine.takeUpdates(), reports);
    QVERIFY(console->journal()->redo());
    QCOMPARE(engine.takeUpdates(), reports);
}

void TestEditJournal::refusedWhenTheConsoleChangedIt()
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    EditJournal* journal = console->journal();
    QSignalSpy refusals(journal, &EditJournal::refused);
    console->cache()->setGroupName(3, 0, QStringLiteral("Front"));
    journal->commit();
    // The console renames the same group; its notice comes on its thread.
    ConsoleCache::writeText(engine.record()->groups[3].name, 0, QStringLiteral("Back"));
    engine.post(ConsoleCode::GroupChanged, 3);
    engine.stopThread(); // after delivering it
    engine.clearUpdates();
    QVERIFY(!journal->undo());
    QCOMPARE(console->cache()->groupName(3, 0), QStringLiteral("Back"));
    QCOMPARE(engine.updates().size(), 0);
    QCOMPARE(refusals.size(), 1);
    QCOMPARE(journal->undoCount(), 0);
}

void TestEditJournal::clearedByABulkChange()
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    console->cache()->setGroupName(3, 0, QStringLiteral("Front"));
    console->journal()->commit();
    QCOMPARE(console->journal()->undoCount(), 1);
    engine.notify(ConsoleCode::System, SystemCode::BulkBegin);
    QVERIFY(!console->journal()->undo()); // the show is being replaced
    engine.notify(ConsoleCode::System, SystemCode::BulkEnd);
    QCoreApplication::processEvents();
    QCOMPARE(console->journal()->undoCount(), 0);
    QCOMPARE(console->cache()->groupName(3, 0), QStringLiteral("Front"));
}

void TestEditJournal::keepsTheLatestEdits()
{
    FakeEngine engine(ConsoleCache::ModelMaple);
    std::unique_ptr<Console> console(engine.createConsole());
    for (int n = 0; n < EditJournal::editLimit + 5; ++n) {
        console->cache()->setGroupName(n % 24, 0, QString::number(n));
        console->journal()->commit();
    }
    QCOMPARE(console->journal()->undoCount(), EditJournal::editLimit);
}

QTEST_MAIN(TestEditJournal)
#include "tst_editjournal.moc"
