// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "ConsoleCodes.h"
#include "DataRows.h"
#include "EngineSession.h"
#include "FaderBlock.h"
#include "InPlaceEditableText.h"
#include "LumideskTestMain.h"
#include "PagesBlock.h"
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

// How many pixel rows of a cell's level bar are drawn green and blue.
QString barRows(QGraphicsItem* cell)
{
    const QImage image = paintedItem(cell, cell->boundingRect().toRect(), Qt::black);
    int green = 0, blue = 0;
    for (int y = 0; y < image.height(); ++y) {
        const QColor pixel = image.pixelColor(LevelCell::barLeft + 3, y);
        green += pixel == LevelCell::levelColour();
        blue += pixel.blue() > 150 && pixel.red() < 40 && pixel.green() < 40;
    }
    return QString::asprintf("green %d blue %d", green, blue);
}

// The title-bar buttons a tab of a kind shows: the pages views all (the
// Fx/Time pair on the Maple only), the sequences view its SM/MS pair except
// on the Maple and all line buttons, the groups view two line buttons.
QString expectedButtons(int kind, bool maple)
{
    const bool pages = kind == MainFrame::PagesTab || kind == MainFrame::SecondPagesTab;
    if (!pages && kind != MainFrame::SequencesTab)
        return kind == MainFrame::GroupsTab ? "2 3" : "";
    return QString(pages || !maple ? "Sm Ms " : "") + (pages && maple ? "Fx Time " : "") +
           "0 1 2 3";
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
    void blindLegendsAndPagesThroughTheEngine();
    void cedarPagesPair_data();
    void cedarPagesPair();
    void everyTabButtonsInsideAndApart_data();
    void everyTabButtonsInsideAndApart();

private:
    MainFrame& open(Model model, const TabRegistry& views = TabRegistry::standard())
    {
        frame.reset();
        console.reset(); // before the next one, which it would unregister
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

void TestLegendsView::blindLegendsAndPagesThroughTheEngine()
{
    EngineSession session(QStringLiteral("glowEngine"), Model::ModelAlder);
    ConsoleLink::setConsole(session.console());
    frame = std::make_unique<MainFrame>();
    QList<int> pages;
    connect(session.console(), &Console::pageUpdated, frame.get(),
            [&](int page) { pages << page; });
    constexpr int editKey = 92; // blind editing on and off
    session.tap(editKey);
    session.moveFader(3, 128); // fader 4 sets channel 4's blind level
    session.cache()->selectPage(4);
    QVERIFY(session.step());
    auto* playback = view<LegendsView>(MainFrame::LegendsTab);
    LegendsView::ChannelCell* cell = playback->channelCells()[3];
    QCOMPARE(barRows(cell), "green 0 blue 10");
    // Both page rows change their look: the one left and the one chosen.
    QCOMPARE(pages, QList<int>({0, 4}));
    session.tap(editKey);
    session.moveFader(3, 255);
    QVERIFY(session.step());
    QCOMPARE(barRows(cell), "green 21 blue 0");
    // A legend line typed into the cell reaches the record and fader 4.
    cell->legendLine(1)->textCommitted(nullptr, QStringLiteral("Spot"));
    QVERIFY(session.step());
    QCOMPARE(ConsoleCache::readText(session.record()->channelLegends[3], 1), "Spot");
    QString onFader;
    for (QGraphicsItem* item : playback->scene()->items())
        if (auto* block = dynamic_cast<FaderBlock*>(item); block && block->first() == 0)
            onFader = block->legend(3, 1)->text();
    QCOMPARE(onFader, "Spot");
    frame.reset();
    ConsoleLink::setConsole(nullptr);
}

void TestLegendsView::cedarPagesPair_data()
{
    addColumns<int, QString, QString>({"kind", "title", "opened"});
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

void TestLegendsView::everyTabButtonsInsideAndApart_data()
{
    QTest::addColumn<Model>("model");
    for (Model model : {Model::ModelAlder, Model::ModelBirch, Model::ModelCedar, Model::ModelMaple})
        QTest::newRow(qPrintable(QString::number(model))) << model;
}

void TestLegendsView::everyTabButtonsInsideAndApart()
{
    QFETCH(Model, model);
    MainFrame& window = open(model);
    console->nameEverything();
    console->notify(ConsoleCode::System, SystemCode::BulkEnd);
    using Item = TitleBar::Item;
    const std::pair<Item, const char*> buttons[] = {
        {Item::Sm, "Sm"},     {Item::Ms, "Ms"},     {Item::IfcbFx, "Fx"},  {Item::Time, "Time"},
        {Item::NoLines, "0"}, {Item::OneLine, "1"}, {Item::TwoLines, "2"}, {Item::ThreeLines, "3"}};
    // Block bounds carry empty bands (a fader block's value row, the
    // timeline's margins) that may tuck under a neighbour.
    constexpr qreal margin = 12;
    QStringList faults;
    for (int i = 0; i < window.tabStrip()->count(); ++i) {
        window.tabStrip()->setCurrentTab(i);
        const QString where = window.tabStrip()->tab(i)->title() + QStringLiteral(": ");
        QStringList visible;
        for (const auto& [item, name] : buttons)
            if (window.titleBar()->item(item)->isVisible())
                visible << name;
        if (visible.join(' ') != expectedButtons(window.tabKind(i), model == Model::ModelMaple))
            faults << where + QStringLiteral("buttons ") + visible.join(' ');
        QWidget* tab = window.tabStrip()->tab(i)->widget();
        QList<QGraphicsView*> views = tab->findChildren<QGraphicsView*>();
        if (auto* own = qobject_cast<QGraphicsView*>(tab))
            views << own;
        for (QGraphicsView* view : views) {
            // The Live tab's channel view clips the last pixel row of its
            // table on purpose; nothing else may leave the view.
            QRectF visibleArea = QRectF(QPointF(), view->viewport()->size()).adjusted(0, 0, 1, 1);
            if (view->verticalScrollBar()->isVisible())
                visibleArea.setBottom(view->sceneRect().bottom());
            QList<QGraphicsItem*> items;
            for (QGraphicsItem* item : view->scene()->items())
                if (!item->parentItem() && item->isVisible())
                    items << item;
            for (int a = 0; a < items.size(); ++a) {
                const QRectF area = sceneArea(items[a]);
                if (!visibleArea.contains(area))
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

LUMIDESK_TEST_MAIN(TestLegendsView)

#include "tst_legendsview.moc"
