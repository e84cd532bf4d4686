// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleFader.h"
#include "ConsoleWheel.h"
#include "DataRows.h"
#include "FaderBlock.h"
#include "FrontPanel.h"
#include "Lumidesk.h"
#include "LumideskTestMain.h"
#include "SelectBlock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace {

// The panel's top-level controls in order: kind, number, place, caption or size.
QStringList controlsOf(FrontPanel& panel)
{
    QStringList placed;
    const QList<QGraphicsItem*> items = panel.panelScene()->items(Qt::AscendingOrder);
    for (QGraphicsItem* item : items) {
        const QString at = QStringLiteral(" %1,%2").arg(item->x()).arg(item->y());
        if (item->parentItem())
            continue;
        if (auto* key = dynamic_cast<ConsoleButton*>(item))
            placed << QStringLiteral("key %1").arg(key->buttonNumber()) + at + ' ' + key->text();
        else if (auto* fader = dynamic_cast<ConsoleFader*>(item))
            placed << QStringLiteral("fader %1%2 %3")
                          .arg(fader->faderNumber())
                          .arg(at)
                          .arg(fader->length());
        else if (auto* wheel = dynamic_cast<ConsoleWheel*>(item))
            placed << QStringLiteral("wheel %1").arg(wheel->wheelNumber()) + at;
        else if (dynamic_cast<FrontPanel::Display*>(item))
            placed << QStringLiteral("display %1").arg(item == panel.display(0) ? 0 : 1) + at;
        else if (auto* block = dynamic_cast<FaderBlock*>(item))
            placed
                << QStringLiteral("faders %1%2 %3").arg(block->first()).arg(at).arg(block->count());
        else if (dynamic_cast<SelectBlock*>(item))
            placed << QStringLiteral("selects") + at;
    }
    return placed;
}

// Whether a caption (where a key differs from a blank one) keeps off both edges
// of the label area, columns 2 and 32, where a wider one is cut off.
bool inkInsideFace(const QImage& key, const QImage& blank)
{
    for (int y = 0; y < key.height(); ++y) {
        for (const int x : {2, 32}) {
            if (key.pixel(x, y) != blank.pixel(x, y))
                return false;
        }
    }
    return true;
}

// Runs the test body in a fresh current directory.
struct InDirectory
{
    QTemporaryDir dir;
    QString previous = QDir::currentPath();
    InDirectory() { QDir::setCurrent(dir.path()); }
    ~InDirectory() { QDir::setCurrent(previous); }
};

} // namespace

class TestFrontPanelLayout : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void compiledInPanels_data();
    void compiledInPanels();
    void unknownModelBuildsNothing();
};

void TestFrontPanelLayout::lines_data()
{
    // layout: "|" stands for a TAB
    addColumns<QString, QStringList>({"layout", "expected"});
    QTest::newRow("button row, x moved 2 left")
        << "Button|505|102|3|1|37|0|73,80,81|Undo,<<,<\r\n"
        << QStringList{"key 73 503,102 Undo", "key 80 540,102 <<", "key 81 577,102 <"};
    QTest::newRow("button column uses the row step")
        << "Button|505|174|1|3|9|36|63,66,65|Mems,25-48,1-24\n"
        << QStringList{"key 63 503,174 Mems", "key 66 503,210 25-48", "key 65 503,246 1-24"};
    QTest::newRow("malformed lines build nothing")
        << "Button|10|10|2|2|40|40|1,2,3,4|a,b,c,d\r\n" // 2 x 2
           "Button|10|10|3|1|40|0|1,2,3|a,b\r\n"        // three codes, two labels
           "Button|10|10|3|1|40|0|1,2|a,b\r\n"          // codes not filling the grid
           "Wheel|10|10|1|1|0|0\r\n"                    // one field too few
           "Fader|558|209|1|2|0|40|50,51\r\n"           // faders in a column
        << QStringList{};
    QTest::newRow("faders: 5 left, travel by number")
        << "Fader|558|209|3|1|40|99|47,48,51\r\n"
        << QStringList{"fader 47 553,209 110", "fader 48 593,209 127", "fader 51 633,209 127"};
    QTest::newRow("unknown keyword, empty lines, not a number is 0")
        << "\r\nKnob|1|2\r\n\r\nWheel|left|101|1|1|0|0|x\r\n"
        << QStringList{"wheel 0 0,101"};
    QTest::newRow("wheels; display ids above 1 skipped")
        << "Wheel|751|101|2|1|137|0|1,2\r\nDisplay|565|32|2|1|282|0|0,5\r\n"
        << QStringList{"wheel 1 751,101", "wheel 2 888,101", "display 0 565,32"};
    QTest::newRow("blocks: faders 5 left and 17 up, selects in place")
        << "Faders|13|240|12|12\r\nSelects|9|-4\r\n"
        << QStringList{"faders 12 8,223 12", "selects 9,-4"};
    QTest::newRow("a control off the panel or past the numbers builds nothing")
        << "Button|1300|10|1|1|0|0|5|x\nWheel|10|10|2|1|2147483000|0|1,2\n"
           "Fader|-2147483648|10|1|1|0|0|3\nSelects|9|2000\nDisplay|10|10|2|1|-20|0|0,1\n"
        << QStringList{};
    QTest::newRow("fader blocks of the console's faders only")
        << "Faders|13|240|12|40\nFaders|13|240|2|-1\nFaders|13|240|0|0\nFaders|13|240|48|0\n"
        << QStringList{"faders 0 8,223 48"};
    QTest::newRow("empty caption kept, file order kept")
        << "Button|100|10|2|1|40|0|1,2|,b\nWheel|1|1|1|1|0|0|3\n"
        << QStringList{"key 1 98,10 ", "key 2 138,10 b", "wheel 3 1,1"};
}

