// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "GMButtonRow.h"
#include "InPlaceEditableText.h"
#include "Lumidesk.h"
#include "MLButtonRow.h"
#include "SelectBlock.h"

#include <QTest>

namespace {

using Key = QPair<QString, int>; // label, key code

QList<Key> keysOf(const QList<ConsoleButton*>& buttons)
{
    QList<Key> keys;
    for (const ConsoleButton* button : buttons)
        keys << Key(button->text(), button->buttonNumber());
    return keys;
}

// Channel legends "Ch<n>", groups "G<n>", palettes "F<n>", "K<n>", "B<n>"
// per parameter group, effects "E<n>", pages "Page<n>".
void nameEverything(ConsoleStateRecord* record)
{
    for (int i = 0; i < ConsoleStateRecord::maxChannels; ++i)
        ConsoleCache::writeText(record->channelLegends[i], 0, QStringLiteral("Ch%1").arg(i));
    for (int i = 0; i < 24; ++i) {
        ConsoleCache::writeText(record->groups[i].name, 0, QStringLiteral("G%1").arg(i));
        ConsoleCache::writeText(record->palettes[i].names[0], 0, QStringLiteral("F%1").arg(i));
        ConsoleCache::writeText(record->palettes[i].names[1], 0, QStringLiteral("K%1").arg(i));
        ConsoleCache::writeText(record->palettes[i].names[2], 0, QStringLiteral("B%1").arg(i));
    }
    for (int i = 0; i < 36; ++i)
        ConsoleCache::writeText(record->effects[i].name, 0, QStringLiteral("E%1").arg(i));
    for (int i = 0; i < ConsoleStateRecord::pages; ++i)
        ConsoleCache::writeText(record->pageNames[i], 1, QStringLiteral("Page%1").arg(i));
}

} // namespace

class TestSelectBlock : public QObject
{
    Q_OBJECT

private slots:
    void legendsFollowTheSelectMode_data();
    void legendsFollowTheSelectMode();
    void modeZeroBlanksEverything();
    void keysAndPlaces();
    void editsStoreBySelectMode_data();
    void editsStoreBySelectMode();
    void selectModeChangeRefreshes();
    void gmRowKeysByModel_data();
    void gmRowKeysByModel();
    void gmRowLevels_data();
    void gmRowLevels();
    void gmRowPageNames();
    void mlRowKeysAndPageName();
};

void TestSelectBlock::legendsFollowTheSelectMode_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("editable");
    const int maple = ConsoleCache::ModelMaple;
    QTest::newRow("channels, key 1") << maple << 1 << 0 << "Ch48" << true;
    QTest::newRow("channels, key 24") << maple << 1 << 23 << "Ch71" << true;
    QTest::newRow("channels beyond the Alder's")
        << int(ConsoleCache::ModelAlder) << 1 << 0 << "" << false;
    QTest::newRow("groups") << maple << 2 << 5 << "G5" << true;
    QTest::newRow("groups, other mode") << maple << 3 << 17 << "G17" << true;
    QTest::newRow("focus palettes") << maple << 4 << 2 << "F2" << true;
    QTest::newRow("colour palettes") << maple << 5 << 2 << "K2" << true;
    QTest::newRow("beam palettes") << maple << 6 << 20 << "B20" << true;
    QTest::newRow("effects") << maple << 7 << 20 << "E20" << true;
    QTest::newRow("effects, other mode") << maple << 8 << 0 << "E0" << true;
    QTest::newRow("second effect page, key 1") << maple << 9 << 0 << "E24" << true;
    QTest::newRow("second effect page, key 12") << maple << 10 << 11 << "E35" << true;
    QTest::newRow("second effect page, key 13 blank") << maple << 9 << 12 << "" << false;
    QTest::newRow("unknown mode") << maple << 11 << 3 << "" << false;
}

void TestSelectBlock::legendsFollowTheSelectMode()
{
    QFETCH(int, model);
    QFETCH(int, mode);
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(bool, editable);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    nameEverything(console.record());
    console.record()->selectMode = quint32(mode);
    QGraphicsScene scene;
    SelectBlock block(&scene, 40, 54, false);
    QCOMPARE(block.selectMode(), mode);
    QCOMPARE(block.legend(column, 0)->text(), text);
    QCOMPARE(block.legend(column, 0)->isEditable(), editable);
    QCOMPARE(block.legend(column, 2)->isEditable(), editable);
    scene.removeItem(&block);
}

