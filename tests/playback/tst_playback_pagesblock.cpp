// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleCodes.h"
#include "InPlaceEditableText.h"
#include "Lumidesk.h"
#include "PagesBlock.h"
#include "PagesBlockHandler.h"

#include <QTest>

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

// The colour in the middle of a cell's frame, over black.
QColor fillOf(PagesBlock::MasterCell* cell)
{
    const QRect bounds = cell->boundingRect().toRect();
    return paintedItem(cell, bounds, Qt::black).pixelColor(4, bounds.height() - 4);
}

QColor over(QColor colour, int alpha)
{
    return QColor(colour.red() * alpha / 255, colour.green() * alpha / 255,
                  colour.blue() * alpha / 255);
}

bool near(const QColor& a, const QColor& b)
{
    return qAbs(a.red() - b.red()) <= 2 && qAbs(a.green() - b.green()) <= 2 &&
           qAbs(a.blue() - b.blue()) <= 2;
}

} // namespace

class TestPagesBlock : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void rowsAndLabels();
    void lineCountZero();
    void timeModeUnderThreeLines();
    void msModeDecidesPaintAndOpen_data();
    void msModeDecidesPaintAndOpen();
    void editsStoreOrAreRefused();
    void consoleChangesRefreshCells();

private:
    std::unique_ptr<PanelConsole> console;
};

void TestPagesBlock::init()
{
    console = std::make_unique<PanelConsole>(ConsoleCache::ModelAlder);
    // Page 1: memory on fader 3, sequence (index 2) on fader 14 which also
    // holds a memory, an empty sequence on fader 15.
    for (int index : {3, 14}) {
        console->memory(1, index).recorded = 1;
        ConsoleCache::writeText(console->memory(1, index).name, 0,
                                QStringLiteral("Mem%1").arg(index));
        console->memory(1, index).time = 35;
    }
    console->sequence(1, 2).stepCount = 2;
    ConsoleCache::writeText(console->sequence(1, 2).name, 0, QStringLiteral("Chase"));
    ConsoleCache::writeText(console->record()->pageNames[1], 0, QStringLiteral("Intro"));
}

void TestPagesBlock::cleanup()
{
    console.reset();
}

void TestPagesBlock::rowsAndLabels()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 60, 2, false);
    QCOMPARE(block->count(), 48); // never past fader 48
    QCOMPARE(block->rows().size(), 1 + 1 + 12 + 1);
    QCOMPARE(block->cell(0, 12)->label(), QStringLiteral("01/13"));
    QCOMPARE(block->cell(11, 0)->label(), QStringLiteral("12/01"));
    QCOMPARE(block->cell(1, 14)->sequence(), Console::Sequence(1, 2));
    QCOMPARE(block->masterRow(1)->nameItem(0)->text(), QStringLiteral("Intro"));

    auto* sequences = new PagesBlock(&scene, nullptr, 12, 12, 3, false);
    QVERIFY(!sequences->cell(0, 11));
    QVERIFY(sequences->cell(0, 12));
    QCOMPARE(sequences->rows().first()->cells().size(), 12);

    QCOMPARE(block->cell(1, 3)->item(0)->text(), QStringLiteral("Mem3"));
    QCOMPARE(block->cell(1, 3)->item(0)->isEditable(), true);
    QCOMPARE(block->cell(1, 14)->item(0)->text(), QStringLiteral("Chase"));
    QCOMPARE(block->cell(1, 15)->item(0)->isVisible(), false);
    QCOMPARE(block->cell(1, 15)->item(0)->isEditable(), false);
    QCOMPARE(block->cell(1, 3)->item(PagesBlock::MasterCell::timeItem)->isVisible(), false);
}

void TestPagesBlock::lineCountZero()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    const qreal tallRow = block->masterRow(0)->height();
    block->setLineCount(0);
    QCOMPARE(block->cell(1, 3)->height(), 30.0);
    QCOMPARE(block->cell(1, 3)->boundingRect().height(), 30.0);
    QCOMPARE(block->masterRow(0)->height(), 30.0);
    QVERIFY(tallRow > 30.0);
    for (int item = 0; item < 4; ++item)
        QCOMPARE(block->cell(1, 3)->item(item)->isVisible(), false);
    QCOMPARE(block->masterRow(1)->nameItem(0)->isVisible(), false);
    // Rows follow each other without overlap after the relayout.
    const CellRow* first = block->masterRow(0);
    const CellRow* second = block->masterRow(1);
    QVERIFY(second->y() >= first->y() + 30.0);
    QVERIFY(second->y() <= first->y() + 30.0 + 2);
}

void TestPagesBlock::timeModeUnderThreeLines()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    block->setLineCount(3);
    block->setTimeMode(true);
    const InPlaceEditableText* time = block->cell(1, 3)->item(PagesBlock::MasterCell::timeItem);
    QCOMPARE(time->isVisible(), true);
    QCOMPARE(time->text(), ConsoleCache::timeText(35));
    QCOMPARE(time->rect().top(), 18.0 + 3 * 12);
    QCOMPARE(time->rect().left(), 15.0);
    QCOMPARE(time->alignment() & Qt::AlignRight, Qt::AlignRight);
    // A sequence cell has no time.
    QCOMPARE(block->cell(1, 14)->item(PagesBlock::MasterCell::timeItem)->isVisible(), false);
    block->setLineCount(1);
    QCOMPARE(block->cell(1, 3)->item(1)->isVisible(), false);
    QCOMPARE(block->cell(1, 3)->item(PagesBlock::MasterCell::timeItem)->rect().top(), 30.0);
}

