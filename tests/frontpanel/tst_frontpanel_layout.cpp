// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanelTestKit.h"

#include "ConsoleButton.h"
#include "ConsoleFader.h"
#include "ConsoleWheel.h"
#include "FaderBlock.h"
#include "FrontPanel.h"
#include "Lumidesk.h"
#include "SelectBlock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace {

// One built control, as the tests compare them.
struct Placed
{
    QString kind;
    int number;
    QPoint at;
    QString caption;
    bool operator==(const Placed& other) const
    {
        return kind == other.kind && number == other.number && at == other.at &&
               caption == other.caption;
    }
};

char* toString(const Placed& placed)
{
    return qstrdup(QStringLiteral("%1 %2 at (%3, %4) \"%5\"")
                       .arg(placed.kind)
                       .arg(placed.number)
                       .arg(placed.at.x())
                       .arg(placed.at.y())
                       .arg(placed.caption)
                       .toUtf8()
                       .constData());
}

// The panel's own top-level controls in creation order (block contents
// are the blocks' business).
QList<Placed> controlsOf(FrontPanel& panel)
{
    QList<Placed> placed;
    QList<QGraphicsItem*> items = panel.panelScene()->items(Qt::AscendingOrder);
    for (QGraphicsItem* item : items) {
        if (item->parentItem())
            continue;
        const QPoint at = item->pos().toPoint();
        if (auto* key = dynamic_cast<ConsoleButton*>(item))
            placed << Placed{"key", key->buttonNumber(), at, key->text()};
        else if (auto* fader = dynamic_cast<ConsoleFader*>(item))
            placed << Placed{"fader", fader->faderNumber(), at, QString::number(fader->length())};
        else if (auto* wheel = dynamic_cast<ConsoleWheel*>(item))
            placed << Placed{"wheel", wheel->wheelNumber(), at, QString()};
        else if (dynamic_cast<FrontPanel::Display*>(item))
            placed << Placed{"display", item == panel.display(0) ? 0 : 1, at, QString()};
        else if (auto* block = dynamic_cast<FaderBlock*>(item))
            placed << Placed{"faders", block->first(), at, QString::number(block->count())};
        else if (dynamic_cast<SelectBlock*>(item))
            placed << Placed{"selects", 0, at, QString()};
    }
    return placed;
}

// Whether a key's caption, the pixels where it differs from a key without
// one, keeps clear of both side edges of the label area (2 to 32): a
// caption wider than that is cut off there.
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
    InDirectory() : previous(QDir::currentPath()) { QDir::setCurrent(dir.path()); }
    ~InDirectory() { QDir::setCurrent(previous); }
    void write(const QString& name, const QByteArray& content)
    {
        QFile file(dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QTemporaryDir dir;
    QString previous;
};

} // namespace

class TestFrontPanelLayout : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void localFileWinsOverCompiledIn();
    void compiledInPanels_data();
    void compiledInPanels();
    void unknownModelBuildsNothing();
};

