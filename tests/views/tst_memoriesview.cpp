// SPDX-License-Identifier: GPL-3.0-or-later
// The memories and palettes views on a hand-filled record (menus, headers,
// cell texts, edits reaching the record and the engine) and on the
// simulated console (an edited memory plays back changed).
#include "../toolkit/ToolkitFixture.h"

#include "ConsoleCodes.h"
#include "ConsoleLink.h"
#include "EngineSession.h"
#include "FakeEngine.h"
#include "MemoriesView.h"
#include "MemoriesViewFeature.h"
#include "PaletteMenu.h"
#include "PalettesView.h"
#include "toolkit/InPlaceEditableText.h"

#include <QMenu>
#include <QTest>

#include <memory>

namespace {
using Call = FakeEngine::Call;
constexpr int red = 0, green = 3, pan = 1, panFine = 48, tilt = 2;
constexpr int memoriesKey = 63; // the panel key of the memories mode

// Devices 0 and 1: an RGB par with pan and tilt (slots red, green, pan,
// pan fine, tilt); device 2 unpatched.
void patchDevices(ConsoleStateRecord* record)
{
    for (int d = 0; d < 2; ++d) {
        DeviceRecord& device = record->devices[d];
        device.firstAddress = quint16(1 + d * 8);
        int slot = 1;
        for (int p : {red, green, pan, panFine, tilt})
            device.parameterMap[p] = quint8(slot++);
        device.colourModel = 1;
    }
}

// Every action of a menu and its submenus as "text=data", one per line.
QStringList actions(const QMenu* menu)
{
    QStringList lines;
    for (QAction* action : menu->actions()) {
        if (action->menu())
            lines << action->text() + QStringLiteral(">") << actions(action->menu());
        else
            lines << action->text() + QLatin1Char('=') + action->data().toString();
    }
    return lines;
}

QGraphicsView* viewOf(QWidget* owner, QGraphicsScene* scene)
{
    for (auto* view : owner->findChildren<QGraphicsView*>())
        if (view->scene() == scene)
            return view;
    return qobject_cast<QGraphicsView*>(owner);
}

template <typename Cell> Cell* cellAt(QGraphicsScene* scene, int device, int parameter)
{
    for (QGraphicsItem* item : scene->items()) {
        auto* cell = dynamic_cast<Cell*>(item);
        if (cell && cell->device() == device && cell->parameter() == parameter)
            return cell;
    }
    return nullptr;
}

// Opens the cell's editor with a double click, types the text and commits.
void typeInto(QGraphicsView* view, QGraphicsItem* item, const QString& text)
{
    const QPoint at = view->mapFromScene(item->sceneBoundingRect().topLeft() + QPointF(8, 8));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    auto editors = view->viewport()->findChildren<InPlaceLineEdit*>();
    QVERIFY(!editors.isEmpty());
    if (!text.isNull()) // null: commit what the editor opened with
        editors.last()->setText(text);
    QTest::keyClick(editors.last(), Qt::Key_Return);
}

// Clicks the cells, the first alone and the others with Ctrl.
void select(QGraphicsScene* scene, const QList<QGraphicsItem*>& cells)
{
    SceneMouse mouse{*scene};
    for (int i = 0; i < cells.size(); ++i)
        mouse.click(cells[i]->sceneBoundingRect().topLeft() + QPointF(4, 4),
                    i ? Qt::ControlModifier : Qt::NoModifier);
}
} // namespace

class TestMemoriesView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void memoryMenu_data();
    void memoryMenu();
    void paletteMenu_data();
    void paletteMenu();
    void headersAndTime();
    void parameterTexts_data();
    void parameterTexts();
    void memoryParameterEdits_data();
    void memoryParameterEdits();
    void paletteEdits_data();
    void paletteEdits();
    void setPaletteOnGroupCell();
    void paletteNameKeepsToItsCells();
    void badMenuDataChangesNothing();
    void currentItemsSurviveRebuild();
    void editedMemoryPlaysOnThePanel();

private:
    std::unique_ptr<FakeEngine> engine;
    Console* console = nullptr;
};

void TestMemoriesView::init()
{
    engine = std::make_unique<FakeEngine>(ConsoleCache::ModelMaple);
    patchDevices(engine->record());
    console = engine->createConsole();
    ConsoleLink::setConsole(console);
}

void TestMemoriesView::cleanup()
{
    ConsoleLink::setConsole(nullptr);
    delete console;
    console = nullptr;
    engine.reset();
}

