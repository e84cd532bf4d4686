// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleStateRecord.h"

#include <QHash>
#include <QTimer>

#include <deque>

class ConsoleCache;

// Hands DMX writes to the engine through the record's write ring. The ring
// takes 99 entries and the engine empties it once a tick, so a burst (a
// peer's whole universe) would overflow it: what does not fit waits here,
// the newest value per address in the order the addresses were first
// written, and goes into the ring as the engine makes room. GUI thread only.
class DmxWriteQueue
{
public:
    // The engine drains the ring every 25 ms; polling faster keeps it fed.
    static constexpr int pollIntervalMs = 10;

    explicit DmxWriteQueue(ConsoleCache* cache);
    DmxWriteQueue(const DmxWriteQueue&) = delete;
    DmxWriteQueue& operator=(const DmxWriteQueue&) = delete;

    void push(const DmxWrite& entry);

private:
    void feed();
    // Stores one entry in the ring; false when the ring is full.
    bool store(ConsoleStateRecord* record, const DmxWrite& entry);

    ConsoleCache* m_cache;
    std::deque<quint16> m_order;
    QHash<quint16, DmxWrite> m_pending;
    QTimer m_timer;
};
