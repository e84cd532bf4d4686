// SPDX-License-Identifier: GPL-3.0-or-later
// Console::load against the engine libraries, opened by bare name: the four
// models, libraries that are no engine, a console of another version; and
// the handshake with an engine that takes a while to get ready.
#include "Console.h"
#include "ConsoleEngine.h"
#include "FakeEngine.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimer>

class TestConsoleLoad : public QObject
{
    Q_OBJECT

private slots:
    void load_data();
    void load();
    void handshake_data();
    void handshake();
};

void TestConsoleLoad::load_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::addColumn<QByteArray>("consoleVersion"); // what the console reports, if not the engine's
    QTest::addColumn<int>("type");                  // or the load error
    QTest::newRow("Alder") << "glowEngine" << 0 << QByteArray() << int(ConsoleCache::ModelAlder);
    QTest::newRow("Birch") << "glowEngine" << 1 << QByteArray() << int(ConsoleCache::ModelBirch);
    QTest::newRow("Cedar") << "glowEngine" << 2 << QByteArray() << int(ConsoleCache::ModelCedar);
    QTest::newRow("Maple") << "glowproEngine" << 0 << QByteArray() << int(ConsoleCache::ModelMaple);
    QTest::newRow("another console version")
        << "glowEngine" << 1 << QByteArray("0.0-other") << -1 - int(Console::VersionMismatch);
    QTest::newRow("missing library")
        << "lumideskNoSuchEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
    QTest::newRow("no getConsole")
        << "lumideskNoFactoryEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
    QTest::newRow("getConsole gives null")
        << "lumideskNullFactoryEngine" << 0 << QByteArray() << -1 - int(Console::LoadFailed);
}

void TestConsoleLoad::load()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(QByteArray, consoleVersion);
    QFETCH(int, type);
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("Library name: ") + library));
    if (library.contains(QLatin1String("NoSuch")))
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(library));
    qputenv("LUMIDESK_ENGINE_CONSOLE_VERSION", consoleVersion);
    // A successful load leaves the error untouched.
    Console::LoadError error = Console::LoadError(-9);
    Console* console = Console::load(library, variant, &error, QStringLiteral("de"));
    qunsetenv("LUMIDESK_ENGINE_CONSOLE_VERSION");
    QCOMPARE(console ? int(console->consoleType()) : -1 - int(error), type);
    if (!console)
        return;
    QCOMPARE(int(error), -9);
    // The button blink runs from the end of the load on.
    const QList<QTimer*> timers = console->findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.first()->isActive());
    console->unload();
}

void TestConsoleLoad::handshake_data()
{
    QTest::addColumn<int>("versionChecks"); // until ready; 0: ready when started
    QTest::addColumn<QString>("consoleVersion");
    QTest::addColumn<bool>("loads");
    QTest::newRow("ready when started") << 0 << "1.0" << true;
    QTest::newRow("ready after three polls") << 3 << "1.0" << true;
    QTest::newRow("another console version") << 3 << "0.9" << false;
}

void TestConsoleLoad::handshake()
{
    QFETCH(int, versionChecks);
    QFETCH(QString, consoleVersion);
    QFETCH(bool, loads);
    FakeEngine engine;
    engine.setConsoleVersion(consoleVersion);
    engine.setReadyOnStart(versionChecks == 0);
    engine.setReadyAfterVersionChecks(versionChecks);
    Console::LoadError error = Console::LoadError(-1);
    Console* console = Console::start(nullptr, &engine, 0, 0, &error);
    QCOMPARE(console != nullptr, loads);
    QCOMPARE(int(error), loads ? -1 : int(Console::VersionMismatch));
    if (console) {
        QVERIFY(console->isReady());
        QCOMPARE(console->cache()->channelCount(), 48);
        console->unload();
    }
}

QTEST_GUILESS_MAIN(TestConsoleLoad)
#include "tst_console_load.moc"
