// SPDX-License-Identifier: GPL-3.0-or-later
#include "RecordArea.h"

#include <cstring>

namespace {
const char* base(const ConsoleStateRecord* record)
{
    return reinterpret_cast<const char*>(record);
}

quint32 readU32(const ConsoleStateRecord* record, quint32 offset)
{
    quint32 value;
    std::memcpy(&value, base(record) + offset, sizeof value);
    return value;
}
} // namespace

QString RecordArea::text(const ConsoleStateRecord* record, AreaOffset offset)
{
    if (!record || !inside(offset, 4))
        return {};
    const quint32 length = readU32(record, offset);
    if (!inside(quint64(offset) + 4, quint64(length) * 2))
        return {};
    QString result(int(length), Qt::Uninitialized);
    std::memcpy(result.data(), base(record) + offset + 4, length * 2u);
    return result;
}

QList<RecordArea::Personality> RecordArea::personalities(const ConsoleStateRecord* record)
{
    QList<Personality> result;
    if (!record)
        return result;
    const AreaOffset list = loadSlot(record->personalities);
    if (!inside(list, 4))
        return result;
    const quint32 count = readU32(record, list);
    if (!inside(quint64(list) + 4, quint64(count) * sizeof(PersonalityEntry)))
        return result;
    result.reserve(int(count));
    for (quint32 i = 0; i < count; ++i) {
        PersonalityEntry entry;
        std::memcpy(&entry, base(record) + list + 4 + i * sizeof(PersonalityEntry), sizeof entry);
        result.append({entry.id, entry.footprint, text(record, entry.manufacturer), text(record, entry.name)});
    }
    return result;
}
