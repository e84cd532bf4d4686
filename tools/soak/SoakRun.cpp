// SPDX-License-Identifier: GPL-3.0-or-later
#include "SoakRun.h"

#include <QFile>
#include <QProcessEnvironment>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace {
constexpr int streamIntervalMs = 23;   // about 44 Hz
constexpr int churnIntervalMs = 1000;  // each second one peer may drop or return
constexpr int startGraceMs = 3000;     // Lumidesk's start before the peers announce
constexpr double allowedGrowth = 0.05; // against minute 2

CitpPeer::Options peerOptions(int index)
{
    CitpPeer::Options options;
    options.name = QStringLiteral("soak-%1").arg(index);
    // Announced straight to the program's discovery port on loopback: the
    // loopback interface takes no multicast membership, and the run must
    // reach no other network.
    options.locationAddress = QHostAddress(QHostAddress::LocalHost);
    options.multicastInterface = QStringLiteral("lo");
    options.listenAddress = QHostAddress(QHostAddress::LocalHost);
    return options;
}
} // namespace

SoakRun::SoakRun(const Options& options, QObject* parent)
    : QObject(parent), options_(options), random_(options.seed)
{
    connect(&streamTimer_, &QTimer::timeout, this, &SoakRun::stream);
    connect(&churnTimer_, &QTimer::timeout, this, &SoakRun::churn);
    connect(&reportTimer_, &QTimer::timeout, this, &SoakRun::report);
    connect(&program_, &QProcess::finished, this, [this] {
        if (result_ == 0 && minute_ < options_.minutes) {
            std::printf("Lumidesk ended early (exit %d)\n", program_.exitCode());
            finish(2);
        }
    });
}

SoakRun::~SoakRun()
{
    if (program_.state() != QProcess::NotRunning) {
        program_.terminate();
        if (!program_.waitForFinished(5000))
            program_.kill();
        program_.waitForFinished(5000);
    }
}

bool SoakRun::start(QString* error)
{
    if (!home_.isValid()) {
        *error = QStringLiteral("no temporary folder");
        return false;
    }
    // A private home: the run never touches the user's show or settings.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home_.path());
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home_.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home_.filePath(QStringLiteral("config")));
    if (!environment.contains(QStringLiteral("DISPLAY")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program_.start(options_.program,
                   {QStringLiteral("--model"), QStringLiteral("maple"), QStringLiteral("--play")});
    if (!program_.waitForStarted(10000)) {
        *error =
            QStringLiteral("cannot start %1: %2").arg(options_.program, program_.errorString());
        return false;
    }
    for (int i = 0; i < options_.peers; ++i) {
        auto peer = std::make_unique<CitpPeer>(peerOptions(i));
        connect(peer.get(), &CitpPeer::messageReceived, this, [this] { ++messages_; });
        peers_.push_back(std::move(peer));
    }
    QTimer::singleShot(startGraceMs, this, [this] {
        QString failure;
        for (auto& peer : peers_) {
            if (!peer->start(&failure)) {
                std::printf("peer cannot start: %s\n", qPrintable(failure));
                finish(2);
                return;
            }
        }
        streamTimer_.start(streamIntervalMs);
        churnTimer_.start(churnIntervalMs);
    });
    clock_.start();
    lastTicks_ = cpuTicks();
    reportTimer_.start(60000);
    std::printf("minute  RSS(KiB)  CPU(%%)  sessions  messages/s\n");
    std::fflush(stdout);
    return true;
}

void SoakRun::stream()
{
    const int level = int(clock_.elapsed() / streamIntervalMs % 256);
    const QString commands = QStringLiteral("chbk 0 1 %1,%2,%3;sele %4")
                                 .arg(level)
                                 .arg(255 - level)
                                 .arg(level / 2)
                                 .arg(1 + level % 24);
    QString ignored;
    for (auto& peer : peers_) {
        if (peer->sessionCount() > 0 && peer->sendCommand(commands, &ignored))
            messages_ += 2;
    }
}

void SoakRun::churn()
{
    // One peer in four seconds on average drops, and a dropped one returns.
    if (random_.bounded(4) != 0 || peers_.empty())
        return;
    CitpPeer* peer = peers_[random_.bounded(quint32(peers_.size()))].get();
    if (down_.contains(peer))
        return;
    peer->stop();
    down_.insert(peer);
    QTimer::singleShot(int(random_.bounded(500, 3000)), peer, [this, peer] {
        QString failure;
        peer->start(&failure);
        down_.remove(peer);
    });
}

void SoakRun::report()
{
    ++minute_;
    const qint64 ms = clock_.elapsed();
    const qint64 ticks = cpuTicks();
    const double cpu = 100.0 * double(ticks - lastTicks_) / double(sysconf(_SC_CLK_TCK)) /
                       (double(ms - lastMs_) / 1000.0);
    lastTicks_ = ticks;
    const double rate = double(messages_) * 1000.0 / double(qMax<qint64>(1, ms - lastMs_));
    lastMs_ = ms;
    messages_ = 0;
    resident_ << residentKiB();
    std::printf("%6d  %8lld  %6.1f  %8d  %10.0f\n", minute_, resident_.last(), cpu, openSessions(),
                rate);
    std::fflush(stdout);
    if (minute_ >= options_.minutes)
        finish(0);
}

void SoakRun::finish(int code)
{
    streamTimer_.stop();
    churnTimer_.stop();
    reportTimer_.stop();
    for (auto& peer : peers_)
        peer->stop();
    if (code == 0 && resident_.size() >= 2) {
        const qint64 base = resident_[1];
        const double growth = double(resident_.last() - base) / double(base);
        const bool grew = growth > allowedGrowth;
        std::printf("memory %s: %+.1f %% from minute 2\n", grew ? "grew" : "flat", growth * 100);
        code = grew ? 1 : 0;
    }
    result_ = code;
    program_.disconnect(this);
    emit finished();
}

qint64 SoakRun::residentKiB() const
{
    QFile status(QStringLiteral("/proc/%1/status").arg(program_.processId()));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

qint64 SoakRun::cpuTicks() const
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(program_.processId()));
    if (!stat.open(QIODevice::ReadOnly))
        return 0;
    // Fields after the command's closing parenthesis; utime and stime are 14 and 15.
    const QByteArray text = stat.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return fields.size() > 12 ? fields[11].toLongLong() + fields[12].toLongLong() : 0;
}

int SoakRun::openSessions() const
{
    int open = 0;
    for (const auto& peer : peers_)
        open += peer->sessionCount();
    return open;
}
