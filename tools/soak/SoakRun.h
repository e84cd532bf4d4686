// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CitpPeer.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>
#include <vector>

// Starts Lumidesk on the simulated Maple, keeps peers joining, streaming and
// dropping on loopback, and prints resident memory, CPU share, open sessions
// and messages per second once a minute; at the end whether memory grew.
class SoakRun : public QObject
{
    Q_OBJECT

public:
    struct Options
    {
        QString program;
        int peers = 16;
        int minutes = 10;
        quint32 seed = 1;
    };

    explicit SoakRun(const Options& options, QObject* parent = nullptr);
    ~SoakRun() override;

    // False with a message when Lumidesk or a peer cannot start.
    bool start(QString* error);
    // The process exit code once the run has ended.
    int result() const { return result_; }

signals:
    void finished();

private:
    void stream();
    void churn();
    void report();
    void finish(int code);
    qint64 residentKiB() const;
    qint64 cpuTicks() const;
    int openSessions() const;

    Options options_;
    QTemporaryDir home_;
    QProcess program_;
    std::vector<std::unique_ptr<CitpPeer>> peers_;
    QTimer streamTimer_;
    QTimer churnTimer_;
    QTimer reportTimer_;
    QElapsedTimer clock_;
    QRandomGenerator random_;
    QSet<CitpPeer*> down_;
    qint64 messages_ = 0;
    qint64 lastTicks_ = 0;
    qint64 lastMs_ = 0;
    QList<qint64> resident_;
    int minute_ = 0;
    int result_ = 0;
};
