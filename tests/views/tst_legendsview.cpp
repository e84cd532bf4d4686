// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleCodes.h"
#include "EngineSession.h"
#include "FaderBlock.h"
#include "InPlaceEditableText.h"
#include "PagesBlock.h"
#include "app/Lumidesk.h"
#include "app/MainFrame.h"
#include "views/LegendsView.h"
#include "views/PagesView.h"
#include "views/ShowItemHandler.h"

#include <QScrollBar>

using Model = ConsoleCache::ConsoleType;

namespace {

// Stands in for the memories view: notes the memory it is asked to show.
struct MemoriesStandIn : QWidget, Tab, ShowItemHandler
{
    using QWidget::QWidget;
    QWidget* widget() override { return this; }
    QString title() override { return QStringLiteral("M"); }
    void activate() override {}
    QWidget* createFeatureWidget(QWidget*, const QRect&) override { return nullptr; }
    void deactivate() override {}
    void showMemory(int page, int memory) override
    {
        shown = QString::asprintf("%d/%d", page, memory);
    }
    QString shown;
};

// The title-bar buttons a tab of a kind shows; the unlisted kinds show none.
QString expectedButtons(int kind, bool maple)
{
    switch (kind) {
    case MainFrame::PagesTab:
    case MainFrame::SecondPagesTab:
        return maple ? "Sm Ms Fx Time 0 1 2 3" : "Sm Ms 0 1 2 3";
    case MainFrame::SequencesTab:
        return maple ? "0 1 2 3" : "Sm Ms 0 1 2 3";
    case MainFrame::GroupsTab:
        return "2 3";
    default:
        return "";
    }
}

QRectF sceneArea(const QGraphicsItem* item)
{
    return item->sceneBoundingRect() | item->mapRectToScene(item->childrenBoundingRect());
}

QString describe(const QRectF& r)
{
    return QString::asprintf("(%g,%g %gx%g)", r.x(), r.y(), r.width(), r.height());
}

} // namespace

class TestLegendsView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void blindModeColours_data();
    void blindModeColours();
    void legendEditReachesRecordAndFaders();
    void simulatedConsoleDrivesBlindAndPages();
    void cedarPagesPair_data();
    void cedarPagesPair();
    void titleBarButtonsPerTab_data();
    void titleBarButtonsPerTab();
    void everyTabInsideAndApart_data();
    void everyTabInsideAndApart();

private:
    MainFrame& open(Model model, const TabRegistry& views = TabRegistry::standard())
    {
        console = std::make_unique<PanelConsole>(model);
        console->engine.setConsoleVersion(console->engine.softwareVersion());
        frame = std::make_unique<MainFrame>(nullptr, views);
        frame->resize(MainFrame::fixedSize);
        frame->show();
        QCoreApplication::processEvents();
        return *frame;
    }
    template <typename View> View* view(int kind)
    {
        return dynamic_cast<View*>(frame->tabStrip()->tab(frame->tabIndexOfKind(kind)));
    }

    std::unique_ptr<PanelConsole> console;
    std::unique_ptr<MainFrame> frame;
};

void TestLegendsView::cleanup()
{
    frame.reset();
    console.reset();
}

void TestLegendsView::blindModeColours_data()
{
    QTest::addColumn<int>("blind");
    QTest::addColumn<int>("live");
    QTest::addColumn<int>("blindLevel");
    QTest::addColumn<int>("greenRows");
    QTest::addColumn<int>("blueRows");
    QTest::newRow("live level in green") << 0 << 128 << 255 << 10 << 0;
    QTest::newRow("blind level in blue") << 1 << 255 << 128 << 0 << 10;
    QTest::newRow("blind zero hides the live level") << 1 << 255 << 0 << 0 << 0;
}

