// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineSession.h"
#include "FakeEngine.h"
#include "LumideskTestMain.h"
#include "console/Console.h"
#include "tests/toolkit/ToolkitFixture.h"
#include "toolkit/ConsoleLink.h"
#include "toolkit/NumberRow.h"
#include "toolkit/ParameterRow.h"
#include "views/DMXView.h"
#include "views/OutputView.h"

#include <QApplication>
#include <QGraphicsSceneContextMenuEvent>

#include <algorithm>
#include <optional>

using Writes = QList<QPair<int, int>>; // (address, level or 1000 + palette)

namespace {

// Device 0: a moving head at 1; device 1: an RGB par at 21; device 2: a dimmer at 31.
const QList<QList<int>> mixedRig = {{1, 48, 2, 49, 5, 12}, {0, 3, 4}, {}};

QString rowName(const CellRow* row)
{
    if (auto* group = dynamic_cast<const OutputView::ParameterGroupRow*>(row))
        return ConsoleCache::parameterGroupName(group->group()).toUpper();
    if (auto* parameters = dynamic_cast<const ParameterRow*>(row))
        return parameters->title();
    return dynamic_cast<const NumberRow*>(row) ? QStringLiteral("#") : QStringLiteral("?");
}

} // namespace

class TestOutputView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void parameterTexts_data();
    void parameterTexts();
    void overrides_data();
    void overrides();
    void shiftSelection_data();
    void shiftSelection();
    void devicePartFollowsPatch();
    void paletteLayout_data();
    void paletteLayout();
    void dmxSlotPixels_data();
    void dmxSlotPixels();
    void overrideReachesEngineOutput();

private:
    void patch(int device, int first, const QList<int>& parameters);
    QPointF centre(int row, int device)
    {
        return view->cellAt(row, device)->sceneBoundingRect().center();
    }
    int rowOf(const QString& name) const;
    Writes drained();

    std::optional<FakeEngine> engine;
    Console* console = nullptr;
    OutputView* view = nullptr;
};

void TestOutputView::init()
{
    engine.emplace(ConsoleCache::ModelMaple);
    console = engine->createConsole();
    ConsoleLink::setConsole(console);
    for (int device = 0; device < mixedRig.size(); ++device)
        patch(device, device * 10 + (device ? 10 : 0), mixedRig[device]);
    view = new OutputView(nullptr, nullptr);
}

void TestOutputView::cleanup()
{
    delete std::exchange(view, nullptr);
    ConsoleLink::setConsole(nullptr);
    delete std::exchange(console, nullptr);
    engine.reset();
}

void TestOutputView::patch(int device, int first, const QList<int>& parameters)
{
    DeviceRecord& record = engine->record()->devices[device];
    record = DeviceRecord{};
    record.firstAddress = quint16(first + 1);
    record.footprint = quint8(parameters.size() + 1);
    for (int slot = 0; slot < parameters.size(); ++slot)
        record.parameterMap[parameters[slot]] = quint8(slot + 1);
}

int TestOutputView::rowOf(const QString& name) const
{
    const QList<CellRow*>& rows = view->cellGrid().begin()->second->table()->rows();
    for (int row = 0; row < rows.size(); ++row)
        if (rowName(rows[row]) == name)
            return row;
    return -1;
}

Writes TestOutputView::drained()
{
    Writes writes;
    for (const DmxWrite& write : engine->drainDmxWrites())
        writes.append({write.address, write.palette ? 1000 + write.palette - 1 : write.level});
    std::sort(writes.begin(), writes.end()); // the selection has no order
    return writes;
}

void TestOutputView::parameterTexts_data()
{
    // palette: dmxPalette byte
    addColumns<int, int, int, int, QString>(
        {"parameter", "output", "palette", "notInverted", "text"});
    QTest::newRow("plain level") << 3 << 128 << 0 << 0 << "50";
    QTest::newRow("from Color palette index 2") << 0 << 40 << 3 << 0 << "C3";
    QTest::newRow("inverted colour mix at 0") << 0 << 0 << 0 << 0x02 << "F";
    QTest::newRow("inversion bit of another parameter") << 4 << 0 << 0 << 0x02 << "0";
    QTest::newRow("parameter the device lacks") << 5 << 0 << 0 << 0 << QString();
}

void TestOutputView::parameterTexts()
{
    auto [parameter, output, palette, notInverted, text] = fetch<int, int, int, int, QString>(
        {"parameter", "output", "palette", "notInverted", "text"});
    ConsoleStateRecord* record = engine->record();
    record->devices[1].colourModel = DeviceRecord::subtractiveModel;
    record->devices[1].notInvertedMask = quint8(notInverted);
    const int address = 20 + std::max(0, int(mixedRig[1].indexOf(parameter)));
    record->dmxOutput[address] = quint8(output);
    record->dmxPalette[address] = quint8(palette);
    const int row = rowOf(DevicePart::parameterName(parameter));
    QVERIFY(row >= 0);
    QCOMPARE(view->cellAt(row, 1)->text(), text);
    QCOMPARE(view->cellAt(row, 1)->text().isNull(), text.isNull());
}

