// SPDX-License-Identifier: GPL-3.0-or-later
#include "../toolkit/ToolkitFixture.h"
#include "FakeEngine.h"
#include "ModalAnswerer.h"

#include "LumideskTestMain.h"
#include "app/Lumidesk.h"
#include "app/MainFrame.h"
#include "console/Console.h"
#include "console/ConsoleCodes.h"
#include "toolkit/Tab.h"
#include "views/ShowItemHandler.h"

#include <QDir>
#include <QLineEdit>
#include <QTest>

#include <memory>

using Model = ConsoleCache::ConsoleType;
Q_DECLARE_METATYPE(ConsoleCache::ConsoleType)

namespace {

// A view standing in for the editor views; it notes what the window asks of it.
class TestView : public QWidget, public Tab, public ShowItemHandler
{
public:
    TestView(MainFrame* window, int kind, QStringList& log) : QWidget(window), kind(kind), log(log)
    {
    }
    QWidget* widget() override { return this; }
    QString title() override { return QString::number(kind); }
    void activate() override { log << QStringLiteral("activate %1").arg(kind); }
    QWidget* createFeatureWidget(QWidget*, const QRect&) override { return nullptr; }
    void deactivate() override {}
    void showMemory(int page, int memory) override { note("memory", page, memory); }
    void showSequence(Console::Sequence s) override { note("sequence", s.page, s.fader); }
    void note(const char* what, int a, int b)
    {
        log << QString::asprintf("%s %d %d on %d", what, a, b, kind);
    }

    const int kind;
    QStringList& log;
};

} // namespace

class TestMainFrame : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void layout_data();
    void layout();
    void tabSetPerModel_data();
    void tabSetPerModel();
    void consoleAsksForAView_data();
    void consoleAsksForAView();
    void consoleReportsReachTheWindow();
    void closeQuestion_data();
    void closeQuestion();
    void versionAndModeChecks_data();
    void versionAndModeChecks();
    void editKeys_data();
    void editKeys();

private:
    // A window whose registry has views for the given kinds (all when empty).
    MainFrame& makeFrame(Model model, QList<int> kinds = {}, const QString& version = {},
                         int mode = 1);

    std::unique_ptr<FakeEngine> engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<MainFrame> frame;
    QStringList log;
    TitleBar* factoryBar = nullptr;
};

void TestMainFrame::cleanup()
{
    frame.reset();
    Lumidesk::instance()->setConsole(nullptr);
    console.reset();
    engine.reset();
    log.clear();
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
}

MainFrame& TestMainFrame::makeFrame(Model model, QList<int> kinds, const QString& version, int mode)
{
    engine = std::make_unique<FakeEngine>(model);
    engine->setConsoleVersion(version.isEmpty() ? engine->softwareVersion() : version);
    engine->record()->consoleMode = quint8(mode);
    console.reset(engine->createConsole());
    Lumidesk::instance()->setConsole(console.get());
    TabRegistry views;
    for (int kind = 1; kind < TabRegistry::kindCount; ++kind) {
        if (kinds.isEmpty() || kinds.contains(kind))
            views.setFactory(kind, [this, kind](MainFrame* window, TitleBar* bar, bool) {
                factoryBar = bar;
                return new TestView(window, kind, log);
            });
    }
    frame = std::make_unique<MainFrame>(nullptr, views);
    QCoreApplication::processEvents();
    return *frame;
}

void TestMainFrame::layout_data()
{
    addColumns<int, QRect>({"width", "content"});
    QTest::newRow("narrower than the views") << 1000 << QRect(0, 56, 1000, 744);
    QTest::newRow("wider: views centred") << 1600 << QRect(160, 56, 1280, 744);
}

