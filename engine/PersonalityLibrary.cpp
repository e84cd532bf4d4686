// SPDX-License-Identifier: GPL-3.0-or-later
#include "PersonalityLibrary.h"

#include "ConsoleStateRecord.h"

#include <cstring>

namespace {
// Parameter numbers as the program names them.
enum Parameter : int
{
    Red = 0, // also Cyan on subtractive mixing
    Pan = 1,
    Tilt = 2,
    Green = 3, // also Magenta
    Blue = 4,  // also Yellow
    ColourWheel = 5,
    ColourWheel2 = 6,
    ColourTemperature = 7,
    ColourEffect = 8,
    Shutter = 9,
    Prism = 10,
    Beam2 = 11,
    Gobo = 12,
    GoboIndex = 13,
    GoboRotation = 14,
    Gobo2 = 16,
    Zoom = 20,
    Edge = 21,
    Iris = 22,
    Frost = 23,
    White = 24, // first user parameter
    Amber = 25,
    Control = 45,
    PanFine = 48,
    TiltFine = 49,
};
constexpr int I = PersonalityLibrary::intensitySlot;
constexpr int none = -1;

// Components: r from c0..c2, g from c2/2..c4, b from c4..c6.
const std::vector<int> rgbComponents = {Red, none, none, Green, none, Blue, none};
const std::vector<int> rgbaComponents = {Red, none, Amber, Green, none, Blue, none};
const std::vector<int> cmyComponents = {Red, none, none, Green, none, Blue, none};
const std::vector<int> noComponents = {none, none, none, none, none, none, none};

std::vector<PersonalityLibrary::Personality> build()
{
    using P = PersonalityLibrary::Personality;
    const QString generic = QStringLiteral("Generic");
    const QString lumen = QStringLiteral("Lumen Works");
    const QString stagecraft = QStringLiteral("Stagecraft");
    return {
        P{1, generic, "Dimmer", "1ch", {I}, 1, 0, noComponents},
        P{2, generic, "RGB Par", "3ch", {Red, Green, Blue}, 1, 0, rgbComponents},
        P{3, generic, "RGB Par", "4ch dim", {I, Red, Green, Blue}, 1, 0, rgbComponents},
        P{4, generic, "RGBW Par", "5ch", {I, Red, Green, Blue, White}, 1, 0, rgbComponents},
        P{5,
          generic,
          "RGBW Par",
          "6ch strobe",
          {I, Red, Green, Blue, White, Shutter},
          1,
          0,
          rgbComponents},
        P{6, generic, "RGBA Batten", "5ch", {I, Red, Green, Blue, Amber}, 1, 0, rgbaComponents},
        P{7, generic, "Colour Scroller", "1ch", {ColourWheel}, 1, 0, noComponents},
        P{8, generic, "Strobe", "2ch", {I, Shutter}, 1, 0, noComponents},
        P{9,
          lumen,
          "Spot 250",
          "8bit 10ch",
          {Pan, Tilt, ColourWheel, Gobo, GoboRotation, Prism, Edge, Shutter, I, Control},
          1,
          0,
          noComponents},
        P{10,
          lumen,
          "Spot 575",
          "16bit 14ch",
          {Pan, PanFine, Tilt, TiltFine, ColourWheel, Gobo, GoboRotation, Gobo2, Prism, Edge, Iris,
           Shutter, I, Control},
          1,
          0,
          noComponents},
        P{11,
          lumen,
          "Wash 300",
          "8bit 10ch",
          {Pan, Tilt, Red, Green, Blue, ColourTemperature, Shutter, I, Zoom, Control},
          0,
          1,
          cmyComponents},
        P{12,
          lumen,
          "Wash 700",
          "16bit 14ch",
          {Pan, PanFine, Tilt, TiltFine, Red, Green, Blue, ColourTemperature, ColourWheel, Shutter,
           I, Zoom, Frost, Control},
          0,
          1,
          cmyComponents},
        P{13,
          stagecraft,
          "LED Wash",
          "16bit 12ch",
          {Pan, PanFine, Tilt, TiltFine, Red, Green, Blue, White, Shutter, I, Zoom, Control},
          1,
          0,
          rgbComponents},
        P{14,
          stagecraft,
          "Scanner",
          "8bit 6ch",
          {Pan, Tilt, ColourWheel, Gobo, Shutter, I},
          1,
          0,
          noComponents},
        P{15,
          stagecraft,
          "Beam 5R",
          "16bit 16ch",
          {Pan, PanFine, Tilt, TiltFine, ColourWheel, ColourEffect, Gobo, GoboIndex, Prism, Beam2,
           Frost, Edge, Shutter, I, ColourTemperature, Control},
          1,
          0,
          noComponents},
        P{16,
          stagecraft,
          "Hue Fader",
          "3ch",
          {I, Red, Blue},
          254,
          0,
          {Red, none, Blue, none, none, none, none}},
    };
}

void copyName(char* target, const QString& text)
{
    const QByteArray latin = text.toLatin1().left(18);
    std::memcpy(target, latin.constData(), size_t(latin.size()));
    target[latin.size()] = 0;
}

constexpr int idByteOffset = 0; // inside DeviceRecord::padding2
} // namespace

const std::vector<PersonalityLibrary::Personality>& PersonalityLibrary::all()
{
    static const std::vector<Personality> list = build();
    return list;
}

const PersonalityLibrary::Personality* PersonalityLibrary::find(int id)
{
    for (const Personality& personality : all()) {
        if (personality.id == id)
            return &personality;
    }
    return nullptr;
}

QList<RecordArea::Personality> PersonalityLibrary::recordList()
{
    QList<RecordArea::Personality> list;
    for (const Personality& p : all())
        list.append(
            {p.id, int(p.layout.size()), p.manufacturer, p.name + QStringLiteral(" ") + p.mode});
    return list;
}

void PersonalityLibrary::fillDevice(DeviceRecord& device, const Personality& personality,
                                    int firstAddress)
{
    std::memset(static_cast<void*>(&device), 0, sizeof device);
    device.firstAddress = quint16(firstAddress + 1);
    device.footprint = quint8(personality.layout.size());
    device.invertedColourMixing = personality.invertedMixing;
    device.colourModel = personality.colourModel;
    copyName(device.personalityName, personality.name);
    copyName(device.secondName, personality.mode);
    for (size_t slot = 0; slot < personality.layout.size(); ++slot) {
        const int parameter = personality.layout[slot];
        if (parameter >= 0 && parameter < DeviceRecord::parameterCount)
            device.parameterMap[parameter] = quint8(slot + 1);
    }
    for (size_t i = 0; i < personality.components.size() && i < 7; ++i)
        device.colourComponents[i] = quint8(personality.components[i] + 1);
    const quint16 id = quint16(personality.id);
    std::memcpy(device.padding2 + idByteOffset, &id, sizeof id);
}

int PersonalityLibrary::deviceId(const DeviceRecord& device)
{
    quint16 id;
    std::memcpy(&id, device.padding2 + idByteOffset, sizeof id);
    return id;
}