void TestSelectBlock::modeZeroBlanksEverything()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    nameEverything(console.record());
    QGraphicsScene scene;
    SelectBlock block(&scene, 40, 54, false);
    int blank = 0;
    for (int column = 0; column < SelectBlock::columns; ++column) {
        for (int line = 0; line < SelectBlock::lines; ++line) {
            const InPlaceEditableText* item = block.legend(column, line);
            blank += item->text().isEmpty() && !item->isEditable();
        }
    }
    QCOMPARE(blank, 72);
    scene.removeItem(&block);
}

void TestSelectBlock::keysAndPlaces()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    QGraphicsScene scene;
    SelectBlock block(&scene, 40, 54, true);
    QCOMPARE(block.boundingRect(), QRectF(0, 0, 587, 138));
    QCOMPARE(Key(block.key(0)->text(), block.key(0)->buttonNumber()), Key("1", 24));
    QCOMPARE(Key(block.key(11)->text(), block.key(11)->buttonNumber()), Key("12", 35));
    QCOMPARE(Key(block.key(12)->text(), block.key(12)->buttonNumber()), Key("13", 36));
    QCOMPARE(Key(block.key(23)->text(), block.key(23)->buttonNumber()), Key("24", 47));
    QCOMPARE(block.key(1)->pos(), QPointF(42.5, 40));
    QCOMPARE(block.key(13)->pos(), QPointF(42.5, 94));
    QCOMPARE(block.legend(1, 2)->rect(), QRectF(40, 24, 40, 12));
    QCOMPARE(block.legend(13, 0)->rect(), QRectF(40, 123, 40, 12));

    // Pressing select key 13 is panel key 36.
    SceneView view(&scene, QSize(600, 200));
    const QPointF at = block.key(12)->sceneBoundingRect().center();
    view.press(at);
    view.release(at);
    QCOMPARE(allEventBytes(console.engine),
             (QList<QByteArray>{eventBytes(PanelEvent::PanelButton, 36, 0, 1),
                                eventBytes(PanelEvent::PanelButton, 36, 0, 0)}));
    scene.removeItem(&block);
}

void TestSelectBlock::editsStoreBySelectMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("column");
    QTest::addColumn<FakeEngine::Call>("report");
    QTest::newRow("channel") << 1 << 2 << FakeEngine::Call{ConsoleCode::ChannelTextChanged, 50};
    QTest::newRow("group") << 2 << 14 << FakeEngine::Call{ConsoleCode::GroupChanged, 14};
    QTest::newRow("colour palette") << 5 << 3 << FakeEngine::Call{ConsoleCode::PaletteChanged, 3};
    QTest::newRow("second effect page")
        << 9 << 4 << FakeEngine::Call{ConsoleCode::EffectsChanged, 28};
}

void TestSelectBlock::editsStoreBySelectMode()
{
    QFETCH(int, mode);
    QFETCH(int, column);
    QFETCH(FakeEngine::Call, report);
    PanelConsole console(ConsoleCache::ModelMaple);
    console.record()->selectMode = quint32(mode);
    QGraphicsScene scene;
    SelectBlock block(&scene, 40, 54, false);
    block.textChanged(block.legend(column, 1), QStringLiteral("Wash"));
    QCOMPARE(console.engine.updates(), QList<FakeEngine::Call>{report});
    const ConsoleCache* cache = console.console->cache();
    const QString stored = mode == 1   ? cache->channelLegend(50, 1)
                           : mode == 2 ? cache->groupName(14, 1)
                           : mode == 5 ? cache->paletteName(3, 1, 1)
                                       : cache->effectName(28, 1);
    QCOMPARE(stored, QStringLiteral("Wash"));
    scene.removeItem(&block);
}

void TestSelectBlock::selectModeChangeRefreshes()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    nameEverything(console.record());
    console.record()->selectMode = 2;
    QGraphicsScene scene;
    SelectBlock block(&scene, 40, 54, false);
    QCOMPARE(block.legend(4, 0)->text(), QStringLiteral("G4"));
    console.record()->selectMode = 7;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block.legend(4, 0)->text(), QStringLiteral("E4"));
    ConsoleCache::writeText(console.record()->effects[4].name, 0, QStringLiteral("Chase"));
    console.notify(ConsoleCode::EffectsChanged, 4);
    QCOMPARE(block.legend(4, 0)->text(), QStringLiteral("Chase"));
    scene.removeItem(&block);
}

