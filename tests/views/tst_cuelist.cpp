// SPDX-License-Identifier: GPL-3.0-or-later
#include "../app/ModalAnswerer.h"
#include "../frontpanel/PanelTestKit.h"
#include "../toolkit/ToolkitFixture.h"

#include "ConsoleCodes.h"
#include "Cuelist.h"
#include "Cuematrix.h"
#include "EngineSession.h"
#include "InPlaceEditableText.h"
#include "InsertSequenceStepDialog.h"
#include "LumideskTestMain.h"
#include "MoveSequenceStepDialog.h"
#include "ShowItemRequests.h"

#include <QComboBox>
#include <QGraphicsSceneDragDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>

Q_DECLARE_METATYPE(FakeEngine::Call)

namespace {
using Calls = QList<FakeEngine::Call>;
constexpr int stackKey = 144; // 12 sequence faders x 12 pages
const Console::Sequence stack;
const Console::Sequence firstSequence(0, 1);

// Fills a list's steps with cue numbers; up time i + 1 seconds tells them
// apart, and their types cycle channel, memory, direct cue, empty.
void fillSteps(PanelConsole& console, Console::Sequence sequence, const QList<int>& cues)
{
    ConsoleCache* cache = console.console->cache();
    for (int i = 0; i < int(cues.size()); ++i) {
        StepRecord* step = cache->step(sequence.page, sequence.fader, i);
        *step = StepRecord{};
        std::tie(step->cueNumber, step->contentIndex, step->contentType, step->upTime) =
            std::tuple(quint16(cues[i]), quint16(i), quint32(i % 4), quint16(10 * (i + 1)));
    }
    if (sequence.isStack())
        console.record()->stackStepCount = quint8(cues.size());
    else
        cache->sequenceRecord(sequence.page, sequence.fader)->stepCount = quint8(cues.size());
}

QList<int> numbers(int first, int count)
{
    QList<int> list;
    for (int i = 0; i < count; ++i)
        list << first + 10 * i;
    return list;
}

// Answers the next popup menu: notes its entries ("-" before a disabled
// one) and picks the entry named, or closes it.
struct PopupAnswerer : QObject
{
    explicit PopupAnswerer(QString pick) : pick(std::move(pick))
    {
        connect(&poll, &QTimer::timeout, this, [this] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            poll.stop();
            QAction* chosen = nullptr;
            for (QAction* action : menu->actions()) {
                entries << (action->isEnabled() ? QString() : QStringLiteral("-")) + action->text();
                chosen = action->text() == this->pick && action->isEnabled() ? action : chosen;
            }
            menu->setActiveAction(chosen);
            chosen ? QTest::keyClick(menu, Qt::Key_Return) : void(menu->close());
        });
        poll.start(5);
    }
    QString pick;
    QStringList entries;
    QTimer poll;
};

void rightClick(QGraphicsScene& scene, QPointF at)
{
    for (auto type : {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease}) {
        QGraphicsSceneMouseEvent event(type);
        event.setScenePos(at);
        event.setButton(Qt::RightButton);
        event.setButtons(type == QEvent::GraphicsSceneMousePress ? Qt::RightButton : Qt::NoButton);
        QCoreApplication::sendEvent(&scene, &event);
    }
}

// Enter, move and drop at a scene point, as a drag over the view delivers them.
bool dragAndDrop(QGraphicsScene& scene, QPointF at, const QString& text)
{
    QMimeData mime;
    mime.setText(text);
    bool accepted = false;
    for (auto type : {QEvent::GraphicsSceneDragEnter, QEvent::GraphicsSceneDragMove,
                      QEvent::GraphicsSceneDrop}) {
        QGraphicsSceneDragDropEvent event(type);
        event.setScenePos(at);
        event.setMimeData(&mime);
        event.setPossibleActions(Qt::MoveAction);
        event.setProposedAction(Qt::MoveAction);
        event.setButtons(type == QEvent::GraphicsSceneDrop ? Qt::NoButton : Qt::LeftButton);
        QCoreApplication::sendEvent(&scene, &event);
        if (type == QEvent::GraphicsSceneDragMove)
            accepted = event.isAccepted();
    }
    return accepted;
}
} // namespace

