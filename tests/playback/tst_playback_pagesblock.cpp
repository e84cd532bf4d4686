// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleCodes.h"
#include "DataRows.h"
#include "InPlaceEditableText.h"
#include "LumideskTestMain.h"
#include "PagesBlock.h"
#include "PagesBlockHandler.h"

namespace {

struct RecordingHandler : PagesBlockHandler
{
    void openSequence(int page, int fader) override
    {
        opened << QStringLiteral("sequence %1/%2").arg(page).arg(fader);
    }
    void openMemory(int page, int fader) override
    {
        opened << QStringLiteral("memory %1/%2").arg(page).arg(fader);
    }
    QStringList opened;
};

// The colour near the bottom left of a cell's frame, over black.
QColor fillOf(PagesBlock::MasterCell* cell)
{
    const QRect bounds = cell->boundingRect().toRect();
    return paintedItem(cell, bounds, Qt::black).pixelColor(4, bounds.height() - 4);
}

// Which of a cell's four items show, with their texts.
QString shownItems(const PagesBlock::MasterCell* cell)
{
    QStringList shown;
    for (int i = 0; i < 4; ++i)
        shown << (cell->item(i)->isVisible() ? cell->item(i)->text() : QStringLiteral("-"));
    return shown.join(QLatin1Char('|'));
}

} // namespace

class TestPagesBlock : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowsAndLabels();
    void lineCountAndTimeMode_data();
    void lineCountAndTimeMode();
    void msModeDecidesPaintAndOpen_data();
    void msModeDecidesPaintAndOpen();
    void editsComeBackThroughTheConsole();

private:
    std::unique_ptr<PanelConsole> console;
};

void TestPagesBlock::init()
{
    console.reset(); // the old one unhooks itself from the link when it goes
    console = std::make_unique<PanelConsole>(ConsoleCache::ModelAlder);
    // Page 1: memories on faders 3 and 14, the sequence of fader 14 (index
    // 2) with steps, an empty sequence on fader 15.
    console->nameEverything();
    for (int index : {3, 14}) {
        console->memory(1, index).recorded = 1;
        console->memory(1, index).time = 35;
    }
    console->sequence(1, 2).stepCount = 2;
}

void TestPagesBlock::rowsAndLabels()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 60, 2, false);
    QCOMPARE(block->count(), 48); // never past fader 48
    QCOMPARE(block->masterRow(1)->nameItem(1)->text(), QStringLiteral("Page1"));
    auto* sequences = new PagesBlock(&scene, nullptr, 12, 12, 3, false);
    QVERIFY(!sequences->cell(0, 11));
    QCOMPARE(sequences->rows().first()->cells().size(), 12);
}

void TestPagesBlock::lineCountAndTimeMode_data()
{
    // cells: faders 3 and 14: name lines, then the time
    addColumns<int, bool, QString>({"lines", "timeMode", "cells"});
    QTest::newRow("two lines") << 2 << false << "M1.3||-|- S1.2||-|-";
    QTest::newRow("no lines") << 0 << false << "-|-|-|- -|-|-|-";
    QTest::newRow("no lines, time") << 0 << true << "-|-|-|3.5 -|-|-|-";
    QTest::newRow("three lines, time") << 3 << true << "M1.3|||3.5 S1.2|||-";
}

void TestPagesBlock::lineCountAndTimeMode()
{
    auto [lines, timeMode, cells] = fetch<int, bool, QString>({"lines", "timeMode", "cells"});
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    block->setLineCount(lines);
    block->setTimeMode(timeMode);
    QCOMPARE(shownItems(block->cell(1, 3)) + ' ' + shownItems(block->cell(1, 14)), cells);
    // The time sits under the name lines; rows grow with the lines and
    // follow each other without overlap.
    const int height = 30 + 12 * lines;
    QCOMPARE(block->cell(1, 3)->item(3)->rect().top(), timeMode ? 18.0 + 12 * lines : 54.0);
    QCOMPARE(block->cell(1, 3)->boundingRect().height(), qreal(height));
    QCOMPARE(block->masterRow(1)->nameItem(0)->isVisible(), lines > 0);
    const qreal step = block->masterRow(1)->y() - block->masterRow(0)->y();
    QVERIFY2(step >= height && step <= height + 2, qPrintable(QString::number(step)));
}

void TestPagesBlock::msModeDecidesPaintAndOpen_data()
{
    addColumns<bool, int, QString, QColor>({"msMode", "fader", "opened", "fill"});
    // Dim fills (alpha 100) over black.
    const QColor sequenceFill(41, 32, 4);
    const QColor memoryFill(41, 4, 4);
    QTest::newRow("both, MS off: sequence") << false << 14 << "sequence 1/14" << sequenceFill;
    QTest::newRow("both, MS on: memory") << true << 14 << "memory 1/14" << memoryFill;
    QTest::newRow("memory only") << false << 3 << "memory 1/3" << memoryFill;
    QTest::newRow("nothing") << false << 5 << "memory 1/5" << QColor(Qt::black);
}

void TestPagesBlock::msModeDecidesPaintAndOpen()
{
    auto [msMode, fader, opened, fill] =
        fetch<bool, int, QString, QColor>({"msMode", "fader", "opened", "fill"});
    RecordingHandler handler;
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, &handler, 0, 24, 2, !msMode);
    block->setMsMode(msMode);
    PagesBlock::MasterCell* cell = block->cell(1, fader);
    QCOMPARE(fillOf(cell), fill);

    SceneView view(&scene, QSize(1400, 900));
    const QPointF at = cell->mapToScene(QPointF(10, cell->boundingRect().height() - 3));
    view.click(at);
    view.send(QEvent::MouseButtonDblClick, at, Qt::LeftButton);
    view.release(at);
    QCOMPARE(handler.opened, QStringList{opened});
}

void TestPagesBlock::editsComeBackThroughTheConsole()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    block->setTimeMode(true);
    PagesBlock::MasterCell* memoryCell = block->cell(1, 3);
    memoryCell->textChanged(memoryCell->item(1), QStringLiteral("Blue"));
    memoryCell->textChanged(memoryCell->item(3), QStringLiteral("4.5"));
    PagesBlock::MasterCell* sequenceCell = block->cell(1, 14);
    sequenceCell->textChanged(sequenceCell->item(1), QStringLiteral("Loop"));
    block->masterRow(1)->textChanged(block->masterRow(1)->nameItem(1), QStringLiteral("Act 1"));
    PagesBlock::MasterCell* emptyCell = block->cell(1, 5);
    emptyCell->item(0)->setEditable(true);
    emptyCell->textChanged(emptyCell->item(0), QStringLiteral("Lost"));
    QCOMPARE(emptyCell->item(0)->isEditable(), false);
    QCOMPARE(console->engine.updates(),
             (QList<FakeEngine::Call>{{ConsoleCode::MemoryChanged, 1, 3},
                                      {ConsoleCode::MemoryChanged, 1, 3},
                                      {ConsoleCode::SequenceChanged, 1, 2},
                                      {ConsoleCode::PageChanged, 1}}));
    QCoreApplication::processEvents();
    QCOMPARE(shownItems(memoryCell), QStringLiteral("M1.3|Blue||4.5"));
    QCOMPARE(shownItems(sequenceCell), QStringLiteral("S1.2|Loop||-"));
    QCOMPARE(block->masterRow(1)->nameItem(1)->text(), QStringLiteral("Act 1"));
    QCOMPARE(shownItems(emptyCell), QStringLiteral("-|-|-|-"));
}

LUMIDESK_TEST_MAIN(TestPagesBlock)

#include "tst_playback_pagesblock.moc"