void TestMainFrame::layout()
{
    auto [width, content] = fetch<int, QRect>({"width", "content"});
    MainFrame& window = makeFrame(ConsoleCache::ModelMaple);
    window.resize(width, 800);
    window.show();
    QCOMPARE(window.titleBar()->geometry(), QRect(0, 0, width, 33));
    QCOMPARE(window.tabStrip()->geometry(), QRect(0, 32, width, 25));
    QCOMPARE(window.tabStrip()->count(), 11);
    for (int i = 0; i < window.tabStrip()->count(); ++i)
        QCOMPARE(window.tabStrip()->tab(i)->widget()->geometry(), content);
    QCOMPARE(window.frontPanel()->geometry(), QRect((width - 1280) / 2, 800 - 459, 1280, 459));
    // The title bar's console button shows and hides it.
    const QGraphicsItem* button = window.titleBar()->item(TitleBar::Item::Console);
    SceneMouse{*window.titleBar()->scene()}.click(button->scenePos() + QPointF(10, 10));
    QVERIFY(window.frontPanel()->isVisible());
    SceneMouse{*window.titleBar()->scene()}.click(button->scenePos() + QPointF(10, 10));
    QVERIFY(!window.frontPanel()->isVisible());
    // The fixed size needs more than 1024 free rows.
    QVERIFY(!MainFrame::fitsFixedSize(QRect(0, 0, width, 1024)));
    QCOMPARE(MainFrame::fitsFixedSize(QRect(0, 0, width, 1025)), width >= 1280);
}

void TestMainFrame::tabSetPerModel_data()
{
    // registered: empty: every kind has a view
    addColumns<Model, QList<int>, QString>({"model", "registered", "strip"});
    const QList<int> all;
    QTest::newRow("alder") << ConsoleCache::ModelAlder << all << "1 4 6 7 10 11 12";
    QTest::newRow("birch") << ConsoleCache::ModelBirch << all << "1 4 6 7 10 11 12";
    QTest::newRow("cedar") << ConsoleCache::ModelCedar << all << "1 4 5 6 7 10 11 12";
    QTest::newRow("maple") << ConsoleCache::ModelMaple << all << "1 3 4 6 7 2 8 9 10 11 12";
    QTest::newRow("views not written leave no gap")
        << ConsoleCache::ModelMaple << QList<int>{12, 2, 3, 7} << "3 7 2 12";
}

void TestMainFrame::tabSetPerModel()
{
    auto [model, registered, strip] =
        fetch<Model, QList<int>, QString>({"model", "registered", "strip"});
    MainFrame& window = makeFrame(model, registered);
    QStringList titles;
    for (int i = 0; i < window.tabStrip()->count(); ++i)
        titles << window.tabStrip()->tab(i)->title();
    QCOMPARE(titles.join(QLatin1Char(' ')), strip);
    QCOMPARE(factoryBar, window.titleBar());
    // Only the first tab is activated, and it is current.
    QCOMPARE(log, QStringList{QStringLiteral("activate ") + titles.first()});
    QCOMPARE(window.tabStrip()->currentIndex(), 0);
}

void TestMainFrame::consoleAsksForAView_data()
{
    // handed: what the view was asked to show
    addColumns<Model, int, int, int, QString>(
        {"model", "currentBefore", "type", "currentAfter", "handed"});
    // Alder tabs: 1 4 6 7 10 11 12; Maple: 1 3 4 6 7 2 8 9 10 11 12; fader 14 on page 5.
    const Model alder = ConsoleCache::ModelAlder;
    const Model maple = ConsoleCache::ModelMaple;
    QTest::newRow("view key on the first tab, Alder: none") << alder << 0 << 0 << 0 << "";
    QTest::newRow("view key elsewhere: playback") << alder << 3 << 0 << 0 << "";
    QTest::newRow("view key on the first tab, Maple: live") << maple << 0 << 0 << 1 << "";
    QTest::newRow("groups") << maple << 0 << 1 << 6 << "";
    QTest::newRow("groups on an Alder: none") << alder << 2 << 1 << 2 << "";
    QTest::newRow("stack") << alder << 0 << 3 << 3 << "sequence -1 -1 on 7";
    QTest::newRow("sequence of a fader") << alder << 0 << 4 << 3 << "sequence 5 2 on 7";
    QTest::newRow("memory of a fader") << maple << 0 << 5 << 3 << "memory 5 14 on 6";
    QTest::newRow("unknown request ignored") << maple << 4 << 7 << 4 << "";
}

void TestMainFrame::consoleAsksForAView()
{
    auto [model, currentBefore, type, currentAfter, handed] = fetch<Model, int, int, int, QString>(
        {"model", "currentBefore", "type", "currentAfter", "handed"});
    MainFrame& window = makeFrame(model);
    engine->record()->faders[14].pageLoaded = 5;
    window.tabStrip()->setCurrentTab(currentBefore);
    log.clear();
    engine->notify(ConsoleCode::System, SystemCode::LumideskCommand, type, 14);
    QCoreApplication::processEvents();
    QCOMPARE(window.tabStrip()->currentIndex(), currentAfter);
    const QStringList shown = log.filter(QRegularExpression(QStringLiteral("^(memory|sequence)")));
    QCOMPARE(shown.join(QLatin1Char(',')), handed);
}

