// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleEngine.h"
#include "ConsoleStateRecord.h"
#include "IConsoleHandler.h"

#include <QLibrary>
#include <QList>

#include <condition_variable>
#include <mutex>

// Opens an engine library the way the program does and records what the
// engine notifies, so tests can wait for a code before reading the record.
class EngineHarness : public IConsoleHandler
{
public:
    struct Notification
    {
        int code, a, b, c;
    };

    explicit EngineHarness(const QString& libraryName);
    ~EngineHarness();

    bool isLoaded() const { return engine_ != nullptr; }
    ConsoleEngine* engine() const { return engine_; }
    ConsoleStateRecord* record() const { return record_; }
    QString errorString() const { return library_.errorString(); }

    void start(int variant);
    void release();
    void notify(int code, int a, int b, int c) override;

    // Waits (up to a generous limit) until code has arrived count times.
    bool waitFor(int code, int count = 1);
    int countOf(int code);
    QList<Notification> notifications();

private:
    QLibrary library_;
    ConsoleEngine* engine_ = nullptr;
    ConsoleStateRecord* record_ = nullptr;
    std::mutex mutex_;
    std::condition_variable arrived_;
    QList<Notification> received_;
};
