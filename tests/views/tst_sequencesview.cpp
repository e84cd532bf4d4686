// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "EngineSession.h"
#include "Lumidesk.h"
#include "MainFrame.h"
#include "SequencesView.h"
#include "Timeline.h"

#include <QMenu>
#include <QTimer>

namespace {

// The fade colour a pixel shows: "up", "down", "cursor" or "-".
QString inkAt(const QImage& image, int x, int y)
{
    const QColor c = image.pixelColor(x, y);
    const std::pair<const char*, QColor> inks[] = {{"up", QColor(94, 77, 187)},
                                                   {"down", QColor(169, 169, 92)},
                                                   {"cursor", QColor(145, 69, 69)}};
    for (const auto& [name, ink] : inks)
        if (qAbs(c.red() - ink.red()) + qAbs(c.green() - ink.green()) +
                qAbs(c.blue() - ink.blue()) <
            40)
            return QLatin1String(name);
    return QStringLiteral("-");
}

QString keyText(Console::Sequence s)
{
    return QStringLiteral("%1/%2").arg(s.page).arg(s.fader);
}

struct FadeCase
{
    const char* name;
    int page, nextStep, upTime, downTime, upProgress, downProgress, rate;
    const char* inks;  // "x,y=ink" pairs
    const char* panel; // up, down, wait, rate, fade
};

struct ChoiceCase
{
    const char* name;
    const char* via; // menu, data, show, pages
    const char* argument;
    const char* shown;   // page/fader afterwards
    const char* feature; // end of the tab strip's link
};

} // namespace

class TestSequencesView : public QObject
{
    Q_OBJECT

private slots:
    void timelineDrawsTheFade_data();
    void timelineDrawsTheFade();
    void sequenceIsChosen_data();
    void sequenceIsChosen();
    void panelPlaysASequence();
};

void TestSequencesView::timelineDrawsTheFade_data()
{
    static const FadeCase cases[] = {
        {"2 s up, 4 s down: up line tops out at 232", -1, 0, 20, 40, 0, 0, 256,
         "230,9=up 229,9=- 137,40=up 421,40=down 43,40=up", "0 0 0 100% 100%"},
        {"equal times, fade done: one red-brown cursor", -1, 0, 30, 30, 255, 0, 128,
         "421,40=cursor 420,40=- 43,40=- 137,55=up", "0 0 0 50% 100%"},
        {"both times zero keep full lines", -1, 0, 0, 0, 0, 0, 0, "137,55=up 233,9=-",
         "0 0 0 0% 100%"},
        {"next step beyond the count", -1, 1, 20, 40, 0, 0, 256, "137,55=up 233,9=-",
         "0 0 0 100% 100%"},
        {"sequence not on its fader: no playback", 3, 0, 20, 40, 255, 0, 128,
         "43,40=cursor 137,55=up 421,40=-", "0 0 0 100% 100%"},
    };
    addRows(cases);
}

void TestSequencesView::timelineDrawsTheFade()
{
    QFETCH(FadeCase, c);
    PanelConsole console(ConsoleCache::ModelAlder);
    ConsoleStateRecord* r = console.record();
    const Console::Sequence shown(c.page, c.page < 0 ? -1 : 0);
    console.sequence(3, 0).stepCount = 1;
    r->stackStepCount = 1;
    for (StepRecord* step : {&r->stackSteps[0], &console.sequence(3, 0).steps[0]}) {
        step->upTime = quint16(c.upTime);
        step->downTime = quint16(c.downTime);
    }
    PlaybackRecord& playback = r->playbacks[r->sequenceFaderCount];
    playback = {quint8(c.nextStep),
                1,
                quint8(c.downProgress),
                quint8(c.upProgress),
                {},
                quint16(c.rate),
                256,
                0,
                0,
                0};
    QGraphicsScene scene;
    Timeline timeline(&scene, 7);
    timeline.setSequence(shown);
    QCOMPARE(timeline.boundingRect(), QRectF(0, 0, 587, 119));
    // The drawing sits 7 lower; read it back in unshifted coordinates.
    const QImage image = paintedItem(&timeline, QRect(0, 7, 587, 105), Qt::black);
    QStringList inks;
    for (const QString& check : QString::fromLatin1(c.inks).split(QLatin1Char(' '))) {
        const QStringList p = check.split(QRegularExpression(QStringLiteral("[,=]")));
        inks << p[0] + QLatin1Char(',') + p[1] + QLatin1Char('=') +
                    inkAt(image, p[0].toInt(), p[1].toInt());
    }
    QCOMPARE(inks.join(QLatin1Char(' ')), QString::fromLatin1(c.inks));
    QCOMPARE(Timeline::panelValues(timeline.read()).join(QLatin1Char(' ')),
             QString::fromLatin1(c.panel));
}

