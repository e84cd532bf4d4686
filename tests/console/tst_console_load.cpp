// SPDX-License-Identifier: GPL-3.0-or-later
// Console::load against the engine libraries, opened by bare name: the four
// models, libraries that are no engine, and a console of another version.
#include "Console.h"
#include "ConsoleEngine.h"

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

QTEST_GUILESS_MAIN(TestConsoleLoad)
#include "tst_console_load.moc"
