// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"
#include "ConsoleStateRecord.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <mutex>

// One simulated console engine loaded through the program's own Console.
// The engine's clock stands still unless asked to run, so only step() moves
// it; a load failure ends the test program, as nothing can run without it.
class EngineSession
{
public:
    enum class Clock
    {
        Manual,
        Running
    };

    EngineSession(const QString& library, int variant, Clock clock = Clock::Manual);
    ~EngineSession();

    Console* console() const { return console_; }
    ConsoleEngine* engine() const { return console_->engine(); }
    ConsoleCache* cache() const { return console_->cache(); }
    ConsoleStateRecord* record() const { return console_->cache()->record(); }

    // Advances the engine clock (whole 25 ms ticks) after everything sent so
    // far has been handled, then delivers the signals emitted meanwhile.
    bool step(int milliseconds = 0);

    void moveFader(int control, int level);
    void press(int key) { sendButton(key, true); }
    void release(int key) { sendButton(key, false); }
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
