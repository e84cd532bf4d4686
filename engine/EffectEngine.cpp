// SPDX-License-Identifier: GPL-3.0-or-later
#include "EffectEngine.h"

#include "ModelProfile.h"
#include "SimulationRules.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int red = 0;
constexpr int green = 3;
constexpr int blue = 4;
constexpr int white = 24;
constexpr int amber = 25;
constexpr int chromaOffset = 256;
constexpr quint8 hueSaturationModel = 254;
constexpr quint8 subtractiveModel = 0;
constexpr double defaultStrobeDuty = 0.1;

double wrap(double value)
{
    return value - std::floor(value);
}

EffectEngine::Point polygonPoint(const EffectEngine::Point* corners, int count, double t)
{
    const double at = t * count;
    const int i = std::min(int(at), count - 1);
    const double f = at - i;
    const EffectEngine::Point& a = corners[i];
    const EffectEngine::Point& b = corners[(i + 1) % count];
    return {a.x + (b.x - a.x) * f, a.y + (b.y - a.y) * f};
}

EffectEngine::Point starPoint(int points, int skip, double t)
{
    EffectEngine::Point corners[5];
    for (int k = 0; k < points; ++k) {
        const double angle = -pi / 2 + 2 * pi * k * skip / points;
        corners[k] = {std::cos(angle), std::sin(angle)};
    }
    return polygonPoint(corners, points, t);
}

EffectEngine::Point rosePoint(int petals, double inner, double t)
{
    const double a = 2 * pi * t;
    const double r = inner + (1 - inner) * std::fabs(std::cos(petals * a / 2.0));
    return {r * std::cos(a), r * std::sin(a)};
}

// A fixed pseudo-random series in [0, 1], the same on every run.
double noise(int i)
{
    unsigned x = unsigned(i) * 2654435761u + 12345u;
    x ^= x >> 13;
    x *= 1274126177u;
    x ^= x >> 16;
    return double(x % 1000) / 999.0;
}

EffectEngine::Rgb hsv(double hue)
{
    const double h = wrap(hue) * 6;
    const double f = h - std::floor(h);
    switch (int(h) % 6) {
    case 0:
        return {255, 255 * f, 0};
    case 1:
        return {255 * (1 - f), 255, 0};
    case 2:
        return {0, 255, 255 * f};
    case 3:
        return {0, 255 * (1 - f), 255};
    case 4:
        return {255 * f, 0, 255};
    default:
        return {255, 0, 255 * (1 - f)};
    }
}

struct ColourStops
{
    int count;
    bool blend;
    EffectEngine::Rgb stops[6];
};

// The colour patterns after Rainbow (1 to 10); Freak Out is filled at run time.
const ColourStops colourPatterns[10] = {
    {4, false, {{230, 20, 40}, {250, 210, 0}, {20, 90, 230}, {30, 170, 60}}}, // Harlequin
    {4, true, {{160, 10, 0}, {255, 60, 0}, {255, 150, 0}, {255, 230, 60}}},   // Flames
    {3, true, {{20, 110, 20}, {110, 200, 40}, {200, 230, 80}}},               // Meadow
    {3, true, {{200, 140, 20}, {250, 210, 60}, {255, 245, 150}}},             // Cornfield
    {3, true, {{0, 70, 200}, {0, 170, 230}, {90, 240, 220}}},                 // Aqua
    {3, true, {{60, 0, 140}, {30, 40, 200}, {220, 170, 30}}},                 // Royal
    {3, true, {{255, 60, 150}, {255, 140, 190}, {230, 30, 110}}},             // Miss Piggy
    {0, false, {}},                                                           // Freak Out
    {3, false, {{0, 255, 255}, {255, 0, 255}, {255, 255, 0}}},                // Secondary
    {3, false, {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}}},                      // Primary
};

quint8 toLevel(double value)
{
    return quint8(std::clamp(int(std::lround(value)), 0, 255));
}

} // namespace