void TestMainFrame::consoleReportsReachTheWindow()
{
    MainFrame& window = makeFrame(ConsoleCache::ModelBirch);
    QCOMPARE(window.titleBar()->onlineState(), QStringLiteral("Offline"));
    engine->setShowFileName(QStringLiteral("C:/Shows/Summer Gala.asc"));
    engine->notify(ConsoleCode::ShowFileNameChanged);
    engine->record()->consoleStatus = 1;
    engine->notify(ConsoleCode::ConsoleStatusChanged);
    QCoreApplication::processEvents();
    QCOMPARE(window.titleBar()->titleItem().text(), QStringLiteral("C:/Shows/Summer Gala.asc"));
    QCOMPARE(window.titleBar()->onlineState(), QStringLiteral("Online"));
    engine->setShowFileName(QStringLiteral("C:/Shows/Winter.asc"));
    engine->notify(ConsoleCode::System, SystemCode::BulkBegin);
    engine->notify(ConsoleCode::System, SystemCode::BulkEnd);
    const auto report = [this](int queueLength) {
        engine->notify(ConsoleCode::System, SystemCode::Busy, queueLength, 0);
        QCoreApplication::processEvents();
    };
    report(10);
    QCOMPARE(window.titleBar()->titleItem().text(), QStringLiteral("C:/Shows/Winter.asc"));
    QVERIFY(!window.isBusy());
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    report(11);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    // Further busy reports leave the cursor alone (here: as someone else set it).
    QGuiApplication::changeOverrideCursor(Qt::CrossCursor);
    report(40);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
    report(3);
    QVERIFY(!window.isBusy());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
}

void TestMainFrame::closeQuestion_data()
{
    // saved: saves made, and the name given to save as
    addColumns<QString, QList<ModalAnswerer::Answer>, bool, QString>(
        {"showFile", "answers", "closed", "saved"});
    const QString chosen = QDir::temp().filePath(QStringLiteral("Panto"));
    const QString none;
    using A = QList<ModalAnswerer::Answer>;
    const ModalAnswerer::Answer yes = ModalAnswerer::press(QMessageBox::Yes);
    QTest::newRow("no") << none << A{ModalAnswerer::press(QMessageBox::No)} << true << "0 ";
    QTest::newRow("cancel") << none << A{ModalAnswerer::press(QMessageBox::Cancel)} << false
                            << "0 ";
    QTest::newRow("yes: saved") << "C:/Gala.asc" << A{yes} << true << "1 ";
    QTest::newRow("yes, new show, no name: stays")
        << none << A{yes, ModalAnswerer::cancel()} << false << "0 ";
    QTest::newRow("yes, new show, name chosen: saved as")
        << none << A{yes, ModalAnswerer::chooseFile(chosen)} << true << "1 " + chosen + ".asc";
}

void TestMainFrame::closeQuestion()
{
    auto [showFile, answers, closed, saved] =
        fetch<QString, QList<ModalAnswerer::Answer>, bool, QString>(
            {"showFile", "answers", "closed", "saved"});
#ifdef __SANITIZE_THREAD__
    // Qt's file dialog reads the folder on a thread of its own inside the
    // uninstrumented Qt libraries, which the thread sanitizer reports as races.
    if (answers.size() > 1)
        QSKIP("The file dialog's folder thread is opaque to the thread sanitizer");
#endif
    MainFrame& window = makeFrame(ConsoleCache::ModelAlder);
    engine->setShowFileName(showFile);
    window.show();
    ModalAnswerer answerer(answers);
    QCOMPARE(window.close(), closed);
    QCOMPARE(answerer.seen.size(), answers.size());
    QCOMPARE(answerer.seen.first(),
             QStringLiteral("Exit Lumidesk: Would you like to save your data first?"));
    QCOMPARE(QString::number(engine->saves()) + ' ' + engine->lastShowFileName(), saved);
}

