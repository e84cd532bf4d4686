// SPDX-License-Identifier: GPL-3.0-or-later
#include "DmxWriteQueue.h"

#include "ConsoleCache.h"

DmxWriteQueue::DmxWriteQueue(ConsoleCache* cache) : m_cache(cache)
{
    m_timer.setInterval(pollIntervalMs);
    m_timer.callOnTimeout([this] { feed(); });
}

void DmxWriteQueue::push(const DmxWrite& entry)
{
    ConsoleStateRecord* record = m_cache->record();
    if (!record)
        return;
    // Behind anything already waiting, so that the engine sees the order.
    if (m_order.empty() && store(record, entry))
        return;
    const auto waiting = m_pending.find(entry.address);
    if (waiting != m_pending.end()) {
        *waiting = entry;
        return;
    }
    m_pending.insert(entry.address, entry);
    m_order.push_back(entry.address);
    if (!m_timer.isActive())
        m_timer.start();
}

void DmxWriteQueue::feed()
{
    ConsoleStateRecord* record = m_cache->record();
    while (record && !m_order.empty()) {
        const quint16 address = m_order.front();
        if (!store(record, m_pending.value(address)))
            return;
        m_pending.remove(address);
        m_order.pop_front();
    }
    if (m_order.empty())
        m_timer.stop();
}

bool DmxWriteQueue::store(ConsoleStateRecord* record, const DmxWrite& entry)
{
    constexpr int size = ConsoleStateRecord::dmxWriteRingSize;
    // Single writer of the write index, single reader (the engine) of the ring.
    const quint8 write = __atomic_load_n(&record->dmxWriteIndex, __ATOMIC_RELAXED);
    const quint8 read = __atomic_load_n(&record->dmxReadIndex, __ATOMIC_ACQUIRE);
    const quint8 next = quint8((write + 1) % size);
    if (write >= size || next == read)
        return false;
    record->dmxWriteRing[write] = entry;
    __atomic_store_n(&record->dmxWriteIndex, next, __ATOMIC_RELEASE);
    return true;
}