EffectEngine::Slots EffectEngine::emptySlots()
{
    Slots empty;
    for (auto& family : empty)
        family.fill(-1);
    return empty;
}

int EffectEngine::contentEffect(const ContentRecord& content, int family, int device)
{
    return int(content.reserved[family * deviceCount + device]) - 1;
}

void EffectEngine::setContentEffect(ContentRecord& content, int family, int device, int effect)
{
    content.reserved[family * deviceCount + device] = quint8(effect + 1);
}

bool EffectEngine::contentHasEffects(const ContentRecord& content)
{
    return std::any_of(content.reserved, content.reserved + familyCount * deviceCount,
                       [](quint8 slot) { return slot != 0; });
}

void EffectEngine::storeProgrammer(ContentRecord& content, const quint8* selected,
                                   bool selectedOnly) const
{
    for (int f = 0; f < familyCount; ++f)
        for (int d = 0; d < deviceCount; ++d)
            setContentEffect(content, f, d,
                             selectedOnly && !selected[d] ? -1 : programmer_[size_t(f)][size_t(d)]);
}

void EffectEngine::beginTick()
{
    wanted_ = programmer_;
}

void EffectEngine::want(int family, int device, int effect)
{
    if (family < 0 || family >= familyCount || device < 0 || device >= deviceCount)
        return;
    const bool valid =
        effect >= 0 && effect / familyStride == family && effect % familyStride < patternsPerFamily;
    if (valid)
        wanted_[size_t(family)][size_t(device)] = qint8(effect);
}

void EffectEngine::wantContent(const ContentRecord& content, int devices)
{
    for (int f = 0; f < familyCount; ++f)
        for (int d = 0; d < std::min(devices, int(deviceCount)); ++d)
            want(f, d, contentEffect(content, f, d));
}

void EffectEngine::advance(int milliseconds, const ConsoleStateRecord& record)
{
    running_ = false;
    for (size_t f = 0; f < familyCount; ++f) {
        for (size_t d = 0; d < deviceCount; ++d) {
            const int effect = wanted_[f][d];
            if (effect != current_[f][d]) {
                current_[f][d] = qint8(effect);
                phase_[f][d] = 0;
            }
            if (effect < 0)
                continue;
            running_ = true;
            const double cycles =
                milliseconds / 1000.0 * record.effects[effect].speed * cyclesPerSecondPerSpeed;
            phase_[f][d] = std::fmod(phase_[f][d] + cycles, 2.0);
        }
    }
}

void EffectEngine::reset()
{
    programmer_ = emptySlots();
    wanted_ = emptySlots();
    current_ = emptySlots();
    for (auto& family : phase_)
        family.fill(0);
    running_ = false;
}

double EffectEngine::position(double phase, int direction)
{
    switch (direction) {
    case 1:
        return wrap(1.0 - wrap(phase));
    case 2:
        return phase < 1.0 ? phase : 2.0 - phase;
    default:
        return wrap(phase);
    }
}

EffectEngine::Point EffectEngine::shapePoint(int pattern, double t)
{
    const double a = 2 * pi * t;
    switch (pattern) {
    case 0: // Circle
        return {std::cos(a), std::sin(a)};
    case 1: { // Square
        static const Point corners[4] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
        return polygonPoint(corners, 4, t);
    }
    case 2: // Infinity
        return {std::sin(a), 0.6 * std::sin(2 * a)};
    case 3: // Lissajou
        return {std::sin(3 * a), std::sin(2 * a)};
    case 4: // Clover
        return rosePoint(3, 0.0, t);
    case 5: // Flower
        return rosePoint(8, 0.45, t);
    case 6: // Triangle
        return starPoint(3, 1, t);
    case 7: // Harmonics
        return {(std::cos(a) + 0.5 * std::cos(3 * a)) / 1.5,
                (std::sin(a) + 0.5 * std::sin(5 * a)) / 1.5};
    case 8: // Noise
        return {0.6 * std::sin(a) + 0.4 * std::sin(7 * a + 1),
                0.6 * std::sin(2 * a + 0.5) + 0.4 * std::sin(5 * a + 2)};
    case 9: // Pentacle
        return starPoint(5, 2, t);
    case 10: // Skating
        return {(std::cos(a) + 0.35 * std::cos(4 * a)) / 1.35,
                (std::sin(a) - 0.35 * std::sin(4 * a)) / 1.35};
    default:
        return {};
    }
}

