// SPDX-License-Identifier: GPL-3.0-or-later
#include "DemoShow.h"

#include "ConsoleStateRecord.h"
#include "ModelProfile.h"
#include "PersonalityLibrary.h"
#include "SimulationRules.h"
#include "TextCell.h"

namespace {
using SimulationRules::pan;
using SimulationRules::stepChannel;
using SimulationRules::stepDirectCue;
using SimulationRules::stepMemory;
using SimulationRules::tilt;
constexpr quint8 levelsMask = 0x01;
constexpr int red = 0;
constexpr int green = 3;
constexpr int blue = 4;

void setParameter(ContentRecord& content, int device, int parameter, quint8 value,
                  bool palette = false)
{
    ParameterEntry& entry = content.parameters[device * ContentRecord::parameterCount + parameter];
    entry.flags = quint8(ParameterEntry::setBit | (palette ? ParameterEntry::paletteBit : 0));
    entry.value = value;
}

StepRecord step(quint16 cue, quint32 type, quint16 index, quint16 up, quint16 down, quint16 wait)
{
    StepRecord s{};
    s.cueNumber = cue;
    s.contentType = type;
    s.contentIndex = index;
    s.upTime = up;
    s.downTime = down;
    s.waitTime = wait;
    s.flags = 0x01; // intensity
    return s;
}

void setPaletteValue(PaletteRecord& palette, int device, int parameter, quint8 value)
{
    palette.values[device][parameter] = value;
    palette.include[device][parameter / 8] |= quint8(1 << (parameter % 8));
}
} // namespace

void DemoShow::fill(ConsoleStateRecord* record, const ModelProfile& profile)
{
    fillLegendsAndPages(record, profile);
    fillPatch(record, profile);
    if (profile.isMaple()) {
        fillDevices(record);
        fillPalettesAndGroups(record);
        fillEffects(record);
    }
    fillMemories(record, profile);
    fillStack(record, profile);
    fillSequence(record);
}

void DemoShow::fillLegendsAndPages(ConsoleStateRecord* record, const ModelProfile& profile)
{
    static const char* const areas[] = {"FOH", "Side", "Back", "Top", "Cyc", "Floor"};
    const int plain = profile.firstDeviceChannel();
    for (int c = 0; c < plain; ++c) {
        const QString area = QString::fromLatin1(areas[(c / 8) % 6]);
        TextCell::setLines(record->channelLegends[c],
                           area + QLatin1Char('\n') + QString::number(c % 8 + 1));
    }
    static const char* const pages[] = {"Act 1", "Act 2", "Finale", "Walk in"};
    for (int p = 0; p < 4; ++p)
        TextCell::setLines(record->pageNames[p], QString::fromLatin1(pages[p]));
    TextCell::setLines(record->independents[0].legend, QStringLiteral("Works"));
    TextCell::setLines(record->independents[1].legend, QStringLiteral("Haze"));
    record->independents[0].onLevel = 255;
    record->independents[1].onLevel = 128;
    record->independents[1].buttonMode = 1; // bump
}

void DemoShow::fillPatch(ConsoleStateRecord* record, const ModelProfile& profile)
{
    const int plain = profile.firstDeviceChannel();
    for (int c = 0; c < plain; ++c)
        record->dmxPatch[c] = quint8(c + 1);
    // Both independents after the channels.
    record->dmxPatch[plain + 2] = quint8(profile.channelCount + 1);
    record->dmxPatch[plain + 3] = quint8(profile.channelCount + 2);
}

void DemoShow::fillDevices(ConsoleStateRecord* record)
{
    // Four LED pars, two spots and two washes from address 1:101.
    const int ids[] = {4, 4, 4, 4, 10, 10, 12, 12};
    int address = 100;
    for (int d = 0; d < 8; ++d) {
        const PersonalityLibrary::Personality* personality = PersonalityLibrary::find(ids[d]);
        PersonalityLibrary::fillDevice(record->devices[d], *personality, address);
        address += int(personality->layout.size());
    }
}

void DemoShow::fillPalettesAndGroups(ConsoleStateRecord* record)
{
    struct Colour
    {
        const char* name;
        quint8 r, g, b;
    };
    static const Colour colours[] = {
        {"Red", 255, 0, 0}, {"Blue", 0, 0, 255}, {"Amber", 255, 140, 0}};
    for (int k = 0; k < 3; ++k) {
        PaletteRecord& palette = record->palettes[k];
        palette.flags = 0x04;
        TextCell::setLines(palette.names[1], QString::fromLatin1(colours[k].name));
        for (int d = 0; d < 4; ++d) {
            setPaletteValue(palette, d, red, colours[k].r);
            setPaletteValue(palette, d, green, colours[k].g);
            setPaletteValue(palette, d, blue, colours[k].b);
        }
    }
    static const char* const positions[] = {"Centre", "Stage L", "Stage R"};
    static const quint8 pans[] = {128, 80, 176};
    for (int k = 0; k < 3; ++k) {
        PaletteRecord& palette = record->palettes[3 + k];
        palette.flags = 0x02;
        TextCell::setLines(palette.names[0], QString::fromLatin1(positions[k]));
        for (int d = 4; d < 8; ++d) {
            setPaletteValue(palette, d, pan, pans[k]);
            setPaletteValue(palette, d, tilt, 100);
        }
    }
    GroupRecord& pars = record->groups[0];
    pars.memberCount = 4;
    for (int d = 0; d < 4; ++d)
        pars.members[d] = quint8(d);
    TextCell::setLines(pars.name, QStringLiteral("Pars"));
    GroupRecord& movers = record->groups[1];
    movers.memberCount = 4;
    for (int d = 0; d < 4; ++d)
        movers.members[d] = quint8(4 + d);
    TextCell::setLines(movers.name, QStringLiteral("Movers"));
}

