// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineSession.h"
#include "FakeEngine.h"
#include "LumideskTestMain.h"
#include "app/Lumidesk.h"
#include "console/ConsoleCodes.h"
#include "tests/toolkit/ToolkitFixture.h"
#include "toolkit/InPlaceEditableText.h"
#include "views/EffectsView.h"
#include "views/GroupsView.h"

#include <QMenu>

#include <memory>

namespace {

using ParameterCell = EffectsView::EffectParameterCell;

// Pixels clearly brighter than the cells' dark frame: pictures and arrows.
int brightPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            count += std::max({qRed(p), qGreen(p), qBlue(p)}) > 180;
        }
    return count;
}

QList<int> members(const GroupRecord& group)
{
    QList<int> list;
    for (int i = 0; i < group.memberCount; ++i)
        list << group.members[i];
    return list;
}

} // namespace

class TestEffectsView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void valueEntry_data();
    void valueEntry();
    void menusStoreTheChoice_data();
    void menusStoreTheChoice();
    void namesAreStoredCut_data();
    void namesAreStoredCut();
    void doubleClicksKeepInsertionOrder_data();
    void doubleClicksKeepInsertionOrder();
    void effectsDriveTheOutput_data();
    void effectsDriveTheOutput();
    void selectKeysGiveAndRecordEffects();

private:
    ParameterCell* cell(int effect, int kind) const
    {
        for (ParameterCell* c : effects->parameterCells())
            if (c->effect() == effect && c->kind() == kind)
                return c;
        return nullptr;
    }
    QList<FakeEngine::Call> takeReports(int code)
    {
        QList<FakeEngine::Call> reports;
        for (const FakeEngine::Call& call : engine->takeUpdates())
            if (call.code == code)
                reports << call;
        return reports;
    }

    std::unique_ptr<FakeEngine> engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<EffectsView> effects;
    std::unique_ptr<GroupsView> groups;
};

void TestEffectsView::init()
{
    engine = std::make_unique<FakeEngine>(ConsoleCache::ModelMaple);
    console.reset(engine->createConsole());
    Lumidesk::instance()->setConsole(console.get());
    effects = std::make_unique<EffectsView>(nullptr, nullptr);
    groups = std::make_unique<GroupsView>(nullptr, nullptr);
    engine->clearUpdates();
}

void TestEffectsView::cleanup()
{
    groups.reset();
    effects.reset();
    Lumidesk::instance()->setConsole(nullptr);
    console.reset();
    engine.reset();
}

void TestEffectsView::valueEntry_data()
{
    addColumns<int, int, int, QString, int, QString>(
        {"effect", "kind", "before", "typed", "stored", "shown"});

    QTest::newRow("speed 100 stores full") << 0 << 1 << 0 << "100" << 255 << "100";
    QTest::newRow("speed 101 is dropped") << 0 << 1 << 77 << "101" << 77 << "30";
    QTest::newRow("depth 50 rounds its half down") << 3 << 2 << 0 << "50" << 127 << "50";
    QTest::newRow("chroma 100 stores 511") << 26 << 2 << 256 << "100" << 511 << "100";
    QTest::newRow("chroma 0 stores 256") << 26 << 2 << 511 << "0" << 256 << "0";
    QTest::newRow("chroma 101 is dropped") << 26 << 2 << 300 << "101" << 300 << "17";
    QTest::newRow("rotation takes 359") << 14 << 4 << 0 << "359" << 359 << "359";
    QTest::newRow("rotation drops 360") << 14 << 4 << 90 << "360" << 90 << "90";
    QTest::newRow("no number counts as 0") << 5 << 3 << 200 << "abc" << 0 << "0";
    QTest::newRow("negative is dropped") << 7 << 5 << 51 << "-5" << 51 << "20";
    QTest::newRow("range at 1 percent") << 34 << 6 << 0 << " 1 " << 3 << "1";
}

void TestEffectsView::valueEntry()
{
    auto [effect, kind, before, typed, stored, shown] = fetch<int, int, int, QString, int, QString>(
        {"effect", "kind", "before", "typed", "stored", "shown"});
    EffectRecord& record = engine->record()->effects[effect];
    *EffectsView::field(record, kind) = quint16(before);
    effects->consoleCacheEffectUpdated();
    ParameterCell* target = cell(effect, kind);
    QVERIFY(target && target->valueItem());

    target->valueItem()->textCommitted(nullptr, typed);

    QCOMPARE(int(*EffectsView::field(record, kind)), stored);
    QCOMPARE(target->valueItem()->text(), shown);
    QCOMPARE(takeReports(ConsoleCode::EffectsChanged).size(), stored != before ? 1 : 0);
}