void TestSequencesView::sequenceIsChosen_data()
{
    static const ChoiceCase cases[] = {
        {"menu entry of a sequence", "menu", "Sequence/2/5", "2/5", "seq 3/18"},
        {"menu entry of the stack", "menu", "Stack", "-1/-1", "stack"},
        {"menu data that does not parse", "data", "Sequence/x/1", "1/1", "seq 2/14"},
        {"menu data of another kind", "data", "Memory/1/1", "1/1", "seq 2/14"},
        {"menu data beyond the pages", "data", "Sequence/12/0", "1/1", "seq 2/14"},
        {"showSequence lands on it", "show", "4/11", "4/11", "seq 5/24"},
        {"showSequence of the stack", "show", "-1/-1", "-1/-1", "stack"},
        {"showSequence out of range", "show", "-1/3", "1/1", "seq 2/14"},
        {"pages block opens fader 16", "pages", "6/15", "6/3", "seq 7/16"},
        {"pages block on a memory fader", "pages", "6/4", "1/1", "seq 2/14"},
    };
    addRows(cases);
}

void TestSequencesView::sequenceIsChosen()
{
    QFETCH(ChoiceCase, c);
    PanelConsole console(ConsoleCache::ModelAlder);
    console.nameEverything();
    MainFrame window;
    auto* view = dynamic_cast<SequencesView*>(window.tabStrip()->tab(0));
    QVERIFY(view);
    QVERIFY(view->feature());
    view->setSequence(Console::Sequence(1, 1));
    const QString via = QString::fromLatin1(c.via);
    const QStringList numbers = QString::fromLatin1(c.argument).split(QLatin1Char('/'));
    if (via == QLatin1String("menu")) {
        QStringList seen; // the count of entries and the title of page 2's submenu
        QTimer::singleShot(0, [&c, &seen] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            seen << QString::number(menu->actions().size()) << menu->actions()[2]->text();
            for (QAction* action : menu->findChildren<QAction*>())
                if (action->data().toString() == QLatin1String(c.argument))
                    action->trigger();
            menu->close();
        });
        emit view->feature()->linkActivated(QStringLiteral("link"));
        QCOMPARE(seen, QStringList({QStringLiteral("13"), QStringLiteral("Page 02, Page1")}));
    } else if (via == QLatin1String("data")) {
        QVERIFY(!view->chooseMenuEntry(QString::fromLatin1(c.argument)));
    } else if (via == QLatin1String("show")) {
        window.showSequence(Console::Sequence(numbers[0].toInt(), numbers[1].toInt()));
    } else {
        view->openSequence(numbers[0].toInt(), numbers[1].toInt());
    }
    QCOMPARE(keyText(view->sequence()), QString::fromLatin1(c.shown));
    QCOMPARE(keyText(view->timeline()->sequence()), QString::fromLatin1(c.shown));
    QVERIFY2(
        view->feature()->text().endsWith(QLatin1String(c.feature) + QLatin1String("</font></a>")),
        qPrintable(view->feature()->text()));
}

void TestSequencesView::panelPlaysASequence()
{
    EngineSession session(QStringLiteral("glowEngine"), ConsoleCache::ModelAlder);
    ConsoleLink::setConsole(session.console());
    ConsoleCache* cache = session.cache();
    session.engine()->newShow(); // the state of an earlier run goes
    // Three steps of 2 s up, 1 s down and no wait in the empty sequence of
    // fader 14 on page 1, in Manual mode: only the flash key moves it on.
    for (int i = 0; i < 3; ++i)
        QVERIFY(cache->insertStep(0, 1, i, 10 * (i + 1), ConsoleCache::StepChannel, quint16(i)));
    QVERIFY(session.step());
    QCOMPARE(cache->stepCount(0, 1), 3);
    for (int i = 0; i < 3; ++i) {
        StepRecord* step = cache->step(0, 1, i);
        *step = {step->cueNumber, step->contentIndex, step->contentType, 20, 10, 0, 0, 0};
        session.console()->sequenceStepChanged(Console::Sequence(0, 1), i);
    }
    cache->setSequenceMode(0, 1, 2);
    SequencesView view(nullptr, nullptr);
    view.showSequence(Console::Sequence(0, 1));
    const PlaybackRecord& playback = session.record()->playbacks[1];
    QStringList seen;
    const auto look = [&] {
        const Timeline::Reading reading = view.timeline()->read();
        seen << QStringLiteral("live %1 next %2 up %3 %4")
                    .arg(playback.afterLiveStep - 1)
                    .arg(playback.nextStep)
                    .arg(playback.upProgress)
                    .arg(Timeline::panelValues(reading).join(QLatin1Char(' ')));
    };
    session.tap(63); // memories mode: the fader and its key play the sequence
    session.moveFader(13, 255);
    QVERIFY(session.step(1000));
    look();
    QVERIFY(session.step(1000));
    look();
    for (int i = 0; i < 2; ++i) {
        session.tap(13); // the flash key of fader 14
        QVERIFY(session.step(500));
        look();
    }
    QCOMPARE(seen, QStringList({QStringLiteral("live 0 next 1 up 127 1 0 0 100% 100%"),
                                QStringLiteral("live 0 next 1 up 255 0 0 0 100% 100%"),
                                QStringLiteral("live 1 next 2 up 63 1.5 0.5 0 100% 100%"),
                                QStringLiteral("live 2 next 3 up 63 1.5 0.5 0 100% 100%")}));
    ConsoleLink::setConsole(nullptr);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestSequencesView test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sequencesview.moc"
