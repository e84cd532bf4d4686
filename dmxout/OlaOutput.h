// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <memory>

class Console;

// Streams the console's DMX output universes to olad, the Open Lighting
// Architecture daemon, which passes them on to Art-Net, sACN and USB
// interfaces. Console universe 1 goes to OLA universe firstUniverse, universe
// 2 (Maple) to firstUniverse + 1.
//
// The GUI thread only drops the newest levels into a mailbox; a thread of its
// own talks to olad, sends at most maxFramesPerSecond frames (the latest
// levels win) and reconnects every retryIntervalMs while olad is away, so
// neither the GUI nor the engine ever waits on the daemon. Universes that
// olad has no output port for are named once per connection, as olad drops
// their levels silently. OLA's own types stay in the source file: the
// program builds without OLA too.
class OlaOutput : public QObject
{
    Q_OBJECT

public:
    static constexpr quint16 defaultRpcPort = 9010;
    static constexpr int maxFramesPerSecond = 44;
    static constexpr int retryIntervalMs = 3000;
    // While nothing changes the frame is sent again this often, so that a
    // daemon that went away is noticed and a restarted one is filled again.
    static constexpr int refreshIntervalMs = 1000;
    static constexpr int levelsPerUniverse = 512;
    static constexpr int maxUniverses = 2;
    // OLA numbers universes with 32 bits; this keeps firstUniverse + 1 valid.
    static constexpr int maxFirstUniverse = 0x7FFFFFFE;

    // Starts the sender at once and sends the current levels as soon as
    // olad answers on rpcPort (on the loopback interface).
    OlaOutput(Console* console, int firstUniverse, quint16 rpcPort = defaultRpcPort,
              QObject* parent = nullptr);
    // Stops the sender thread and closes the connection. A daemon that hangs
    // (stopped, not gone) cannot hold the program up: after stopGraceMs the
    // sender is left to end on its own.
    ~OlaOutput() override;
    static constexpr int stopGraceMs = 2000;

    int firstUniverse() const { return m_firstUniverse; }
    // The console's output universes: 2 on Maple, 1 on the others.
    int universeCount() const { return m_universeCount; }
    bool isConnected() const { return m_connected; }

signals:
    // olad answered (true) or went away or could not be reached (false).
    void connectedChanged(bool connected);

public slots:
    void consoleCacheOutputsUpdated();

private:
    class Sender;

    void senderConnectedChanged(bool connected);

    Console* m_console;
    int m_firstUniverse;
    int m_universeCount;
    bool m_connected = false;
    std::shared_ptr<Sender> m_sender;
};