double EffectEngine::linearLevel(int pattern, double t, int aspect)
{
    switch (pattern) {
    case 0: { // Morse: S O S
        static const char bits[] = "1010100111011101110010101000";
        constexpr int count = int(sizeof bits) - 1;
        return bits[std::min(int(t * count), count - 1)] == '1' ? 1.0 : 0.0;
    }
    case 1: // Strobe: a flash for aspect / 255 of the cycle
        return t < (aspect > 0 ? aspect / 255.0 : defaultStrobeDuty) ? 1.0 : 0.0;
    case 2: // Flicker
        return 0.25 + 0.75 * noise(int(t * 24));
    case 3: // On Off
        return t < 0.5 ? 1.0 : 0.0;
    case 4: // Wander
        return std::clamp(0.5 + 0.3 * std::sin(2 * pi * t) + 0.18 * std::sin(6 * pi * t + 1), 0.0,
                          1.0);
    case 5: { // Sparkle
        const int slot = int(t * 40);
        return noise(slot + 7) > 0.78 && wrap(t * 40) < 0.5 ? 1.0 : 0.08;
    }
    case 6: { // Mountain
        static const double peaks[4] = {0.6, 1.0, 0.45, 0.8};
        const double x = t * 4;
        const int i = std::min(int(x), 3);
        return peaks[i] * (1 - std::fabs(2 * (x - i) - 1));
    }
    case 7: { // Skyline
        static const double blocks[8] = {0.35, 0.7, 0.5, 1.0, 0.25, 0.85, 0.55, 0.4};
        return blocks[std::min(int(t * 8), 7)];
    }
    case 8: // Saw
        return t;
    case 9: // Cosine
        return 0.5 - 0.5 * std::cos(2 * pi * t);
    case 10: // Ramp
        return t < 0.7 ? t / 0.7 : 1.0;
    default:
        return 1.0;
    }
}

EffectEngine::Rgb EffectEngine::colourAt(int pattern, double t)
{
    if (pattern == 0)
        return hsv(t);
    if (pattern < 1 || pattern > 10)
        return {255, 255, 255};
    if (pattern == 8) // Freak Out: six random hues, one after the other
        return hsv(noise(std::min(int(t * 6), 5) + 3));
    const ColourStops& stops = colourPatterns[pattern - 1];
    const double at = t * stops.count;
    const int i = std::min(int(at), stops.count - 1);
    if (!stops.blend)
        return stops.stops[i];
    const double f = at - i;
    const Rgb& a = stops.stops[i];
    const Rgb& b = stops.stops[(i + 1) % stops.count];
    return {a.r + (b.r - a.r) * f, a.g + (b.g - a.g) * f, a.b + (b.b - a.b) * f};
}

void EffectEngine::apply(const ConsoleStateRecord& record, const ModelProfile& profile,
                         LiveState& live) const
{
    live.effectSet.reset();
    live.effectIntensity.fill(255);
    if (!running_)
        return;
    for (int f = 0; f < familyCount; ++f) {
        for (int d = 0; d < std::min(profile.deviceCount, int(deviceCount)); ++d) {
            const int number = current_[size_t(f)][size_t(d)];
            const DeviceRecord& device = record.devices[d];
            if (number < 0 || device.firstAddress == 0)
                continue;
            const EffectRecord& effect = record.effects[number];
            if (effect.pattern >= patternsPerFamily)
                continue;
            const double t = position(phase_[size_t(f)][size_t(d)], effect.direction);
            if (f == 0) {
                applyShape(effect, t, d, device, live);
            } else if (f == 1) {
                const double level =
                    effect.base + effect.range * linearLevel(effect.pattern,
                                                             wrap(t + effect.rotation / 360.0),
                                                             effect.aspect);
                live.effectIntensity[size_t(d)] = toLevel(level);
            } else {
                applyColour(effect, wrap(t + effect.rotation / 360.0), d, device, live);
            }
        }
    }
}