void TestMemoriesView::memoryMenu_data()
{
    addColumns<int, int, QString, int, int, bool, QString, QString>(
        {"page", "index", "name", "recorded", "mask", "effect", "pageLine", "memoryLine"});
    QTest::newRow("unused memory is empty") << 0 << 4 << "" << 0 << 0 << false << "Page 01>"
                                            << "Memory 05 (empty)=Memory/0/4";
    QTest::newRow("named page and memory with levels")
        << 1 << 0 << "Warm" << 1 << 0x01 << false << "Page 02, Stage>"
        << "Memory 01, Warm I=Memory/1/0";
    QTest::newRow("every group and an effect") << 11 << 23 << "" << 1 << 0x0F << true << "Page 12>"
                                               << "Memory 24 IFCB Fx=Memory/11/23";
    QTest::newRow("clear used flag hides the content")
        << 2 << 2 << "Old" << 0 << 0x0F << false << "Page 03>"
        << "Memory 03, Old (empty)=Memory/2/2";
}

void TestMemoriesView::memoryMenu()
{
    const auto [page, index, name, recorded, mask, effect, pageLine, memoryLine] =
        fetch<int, int, QString, int, int, bool, QString, QString>(
            {"page", "index", "name", "recorded", "mask", "effect", "pageLine", "memoryLine"});
    ConsoleCache* cache = console->cache();
    MemoryRecord& memory = engine->record()->memories[page * 48 + index];
    ConsoleCache::writeText(memory.name, ConsoleCache::wholeBlock, name);
    ConsoleCache::writeText(engine->record()->pageNames[1], ConsoleCache::wholeBlock, "Stage");
    memory.recorded = quint8(recorded);
    memory.content.contentMask = quint8(mask);
    memory.hasEffect = effect;
    MemoriesView view(nullptr, console, nullptr);
    std::unique_ptr<QMenu> menu(view.createMemoryMenu(nullptr));
    const QStringList lines = actions(menu.get());
    QCOMPARE(lines.size(), 12 * (1 + cache->faderCount()));
    const int pageAt = page * (1 + cache->faderCount());
    QCOMPARE(lines[pageAt], pageLine);
    QCOMPARE(lines[pageAt + 1 + index], memoryLine);
}

void TestMemoriesView::paletteMenu_data()
{
    addColumns<int, QString, QString, int, QString>({"palette", "focus", "color", "flags", "line"});
    QTest::newRow("names joined and letters")
        << 6 << "Stage"
        << "Red" << 0x06 << "Palette 07, Stage / Red FC=Palette/6";
    QTest::newRow("no names and no content") << 0 << ""
                                             << "" << 0 << "Palette 01=Palette/0";
    QTest::newRow("letters without names") << 23 << ""
                                           << "" << 0x09 << "Palette 24 IB=Palette/23";
}

void TestMemoriesView::paletteMenu()
{
    const auto [palette, focus, color, flags, line] =
        fetch<int, QString, QString, int, QString>({"palette", "focus", "color", "flags", "line"});
    PaletteRecord& record = engine->record()->palettes[palette];
    ConsoleCache::writeText(record.names[0], ConsoleCache::wholeBlock, focus, 6);
    ConsoleCache::writeText(record.names[1], ConsoleCache::wholeBlock, color, 6);
    record.flags = quint8(flags);
    PalettesView view(nullptr, console, nullptr);
    std::unique_ptr<QMenu> menu(view.createPaletteMenu(nullptr));
    const QStringList lines = actions(menu.get());
    QCOMPARE(lines.size(), 24);
    QCOMPARE(lines[palette], line);
}

void TestMemoriesView::headersAndTime()
{
    ConsoleStateRecord* record = engine->record();
    ConsoleCache::writeText(record->memories[4].name, ConsoleCache::wholeBlock, "Warm");
    record->memories[4].time = 25;
    MemoriesView memories(nullptr, console, nullptr);
    PalettesView palettes(nullptr, console, nullptr);
    memories.showMemory(0, 4);
    palettes.menuItemPicked("Palette/6");
    QWidget strip;
    auto* feature = static_cast<MemoriesViewFeature*>(
        memories.createFeatureWidget(&strip, QRect(0, 0, 600, 25)));
    palettes.createFeatureWidget(&strip, QRect(0, 0, 300, 25));
    QCOMPARE(feature->label()->text(),
             QString("Memory - <a href=\"link\"><font color=\"white\">01/05 Warm</font></a>"));
    QCOMPARE(palettes.headerText(),
             QString("Palette - <a href=\"link\"><font color=\"white\">07</font></a>"));
    QCOMPARE(feature->timeItem()->text(), QString("2.5"));
    engine->clearUpdates();
    feature->handleTextChanged(feature->timeItem(), "1:30");
    QCOMPARE(record->memories[4].time, quint16(900));
    QCOMPARE(engine->takeUpdates(), (QList<Call>{Call{ConsoleCode::MemoryChanged, 0, 4, 0}}));
}