// Stands in for the main window a double-click asks to show a memory.
class MemoryOpener : public QWidget, public ShowItemRequests
{
public:
    void showMemory(int page, int memory) override
    {
        opened = QStringLiteral("%1/%2").arg(page).arg(memory);
    }
    void showSequence(Console::Sequence) override {}
    QString opened;
};

class TestCuelist : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowsFollowTheLivePosition_data();
    void rowsFollowTheLivePosition();
    void editsReachTheRecordAndTheEngine_data();
    void editsReachTheRecordAndTheEngine();
    void matrixCellsShowTypeAndPosition_data();
    void matrixCellsShowTypeAndPosition();
    void dialogsOfferFreeCueNumbers_data();
    void dialogsOfferFreeCueNumbers();
    void insertedStepGetsItsContentFromTheHook();
    void dropsMoveSteps_data();
    void dropsMoveSteps();
    void crowdedStackWarnsAndKeepsItsSteps_data();
    void crowdedStackWarnsAndKeepsItsSteps();
    void contextMenuKeepsToTheLimits_data();
    void contextMenuKeepsToTheLimits();
    void stepsInsertedThroughTheMenuReachTheEngine();
    void panelRecordsIntoTheSequenceItsFlashKeyPicked();

private:
    std::unique_ptr<PanelConsole> console;
};

void TestCuelist::init()
{
    console.reset();
    console = std::make_unique<PanelConsole>(ConsoleCache::ModelAlder);
}

void TestCuelist::rowsFollowTheLivePosition_data()
{
    addColumns<int, int, int, int, QString>({"rows", "steps", "next", "afterLive", "upTimes"});
    // Each step's up time is its index + 1 seconds; "-" is an empty row.
    QTest::newRow("no playback: LIVE wraps to the last") << 5 << 5 << 0 << 0 << "-|5|1|2|3";
    QTest::newRow("live 2, next 3") << 5 << 5 << 3 << 3 << "2|3|4|5|-";
    QTest::newRow("next chosen apart from live") << 4 << 6 << 4 << 1 << "-|1|5|6";
    QTest::newRow("rows cut the list") << 3 << 8 << 1 << 1 << "-|1|2";
    QTest::newRow("empty list shows no rows") << 4 << 0 << 0 << 0 << "-|-|-|-";
}

void TestCuelist::rowsFollowTheLivePosition()
{
    const auto [rows, steps, next, afterLive, upTimes] =
        fetch<int, int, int, int, QString>({"rows", "steps", "next", "afterLive", "upTimes"});
    fillSteps(*console, stack, numbers(10, steps));
    QGraphicsScene scene;
    auto* list = new Cuelist(&scene, 12, false);
    list->setRowCount(rows); // fewer rows than before, as for the stack after a sequence
    PlaybackRecord& playback = console->record()->playbacks[12];
    playback.nextStep = quint8(next);
    playback.afterLiveStep = quint8(afterLive);
    console->notify(ConsoleCode::StackChanged);
    console->notify(ConsoleCode::PlaybackChanged);
    // Keys outside the console, as a stray signal may carry, change nothing.
    const Console::Sequence stray(12, 0);
    list->setSequence(stray);
    emit console->console->sequenceStepUpdated(stray, 400);
    QCoreApplication::processEvents();
    QStringList shown;
    for (int row = 0; row < rows; ++row) {
        const InPlaceEditableText* up = list->text(Cuelist::UpText, row);
        shown << (up->isVisible() ? up->text() : QStringLiteral("-"));
    }
    QCOMPARE(shown.join(QLatin1Char('|')), upTimes);
    for (int row = rows; row < 12; ++row)
        QVERIFY(!list->text(Cuelist::UpText, row)->isVisible());
}