void EffectEngine::applyShape(const EffectRecord& effect, double t, int device,
                              const DeviceRecord& record, LiveState& live) const
{
    using namespace SimulationRules;
    Point p = shapePoint(effect.pattern, t);
    p.y *= 1.0 - std::min<int>(effect.aspect, 255) / 255.0;
    const double turn = effect.rotation * pi / 180.0;
    const double x = p.x * std::cos(turn) - p.y * std::sin(turn);
    const double y = p.x * std::sin(turn) + p.y * std::cos(turn);
    const double amplitude = std::min<int>(effect.depth, 255) / 2.0;
    const auto place = [&](int coarse, int fine, double offset) {
        if (record.parameterMap[coarse] == 0)
            return;
        const size_t c = size_t(LiveState::parameterIndex(device, coarse));
        const size_t fi = size_t(LiveState::parameterIndex(device, fine));
        const double centre = live.parameterValue[c] +
                              (record.parameterMap[fine] ? live.parameterValue[fi] / 256.0 : 0.0);
        const double value = std::clamp(centre + offset, 0.0, 255.0 + 255.0 / 256.0);
        const int whole = std::min(int(std::floor(value)), 255);
        live.effectValue[c] = quint8(whole);
        live.effectSet.set(c);
        if (record.parameterMap[fine]) {
            live.effectValue[fi] = quint8(std::min(int((value - whole) * 256.0), 255));
            live.effectSet.set(fi);
        }
    };
    place(pan, panFine, amplitude * x);
    place(tilt, tiltFine, amplitude * y);
}

void EffectEngine::applyColour(const EffectRecord& effect, double t, int device,
                               const DeviceRecord& record, LiveState& live) const
{
    const double at = wrap(effect.base / 255.0 + t * effect.range / 255.0);
    Rgb colour = colourAt(effect.pattern, at);
    const double chroma = std::clamp(int(effect.depth) - chromaOffset, 0, 255) / 255.0;
    colour = {255 + (colour.r - 255) * chroma, 255 + (colour.g - 255) * chroma,
              255 + (colour.b - 255) * chroma};
    const auto set = [&](int parameter, double value) {
        if (parameter < 0 || parameter >= ContentRecord::parameterCount ||
            record.parameterMap[parameter] == 0)
            return;
        const size_t i = size_t(LiveState::parameterIndex(device, parameter));
        live.effectValue[i] = toLevel(value);
        live.effectSet.set(i);
    };
    if (record.colourModel == hueSaturationModel) {
        const double high = std::max({colour.r, colour.g, colour.b});
        const double low = std::min({colour.r, colour.g, colour.b});
        double hue = 0;
        if (high > low) {
            if (high == colour.r)
                hue = std::fmod((colour.g - colour.b) / (high - low) + 6.0, 6.0);
            else if (high == colour.g)
                hue = (colour.b - colour.r) / (high - low) + 2.0;
            else
                hue = (colour.r - colour.g) / (high - low) + 4.0;
        }
        set(record.colourComponents[0] - 1, hue / 6.0 * 255.0);
        set(record.colourComponents[2] - 1, high > 0 ? (high - low) / high * 255.0 : 0.0);
        return;
    }
    const bool subtractive = record.colourModel == subtractiveModel && record.invertedColourMixing;
    set(red, subtractive ? 255 - colour.r : colour.r);
    set(green, subtractive ? 255 - colour.g : colour.g);
    set(blue, subtractive ? 255 - colour.b : colour.b);
    set(white, 0);
    set(amber, 0);
}
