// SPDX-License-Identifier: GPL-3.0-or-later
// A show save stopped at any of its writes, by a killed process or a failing
// write, leaves the file holding the old show or the new one, whole.
#include "ConsoleEngine.h"
#include "EngineSession.h"
#include "ShowFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {
constexpr char childMode[] = "--save-killed-at";
int interruptAt = -1;

QByteArray readFile(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writePlain(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The child: saves the show in source over target and dies at the step.
int saveAndDie(int step, const QString& target, const QString& source)
{
    interruptAt = step;
    ShowFile::setWriteProbe([](int current) {
        if (current == interruptAt)
            std::raise(SIGKILL);
        return true;
    });
    return ShowFile::write(target, readFile(source)) ? 0 : 1;
}
} // namespace

class InterruptedSaveTest : public QObject
{
    Q_OBJECT

private slots:
    void savedFileIsOldOrNewShow_data();
    void savedFileIsOldOrNewShow();

private:
    // True when the save ran to its end.
    static bool saveInterruptedAt(bool killed, int step, const QString& target,
                                  const QString& source);
};

bool InterruptedSaveTest::saveInterruptedAt(bool killed, int step, const QString& target,
                                            const QString& source)
{
    if (killed) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {childMode, QString::number(step), target, source});
        if (!child.waitForFinished(10000))
            return false;
        return child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
    }
    interruptAt = step;
    ShowFile::setWriteProbe([](int current) { return current != interruptAt; });
    const bool saved = ShowFile::write(target, readFile(source));
    ShowFile::setWriteProbe(nullptr);
    return saved;
}

void InterruptedSaveTest::savedFileIsOldOrNewShow_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<int>("variant");
    QTest::addColumn<bool>("killed");
    QTest::addColumn<int>("model");
    const struct
    {
        const char* name;
        const char* library;
        int variant;
    } models[] = {{"Alder", "glowEngine", 0},
                  {"Birch", "glowEngine", 1},
                  {"Cedar", "glowEngine", 2},
                  {"Maple", "glowproEngine", 0}};
    int type = 0;
    for (const auto& model : models) {
        QTest::addRow("%s, saving process killed", model.name)
            << model.library << model.variant << true << type;
        QTest::addRow("%s, write fails", model.name)
            << model.library << model.variant << false << type;
        ++type;
    }
}

void InterruptedSaveTest::savedFileIsOldOrNewShow()
{
    QFETCH(QString, library);
    QFETCH(int, variant);
    QFETCH(bool, killed);
    QFETCH(int, model);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString target = dir.filePath("show.asc");
    const QString source = dir.filePath("edited.asc");

    EngineSession s(library, variant);
    s.engine()->saveShowAs(target);
    QVERIFY(s.step());
    const QByteArray oldFile = readFile(target);
    const QByteArray oldShow = s.showBytes();
    // The console keeps its show between sessions: the edit must change it.
    const bool first = s.cache()->channelLegend(0, 0) != "Edited";
    s.cache()->setChannelLegend(0, 0, first ? "Edited" : "Again");
    QVERIFY(s.step());
    s.engine()->saveShowAs(source);
    QVERIFY(s.step());
    const QByteArray newFile = readFile(source);
    const QByteArray newShow = s.showBytes();
    QVERIFY(!oldFile.isEmpty() && !newFile.isEmpty() && oldShow != newShow);

    int interruptions = 0;
    for (int step = 0;; ++step) {
        QVERIFY2(step < 200, "the save never completes");
        QVERIFY(writePlain(target, oldFile));
        const bool completed = saveInterruptedAt(killed, step, target, source);
        const QByteArray onDisk = readFile(target);
        QVERIFY2(onDisk == oldFile || onDisk == newFile, qPrintable(QString::number(step)));
        const ShowFile::Contents opened = ShowFile::read(target, model);
        QCOMPARE(opened.status, ShowFile::Status::Ok);
        QVERIFY(opened.showData == (onDisk == oldFile ? oldShow : newShow));
        if (completed) {
            QVERIFY(onDisk == newFile);
            break;
        }
        ++interruptions;
    }
    // The open, at least one block and the commit were each interrupted.
    QVERIFY(interruptions >= 3);
}

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], childMode) == 0)
        return saveAndDie(QByteArray(argv[2]).toInt(), QString::fromLocal8Bit(argv[3]),
                          QString::fromLocal8Bit(argv[4]));
    QCoreApplication app(argc, argv);
    InterruptedSaveTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "InterruptedSaveTest.moc"
