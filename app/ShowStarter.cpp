// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShowStarter.h"

#include "Console.h"
#include "ConsoleEngine.h"
#include "PanelEvent.h"
#include "Timeline.h"

ShowStarter::ShowStarter(Console* console, QObject* parent) : QObject(parent), m_console(console)
{
    m_retry.setInterval(retryMs);
    connect(&m_retry, &QTimer::timeout, this, &ShowStarter::attempt);
}

void ShowStarter::start()
{
    m_tries = 0;
    m_retry.start();
    attempt();
}

void ShowStarter::attempt()
{
    if (playNow()) {
        m_retry.stop();
        emit started();
        return;
    }
    if (++m_tries >= maxTries) {
        m_retry.stop();
        qWarning("The show was not started: the console did not become ready.");
    }
}

bool ShowStarter::playNow()
{
    if (!m_console || !m_console->engine() || !m_console->isReady())
        return false;
    const int faders = m_console->cache()->faderCount();
    if (faders <= 0)
        return false;
    ConsoleEngine* engine = m_console->engine();
    tap(engine, memoriesKey);
    // Memories at half, so that the chases on the sequence faders stand out.
    const int firstSequence = m_console->cache()->firstSequenceFader();
    for (int fader = 0; fader < faders; ++fader)
        moveFader(engine, fader, fader >= firstSequence ? 255 : 128);
    tap(engine, Timeline::goKey);
    return true;
}

void ShowStarter::tap(ConsoleEngine* engine, int key)
{
    for (const quint32 state : {1u, 0u}) {
        PanelEvent press;
        press.kind = PanelEvent::PanelButton;
        press.control = quint8(key);
        press.buttonState = state;
        engine->panelEvent(&press);
    }
}

void ShowStarter::moveFader(ConsoleEngine* engine, int fader, int level)
{
    PanelEvent move;
    move.kind = PanelEvent::PanelFader;
    move.control = quint8(fader);
    move.value = quint8(level);
    engine->panelEvent(&move);
}
