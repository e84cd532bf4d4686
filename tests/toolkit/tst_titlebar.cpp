// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"
#include "LumideskTestMain.h"
#include "ToolkitFixture.h"
#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/MakeFont.h"
#include "toolkit/Tab.h"
#include "toolkit/TabStrip.h"
#include "toolkit/TitleBar.h"
#include "toolkit/TitleBarHandler.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QSettings>
#include <QTimer>

#include <memory>
#include <vector>

using Item = TitleBar::Item;
using Model = ConsoleCache::ConsoleType;
Q_DECLARE_METATYPE(TitleBar::Item)
Q_DECLARE_METATYPE(ConsoleCache::ConsoleType)

namespace {

struct RecordingHandler : TitleBarHandler
{
    void setMsMode(bool ms) override { calls << QStringLiteral("ms %1").arg(ms); }
    void setTimeMode(bool time) override { calls << QStringLiteral("time %1").arg(time); }
    void setLineCount(int lines) override { calls << QStringLiteral("lines %1").arg(lines); }
    QStringList calls;
};

using Places = QList<QPair<Item, int>>;
const QList<Item> lineButtons{Item::NoLines, Item::OneLine, Item::TwoLines, Item::ThreeLines};

// A view that writes every call of the strip, and hiding and showing of its
// widget, into a shared log.
class FakeTab : public Tab, public QObject
{
public:
    FakeTab(const QString& name, QStringList& log) : name(name), log(log)
    {
        view.installEventFilter(this);
    }
    QWidget* widget() override { return &view; }
    QString title() override { return name; }
    void activate() override { log << name + QStringLiteral(" activate"); }
    QWidget* createFeatureWidget(QWidget* parent, const QRect&) override
    {
        log << name + QStringLiteral(" feature");
        feature = new QWidget(parent);
        return feature;
    }
    void deactivate() override { log << name + QStringLiteral(" deactivate"); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide || event->type() == QEvent::Show)
            log << name + (event->type() == QEvent::Hide ? QStringLiteral(" hide")
                                                         : QStringLiteral(" show"));
        return false;
    }

    QString name;
    QStringList& log;
    QWidget view;
    QPointer<QWidget> feature;
};

} // namespace

class TestTitleBar : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void positionsFromTheRight_data();
    void positionsFromTheRight();
    void titleKeepsItsRightEnd_data();
    void titleKeepsItsRightEnd();
    void viewButtonsReachTheRegisteredView_data();
    void viewButtonsReachTheRegisteredView();
    void draggingMovesTheWindowUnlessMaximised_data();
    void draggingMovesTheWindowUnlessMaximised();
    void indicatorClockAndOnlineState();
    void languageMenuStoresTheChoiceAndTellsToRestart();
    void firstTabIsCurrentWithoutActivation();
    void switchingActivatesTheNewTabBeforeDeactivatingTheOld();
    void tabsOverlapFromTheRight_data();
    void tabsOverlapFromTheRight();

private:
    TitleBar& makeBar(Model model, int width = 1280);
    void click(Item item);
    void addTabs();
    QImage paint() { return m_strip->grab().toImage(); }

    QStringList m_log;
    std::unique_ptr<TabStrip> m_strip;
    std::vector<std::unique_ptr<FakeTab>> m_tabs;

    std::unique_ptr<FakeEngine> m_engine;
    std::unique_ptr<Console> m_console;
    std::unique_ptr<QWidget> m_window;
    TitleBar* m_bar = nullptr;
};

void TestTitleBar::cleanup()
{
    m_strip.reset();
    m_tabs.clear();
    m_log.clear();
    m_window.reset();
    Lumidesk::instance()->setConsole(nullptr);
    m_console.reset();
    m_engine.reset();
}