void DemoShow::fillMemories(ConsoleStateRecord* record, const ModelProfile& profile)
{
    const int plain = profile.firstDeviceChannel();
    static const char* const names[] = {"Warm", "Cool", "Full", "Half"};
    for (int m = 0; m < 4; ++m) {
        MemoryRecord& memory = record->memories[m];
        for (int c = 0; c < plain; ++c) {
            const bool warm = (c / 8) % 2 == 0;
            quint8 level = 0;
            if (m == 0)
                level = warm ? 230 : 60;
            else if (m == 1)
                level = warm ? 60 : 230;
            else
                level = m == 2 ? 255 : 128;
            memory.content.channelLevels[c] = level;
        }
        memory.content.contentMask = levelsMask;
        memory.recorded = 1;
        memory.time = 20;
        TextCell::setLines(memory.name, QString::fromLatin1(names[m]));
    }
    if (profile.isMaple()) {
        // "Full" also opens the pars white and points the movers at centre.
        ContentRecord& full = record->memories[2].content;
        for (int d = 0; d < 8; ++d)
            full.channelLevels[profile.firstDeviceChannel() + d] = 255;
        for (int d = 0; d < 4; ++d) {
            setParameter(full, d, red, 255);
            setParameter(full, d, green, 255);
            setParameter(full, d, blue, 255);
        }
        for (int d = 4; d < 8; ++d)
            setParameter(full, d, pan, 3, true); // palette "Centre"
        full.contentMask |= 0x06;
    }
}

void DemoShow::fillStack(ConsoleStateRecord* record, const ModelProfile& profile)
{
    const int plain = profile.firstDeviceChannel();
    static const char* const names[] = {"Preset", "Scene 1", "Sunset", "Night", "Blackout"};
    static const quint8 levels[] = {80, 200, 150, 40, 0};
    for (int n = 0; n < 5; ++n) {
        ContentRecord& content = record->cueContents[n];
        for (int c = 0; c < plain; ++c)
            content.channelLevels[c] = c % 2 ? quint8(levels[n] / 2) : levels[n];
        content.contentMask = levelsMask;
        if (profile.isMaple() && n >= 1 && n <= 3) {
            for (int d = 0; d < 4; ++d) {
                content.channelLevels[plain + d] = 255;
                setParameter(content, d, red, n == 2 ? 255 : 0, false);
                setParameter(content, d, green, n == 1 ? 200 : 40, false);
                setParameter(content, d, blue, n == 3 ? 255 : 60, false);
            }
            content.contentMask |= 0x04;
        }
        record->cueRecorded[n] = 1;
        TextCell::setLines(record->cueNames[n], QString::fromLatin1(names[n]));
        record->stackSteps[n] = step(quint16((n + 1) * 10), stepDirectCue, quint16(n), 30, 30, 0);
    }
    record->stackSteps[1].upTime = 50;
    record->stackSteps[2].upTime = 80;
    record->stackSteps[2].downTime = 60;
    // Two seconds after cue 4 has faded in, the stack goes on to cue 5 by itself.
    record->stackSteps[3].waitTime = 20;
    // Cue 6 brings back memory "Warm".
    record->stackSteps[5] = step(60, stepMemory, 0, 20, 20, 0);
    record->stackStepCount = 6;
    record->stackMode = 1; // one shot
}

void DemoShow::fillSequence(ConsoleStateRecord* record)
{
    // A four-step chase on the first sequence fader of page 1.
    SequenceRecord& chase = record->sequences[0];
    for (int k = 0; k < 4; ++k)
        chase.steps[k] = step(quint16((k + 1) * 10), stepChannel, quint16(k), 2, 2, 3);
    chase.stepCount = 4;
    chase.mode = 0; // loop
    TextCell::setLines(chase.name, QStringLiteral("Chase"));
}

void DemoShow::fillEffects(ConsoleStateRecord* record)
{
    struct Effect
    {
        int number;
        const char* name;
        quint8 pattern;
        quint16 speed, depth, aspect, rotation, base, range, direction;
    };
    // One effect a line.
    // clang-format off
    static const Effect effects[] = {
        {0, "Circle", 0, 32, 90, 0, 0, 0, 0, 0},
        {1, "Square", 1, 24, 70, 0, 0, 0, 0, 0},
        {2, "Eight", 2, 20, 100, 64, 0, 0, 0, 2},
        {3, "Flower", 5, 16, 80, 0, 45, 0, 0, 1},
        {12, "Strobe", 1, 255, 0, 40, 0, 0, 255, 0},
        {13, "Saw", 8, 32, 0, 0, 0, 0, 255, 0},
        {14, "Flicker", 2, 64, 0, 0, 0, 100, 155, 0},
        {24, "Rainbow", 0, 16, 511, 0, 0, 0, 255, 0},
        {25, "Primary", 10, 32, 511, 0, 0, 0, 255, 0},
        {26, "Flames", 2, 40, 460, 0, 0, 0, 255, 2},
    };
    // clang-format on
    for (const Effect& e : effects) {
        EffectRecord& effect = record->effects[e.number];
        effect.pattern = e.pattern;
        effect.speed = e.speed;
        effect.depth = e.depth;
        effect.aspect = e.aspect;
        effect.rotation = e.rotation;
        effect.base = e.base;
        effect.range = e.range;
        effect.direction = e.direction;
        TextCell::setLines(effect.name, QString::fromLatin1(e.name));
    }
}