void TestLegendsView::blindModeColours()
{
    QFETCH(int, blind);
    open(Model::ModelAlder);
    console->record()->blindMode = quint8(blind);
    QFETCH(int, live);
    QFETCH(int, blindLevel);
    console->record()->channelLevels[3] = quint8(live);
    console->record()->blindLevels[3] = quint8(blindLevel);
    console->notify(ConsoleCode::BlindLevelsChanged);
    LegendsView::ChannelCell* cell = view<LegendsView>(MainFrame::LegendsTab)->channelCells()[3];
    const QImage image = paintedItem(cell, cell->boundingRect().toRect(), Qt::black);
    int green = 0, blue = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor pixel = image.pixelColor(LevelCell::barLeft + 3, y);
        green += pixel == LevelCell::levelColour();
        blue += pixel.blue() > 150 && pixel.red() < 40 && pixel.green() < 40;
    }
    QTEST(green, "greenRows");
    QTEST(blue, "blueRows");
}

void TestLegendsView::legendEditReachesRecordAndFaders()
{
    open(Model::ModelBirch);
    console->engine.clearUpdates();
    auto* playback = view<LegendsView>(MainFrame::LegendsTab);
    playback->channelCells()[5]->legendLine(1)->textCommitted(nullptr, QStringLiteral("Spot"));
    QCoreApplication::processEvents();
    QCOMPARE(ConsoleCache::readText(console->record()->channelLegends[5], 1), "Spot");
    const QList<FakeEngine::Call> sent{{ConsoleCode::ChannelTextChanged, 5, 0, 0}};
    QCOMPARE(console->engine.updates(), sent);
    // The fader of that channel (bank 1) shows the new line too.
    FaderBlock* faders = nullptr;
    for (QGraphicsItem* item : playback->scene()->items())
        if (auto* block = dynamic_cast<FaderBlock*>(item); block && block->first() == 0)
            faders = block;
    QCOMPARE(faders->legend(5, 1)->text(), "Spot");
}

void TestLegendsView::simulatedConsoleDrivesBlindAndPages()
{
    EngineSession session(QStringLiteral("glowEngine"), Model::ModelAlder);
    ConsoleLink::setConsole(session.console());
    frame = std::make_unique<MainFrame>();
    QList<int> pages;
    connect(session.console(), &Console::pageUpdated, frame.get(),
            [&](int page) { pages << page; });
    constexpr int editKey = 92; // blind editing on and off
    session.tap(editKey);
    session.moveFader(3, 255);
    session.cache()->selectPage(4);
    QVERIFY(session.step());
    const LegendsView::ChannelCell* cell =
        view<LegendsView>(MainFrame::LegendsTab)->channelCells()[3];
    QCOMPARE(cell->isBlind(), true);
    QCOMPARE(cell->text(), "F");
    // Both page rows change their look: the one left and the one chosen.
    QCOMPARE(pages, QList<int>({0, 4}));
    session.tap(editKey);
    QVERIFY(session.step());
    QCOMPARE(cell->isBlind(), false);
    QCOMPARE(cell->text(), "0");
    frame.reset();
    ConsoleLink::setConsole(nullptr);
}

void TestLegendsView::cedarPagesPair_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("opened");
    QTest::newRow("low half opens fader 1") << int(MainFrame::PagesTab) << "Pages Lo"
                                            << "2/0";
    QTest::newRow("high half opens fader 25") << int(MainFrame::SecondPagesTab) << "Pages Hi"
                                              << "2/24";
}

void TestLegendsView::cedarPagesPair()
{
    QFETCH(int, kind);
    MemoriesStandIn* memories = nullptr;
    TabRegistry views;
    for (int index : {0, 1})
        views.setFactory(MainFrame::PagesTab + index, [index](MainFrame* w, TitleBar* b, bool) {
            return new PagesView(w, b, true, index);
        });
    views.setFactory(MainFrame::MemoriesTab, [&](MainFrame* w, TitleBar*, bool) {
        return memories = new MemoriesStandIn(w);
    });
    MainFrame& window = open(Model::ModelCedar, views);
    console->memory(2, 0).recorded = console->memory(2, 24).recorded = 1;
    window.tabStrip()->setCurrentTab(window.tabIndexOfKind(kind));
    auto* pages = view<PagesView>(kind);
    QTEST(pages->title(), "title");
    QCOMPARE(pages->block()->count(), PagesView::fadersShown);
    const QRectF cell = pages->block()->masterRow(2)->cells().first()->sceneBoundingRect();
    QTest::mouseDClick(pages->viewport(), Qt::LeftButton, {}, pages->mapFromScene(cell.center()));
    QTEST(memories->shown, "opened");
}

