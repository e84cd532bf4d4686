// SPDX-License-Identifier: GPL-3.0-or-later
#include "../app/ModalAnswerer.h"
#include "../toolkit/ToolkitFixture.h"

#include "Console.h"
#include "ConsoleCodes.h"
#include "EngineSession.h"
#include "FakeEngine.h"
#include "views/PatchView.h"
#include "views/PatchViewChannelCell.h"
#include "views/PatchViewIndependentCell.h"
#include "views/PatchViewIndependentOptions.h"
#include "views/PatchViewMidiBlock.h"
#include "views/PatchViewTrashcan.h"
#include "views/PatchViewUniverseBlock.h"

#include <QGraphicsSceneDragDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>

#include <memory>

using Call = FakeEngine::Call;
using Block = PatchView::UniverseBlock;

namespace {

template <typename Case, std::size_t N> void addRows(const Case (&cases)[N])
{
    QTest::addColumn<Case>("c");
    for (const Case& c : cases)
        QTest::newRow(c.name) << c;
}

// A Maple on the fake engine with its patch view.
struct Rig
{
    explicit Rig(ConsoleCache::ConsoleType model = ConsoleCache::ModelMaple) : engine(model) {}
    FakeEngine engine;
    std::unique_ptr<Console> console{engine.createConsole()};
    PatchView view{console.get(), nullptr};
    QGraphicsScene& scene = *view.patchScene();
    SceneMouse mouse{scene};

    ConsoleStateRecord* record() { return engine.record(); }
    // "p<address>=<entry>", "m<channel>=<circuit + 1>", "d<device>=<first + 1>/<footprint>".
    void apply(const QString& words)
    {
        for (const QString& word : words.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QStringList n = word.mid(1).split(QRegularExpression(QStringLiteral("[=/]")));
            if (word[0] == QLatin1Char('p'))
                record()->dmxPatch[n[0].toInt()] = quint8(n[1].toInt());
            else if (word[0] == QLatin1Char('m'))
                record()->midiCircuits[n[0].toInt()] = quint8(n[1].toInt());
            else {
                DeviceRecord& device = record()->devices[n[0].toInt()];
                device.firstAddress = quint16(n[1].toInt());
                device.footprint = quint8(n[2].toInt());
            }
        }
        engine.notify(ConsoleCode::PatchChanged);
        engine.notify(ConsoleCode::MidiPatchChanged);
        QCoreApplication::processEvents();
    }
    // "a<address>", "ch<channel>", "ind<independent>", "midi<circuit>" or "trash".
    QPointF at(const QString& target)
    {
        const int n = QString(target).remove(QRegularExpression(QStringLiteral("\\D"))).toInt();
        if (target.startsWith(QLatin1String("a")))
            return view.universeBlocks()[n / 512]->mapToScene(Block::cellRect(n % 512).center());
        if (target.startsWith(QLatin1String("ch")))
            return view.channelCells()[n]->sceneBoundingRect().topLeft() + QPointF(20, 10);
        if (target.startsWith(QLatin1String("ind")))
            return view.independentCell(n)->sceneBoundingRect().topLeft() + QPointF(20, 10);
        if (target.startsWith(QLatin1String("midi")))
            return view.midiBlock()->mapToScene(PatchView::MidiBlock::cellRect(n).center());
        return view.trashcan()->sceneBoundingRect().center();
    }
    // Drags text over a target and drops it, as a drag from outside would.
    void drop(const QString& text, const QString& target)
    {
        QMimeData data;
        text.startsWith(QLatin1String("html:")) ? data.setHtml(text.mid(5)) : data.setText(text);
        for (QEvent::Type type : {QEvent::GraphicsSceneDragEnter, QEvent::GraphicsSceneDragMove,
                                  QEvent::GraphicsSceneDrop}) {
            QGraphicsSceneDragDropEvent event(type);
            event.setScenePos(at(target));
            event.setMimeData(&data);
            event.setPossibleActions(Qt::CopyAction);
            event.setProposedAction(Qt::CopyAction);
            QCoreApplication::sendEvent(&scene, &event);
        }
        QCoreApplication::processEvents();
    }
};

struct DropCase
{
    const char* name;
    const char* before; // record entries, as Rig::apply
    const char* text;
    const char* target;
    const char* after;
    QList<Call> calls;
    const char* box;
};

const char* const refusal =
    "Repatch devices: Could not repatch the selected devices as they would not fit within the "
    "universe!";

} // namespace

Q_DECLARE_METATYPE(DropCase)
Q_DECLARE_METATYPE(RecordArea::Personality)