void TestMemoriesView::parameterTexts_data()
{
    addColumns<int, int, int, int, int, QString>(
        {"parameter", "flags", "value", "mask", "notInverted", "text"});
    QTest::newRow("level at full") << green << 0x80 << 255 << 0x04 << 0 << "F";
    QTest::newRow("palette reference as short form") << green << 0xC0 << 2 << 0x04 << 0 << "C3";
    QTest::newRow("focus palette reference") << pan << 0xC0 << 0 << 0x02 << 0 << "F1";
    QTest::newRow("inverted colour mix at zero reads full")
        << red << 0x80 << 0 << 0x04 << 0x02 << "F";
    QTest::newRow("group without data is empty") << green << 0x80 << 255 << 0x02 << 0 << "";
    QTest::newRow("cleared parameter is empty") << green << 0x00 << 255 << 0x04 << 0 << "";
}

void TestMemoriesView::parameterTexts()
{
    const auto [parameter, flags, value, mask, notInverted, text] =
        fetch<int, int, int, int, int, QString>(
            {"parameter", "flags", "value", "mask", "notInverted", "text"});
    ConsoleStateRecord* record = engine->record();
    record->devices[1].colourModel = DeviceRecord::subtractiveModel;
    record->devices[1].notInvertedMask = quint8(notInverted);
    ContentRecord& content = record->memories[0].content;
    content.contentMask = quint8(mask);
    content.parameters[50 + parameter] = {quint8(flags), quint8(value)};
    MemoriesView view(nullptr, console, nullptr);
    QCOMPARE(cellAt<MemoriesView::ParameterCell>(view.deviceScene(), 1, parameter)->text(), text);
    QVERIFY(cellAt<MemoriesView::ParameterCell>(view.deviceScene(), 2, parameter)->text().isNull());
}

void TestMemoriesView::memoryParameterEdits_data()
{
    addColumns<int, int, int, QString, int, int, bool>(
        {"parameter", "preset", "devices", "typed", "flags", "value", "sent"});
    QTest::newRow("one cell at 50") << green << 0x81 << 1 << "50" << 0x81 << 127 << true;
    QTest::newRow("two pan cells at full") << pan << 0x81 << 2 << "100" << 0x81 << 255 << true;
    QTest::newRow("empty text clears both") << green << 0x81 << 2 << "" << 0x01 << 7 << true;
    QTest::newRow("above 100 stores nothing") << green << 0x81 << 2 << "101" << 0x81 << 7 << false;
    QTest::newRow("not a number stores nothing")
        << green << 0x81 << 1 << "5x" << 0x81 << 7 << false;
    QTest::newRow("palette reference left unchanged stays")
        << green << 0xC1 << 1 << QString() << 0xC1 << 7 << false;
}

void TestMemoriesView::memoryParameterEdits()
{
    const auto [parameter, preset, devices, typed, flags, value, sent] =
        fetch<int, int, int, QString, int, int, bool>(
            {"parameter", "preset", "devices", "typed", "flags", "value", "sent"});
    ContentRecord& content = engine->record()->memories[48 + 3].content; // page 2, memory 4
    for (int d = 0; d < 2; ++d)
        for (int p : {parameter, panFine})
            content.parameters[d * 50 + p] = {quint8(preset), 7};
    MemoriesView view(nullptr, console, nullptr);
    view.resize(1200, 800);
    view.show();
    view.selectMemory(1, 3);
    QList<QGraphicsItem*> cells;
    for (int d = 0; d < devices; ++d)
        cells << cellAt<MemoriesView::ParameterCell>(view.deviceScene(), d, parameter);
    select(view.deviceScene(), cells);
    engine->clearUpdates();
    typeInto(viewOf(&view, view.deviceScene()), cells.last(), typed);
    for (int d = 0; d < devices; ++d) {
        const ParameterEntry entry = content.parameters[d * 50 + parameter];
        QCOMPARE(int(entry.flags), flags);
        QCOMPARE(int(entry.value), value);
        if (parameter == pan) // the fine part follows a coarse level at 0
            QCOMPARE(int(content.parameters[d * 50 + panFine].value), 0);
    }
    QCOMPARE(engine->takeUpdates(),
             (sent ? QList<Call>{Call{ConsoleCode::MemoryChanged, 1, 3, 0}} : QList<Call>{}));
}