void TestFrontPanelLayout::lines_data()
{
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<QList<Placed>>("expected");
    using L = QList<Placed>;

    QTest::newRow("button row, x moved 2 left")
        << QByteArray("Button\t505\t102\t3\t1\t37\t0\t73,80,81\tUndo,<<,<\r\n")
        << L{{"key", 73, {503, 102}, "Undo"},
             {"key", 80, {540, 102}, "<<"},
             {"key", 81, {577, 102}, "<"}};
    QTest::newRow("button column uses the row step")
        << QByteArray("Button\t505\t174\t1\t3\t9\t36\t63,66,65\tMems,25-48,1-24\n")
        << L{{"key", 63, {503, 174}, "Mems"},
             {"key", 66, {503, 210}, "25-48"},
             {"key", 65, {503, 246}, "1-24"}};
    QTest::newRow("2 x 2 buttons build nothing")
        << QByteArray("Button\t10\t10\t2\t2\t40\t40\t1,2,3,4\ta,b,c,d\r\n") << L{};
    QTest::newRow("three codes, two labels")
        << QByteArray("Button\t10\t10\t3\t1\t40\t0\t1,2,3\ta,b\r\n") << L{};
    QTest::newRow("codes not matching the grid")
        << QByteArray("Button\t10\t10\t3\t1\t40\t0\t1,2\ta,b\r\n") << L{};
    QTest::newRow("one field too many")
        << QByteArray("Button\t10\t10\t1\t1\t0\t0\t1\ta\textra\r\n") << L{};
    QTest::newRow("one field too few") << QByteArray("Wheel\t10\t10\t1\t1\t0\t0\r\n") << L{};
    QTest::newRow("unknown keyword and empty lines")
        << QByteArray("\r\nKnob\t1\t2\r\n\r\nWheel\t616\t101\t1\t1\t0\t0\t0\r\n")
        << L{{"wheel", 0, {616, 101}, ""}};
    QTest::newRow("faders: 5 left, travel by number")
        << QByteArray("Fader\t558\t209\t3\t1\t40\t99\t47,48,51\r\n")
        << L{{"fader", 47, {553, 209}, "110"},
             {"fader", 48, {593, 209}, "127"},
             {"fader", 51, {633, 209}, "127"}};
    QTest::newRow("faders in a column build nothing")
        << QByteArray("Fader\t558\t209\t1\t2\t0\t40\t50,51\r\n") << L{};
    QTest::newRow("display ids above 1 skipped")
        << QByteArray("Display\t565\t32\t2\t1\t282\t0\t0,5\r\n")
        << L{{"display", 0, {565, 32}, ""}};
    QTest::newRow("second display") << QByteArray("Display\t775\t32\t2\t1\t282\t0\t7,1\r\n")
                                    << L{{"display", 1, {1057, 32}, ""}};
    QTest::newRow("wheels") << QByteArray("Wheel\t751\t101\t2\t1\t137\t0\t1,2\r\n")
                            << L{{"wheel", 1, {751, 101}, ""}, {"wheel", 2, {888, 101}, ""}};
    QTest::newRow("fader block moved 5 left and 17 up")
        << QByteArray("Faders\t13\t240\t12\t12\r\n") << L{{"faders", 12, {8, 223}, "12"}};
    QTest::newRow("select block where the file says")
        << QByteArray("Selects\t9\t-4\r\n") << L{{"selects", 0, {9, -4}, ""}};
    QTest::newRow("not a number counts as 0")
        << QByteArray("Wheel\tleft\t101\t1\t1\t0\t0\tx\r\n") << L{{"wheel", 0, {0, 101}, ""}};
    QTest::newRow("empty caption kept") << QByteArray("Button\t100\t10\t2\t1\t40\t0\t1,2\t,b\r\n")
                                        << L{{"key", 1, {98, 10}, ""}, {"key", 2, {138, 10}, "b"}};
    QTest::newRow("file order kept")
        << QByteArray("Wheel\t1\t1\t1\t1\t0\t0\t3\nButton\t9\t9\t1\t1\t0\t0\t4\tz\n")
        << L{{"wheel", 3, {1, 1}, ""}, {"key", 4, {7, 9}, "z"}};
}

void TestFrontPanelLayout::lines()
{
    QFETCH(QByteArray, layout);
    QFETCH(QList<Placed>, expected);
    PanelConsole console(ConsoleCache::ModelMaple);
    InDirectory here;
    here.write(QStringLiteral("FrontPanelMaple.txt"), layout);
    FrontPanel panel;
    QCOMPARE(controlsOf(panel), expected);
}

