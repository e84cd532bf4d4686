// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The counts and fixed settings of one console model. Every count the record
// publishes comes from here, so the program's console type always matches.
struct ModelProfile
{
    enum class Generation
    {
        Glow,
        GlowPro
    };
    enum class Model
    {
        Alder = 0,
        Birch = 1,
        Cedar = 2,
        Maple = 3
    };

    Model model = Model::Alder;
    Generation generation = Generation::Glow;
    int channelCount = 48;
    int faderCount = 24;
    int deviceCount = 0;
    int patchAddressCount = 512;
    int pageCount = 12;
    int sequenceFaderCount = 12;
    quint8 consoleMode = 1; // Normal mode; on Maple the user mode "Full control"

    // An unknown variant falls back to the first model of the generation,
    // as a console found on USB would report its own model anyway.
    static ModelProfile forVariant(Generation generation, int variant);

    bool isMaple() const { return model == Model::Maple; }
    int firstDeviceChannel() const { return channelCount - deviceCount; }
    int firstSequenceFader() const { return faderCount - sequenceFaderCount; }
    // The stack plays on the playback after the sequence faders'.
    int stackPlayback() const { return sequenceFaderCount; }
    QString name() const;
};