TitleBar& TestTitleBar::makeBar(Model model, int width)
{
    cleanup();
    if (model != ConsoleCache::ModelUnknown) {
        m_engine = std::make_unique<FakeEngine>(model);
        m_console.reset(m_engine->createConsole());
        Lumidesk::instance()->setConsole(m_console.get());
    }
    m_window = std::make_unique<QWidget>();
    m_bar = new TitleBar(m_window.get());
    m_window->resize(width, 100);
    m_bar->resize(width, 33);
    // The layout runs when the shown view's viewport is resized.
    m_window->show();
    return *m_bar;
}

void TestTitleBar::click(Item item)
{
    SceneMouse{*m_bar->scene()}.click(m_bar->item(item)->scenePos() + QPointF(8, 8));
}

void TestTitleBar::positionsFromTheRight_data()
{
    addColumns<Model, Places>({"model", "places"});
    // Close, minimise and the line buttons alike on every model, shown or not.
    const Places common{
        {Item::Close, 32}, {Item::Minimize, 64}, {Item::ThreeLines, 130}, {Item::NoLines, 226}};
    QTest::newRow("alder: DMX input left of the language button, console 42 wide")
        << ConsoleCache::ModelAlder
        << common + Places{{Item::Ms, 292},       {Item::Sm, 324},       {Item::Help, 390},
                           {Item::Language, 422}, {Item::DmxInput, 454}, {Item::Online, 543},
                           {Item::Console, 590},  {Item::Capture, 622},  {Item::Clock, 687}};
    QTest::newRow("cedar: console 66 wide")
        << ConsoleCache::ModelCedar << Places{{Item::Console, 614}, {Item::Clock, 711}};
    QTest::newRow("maple: IFCB Fx (66 wide) and Time, no DMX input, console 65 wide")
        << ConsoleCache::ModelMaple
        << common + Places{{Item::IfcbFx, 331},   {Item::Time, 363},   {Item::Ms, 429},
                           {Item::Language, 559}, {Item::Online, 648}, {Item::Console, 718},
                           {Item::Capture, 750},  {Item::Clock, 815}};
    // Without a console the Maple's console picture but the others' layout.
    QTest::newRow("no console") << ConsoleCache::ModelUnknown << Places{{Item::Console, 613}};
}

void TestTitleBar::positionsFromTheRight()
{
    auto [model, places] = fetch<Model, Places>({"model", "places"});
    TitleBar& bar = makeBar(model, 1280);
    for (const int width : {1280, 1600}) {
        if (width == 1600) { // shown buttons keep the places of hidden ones
            bar.setLineButtonRange(0, 3);
            bar.setSmMsButtonsVisible(true);
            m_window->resize(width, 100);
            bar.resize(width, 33);
        }
        for (const auto& [item, fromRight] : places) {
            QCOMPARE(bar.item(item)->pos(), QPointF(width - fromRight, 3));
            // The title has the room up to the clock, less a gap of 34.
            if (item == Item::Clock)
                QCOMPARE(bar.titleItem().availableWidth(), width - fromRight - 34 - 40);
        }
        QCOMPARE(bar.item(Item::Title)->pos(), QPointF(40, 7));
        QCOMPARE(bar.item(Item::Logo)->pos(), QPointF(0, 0));
    }
    // Only the Maple has IFCB Fx and Time, and no DMX input indicator.
    const bool maple = model == ConsoleCache::ModelMaple;
    QCOMPARE(bar.item(Item::DmxInput)->isVisible(), !maple);
    bar.setIfcbFxTimeButtonsVisible(false);
    QVERIFY(!bar.item(Item::IfcbFx)->isVisible() && !bar.item(Item::Time)->isVisible());
    bar.setIfcbFxTimeButtonsVisible(true);
    QCOMPARE(bar.item(Item::IfcbFx)->isVisible(), maple);
    QCOMPARE(bar.item(Item::Time)->isVisible(), maple);
    // The button for n lines shows exactly for min <= n <= max.
    const auto shown = [&bar] {
        QList<bool> visible;
        for (Item item : lineButtons)
            visible << bar.item(item)->isVisible();
        return visible;
    };
    bar.setLineButtonRange(2, 3);
    QCOMPARE(shown(), (QList<bool>{false, false, true, true}));
    bar.setLineButtonRange(-1, -1);
    QCOMPARE(shown(), QList<bool>(4, false));
}