void TestEffectsView::menusStoreTheChoice_data()
{
    // choice: menu entry, -1 closes the menu
    addColumns<int, int, int, int, bool>({"effect", "kind", "choice", "stored", "picture"});

    QTest::newRow("shape pattern Square") << 2 << 0 << 1 << 1 << true;
    QTest::newRow("linear pattern Saw") << 12 << 0 << 8 << 8 << true;
    QTest::newRow("last entry No stores none") << 30 << 0 << 11 << 255 << false;
    QTest::newRow("style Bounce") << 4 << 7 << 2 << 2 << true;
    QTest::newRow("closed menu keeps the pattern") << 6 << 0 << -1 << 0 << true;
}

void TestEffectsView::menusStoreTheChoice()
{
    auto [effect, kind, choice, stored, picture] =
        fetch<int, int, int, int, bool>({"effect", "kind", "choice", "stored", "picture"});
    ParameterCell* target = cell(effect, kind);
    SceneMouse mouse{*effects->graphicsScene()};
    mouse.press(target->sceneBoundingRect().center());
    QMenu* menu = effects->findChild<QMenu*>();
    QVERIFY(menu && menu->isVisible());
    QCOMPARE(menu->actions().size(), kind == 0 ? 12 : 3);

    if (choice < 0)
        QTest::keyClick(menu, Qt::Key_Escape);
    else
        menu->actions().at(choice)->trigger();

    const EffectRecord& record = engine->record()->effects[effect];
    QCOMPARE(kind == 0 ? int(record.pattern) : int(record.direction), stored);
    QCOMPARE(takeReports(ConsoleCode::EffectsChanged).size(), choice < 0 ? 0 : 1);
    QCOMPARE(brightPixels(renderItem(*target)) > 20, picture);
}

void TestEffectsView::namesAreStoredCut_data()
{
    // owner: 0 effect, 1 group, 2 device
    addColumns<int, int, int, QString, QString, int, int>(
        {"owner", "index", "line", "typed", "stored", "code", "reported"});

    QTest::newRow("effect line cut at seven") << 0 << 25 << 1 << "Sparkling"
                                              << "Sparkli" << ConsoleCode::EffectsChanged << 25;
    QTest::newRow("group name line") << 1 << 3 << 0 << "Movers"
                                     << "Movers" << ConsoleCode::GroupChanged << 3;
    QTest::newRow("device name into its channel legend")
        << 2 << 2 << 2 << "SpotLeftX"
        << "SpotLef" << ConsoleCode::ChannelTextChanged << 50;
}

void TestEffectsView::namesAreStoredCut()
{
    auto [owner, index, line, typed, stored, code, reported] =
        fetch<int, int, int, QString, QString, int, int>(
            {"owner", "index", "line", "typed", "stored", "code", "reported"});
    ConsoleCache* cache = console->cache();
    const auto read = [&](int l) {
        return owner == 0   ? cache->effectName(index, l)
               : owner == 1 ? cache->groupName(index, l)
                            : cache->channelLegend(48 + index, l);
    };
    const int neighbour = (line + 1) % 3;
    (owner == 0   ? effects->nameCells()[index - 2]->line(neighbour)
     : owner == 1 ? groups->groupRows()[index]->line(neighbour)
                  : groups->deviceNameCells()[index]->line(neighbour))
        ->textCommitted(nullptr, QStringLiteral("Keep"));
    InPlaceEditableText* item = owner == 0   ? effects->nameCells()[index - 2]->line(line)
                                : owner == 1 ? groups->groupRows()[index]->line(line)
                                             : groups->deviceNameCells()[index]->line(line);
    engine->clearUpdates();

    item->textCommitted(nullptr, typed);

    QCOMPARE(read(line), stored);
    QCOMPARE(read(neighbour), QStringLiteral("Keep"));
    const QList<FakeEngine::Call> reports = takeReports(code);
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.first().a, reported);
}

