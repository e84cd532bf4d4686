// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleButton.h"

#include "Console.h"
#include "ConsoleEngine.h"
#include "ConsoleLink.h"
#include "PanelEvent.h"

namespace {
// The LED table stores each colour red, blue, green.
QColor storedColour(const quint8* bytes)
{
    return QColor(bytes[0], bytes[2], bytes[1]);
}
} // namespace

ConsoleButton::ConsoleButton(QGraphicsItem* parent, QGraphicsScene* scene, int buttonNumber,
                             const QString& caption)
    : QObject(), Button(parent, scene, nullptr, ButtonStyle::ConsoleTextStyle, caption),
      number(buttonNumber)
{
    setLatchable(true);
    setTrackMouse(false);
    consoleCacheLedUpdated();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::ledUpdated, this, &ConsoleButton::consoleCacheLedUpdated,
                Qt::QueuedConnection);
        connect(console, &Console::buttonBlink, this, &ConsoleButton::consoleButtonBlink,
                Qt::QueuedConnection);
    }
}

void ConsoleButton::setDown(bool isDown)
{
    Button::setDown(isDown);
    Console* console = ConsoleLink::console();
    if (!console || !console->engine())
        return;
    PanelEvent event;
    event.kind = PanelEvent::PanelButton;
    event.control = quint8(number);
    event.buttonState = isDown ? 1 : 0;
    console->engine()->panelEvent(&event);
}

void ConsoleButton::consoleCacheLedUpdated()
{
    Console* console = ConsoleLink::console();
    const ConsoleStateRecord* record = console ? console->cache()->record() : nullptr;
    if (!record || number < 0 || number >= ConsoleStateRecord::ledCount)
        return;
    const LedRecord& entry = record->leds[number];
    ledOn = storedColour(entry.on);
    ledOff = storedColour(entry.off);
    if (ledOn == ledOff)
        setLedColour(ledOn);
}

void ConsoleButton::consoleButtonBlink(bool lit)
{
    if (ledOn != ledOff)
        setLedColour(lit ? ledOn : ledOff);
}
