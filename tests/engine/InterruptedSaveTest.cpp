// SPDX-License-Identifier: GPL-3.0-or-later
// A show save stopped at any of its writes, by a killed process or a failing
// write, leaves the file holding the old show or the new one, whole.
#include "ConsoleEngine.h"
#include "DataRows.h"
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

// True when the save of source over target ran to its end.
bool saveInterruptedAt(bool killed, int step, const QString& target, const QString& source)
{
    if (killed) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {childMode, QString::number(step), target, source});
        return child.waitForFinished(10000) && child.exitStatus() == QProcess::NormalExit &&
               child.exitCode() == 0;
    }
    interruptAt = step;
    ShowFile::setWriteProbe([](int current) { return current != interruptAt; });
    const bool saved = ShowFile::write(target, readFile(source));
    ShowFile::setWriteProbe(nullptr);
    return saved;
}
} // namespace

class InterruptedSaveTest : public QObject
{
    Q_OBJECT

private slots:
    void savedFileIsOldOrNewShow_data()
    {
        addColumns<QString, int, int, bool>({"library", "variant", "model", "killed"});
        const char* names[] = {"Alder", "Birch", "Cedar", "Maple"};
        for (int model = 0; model < 4; ++model) {
            const QString library = model < 3 ? "glowEngine" : "glowproEngine";
            for (const bool killed : {true, false})
                QTest::addRow("%s, %s", names[model], killed ? "process killed" : "write fails")
                    << library << model % 3 << model << killed;
        }
    }

    void savedFileIsOldOrNewShow()
    {
        auto [library, variant, model, killed] =
            fetch<QString, int, int, bool>({"library", "variant", "model", "killed"});
        QTemporaryDir dir;
        const QString target = dir.filePath("show.asc");
        const QString source = dir.filePath("edited.asc");
        EngineSession s(library, variant);
        s.engine()->saveShowAs(target);
        QVERIFY(s.step());
        const QByteArray oldFile = readFile(target);
        const QByteArray oldShow = s.showBytes();
        // The console keeps its show between sessions: the edit must change it.
        s.cache()->setChannelLegend(0, 0, s.cache()->channelLegend(0, 0) == "A" ? "B" : "A");
        QVERIFY(s.step());
        s.engine()->saveShowAs(source);
        QVERIFY(s.step());
        const QByteArray newFile = readFile(source);
        QVERIFY(!oldFile.isEmpty() && !newFile.isEmpty() && oldShow != s.showBytes());

        int interruptions = 0;
        for (int step = 0; step < 200; ++step) {
            QFile reset(target);
            QVERIFY(reset.open(QIODevice::WriteOnly) && reset.write(oldFile) == oldFile.size());
            reset.close();
            const bool completed = saveInterruptedAt(killed, step, target, source);
            const QByteArray onDisk = readFile(target);
            QVERIFY2(onDisk == (completed ? newFile : oldFile), qPrintable(QString::number(step)));
            const ShowFile::Contents opened = ShowFile::read(target, model);
            QCOMPARE(opened.status, ShowFile::Status::Ok);
            QVERIFY(opened.showData == (completed ? s.showBytes() : oldShow));
            if (completed)
                break;
            ++interruptions;
        }
        // The open, at least one block and the commit were each interrupted.
        QVERIFY(interruptions >= 3);
    }
};

int main(int argc, char** argv)
{
    if (argc == 5 && qstrcmp(argv[1], childMode) == 0) {
        interruptAt = QByteArray(argv[2]).toInt();
        ShowFile::setWriteProbe([](int current) {
            if (current == interruptAt)
                std::raise(SIGKILL);
            return true;
        });
        return ShowFile::write(QString::fromLocal8Bit(argv[3]), readFile(argv[4])) ? 0 : 1;
    }
    QCoreApplication app(argc, argv);
    InterruptedSaveTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "InterruptedSaveTest.moc"
