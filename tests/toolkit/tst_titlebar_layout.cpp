// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"

#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/MakeFont.h"
#include "toolkit/TitleBar.h"

#include <QFontMetrics>
#include <QTest>

#include <memory>

using Item = TitleBar::Item;
using Model = ConsoleCache::ConsoleType;

Q_DECLARE_METATYPE(TitleBar::Item)
Q_DECLARE_METATYPE(ConsoleCache::ConsoleType)

class TestTitleBarLayout : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void positionsFromTheRight_data();
    void positionsFromTheRight();
    void lineButtonsKeepTheirPlaceWhenHidden();
    void modelDecidesIndicatorAndIfcbButtons_data();
    void modelDecidesIndicatorAndIfcbButtons();
    void lineButtonRange_data();
    void lineButtonRange();
    void smMsButtons();
    void titleKeepsItsRightEnd_data();
    void titleKeepsItsRightEnd();
    void titleRoomFollowsTheWidth();
    void onlineState_data();
    void onlineState();

private:
    TitleBar& makeBar(Model model, int width);

    std::unique_ptr<FakeEngine> engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<QWidget> window;
    TitleBar* bar = nullptr;
};

void TestTitleBarLayout::cleanup()
{
    window.reset();
    Lumidesk::instance()->setConsole(nullptr);
    console.reset();
    engine.reset();
}

TitleBar& TestTitleBarLayout::makeBar(Model model, int width)
{
    if (model != ConsoleCache::ModelUnknown) {
        engine = std::make_unique<FakeEngine>(model);
        console.reset(engine->createConsole());
        Lumidesk::instance()->setConsole(console.get());
    }
    window = std::make_unique<QWidget>();
    bar = new TitleBar(window.get());
    window->resize(width, 100);
    bar->resize(width, 33);
    // The layout runs when the shown view's viewport is resized.
    window->show();
    return *bar;
}

void TestTitleBarLayout::positionsFromTheRight_data()
{
    QTest::addColumn<Model>("model");
    QTest::addColumn<Item>("item");
    QTest::addColumn<int>("fromRight");
    const auto row = [](const char* name, Model model, Item item, int fromRight) {
        QTest::newRow(name) << model << item << fromRight;
    };
    // Every model: close, minimise and the line buttons.
    row("close", ConsoleCache::ModelAlder, Item::Close, 32);
    row("minimise", ConsoleCache::ModelAlder, Item::Minimize, 64);
    row("three lines", ConsoleCache::ModelAlder, Item::ThreeLines, 130);
    row("two lines", ConsoleCache::ModelAlder, Item::TwoLines, 162);
    row("one line", ConsoleCache::ModelAlder, Item::OneLine, 194);
    row("no lines", ConsoleCache::ModelAlder, Item::NoLines, 226);
    row("maple close", ConsoleCache::ModelMaple, Item::Close, 32);
    row("maple no lines", ConsoleCache::ModelMaple, Item::NoLines, 226);
    // Alder: no IFCB Fx and Time; the DMX input indicator stands left of
    // the language button.
    row("alder MS", ConsoleCache::ModelAlder, Item::Ms, 292);
    row("alder SM", ConsoleCache::ModelAlder, Item::Sm, 324);
    row("alder help", ConsoleCache::ModelAlder, Item::Help, 390);
    row("alder language", ConsoleCache::ModelAlder, Item::Language, 422);
    row("alder DMX input", ConsoleCache::ModelAlder, Item::DmxInput, 454);
    row("alder online", ConsoleCache::ModelAlder, Item::Online, 543);
    row("alder console, 42 wide", ConsoleCache::ModelAlder, Item::Console, 590);
    row("alder capture", ConsoleCache::ModelAlder, Item::Capture, 622);
    row("alder clock", ConsoleCache::ModelAlder, Item::Clock, 687);
    row("cedar console, 66 wide", ConsoleCache::ModelCedar, Item::Console, 614);
    row("cedar clock", ConsoleCache::ModelCedar, Item::Clock, 711);
    // Maple: IFCB Fx (66 wide) and Time, no DMX input indicator.
    row("maple IFCB Fx", ConsoleCache::ModelMaple, Item::IfcbFx, 331);
    row("maple time", ConsoleCache::ModelMaple, Item::Time, 363);
    row("maple MS", ConsoleCache::ModelMaple, Item::Ms, 429);
    row("maple SM", ConsoleCache::ModelMaple, Item::Sm, 461);
    row("maple help", ConsoleCache::ModelMaple, Item::Help, 527);
    row("maple language", ConsoleCache::ModelMaple, Item::Language, 559);
    row("maple online", ConsoleCache::ModelMaple, Item::Online, 648);
    row("maple console, 65 wide", ConsoleCache::ModelMaple, Item::Console, 718);
    row("maple capture", ConsoleCache::ModelMaple, Item::Capture, 750);
    row("maple clock", ConsoleCache::ModelMaple, Item::Clock, 815);
    // Without a console the Maple's console picture but the others' layout.
    row("no console: console", ConsoleCache::ModelUnknown, Item::Console, 613);
}

