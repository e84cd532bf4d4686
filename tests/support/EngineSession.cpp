// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineSession.h"

#include "ConsoleEngine.h"
#include "EngineTestCodes.h"
#include "PanelEvent.h"
#include "RecordArea.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <utility>

namespace {
// Hands the engine's second answer to a step over to the waiting test.
class StepDoneHook : public Console::CacheUpdateHook
{
public:
    StepDoneHook(std::function<void(int)> done, int token) : done_(std::move(done)), token_(token)
    {
    }
    bool matches(int code, int a, int b, int) override
    {
        return code == EngineTest::StepHooks && a == EngineTest::Step && b == token_;
    }
    void run(int, int, int, int) override { done_(token_); }

private:
    std::function<void(int)> done_;
    int token_;
};
} // namespace

EngineSession::EngineSession(const QString& library, int variant, Clock clock)
{
    const QByteArray manual(EngineTest::manualClockVariable.data(),
                            int(EngineTest::manualClockVariable.size()));
    if (clock == Clock::Manual)
        qputenv(manual.constData(), "1");
    else
        qunsetenv(manual.constData());
    Console::registerMetaTypes();
    Console::LoadError error = Console::LoadFailed;
    console_ = Console::load(library, variant, &error);
    if (!console_)
        qFatal("The simulated console %s did not load (error %d)", qPrintable(library), int(error));
    // The engine's answers to a step are caught on the engine thread itself
    // and handed over with a standard mutex, which the thread sanitizer sees
    // (Qt's own locks are invisible to it). Connected once, before any step,
    // so that no connection changes while the engine emits.
    QObject::connect(
        console_, &Console::lumideskCommand, &receiver_,
        [this](int type, int argument) {
            if (type != EngineTest::Step)
                return;
            console_->appendHook(new StepDoneHook(
                [this](int token) {
                    std::lock_guard<std::mutex> lock(mutex_);
                    answeredToken_ = std::max(answeredToken_, token);
                    answered_.notify_all();
                },
                argument));
        },
        Qt::DirectConnection);
}

EngineSession::~EngineSession()
{
    step();             // let queued signals drain before the engine goes
    console_->unload(); // ends the Console too
}

bool EngineSession::step(int milliseconds)
{
    const int token = ++token_;
    engine()->update(EngineTest::Step, milliseconds, token, 0);
    {
        std::unique_lock<std::mutex> lock(mutex_);
        if (!answered_.wait_for(lock, std::chrono::seconds(20),
                                [&] { return answeredToken_ >= token; }))
            return false;
    }
    // Everything the engine announced before its answer has been queued to
    // this thread by now.
    QCoreApplication::sendPostedEvents();
    return true;
}

void EngineSession::moveFader(int control, int level)
{
    PanelEvent event;
    event.kind = PanelEvent::PanelFader;
    event.control = quint8(control);
    event.value = quint8(level);
    engine()->panelEvent(&event);
}

void EngineSession::sendButton(int key, bool pressed)
{
    PanelEvent event;
    event.kind = PanelEvent::PanelButton;
    event.control = quint8(key);
    event.buttonState = pressed ? 1 : 0;
    engine()->panelEvent(&event);
}

void EngineSession::tap(int key)
{
    press(key);
    release(key);
}

QByteArray EngineSession::showBytes() const
{
    static constexpr std::pair<size_t, size_t> stretches[] = {
        {offsetof(ConsoleStateRecord, channelLegends),
         offsetof(ConsoleStateRecord, engineReserved)},
        {offsetof(ConsoleStateRecord, cueLabels), offsetof(ConsoleStateRecord, deviceSelected)},
        {offsetof(ConsoleStateRecord, crossfaderMode), offsetof(ConsoleStateRecord, showFileName)},
    };
    QByteArray bytes;
    const char* base = reinterpret_cast<const char*>(record());
    for (const auto& [begin, end] : stretches)
        bytes.append(base + begin, qsizetype(end - begin));
    return bytes;
}

QString EngineSession::showFileName() const
{
    return RecordArea::slotText(record(), record()->showFileName);
}
