// SPDX-License-Identifier: GPL-3.0-or-later
#include "../app/ModalAnswerer.h"
#include "../toolkit/ToolkitFixture.h"
#include "EngineSession.h"
#include "FakeEngine.h"

#include "app/Lumidesk.h"
#include "toolkit/ConsoleLink.h"
#include "views/SystemView.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <cstddef>

using Answers = QList<ModalAnswerer::Answer>;
using Model = ConsoleCache::ConsoleType;
Q_DECLARE_METATYPE(ConsoleCache::ConsoleType)

namespace {
// Notes the show operations and erase requests that reach the engine.
class LoggingEngine : public FakeEngine
{
public:
    using FakeEngine::FakeEngine;
    void newShow() override { log << "new"; }
    int openShow(QString name) override { return log << "open " + name, openResult; }
    void saveShow() override { log << "save"; }
    void saveShowAs(QString name) override { log << "saveAs " + name; }
    void update(int code, int a, int b, int c) override
    {
        log << QString::asprintf("update %d %d", code, a);
        FakeEngine::update(code, a, b, c);
    }
    QStringList log;
    int openResult = 0;
};

QByteArray readAll(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}
} // namespace

class TestSystemView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void menusPerModel_data();
    void menusPerModel();
    void valueItems_data();
    void valueItems();
    void panTiltPresses_data();
    void panTiltPresses();
    void commands_data();
    void commands();
    void roundTripThroughTheEngine();
    void refusedShowFilesKeepTheShow_data();
    void refusedShowFilesKeepTheShow();
    void cleanupTestCase() { session.reset(); }

private:
    SystemView& make(Model model);
    SystemView& onEngine();
    QGraphicsItem* item(const QString& menu, int index) const;
    void click(QPointF at) { SceneMouse{*view->scene()}.click(at); }
    void press(const QString& menu, int index)
    {
        click(item(menu, index)->sceneBoundingRect().center());
    }
    void type(const QString& menu, int index, const QString& text);
    QStringList run(int command, const Answers& answers);

    std::unique_ptr<LoggingEngine> engine;
    std::unique_ptr<Console> console;
    std::unique_ptr<SystemView> view;
    std::unique_ptr<EngineSession> session;
    QTemporaryDir folder;
};

void TestSystemView::cleanup()
{
    view.reset();
    ConsoleLink::setConsole(nullptr);
    console.reset();
    engine.reset();
}

SystemView& TestSystemView::make(Model model)
{
    engine = std::make_unique<LoggingEngine>(model);
    console.reset(engine->createConsole());
    ConsoleLink::setConsole(console.get());
    view = std::make_unique<SystemView>(nullptr, nullptr, true);
    view->resize(1000, 800);
    view->show();
    return *view;
}

// A Maple simulated console, kept for the rest of the run.
SystemView& TestSystemView::onEngine()
{
    if (!session)
        session = std::make_unique<EngineSession>(QStringLiteral("glowproEngine"), 0);
    ConsoleLink::setConsole(session->console());
    view = std::make_unique<SystemView>(nullptr, nullptr, true);
    view->resize(1000, 800);
    view->show();
    return *view;
}

QGraphicsItem* TestSystemView::item(const QString& menu, int index) const
{
    for (SystemView::Menu* m : view->menus())
        if (m->title() == menu)
            return m->childItems().value(index);
    return nullptr;
}

void TestSystemView::type(const QString& menu, int index, const QString& text)
{
    press(menu, index);
    auto* editor = view->viewport()->findChild<InPlaceLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!view->viewport()->findChild<InPlaceLineEdit*>());
    QVERIFY(!static_cast<SystemView::ValueItem*>(item(menu, index))->isEditing());
}

QStringList TestSystemView::run(int command, const Answers& answers)
{
    ModalAnswerer answerer(answers);
    view->runCommand(command);
    return answerer.seen;
}

void TestSystemView::menusPerModel_data()
{
    addColumns<Model, QString>({"model", "menus"});
    const QString common = "File:4 Erase:%1 Crossfader:2 DMX Output:4 %2MIDI:4 Default times:%3 ";
    const QString dmx = "DMX Input:2 DMX Backup:2 ";
    QTest::newRow("Alder") << Model::ModelAlder << common.arg(4).arg(dmx).arg(3) + "System:2";
    QTest::newRow("Cedar") << Model::ModelCedar << common.arg(4).arg(dmx).arg(3) + "System:2";
    QTest::newRow("Maple: palettes, more times, user mode, pan/tilt, library")
        << Model::ModelMaple << common.arg(5).arg("").arg(5) + "User mode:3 System:3 table";
}