void TestTitleBar::titleKeepsItsRightEnd_data()
{
    addColumns<QString, bool>({"title", "elided"});
    QTest::newRow("short title whole") << "C:/Shows/Panto.asc" << false;
    QTest::newRow("long path loses its left")
        << "C:/Users/Lighting/Documents/Theatre Royal/2026 Season/Panto Dress Rehearsal.asc"
        << true;
    QTest::newRow("new show") << QString() << false;
}

void TestTitleBar::titleKeepsItsRightEnd()
{
    auto [title, elided] = fetch<QString, bool>({"title", "elided"});
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder);
    auto& item = const_cast<TitleBar::Title&>(bar.titleItem());
    item.setAvailableWidth(450);
    bar.setTitle(title);
    const QString shown = item.shownText();
    QCOMPARE(shown.left(12) + shown.right(1), QStringLiteral("Lumidesk - []"));
    // An elided title keeps its right-hand end behind an ellipsis.
    const QString inner = shown.mid(12, shown.size() - 13);
    QCOMPARE(inner.startsWith(QChar(0x2026)), elided);
    QCOMPARE(inner.mid(elided ? 1 : 0), title.right(inner.size() - (elided ? 1 : 0)));
    QVERIFY(!elided || inner.size() > 10);
    const QFontMetrics metrics(makeFont(QStringLiteral("System"), 14, true));
    QVERIFY(metrics.horizontalAdvance(shown) <= 450);
}

void TestTitleBar::viewButtonsReachTheRegisteredView_data()
{
    addColumns<Item, QString>({"button", "call"});
    QTest::newRow("SM") << Item::Sm << "ms 0";
    QTest::newRow("MS") << Item::Ms << "ms 1";
    QTest::newRow("IFCB Fx") << Item::IfcbFx << "time 0";
    QTest::newRow("Time") << Item::Time << "time 1";
    QTest::newRow("no lines") << Item::NoLines << "lines 0";
    QTest::newRow("three lines") << Item::ThreeLines << "lines 3";
    QTest::newRow("minimise") << Item::Minimize << "minimise";
    QTest::newRow("close") << Item::Close << "close";
}

void TestTitleBar::viewButtonsReachTheRegisteredView()
{
    auto [button, call] = fetch<Item, QString>({"button", "call"});
    TitleBar& bar = makeBar(ConsoleCache::ModelMaple);
    bar.setSmMsButtonsVisible(true);
    bar.setIfcbFxTimeButtonsVisible(true);
    bar.setLineButtonRange(0, 3);
    QStringList signalled;
    connect(&bar, &TitleBar::minimizeButtonClicked, this, [&] { signalled << "minimise"; });
    connect(&bar, &TitleBar::closeButtonClicked, this, [&] { signalled << "close"; });
    // Without a registered view nothing happens.
    click(button);
    QVERIFY(bar.titleBarHandler() == nullptr);
    const QStringList viewless =
        call.contains(QLatin1Char(' ')) ? QStringList() : QStringList{call};
    QCOMPARE(signalled, viewless);
    RecordingHandler first;
    RecordingHandler second;
    bar.setTitleBarHandler(&first);
    bar.setTitleBarHandler(&second);
    click(button);
    QVERIFY(first.calls.isEmpty());
    QCOMPARE(second.calls + signalled, QStringList{call} + viewless);
}

void TestTitleBar::draggingMovesTheWindowUnlessMaximised_data()
{
    addColumns<bool, QPoint>({"maximised", "moved"});
    QTest::newRow("normal window follows") << false << QPoint(30, -10);
    QTest::newRow("maximised window stays") << true << QPoint(0, 0);
}

