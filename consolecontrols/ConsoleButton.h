// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Button.h"

#include <QColor>
#include <QObject>

// A console key: every press and release goes to the engine as the panel
// key with this number, and the key's LED shows the colours the engine keeps
// for it, steady or blinking with the console's blink timer.
class ConsoleButton : public QObject, public Button
{
    Q_OBJECT

public:
    ConsoleButton(QGraphicsItem* parent, QGraphicsScene* scene, int buttonNumber,
                  const QString& caption);

    int buttonNumber() const { return number; }
    QColor onColour() const { return ledOn; }
    QColor offColour() const { return ledOff; }
    bool isBlinking() const { return ledOn != ledOff; }

    // Sends the key state on every call, also when it does not change, as
    // the console expects one event per press and per release.
    void setDown(bool down) override;

public slots:
    void consoleCacheLedUpdated();
    void consoleButtonBlink(bool lit);

private:
    int number;
    QColor ledOn{Qt::black};
    QColor ledOff{Qt::black};
};
