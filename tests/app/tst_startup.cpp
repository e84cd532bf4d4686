// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up as a whole: settings and catalogues, the console type dialog,
// loading each model, the failure messages and the teardown.
#include "Console.h"
#include "ConsoleCache.h"
#include "DeviceNotification.h"
#include "InterfaceDialog.h"
#include "Lumidesk.h"
#include "StartOptions.h"

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

int argc = 1;
char programName[] = "tst_startup";
char* argv[] = {programName, nullptr};

void storeLanguage(const QString& code)
{
    QSettings settings(QStringLiteral("Orvex"), QStringLiteral("Lumidesk"));
    if (code.isEmpty())
        settings.remove(QStringLiteral("Language"));
    else
        settings.setValue(QStringLiteral("Language"), code);
    settings.sync();
}

// Calls action on the event loop (of whichever modal loop runs) as soon as
// probe finds what it waits for.
class WhenReady : public QObject
{
public:
    WhenReady(std::function<bool()> probe) : m_probe(std::move(probe))
    {
        m_timer.setInterval(5);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (m_probe())
                m_timer.stop();
        });
        m_timer.start();
    }

private:
    std::function<bool()> m_probe;
    QTimer m_timer;
};

struct MessageSeen
{
    QString title;
    QString text;
    int boxes = 0;
    bool critical = false;
};

// Accepts every critical message box, noting what it said.
std::function<bool()> acceptMessageBox(MessageSeen& seen)
{
    return [&seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return false;
        seen.title = box->windowTitle();
        seen.text = box->text();
        seen.critical = box->icon() == QMessageBox::Critical;
        ++seen.boxes;
        box->button(QMessageBox::Ok)->click();
        return true;
    };
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
    void setLanguageTakesEffectAtNextStart();
    void dialogIsTranslated();

    void modelOption_data();
    void modelOption();

    void loadFailure_data();
    void loadFailure();
    void consoleRemovalReachesTheEngineWhileRunning();

    void dialogChoice_data();
    void dialogChoice();
    void consoleOnUsbSkipsTheDialog_data();
    void consoleOnUsbSkipsTheDialog();
    void rejectedDialogEndsTheStart();
};

void TestStartup::language_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("engineIndex");
    QTest::addColumn<QString>("criticalError");

    QTest::newRow("no setting: English") << ""
                                         << "en" << 0 << "Critical error";
    QTest::newRow("de: compiled-in German catalogue") << "de"
                                                      << "de" << 2 << "Kritischer Fehler";
    QTest::newRow("fr: compiled-in French catalogue") << "fr"
                                                      << "fr" << 1 << "Erreur critique";
    QTest::newRow("es: compiled-in Spanish catalogue") << "es"
                                                       << "es" << 3 << "Error crítico";
    QTest::newRow("it: the catalogue next to the program wins")
        << "it"
        << "it" << 4 << "Errore critico (catalogo accanto al programma)";
    QTest::newRow("nl: no catalogue, stays English") << "nl"
                                                     << "en" << 0 << "Critical error";
}

void TestStartup::language()
{
    QFETCH(QString, setting);
    QFETCH(QString, language);
    QFETCH(int, engineIndex);
    QFETCH(QString, criticalError);

    storeLanguage(setting);
    Lumidesk app(argc, argv);
    QCOMPARE(Lumidesk::instance(), &app);
    QCOMPARE(app.language(), language);
    QCOMPARE(Console::languageIndex(app.language()), engineIndex);
    QCOMPARE(Lumidesk::translate("Lumidesk", "Critical error"), criticalError);
    QCOMPARE(app.languages(), (QStringList{"en", "fr", "de", "es", "it"}));
}