void TestTitleBar::draggingMovesTheWindowUnlessMaximised()
{
    auto [maximised, moved] = fetch<bool, QPoint>({"maximised", "moved"});
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder);
    m_window->hide();
    m_window->move(100, 100);
    if (maximised)
        m_window->setWindowState(Qt::WindowMaximized);
    const QPoint start = m_window->pos();
    const auto moveTo = [&bar](QPoint global, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, QPointF(200, 10), QPointF(global), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(bar.viewport(), &event);
    };
    // Moves without a button only remember where the mouse is.
    moveTo(QPoint(500, 500), Qt::NoButton);
    moveTo(QPoint(520, 520), Qt::NoButton);
    QCOMPARE(m_window->pos(), start);
    moveTo(QPoint(540, 515), Qt::LeftButton);
    moveTo(QPoint(550, 510), Qt::LeftButton);
    QCOMPARE(m_window->pos(), start + moved);
}

void TestTitleBar::indicatorClockAndOnlineState()
{
    TitleBar& bar = makeBar(ConsoleCache::ModelAlder);
    // The DMX input socket is red without input and green with it, under
    // "DMX" and "IN" in white.
    QGraphicsItem* indicator = bar.item(Item::DmxInput);
    const auto red = [](QRgb p) { return qRed(p) > 150 && qGreen(p) < 110; };
    const auto green = [](QRgb p) { return qGreen(p) > 150 && qRed(p) < 130; };
    for (const bool input : {false, true}) {
        m_engine->record()->dmxInputValid = input;
        const QImage image = renderItem(*indicator);
        QCOMPARE(inkBox(image, QRect(), red).isEmpty(), input);
        QCOMPARE(inkBox(image, QRect(), green).isEmpty(), !input);
        QVERIFY(!inkBox(image, QRect(0, 0, 27, 14), [](QRgb p) {
                     return p == qRgb(255, 255, 255);
                 }).isEmpty());
    }
    QVERIFY2(
        QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d$")).match(bar.clockText()).hasMatch(),
        qPrintable(bar.clockText()));
    auto* online = static_cast<QGraphicsTextItem*>(bar.item(Item::Online));
    QCOMPARE(bar.onlineState(), QStringLiteral("Offline"));
    QCOMPARE(online->defaultTextColor(), QColor(96, 78, 215));
    bar.setOnline(true);
    QCOMPARE(bar.onlineState(), QStringLiteral("Online"));
    QCOMPARE(online->defaultTextColor(), QColor(206, 194, 81));
}

void TestTitleBar::languageMenuStoresTheChoiceAndTellsToRestart()
{
    makeBar(ConsoleCache::ModelAlder);
    QStringList offered;
    QString checked;
    QString box;
    // The menu and the information box are modal: answer them as they come.
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            if (!offered.isEmpty())
                return;
            for (QAction* action : menu->actions()) {
                offered << action->text();
                if (action->isChecked())
                    checked = action->text();
            }
            menu->setActiveAction(menu->actions().at(2));
            QTest::keyClick(menu, Qt::Key_Return);
        } else if (auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box = message->windowTitle() + QLatin1Char('/') + message->text();
            message->button(QMessageBox::Ok)->click();
        }
    });
    answer.start(5);
    click(Item::Language);
    answer.stop();
    QCOMPARE(offered, (QStringList{"en", "fr", "de", "es", "it"}));
    QCOMPARE(checked, QStringLiteral("en"));
    QCOMPARE(box, QStringLiteral("Change language/You must restart Lumidesk in order for the "
                                 "language change to take effect!"));
    QCOMPARE(QSettings().value(QStringLiteral("Language")).toString(), QStringLiteral("de"));
    Lumidesk::instance()->setLanguage(QStringLiteral("en"));
}

void TestTitleBar::addTabs()
{
    m_strip = std::make_unique<TabStrip>();
    m_strip->resize(700, 25);
    for (const char* name : {"Playback", "Memories", "DMX In/Out"}) {
        m_tabs.push_back(std::make_unique<FakeTab>(QString::fromLatin1(name), m_log));
        m_strip->addTab(m_tabs.back().get());
    }
}

