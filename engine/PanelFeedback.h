// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <array>

class ConsoleSimulation;
class EngineNotifier;
struct LedRecord;

// The console's LEDs and LCD, recomputed from its state. Only what changed is
// written and announced (22 for LEDs, 21 per display).
class PanelFeedback
{
public:
    explicit PanelFeedback(ConsoleSimulation& console) : console_(console) {}

    void publish(EngineNotifier& notifier);

    static constexpr int lineLength = 20;

private:
    struct Colour
    {
        quint8 red, green, blue;
    };

    void computeLeds(LedRecord* leds) const;
    QByteArray displayLine(int display, int line) const;
    QByteArray modeText() const;
    QByteArray stackText() const;
    QByteArray selectText() const;
    static void set(LedRecord& led, Colour on, Colour off);

    ConsoleSimulation& console_;
};