void TestStartup::setLanguageTakesEffectAtNextStart()
{
    {
        Lumidesk app(argc, argv);
        app.setLanguage(QStringLiteral("es"));
        QCOMPARE(app.language(), QStringLiteral("es"));
        // Translators are only installed at start.
        QCOMPARE(Lumidesk::translate("Lumidesk", "Critical error"),
                 QStringLiteral("Critical error"));
    }
    QCOMPARE(Lumidesk::instance(), nullptr);
    Lumidesk app(argc, argv);
    QCOMPARE(app.language(), QStringLiteral("es"));
    QCOMPARE(Lumidesk::translate("Lumidesk", "Critical error"), QStringLiteral("Error crítico"));
}

void TestStartup::dialogIsTranslated()
{
    storeLanguage(QStringLiteral("de"));
    Lumidesk app(argc, argv);
    InterfaceDialog dialog;
    auto* heading = dialog.findChild<QLabel*>(QStringLiteral("label_2"));
    QVERIFY(heading);
    QCOMPARE(heading->text(), QStringLiteral("Konsolentyp auswählen:"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Lumidesk"));
    QVERIFY(dialog.windowFlags() & Qt::WindowStaysOnTopHint);
    QVERIFY(dialog.isModal());
}

void TestStartup::modelOption_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<int>("consoleType");
    QTest::newRow("alder") << "alder" << int(ConsoleCache::ModelAlder);
    QTest::newRow("birch") << "birch" << int(ConsoleCache::ModelBirch);
    QTest::newRow("cedar") << "cedar" << int(ConsoleCache::ModelCedar);
    QTest::newRow("maple") << "maple" << int(ConsoleCache::ModelMaple);
}

void TestStartup::modelOption()
{
    QFETCH(QString, model);
    QFETCH(int, consoleType);

    const StartOptions options = StartOptions::parse({"lumidesk", "--model", model});
    QVERIFY(options.model);
    Lumidesk app(argc, argv);

    int seenType = -1;
    bool ready = false;
    QPointer<QWidget> window;
    WhenReady inLoop([&] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible())
                window = widget;
        if (!window || !app.console())
            return false;
        seenType = app.console()->consoleType();
        ready = app.console()->isReady();
        // exit(), not quit(): quit() would close the window, which asks about saving.
        QCoreApplication::exit(0);
        return true;
    });
    QCOMPARE(app.run(options.model), 0);
    QCOMPARE(seenType, consoleType);
    QVERIFY(ready);
    // Torn down: the window is gone and the console unloaded.
    QVERIFY(window.isNull());
    QCOMPARE(app.console(), nullptr);
}

void TestStartup::consoleRemovalReachesTheEngineWhileRunning()
{
    // Whether this machine lets a program watch udev at all.
    const bool canWatch =
        DeviceNotification([] {}).registerDeviceNotification(0, Lumidesk::consoleInterfaceClass());

    Lumidesk app(argc, argv);
    QVERIFY(!app.deviceNotification().isRegistered());
    // The engine emits on its own thread: count on the GUI thread through a
    // queued connection (a QSignalSpy would be appended to from both).
    bool watching = false;
    int statusUpdates = 0;
    bool registeredWhileRunning = false;
    bool statusReported = false;
    WhenReady inLoop([&] {
        if (!app.console())
            return false;
        if (!watching) {
            watching = true;
            registeredWhileRunning = app.deviceNotification().isRegistered();
            QObject::connect(app.console(), &Console::consoleStatusUpdated, &app,
                             [&statusUpdates] { ++statusUpdates; }, Qt::QueuedConnection);
            // What the watch does when the console's interface goes away.
            app.deviceNotification().reportRemoval();
            return false;
        }
        if (statusUpdates == 0)
            return false;
        statusReported = true;
        QCoreApplication::exit(0);
        return true;
    });
    QCOMPARE(app.run(ConsoleChoice{QStringLiteral("glowEngine"), 0}), 0);
    QVERIFY(statusReported);
    QCOMPARE(registeredWhileRunning, canWatch);
    QVERIFY(!app.deviceNotification().isRegistered());
}

