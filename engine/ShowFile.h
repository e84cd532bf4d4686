// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// The engine's show file format (also used for the console's state file):
//
//   8 bytes   magic "LDSKSHOW"
//   u16       format version (1)
//   u16       console type: 0 Alder, 1 Birch, 2 Cedar, 3 Maple
//   u32       section count
//   sections  u32 tag, u32 length, length bytes
//   32 bytes  SHA-256 of everything before
//
// All integers little-endian. Sections: "SHOW" the show data (required),
// "NAME" the show file name as UTF-16 (state files only). Unknown sections are
// skipped, so a later format can add some without breaking older readers.
class ShowFile
{
public:
    static constexpr quint16 formatVersion = 1;

    enum class Status
    {
        Ok,
        OtherConsoleType,
        Damaged
    };

    struct Contents
    {
        Status status = Status::Damaged;
        int consoleType = -1;
        QByteArray showData;
        QString showFileName;
    };

    static QByteArray encode(int consoleType, const QByteArray& showData,
                             const QString& showFileName = {});
    static Contents decode(const QByteArray& bytes, int expectedConsoleType);

    // Reads a whole file; Damaged when it cannot be read.
    static Contents read(const QString& fileName, int expectedConsoleType);
    // Writes through a temporary file renamed over the target on success, so
    // the previous file survives any failure. False on failure.
    static bool write(const QString& fileName, const QByteArray& bytes, QString* error = nullptr);

    // Fault injection for tests: called before every step of write() (the
    // open, each block, the commit) with the step's number from 0; returning
    // false fails that step. Never set in the program.
    using WriteProbe = bool (*)(int step);
    static void setWriteProbe(WriteProbe probe);
};