void TestSystemView::menusPerModel()
{
    const auto [model, menus] = fetch<Model, QString>({"model", "menus"});
    make(model);
    QStringList seen;
    for (SystemView::Menu* menu : view->menus())
        seen << menu->title() + QString::number(menu->childItems().size());
    QCOMPARE(seen.join(' ') + (view->panTiltTable() ? " table" : ""), menus);
    const auto* version = static_cast<SystemView::MenuItem*>(item("System:", 1));
    QCOMPARE(version->text(), "DLL version " + engine->softwareVersion());
}

void TestSystemView::valueItems_data()
{
    addColumns<QString, int, QString, int, int, int>(
        {"menu", "index", "typed", "offset", "before", "after"});
    auto row = [](const char* name, const char* menu, int index, const char* typed,
                  std::size_t offset, int before, int after) {
        QTest::newRow(name) << menu << index << typed << int(offset) << before << after;
    };
    row("crossfader: both ways", "Crossfader:", 1, nullptr,
        offsetof(ConsoleStateRecord, crossfaderMode), 0, 1);
    row("DMX output: slow", "DMX Output:", 3, nullptr, offsetof(ConsoleStateRecord, dmxOutputSpeed),
        3, 0);
    row("DMX backup: enable", "DMX Backup:", 1, nullptr,
        offsetof(ConsoleStateRecord, dmxBackupBump), 0, 1);
    row("MIDI music: check on", "MIDI:", 1, nullptr, offsetof(ConsoleStateRecord, midiMusicOn), 0,
        1);
    row("MIDI MSC: check off", "MIDI:", 3, nullptr, offsetof(ConsoleStateRecord, midiMscOn), 1, 0);
    row("MIDI channel 16 stores 15", "MIDI:", 0, "16", offsetof(ConsoleStateRecord, midiChannel), 3,
        15);
    row("MIDI channel 1 stores 0", "MIDI:", 0, "1", offsetof(ConsoleStateRecord, midiChannel), 3,
        0);
    row("MIDI channel 0 refused", "MIDI:", 0, "0", offsetof(ConsoleStateRecord, midiChannel), 3, 3);
    row("MIDI channel 17 refused", "MIDI:", 0, "17", offsetof(ConsoleStateRecord, midiChannel), 3,
        3);
    row("MSC id 127", "MIDI:", 2, "127", offsetof(ConsoleStateRecord, midiMscId), 5, 127);
    row("MSC id 128 refused", "MIDI:", 2, "128", offsetof(ConsoleStateRecord, midiMscId), 5, 5);
    row("MSC id -1 refused", "MIDI:", 2, "-1", offsetof(ConsoleStateRecord, midiMscId), 5, 5);
    row("MSC id text refused", "MIDI:", 2, "abc", offsetof(ConsoleStateRecord, midiMscId), 5, 5);
    row("up fade 1:30", "Default times:", 0, "1:30", offsetof(ConsoleStateRecord, defaultUpFade),
        30, 900);
    row("wait 2.5", "Default times:", 2, "2.5", offsetof(ConsoleStateRecord, defaultWait), 0, 25);
}

void TestSystemView::valueItems()
{
    const auto [menu, index, typed, offset, before, after] =
        fetch<QString, int, QString, int, int, int>(
            {"menu", "index", "typed", "offset", "before", "after"});
    make(Model::ModelBirch);
    auto* field = reinterpret_cast<quint8*>(engine->record()) + offset;
    const bool word = menu == "Default times:";
    const auto value = [&] { return word ? int(*reinterpret_cast<quint16*>(field)) : int(*field); };
    if (word)
        *reinterpret_cast<quint16*>(field) = quint16(before);
    else
        *field = quint8(before);
    typed.isNull() ? press(menu, index) : type(menu, index, typed);
    QCOMPARE(value(), after);
    QCOMPARE(engine->log,
             typed.isNull() || after != before ? QStringList{"update 41 0"} : QStringList{});
}