void TestCuelist::editsReachTheRecordAndTheEngine_data()
{
    // Stack steps 0..2 (channel, memory, direct cue); rows 2.. show them.
    addColumns<int, int, QString, QString, Calls>({"list", "row", "text", "stored", "sent"});
    QTest::newRow("up time") << int(Cuelist::UpText) << 2 << "2.5"
                             << "25|0|0|0|" << Calls{{4, 0, 0, 0}};
    QTest::newRow("wait time in minutes") << int(Cuelist::WaitText) << 3 << "1:05"
                                          << "20|0|650|0|" << Calls{{4, 1, 0, 0}};
    QTest::newRow("direct cue text") << int(Cuelist::ContentText) << 4 << "Storm"
                                     << "30|0|0|0|Storm" << Calls{{4, 2, 0, 0}};
    QTest::newRow("channel content is not editable") << int(Cuelist::ContentText) << 2 << "Lost"
                                                     << "10|0|0|0|" << Calls{};
    QTest::newRow("row without a step") << int(Cuelist::UpText) << 6 << "9"
                                        << "" << Calls{};
    QTest::newRow("dark toggled in the Move column") << -1 << 3 << ""
                                                     << "20|0|0|16|" << Calls{{4, 1, 0, 0}};
}

void TestCuelist::editsReachTheRecordAndTheEngine()
{
    const auto [list, row, text, stored, sent] =
        fetch<int, int, QString, QString, Calls>({"list", "row", "text", "stored", "sent"});
    fillSteps(*console, stack, numbers(10, 3));
    QGraphicsScene scene;
    auto* cuelist = new Cuelist(&scene, 8, true);
    console->engine.clearUpdates();
    if (list < 0)
        SceneMouse{scene}.click(QPointF(460, 16 + 21 * row + 10));
    else
        cuelist->textChanged(cuelist->text(Cuelist::TextList(list), row), text);
    const int step = cuelist->stepOfRow(row);
    const StepRecord* record = console->console->cache()->step(-1, -1, std::max(step, 0));
    const QString now = step < 0
                            ? QString()
                            : QString::asprintf("%d|%d|%d|%d|", record->upTime, record->downTime,
                                                record->waitTime, record->flags) +
                                  console->console->cache()->cueLabel(step, -1);
    QCOMPARE(now, stored);
    QCOMPARE(console->engine.takeUpdates(), sent);
}

void TestCuelist::matrixCellsShowTypeAndPosition_data()
{
    addColumns<int, QColor, QColor, QString>({"cell", "outline", "fill", "opens"});
    // Step 1 (memory 25: page 1, memory 1) is LIVE, step 2 NEXT.
    QTest::newRow("channel") << 0 << QColor() << QColor(0, 255, 0, 64) << "";
    QTest::newRow("LIVE memory") << 1 << QColor(206, 194, 81) << QColor(255, 0, 0, 64) << "1/1";
    QTest::newRow("NEXT direct cue")
        << 2 << QColor(96, 78, 215) << QColor(255, 255, 0, 64) << "-1/2";
    QTest::newRow("empty step") << 3 << QColor() << QColor(Qt::transparent) << "";
    QTest::newRow("place after the last") << 4 << QColor() << QColor(255, 255, 255, 32) << "";
}

void TestCuelist::matrixCellsShowTypeAndPosition()
{
    const auto [cell, outline, fill, opens] =
        fetch<int, QColor, QColor, QString>({"cell", "outline", "fill", "opens"});
    fillSteps(*console, stack, numbers(10, 4));
    console->console->cache()->step(-1, -1, 1)->contentIndex = 25;
    console->record()->playbacks[12].afterLiveStep = 2;
    console->record()->playbacks[12].nextStep = 2;
    QGraphicsScene scene;
    MemoryOpener opener;
    auto* matrix = new Cuematrix(&scene, 2, &opener);
    matrix->setSequence(Console::Sequence(3, -2)); // no such sequence: still the stack
    const QImage image = paintedItem(matrix, matrix->boundingRect().toRect(), Qt::black);
    const QPoint corner = matrix->cellRect(cell).topLeft().toPoint();
    // The background's own tint is under every cell; an outline covers the
    // cell's second pixel column, and nothing reaches its first without one.
    const QRgb ground = image.pixel(3, 50);
    if (outline.isValid())
        QCOMPARE(QColor(image.pixel(corner + QPoint(1, 20))), outline);
    else
        QCOMPARE(QColor(image.pixel(corner + QPoint(0, 20))), QColor(ground));
    QCOMPARE(QColor(image.pixel(corner + QPoint(6, 20))), QColor(over(ground, fill)));
    SceneMouse{scene}.send(QEvent::GraphicsSceneMouseDoubleClick, corner + QPoint(25, 20), {});
    QCOMPARE(opener.opened, opens);
}

