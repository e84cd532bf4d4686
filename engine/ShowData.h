// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

struct ConsoleStateRecord;
struct ModelProfile;

// The part of the record that makes up a show: legends, memories, sequences,
// the stack with its cues, palettes, groups, page names, patch, independents,
// effects, devices and the system settings. Live state (levels, faders,
// playbacks, output, LEDs, LCD) is not show data.
class ShowData
{
public:
    // Fixed size of captured show data, the same on every model.
    static qsizetype size();

    static QByteArray capture(const ConsoleStateRecord* record);
    // False (and the record untouched) when the data has the wrong size.
    static bool restore(ConsoleStateRecord* record, const QByteArray& data,
                        const ModelProfile& profile);

    // An empty show: everything cleared, the system settings kept.
    static void clearShow(ConsoleStateRecord* record);
    // Parts cleared by the erase commands.
    static void clearMemories(ConsoleStateRecord* record);
    static void clearSequences(ConsoleStateRecord* record);
    static void clearStack(ConsoleStateRecord* record);
    static void clearPalettes(ConsoleStateRecord* record);
    static void clearPatch(ConsoleStateRecord* record);
    // Defaults of the system settings of a console fresh from the factory.
    static void resetSettings(ConsoleStateRecord* record, const ModelProfile& profile);
};