void TestTitleBarLayout::positionsFromTheRight()
{
    QFETCH(Model, model);
    QFETCH(Item, item);
    QFETCH(int, fromRight);
    for (const int width : {1280, 1600}) {
        TitleBar& bar = makeBar(model, width);
        QCOMPARE(bar.item(item)->pos(), QPointF(width - fromRight, 3));
        QCOMPARE(bar.item(Item::Title)->pos(), QPointF(40, 7));
        QCOMPARE(bar.item(Item::Logo)->pos(), QPointF(0, 0));
        cleanup();
    }
}

void TestTitleBarLayout::lineButtonsKeepTheirPlaceWhenHidden()
{
    TitleBar& bar = makeBar(ConsoleCache::ModelBirch, 1000);
    bar.setLineButtonRange(-1, -1);
    QCOMPARE(bar.item(Item::Ms)->pos().x(), 1000.0 - 292);
    QVERIFY(!bar.item(Item::NoLines)->isVisible());
    bar.setLineButtonRange(0, 3);
    bar.resize(1200, 33);
    QCOMPARE(bar.item(Item::Ms)->pos().x(), 1200.0 - 292);
}

void TestTitleBarLayout::modelDecidesIndicatorAndIfcbButtons_data()
{
    QTest::addColumn<Model>("model");
    QTest::addColumn<bool>("maple");
    QTest::newRow("alder") << ConsoleCache::ModelAlder << false;
    QTest::newRow("birch") << ConsoleCache::ModelBirch << false;
    QTest::newRow("cedar") << ConsoleCache::ModelCedar << false;
    QTest::newRow("maple") << ConsoleCache::ModelMaple << true;
}

void TestTitleBarLayout::modelDecidesIndicatorAndIfcbButtons()
{
    QFETCH(Model, model);
    QFETCH(bool, maple);
    TitleBar& bar = makeBar(model, 1280);
    QCOMPARE(bar.item(Item::DmxInput)->isVisible(), !maple);
    QCOMPARE(bar.item(Item::IfcbFx)->isVisible(), maple);
    QCOMPARE(bar.item(Item::Time)->isVisible(), maple);
    bar.setIfcbFxTimeButtonsVisible(false);
    QVERIFY(!bar.item(Item::IfcbFx)->isVisible());
    bar.setIfcbFxTimeButtonsVisible(true);
    QCOMPARE(bar.item(Item::IfcbFx)->isVisible(), maple);
    QCOMPARE(bar.item(Item::Time)->isVisible(), maple);
}

void TestTitleBarLayout::lineButtonRange_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<QList<bool>>("shown");
    QTest::newRow("two and three") << 2 << 3 << QList<bool>{false, false, true, true};
    QTest::newRow("all four") << 0 << 3 << QList<bool>{true, true, true, true};
    QTest::newRow("one only") << 1 << 1 << QList<bool>{false, true, false, false};
    QTest::newRow("none") << -1 << -1 << QList<bool>{false, false, false, false};
}