void TestCuelist::dialogsOfferFreeCueNumbers_data()
{
    addColumns<bool, QList<int>, int, int, QStringList, Calls>(
        {"onStack", "cues", "source", "position", "offered", "sent"});
    QTest::newRow("insert into an empty sequence: 10")
        << false << QList<int>{} << -1 << 0 << QStringList{} << Calls{{32, 1, 0, 10}};
    QTest::newRow("insert after 12.5: 130")
        << true << QList<int>{125} << -1 << 1 << QStringList{} << Calls{{32, stackKey, 1, 130}};
    QTest::newRow("insert between 3.0 and 3.4")
        << true << QList<int>{30, 34} << -1 << 1 << QStringList{"3.1", "3.2", "3.3"}
        << Calls{{32, stackKey, 1, 31}};
    QTest::newRow("insert before 0.5")
        << true << QList<int>{5} << -1 << 0 << QStringList{"0.1", "0.2", "0.3", "0.4"}
        << Calls{{32, stackKey, 0, 1}};
    QTest::newRow("move down between 3.0 and 3.4")
        << true << QList<int>{10, 30, 34} << 0 << 2 << QStringList{"3.1", "3.2", "3.3"}
        << Calls{{35, stackKey, 0, 1}, {42, stackKey, 1, 31}};
    QTest::newRow("move up between 1.0 and 1.3")
        << true << QList<int>{10, 13, 20} << 2 << 1 << QStringList{"1.1", "1.2"}
        << Calls{{35, stackKey, 2, 1}, {42, stackKey, 1, 11}};
    QTest::newRow("move to the first place moves nothing")
        << true << QList<int>{10, 20} << 1 << 0 << QStringList{} << Calls{};
}

void TestCuelist::dialogsOfferFreeCueNumbers()
{
    const auto [onStack, cues, source, position, offered, sent] =
        fetch<bool, QList<int>, int, int, QStringList, Calls>(
            {"onStack", "cues", "source", "position", "offered", "sent"});
    const Console::Sequence sequence = onStack ? stack : firstSequence;
    fillSteps(*console, sequence, cues);
    std::unique_ptr<QDialog> dialog;
    if (source < 0)
        dialog = std::make_unique<InsertSequenceStepDialog>(nullptr, sequence, position);
    else
        dialog = std::make_unique<MoveSequenceStepDialog>(nullptr, sequence, source, position);
    auto* box = dialog->findChild<QComboBox*>(QStringLiteral("pointCueComboBox"));
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    QCOMPARE(texts, offered);
    if (source < 0) // the insert dialog picks the first: its list stays disabled
        dialog->findChild<QAbstractButton*>(QStringLiteral("directCueRadioButton"))->click();
    console->engine.clearUpdates();
    dialog->findChild<QPushButton*>(source < 0 ? "insertButton" : "moveButton")->click();
    QCOMPARE(console->engine.takeUpdates(), sent);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
}

