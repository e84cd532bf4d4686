// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RecordArea.h"

// Writes the texts and the personality list into the area after the record.
//
// The area has two parts. Values fixed for the engine's lifetime (console and
// library versions, the personality list) are placed once at its start. The
// rest is a ring: a changed text is written behind the previous one and the
// slot is stored last, so the program keeps reading a complete old value while
// the new one is written. A value is only overwritten after the ring has gone
// round once more, i.e. after about a megabyte of later texts.
class RecordAreaWriter
{
public:
    explicit RecordAreaWriter(ConsoleStateRecord* record) : record_(record) {}

    // Forget everything: the next fixed value goes to the area's start.
    void reset();
    void setFixedText(AreaOffset& slot, const QString& text);
    void setFixedPersonalities(const QList<RecordArea::Personality>& list);
    // A text that may change again while the program reads the old one.
    void setText(AreaOffset& slot, const QString& text);

private:
    static constexpr quint32 alignment = 4;

    AreaOffset placeText(quint32& cursor, const QString& text);
    void writeBytes(quint32 offset, const void* data, quint32 length);
    AreaOffset reserveInRing(quint32 length);
    static quint32 aligned(quint32 value) { return (value + alignment - 1) & ~(alignment - 1); }

    ConsoleStateRecord* record_;
    quint32 fixedEnd_ = RecordArea::begin;
    quint32 ringCursor_ = RecordArea::begin;
};