void TestPagesBlock::msModeDecidesPaintAndOpen_data()
{
    QTest::addColumn<bool>("msMode");
    QTest::addColumn<int>("fader");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QColor>("fill");
    const QColor sequenceFill = over(QColor(104, 81, 11), 100);
    const QColor memoryFill = over(QColor(105, 10, 10), 100);
    QTest::newRow("both, MS off: sequence") << false << 14 << "sequence 1/14" << sequenceFill;
    QTest::newRow("both, MS on: memory") << true << 14 << "memory 1/14" << memoryFill;
    QTest::newRow("memory only") << false << 3 << "memory 1/3" << memoryFill;
    QTest::newRow("nothing") << false << 5 << "memory 1/5" << QColor(Qt::black);
}

void TestPagesBlock::msModeDecidesPaintAndOpen()
{
    QFETCH(bool, msMode);
    QFETCH(int, fader);
    QFETCH(QString, opened);
    QFETCH(QColor, fill);
    RecordingHandler handler;
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, &handler, 0, 24, 2, !msMode);
    block->setMsMode(msMode);
    PagesBlock::MasterCell* cell = block->cell(1, fader);
    QVERIFY2(near(fillOf(cell), fill), qPrintable(fillOf(cell).name()));

    SceneView view(&scene, QSize(1400, 900));
    const QPointF at = cell->mapToScene(QPointF(10, cell->boundingRect().height() - 3));
    view.send(QEvent::MouseButtonPress, at, Qt::LeftButton);
    view.send(QEvent::MouseButtonRelease, at, Qt::NoButton);
    view.send(QEvent::MouseButtonDblClick, at, Qt::LeftButton);
    view.send(QEvent::MouseButtonRelease, at, Qt::NoButton);
    QCOMPARE(handler.opened, QStringList{opened});
}

void TestPagesBlock::editsStoreOrAreRefused()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    block->setTimeMode(true);
    PagesBlock::MasterCell* memoryCell = block->cell(1, 3);
    memoryCell->textChanged(memoryCell->item(1), QStringLiteral("Blue"));
    memoryCell->textChanged(memoryCell->item(PagesBlock::MasterCell::timeItem),
                            QStringLiteral("4.5"));
    PagesBlock::MasterCell* sequenceCell = block->cell(1, 14);
    sequenceCell->textChanged(sequenceCell->item(2), QStringLiteral("Loop"));
    block->masterRow(1)->textChanged(block->masterRow(1)->nameItem(1), QStringLiteral("Act 1"));
    PagesBlock::MasterCell* emptyCell = block->cell(1, 5);
    emptyCell->item(0)->setEditable(true);
    emptyCell->textChanged(emptyCell->item(0), QStringLiteral("Lost"));

    const ConsoleCache* cache = console->console->cache();
    QCOMPARE(cache->memoryName(1, 3, 1), QStringLiteral("Blue"));
    QCOMPARE(cache->memoryTime(1, 3), 45);
    QCOMPARE(cache->sequenceName(1, 2, 2), QStringLiteral("Loop"));
    QCOMPARE(cache->pageName(1, 1), QStringLiteral("Act 1"));
    QCOMPARE(cache->memoryName(1, 5, 0), QString());
    QCOMPARE(emptyCell->item(0)->isEditable(), false);
    const QList<FakeEngine::Call> updates = console->engine.updates();
    QVERIFY(updates.contains(FakeEngine::Call{ConsoleCode::MemoryChanged, 1, 3}));
    QVERIFY(updates.contains(FakeEngine::Call{ConsoleCode::SequenceChanged, 1, 2}));
    QVERIFY(updates.contains(FakeEngine::Call{ConsoleCode::PageChanged, 1}));
    QVERIFY(!updates.contains(FakeEngine::Call{ConsoleCode::MemoryChanged, 1, 5}));
}

void TestPagesBlock::consoleChangesRefreshCells()
{
    QGraphicsScene scene;
    auto* block = new PagesBlock(&scene, nullptr, 0, 24, 2, false);
    console->memory(4, 7).recorded = 1;
    ConsoleCache::writeText(console->memory(4, 7).name, 0, QStringLiteral("New"));
    console->notify(ConsoleCode::MemoryChanged, 4, 7);
    QCOMPARE(block->cell(4, 7)->item(0)->text(), QStringLiteral("New"));

    console->sequence(4, 0).stepCount = 1;
    ConsoleCache::writeText(console->sequence(4, 0).name, 0, QStringLiteral("Seq"));
    console->notify(ConsoleCode::SequenceChanged, 4, 0);
    QCOMPARE(block->cell(4, 12)->item(0)->text(), QStringLiteral("Seq"));

    ConsoleCache::writeText(console->record()->pageNames[4], 2, QStringLiteral("End"));
    console->notify(ConsoleCode::PageChanged, 4);
    QCOMPARE(block->masterRow(4)->nameItem(2)->text(), QStringLiteral("End"));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestPagesBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_pagesblock.moc"
