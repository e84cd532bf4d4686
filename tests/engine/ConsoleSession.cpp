// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSession.h"

#include "ConsoleEngine.h"
#include "EngineTestCodes.h"
#include "PanelEvent.h"
#include "RecordArea.h"

#include <QCoreApplication>
#include <QTest>

#include <cstddef>

namespace {
struct Stretch
{
    size_t begin;
    size_t end;
};
} // namespace

ConsoleSession::ConsoleSession(const QString& library, int variant)
{
    Console::LoadError error = Console::LoadFailed;
    console_ = Console::load(library, variant, &error);
}

ConsoleSession::~ConsoleSession()
{
    if (console_) {
        step(); // let queued signals drain before the engine goes
        console_->unload();
    }
}

bool ConsoleSession::step(int milliseconds)
{
    const int token = ++token_;
    bool arrived = false;
    QObject receiver;
    QObject::connect(console_, &Console::lumideskCommand, &receiver, [&](int type, int argument) {
        if (type == EngineTest::Step && argument == token)
            arrived = true;
    });
    console_->engine()->update(EngineTest::Step, milliseconds, token, 0);
    return QTest::qWaitFor([&] { return arrived; }, 20000);
}

void ConsoleSession::moveFader(int control, int level)
{
    PanelEvent event;
    event.kind = PanelEvent::PanelFader;
    event.control = quint8(control);
    event.value = quint8(level);
    console_->engine()->panelEvent(&event);
}

void ConsoleSession::sendButton(int key, bool pressed)
{
    PanelEvent event;
    event.kind = PanelEvent::PanelButton;
    event.control = quint8(key);
    event.buttonState = pressed ? 1 : 0;
    console_->engine()->panelEvent(&event);
}

void ConsoleSession::press(int key)
{
    sendButton(key, true);
}

void ConsoleSession::release(int key)
{
    sendButton(key, false);
}

void ConsoleSession::tap(int key)
{
    press(key);
    release(key);
}

QByteArray ConsoleSession::showBytes() const
{
    static constexpr Stretch stretches[] = {
        {offsetof(ConsoleStateRecord, channelLegends),
         offsetof(ConsoleStateRecord, engineReserved)},
        {offsetof(ConsoleStateRecord, cueLabels), offsetof(ConsoleStateRecord, deviceSelected)},
        {offsetof(ConsoleStateRecord, crossfaderMode), offsetof(ConsoleStateRecord, showFileName)},
    };
    QByteArray bytes;
    const char* base = reinterpret_cast<const char*>(record());
    for (const Stretch& stretch : stretches)
        bytes.append(base + stretch.begin, qsizetype(stretch.end - stretch.begin));
    return bytes;
}

QString ConsoleSession::showFileName() const
{
    return RecordArea::slotText(record(), record()->showFileName);
}
