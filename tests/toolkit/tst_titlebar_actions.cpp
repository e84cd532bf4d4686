// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"
#include "SceneMouse.h"

#include "app/Lumidesk.h"
#include "console/Console.h"
#include "toolkit/TitleBar.h"
#include "toolkit/TitleBarHandler.h"

#include <QAbstractButton>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using Item = TitleBar::Item;
using Model = ConsoleCache::ConsoleType;
Q_DECLARE_METATYPE(TitleBar::Item)

namespace {

struct RecordingHandler : TitleBarHandler
{
    void setMsMode(bool ms) override { calls << QStringLiteral("ms %1").arg(ms); }
    void setTimeMode(bool time) override { calls << QStringLiteral("time %1").arg(time); }
    void setLineCount(int lines) override { calls << QStringLiteral("lines %1").arg(lines); }
    QStringList calls;
};

// Counts the dark-red and the green pixels of an image.
QPair<int, int> redAndGreen(const QImage& image)
{
    int red = 0;
    int green = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            red += c.red() > 150 && c.green() < 110;
            green += c.green() > 150 && c.red() < 130;
        }
    }
    return {red, green};
}

} // namespace

class TestTitleBarActions : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void viewButtonsReachTheRegisteredView_data();
    void viewButtonsReachTheRegisteredView();
    void viewButtonsWithoutAViewDoNothing();
    void minimiseAndCloseAreSignalled();
    void draggingMovesTheWindowUnlessMaximised_data();
    void draggingMovesTheWindowUnlessMaximised();
    void dmxInputIndicatorFollowsTheRecord();
    void clockShowsHoursAndMinutes();
    void languageMenuStoresTheChoiceAndTellsToRestart();
    void captureButtonHiddenWithoutAVisualiser();

private:
    TitleBar& makeBar(Model model);
    void click(Item item);

    std::unique_ptr<FakeEngine> engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<QWidget> window;
    TitleBar* bar = nullptr;
};

void TestTitleBarActions::cleanup()
{
    window.reset();
    Lumidesk::instance()->setConsole(nullptr);
    console.reset();
    engine.reset();
}

TitleBar& TestTitleBarActions::makeBar(Model model)
{
    engine = std::make_unique<FakeEngine>(model);
    console.reset(engine->createConsole());
    Lumidesk::instance()->setConsole(console.get());
    window = std::make_unique<QWidget>();
    window->resize(1280, 200);
    bar = new TitleBar(window.get());
    bar->resize(1280, 33);
    window->show();
    return *bar;
}

void TestTitleBarActions::click(Item item)
{
    QGraphicsItem* button = bar->item(item);
    SceneMouse(*bar->scene()).click(button->scenePos() + QPointF(8, 8));
}

void TestTitleBarActions::viewButtonsReachTheRegisteredView_data()
{
    QTest::addColumn<Item>("button");
    QTest::addColumn<QString>("call");
    QTest::newRow("SM") << Item::Sm << QStringLiteral("ms 0");
    QTest::newRow("MS") << Item::Ms << QStringLiteral("ms 1");
    QTest::newRow("IFCB Fx") << Item::IfcbFx << QStringLiteral("time 0");
    QTest::newRow("Time") << Item::Time << QStringLiteral("time 1");
    QTest::newRow("no lines") << Item::NoLines << QStringLiteral("lines 0");
    QTest::newRow("one line") << Item::OneLine << QStringLiteral("lines 1");
    QTest::newRow("two lines") << Item::TwoLines << QStringLiteral("lines 2");
    QTest::newRow("three lines") << Item::ThreeLines << QStringLiteral("lines 3");
}

void TestTitleBarActions::viewButtonsReachTheRegisteredView()
{
    QFETCH(Item, button);
    QFETCH(QString, call);
    TitleBar& titleBar = makeBar(ConsoleCache::ModelMaple);
    RecordingHandler first;
    RecordingHandler second;
    titleBar.setTitleBarHandler(&first);
    titleBar.setTitleBarHandler(&second);
    titleBar.setSmMsButtonsVisible(true);
    titleBar.setIfcbFxTimeButtonsVisible(true);
    titleBar.setLineButtonRange(0, 3);
    click(button);
    QVERIFY(first.calls.isEmpty());
    QCOMPARE(second.calls, QStringList{call});
}

void TestTitleBarActions::viewButtonsWithoutAViewDoNothing()
{
    TitleBar& titleBar = makeBar(ConsoleCache::ModelAlder);
    titleBar.setLineButtonRange(0, 3);
    titleBar.setSmMsButtonsVisible(true);
    QSignalSpy minimised(&titleBar, &TitleBar::minimizeButtonClicked);
    QSignalSpy closed(&titleBar, &TitleBar::closeButtonClicked);
    for (Item item :
         {Item::NoLines, Item::OneLine, Item::TwoLines, Item::ThreeLines, Item::Sm, Item::Ms})
        click(item);
    QCOMPARE(titleBar.titleBarHandler(), nullptr);
    QCOMPARE(minimised.count() + closed.count(), 0);
}

