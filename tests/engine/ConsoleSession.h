// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"
#include "ConsoleStateRecord.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>

// One simulated console loaded through the program's own Console, with the
// engine clock under the test's control (the environment switch must be set
// before construction).
class ConsoleSession
{
public:
    ConsoleSession(const QString& library, int variant);
    ~ConsoleSession();
    ConsoleSession(const ConsoleSession&) = delete;
    ConsoleSession& operator=(const ConsoleSession&) = delete;

    bool isLoaded() const { return console_ != nullptr; }
    Console* console() const { return console_; }
    ConsoleCache* cache() const { return console_->cache(); }
    ConsoleStateRecord* record() const { return console_->cache()->record(); }

    // Advances the engine clock (whole 25 ms ticks) after everything sent so
    // far has been handled, then delivers the signals emitted meanwhile.
    bool step(int milliseconds = 0);

    void moveFader(int control, int level);
    void press(int key);
    void release(int key);
    void tap(int key);

    // The record's show data: the stretches a show file carries.
    QByteArray showBytes() const;
    QString showFileName() const;

private:
    void sendButton(int key, bool pressed);

    Console* console_ = nullptr;
    int token_ = 0;
    QObject receiver_;
    std::mutex mutex_;
    std::condition_variable answered_;
    int answeredToken_ = 0;
};
