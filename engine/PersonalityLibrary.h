// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "RecordArea.h"

#include <QList>
#include <QString>

#include <vector>

struct DeviceRecord;

// The fixture personalities built into the simulated Maple: generic
// dimmers, LED pars, scrollers, moving spots and washes.
class PersonalityLibrary
{
public:
    // What a DMX slot of a personality carries.
    static constexpr int intensitySlot = -1; // driven by the device's control channel

    struct Personality
    {
        int id;
        QString manufacturer;
        QString name;
        QString mode;                // second name shown after the first
        std::vector<int> layout;     // parameter number per slot, or intensitySlot
        quint8 colourModel;          // 1 additive, 0 subtractive, 254 hue/saturation
        quint8 invertedMixing;       // colour-mix parameters stored inverted in palettes
        std::vector<int> components; // seven colour components: parameter or -1
    };

    static const std::vector<Personality>& all();
    static const Personality* find(int id);
    // The list the program shows in its patch menu.
    static QList<RecordArea::Personality> recordList();
    // Fills a device record for the personality at a 0-based first address.
    static void fillDevice(DeviceRecord& device, const Personality& personality, int firstAddress);

    // The engine keeps the personality id of a patched device in the device
    // record's private bytes, so that it travels with the show.
    static int deviceId(const DeviceRecord& device);
};