void TestOutputView::overrides_data()
{
    // action: typed text, or a menu command after "menu:"
    addColumns<QString, Writes>({"action", "writes"});
    const Writes pan50 = {{0, 127}, {1, 0}, {40, 127}, {41, 0}};
    QTest::newRow("50 into three Pan cells, one without Pan") << "50" << pan50;
    QTest::newRow("100 into Pan") << "100" << Writes{{0, 255}, {1, 0}, {40, 255}, {41, 0}};
    QTest::newRow("above 100") << "101" << Writes{};
    QTest::newRow("negative") << "-1" << Writes{};
    QTest::newRow("not a number") << "5O" << Writes{};
    QTest::newRow("palette 4") << "menu:SetPalette/3" << Writes{{0, 1003}, {40, 1003}};
    QTest::newRow("palette index not a number") << "menu:SetPalette/x" << Writes{};
    QTest::newRow("palette index out of range") << "menu:SetPalette/24" << Writes{};
    QTest::newRow("palette without index") << "menu:SetPalette" << Writes{};
    QTest::newRow("other command") << "menu:Palette/3" << Writes{};
    QTest::newRow("right click on an unselected cell") << "context" << Writes{};
}

void TestOutputView::overrides()
{
    auto [action, writes] = fetch<QString, Writes>({"action", "writes"});
    patch(4, 40, {1, 48, 2, 49});
    console->patchChanged();
    QCoreApplication::processEvents();
    SceneMouse mouse{*view->deviceView()->scene()};
    const int pan = rowOf(QStringLiteral("Pan"));
    mouse.click(centre(pan, 0));
    mouse.click(centre(pan, 1), Qt::ControlModifier);
    mouse.click(centre(pan, 4), Qt::ControlModifier);
    if (action == QLatin1String("context")) {
        QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
        event.setScenePos(centre(pan, 2));
        QCoreApplication::sendEvent(view->deviceView()->scene(), &event);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
    } else if (action.startsWith(QLatin1String("menu:"))) {
        view->applyMenuCommand(action.mid(5));
    } else {
        view->cellAt(pan, 1)->applyEditText(action);
    }
    QCOMPARE(drained(), writes);
}

void TestOutputView::shiftSelection_data()
{
    // corners: row names: anchor row, clicked row
    // columns: anchor column, clicked column
    addColumns<bool, QStringList, QPoint, int>({"anchorFirst", "corners", "columns", "selected"});
    QTest::newRow("down and right") << true << QStringList{"Pan", "Red/Cyan"} << QPoint(0, 2) << 9;
    QTest::newRow("up and left") << true << QStringList{"Gobo 1", "Blue/Yellow"} << QPoint(1, 0)
                                 << 6;
    QTest::newRow("same cell") << true << QStringList{"Tilt", "Tilt"} << QPoint(3, 3) << 1;
    QTest::newRow("no anchor yet") << false << QStringList{"Pan", "Gobo 1"} << QPoint(0, 5) << 1;
}

void TestOutputView::shiftSelection()
{
    auto [anchorFirst, corners, columns, selected] =
        fetch<bool, QStringList, QPoint, int>({"anchorFirst", "corners", "columns", "selected"});
    SceneMouse mouse{*view->deviceView()->scene()};
    const int from = rowOf(corners[0]), to = rowOf(corners[1]);
    if (anchorFirst)
        mouse.click(centre(from, columns.x()));
    mouse.click(centre(to, columns.y()), Qt::ShiftModifier);
    QCOMPARE(view->deviceView()->scene()->selectedItems().size(), selected);
    QVERIFY(view->cellAt(to, columns.y())->isSelected());
    const QPoint anchor = anchorFirst ? QPoint(from, columns.x()) : QPoint(to, columns.y());
    QCOMPARE(QPoint(view->anchor().first, view->anchor().second), anchor);
}

void TestOutputView::devicePartFollowsPatch()
{
    const auto names = [this] {
        QStringList shown;
        for (const CellRow* row : view->cellGrid().begin()->second->table()->rows())
            shown << rowName(row);
        return shown;
    };
    QCOMPARE(names(), (QStringList{"FOCUS", "", "Pan", "Tilt", "COLOR", "Red/Cyan", "Green/Mag",
                                   "Blue/Yellow", "Color 1", "BEAM", "Gobo 1", "#"}));
    engine->record()->devices[0].firstAddress = 0;
    patch(5, 60, {9});
    console->patchChanged();
    QCoreApplication::processEvents();
    QCOMPARE(names(), (QStringList{"COLOR", "Red/Cyan", "Green/Mag", "Blue/Yellow", "BEAM",
                                   "Shutter", "#"}));
    QCOMPARE(view->cellGrid().size(), size_t(4 * DevicePart::deviceCount));
    QCOMPARE(view->anchor(), std::make_pair(-1, -1));
}