void TestTitleBar::firstTabIsCurrentWithoutActivation()
{
    addTabs();
    QCOMPARE(m_strip->currentIndex(), 0);
    QCOMPARE(m_log,
             (QStringList{"Playback feature", "Memories deactivate", "DMX In/Out deactivate"}));
    QCOMPARE(m_strip->featureWidget(), m_tabs[0]->feature.data());
    QCOMPARE(m_tabs[0]->feature->parentWidget(), m_strip.get());
    // Refreshing hides and shows the current view again.
    m_tabs[0]->view.show();
    m_log.clear();
    m_strip->refreshCurrentTab();
    QCOMPARE(m_log, (QStringList{"Playback hide", "Playback show"}));
    TabStrip().refreshCurrentTab();
}

void TestTitleBar::switchingActivatesTheNewTabBeforeDeactivatingTheOld()
{
    addTabs();
    paint();
    m_log.clear();
    // Clicks on the current tab or beside every tab, and index -1, do nothing.
    const int middle = (m_strip->tabLeft(0) + m_strip->tabRight(0)) / 2;
    QTest::mouseClick(m_strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(middle, 12));
    QTest::mouseClick(m_strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 12));
    m_strip->setCurrentTab(-1);
    QVERIFY(m_log.isEmpty());
    const QPointer<QWidget> oldFeature = m_tabs[0]->feature;
    m_strip->setCurrentTab(2);
    QCOMPARE(m_strip->currentIndex(), 2);
    QCOMPARE(m_log,
             (QStringList{"DMX In/Out activate", "DMX In/Out feature", "Playback deactivate"}));
    QCOMPARE(m_tabs[2]->feature->geometry(), m_strip->featureGeometry());
    QVERIFY(oldFeature && !oldFeature->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!oldFeature);
}

void TestTitleBar::tabsOverlapFromTheRight_data()
{
    addColumns<int, int>({"fromLeftOfSecond", "selected"});
    QTest::newRow("left edge of the overlap") << 0 << 0;
    QTest::newRow("right edge of the overlap") << 5 << 0;
    QTest::newRow("just past the overlap") << 6 << 1;
}

void TestTitleBar::tabsOverlapFromTheRight()
{
    addTabs();
    auto [fromLeftOfSecond, selected] = fetch<int, int>({"fromLeftOfSecond", "selected"});
    m_strip->setCurrentTab(2);
    const QImage image = paint();
    const QFontMetrics metrics(makeFont(QStringLiteral("Verdana"), 10));
    int right = 700 - 38;
    for (int i = 2; i >= 0; --i) {
        const int left = right - metrics.horizontalAdvance(m_tabs[i]->name) - 24;
        QCOMPARE(m_strip->tabRight(i), right);
        QCOMPARE(m_strip->tabLeft(i), left);
        // Below the rounded corner, left of the title, clear of the neighbour over it.
        QCOMPARE(image.pixel(left + 9, 17), i == 2 ? qRgb(128, 128, 128) : qRgb(50, 50, 50));
        right = left + 5;
    }
    QCOMPARE(image.pixelColor(300, 22), QColor(80, 80, 80)); // the dark line under the tabs
    // The feature widget has the room left of the tabs, less the overlap.
    QCOMPARE(m_strip->featureGeometry(), QRect(42, 0, right - 42, 25));
    QCOMPARE(m_tabs[2]->feature->geometry(), m_strip->featureGeometry());
    // Only x is tested, so the height of the click does not matter.
    const int x = m_strip->tabLeft(1) + fromLeftOfSecond;
    QTest::mouseClick(m_strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(x, 1));
    QCOMPARE(m_strip->currentIndex(), selected);
}

LUMIDESK_TEST_MAIN(TestTitleBar)

#include "tst_titlebar.moc"