void TestEffectsView::doubleClicksKeepInsertionOrder_data()
{
    // clicked: devices, in order
    addColumns<QList<int>, bool, QList<int>>({"clicked", "single", "expected"});

    QTest::newRow("added 3 1 2 stay unsorted")
        << QList<int>{2, 0, 1} << false << QList<int>{2, 0, 1};
    QTest::newRow("member removed, later ones move up")
        << QList<int>{2, 0, 1, 2} << false << QList<int>{0, 1};
    QTest::newRow("removed and added again goes last")
        << QList<int>{2, 0, 1, 0, 0} << false << QList<int>{2, 1, 0};
    QTest::newRow("single clicks change nothing") << QList<int>{4, 5} << true << QList<int>{};
}

void TestEffectsView::doubleClicksKeepInsertionOrder()
{
    auto [clicked, single, expected] =
        fetch<QList<int>, bool, QList<int>>({"clicked", "single", "expected"});
    constexpr int group = 5;
    groups->resize(1300, 1100);
    groups->show();
    QVERIFY(QTest::qWaitForWindowExposed(groups.get()));
    for (int device : clicked) {
        const QPoint at =
            groups->mapFromScene(groups->groupCell(group, device)->sceneBoundingRect().center());
        QTest::mouseClick(groups->viewport(), Qt::LeftButton, {}, at);
        if (!single) {
            QTest::mouseDClick(groups->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseRelease(groups->viewport(), Qt::LeftButton, {}, at);
        }
    }

    QCOMPARE(members(engine->record()->groups[group]), expected);
    QCOMPARE(takeReports(ConsoleCode::GroupChanged).size(), single ? 0 : clicked.size());
    // A member's cell shows a white frame at alpha 90; the others stay empty.
    for (int device = 0; device < 6; ++device) {
        const QImage painted = renderItem(*groups->groupCell(group, device));
        QCOMPARE(qRed(painted.pixel(painted.rect().center())) > 40, expected.contains(device));
    }
}

// The simulated console: a memory holding one effect on one device, played
// on memory fader 6 of page 1. Device 4 is a 16-bit spot (pan at its first
// slot), device 0 an RGBW par (intensity, red, green, blue).
void TestEffectsView::effectsDriveTheOutput_data()
{
    // values: pattern speed depth aspect rotation base range dir
    // footprint: of the device's footprint
    addColumns<int, QList<int>, int, bool, QList<int>, QList<int>>(
        {"effect", "values", "ms", "released", "footprint", "levels"});

    const QList<int> panTilt{0, 2};
    const QList<int> rgb{1, 2, 3};
    QTest::newRow("circle a quarter turn") << 0 << QList<int>{0, 64, 100, 0, 0, 0, 0, 0} << 250
                                           << false << panTilt << QList<int>{128, 178};
    QTest::newRow("circle half turn") << 0 << QList<int>{0, 64, 100, 0, 0, 0, 0, 0} << 500 << false
                                      << panTilt << QList<int>{78, 128};
    QTest::newRow("double speed half turn") << 0 << QList<int>{0, 128, 100, 0, 0, 0, 0, 0} << 250
                                            << false << panTilt << QList<int>{78, 128};
    QTest::newRow("circle backward") << 0 << QList<int>{0, 64, 100, 0, 0, 0, 0, 1} << 250 << false
                                     << panTilt << QList<int>{128, 78};
    QTest::newRow("circle bounce on its way back")
        << 0 << QList<int>{0, 64, 100, 0, 0, 0, 0, 2} << 1250 << false << panTilt
        << QList<int>{128, 78};
    QTest::newRow("circle turned 90 degrees") << 0 << QList<int>{0, 64, 100, 0, 90, 0, 0, 0} << 250
                                              << false << panTilt << QList<int>{78, 128};
    QTest::newRow("released circle goes home") << 0 << QList<int>{0, 64, 100, 0, 0, 0, 0, 0} << 250
                                               << true << panTilt << QList<int>{128, 128};
    QTest::newRow("strobe on in its duty") << 13 << QList<int>{1, 64, 0, 64, 0, 0, 255, 0} << 200
                                           << false << QList<int>{0} << QList<int>{255};
    QTest::newRow("strobe off after its duty") << 13 << QList<int>{1, 64, 0, 64, 0, 0, 255, 0}
                                               << 300 << false << QList<int>{0} << QList<int>{0};
    QTest::newRow("strobe off keeps the base") << 13 << QList<int>{1, 64, 0, 64, 0, 51, 204, 0}
                                               << 500 << false << QList<int>{0} << QList<int>{51};
    QTest::newRow("saw backward") << 20 << QList<int>{8, 64, 0, 0, 0, 0, 255, 1} << 250 << false
                                  << QList<int>{0} << QList<int>{191};
    QTest::newRow("primary starts red") << 34 << QList<int>{10, 64, 511, 0, 0, 0, 255, 0} << 100
                                        << false << rgb << QList<int>{255, 0, 0};
    QTest::newRow("primary then green") << 34 << QList<int>{10, 64, 511, 0, 0, 0, 255, 0} << 500
                                        << false << rgb << QList<int>{0, 255, 0};
    QTest::newRow("half chroma mixes in white") << 34 << QList<int>{10, 64, 384, 0, 0, 0, 255, 0}
                                                << 100 << false << rgb << QList<int>{255, 127, 127};
}

void TestEffectsView::effectsDriveTheOutput()
{
    auto [effect, values, ms, released, footprint, levels] =
        fetch<int, QList<int>, int, bool, QList<int>, QList<int>>(
            {"effect", "values", "ms", "released", "footprint", "levels"});
    cleanup();
    EngineSession s(QStringLiteral("glowproEngine"), 0);
    Lumidesk::instance()->setConsole(s.console());
    constexpr int fader = 5;
    const int device = effect < 12 ? 4 : 0;
    ConsoleStateRecord* r = s.record();
    EffectRecord& fx = r->effects[effect];
    fx.pattern = quint8(values[0]);
    quint16* fields[] = {&fx.speed, &fx.depth, &fx.aspect,   &fx.rotation,
                         &fx.base,  &fx.range, &fx.direction};
    for (int i = 0; i < 7; ++i)
        *fields[i] = quint16(values[i + 1]);
    MemoryRecord& memory = r->memories[fader];
    std::memset(static_cast<void*>(&memory.content), 0, sizeof memory.content);
    for (int parameter : {1, 2, 48, 49}) // pan and tilt half way, fine included
        memory.content.parameters[device * 50 + parameter] = {ParameterEntry::setBit, 128};
    memory.content.channelLevels[48 + device] = 255;
    memory.content.reserved[effect / 12 * 24 + device] = quint8(effect + 1);
    memory.recorded = 1;
    memory.hasEffect = 1;
    s.console()->memoryChanged({0, fader});
    s.console()->effectsChanged();
    s.tap(63); // memories mode
    s.moveFader(fader, 255);
    QVERIFY(s.step(ms));
    if (released) {
        s.moveFader(fader, 0);
        QVERIFY(s.step(25));
    }

    const int first = s.cache()->deviceFirstAddress(device);
    QList<int> output;
    for (int slot : footprint)
        output << r->dmxOutput[first + slot];
    QCOMPARE(output, levels);
    Lumidesk::instance()->setConsole(nullptr);
}

// The console's own way: select device 5, effect mode, select key 1 (the
// demo's circle), record memory 7 with "Rec All", then key 1 again.
void TestEffectsView::selectKeysGiveAndRecordEffects()
{
    cleanup();
    EngineSession s(QStringLiteral("glowproEngine"), 0);
    ConsoleStateRecord* r = s.record();
    const int pan = s.cache()->deviceFirstAddress(4);
    s.tap(57);
    s.tap(24 + 4);
    QVERIFY(s.step(25));
    const QByteArray home(reinterpret_cast<const char*>(r->dmxOutput) + pan, 4);
    s.tap(58);
    s.tap(24);
    QVERIFY(s.step(250));
    QVERIFY(QByteArray(reinterpret_cast<const char*>(r->dmxOutput) + pan, 4) != home);
    s.press(89);
    s.tap(6);
    s.release(89);
    s.tap(24);
    QVERIFY(s.step(25));

    const MemoryRecord& memory = r->memories[6];
    QCOMPARE(int(memory.hasEffect), 1);
    QCOMPARE(int(memory.content.reserved[4]), 1); // shape family, device 5: effect 1
    QCOMPARE(int(memory.content.reserved[5]), 0); // not selected: none
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(r->dmxOutput) + pan, 4), home);
}

LUMIDESK_TEST_MAIN(TestEffectsView)

#include "tst_effectsview.moc"
