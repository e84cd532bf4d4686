// SPDX-License-Identifier: GPL-3.0-or-later
#include "../app/ModalAnswerer.h"
#include "../toolkit/ToolkitFixture.h"
#include "EngineSession.h"
#include "FakeEngine.h"

#include "LumideskTestMain.h"
#include "toolkit/ConsoleLink.h"
#include "views/SystemView.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <cstddef>
#include <cstring>

using Answers = QList<ModalAnswerer::Answer>;
using Model = ConsoleCache::ConsoleType;
using R = ConsoleStateRecord;
Q_DECLARE_METATYPE(ConsoleCache::ConsoleType)

namespace {
// Notes the show operations and requests that reach the engine.
class LoggingEngine : public FakeEngine
{
public:
    using FakeEngine::FakeEngine;
    void newShow() override { log << "new"; }
    int openShow(QString name) override { return log << "open " + name, openResult; }
    void saveShow() override { log << "save"; }
    void saveShowAs(QString name) override { log << "saveAs " + name, setShowFileName(name); }
    void update(int code, int a, int, int) override { log << QString::asprintf("%d/%d", code, a); }
    QStringList log;
    int openResult = 0;
};

QByteArray readAll(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeAll(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

#ifdef __SANITIZE_THREAD__
// Qt's file dialog reads folders on a thread inside the uninstrumented Qt libraries.
#define SKIP_FILE_DIALOGS() QSKIP("The file dialog's folder thread is opaque to the sanitizer")
#else
#define SKIP_FILE_DIALOGS()
#endif
} // namespace

class TestSystemView : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void menusPerModel_data();
    void menusPerModel();
    void settings_data();
    void settings();
    void commands_data();
    void commands();
    void roundTripThroughTheEngine();

private:
    // A view on a fake engine of the model, or (ModelUnknown) on the simulated Maple.
    void show(Model model);
    // Presses a menu line, or on "table" the pan/tilt cell row * 4 + column; types into
    // the editor that opens when there is text.
    void press(const QString& menu, int index, const QString& typed = {});
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

void TestSystemView::show(Model model)
{
    if (model == Model::ModelUnknown && !session)
        session = std::make_unique<EngineSession>(QStringLiteral("glowproEngine"), 0);
    if (model != Model::ModelUnknown) {
        engine = std::make_unique<LoggingEngine>(model);
        console.reset(engine->createConsole());
    }
    ConsoleLink::setConsole(console ? console.get() : session->console());
    view = std::make_unique<SystemView>(nullptr, nullptr, true);
    view->show();
}

void TestSystemView::press(const QString& menu, int index, const QString& typed)
{
    QGraphicsItem* item = view->panTiltTable();
    QPointF at((index % 4) * 70 + 35, 46 + index / 4 * 20 + 10);
    for (SystemView::Menu* m : view->menus())
        if (m->title() == menu)
            item = m->childItems().value(index), at = QPointF(90, 10);
    QVERIFY(item);
    SceneMouse{*view->scene()}.click(item->mapToScene(at));
    auto* editor = view->viewport()->findChild<InPlaceLineEdit*>();
    QCOMPARE(editor != nullptr, !typed.isNull());
    if (!editor)
        return;
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!view->viewport()->findChild<InPlaceLineEdit*>());
    QVERIFY(!static_cast<SystemView::ValueItem*>(item)->isEditing());
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
    const QString menus = "File:4 Erase:%1 Crossfader:2 DMX Output:4 %2MIDI:4 Default times:%3 ";
    QTest::newRow("Alder") << Model::ModelAlder
                           << menus.arg(4).arg("DMX Input:2 DMX Backup:2 ").arg(3) + "System:2";
    QTest::newRow("Maple: palettes, more times, user mode, pan/tilt, library")
        << Model::ModelMaple << menus.arg(5).arg("").arg(5) + "User mode:3 System:3 table";
}

void TestSystemView::menusPerModel()
{
    const auto [model, menus] = fetch<Model, QString>({"model", "menus"});
    show(model);
    QStringList seen;
    for (SystemView::Menu* menu : view->menus())
        seen << menu->title() + QString::number(menu->childItems().size());
    QCOMPARE(seen.join(' ') + (view->panTiltTable() ? " table" : ""), menus);
    const auto* version = static_cast<SystemView::MenuItem*>(view->menus().last()->childItems()[1]);
    QCOMPARE(version->text(), "DLL version " + engine->softwareVersion());
}

void TestSystemView::settings_data()
{
    addColumns<QString, int, QString, int, int, int>(
        {"menu", "index", "typed", "at", "before", "after"});
    const auto row = [](const char* name, const char* menu, int index, const char* typed,
                        std::size_t at, int before, int after) {
        QTest::newRow(name) << QString(menu) << index << QString(typed) << int(at) << before
                            << after;
    };
    row("crossfader: both ways", "Crossfader:", 1, nullptr, offsetof(R, crossfaderMode), 0, 1);
    row("DMX output: slow", "DMX Output:", 3, nullptr, offsetof(R, dmxOutputSpeed), 3, 0);
    row("user mode: playback only", "User mode:", 2, nullptr, offsetof(R, consoleMode), 1, 2);
    row("MIDI music: checked", "MIDI:", 1, nullptr, offsetof(R, midiMusicOn), 0, 1);
    row("MIDI MSC: unchecked", "MIDI:", 3, nullptr, offsetof(R, midiMscOn), 1, 0);
    row("channel 16 stores 15", "MIDI:", 0, "16", offsetof(R, midiChannel), 3, 15);
    row("channel 0 refused", "MIDI:", 0, "0", offsetof(R, midiChannel), 3, 3);
    row("channel 17 refused", "MIDI:", 0, "17", offsetof(R, midiChannel), 3, 3);
    row("MSC id 127", "MIDI:", 2, "127", offsetof(R, midiMscId), 5, 127);
    row("MSC id 128 refused", "MIDI:", 2, "128", offsetof(R, midiMscId), 5, 5);
    row("MSC id not a number", "MIDI:", 2, "x7", offsetof(R, midiMscId), 5, 5);
    row("up fade 1:30", "Default times:", 0, "1:30", offsetof(R, defaultUpFade), 30, 900);
    row("palette time 2.5", "Default times:", 4, "2.5", offsetof(R, defaultPalette), 0, 25);
    row("invert pan of device 1", "table", 1, nullptr, offsetof(R, invertPan), 0, 1);
    row("invert tilt of device 24", "table", 23 * 4 + 2, nullptr, offsetof(R, invertTilt) + 23, 1,
        0);
    row("swap of device 6", "table", 5 * 4 + 3, nullptr, offsetof(R, swapPanTilt) + 5, 0, 1);
    row("device column: reported only", "table", 2 * 4, nullptr, offsetof(R, invertPan) + 2, 0, 0);
}

void TestSystemView::settings()
{
    const auto [menu, index, typed, at, before, after] =
        fetch<QString, int, QString, int, int, int>(
            {"menu", "index", "typed", "at", "before", "after"});
    show(Model::ModelMaple);
    char* record = reinterpret_cast<char*>(engine->record());
    const std::size_t size = menu == "Default times:" ? 2 : 1; // times are u16 (little-endian)
    const auto value = [&] {
        quint16 v = 0;
        return std::memcpy(&v, record + at, size), int(v);
    };
    const auto set = [&](int v) { std::memcpy(record + at, &v, size); };
    set(before);
    const QByteArray whole(record, sizeof(R));
    press(menu, index, typed);
    QCOMPARE(value(), after);
    set(before); // nothing else changed
    QVERIFY(QByteArray(record, sizeof(R)) == whole);
    QCOMPARE(engine->log, typed.isNull() || after != before ? QStringList{"41/0"} : QStringList{});
}

void TestSystemView::commands_data()
{
    // expected: what reached the engine | the last box seen
    addColumns<int, QString, int, Answers, QString>(
        {"command", "showFile", "result", "answers", "expected"});
    const auto row = [](const QString& name, int id, int result, Answers answers, QString expected,
                        QString showFile = {}) {
        QTest::newRow(qPrintable(name)) << id << showFile << result << answers << expected;
    };
    const auto ok = ModalAnswerer::press(QMessageBox::Ok);
    const auto no = ModalAnswerer::press(QMessageBox::Cancel);
    const QString proceed = ", OK to proceed?";
    const QList<std::tuple<int, int, QString, QString>> boxes = {
        {1, 0, "New show", "all data"},
        {11, 11, "Erase memories", "all memories"},
        {12, 12, "Erase sequences", "all sequences"},
        {13, 13, "Erase stack", "all data in the stack"},
        {14, 14, "Erase palettes", "all palettes"},
        {15, 16, "Erase all", "all data"}};
    for (const auto& [id, sub, title, what] : boxes) {
        const QString box = " | " + title + ": This will erase " + what + proceed;
        row(title + ": OK", id, 0, {ok}, (id == 1 ? "new" : "39/" + QString::number(sub)) + box);
        row(title + ": cancel", id, 0, {no}, box);
    }
    const QString gala = folder.filePath("Gala.asc"), opera = folder.filePath("Opera");
    QVERIFY(writeAll(gala, "x")); // the open dialog takes only a file that exists
    const auto choose = ModalAnswerer::chooseFile(gala), cancel = ModalAnswerer::cancel();
    row("open", 2, 0, {choose}, "open " + gala + " | Open showfile: ");
    row("open: unreadable", 2, 2, {choose, ok},
        "open " + gala + " | Open showfile: There was an error reading the show file!");
    row("open: cancelled", 2, 0, {cancel}, " | Open showfile: ");
    row("save: named show", 3, 0, {}, "save | ", "/shows/a.asc");
    row("save: new show asks for a name", 3, 0, {ModalAnswerer::chooseFile(opera)},
        "saveAs " + opera + ".asc | Save showfile: ");
    row("save as: cancelled", 4, 0, {cancel}, " | Save showfile: ", "/shows/a.asc");
}

void TestSystemView::commands()
{
    const auto [command, showFile, result, answers, expected] =
        fetch<int, QString, int, Answers, QString>(
            {"command", "showFile", "result", "answers", "expected"});
    if (command >= 2 && command <= 4) {
        SKIP_FILE_DIALOGS();
    }
    show(Model::ModelMaple);
    engine->setShowFileName(showFile);
    engine->openResult = result;
    const QString lastBox = run(command, answers).value(answers.size() - 1);
    QCOMPARE(engine->log.join(',') + " | " + lastBox, expected);
}

void TestSystemView::roundTripThroughTheEngine()
{
    SKIP_FILE_DIALOGS();
    show(Model::ModelUnknown);
    const auto ok = ModalAnswerer::press(QMessageBox::Ok);
    const R* r = session->record();
    const int tilt = r->invertTilt[3];
    press("Crossfader:", 1);
    press("MIDI:", 2, "42");
    press("table", 3 * 4 + 2);
    QVERIFY(session->step());
    const QByteArray saved = session->showBytes();
    const QString file = folder.filePath("Gala2.asc");
    run(SystemView::SaveShowAs, {ModalAnswerer::chooseFile(folder.filePath("Gala2"))});
    QVERIFY(session->step());
    QCOMPARE(session->showFileName(), file);

    run(SystemView::NewShow, {ok});
    press("Crossfader:", 0);
    QVERIFY(session->step());
    QVERIFY(session->showBytes() != saved);
    QCOMPARE(session->showFileName(), QString());

    run(SystemView::OpenShow, {ModalAnswerer::chooseFile(file)});
    QVERIFY(session->step());
    QVERIFY(session->showBytes() == saved);
    QCOMPARE(QList<int>({r->crossfaderMode, r->midiMscId, r->invertTilt[3]}),
             QList<int>({1, 42, 1 - tilt}));

    // Saving over the file replaces it whole; a save that fails leaves it as it was.
    const QByteArray first = readAll(file);
    press("MIDI:", 1);
    run(SystemView::SaveShow, {});
    QVERIFY(session->step());
    const QByteArray replaced = readAll(file);
    QVERIFY(replaced != first);
    QCOMPARE(replaced.size(), first.size());
    QVERIFY(writeAll(folder.filePath("not-a-folder"), "x")); // unwritable, even for root
    const QString lost = folder.filePath("not-a-folder/b");
    QCOMPARE(run(SystemView::SaveShowAs, {ModalAnswerer::chooseFile(lost), ok}).value(1),
             "Save showfile: The show could not be saved to " + lost + ".asc!");
    QVERIFY(session->step());
    QVERIFY(readAll(file) == replaced);
    QCOMPARE(session->showFileName(), file);

    // Refused files (empty, cut short, no show, another model's): a box, the show kept.
    QByteArray other = replaced.chopped(32);
    other[10] = 0; // Alder, with a checksum that fits
    other += QCryptographicHash::hash(other, QCryptographicHash::Sha256);
    const QString unreadable = "There was an error reading the show file!", bad = file + ".bad";
    const QList<QPair<QByteArray, QString>> refused = {
        {"", unreadable},
        {replaced.left(900), unreadable},
        {"show", unreadable},
        {other, "This show file originates from another type of console and cannot be read!"}};
    for (const auto& [bytes, box] : refused) {
        QVERIFY(writeAll(bad, bytes));
        const QByteArray before = session->showBytes();
        const Answers answers = {ModalAnswerer::chooseFile(bad), ok};
        QCOMPARE(run(SystemView::OpenShow, answers).value(1), "Open showfile: " + box);
        QVERIFY(session->step());
        QVERIFY(session->showBytes() == before);
        QCOMPARE(session->showFileName(), file);
    }
    QCOMPARE(session->engine()->openShow(file), 0);
    QVERIFY(!QFileInfo::exists("../Showfiles"));
}

LUMIDESK_TEST_MAIN(TestSystemView)

#include "tst_systemview.moc"