class TestPatchView : public QObject
{
    Q_OBJECT

private slots:
    void sceneFollowsTheModel_data();
    void sceneFollowsTheModel();
    void drops_data();
    void drops();
    void pressesHitTheBlockCells_data();
    void pressesHitTheBlockCells();
    void dragsCarryTheSelection_data();
    void dragsCarryTheSelection();
    void personalityMenu_data();
    void personalityMenu();
    void addressColours_data();
    void addressColours();
    void toolTips_data();
    void toolTips();
    void independentOptions_data();
    void independentOptions();
    void menuPatchedDevicesDriveTheirAddresses();
};

void TestPatchView::sceneFollowsTheModel_data()
{
    // clang-format off
    addColumns<int, int, int>({"model", "channels", "universes"});
    QTest::newRow("Alder") << int(ConsoleCache::ModelAlder) << 48 << 1;
    QTest::newRow("Birch") << int(ConsoleCache::ModelBirch) << 96 << 1;
    QTest::newRow("Cedar") << int(ConsoleCache::ModelCedar) << 96 << 1;
    QTest::newRow("Maple") << int(ConsoleCache::ModelMaple) << 72 << 2;
    // clang-format on
}

void TestPatchView::sceneFollowsTheModel()
{
    auto [model, channels, universes] = fetch<int, int, int>({"model", "channels", "universes"});
    Rig rig{ConsoleCache::ConsoleType(model)};
    rig.engine.notify(ConsoleCode::System, 0);
    rig.engine.notify(ConsoleCode::System, 1);
    QCoreApplication::processEvents(); // the rebuild on a loaded show
    QCOMPARE(rig.view.channelCells().size(), channels);
    QCOMPARE(rig.view.channelCells().last()->channel(), channels - 1);
    QCOMPARE(rig.view.universeBlocks().size(), universes);
    QCOMPARE(rig.view.midiBlock() != nullptr, universes == 2);
    const QRectF table = rig.view.channelTable()->sceneBoundingRect();
    QCOMPARE(rig.view.universeBlocks().first()->y(), table.bottom() + 5);
    const QRectF independents = rig.view.independentTable()->sceneBoundingRect();
    const QRectF trash = rig.view.trashcan()->sceneBoundingRect();
    QCOMPARE(trash.topRight(), independents.bottomRight() + QPointF(0, 5));
}

void TestPatchView::drops_data()
{
    // clang-format off
    const DropCase cases[] = {
        {"a channel moves", "p4=4", "Channels 3", "a9", "p4=0 p9=4", {{5}}, ""},
        {"outputs keep a channel's earlier ones", "p0=8", "Outputs 4 5", "ch7", "p0=8 p4=8 p5=8",
         {{5}}, ""},
        {"independent onto universe 2", "", "Independents 1", "a512", "p512=74", {{5}}, ""},
        {"channels stop at the last address", "", "Channels 0 1", "a1023", "p1023=1", {{5}}, ""},
        {"outputs onto an independent", "", "Outputs 7", "ind0", "p7=73", {{5}}, ""},
        {"the last circuit wins", "", "Circuits 3 9", "ch2", "m2=10", {{11}}, ""},
        {"16-slot devices refused at 1:500", "d0=1/16 d1=17/16", "Devices 0 1", "a499", "", {},
         refusal},
        {"16-slot devices placed at 1:481", "d0=1/16 d1=17/16", "Devices 0 1", "a480", "",
         {{31, 0, 480}, {31, 1, 496}}, ""},
        {"trash that clears nothing sends nothing", "d2=0/0", "Channels 10 50", "trash", "", {},
         ""},
        {"trash un-patches a device channel", "d0=1/16 p3=49", "Channels 48", "trash", "p3=0",
         {{30, 0}, {5}}, ""},
        {"trash outputs take the device starting there", "d1=33/16 p2=5", "Outputs 2 32", "trash",
         "p2=0", {{30, 1}, {5}}, ""},
        {"trash circuits", "m4=7 m9=7", "Circuits 6", "trash", "m4=0 m9=0", {{11}}, ""},
        {"trash independents", "p6=73 p7=74", "Independents 0", "trash", "p6=0 p7=74", {{5}}, ""},
        {"plain and device channels mixed", "", "Channels 3 50", "a0", "p0=0", {}, ""},
        {"text that is not a number", "", "Channels x", "a0", "p0=0", {}, ""},
        {"an output beyond the addresses", "p4=1", "Outputs 99999", "trash", "p4=1", {}, ""},
        {"a negative output", "", "Outputs 4 -1", "ch0", "p4=0", {}, ""},
        {"a keyword without numbers", "p4=1", "Channels", "trash", "p4=1", {}, ""},
        {"an unknown keyword", "p4=1", "Groups 1", "trash", "p4=1", {}, ""},
        {"another mime type", "", "html:Channels 1", "a0", "p0=0", {}, ""},
        {"circuits on a universe block", "", "Circuits 1", "a0", "p0=0", {}, ""},
        {"channels on the MIDI block", "", "Channels 1", "midi0", "p0=0", {}, ""},
    };
    addRows(cases);
    // clang-format on
}