void TestMemoriesView::paletteEdits_data()
{
    addColumns<int, QString, bool, int, QString>({"devices", "typed", "included", "value", "text"});
    QTest::newRow("one cell at 50") << 1 << "50" << true << 127 << "50";
    QTest::newRow("two cells at 100") << 2 << "100" << true << 255 << "F";
    QTest::newRow("empty text clears both") << 2 << "" << false << 9 << "";
    QTest::newRow("above 100 ignored") << 2 << "250" << true << 9 << "4";
}

void TestMemoriesView::paletteEdits()
{
    const auto [devices, typed, included, value, text] =
        fetch<int, QString, bool, int, QString>({"devices", "typed", "included", "value", "text"});
    PaletteRecord& palette = engine->record()->palettes[5];
    for (int d = 0; d < 2; ++d) {
        palette.values[d][green] = 9;
        palette.include[d][0] |= 1 << green;
    }
    PalettesView view(nullptr, console, nullptr);
    view.resize(1200, 800);
    view.show();
    view.selectPalette(5);
    QList<QGraphicsItem*> cells;
    for (int d = 0; d < devices; ++d)
        cells << cellAt<PalettesView::ParameterCell>(view.scene(), d, green);
    select(view.scene(), cells);
    typeInto(&view, cells.last(), typed);
    for (int d = 0; d < devices; ++d) {
        QCOMPARE(bool(palette.include[d][0] & (1 << green)), included);
        QCOMPARE(int(palette.values[d][green]), value);
        QCOMPARE(static_cast<PalettesView::ParameterCell*>(cells[d])->text(), text);
    }
}

void TestMemoriesView::setPaletteOnGroupCell()
{
    engine->record()->palettes[2].flags = 0x04;
    ContentRecord& content = engine->record()->memories[0].content;
    content.contentMask = 0x05;
    MemoriesView view(nullptr, console, nullptr);
    MemoriesView::ParameterGroupCell* colourCell = nullptr;
    for (QGraphicsItem* item : view.deviceScene()->items()) {
        auto* cell = dynamic_cast<MemoriesView::ParameterGroupCell*>(item);
        if (cell && cell->device() == 1 && cell->group() == 1)
            colourCell = cell;
    }
    select(view.deviceScene(), {colourCell});
    std::unique_ptr<QMenu> menu(PaletteMenu::create(*console->cache(), 1, nullptr));
    QCOMPARE(actions(menu.get()), QStringList({"Set palette>", "C3 =SetPalette/2"}));
    view.menuItemPicked("SetPalette/2");
    for (int p : {red, green})
        QCOMPARE(int(content.parameters[50 + p].flags) << 8 | content.parameters[50 + p].value,
                 0xC0 << 8 | 2);
    QCOMPARE(int(content.parameters[50 + pan].flags), 0);
    QCOMPARE(colourCell->commonPalette(), 2);
    QCOMPARE(cellAt<MemoriesView::ParameterCell>(view.deviceScene(), 1, green)->text(), "C3");
}

void TestMemoriesView::paletteNameKeepsToItsCells()
{
    PaletteRecord& palette = engine->record()->palettes[0];
    const QByteArray before(reinterpret_cast<const char*>(&palette), sizeof palette);
    PalettesView view(nullptr, console, nullptr);
    PalettesView::ParameterGroupRow* colourRow = view.groupRows().at(1);
    QCOMPARE(colourRow->title(), QString("COLOR PALETTE 1"));
    colourRow->textChanged(colourRow->nameItem(), "Deep Congo Blue With Extra Words");
    const QByteArray after(reinterpret_cast<const char*>(&palette), sizeof palette);
    const int start = int(offsetof(PaletteRecord, names)) + int(sizeof(TextBlock));
    QCOMPARE(after.left(start), before.left(start));
    QCOMPARE(after.mid(start + int(sizeof(TextBlock))), before.mid(start + int(sizeof(TextBlock))));
    QCOMPARE(console->cache()->paletteName(0, 1, ConsoleCache::wholeBlock),
             QString("Deep Congo Blue Wi"));
    QCOMPARE(colourRow->nameItem()->text(), QString("Deep Congo Blue Wi"));
}

