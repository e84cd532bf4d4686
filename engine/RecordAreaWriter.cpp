// SPDX-License-Identifier: GPL-3.0-or-later
#include "RecordAreaWriter.h"

#include <cstring>

namespace {
// Texts longer than this are cut: no console text comes near it, and it keeps
// one value far smaller than the ring.
constexpr int maxTextLength = 4096;

quint32 textBytes(const QString& text)
{
    return 4 + quint32(std::min<qsizetype>(text.size(), maxTextLength)) * 2;
}
} // namespace

void RecordAreaWriter::reset()
{
    fixedEnd_ = RecordArea::begin;
    ringCursor_ = RecordArea::begin;
}

void RecordAreaWriter::writeBytes(quint32 offset, const void* data, quint32 length)
{
    if (length == 0)
        return; // an empty list or text may come without storage
    std::memcpy(reinterpret_cast<char*>(record_) + offset, data, length);
}

AreaOffset RecordAreaWriter::placeText(quint32& cursor, const QString& text)
{
    const quint32 length = quint32(std::min<qsizetype>(text.size(), maxTextLength));
    const AreaOffset offset = cursor;
    writeBytes(offset, &length, 4);
    writeBytes(offset + 4, text.utf16(), length * 2);
    cursor = aligned(offset + 4 + length * 2);
    return offset;
}

void RecordAreaWriter::setFixedText(AreaOffset& slot, const QString& text)
{
    const AreaOffset offset = placeText(fixedEnd_, text);
    ringCursor_ = fixedEnd_;
    RecordArea::storeSlot(slot, offset);
}

void RecordAreaWriter::setFixedPersonalities(const QList<RecordArea::Personality>& list)
{
    // Texts first, then the table that points at them.
    QList<RecordArea::PersonalityEntry> entries;
    entries.reserve(list.size());
    for (const RecordArea::Personality& p : list) {
        const AreaOffset manufacturer = placeText(fixedEnd_, p.manufacturer);
        const AreaOffset name = placeText(fixedEnd_, p.name);
        entries.append({qint32(p.id), qint32(p.footprint), manufacturer, name});
    }
    const AreaOffset table = fixedEnd_;
    const quint32 count = quint32(entries.size());
    writeBytes(table, &count, 4);
    writeBytes(table + 4, entries.constData(), count * sizeof(RecordArea::PersonalityEntry));
    fixedEnd_ = aligned(table + 4 + count * sizeof(RecordArea::PersonalityEntry));
    ringCursor_ = fixedEnd_;
    RecordArea::storeSlot(record_->personalities, table);
}

AreaOffset RecordAreaWriter::reserveInRing(quint32 length)
{
    if (ringCursor_ + length > RecordArea::end)
        ringCursor_ = fixedEnd_;
    return ringCursor_;
}

void RecordAreaWriter::setText(AreaOffset& slot, const QString& text)
{
    if (text.isEmpty()) {
        RecordArea::storeSlot(slot, 0);
        return;
    }
    quint32 cursor = reserveInRing(textBytes(text));
    const AreaOffset offset = placeText(cursor, text);
    ringCursor_ = cursor;
    RecordArea::storeSlot(slot, offset);
}
