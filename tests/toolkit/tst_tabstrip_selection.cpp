// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Lumidesk.h"
#include "toolkit/MakeFont.h"
#include "toolkit/Tab.h"
#include "toolkit/TabStrip.h"

#include <QFontMetrics>
#include <QPointer>
#include <QTest>

#include <memory>
#include <vector>

namespace {

// A view that writes every call of the strip into a shared log.
class FakeTab : public Tab
{
public:
    FakeTab(const QString& name, QStringList& log) : name(name), log(log) {}

    QWidget* widget() override { return &view; }
    QString title() override { return name; }
    void activate() override { log << name + QStringLiteral(" activate"); }
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override
    {
        log << name + QStringLiteral(" feature");
        asked = geometry;
        feature = new QWidget(parent);
        return feature;
    }
    void deactivate() override { log << name + QStringLiteral(" deactivate"); }

    QString name;
    QStringList& log;
    QWidget view;
    QPointer<QWidget> feature;
    QRect asked;
};

// Counts how often a widget is hidden and shown.
class VisibilityCounter : public QObject
{
public:
    QStringList events;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            events << QStringLiteral("hide");
        else if (event->type() == QEvent::Show)
            events << QStringLiteral("show");
        return false;
    }
};

} // namespace

class TestTabStrip : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstTabIsCurrentWithoutActivation();
    void switchingActivatesTheNewTabBeforeDeactivatingTheOld();
    void clickingTheCurrentTabOrNothingDoesNothing();
    void tabsOverlapFromTheRight();
    void clickSelectsTheEarlierTabInTheOverlap_data();
    void clickSelectsTheEarlierTabInTheOverlap();
    void featureWidgetFillsTheRoomLeftOfTheTabs();
    void colours_data();
    void colours();
    void refreshHidesAndShowsTheCurrentView();

private:
    void addTabs(const QStringList& names);
    QImage paint();

    QStringList log;
    std::unique_ptr<TabStrip> strip;
    std::vector<std::unique_ptr<FakeTab>> tabs;
};

void TestTabStrip::init()
{
    log.clear();
    strip = std::make_unique<TabStrip>();
    strip->resize(700, 25);
}

void TestTabStrip::cleanup()
{
    strip.reset();
    tabs.clear();
}

void TestTabStrip::addTabs(const QStringList& names)
{
    for (const QString& name : names) {
        tabs.push_back(std::make_unique<FakeTab>(name, log));
        strip->addTab(tabs.back().get());
    }
}

QImage TestTabStrip::paint()
{
    return strip->grab().toImage();
}

void TestTabStrip::firstTabIsCurrentWithoutActivation()
{
    QCOMPARE(strip->currentIndex(), -1);
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages"), QStringLiteral("System")});
    QCOMPARE(strip->currentIndex(), 0);
    QCOMPARE(log,
             (QStringList{QStringLiteral("Playback feature"), QStringLiteral("Pages deactivate"),
                          QStringLiteral("System deactivate")}));
    QCOMPARE(strip->featureWidget(), tabs[0]->feature.data());
    QCOMPARE(tabs[0]->feature->parentWidget(), strip.get());
}

void TestTabStrip::switchingActivatesTheNewTabBeforeDeactivatingTheOld()
{
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages"), QStringLiteral("System")});
    paint();
    log.clear();
    const QPointer<QWidget> oldFeature = tabs[0]->feature;
    strip->setCurrentTab(2);
    QCOMPARE(strip->currentIndex(), 2);
    QCOMPARE(log, (QStringList{QStringLiteral("System activate"), QStringLiteral("System feature"),
                               QStringLiteral("Playback deactivate")}));
    QCOMPARE(tabs[2]->asked, strip->featureGeometry());
    QCOMPARE(tabs[2]->feature->geometry(), strip->featureGeometry());
    QVERIFY(oldFeature && !oldFeature->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!oldFeature);
}