void TestFrontPanelLayout::localFileWinsOverCompiledIn()
{
    PanelConsole console(ConsoleCache::ModelAlder);
    {
        FrontPanel compiledIn;
        QCOMPARE(controlsOf(compiledIn).size(), 33);
    }
    InDirectory here;
    here.write(QStringLiteral("FrontPanelAlder.txt"), "Wheel\t5\t6\t1\t1\t0\t0\t0\r\n");
    // Another model's file is not read.
    here.write(QStringLiteral("FrontPanelMaple.txt"), "Wheel\t50\t60\t1\t1\t0\t0\t1\r\n");
    FrontPanel panel;
    const QList<Placed> expected{{"wheel", 0, {5, 6}, ""}};
    QCOMPARE(controlsOf(panel), expected);
    // The picture is still the compiled-in one.
    QCOMPARE(panel.size(), QSize(788, 459));
}

void TestFrontPanelLayout::compiledInPanels_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QByteArray>("layoutSha1"); // any edit of the file must be deliberate
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("counts"); // keys, faders, wheels, displays, select blocks
    QTest::addColumn<QList<int>>("blocks");
    QTest::newRow("Alder") << int(ConsoleCache::ModelAlder)
                           << QByteArray("6deaaeb81e2fefd429dff996285866112b030150")
                           << QSize(788, 459) << "25 4 1 1 0" << QList<int>{0, 12};
    QTest::newRow("Birch") << int(ConsoleCache::ModelBirch)
                           << QByteArray("b8fbbeecf20b1841374415581eb5e49e12310ca0")
                           << QSize(788, 459) << "25 4 1 1 0" << QList<int>{0, 12};
    QTest::newRow("Cedar") << int(ConsoleCache::ModelCedar)
                           << QByteArray("88ee3f26633b5802151bbdbdd6ee63e1d1c968b7")
                           << QSize(1280, 459) << "25 4 1 1 0" << QList<int>{0, 12, 24, 36};
    QTest::newRow("Maple") << int(ConsoleCache::ModelMaple)
                           << QByteArray("c419ef3cbdcdbb9c53575b361d9af707d409b7a0")
                           << QSize(1280, 459) << "49 4 3 2 1" << QList<int>{0, 12};
}

void TestFrontPanelLayout::compiledInPanels()
{
    QFETCH(int, model);
    QFETCH(QByteArray, layoutSha1);
    QFETCH(QSize, size);
    QFETCH(QString, counts);
    QFETCH(QList<int>, blocks);
    PanelConsole console{ConsoleCache::ConsoleType(model)};
    FrontPanel panel;
    QFile layout(QStringLiteral(":/Lumidesk/Resources/%1.txt").arg(FrontPanel::baseName(model)));
    QVERIFY(layout.open(QIODevice::ReadOnly));
    QCOMPARE(QCryptographicHash::hash(layout.readAll(), QCryptographicHash::Sha1).toHex(),
             layoutSha1);
    QCOMPARE(panel.size(), size);
    QCOMPARE(panel.isHidden(), true);
    QCOMPARE(panel.backgroundBrush().texture().size(), size);

    QMap<QString, int> count;
    QList<int> firsts;
    const QList<Placed> controls = controlsOf(panel);
    for (const Placed& placed : controls) {
        ++count[placed.kind];
        if (placed.kind == QLatin1String("faders"))
            firsts << placed.number;
    }
    QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5")
                 .arg(count["key"])
                 .arg(count["fader"])
                 .arg(count["wheel"])
                 .arg(count["display"])
                 .arg(count["selects"]),
             counts);
    QCOMPARE(firsts, blocks);

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
    QCOMPARE(FrontPanel::baseName(ConsoleCache::ModelUnknown), QString());
    QCOMPARE(FrontPanel::baseName(ConsoleCache::ModelCedar), QStringLiteral("FrontPanelCedar"));
    FrontPanel panel(nullptr); // no console at all
    QVERIFY(panel.panelScene()->items().isEmpty());
    QVERIFY(!panel.display(0));
    QVERIFY(!panel.display(1));
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestFrontPanelLayout test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frontpanel_layout.moc"
