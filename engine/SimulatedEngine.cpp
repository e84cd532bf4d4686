// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimulatedEngine.h"

#include "ConsoleCodes.h"
#include "ConsoleSimulation.h"
#include "ConsoleStateRecord.h"
#include "EngineTestCodes.h"
#include "PanelEvent.h"
#include "RecordArea.h"

#include <QByteArray>

namespace {
constexpr auto tickPeriod = std::chrono::milliseconds(EngineTest::tickMilliseconds);
// After a stall longer than this the clock jumps instead of catching up.
constexpr int maxCatchUpTicks = 8;

QString environmentText(std::string_view name)
{
    return qEnvironmentVariable(std::string(name).c_str());
}
} // namespace

SimulatedEngine::SimulatedEngine(ModelProfile::Generation generation)
    : generation_(generation), memory_(new char[RecordArea::end]()),
      record_(reinterpret_cast<ConsoleStateRecord*>(memory_.get()))
{
}

SimulatedEngine::~SimulatedEngine() = default;

QString SimulatedEngine::version()
{
    return QStringLiteral("1.0.0");
}

QString SimulatedEngine::softwareVersion()
{
    return version();
}

void SimulatedEngine::start(IConsoleHandler* handler, int languageIndex, int modelVariant)
{
    Q_UNUSED(languageIndex);
    if (thread_.joinable())
        return;
    const ModelProfile profile = ModelProfile::forVariant(generation_, modelVariant);
    simulation_ = std::make_unique<ConsoleSimulation>(record_, notifier_, profile);
    notifier_.setHandler(handler);
    manualClock_ = !environmentText(EngineTest::manualClockVariable).isEmpty();
    QString consoleVersion = environmentText(EngineTest::consoleVersionVariable);
    if (consoleVersion.isEmpty())
        consoleVersion = version();
    thread_ = std::thread([this, consoleVersion] { run(consoleVersion); });
    // The program polls for readiness every 100 ms unless the engine is
    // ready when start() returns: greet first, so a start costs no poll.
    std::unique_lock<std::mutex> lock(mutex_);
    wake_.wait(lock, [this] { return greeted_; });
}

void SimulatedEngine::release()
{
    if (thread_.joinable()) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            stopping_ = true;
        }
        wake_.notify_one();
        thread_.join();
    }
    // The engine thread has ended: the last state is kept from here.
    if (simulation_)
        simulation_->shutdown();
    delete this;
}

void SimulatedEngine::post(Request request)
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        requests_.push_back(std::move(request));
    }
    wake_.notify_one();
}

template <typename Work> auto SimulatedEngine::call(Work work) -> decltype(work())
{
    using Result = decltype(work());
    if (!thread_.joinable()) {
        // Not started (or already stopped): nothing else touches the record.
        return work();
    }
    auto task = std::make_shared<std::packaged_task<Result()>>(std::move(work));
    std::future<Result> result = task->get_future();
    post([task] { (*task)(); });
    return result.get();
}

void SimulatedEngine::panelEvent(const PanelEvent* event)
{
    if (!event)
        return;
    const PanelEvent copy = *event; // the caller's event is only valid during the call
    post([this, copy] { simulation_->handlePanel(copy); });
}

void SimulatedEngine::update(int code, int a, int b, int c)
{
    if (code == EngineTest::Step) {
        post([this, a, b] { step(a, b); });
        return;
    }
    post([this, code, a, b, c] { simulation_->handleUpdate(code, a, b, c); });
}

void SimulatedEngine::usbDeviceRemoved()
{
    post([this] { simulation_->usbDeviceRemoved(); });
}

void SimulatedEngine::newShow()
{
    if (simulation_)
        call([this] { simulation_->newShow(); });
}

int SimulatedEngine::openShow(QString fileName)
{
    if (!simulation_)
        return int(OpenShowResult::ReadError);
    return call([this, fileName] { return int(simulation_->openShow(fileName)); });
}

void SimulatedEngine::saveShow()
{
    if (simulation_)
        call([this] { simulation_->saveShow(); });
}

void SimulatedEngine::saveShowAs(QString fileName)
{
    if (simulation_)
        call([this, fileName] { simulation_->saveShowAs(fileName); });
}

void SimulatedEngine::step(int milliseconds, int token)
{
    simulation_->consumeDmxWrites();
    if (manualClock_) {
        for (int elapsed = 0; elapsed < milliseconds; elapsed += EngineTest::tickMilliseconds) {
            simulation_->tick(EngineTest::tickMilliseconds);
            notifier_.flush();
        }
    }
    simulation_->refresh();
    notifier_.flush();
    notifier_.send(ConsoleCode::System, SystemCode::LumideskCommand, EngineTest::Step, token);
    notifier_.send(EngineTest::StepHooks, EngineTest::Step, token);
}

void SimulatedEngine::run(QString consoleVersion)
{
    simulation_->start(consoleVersion);
    notifier_.send(37);
    // A console of another version is never driven: the engine stays silent
    // and the program reports the mismatch.
    if (consoleVersion != version())
        notifier_.setMuted(true);
    else {
        // The show loaded at start reaches the program as a bulk change, so
        // its caches of the patch are built before anything reads them.
        notifier_.send(ConsoleCode::System, SystemCode::BulkBegin);
        notifier_.send(ConsoleCode::System, SystemCode::BulkEnd);
        notifier_.send(38);
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        greeted_ = true;
    }
    wake_.notify_all();

    nextTick_ = Clock::now() + tickPeriod;
    std::deque<Request> batch;
    while (takeRequests(batch, manualClock_ ? Clock::time_point::max() : nextTick_)) {
        for (Request& request : batch) {
            request();
            notifier_.flush();
        }
        batch.clear();
        if (!manualClock_)
            runTicksUntil(Clock::now());
    }
    notifier_.flush();
}

// Waits for requests or the deadline; false once release() asked to stop.
bool SimulatedEngine::takeRequests(std::deque<Request>& into, Clock::time_point deadline)
{
    std::unique_lock<std::mutex> lock(mutex_);
    wake_.wait_until(lock, deadline, [this] { return stopping_ || !requests_.empty(); });
    if (stopping_) {
        // Requests already queued (a change report just before quitting)
        // still reach the record before it is kept.
        into.swap(requests_);
        lock.unlock();
        for (Request& request : into)
            request();
        into.clear();
        return false;
    }
    into.swap(requests_);
    return true;
}

void SimulatedEngine::runTicksUntil(Clock::time_point now)
{
    if (now < nextTick_)
        return;
    if (now - nextTick_ > tickPeriod * maxCatchUpTicks)
        nextTick_ = now;
    while (nextTick_ <= now) {
        simulation_->tick(EngineTest::tickMilliseconds);
        notifier_.flush();
        nextTick_ += tickPeriod;
    }
}
