// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class Console;
class ConsoleEngine;

// Starts the loaded show as a technician would at the panel: faders to
// memories, the memory faders half up, the sequence faders full (their chases
// run), then GO on the stack. Used for demonstrations and long runs
// (--play); it waits, bounded, for the console to be ready.
class ShowStarter : public QObject
{
    Q_OBJECT

public:
    static constexpr int retryMs = 100;
    static constexpr int maxTries = 100;
    // The panel id of the key that gives the faders to memories.
    static constexpr int memoriesKey = 63;

    explicit ShowStarter(Console* console, QObject* parent = nullptr);

    // Tries now and then every retryMs until the console is ready; gives up
    // with a message after maxTries. Emits started() once it has played.
    void start();
    // Sends the panel moves at once; false when the console is not ready.
    bool playNow();

    // One press and release of a panel key, one fader move, as the panel sends them.
    static void tap(ConsoleEngine* engine, int key);
    static void moveFader(ConsoleEngine* engine, int fader, int level);

signals:
    void started();

private:
    void attempt();

    QPointer<Console> m_console;
    QTimer m_retry;
    int m_tries = 0;
};