void TestSystemView::panTiltPresses_data()
{
    // The flag byte changed, counted from invertPan[0]; -1 none, -2 none and no report.
    addColumns<QPointF, int>({"at", "changed"});
    QTest::newRow("invert pan of device 1") << QPointF(100, 50) << 0;
    QTest::newRow("invert tilt of device 24") << QPointF(175, 46 + 23 * 20 + 19) << 24 + 23;
    QTest::newRow("swap of device 6") << QPointF(279, 46 + 5 * 20 + 1) << 48 + 5;
    QTest::newRow("device number column: nothing") << QPointF(30, 60) << -1;
    QTest::newRow("head: nothing") << QPointF(100, 40) << -2;
}

void TestSystemView::panTiltPresses()
{
    const auto [at, changed] = fetch<QPointF, int>({"at", "changed"});
    make(Model::ModelMaple);
    const quint8* flags = engine->record()->invertPan;
    const QByteArray before(reinterpret_cast<const char*>(flags), 72);
    click(view->panTiltTable()->mapToScene(at));
    QList<int> differ;
    for (int i = 0; i < 72; ++i)
        if (flags[i] != quint8(before[i]))
            differ << i;
    QCOMPARE(differ, changed >= 0 ? QList<int>{changed} : QList<int>{});
    QCOMPARE(engine->log, changed > -2 ? QStringList{"update 41 0"} : QStringList{});
}

void TestSystemView::commands_data()
{
    addColumns<int, QString, int, Answers, QStringList, QString>(
        {"command", "showFile", "result", "answers", "log", "lastBox"});
    const auto ok = ModalAnswerer::press(QMessageBox::Ok);
    const auto cancel = ModalAnswerer::press(QMessageBox::Cancel);
    const QString gala = folder.filePath("Gala.asc"), opera = folder.filePath("Opera");
    writeAll(gala, "x"); // the open dialog takes only a file that exists
    const QString all = "Erase all: This will erase all data, OK to proceed?";
    const QString newShow = "New show: This will erase all data, OK to proceed?";
    QTest::newRow("new: OK") << 1 << "" << 0 << Answers{ok} << QStringList{"new"} << newShow;
    QTest::newRow("new: cancel") << 1 << "" << 0 << Answers{cancel} << QStringList{} << newShow;
    QTest::newRow("erase memories: OK")
        << 11 << "" << 0 << Answers{ok} << QStringList{"update 39 11"}
        << "Erase memories: This will erase all memories, OK to proceed?";
    QTest::newRow("erase stack: OK")
        << 13 << "" << 0 << Answers{ok} << QStringList{"update 39 13"}
        << "Erase stack: This will erase all data in the stack, OK to proceed?";
    QTest::newRow("erase palettes: cancel")
        << 14 << "" << 0 << Answers{cancel} << QStringList{}
        << "Erase palettes: This will erase all palettes, OK to proceed?";
    QTest::newRow("erase all: OK sends 16")
        << 15 << "" << 0 << Answers{ok} << QStringList{"update 39 16"} << all;
    QTest::newRow("erase all: cancel") << 15 << "" << 0 << Answers{cancel} << QStringList{} << all;
    QTest::newRow("open: loaded") << 2 << "" << 0 << Answers{ModalAnswerer::chooseFile(gala)}
                                  << QStringList{"open " + gala} << "Open showfile: ";
    QTest::newRow("open: other console")
        << 2 << "" << 1 << Answers{ModalAnswerer::chooseFile(gala), ok}
        << QStringList{"open " + gala}
        << "Open showfile: This show file originates from another type of console and cannot be "
           "read!";
    QTest::newRow("open: unreadable")
        << 2 << "" << 2 << Answers{ModalAnswerer::chooseFile(gala), ok}
        << QStringList{"open " + gala}
        << "Open showfile: There was an error reading the show file!";
    QTest::newRow("open: cancelled")
        << 2 << "" << 0 << Answers{ModalAnswerer::cancel()} << QStringList{} << "Open showfile: ";
    QTest::newRow("save: named show")
        << 3 << "/shows/a.asc" << 0 << Answers{} << QStringList{"save"} << "";
    QTest::newRow("save: new show asks for a name")
        << 3 << "" << 0 << Answers{ModalAnswerer::chooseFile(opera)}
        << QStringList{"saveAs " + opera + ".asc"} << "Save showfile: ";
    QTest::newRow("save as: cancelled")
        << 4 << "/shows/a.asc" << 0 << Answers{ModalAnswerer::cancel()} << QStringList{}
        << "Save showfile: ";
}