void TestMainFrame::versionAndModeChecks_data()
{
    // consoleVersion: empty: the engine's own
    addColumns<Model, QString, int, QStringList>({"model", "consoleVersion", "mode", "messages"});
    const QString same;
    const QString version = QStringLiteral("Connection error: The console software version does not"
                                           " match the Lumidesk software version.\nPlease update"
                                           " one or both sides to a matching version.");
    const QString mode = QStringLiteral("Connection error: The Glowcraft console must be running in"
                                        " Normal mode in order to connect to Lumidesk.");
    QTest::newRow("matching, normal") << ConsoleCache::ModelAlder << same << 1 << QStringList();
    QTest::newRow("other version")
        << ConsoleCache::ModelAlder << "0.9" << 1 << QStringList{version};
    QTest::newRow("both wrong: both said")
        << ConsoleCache::ModelBirch << "0.9" << 0 << QStringList{version, mode};
    QTest::newRow("maple has no mode") << ConsoleCache::ModelMaple << same << 0 << QStringList();
}

void TestMainFrame::versionAndModeChecks()
{
    auto [model, consoleVersion, mode, messages] =
        fetch<Model, QString, int, QStringList>({"model", "consoleVersion", "mode", "messages"});
    ModalAnswerer answerer(
        {ModalAnswerer::press(QMessageBox::Ok), ModalAnswerer::press(QMessageBox::Ok)});
    MainFrame& window = makeFrame(model, {}, consoleVersion, mode);
    window.show();
    QTest::qWait(100);
    QTRY_COMPARE(answerer.seen, messages);
    // A failed check closes the window without the save question, once.
    QCOMPARE(window.isVisible(), messages.isEmpty());
    engine->notify(ConsoleCode::VersionKnown);
    QCoreApplication::processEvents();
    QCOMPARE(answerer.seen, messages);
}

void TestMainFrame::editKeys_data()
{
    // before: 0 edited, 1 then undone, 2 then renamed by the console
    // name: the group's name afterwards
    addColumns<QKeySequence, int, bool, QString, int>(
        {"keys", "before", "editorOpen", "name", "undoCount"});
    const QKeySequence undo(QStringLiteral("Ctrl+Z"));
    QTest::newRow("Ctrl+Z undoes") << undo << 0 << false << QString() << 0;
    QTest::newRow("Ctrl+Shift+Z redoes")
        << QKeySequence(QStringLiteral("Ctrl+Shift+Z")) << 1 << false << "Front" << 1;
    QTest::newRow("Ctrl+Y redoes") << QKeySequence(QStringLiteral("Ctrl+Y")) << 1 << false
                                   << "Front" << 1;
    QTest::newRow("Ctrl+Z in an open editor edits its text") << undo << 0 << true << "Front" << 1;
    QTest::newRow("Ctrl+Z after the console renamed it") << undo << 2 << false << "Back" << 0;
}

void TestMainFrame::editKeys()
{
    auto [keys, before, editorOpen, name, undoCount] = fetch<QKeySequence, int, bool, QString, int>(
        {"keys", "before", "editorOpen", "name", "undoCount"});
    MainFrame& window = makeFrame(ConsoleCache::ModelMaple, {MainFrame::GroupsTab});
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    console->cache()->setGroupName(3, 0, QStringLiteral("Front"));
    console->journal()->commit();
    if (before == 1)
        QVERIFY(console->journal()->undo());
    if (before == 2) {
        ConsoleCache::writeText(engine->record()->groups[3].name, 0, QStringLiteral("Back"));
        engine->notify(ConsoleCode::GroupChanged, 3);
    }
    QLineEdit* editor = editorOpen ? new QLineEdit(&window) : nullptr;
    if (editor) {
        editor->show();
        editor->setFocus();
        QTest::keyClicks(editor, QStringLiteral("ab"));
    }
    QTest::keySequence(editor ? static_cast<QWidget*>(editor) : &window, keys);
    QCOMPARE(console->cache()->groupName(3, 0), name);
    QCOMPARE(console->journal()->undoCount(), undoCount);
    QCOMPARE(window.titleBar()->titleItem().message().isEmpty(), before != 2);
    if (editor)
        QCOMPARE(editor->text(), QString());
}

LUMIDESK_TEST_MAIN(TestMainFrame)

#include "tst_mainframe.moc"