void TestCuelist::insertedStepGetsItsContentFromTheHook()
{
    QGraphicsScene scene;
    auto* list = new Cuelist(&scene, 4, false);
    list->setSequence(firstSequence);
    console->nameEverything();
    InsertSequenceStepDialog dialog(nullptr, firstSequence, 0);
    dialog.findChild<QComboBox*>(QStringLiteral("memoryComboBox"))->setCurrentIndex(29);
    dialog.findChild<QPushButton*>(QStringLiteral("insertButton"))->click();
    // The engine makes an empty step; its notification lets the hook fill it.
    fillSteps(*console, firstSequence, {10});
    console->console->cache()->step(0, 1, 0)->contentType = 99;
    console->notify(ConsoleCode::SequenceChanged, 0, 1);
    const StepRecord* step = console->console->cache()->step(0, 1, 0);
    QCOMPARE(step->contentType, ConsoleCache::StepMemory);
    QCOMPARE(int(step->contentIndex), 29);
    QCOMPARE(list->text(Cuelist::ContentText, Cuelist::nextRow)->text(), QStringLiteral("M1.5"));
}

void TestCuelist::dropsMoveSteps_data()
{
    addColumns<int, int, QString, bool, Calls>({"from", "boundary", "mime", "accepted", "sent"});
    QTest::newRow("forwards: the target shifts down by one")
        << 1 << 4 << "SequenceStep" << true << Calls{{35, 1, 1, 3}, {42, 1, 3, 0}};
    QTest::newRow("backwards to the first place")
        << 4 << 0 << "SequenceStep" << true << Calls{{35, 1, 4, 0}, {42, 1, 0, 0}};
    QTest::newRow("to the end") << 0 << 5 << "SequenceStep" << true
                                << Calls{{35, 1, 0, 4}, {42, 1, 4, 0}};
    QTest::newRow("next to itself") << 2 << 3 << "SequenceStep" << false << Calls{};
    QTest::newRow("foreign mime data") << 1 << 4 << "sequencestep" << false << Calls{};
}

void TestCuelist::dropsMoveSteps()
{
    const auto [from, boundary, mime, accepted, sent] =
        fetch<int, int, QString, bool, Calls>({"from", "boundary", "mime", "accepted", "sent"});
    fillSteps(*console, firstSequence, numbers(10, 5));
    QGraphicsScene scene;
    auto* matrix = new Cuematrix(&scene, 4, nullptr);
    matrix->setSequence(firstSequence);
    SceneMouse{scene}.click(matrix->cellRect(from).center());
    console->engine.clearUpdates();
    QCOMPARE(dragAndDrop(scene, matrix->cellRect(boundary).topLeft() + QPointF(0, 20), mime),
             accepted);
    QCOMPARE(console->engine.takeUpdates(), sent);
}

void TestCuelist::crowdedStackWarnsAndKeepsItsSteps_data()
{
    addColumns<QList<int>, int, int, QString>({"cues", "from", "at", "warning"});
    QTest::newRow("insert between 1.0 and 1.1")
        << QList<int>{10, 11} << -1 << 1 << "Insert step: No space to insert a cue here";
    QTest::newRow("insert before a first 0.1")
        << QList<int>{1, 10} << -1 << 0 << "Insert step: No space to insert a cue here";
    QTest::newRow("drop between 1.0 and 1.1")
        << QList<int>{10, 11, 20} << 2 << 1 << "Move step: No space to move a cue here";
}

void TestCuelist::crowdedStackWarnsAndKeepsItsSteps()
{
    const auto [cues, from, at, warning] =
        fetch<QList<int>, int, int, QString>({"cues", "from", "at", "warning"});
    fillSteps(*console, stack, cues);
    QGraphicsScene scene;
    auto* matrix = new Cuematrix(&scene, 4, nullptr);
    SceneMouse{scene}.click(matrix->cellRect(std::max(from, 0)).center());
    console->engine.clearUpdates();
    ModalAnswerer answerer({ModalAnswerer::press(QMessageBox::Ok)});
    if (from < 0)
        matrix->insertStep(at, nullptr);
    else
        dragAndDrop(scene, matrix->cellRect(at).topLeft() + QPointF(0, 20), "SequenceStep");
    QCOMPARE(answerer.seen, QStringList{warning});
    QCOMPARE(console->engine.takeUpdates(), Calls{});
}

