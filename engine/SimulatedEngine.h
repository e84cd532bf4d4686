// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleEngine.h"
#include "EngineNotifier.h"
#include "ModelProfile.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

class ConsoleSimulation;

// The engine object handed out by getConsole(). It owns the state record and
// its text area (one allocation) and one thread that alone writes the record
// and calls the handler. Calls from the program are queued to that thread;
// the show operations wait for their result.
class SimulatedEngine final : public ConsoleEngine
{
public:
    explicit SimulatedEngine(ModelProfile::Generation generation);
    ~SimulatedEngine();
    SimulatedEngine(const SimulatedEngine&) = delete;
    SimulatedEngine& operator=(const SimulatedEngine&) = delete;

    void start(IConsoleHandler* handler, int languageIndex, int modelVariant) override;
    void release() override;
    ConsoleStateRecord* stateRecord() override { return record_; }
    void panelEvent(const PanelEvent* event) override;
    void update(int code, int a, int b, int c) override;
    void usbDeviceRemoved() override;
    void newShow() override;
    int openShow(QString fileName) override;
    void saveShow() override;
    void saveShowAs(QString fileName) override;
    QString softwareVersion() override;

    static QString version();

private:
    using Clock = std::chrono::steady_clock;
    using Request = std::function<void()>;

    void post(Request request);
    template <typename Work> auto call(Work work) -> decltype(work());
    void run(QString consoleVersion);
    bool takeRequests(std::deque<Request>& into, Clock::time_point deadline);
    void runTicksUntil(Clock::time_point now);
    void step(int milliseconds, int token);
    void endOfWork();

    ModelProfile::Generation generation_;
    std::unique_ptr<char[]> memory_;
    ConsoleStateRecord* record_ = nullptr;
    EngineNotifier notifier_;
    std::unique_ptr<ConsoleSimulation> simulation_;

    std::thread thread_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Request> requests_;
    bool stopping_ = false;
    bool greeted_ = false; // 37 (and 38) sent: start() may return
    bool manualClock_ = false;
    Clock::time_point nextTick_;
};