void TestSelectBlock::gmRowKeysByModel_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QList<Key>>("keys");
    QTest::addColumn<QList<int>>("tops");
    QTest::addColumn<int>("pageItems");
    QTest::newRow("Alder") << int(ConsoleCache::ModelAlder)
                           << QList<Key>{{"IND 1", 95}, {"IND 2", 96}, {"BLACK OUT", 87},
                                         {"SOLO", 86},  {"MEMS", 63},  {"25-48", 66},
                                         {"1-24", 65}}
                           << QList<int>{52, 89, 247, 329, 391, 499, 544} << 3;
    QTest::newRow("Cedar") << int(ConsoleCache::ModelCedar)
                           << QList<Key>{{"IND 1", 95}, {"IND 2", 96}, {"BLACK OUT", 87},
                                         {"SOLO", 86},  {"MEMS", 63},  {"49-96", 66},
                                         {"1-48", 65}}
                           << QList<int>{102, 139, 247, 329, 391, 499, 544} << 3;
    QTest::newRow("Maple") << int(ConsoleCache::ModelMaple)
                           << QList<Key>{{"IND 1", 95},
                                         {"IND 2", 96},
                                         {"BLACK OUT", 87},
                                         {"SOLO", 86}}
                           << QList<int>{52, 89, 247, 329} << 0;
}

void TestSelectBlock::gmRowKeysByModel()
{
    QFETCH(int, model);
    QFETCH(QList<Key>, keys);
    QFETCH(QList<int>, tops);
    QFETCH(int, pageItems);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    QGraphicsScene scene;
    GMButtonRow row(&scene);
    QCOMPARE(keysOf(row.keys()), keys);
    QList<int> shownTops;
    for (const ConsoleButton* key : row.keys()) {
        QCOMPARE(key->x(), 10.0);
        shownTops << int(key->y());
    }
    QCOMPARE(shownTops, tops);
    QCOMPARE(row.pageNameItems().size(), pageItems);
    scene.removeItem(&row);
}

void TestSelectBlock::gmRowLevels_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("text");
    QTest::newRow("full") << 255 << "F";
    QTest::newRow("half") << 128 << "50";
    QTest::newRow("zero") << 0 << "0";
    QTest::newRow("254 rounds to 100, shown full") << 254 << "F";
    QTest::newRow("252 is 99") << 252 << "99";
    QTest::newRow("one") << 1 << "0";
    QTest::newRow("two") << 2 << "1";
}

void TestSelectBlock::gmRowLevels()
{
    QFETCH(int, level);
    QFETCH(QString, text);
    QCOMPARE(GMButtonRow::levelText(level), text);
}

void TestSelectBlock::gmRowPageNames()
{
    PanelConsole console(ConsoleCache::ModelBirch);
    nameEverything(console.record());
    console.record()->memoryPage = 3;
    QGraphicsScene scene;
    GMButtonRow row(&scene);
    QCOMPARE(row.pageNameItems().at(1)->text(), QStringLiteral("Page3"));
    console.record()->memoryPage = 5;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(row.currentPage(), 5);
    QCOMPARE(row.pageNameItems().at(1)->text(), QStringLiteral("Page5"));

    row.textChanged(row.pageNameItems().at(2), QStringLiteral("Act 2"));
    QCOMPARE(console.console->cache()->pageName(5, 2), QStringLiteral("Act 2"));
    QVERIFY(console.engine.updates().contains(FakeEngine::Call{ConsoleCode::PageChanged, 5}));
    scene.removeItem(&row);
}

void TestSelectBlock::mlRowKeysAndPageName()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    nameEverything(console.record());
    console.record()->memoryPage = 2;
    QGraphicsScene scene;
    MLButtonRow row(&scene);
    const QList<Key> keys{{"FOCUS", 49},   {"COLOR", 50},      {"BEAM", 51},       {"GROUP", 54},
                          {"DEV SEL", 57}, {"EFFECT", 58},     {"HIGH LIGHT", 53}, {"INT A", 65},
                          {"INT B", 66},   {"INT DEVICE", 64}, {"PARAM 1", 67},    {"PARAM 2", 68},
                          {"MEMS", 63},    {"INT ONLY", 62},   {"GO MODE", 60}};
    QCOMPARE(keysOf(row.keys()), keys);
    QCOMPARE(row.keys().at(14)->pos(), QPointF(1134, 0));
    QCOMPARE(row.boundingRect(), QRectF(0, 0, 1180, 60));
    QCOMPARE(row.pageNameItem()->text(),
             console.console->cache()->pageName(2, ConsoleCache::wholeBlock));
    QVERIFY(row.pageNameItem()->text().contains(QStringLiteral("Page2")));
    QCOMPARE(row.pageNameItem()->maxLength(), 18);

    row.textChanged(row.pageNameItem(), QStringLiteral("Finale"));
    QCOMPARE(console.console->cache()->pageName(2, ConsoleCache::wholeBlock),
             QStringLiteral("Finale"));
    QVERIFY(console.engine.updates().contains(FakeEngine::Call{ConsoleCode::PageChanged, 2}));
    scene.removeItem(&row);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestSelectBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_selectblock.moc"
