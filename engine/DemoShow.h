// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct ConsoleStateRecord;
struct ModelProfile;

// The show a simulated console holds on its very first start, so that every
// tab has something to show: legends, page names, a patch, memories, a stack
// with cues, a chase sequence and, on Maple, devices, palettes, groups and effects.
class DemoShow
{
public:
    static void fill(ConsoleStateRecord* record, const ModelProfile& profile);

private:
    static void fillLegendsAndPages(ConsoleStateRecord* record, const ModelProfile& profile);
    static void fillPatch(ConsoleStateRecord* record, const ModelProfile& profile);
    static void fillMemories(ConsoleStateRecord* record, const ModelProfile& profile);
    static void fillStack(ConsoleStateRecord* record, const ModelProfile& profile);
    static void fillSequence(ConsoleStateRecord* record);
    static void fillDevices(ConsoleStateRecord* record);
    static void fillPalettesAndGroups(ConsoleStateRecord* record);
    static void fillEffects(ConsoleStateRecord* record);
};
