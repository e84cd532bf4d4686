// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleCodes.h"
#include "DataRows.h"
#include "GMButtonRow.h"
#include "InPlaceEditableText.h"
#include "LumideskTestMain.h"
#include "MLButtonRow.h"
#include "SelectBlock.h"

class TestSelectBlock : public QObject
{
    Q_OBJECT

private slots:
    void legendsFollowTheSelectMode_data();
    void legendsFollowTheSelectMode();
    void keyRowsByModel_data();
    void keyRowsByModel();
};

struct LegendCase
{
    const char* name;
    int model, mode, column;
    const char* text; // line 0; empty ones are not editable
    FakeEngine::Call edit;
};

void TestSelectBlock::legendsFollowTheSelectMode_data()
{
    const int maple = ConsoleCache::ModelMaple;
    const LegendCase cases[] = {
        {"channels, key 3", maple, 1, 2, "Ch50", {ConsoleCode::ChannelTextChanged, 50}},
        {"channels beyond the Alder's", ConsoleCache::ModelAlder, 1, 0, "", {}},
        {"groups, key 15", maple, 2, 14, "G14", {ConsoleCode::GroupChanged, 14}},
        {"focus palettes", maple, 4, 2, "F2", {}},
        {"colour palettes", maple, 5, 3, "K3", {ConsoleCode::PaletteChanged, 3}},
        {"beam palettes", maple, 6, 20, "B20", {}},
        {"effects", maple, 7, 20, "E20", {}},
        {"second effect page, key 5", maple, 10, 4, "E28", {ConsoleCode::EffectsChanged, 28}},
        {"second effect page, key 13 blank", maple, 9, 12, "", {}},
        {"mode 0", maple, 0, 3, "", {}},
    };
    addRows(cases);
}

void TestSelectBlock::legendsFollowTheSelectMode()
{
    QFETCH(LegendCase, c);
    PanelConsole console{ConsoleCache::ConsoleType(c.model)};
    console.nameEverything();
    QGraphicsScene scene;
    auto* block = new SelectBlock(&scene, 40, 54, false);
    console.record()->selectMode = quint32(c.mode); // the console switches from mode 0
    console.notify(ConsoleCode::ConsoleStatusChanged);
    const QString text = QString::fromUtf8(c.text);
    QCOMPARE(block->legend(c.column, 0)->text(), text);
    QCOMPARE(block->legend(c.column, 0)->isEditable(), !text.isEmpty());
    QCOMPARE(block->legend(c.column, 2)->isEditable(), !text.isEmpty());
    if (!c.edit.code)
        return;
    // The edit is stored and reported, and comes back through the console.
    block->textChanged(block->legend(c.column, 1), QStringLiteral("Wash"));
    QCoreApplication::processEvents();
    QCOMPARE(console.engine.updates(), QList<FakeEngine::Call>{c.edit});
    QCOMPARE(block->legend(c.column, 1)->text(), QStringLiteral("Wash"));
}

void TestSelectBlock::keyRowsByModel_data()
{
    // keys: label, key code and top of each
    addColumns<int, QStringList, int>({"model", "keys", "pageItems"});
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

void TestSelectBlock::keyRowsByModel()
{
    auto [model, keys, pageItems] = fetch<int, QStringList, int>({"model", "keys", "pageItems"});
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

    // The current page's name follows the console, and edits go back to
    // it: three lines in the column, the whole name in the Maple's mode row.
    InPlaceEditableTextHandler* handler = row;
    InPlaceEditableText* name = pageItems ? row->pageNameItems().at(1) : nullptr;
    int line = 1;
    if (!pageItems) {
        auto* modeRow = new MLButtonRow(&scene);
        handler = modeRow;
        name = modeRow->pageNameItem();
        line = ConsoleCache::wholeBlock;
    }
    console.nameEverything();
    console.record()->memoryPage = 5;
    console.notify(ConsoleCode::ConsoleStatusChanged);
    QVERIFY2(name->text().contains(QStringLiteral("Page5")), qPrintable(name->text()));
    handler->textChanged(name, QStringLiteral("Finale"));
    QCOMPARE(console.console->cache()->pageName(5, line), QStringLiteral("Finale"));
    QCOMPARE(console.engine.updates(),
             (QList<FakeEngine::Call>{FakeEngine::Call{ConsoleCode::PageChanged, 5}}));
}

LUMIDESK_TEST_MAIN(TestSelectBlock)

#include "tst_playback_selectblock.moc"