// The palette view's arrangement: numbers on top, every palette group opens
// its block, and group rows without a cell per device.
class PaletteRows : public DevicePart::Factory
{
public:
    explicit PaletteRows(OutputView* view) : view(view) {}
    CellRow* createGroupRow(CellRowTable* table, int group) override
    {
        return new OutputView::ParameterGroupRow(table, group);
    }
    Cell* createMonitorCell(CellRow* row, int device) override
    {
        return new OutputView::PanTiltMonitorCell(row, ConsoleLink::cache(), device);
    }
    ParameterCell* createParameterCell(CellRow* row, int device, int group, int parameter) override
    {
        return new OutputView::ParameterCell(row, view, device, group, parameter);
    }
    OutputView* view;
};

void TestOutputView::paletteLayout_data()
{
    addColumns<QList<QList<int>>, QStringList>({"rig", "rows"});
    QTest::newRow("mixed rig") << mixedRig
                               << QStringList{"#",           "FOCUS",   "",         "Pan",
                                              "Tilt",        "COLOR",   "Red/Cyan", "Green/Mag",
                                              "Blue/Yellow", "Color 1", "BEAM",     "Gobo 1"};
    QTest::newRow("colour only") << QList<QList<int>>{{}, {0, 3, 4}, {}}
                                 << QStringList{"#",         "FOCUS",       "COLOR", "Red/Cyan",
                                                "Green/Mag", "Blue/Yellow", "BEAM"};
}

void TestOutputView::paletteLayout()
{
    auto [rig, rows] = fetch<QList<QList<int>>, QStringList>({"rig", "rows"});
    for (int device = 0; device < rig.size(); ++device)
        patch(device, device * 20, rig[device]);
    QGraphicsScene scene;
    auto* table = new CellRowTable(&scene, false);
    PaletteRows factory(view);
    DevicePart::build(table, *console->cache(), factory, DevicePart::Layout::PaletteGroups);
    QStringList names;
    for (const CellRow* row : table->rows())
        names << rowName(row);
    QCOMPARE(names, rows);
    QCOMPARE(table->rows()[1]->cells().size(), 0);
}

void TestOutputView::dmxSlotPixels_data()
{
    addColumns<int, bool, int>({"value", "text", "barPixels"});
    QTest::newRow("0: number only") << 0 << false << 0;
    QTest::newRow("1: text, bar below a pixel") << 1 << true << 0;
    QTest::newRow("255: F and a full bar") << 255 << true << 20; // 19.4 px over 20 rows
}

void TestOutputView::dmxSlotPixels()
{
    auto [value, text, barPixels] = fetch<int, bool, int>({"value", "text", "barPixels"});
    DMXView dmx(nullptr, nullptr);
    const auto render = [&dmx] {
        QImage image(35, 28, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        const QPointF slot = dmx.block(1)->mapToScene(DMXView::UniverseBlock::slotOrigin(40));
        dmx.scene()->render(&painter, image.rect(), QRectF(slot, QSizeF(35, 28)));
        return image;
    };
    const QImage empty = render();
    engine->record()->dmxOutput[512 + 40] = quint8(value);
    const QImage shown = render();
    int bar = 0, changedBesideBar = 0;
    for (int y = 0; y < 28; ++y)
        for (int x = 0; x < 35; ++x) {
            const bool inBar = x >= 5 && x < 10;
            if (inBar && qGray(shown.pixel(x, y)) > 200 && qGray(empty.pixel(x, y)) < 200 && x == 7)
                ++bar;
            if (!inBar && shown.pixel(x, y) != empty.pixel(x, y))
                ++changedBesideBar;
        }
    QCOMPARE(bar, barPixels);
    QCOMPARE(changedBesideBar > 0, text);
}

void TestOutputView::overrideReachesEngineOutput()
{
    cleanup();
    EngineSession session(QStringLiteral("glowproEngine"), 0);
    ConsoleLink::setConsole(session.console());
    OutputView live(nullptr, nullptr);
    int device = 0;
    while (device < DevicePart::deviceCount &&
           session.cache()->deviceParameterAddress(device, 1) < 0)
        ++device;
    QVERIFY(device < DevicePart::deviceCount);
    const int pan = session.cache()->deviceParameterAddress(device, 1);
    const int panFine = session.cache()->deviceParameterAddress(device, 48);
    int row = 0;
    while (!live.cellAt(row, device) || live.cellAt(row, device)->parameter() != 1)
        ++row;
    live.cellAt(row, device)->setSelected(true);
    live.cellAt(row, device)->applyEditText(QStringLiteral("100"));
    QVERIFY(session.step(25));
    QCOMPARE(int(session.record()->dmxOutput[pan]), 255);
    if (panFine >= 0)
        QCOMPARE(int(session.record()->dmxOutput[panFine]), 0);
    QCOMPARE(live.cellAt(row, device)->text(), QStringLiteral("F"));
    ConsoleLink::setConsole(nullptr);
}

LUMIDESK_TEST_MAIN(TestOutputView)

#include "tst_outputview.moc"