void TestStartup::loadFailure_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QByteArray>("consoleVersion");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");

    QTest::newRow("missing engine library")
        << "noSuchEngineLibrary" << QByteArray() << "Critical error"
        << "Lumidesk failed to load the console selected!";
    QTest::newRow("console and engine versions differ")
        << "glowEngine" << QByteArray("0.0-other") << "Connection error"
        << "The console software version does not match the Lumidesk software version.\n"
           "Please update one or both sides to a matching version.";
}

void TestStartup::loadFailure()
{
    QFETCH(QString, library);
    QFETCH(QByteArray, consoleVersion);
    QFETCH(QString, title);
    QFETCH(QString, text);

    if (!consoleVersion.isEmpty())
        qputenv("LUMIDESK_ENGINE_CONSOLE_VERSION", consoleVersion);
    Lumidesk app(argc, argv);
    MessageSeen seen;
    WhenReady box(acceptMessageBox(seen));
    QCOMPARE(app.run(ConsoleChoice{library, 0}), 0);
    QCOMPARE(seen.boxes, 1);
    QVERIFY(seen.critical);
    QCOMPARE(seen.title, title);
    QCOMPARE(seen.text, text);
    QCOMPARE(app.console(), nullptr);
    QVERIFY(QApplication::topLevelWidgets().isEmpty() ||
            std::none_of(QApplication::topLevelWidgets().cbegin(),
                         QApplication::topLevelWidgets().cend(),
                         [](QWidget* w) { return w->isVisible(); }));
}

void TestStartup::dialogChoice_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::newRow("Alder") << "glowcraftAlderPushButton"
                           << "glowEngine" << 0;
    QTest::newRow("Birch") << "glowcraftBirchPushButton"
                           << "glowEngine" << 1;
    QTest::newRow("Cedar") << "glowcraftCedarPushButton"
                           << "glowEngine" << 2;
    QTest::newRow("Maple") << "glowcraftMaplePushButton"
                           << "glowproEngine" << 0;
}

void TestStartup::dialogChoice()
{
    QFETCH(QString, button);
    QFETCH(QString, library);
    QFETCH(int, variant);

    Lumidesk app(argc, argv);
    InterfaceDialog dialog(nullptr, [] { return QList<HidDeviceInfo>{}; });
    bool wasShown = false;
    WhenReady click([&] {
        if (QApplication::activeModalWidget() != &dialog)
            return false;
        wasShown = true;
        if (auto* push = dialog.findChild<QPushButton*>(button))
            QTest::mouseClick(push, Qt::LeftButton);
        else
            dialog.reject();
        return true;
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(wasShown);
    QCOMPARE(dialog.libraryName(), library);
    QCOMPARE(dialog.modelVariant(), variant);
}

void TestStartup::consoleOnUsbSkipsTheDialog_data()
{
    QTest::addColumn<quint16>("product");
    QTest::addColumn<QString>("library");
    QTest::newRow("glow console") << quint16(0x0200) << "glowEngine";
    QTest::newRow("pro console") << quint16(0x0201) << "glowproEngine";
}

void TestStartup::consoleOnUsbSkipsTheDialog()
{
    QFETCH(quint16, product);
    QFETCH(QString, library);

    Lumidesk app(argc, argv);
    InterfaceDialog dialog(nullptr, [product] {
        return QList<HidDeviceInfo>{{QStringLiteral("/dev/hidraw7"), consoleVendorId, product, 1}};
    });
    bool shown = false;
    WhenReady watch([&] {
        shown = shown || dialog.isVisible();
        return false;
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.libraryName(), library);
    QCOMPARE(dialog.modelVariant(), 0);
    QVERIFY(!shown);
    QVERIFY(!dialog.isVisible());
}

void TestStartup::rejectedDialogEndsTheStart()
{
    Lumidesk app(argc, argv);
    bool closed = false;
    WhenReady reject([&] {
        auto* dialog = qobject_cast<InterfaceDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return false;
        dialog->reject();
        closed = true;
        return true;
    });
    QCOMPARE(app.run(), 0);
    QVERIFY(closed);
    QCOMPARE(app.console(), nullptr);
}

QTEST_APPLESS_MAIN(TestStartup)
#include "tst_startup.moc"