void TestPatchView::drops()
{
    QFETCH(DropCase, c);
    Rig rig;
    rig.apply(QString::fromLatin1(c.before));
    rig.engine.clearUpdates();
    ModalAnswerer answerer({ModalAnswerer::press(QMessageBox::Ok)});
    rig.drop(QString::fromLatin1(c.text), QString::fromLatin1(c.target));
    QCOMPARE(rig.engine.updates(), c.calls);
    QCOMPARE(answerer.seen.join(QString()), QString::fromLatin1(c.box));
    for (const QString& word :
         QString::fromLatin1(c.after).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList n = word.mid(1).split(QLatin1Char('='));
        const quint8* table =
            word[0] == QLatin1Char('p') ? rig.record()->dmxPatch : rig.record()->midiCircuits;
        QCOMPARE(int(table[n[0].toInt()]), n[1].toInt());
    }
}

void TestPatchView::pressesHitTheBlockCells_data()
{
    // clang-format off
    addColumns<int, QPoint, int>({"universe", "at", "address"});
    QTest::newRow("first cell's corner") << 0 << QPoint(2, 20) << 0;
    QTest::newRow("left margin") << 0 << QPoint(1, 20) << -1;
    QTest::newRow("title band") << 0 << QPoint(2, 19) << -1;
    QTest::newRow("last column's right edge") << 0 << QPoint(1056, 20) << 31;
    QTest::newRow("right of the last column") << 0 << QPoint(1058, 20) << -1;
    QTest::newRow("last row's bottom edge") << 0 << QPoint(2, 259) << 480;
    QTest::newRow("below the last row") << 0 << QPoint(2, 260) << -1;
    QTest::newRow("universe 2's last address") << 1 << QPoint(1056, 259) << 1023;
    // clang-format on
}

void TestPatchView::pressesHitTheBlockCells()
{
    auto [universe, at, address] = fetch<int, QPoint, int>({"universe", "at", "address"});
    Rig rig;
    rig.mouse.click(rig.view.universeBlocks()[universe]->mapToScene(at));
    int selected = -1;
    for (int a = PatchView::addressCount - 1; a >= 0; --a)
        selected = rig.view.isOutputSelected(a) ? a : selected;
    QCOMPARE(selected, address);
}

void TestPatchView::dragsCarryTheSelection_data()
{
    // clang-format off
    // presses: target, "+" for Control
    addColumns<QStringList, QString>({"presses", "payload"});
    QTest::newRow("picked channels together") << QStringList{"ch0", "ch5+", "ch6+", "ch0"}
                                              << "Channels 0 5 6";
    QTest::newRow("a Control press does not arm") << QStringList{"ch0", "ch5+"} << "";
    QTest::newRow("a device address drags its device") << QStringList{"a102"} << "Devices 2";
    QTest::newRow("outputs before devices") << QStringList{"a7", "a101+", "a9+", "a7"}
                                            << "Outputs 7 9";
    QTest::newRow("a circuit") << QStringList{"midi5"} << "Circuits 5";
    QTest::newRow("an independent") << QStringList{"ind1"} << "Independents 1";
    // clang-format on
}

void TestPatchView::dragsCarryTheSelection()
{
    auto [presses, payload] = fetch<QStringList, QString>({"presses", "payload"});
    Rig rig;
    rig.apply(QStringLiteral("d2=101/4"));
    QString dragged;
    rig.view.setDragRunner([&](QMimeData* data) { dragged = data->text(); });
    QPointF at;
    for (const QString& press : presses) {
        at = rig.at(press);
        rig.mouse.release(at);
        rig.mouse.press(at, press.endsWith('+') ? Qt::ControlModifier : Qt::NoModifier);
    }
    rig.mouse.move(at + QPointF(6, 0));
    QCOMPARE(dragged, payload);
}

