// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The engine keeps texts and the personality list in an area right after the
// fixed record; the record's slots hold byte offsets from the record base.
// A text there is (u32 length, UTF-16 units); the list is (u32 count,
// PersonalityEntry...). The engine writes a new value to a fresh place and
// stores the slot last, so a reader never sees a half-written value.

#include "ConsoleStateRecord.h"

#include <QList>
#include <QString>

class RecordArea
{
public:
    // Bytes the engine reserves after the fixed record.
    static constexpr quint32 size = 1u << 20;
    static constexpr quint32 begin = sizeof(ConsoleStateRecord);
    static constexpr quint32 end = begin + size;

#pragma pack(push, 1)
    struct PersonalityEntry
    {
        qint32 id;
        qint32 footprint;
        AreaOffset manufacturer;
        AreaOffset name;
    };
#pragma pack(pop)
    static_assert(sizeof(PersonalityEntry) == 16);

    struct Personality
    {
        int id = 0;
        int footprint = 0;
        QString manufacturer;
        QString name;
    };

    static AreaOffset loadSlot(const AreaOffset& slot)
    {
        return __atomic_load_n(&slot, __ATOMIC_ACQUIRE);
    }
    static void storeSlot(AreaOffset& slot, AreaOffset value)
    {
        __atomic_store_n(&slot, value, __ATOMIC_RELEASE);
    }

    // An offset outside the area (or 0) reads as empty.
    static QString text(const ConsoleStateRecord* record, AreaOffset offset);
    // Reads the text a slot of the record currently points at.
    static QString slotText(const ConsoleStateRecord* record, const AreaOffset& slot)
    {
        return text(record, loadSlot(slot));
    }
    static QList<Personality> personalities(const ConsoleStateRecord* record);

private:
    static bool inside(quint64 offset, quint64 length) { return offset >= begin && offset + length <= end; }
};