void TestTabStrip::clickingTheCurrentTabOrNothingDoesNothing()
{
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages")});
    paint();
    log.clear();
    const int middle = (strip->tabLeft(0) + strip->tabRight(0)) / 2;
    QTest::mouseClick(strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(middle, 12));
    QTest::mouseClick(strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 12));
    strip->setCurrentTab(-1);
    QCOMPARE(strip->currentIndex(), 0);
    QVERIFY(log.isEmpty());
}

void TestTabStrip::tabsOverlapFromTheRight()
{
    const QStringList names{QStringLiteral("Playback"), QStringLiteral("Memories"),
                            QStringLiteral("DMX In/Out")};
    addTabs(names);
    paint();
    const QFontMetrics metrics(makeFont(QStringLiteral("Verdana"), 10));
    int right = 700 - 38;
    for (int i = 2; i >= 0; --i) {
        const int left = right - metrics.horizontalAdvance(names[i]) - 24;
        QCOMPARE(strip->tabRight(i), right);
        QCOMPARE(strip->tabLeft(i), left);
        right = left + 5;
    }
}

void TestTabStrip::clickSelectsTheEarlierTabInTheOverlap_data()
{
    QTest::addColumn<int>("fromLeftOfSecond");
    QTest::addColumn<int>("selected");
    QTest::newRow("left edge of the overlap") << 0 << 0;
    QTest::newRow("right edge of the overlap") << 5 << 0;
    QTest::newRow("just past the overlap") << 6 << 1;
}

void TestTabStrip::clickSelectsTheEarlierTabInTheOverlap()
{
    QFETCH(int, fromLeftOfSecond);
    QFETCH(int, selected);
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages"), QStringLiteral("System")});
    strip->setCurrentTab(2);
    paint();
    const int x = strip->tabLeft(1) + fromLeftOfSecond;
    // Only x is tested, so the height of the click does not matter.
    QTest::mouseClick(strip.get(), Qt::LeftButton, Qt::NoModifier, QPoint(x, 1));
    QCOMPARE(strip->currentIndex(), selected);
}

void TestTabStrip::featureWidgetFillsTheRoomLeftOfTheTabs()
{
    addTabs({QStringLiteral("Playback"), QStringLiteral("System")});
    paint();
    const int leftmost = strip->tabLeft(0);
    // x after the last step is the left of the first tab plus the overlap.
    QCOMPARE(strip->featureGeometry(), QRect(42, 0, leftmost + 5 - 42, 25));
    QCOMPARE(tabs[0]->feature->geometry(), strip->featureGeometry());
    strip->resize(900, 25);
    paint();
    QCOMPARE(strip->featureGeometry(), QRect(42, 0, leftmost + 200 + 5 - 42, 25));
    QCOMPARE(tabs[0]->feature->geometry(), strip->featureGeometry());
}

void TestTabStrip::colours_data()
{
    QTest::addColumn<int>("tab"); // -1: no tab, the dark line
    QTest::addColumn<int>("y");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("selected tab face") << 1 << 17 << QColor(128, 128, 128);
    QTest::newRow("other tab face") << 0 << 17 << QColor(50, 50, 50);
    QTest::newRow("dark line under the tabs") << 1 << 22 << QColor(80, 80, 80);
}

void TestTabStrip::colours()
{
    QFETCH(int, tab);
    QFETCH(int, y);
    QFETCH(QColor, expected);
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages"), QStringLiteral("System")});
    strip->setCurrentTab(1);
    const QImage image = paint();
    // Below the rounded corner, left of the centred title, and clear of the
    // neighbour overlapping from the left.
    const int x = strip->tabLeft(tab) + 6;
    QCOMPARE(image.pixelColor(x, y), expected);
}

void TestTabStrip::refreshHidesAndShowsTheCurrentView()
{
    addTabs({QStringLiteral("Playback"), QStringLiteral("Pages")});
    VisibilityCounter counter;
    tabs[0]->view.show();
    tabs[0]->view.installEventFilter(&counter);
    strip->refreshCurrentTab();
    QCOMPARE(counter.events, (QStringList{QStringLiteral("hide"), QStringLiteral("show")}));
    QVERIFY(tabs[0]->view.isVisible());
    TabStrip empty;
    empty.refreshCurrentTab();
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestTabStrip test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tabstrip_selection.moc"