void TestPatchView::personalityMenu_data()
{
    // clang-format off
    // leaves: path, "+" enabled or "-"
    addColumns<QList<RecordArea::Personality>, QStringList, QString, QList<Call>>({"personalities", "leaves", "pick", "calls"});
    QTest::newRow("no personalities") << QList<RecordArea::Personality>{}
                                      << QStringList{"<missing personalities>+"}
                                      << "<missing personalities>" << QList<Call>{};
    QTest::newRow("by maker and letter, enabled where two fit in 13")
        << QList<RecordArea::Personality>{{1, 6, "Acme", "Par"},
                                          {2, 16, "Zed", "Spot"},
                                          {3, 0, "Acme", "Ghost"},
                                          {4, 2, " Custom", "Fog"}}
        << QStringList{"A - D/Acme/Par (6 channels)+", "T - Z/Zed/Spot (16 channels)-",
                       "Custom/Fog (2 channels)+"}
        << "Par (6 channels)" << QList<Call>{{29, 0, 1, 499}, {29, 1, 1, 505}};
    // clang-format on
}

void TestPatchView::personalityMenu()
{
    auto [personalities, leaves, pick, calls] =
        fetch<QList<RecordArea::Personality>, QStringList, QString, QList<Call>>(
            {"personalities", "leaves", "pick", "calls"});
    Rig rig;
    rig.engine.setPersonalities(personalities);
    rig.drop(QStringLiteral("Channels 48 49"), QStringLiteral("a499"));
    QMenu* menu = rig.view.personalityMenu();
    QVERIFY(menu);
    QStringList found;
    QAction* chosen = nullptr;
    std::function<void(QMenu*, QString)> walk = [&](QMenu* m, const QString& path) {
        for (QAction* action : m->actions()) {
            if (action->menu())
                walk(action->menu(), path + action->text() + '/');
            else
                found << path + action->text() + (action->isEnabled() ? "+" : "-");
            chosen = action->text() == pick ? action : chosen;
        }
    };
    walk(menu, QString());
    QCOMPARE(found, leaves);
    QVERIFY(chosen);
    chosen->trigger();
    QCOMPARE(rig.engine.updates(), calls);
}

void TestPatchView::addressColours_data()
{
    // clang-format off
    addColumns<QString, QString, int, QColor>({"before", "press", "address", "colour"});
    QTest::newRow("channel") << "p5=1" << "" << 5 << QColor(91, 116, 86);
    QTest::newRow("device start") << "d0=11/4" << "" << 10 << QColor(216, 197, 158);
    QTest::newRow("selected device start") << "d0=11/4" << "a12" << 10 << QColor(255, 233, 187);
    QTest::newRow("device slot") << "d0=11/4" << "" << 11 << QColor(116, 106, 86);
    QTest::newRow("selected device slot") << "d0=11/4" << "a10" << 11 << QColor(153, 140, 113);
    QTest::newRow("conflict") << "d0=11/4 d1=12/4" << "" << 12 << QColor(250, 4, 16);
    QTest::newRow("unpatched") << "" << "" << 600 << QColor(157, 157, 157);
    // clang-format on
}

void TestPatchView::addressColours()
{
    auto [before, press, address, colour] =
        fetch<QString, QString, int, QColor>({"before", "press", "address", "colour"});
    Rig rig;
    rig.apply(before);
    if (!press.isEmpty())
        rig.mouse.click(rig.at(press));
    Block* block = rig.view.universeBlocks()[address / 512];
    const QImage image = renderItem(*block);
    QCOMPARE(QColor(image.pixel(Block::cellRect(address % 512).topLeft() + QPoint(1, 1))), colour);
}

void TestPatchView::toolTips_data()
{
    // clang-format off
    addColumns<QString, QString, QString>({"before", "target", "tip"});
    QTest::newRow("channel on two outputs, with MIDI") << "p0=3 p513=3 m2=5" << "ch2"
                                                      << "Outputs 1:1, 2:2, MIDI:5";
    QTest::newRow("channel on one output") << "p9=1" << "ch0" << "Output 1:10";
    QTest::newRow("patched device channel") << "d1=101/4" << "ch49" << "Spot Mode @ Output 1:101";
    QTest::newRow("device and channel address") << "d1=101/4 p101=5" << "a101"
                                                << "Int D:2 (Spot Mode), Int A:5";
    QTest::newRow("independent address") << "p7=74" << "a7" << "IND 2";
    QTest::newRow("unpatched address") << "" << "a7" << "Unpatched";
    QTest::newRow("used circuit") << "m30=8" << "midi7" << "Int B:7";
    QTest::newRow("unused circuit") << "" << "midi7" << "Unpatched";
    // clang-format on
}