void TestLegendsView::titleBarButtonsPerTab_data()
{
    QTest::addColumn<Model>("model");
    for (Model model : {Model::ModelAlder, Model::ModelBirch, Model::ModelCedar, Model::ModelMaple})
        QTest::newRow(qPrintable(QString::number(model))) << model;
}

void TestLegendsView::titleBarButtonsPerTab()
{
    QFETCH(Model, model);
    MainFrame& window = open(model);
    using Item = TitleBar::Item;
    const std::pair<Item, const char*> buttons[] = {
        {Item::Sm, "Sm"},     {Item::Ms, "Ms"},     {Item::IfcbFx, "Fx"},  {Item::Time, "Time"},
        {Item::NoLines, "0"}, {Item::OneLine, "1"}, {Item::TwoLines, "2"}, {Item::ThreeLines, "3"}};
    QStringList shown, expected;
    for (int i = 0; i < window.tabStrip()->count(); ++i) {
        window.tabStrip()->setCurrentTab(i);
        QStringList visible;
        for (const auto& [item, name] : buttons)
            if (window.titleBar()->item(item)->isVisible())
                visible << name;
        const QString title = window.tabStrip()->tab(i)->title() + ": ";
        shown << title + visible.join(' ');
        expected << title + expectedButtons(window.tabKind(i), model == Model::ModelMaple);
    }
    QCOMPARE(shown, expected);
}

void TestLegendsView::everyTabInsideAndApart_data()
{
    titleBarButtonsPerTab_data();
}

void TestLegendsView::everyTabInsideAndApart()
{
    QFETCH(Model, model);
    MainFrame& window = open(model);
    console->nameEverything();
    console->notify(ConsoleCode::System, SystemCode::BulkEnd);
    // Block bounds carry empty bands (a fader block's value row, the
    // timeline's margins) that may tuck under a neighbour.
    constexpr qreal margin = 12;
    QStringList faults;
    for (int i = 0; i < window.tabStrip()->count(); ++i) {
        window.tabStrip()->setCurrentTab(i);
        QWidget* tab = window.tabStrip()->tab(i)->widget();
        QList<QGraphicsView*> views = tab->findChildren<QGraphicsView*>();
        if (auto* own = qobject_cast<QGraphicsView*>(tab))
            views << own;
        for (QGraphicsView* view : views) {
            QRectF visible(QPointF(), view->viewport()->size());
            if (view->verticalScrollBar()->isVisible())
                visible.setBottom(view->sceneRect().bottom());
            QList<QGraphicsItem*> items;
            for (QGraphicsItem* item : view->scene()->items())
                if (!item->parentItem() && item->isVisible())
                    items << item;
            const QString where = window.tabStrip()->tab(i)->title() + QStringLiteral(" item ");
            for (int a = 0; a < items.size(); ++a) {
                const QRectF area = sceneArea(items[a]);
                if (!visible.contains(area))
                    faults << where + describe(area) + QStringLiteral(" outside");
                for (int b = a + 1; b < items.size(); ++b) {
                    const QRectF common = area & sceneArea(items[b]);
                    if (common.width() > margin && common.height() > margin)
                        faults << where + describe(area) + " over " + describe(sceneArea(items[b]));
                }
            }
        }
    }
    QCOMPARE(faults.join(QLatin1Char('\n')), QString());
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestLegendsView test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_legendsview.moc"
