// SPDX-License-Identifier: GPL-3.0-or-later
#include "../frontpanel/PanelTestKit.h"

#include "Cuelist.h"
#include "Cuematrix.h"
#include "EngineSession.h"
#include "LumideskTestMain.h"
#include "MainFrame.h"
#include "SequencesView.h"
#include "Timeline.h"

#include <QMenu>

namespace {

// The fade colour drawn at "x,y": "up", "down", "cursor" or "-".
QString inkAt(const QImage& image, const QString& at)
{
    const QRgb inks[] = {qRgb(94, 77, 187), qRgb(169, 169, 92), qRgb(145, 69, 69)};
    const QRgb drawn = image.pixel(at.section(',', 0, 0).toInt(), at.section(',', 1).toInt());
    return QStringList({"up", "down", "cursor", "-"})[int(std::find(inks, inks + 3, drawn) - inks)];
}

// What the view and its blocks show, and where the matrix went.
QString shownState(const SequencesView* view)
{
    QStringList keys;
    for (const Console::Sequence s : {view->sequence(), view->timeline()->sequence(),
                                      view->cuelist()->sequence(), view->cuematrix()->sequence()})
        keys << QStringLiteral("%1/%2").arg(s.page).arg(s.fader);
    return keys.join(' ') +
           QString::asprintf(" %d rows, matrix at %g with %d lines, ", view->cuelist()->rowCount(),
                             view->cuematrix()->y(), view->cuematrix()->visibleLines()) +
           view->feature()->text().remove(QRegularExpression("<[^>]*>"));
}

struct FadeCase
{
    const char* name;
    int page, nextStep, upTime, downTime, upProgress, downProgress, rate;
    const char *inks, *panel; // "x,y=ink" pairs; up, down, wait, rate, fade
};

struct ChoiceCase
{
    const char *name, *via, *argument, *shown, *feature; // via menu, data, show or pages
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
    console.sequence(3, 0).stepCount = 1;
    r->stackStepCount = 1;
    for (StepRecord* step : {&r->stackSteps[0], &console.sequence(3, 0).steps[0]})
        std::tie(step->upTime, step->downTime) = std::pair(quint16(c.upTime), quint16(c.downTime));
    PlaybackRecord& p = r->playbacks[r->sequenceFaderCount];
    std::tie(p.nextStep, p.downProgress, p.upProgress) =
        std::tuple(quint8(c.nextStep), quint8(c.downProgress), quint8(c.upProgress));
    p.rate = quint16(c.rate);
    QGraphicsScene scene;
    Timeline timeline(&scene, 7);
    timeline.setSequence(Console::Sequence(c.page, c.page < 0 ? -1 : 0));
    QCOMPARE(timeline.boundingRect(), QRectF(0, 0, 587, 119));
    // The drawing sits 7 lower; read it back in unshifted coordinates.
    const QImage image = paintedItem(&timeline, QRect(0, 7, 587, 105), Qt::black);
    QStringList inks = QString::fromLatin1(c.inks).split(QLatin1Char(' '));
    for (QString& at : inks) // "x,y=ink" becomes "x,y=" and the ink drawn there
        at = at.section('=', 0, 0) + '=' + inkAt(image, at.section('=', 0, 0));
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
    const int index = window.tabIndexOfKind(MainFrame::SequencesTab);
    window.tabStrip()->setCurrentTab(index);
    auto* view = dynamic_cast<SequencesView*>(window.tabStrip()->tab(index));
    QVERIFY(view && view->feature());
    view->setSequence(Console::Sequence(1, 1));
    const QStringList numbers = QString::fromLatin1(c.argument).split(QLatin1Char('/'));
    if (c.via == std::string_view("menu")) {
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
    } else if (c.via == std::string_view("data")) {
        QVERIFY(!view->chooseMenuEntry(QString::fromLatin1(c.argument)));
    } else if (c.via == std::string_view("show")) {
        window.showSequence(Console::Sequence(numbers[0].toInt(), numbers[1].toInt()));
    } else {
        view->openSequence(numbers[0].toInt(), numbers[1].toInt());
    }
    QCOMPARE(shownState(view),
             QStringList(4, QString::fromLatin1(c.shown)).join(QLatin1Char(' ')) +
                 (c.shown == std::string_view("-1/-1")
                      ? QStringLiteral(" 12 rows, matrix at 400 with 11 lines, ")
                      : QStringLiteral(" 26 rows, matrix at 695 with 4 lines, ")) +
                 QStringLiteral("Seq/Stack edit - ") + QLatin1String(c.feature));
}

void TestSequencesView::panelPlaysASequence()
{
    EngineSession session(QStringLiteral("glowEngine"), ConsoleCache::ModelAlder);
    ConsoleLink::setConsole(session.console());
    ConsoleCache* cache = session.cache();
    session.engine()->newShow(); // the state of an earlier run goes
    // Three 2 s up, 1 s down steps on fader 14, Manual: only its flash key goes on.
    std::tie(session.record()->defaultUpFade, session.record()->defaultDownFade) =
        std::pair(20, 10);
    session.console()->systemSettingsChanged();
    for (int i = 0; i < 3; ++i)
        QVERIFY(cache->insertStep(0, 1, i, 10 * (i + 1), ConsoleCache::StepChannel, quint16(i)));
    QVERIFY(session.step());
    cache->setSequenceMode(0, 1, 2);
    SequencesView view(nullptr, nullptr);
    view.showSequence(Console::Sequence(0, 1));
    const PlaybackRecord& playback = session.record()->playbacks[1];
    session.tap(63); // memories mode: the fader and its key play the sequence
    session.moveFader(13, 255);
    QStringList seen;
    for (const auto& [key, ms] : {std::pair(-1, 1000), {-1, 1000}, {13, 500}, {13, 500}}) {
        if (key >= 0)
            session.tap(key); // the flash key of fader 14
        QVERIFY(session.step(ms));
        seen << QString::asprintf("live %d next %d list %d/%d up %d ", playback.afterLiveStep - 1,
                                  playback.nextStep, view.cuelist()->stepOfRow(1),
                                  view.cuelist()->stepOfRow(2), playback.upProgress) +
                    Timeline::panelValues(view.timeline()->read()).join(' ');
    }
    QCOMPARE(seen,
             QStringList({QStringLiteral("live 0 next 1 list 0/1 up 127 1 0 0 100% 100%"),
                          QStringLiteral("live 0 next 1 list 0/1 up 255 0 0 0 100% 100%"),
                          QStringLiteral("live 1 next 2 list 1/2 up 63 1.5 0.5 0 100% 100%"),
                          QStringLiteral("live 2 next 3 list 2/-1 up 63 1.5 0.5 0 100% 100%")}));
    ConsoleLink::setConsole(nullptr);
}

LUMIDESK_TEST_MAIN(TestSequencesView)

#include "tst_sequencesview.moc"