void TestTitleBarLayout::lineButtonRange()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(QList<bool>, shown);
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder, 1280);
    QList<bool> seen;
    for (Item item : {Item::NoLines, Item::OneLine, Item::TwoLines, Item::ThreeLines})
        seen << bar.item(item)->isVisible();
    QCOMPARE(seen, (QList<bool>{false, false, false, false}));
    bar.setLineButtonRange(min, max);
    seen.clear();
    for (Item item : {Item::NoLines, Item::OneLine, Item::TwoLines, Item::ThreeLines})
        seen << bar.item(item)->isVisible();
    QCOMPARE(seen, shown);
}

void TestTitleBarLayout::smMsButtons()
{
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder, 1280);
    QVERIFY(!bar.item(Item::Sm)->isVisible());
    QVERIFY(!bar.item(Item::Ms)->isVisible());
    bar.setSmMsButtonsVisible(true);
    QVERIFY(bar.item(Item::Sm)->isVisible());
    QVERIFY(bar.item(Item::Ms)->isVisible());
}

void TestTitleBarLayout::titleKeepsItsRightEnd_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("elided");
    QTest::newRow("short title whole") << QStringLiteral("C:/Shows/Panto.asc") << false;
    QTest::newRow("long path loses its left")
        << QStringLiteral("C:/Users/Lighting/Documents/Theatre Royal/2026 Season/Panto "
                          "Dress Rehearsal Final Version.asc")
        << true;
    QTest::newRow("new show") << QString() << false;
}

void TestTitleBarLayout::titleKeepsItsRightEnd()
{
    QFETCH(QString, title);
    QFETCH(bool, elided);
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder, 1280);
    TitleBar::Title& item = const_cast<TitleBar::Title&>(bar.titleItem());
    item.setAvailableWidth(450);
    bar.setTitle(title);
    const QString shown = item.shownText();
    QVERIFY2(shown.startsWith(QStringLiteral("Lumidesk - [")), qPrintable(shown));
    QVERIFY2(shown.endsWith(QStringLiteral("]")), qPrintable(shown));
    const QString inner = shown.mid(12, shown.size() - 13);
    if (elided) {
        QVERIFY2(inner.startsWith(QChar(0x2026)), qPrintable(shown));
        QVERIFY2(title.endsWith(inner.mid(1)), qPrintable(shown));
        QVERIFY(inner.size() > 10);
    } else {
        QCOMPARE(inner, title);
    }
    const QFontMetrics metrics(makeFont(QStringLiteral("System"), 14, true));
    QVERIFY(metrics.horizontalAdvance(shown) <= 450);
}

void TestTitleBarLayout::titleRoomFollowsTheWidth()
{
    TitleBar& alder = makeBar(ConsoleCache::ModelAlder, 1280);
    // The clock's left minus a gap of 34 and the title's own left of 40.
    QCOMPARE(alder.titleItem().availableWidth(), 1280 - 687 - 34 - 40);
    cleanup();
    TitleBar& maple = makeBar(ConsoleCache::ModelMaple, 1600);
    QCOMPARE(maple.titleItem().availableWidth(), 1600 - 815 - 34 - 40);
}

void TestTitleBarLayout::onlineState_data()
{
    QTest::addColumn<bool>("online");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("online") << true << QStringLiteral("Online") << QColor(206, 194, 81);
    QTest::newRow("offline") << false << QStringLiteral("Offline") << QColor(96, 78, 215);
}

void TestTitleBarLayout::onlineState()
{
    QFETCH(bool, online);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder, 1280);
    QCOMPARE(bar.onlineState(), QStringLiteral("Offline"));
    bar.setOnline(online);
    QCOMPARE(bar.onlineState(), text);
    auto* label = static_cast<QGraphicsTextItem*>(bar.item(Item::Online));
    QCOMPARE(label->defaultTextColor(), colour);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestTitleBarLayout test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_titlebar_layout.moc"