void TestTitleBarActions::minimiseAndCloseAreSignalled()
{
    TitleBar& titleBar = makeBar(ConsoleCache::ModelBirch);
    QSignalSpy minimised(&titleBar, &TitleBar::minimizeButtonClicked);
    QSignalSpy closed(&titleBar, &TitleBar::closeButtonClicked);
    click(Item::Minimize);
    QCOMPARE(minimised.count(), 1);
    QCOMPARE(closed.count(), 0);
    click(Item::Close);
    QCOMPARE(closed.count(), 1);
}

void TestTitleBarActions::draggingMovesTheWindowUnlessMaximised_data()
{
    QTest::addColumn<bool>("maximised");
    QTest::addColumn<QPoint>("moved");
    QTest::newRow("normal window follows") << false << QPoint(30, -10);
    QTest::newRow("maximised window stays") << true << QPoint(0, 0);
}

void TestTitleBarActions::draggingMovesTheWindowUnlessMaximised()
{
    QFETCH(bool, maximised);
    QFETCH(QPoint, moved);
    TitleBar& titleBar = makeBar(ConsoleCache::ModelAlder);
    window->hide();
    window->move(100, 100);
    if (maximised)
        window->setWindowState(Qt::WindowMaximized);
    const QPoint start = window->pos();
    const auto moveTo = [&titleBar](QPoint global, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, QPointF(200, 10), QPointF(global), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(titleBar.viewport(), &event);
    };
    // Moves without a button only remember where the mouse is.
    moveTo(QPoint(500, 500), Qt::NoButton);
    moveTo(QPoint(520, 520), Qt::NoButton);
    QCOMPARE(window->pos(), start);
    moveTo(QPoint(540, 515), Qt::LeftButton);
    moveTo(QPoint(550, 510), Qt::LeftButton);
    QCOMPARE(window->pos(), start + moved);
}

void TestTitleBarActions::dmxInputIndicatorFollowsTheRecord()
{
    TitleBar& titleBar = makeBar(ConsoleCache::ModelAlder);
    QGraphicsItem* indicator = titleBar.item(Item::DmxInput);
    QCOMPARE(indicator->boundingRect(), QRectF(0, 0, 27, 27));
    engine->record()->dmxInputValid = 0;
    const auto [badRed, badGreen] = redAndGreen(renderItem(*indicator));
    engine->record()->dmxInputValid = 1;
    const auto [goodRed, goodGreen] = redAndGreen(renderItem(*indicator));
    QVERIFY2(badRed > 15 && badGreen == 0,
             qPrintable(QStringLiteral("%1 red, %2 green").arg(badRed).arg(badGreen)));
    QVERIFY2(goodGreen > 15 && goodRed == 0,
             qPrintable(QStringLiteral("%1 red, %2 green").arg(goodRed).arg(goodGreen)));
    // "DMX" and "IN" in white above the socket.
    const QImage image = renderItem(*indicator);
    int white = 0;
    for (int y = 0; y < 14; ++y)
        for (int x = 0; x < 27; ++x)
            white += image.pixelColor(x, y) == QColor(Qt::white);
    QVERIFY(white > 10);
}

void TestTitleBarActions::clockShowsHoursAndMinutes()
{
    TitleBar& titleBar = makeBar(ConsoleCache::ModelCedar);
    QVERIFY2(QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d$"))
                 .match(titleBar.clockText())
                 .hasMatch(),
             qPrintable(titleBar.clockText()));
}

void TestTitleBarActions::languageMenuStoresTheChoiceAndTellsToRestart()
{
    makeBar(ConsoleCache::ModelAlder);
    QStringList offered;
    QString checked;
    QString boxTitle;
    QString boxText;
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
        } else if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            boxTitle = box->windowTitle();
            boxText = box->text();
            box->button(QMessageBox::Ok)->click();
        }
    });
    answer.start(5);
    click(Item::Language);
    answer.stop();
    QCOMPARE(offered, (QStringList{QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("de"),
                                   QStringLiteral("es"), QStringLiteral("it")}));
    QCOMPARE(checked, QStringLiteral("en"));
    QCOMPARE(boxTitle, QStringLiteral("Change language"));
    QCOMPARE(boxText,
             QStringLiteral("You must restart Lumidesk in order for the language change to take "
                            "effect!"));
    QCOMPARE(Lumidesk::instance()->language(), QStringLiteral("de"));
    QCOMPARE(QSettings().value(QStringLiteral("Language")).toString(), QStringLiteral("de"));
    Lumidesk::instance()->setLanguage(QStringLiteral("en"));
}

void TestTitleBarActions::captureButtonHiddenWithoutAVisualiser()
{
    TitleBar& titleBar = makeBar(ConsoleCache::ModelMaple);
    // No visualiser runs beside the tests.
    QVERIFY(!titleBar.item(Item::Capture)->isVisible());
    titleBar.refreshCaptureButton();
    QVERIFY(!titleBar.item(Item::Capture)->isVisible());
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestTitleBarActions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_titlebar_actions.moc"