void TestCuelist::contextMenuKeepsToTheLimits_data()
{
    addColumns<bool, int, int, QStringList>({"onStack", "steps", "cell", "entries"});
    QTest::newRow("sequence with 23 steps")
        << false << 23 << 3 << QStringList{"Insert step", "Delete step"};
    QTest::newRow("sequence with 24 steps")
        << false << 24 << 3 << QStringList{"-Insert step", "Delete step"};
    QTest::newRow("stack with 198 steps")
        << true << 198 << 0 << QStringList{"Insert step", "Delete step"};
    QTest::newRow("stack with 199 steps")
        << true << 199 << 0 << QStringList{"-Insert step", "Delete step"};
    QTest::newRow("place after the last step")
        << false << 2 << 2 << QStringList{"Insert step", "-Delete step"};
    QTest::newRow("empty sequence")
        << false << 0 << 0 << QStringList{"Insert step", "-Delete step"};
}

void TestCuelist::contextMenuKeepsToTheLimits()
{
    const auto [onStack, steps, cell, entries] =
        fetch<bool, int, int, QStringList>({"onStack", "steps", "cell", "entries"});
    const Console::Sequence sequence = onStack ? stack : firstSequence;
    fillSteps(*console, sequence, numbers(10, steps));
    QGraphicsScene scene;
    auto* matrix = new Cuematrix(&scene, 4, nullptr);
    matrix->setSequence(sequence);
    PopupAnswerer popup({});
    rightClick(scene, matrix->cellRect(cell).center());
    QCOMPARE(popup.entries, entries);
}

void TestCuelist::stepsInsertedThroughTheMenuReachTheEngine()
{
    console.reset();
    EngineSession session(QStringLiteral("glowEngine"), 0);
    session.engine()->newShow(); // the last run's show is kept
    ConsoleLink::setConsole(session.console());
    const Console::Sequence sequence(11, 11);
    QVERIFY(session.step());
    QGraphicsScene scene;
    auto* matrix = new Cuematrix(&scene, 4, nullptr);
    matrix->setSequence(sequence);
    const SequenceRecord& record = session.record()->sequences[11 * 12 + 11];
    const QList<int> memories{4, 7, 9};
    for (int memory : memories) {
        PopupAnswerer popup(QStringLiteral("Insert step"));
        ModalAnswerer answerer({[memory](QDialog* dialog) {
            dialog->findChild<QComboBox*>(QStringLiteral("memoryComboBox"))
                ->setCurrentIndex(memory);
            ModalAnswerer::click(QStringLiteral("insertButton"))(dialog);
        }});
        rightClick(scene, matrix->cellRect(matrix->stepCount()).center());
        QVERIFY(session.step());
        QCOMPARE(answerer.seen, QStringList{"Insert sequence step: "});
    }
    QCOMPARE(int(record.stepCount), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(record.steps[i].contentType, ConsoleCache::StepMemory);
        QCOMPARE(int(record.steps[i].contentIndex), memories[i]);
        QCOMPARE(int(record.steps[i].cueNumber), (i + 1) * 10);
    }
    ConsoleLink::setConsole(nullptr);
}

void TestCuelist::panelRecordsIntoTheSequenceItsFlashKeyPicked()
{
    console.reset();
    EngineSession session(QStringLiteral("glowEngine"), 0); // Alder: sequences on faders 13-24
    session.engine()->newShow();
    const SequenceRecord& record = session.record()->sequences[3];
    session.tap(63);   // memories mode
    session.press(74); // "Rec Seq"
    for (int flashKey : {15, 2, 5})
        session.tap(flashKey);
    session.release(74);
    session.tap(6); // plays memory 7, records nothing
    QVERIFY(session.step());
    QCOMPARE(int(record.stepCount), 2);
    QCOMPARE(record.steps[0].contentType, ConsoleCache::StepMemory);
    QCOMPARE(int(record.steps[0].contentIndex), 2);
    QCOMPARE(int(record.steps[1].contentIndex), 5);
    QCOMPARE(int(record.steps[1].cueNumber), 20);
}

LUMIDESK_TEST_MAIN(TestCuelist)

#include "tst_cuelist.moc"
