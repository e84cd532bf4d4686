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

class TestSelectBlock : public QObject
{
    Q_OBJECT

private slots:
    void legendsFollowTheSelectMode_data();
    void legendsFollowTheSelectMode();
    void editsStoreBySelectMode_data();
    void editsStoreBySelectMode();
    void selectModeChangeRefreshes();
    void gmRowByModel_data();
    void gmRowByModel();
    void pageNamesFollowTheCurrentPage_data();
    void pageNamesFollowTheCurrentPage();
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
    QTest::newRow("channels beyond the Alder's")
        << int(ConsoleCache::ModelAlder) << 1 << 0 << "" << false;
    QTest::newRow("groups, key 18") << maple << 3 << 17 << "G17" << true;
    QTest::newRow("focus palettes") << maple << 4 << 2 << "F2" << true;
    QTest::newRow("colour palettes") << maple << 5 << 2 << "K2" << true;
    QTest::newRow("beam palettes") << maple << 6 << 20 << "B20" << true;
    QTest::newRow("effects") << maple << 7 << 20 << "E20" << true;
    QTest::newRow("second effect page, key 1") << maple << 9 << 0 << "E24" << true;
    QTest::newRow("second effect page, key 12") << maple << 10 << 11 << "E35" << true;
    QTest::newRow("second effect page, key 13 blank") << maple << 9 << 12 << "" << false;
    QTest::newRow("mode 0") << maple << 0 << 3 << "" << false;
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
    console.nameEverything();
    console.record()->selectMode = quint32(mode);
    QGraphicsScene scene;
    auto* block = new SelectBlock(&scene, 40, 54, false);
    QCOMPARE(block->selectMode(), mode);
    QCOMPARE(block->legend(column, 0)->text(), text);
    QCOMPARE(block->legend(column, 0)->isEditable(), editable);
    QCOMPARE(block->legend(column, 2)->isEditable(), editable);
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
    auto* block = new SelectBlock(&scene, 40, 54, false);
    block->textChanged(block->legend(column, 1), QStringLiteral("Wash"));
    QCOMPARE(console.engine.updates(), QList<FakeEngine::Call>{report});
    const ConsoleCache* cache = console.console->cache();
    const QString stored = mode == 1   ? cache->channelLegend(50, 1)
                           : mode == 2 ? cache->groupName(14, 1)
                           : mode == 5 ? cache->paletteName(3, 1, 1)
                                       : cache->effectName(28, 1);
    QCOMPARE(stored, QStringLiteral("Wash"));
}

void TestSelectBlock::selectModeChangeRefreshes()
{
    PanelConsole console(ConsoleCache::ModelMaple);
    console.nameEverything();
    console.record()->selectMode = 2;
    QGraphicsScene scene;
    auto* block = new SelectBlock(&scene, 40, 54, false);
    QCOMPARE(block->legend(4, 0)->text(), QStringLiteral("G4"));
    console.record()->selectMode = 7;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QCOMPARE(block->legend(4, 0)->text(), QStringLiteral("E4"));
    ConsoleCache::writeText(console.record()->effects[4].name, 0, QStringLiteral("Chase"));
    console.notify(ConsoleCode::EffectsChanged, 4);
    QCOMPARE(block->legend(4, 0)->text(), QStringLiteral("Chase"));
}

void TestSelectBlock::gmRowByModel_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QStringList>("keys"); // label, key code and top of each
    QTest::addColumn<int>("pageItems");
    const QStringList common{"BLACK OUT 87 247", "SOLO 86 329", "MEMS 63 391"};
    QTest::newRow("Alder") << int(ConsoleCache::ModelAlder)
                           << QStringList{"IND 1 95 52", "IND 2 96 89"} + common +
                                  QStringList{"25-48 66 499", "1-24 65 544"}
                           << 3;
    QTest::newRow("Birch") << int(ConsoleCache::ModelBirch)
                           << QStringList{"IND 1 95 102", "IND 2 96 139"} + common +
                                  QStringList{"49-96 66 499", "1-48 65 544"}
                           << 3;
    QTest::newRow("Maple") << int(ConsoleCache::ModelMaple)
                           << QStringList{"IND 1 95 52", "IND 2 96 89"} + common.mid(0, 2) << 0;
}

void TestSelectBlock::gmRowByModel()
{
    QFETCH(int, model);
    QFETCH(QStringList, keys);
    QFETCH(int, pageItems);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    QGraphicsScene scene;
    auto* row = new GMButtonRow(&scene);
    QStringList shown;
    for (const ConsoleButton* key : row->keys())
        shown << QStringLiteral("%1 %2 %3").arg(key->text()).arg(key->buttonNumber()).arg(key->y());
    QCOMPARE(shown, keys);
    QCOMPARE(row->pageNameItems().size(), pageItems);

    // Everything the row paints itself lies inside its bounds.
    const QRect around = row->boundingRect().toAlignedRect().adjusted(-20, -20, 20, 20);
    const QImage image = paintedItem(row, around);
    const QRect inside = row->boundingRect().toAlignedRect().translated(-around.topLeft());
    int outside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            outside += qAlpha(image.pixel(x, y)) != 0 && !inside.contains(x, y);
    }
    QCOMPARE(outside, 0);
}

void TestSelectBlock::pageNamesFollowTheCurrentPage_data()
{
    QTest::addColumn<int>("model");
    QTest::newRow("master column, three lines") << int(ConsoleCache::ModelBirch);
    QTest::newRow("Maple mode row, the whole name") << int(ConsoleCache::ModelMaple);
}

void TestSelectBlock::pageNamesFollowTheCurrentPage()
{
    QFETCH(int, model);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    console.nameEverything();
    console.record()->memoryPage = 3;
    QGraphicsScene scene;
    InPlaceEditableTextHandler* row = nullptr;
    InPlaceEditableText* name = nullptr; // the one that shows line 1
    int line = 1;
    if (model == ConsoleCache::ModelMaple) {
        auto* modeRow = new MLButtonRow(&scene);
        row = modeRow;
        name = modeRow->pageNameItem();
        line = ConsoleCache::wholeBlock;
    } else {
        auto* column = new GMButtonRow(&scene);
        row = column;
        name = column->pageNameItems().at(1);
    }
    QVERIFY(name->text().contains(QStringLiteral("Page3")));
    console.record()->memoryPage = 5;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QVERIFY(name->text().contains(QStringLiteral("Page5")));

    row->textChanged(name, QStringLiteral("Finale"));
    QCOMPARE(console.console->cache()->pageName(5, line), QStringLiteral("Finale"));
    QCOMPARE(console.engine.updates(),
             (QList<FakeEngine::Call>{FakeEngine::Call{ConsoleCode::PageChanged, 5}}));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestSelectBlock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_playback_selectblock.moc"
