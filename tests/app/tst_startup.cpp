// SPDX-License-Identifier: GPL-3.0-or-later
#include "Console.h"
#include "ConsoleCache.h"
#include "DataRows.h"
#include "DeviceNotification.h"
#include "InterfaceDialog.h"
#include "Lumidesk.h"
#include "ModalAnswerer.h"
#include "ScanHidDevices.h"
#include "StartOptions.h"

#include <QPointer>
#include <QSettings>
#include <QtTest>

#include <optional>

Q_DECLARE_METATYPE(QList<HidDeviceInfo>)

namespace {

int argc = 1;
char programName[] = "tst_startup";
char* argv[] = {programName, nullptr};

void storeLanguage(const QString& code)
{
    QSettings settings(QStringLiteral("Orvex"), QStringLiteral("Lumidesk"));
    code.isEmpty() ? settings.remove(QStringLiteral("Language"))
                   : settings.setValue(QStringLiteral("Language"), code);
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init() { storeLanguage(QString()); }
    void cleanup() { qunsetenv("LUMIDESK_ENGINE_CONSOLE_VERSION"); }
    void language_data();
    void language();
    void modelOption_data();
    void modelOption();
    void loadFailure_data();
    void loadFailure();
    void dialogChoice_data();
    void dialogChoice();
    void rejectedDialogEndsTheStart();
};

void TestStartup::language_data()
{
    // language: code: "Critical error" in it
    addColumns<QString, int, QString>({"setting", "engineIndex", "language"});
    QTest::newRow("no setting: English") << "" << 0 << "en: Critical error";
    QTest::newRow("de: compiled-in catalogue") << "de" << 2 << "de: Kritischer Fehler";
    QTest::newRow("it: the catalogue next to the program wins")
        << "it" << 4 << "it: Errore critico (catalogo accanto al programma)";
    QTest::newRow("nl: no catalogue, stays English") << "nl" << 0 << "en: Critical error";
}

void TestStartup::language()
{
    auto [setting, engineIndex, language] =
        fetch<QString, int, QString>({"setting", "engineIndex", "language"});
    storeLanguage(setting);
    Lumidesk app(argc, argv);
    QCOMPARE(app.language() + ": " + Lumidesk::translate("Lumidesk", "Critical error"), language);
    QCOMPARE(Console::languageIndex(app.language()), engineIndex);
}

void TestStartup::modelOption_data()
{
    addColumns<QString, int>({"model", "consoleType"});
    QTest::newRow("alder") << "alder" << int(ConsoleCache::ModelAlder);
    QTest::newRow("birch") << "birch" << int(ConsoleCache::ModelBirch);
    QTest::newRow("cedar") << "cedar" << int(ConsoleCache::ModelCedar);
    QTest::newRow("maple") << "maple" << int(ConsoleCache::ModelMaple);
}

// Each model starts, hears that the console was unplugged, and is torn down.
void TestStartup::modelOption()
{
    auto [model, consoleType] = fetch<QString, int>({"model", "consoleType"});
    const bool canWatch =
        DeviceNotification([] {}).registerDeviceNotification(0, Lumidesk::consoleInterfaceClass());
    Lumidesk app(argc, argv);
    int seenType = -1;
    int statusUpdates = 0;
    std::optional<bool> watched;
    QPointer<QWidget> window;
    QTimer poll; // runs in whichever event loop runs
    QObject::connect(&poll, &QTimer::timeout, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            window = widget->isVisible() ? widget : window.data();
        if (watched && statusUpdates > 0)
            QCoreApplication::exit(0);
        if (watched || !app.console() || !window)
            return;
        seenType = app.console()->consoleType();
        watched = app.deviceNotification().isRegistered();
        // The engine emits on its own thread: count on the GUI thread.
        QObject::connect(
            app.console(), &Console::consoleStatusUpdated, &app, [&] { ++statusUpdates; },
            Qt::QueuedConnection);
        app.deviceNotification().reportRemoval();
    });
    poll.start(5);
    // exit(), not quit(): quit() would close the window, which asks about saving.
    QCOMPARE(app.run(StartOptions::parse({"lumidesk", "--model", model}).model), 0);
    QCOMPARE(seenType, consoleType);
    QCOMPARE(watched.value_or(!canWatch), canWatch);
    QVERIFY(statusUpdates > 0);
    // Torn down: the window is gone, the watch ended and the console unloaded.
    QVERIFY(window.isNull());
    QVERIFY(!app.deviceNotification().isRegistered());
    QCOMPARE(app.console(), nullptr);
}

void TestStartup::loadFailure_data()
{
    addColumns<QString, QByteArray, QString>({"library", "consoleVersion", "message"});
    QTest::newRow("missing engine library")
        << "noSuchEngineLibrary" << QByteArray()
        << "Critical error: Lumidesk failed to load the console selected!";
    QTest::newRow("console and engine versions differ")
        << "glowEngine" << QByteArray("0.0-other")
        << "Connection error: The console software version does not match the Lumidesk software "
           "version.\nPlease update one or both sides to a matching version.";
}

void TestStartup::loadFailure()
{
    auto [library, consoleVersion, message] =
        fetch<QString, QByteArray, QString>({"library", "consoleVersion", "message"});
    if (!consoleVersion.isEmpty())
        qputenv("LUMIDESK_ENGINE_CONSOLE_VERSION", consoleVersion);
    Lumidesk app(argc, argv);
    ModalAnswerer answerer({ModalAnswerer::press(QMessageBox::Ok)});
    QCOMPARE(app.run(ConsoleChoice{library, 0}), 0);
    QCOMPARE(answerer.seen, QStringList{message});
    QCOMPARE(app.console(), nullptr);
}

void TestStartup::dialogChoice_data()
{
    // button: empty: the dialog must not show
    addColumns<QList<HidDeviceInfo>, QString, int, QString>(
        {"devices", "button", "variant", "library"});
    const QList<HidDeviceInfo> none;
    QTest::newRow("Birch") << none << "glowcraftBirchPushButton" << 1 << "glowEngine";
    QTest::newRow("Maple") << none << "glowcraftMaplePushButton" << 0 << "glowproEngine";
    const QString hidraw = QStringLiteral("/dev/hidraw7");
    QTest::newRow("glow console on USB: no dialog")
        << QList<HidDeviceInfo>{{hidraw, consoleVendorId, 0x0200, 1}} << "" << 0 << "glowEngine";
    QTest::newRow("pro console on USB: no dialog")
        << QList<HidDeviceInfo>{{hidraw, consoleVendorId, 0x0201, 1}} << "" << 0 << "glowproEngine";
}

void TestStartup::dialogChoice()
{
    auto [devices, button, variant, library] = fetch<QList<HidDeviceInfo>, QString, int, QString>(
        {"devices", "button", "variant", "library"});
    Lumidesk app(argc, argv);
    InterfaceDialog dialog(nullptr, [devices] { return devices; });
    ModalAnswerer answerer({ModalAnswerer::click(button)});
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(answerer.seen.size(), button.isEmpty() ? 0 : 1);
    QCOMPARE(dialog.libraryName(), library);
    QCOMPARE(dialog.modelVariant(), variant);
}

void TestStartup::rejectedDialogEndsTheStart()
{
    Lumidesk app(argc, argv);
    ModalAnswerer answerer({ModalAnswerer::cancel()});
    QCOMPARE(app.run(), 0);
    QCOMPARE(answerer.seen, QStringList{QStringLiteral("Lumidesk: ")});
    QCOMPARE(app.console(), nullptr);
}

QTEST_APPLESS_MAIN(TestStartup)
#include "tst_startup.moc"
