// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineHarness.h"

#include <chrono>

EngineHarness::EngineHarness(const QString& libraryName) : library_(libraryName)
{
    auto getConsole = reinterpret_cast<GetConsoleFunction>(library_.resolve("getConsole"));
    if (!getConsole)
        return;
    engine_ = getConsole(ConsoleEngine::interfaceVersion);
    if (engine_)
        record_ = engine_->stateRecord();
}

EngineHarness::~EngineHarness()
{
    release();
}

void EngineHarness::start(int variant)
{
    engine_->start(this, 0, variant);
}

void EngineHarness::release()
{
    if (engine_)
        engine_->release();
    engine_ = nullptr;
    record_ = nullptr;
}

void EngineHarness::notify(int code, int a, int b, int c)
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        received_.append({code, a, b, c});
    }
    arrived_.notify_all();
}

bool EngineHarness::waitFor(int code, int count)
{
    std::unique_lock<std::mutex> lock(mutex_);
    auto enough = [&] {
        int seen = 0;
        for (const Notification& n : received_)
            seen += n.code == code ? 1 : 0;
        return seen >= count;
    };
    return arrived_.wait_for(lock, std::chrono::seconds(20), enough);
}

int EngineHarness::countOf(int code)
{
    std::lock_guard<std::mutex> lock(mutex_);
    int seen = 0;
    for (const Notification& n : received_)
        seen += n.code == code ? 1 : 0;
    return seen;
}

QList<EngineHarness::Notification> EngineHarness::notifications()
{
    std::lock_guard<std::mutex> lock(mutex_);
    return received_;
}