void TestSystemView::commands()
{
    const auto [command, showFile, result, answers, log, lastBox] =
        fetch<int, QString, int, Answers, QStringList, QString>(
            {"command", "showFile", "result", "answers", "log", "lastBox"});
#ifdef __SANITIZE_THREAD__
    if (command >= 2 && command <= 4)
        QSKIP("The file dialog's folder thread is opaque to the thread sanitizer");
#endif
    make(Model::ModelMaple);
    engine->setShowFileName(showFile);
    engine->openResult = result;
    QCOMPARE(run(command, answers).value(answers.size() - 1), lastBox);
    QCOMPARE(engine->log, log);
}

void TestSystemView::roundTripThroughTheEngine()
{
#ifdef __SANITIZE_THREAD__
    QSKIP("The file dialog's folder thread is opaque to the thread sanitizer");
#endif
    onEngine();
    const ConsoleStateRecord* r = session->record();
    press("Crossfader:", 1);
    type("MIDI:", 2, "42");
    click(view->panTiltTable()->mapToScene(QPointF(150, 46 + 3 * 20 + 10)));
    QVERIFY(session->step());
    const QByteArray saved = session->showBytes();
    const QString file = folder.filePath("Gala.asc");
    run(SystemView::SaveShowAs, {ModalAnswerer::chooseFile(folder.filePath("Gala"))});
    QVERIFY(session->step());
    QCOMPARE(session->showFileName(), file);

    run(SystemView::NewShow, {ModalAnswerer::press(QMessageBox::Ok)});
    press("Crossfader:", 0);
    QVERIFY(session->step());
    QVERIFY(session->showBytes() != saved);
    QCOMPARE(session->showFileName(), QString());

    run(SystemView::OpenShow, {ModalAnswerer::chooseFile(file)});
    QVERIFY(session->step());
    QVERIFY(session->showBytes() == saved);
    QCOMPARE(QList<int>({r->crossfaderMode, r->midiMscId, r->invertTilt[3]}),
             QList<int>({1, 42, 1}));

    // Saving over the file replaces it whole; a save that fails leaves it.
    const QByteArray first = readAll(file);
    press("MIDI:", 1);
    run(SystemView::SaveShow, {});
    QVERIFY(session->step());
    const QByteArray replaced = readAll(file);
    QVERIFY(replaced != first);
    QCOMPARE(replaced.size(), first.size());
    writeAll(folder.filePath("not-a-folder"), "x"); // unwritable whoever runs the test
    run(SystemView::SaveShowAs, {ModalAnswerer::chooseFile(folder.filePath("not-a-folder/b.asc"))});
    QVERIFY(session->step());
    QVERIFY(readAll(file) == replaced);
    QCOMPARE(session->showFileName(), file);
    QCOMPARE(session->engine()->openShow(file), 0);
    QVERIFY(!QFileInfo::exists("../Showfiles"));
}

void TestSystemView::refusedShowFilesKeepTheShow_data()
{
    addColumns<QString, QString>({"kind", "box"});
    const QString unreadable = "There was an error reading the show file!";
    QTest::newRow("empty") << "empty" << unreadable;
    QTest::newRow("truncated") << "truncated" << unreadable;
    QTest::newRow("not a show") << "text" << unreadable;
    QTest::newRow("other model")
        << "alder"
        << "This show file originates from another type of console and cannot be read!";
}

void TestSystemView::refusedShowFilesKeepTheShow()
{
    const auto [kind, box] = fetch<QString, QString>({"kind", "box"});
#ifdef __SANITIZE_THREAD__
    QSKIP("The file dialog's folder thread is opaque to the thread sanitizer");
#endif
    onEngine();
    const QString good = folder.filePath("good.asc");
    session->engine()->saveShowAs(good);
    QVERIFY(session->step());
    QByteArray bytes = readAll(good);
    if (kind == "alder") {
        bytes.chop(32);
        bytes[10] = 0;
        bytes += QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
    }
    const QString bad = folder.filePath(kind + ".asc");
    writeAll(bad, kind == "empty"       ? ""
                  : kind == "truncated" ? bytes.left(bytes.size() / 2)
                  : kind == "text"      ? "show"
                                        : bytes);
    const QByteArray before = session->showBytes();
    const QStringList seen = run(SystemView::OpenShow, {ModalAnswerer::chooseFile(bad),
                                                        ModalAnswerer::press(QMessageBox::Ok)});
    QVERIFY(session->step());
    QCOMPARE(seen.value(1), "Open showfile: " + box);
    QVERIFY(session->showBytes() == before);
    QCOMPARE(session->showFileName(), good);
}

int main(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    TestSystemView test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_systemview.moc"
