// SPDX-License-Identifier: GPL-3.0-or-later
// Process start to the main window's first frame, and the peak memory at that
// moment, for Lumidesk on the simulated console and for a bare Qt window
// program as the floor. Each iteration starts a fresh process (this program
// in child mode); the child reports the monotonic time of its first frame.
#include "Lumidesk.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QProcess>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

namespace {

qint64 monotonicNs()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

// Reports once the first paint of a top-level window has been flushed, then
// ends the process at once (teardown is not part of the measurement).
class FirstFrame : public QObject
{
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(object);
        if (event->type() == QEvent::Paint && widget && !m_seen) {
            m_seen = true;
            QTimer::singleShot(0, [] {
                rusage usage{};
                getrusage(RUSAGE_SELF, &usage);
                const long cpuUs = usage.ru_utime.tv_sec * 1000000L + usage.ru_utime.tv_usec +
                                   usage.ru_stime.tv_sec * 1000000L + usage.ru_stime.tv_usec;
                std::printf("FRAME %lld PEAK_KB %ld CPU_US %ld\n",
                            static_cast<long long>(monotonicNs()), usage.ru_maxrss, cpuUs);
                std::fflush(stdout);
                std::_Exit(0);
            });
        }
        return false;
    }

private:
    bool m_seen = false;
};

int lumideskChild(int argc, char** argv)
{
    Lumidesk app(argc, argv);
    FirstFrame frame;
    app.installEventFilter(&frame);
    return app.run(ConsoleChoice{QStringLiteral("glowEngine"), 0});
}

int floorChild(int argc, char** argv)
{
    QApplication app(argc, argv);
    FirstFrame frame;
    app.installEventFilter(&frame);
    QGraphicsScene scene(0, 0, 1280, 1024);
    scene.addRect(10, 10, 100, 100);
    QGraphicsView view(&scene);
    view.resize(1280, 1024);
    view.show();
    return app.exec();
}

struct Sample
{
    double seconds = 0;
    double peakMb = 0;
    double cpuMs = 0; // the child's own CPU time: less sensitive to a busy machine
};

bool runChild(const char* mode, Sample& sample)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const qint64 started = monotonicNs();
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(mode)});
    if (!child.waitForFinished(60000))
        return false;
    long long frame = 0;
    long peakKb = 0;
    long cpuUs = 0;
    const QByteArray out = child.readAllStandardOutput();
    if (std::sscanf(out.constData(), "FRAME %lld PEAK_KB %ld CPU_US %ld", &frame, &peakKb,
                    &cpuUs) != 3)
        return false;
    sample.seconds = double(frame - started) / 1e9;
    sample.peakMb = double(peakKb) / 1024.0;
    sample.cpuMs = double(cpuUs) / 1000.0;
    return true;
}

void startup(benchmark::State& state, const char* mode)
{
    Sample sample;
    for (auto _ : state) {
        if (!runChild(mode, sample)) {
            state.SkipWithError("the child did not report a frame");
            return;
        }
        state.SetIterationTime(sample.seconds);
        state.counters["peak_MB"] = sample.peakMb;
        state.counters["cpu_ms"] = sample.cpuMs;
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--child-lumidesk") == 0)
        return lumideskChild(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--child-floor") == 0)
        return floorChild(argc, argv);

    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        std::fprintf(stderr, "No display: run under xvfb-run -a -s \"-screen 0 1280x1024x24\"\n");
        return 1;
    }
    QCoreApplication app(argc, argv); // for the program path
    for (const char* mode : {"--child-floor", "--child-lumidesk"}) {
        benchmark::RegisterBenchmark(mode + 8, startup, mode)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1)
            ->Repetitions(21)
            ->ComputeStatistics("p95",
                                [](const std::vector<double>& v) {
                                    std::vector<double> s(v);
                                    std::sort(s.begin(), s.end());
                                    return s[std::min(s.size() - 1, s.size() * 95 / 100)];
                                })
            ->ReportAggregatesOnly(true);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