void TestFrontPanelLayout::lines()
{
    auto [layout, expected] = fetch<QString, QStringList>({"layout", "expected"});
    PanelConsole console(ConsoleCache::ModelMaple);
    // The model's file in the current directory replaces the compiled-in
    // one; another model's file there is not read.
    InDirectory here;
    for (const QString& model : {QStringLiteral("Maple"), QStringLiteral("Alder")}) {
        QFile file(QStringLiteral("FrontPanel%1.txt").arg(model));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(model == QLatin1String("Maple") ? layout.replace('|', '\t').toUtf8()
                                                   : "Wheel\t50\t60\t1\t1\t0\t0\t7\r\n");
    }
    FrontPanel panel;
    QCOMPARE(controlsOf(panel), expected);
    QCOMPARE(panel.size(), QSize(1280, 459)); // the picture stays the compiled-in one
}

void TestFrontPanelLayout::compiledInPanels_data()
{
    // layoutSha1: any edit of the file must be deliberate
    addColumns<int, QByteArray, int>({"model", "layoutSha1", "width"});
    QTest::newRow("Alder") << int(ConsoleCache::ModelAlder)
                           << QByteArray("6deaaeb81e2fefd429dff996285866112b030150") << 788;
    QTest::newRow("Birch") << int(ConsoleCache::ModelBirch)
                           << QByteArray("b8fbbeecf20b1841374415581eb5e49e12310ca0") << 788;
    QTest::newRow("Cedar") << int(ConsoleCache::ModelCedar)
                           << QByteArray("88ee3f26633b5802151bbdbdd6ee63e1d1c968b7") << 1280;
    QTest::newRow("Maple") << int(ConsoleCache::ModelMaple)
                           << QByteArray("c419ef3cbdcdbb9c53575b361d9af707d409b7a0") << 1280;
}

void TestFrontPanelLayout::compiledInPanels()
{
    auto [model, layoutSha1, width] = fetch<int, QByteArray, int>({"model", "layoutSha1", "width"});
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    FrontPanel panel;
    QFile layout(QStringLiteral(":/Lumidesk/Resources/%1.txt").arg(FrontPanel::baseName(model)));
    QVERIFY(layout.open(QIODevice::ReadOnly));
    QCOMPARE(QCryptographicHash::hash(layout.readAll(), QCryptographicHash::Sha1).toHex(),
             layoutSha1);
    const QSize size(width, 459);
    QCOMPARE(panel.size(), size);
    QCOMPARE(panel.backgroundBrush().texture().size(), size);

    // Every key and fader, blocks included, lies on the picture, no two
    // share a place, and every caption shows whole on its key's face.
    const QRectF picture(QPointF(0, 0), size);
    QSet<QPair<int, int>> places;
    Button blank(nullptr, nullptr, nullptr, Button::ButtonStyle::ConsoleTextStyle, QString());
    const QRect face(0, 0, Button::consoleWidth, Button::consoleHeight);
    const QImage blankFace = paintedItem(&blank, face);
    const QList<QGraphicsItem*> items = panel.panelScene()->items();
    for (QGraphicsItem* item : items) {
        auto* key = dynamic_cast<ConsoleButton*>(item);
        if (!key && !dynamic_cast<ConsoleFader*>(item))
            continue;
        const QRectF area = item->sceneBoundingRect();
        QVERIFY2(
            picture.contains(area),
            qPrintable(QStringLiteral("off the picture at %1, %2").arg(area.x()).arg(area.y())));
        QVERIFY(!places.contains({int(area.x()), int(area.y())}));
        places.insert({int(area.x()), int(area.y())});
        if (key)
            QVERIFY2(inkInsideFace(paintedItem(key, face), blankFace), qPrintable(key->text()));
    }
}

void TestFrontPanelLayout::unknownModelBuildsNothing()
{
    FrontPanel panel(nullptr); // no console at all
    QVERIFY(panel.panelScene()->items().isEmpty());
}

LUMIDESK_TEST_MAIN(TestFrontPanelLayout)

#include "tst_frontpanel_layout.moc"