void TestPatchView::toolTips()
{
    auto [before, target, tip] = fetch<QString, QString, QString>({"before", "target", "tip"});
    Rig rig;
    qstrcpy(rig.record()->devices[1].personalityName, "Spot");
    qstrcpy(rig.record()->devices[1].secondName, "Mode");
    rig.apply(before);
    QCOMPARE(rig.view.toolTipAt(rig.at(target)), tip);
}

void TestPatchView::independentOptions_data()
{
    // clang-format off
    // doubleClick: or typed text at the first independent
    // options: on level, mode, GM of A, then of B
    addColumns<QPointF, QString, QByteArray>({"doubleClick", "typed", "options"});
    QTest::newRow("B's button mode") << QPointF(75, 50) << "" << QByteArray("\xff\0\0\xff\1\0", 6);
    QTest::newRow("A's grand master") << QPointF(20, 90) << "" << QByteArray("\xff\0\1\xff\0\0", 6);
    QTest::newRow("on level 40 %") << QPointF() << "40" << QByteArray("\x66\0\0\xff\0\0", 6);
    QTest::newRow("on level F") << QPointF() << "F" << QByteArray("\xff\0\0\xff\0\0", 6);
    QTest::newRow("on level not a number") << QPointF() << "x" << QByteArray("\0\0\0\xff\0\0", 6);
    // clang-format on
}

void TestPatchView::independentOptions()
{
    auto [doubleClick, typed, options] =
        fetch<QPointF, QString, QByteArray>({"doubleClick", "typed", "options"});
    Rig rig;
    for (IndependentRecord& independent : rig.record()->independents)
        independent.onLevel = 255;
    rig.engine.clearUpdates();
    PatchView::IndependentOptions* panel = rig.view.independentOptions();
    if (typed.isEmpty())
        rig.mouse.send(QEvent::GraphicsSceneMouseDoubleClick, panel->mapToScene(doubleClick), {});
    else
        panel->textChanged(panel->onLevelText(0), typed);
    QByteArray stored;
    for (const IndependentRecord& i : rig.record()->independents)
        stored += QByteArray(reinterpret_cast<const char*>(&i.onLevel), 1) + char(i.buttonMode) +
                  char(i.grandMasterExempt);
    QCOMPARE(stored.toHex(' '), options.toHex(' '));
    QCOMPARE(rig.engine.updates(), QList<Call>{{ConsoleCode::IndependentsChanged}});
}

void TestPatchView::menuPatchedDevicesDriveTheirAddresses()
{
    EngineSession session(QStringLiteral("glowproEngine"), 0);
    PatchView view(session.console(), nullptr);
    const QPointF at = view.universeBlocks()[1]->mapToScene(Block::cellRect(100).center());
    QMimeData data;
    data.setText(QStringLiteral("Channels 56 57"));
    for (QEvent::Type type : {QEvent::GraphicsSceneDragEnter, QEvent::GraphicsSceneDragMove,
                              QEvent::GraphicsSceneDrop}) {
        QGraphicsSceneDragDropEvent event(type);
        event.setScenePos(at);
        event.setMimeData(&data);
        event.setProposedAction(Qt::CopyAction);
        QCoreApplication::sendEvent(view.patchScene(), &event);
    }
    QVERIFY(view.personalityMenu());
    for (QAction* action : view.personalityMenu()->findChildren<QAction*>()) {
        if (action->text() == QLatin1String("Dimmer 1ch (1 channels)"))
            action->trigger();
    }
    // Each device's one slot follows its control channel, at 2:101 and 2:102.
    session.console()->writeDmx(quint16((1 << 9) + 100), 200, false);
    session.console()->writeDmx(quint16((1 << 9) + 101), 90, false);
    QVERIFY(session.step(50));
    QCOMPARE(int(session.record()->devices[8].firstAddress), 613);
    QCOMPARE(int(session.record()->devices[9].firstAddress), 614);
    QCOMPARE(int(session.record()->channelLevels[56]), 200);
    QCOMPARE(int(session.record()->channelLevels[57]), 90);
    QCOMPARE(int(session.record()->dmxOutput[612]), 200);
    QCOMPARE(int(session.record()->dmxOutput[613]), 90);
    QCOMPARE(session.cache()->addressFlags(612) & ConsoleCache::AddressDeviceStart,
             int(ConsoleCache::AddressDeviceStart));
}

QTEST_MAIN(TestPatchView)
#include "tst_patchview.moc"