void TestMemoriesView::badMenuDataChangesNothing()
{
    MemoriesView memories(nullptr, console, nullptr);
    PalettesView palettes(nullptr, console, nullptr);
    memories.selectMemory(3, 7);
    palettes.selectPalette(4);
    engine->clearUpdates();
    for (const char* data :
         {"Memory/0", "Memory/x/1", "Memory/12/0", "Memory/0/24", "Memory/-1/0/", "Palette/24",
          "Palette/-1", "Palette/two", "SetPalette/99", "Palettes/1"}) {
        memories.menuItemPicked(data);
        palettes.menuItemPicked(data);
    }
    QCOMPARE(memories.currentMemory(), Console::Memory(3, 7));
    QCOMPARE(palettes.currentPalette(), 4);
    QCOMPARE(engine->takeUpdates(), QList<Call>{});
}

void TestMemoriesView::currentItemsSurviveRebuild()
{
    MemoriesView memories(nullptr, console, nullptr);
    PalettesView palettes(nullptr, console, nullptr);
    memories.menuItemPicked("Memory/3/7");
    palettes.menuItemPicked("Palette/5");
    engine->record()->devices[1].firstAddress = 0;
    engine->record()->devices[1].parameterMap[green] = 0;
    engine->notify(ConsoleCode::System, SystemCode::BulkBegin);
    engine->notify(ConsoleCode::System, SystemCode::BulkEnd);
    console->patchChanged();
    QCoreApplication::processEvents();
    QCOMPARE(memories.currentMemory(), Console::Memory(3, 7));
    QCOMPARE(palettes.currentPalette(), 5);
    QCOMPARE(palettes.groupRows().at(2)->title(), QString("BEAM PALETTE 6"));
    QVERIFY(cellAt<MemoriesView::ParameterCell>(memories.deviceScene(), 0, green));
    QVERIFY(cellAt<MemoriesView::ParameterCell>(memories.deviceScene(), 1, green)->text().isNull());
}

void TestMemoriesView::editedMemoryPlaysOnThePanel()
{
    cleanup();
    EngineSession session(QStringLiteral("glowproEngine"), ConsoleCache::ModelMaple);
    Console* live = session.console();
    ConsoleLink::setConsole(live);
    live->sendUpdate(ConsoleCode::System, 11); // memories erased
    QVERIFY(session.step());
    MemoriesView memories(nullptr, live, nullptr);
    PalettesView palettes(nullptr, live, nullptr);
    memories.resize(1200, 900);
    palettes.resize(1200, 900);
    memories.show();
    palettes.show();
    std::unique_ptr<QMenu> menu(memories.createMemoryMenu(nullptr));
    QCOMPARE(actions(menu.get()).at(1), QString("Memory 01 (empty)=Memory/0/0"));

    // Palette 4 brings red at full for device 1; memory 1/1 refers to it.
    auto* paletteRed = cellAt<PalettesView::ParameterCell>(palettes.scene(), 0, red);
    QVERIFY(paletteRed);
    palettes.selectPalette(3);
    select(palettes.scene(), {paletteRed});
    typeInto(&palettes, paletteRed, "100");
    QVERIFY(session.step());
    MemoriesView::ChannelCell* channel = nullptr;
    for (QGraphicsItem* item : memories.channelScene()->items())
        if (auto* cell = dynamic_cast<MemoriesView::ChannelCell*>(item); cell && !cell->channel())
            channel = cell;
    typeInto(viewOf(&memories, memories.channelScene()), channel, "50");
    QVERIFY(session.step()); // the engine has read the memory before it is written again
    auto* memoryRed = cellAt<MemoriesView::ParameterCell>(memories.deviceScene(), 0, red);
    select(memories.deviceScene(), {memoryRed});
    memories.menuItemPicked("SetPalette/3");
    QVERIFY(session.step());
    menu.reset(memories.createMemoryMenu(nullptr));
    QCOMPARE(actions(menu.get()).at(1), QString("Memory 01 IC=Memory/0/0"));
    QCOMPARE(memoryRed->text(), QString("C4"));

    session.tap(memoriesKey);
    session.moveFader(48, 255); // grand master
    session.moveFader(0, 255);
    QVERIFY(session.step(100));
    QCOMPARE(int(session.record()->channelLevels[0]), 127);
    const int address = live->cache()->deviceParameterAddress(0, red);
    QCOMPARE(int(session.record()->dmxOutput[address]), 255);
    ConsoleLink::setConsole(nullptr);
}

QTEST_MAIN(TestMemoriesView)
#include "tst_memoriesview.moc"
