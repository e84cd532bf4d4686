// SPDX-License-Identifier: GPL-3.0-or-later
// Console::load against the engine libraries, opened by bare name: the four
// models, libraries that are no engine, a console of another version, and
// the handshake with an engine that takes a while to get ready.
#include "Console.h"
#include "ConsoleEngine.h"
#include "FakeEngine.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimer>

namespace {
constexpr char consoleVersionVariable[] = "LUMIDESK_ENGINE_CONSOLE_VERSION";
} // namespace

class TestConsoleLoad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void loadsEachModel_data();
    void loadsEachModel();
    void loadFailures_data();
    void loadFailures();
    void versionMismatch();
    void handshake_data();
    void handshake();
};

void TestConsoleLoad::initTestCase()
{
    qunsetenv(consoleVersionVariable);
}

void TestConsoleLoad::loadsEachModel_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("channels");
    QTest::newRow("Alder") << "glowEngine" << 0 << int(ConsoleCache::ModelAlder) << 48;
    QTest::newRow("Birch") << "glowEngine" << 1 << int(ConsoleCache::ModelBirch) << 96;
    QTest::newRow("Cedar") << "glowEngine" << 2 << int(ConsoleCache::ModelCedar) << 96;
    QTest::newRow("Maple") << "glowproEngine" << 0 << int(ConsoleCache::ModelMaple) << 72;
}

void TestConsoleLoad::loadsEachModel()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(int, type);
    QFETCH(int, channels);

    // A successful load leaves the error untouched.
    Console::LoadError error = Console::LoadError(-1);
    Console* console = Console::load(library, variant, &error, QStringLiteral("de"));
    QVERIFY(console);
    QCOMPARE(int(error), -1);
    QVERIFY(console->isReady());
    QVERIFY(console->isVersionKnown());
    QCOMPARE(int(console->consoleType()), type);
    QCOMPARE(console->cache()->channelCount(), channels);
    QCOMPARE(console->cache()->pageCount(), 12);
    QCOMPARE(console->cache()->consoleVersion(), console->engine()->softwareVersion());

    const QList<QTimer*> timers = console->findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    QVERIFY(timers.first()->isActive());
    QCOMPARE(timers.first()->interval(), 300);

    console->unload();
}

void TestConsoleLoad::loadFailures_data()
{
    QTest::addColumn<QString>("library");
    QTest::newRow("missing library") << "lumideskNoSuchEngine";
    QTest::newRow("no getConsole") << "lumideskNoFactoryEngine";
    QTest::newRow("getConsole gives null") << "lumideskNullFactoryEngine";
}

void TestConsoleLoad::loadFailures()
{
    QFETCH(QString, library);
    QTest::ignoreMessage(QtDebugMsg, qPrintable(QStringLiteral("Library name: ") + library));
    if (library == QLatin1String("lumideskNoSuchEngine"))
        QTest::ignoreMessage(QtDebugMsg,
                             QRegularExpression(QStringLiteral("lumideskNoSuchEngine")));
    Console::LoadError error = Console::VersionMismatch;
    QCOMPARE(Console::load(library, 0, &error), nullptr);
    QCOMPARE(error, Console::LoadFailed);
}

void TestConsoleLoad::versionMismatch()
{
    qputenv(consoleVersionVariable, "0.0-other");
    Console::LoadError error = Console::LoadFailed;
    Console* console = Console::load(QStringLiteral("glowEngine"), 1, &error);
    qunsetenv(consoleVersionVariable);
    QCOMPARE(console, nullptr);
    QCOMPARE(error, Console::VersionMismatch);

    // The engine was released: the next load works as before.
    console = Console::load(QStringLiteral("glowEngine"), 1, &error);
    QVERIFY(console);
    QCOMPARE(int(console->consoleType()), int(ConsoleCache::ModelBirch));
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
