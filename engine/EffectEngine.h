// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleStateRecord.h"
#include "LiveState.h"

#include <array>

struct ModelProfile;

// Runs the console's effects: every device may run one effect of each
// family (Shape moves pan and tilt, Linear modulates intensity, Color cycles
// the colour mix). The simulation says each tick which effect each device
// should run; a slot keeps its phase while its effect stays the same and
// starts again from the beginning when it changes. The result is an overlay
// in LiveState that the output stage puts over the devices' own values, so
// that a stopped effect leaves the devices where they were.
class EffectEngine
{
public:
    static constexpr int familyCount = 3;
    static constexpr int deviceCount = ContentRecord::deviceCount;
    static constexpr int familyStride = 12;
    static constexpr int patternsPerFamily = 11;
    static constexpr int effectCount = 36;
    // Speed 64 is one cycle a second.
    static constexpr double cyclesPerSecondPerSpeed = 1.0 / 64.0;

    struct Point
    {
        double x = 0;
        double y = 0;
    };
    struct Rgb
    {
        double r = 0;
        double g = 0;
        double b = 0;
    };

    // Where a memory or stack cue keeps its effects: effect number + 1 per
    // family and device in the content's spare bytes, 0 for none.
    static int contentEffect(const ContentRecord& content, int family, int device);
    static void setContentEffect(ContentRecord& content, int family, int device, int effect);
    static bool contentHasEffects(const ContentRecord& content);

    // The effects the programmer gives devices by hand (select keys in the
    // effect modes); -1 for none.
    int programmerEffect(int family, int device) const
    {
        return programmer_[size_t(family)][size_t(device)];
    }
    void setProgrammerEffect(int family, int device, int effect)
    {
        programmer_[size_t(family)][size_t(device)] = qint8(effect);
    }
    // Writes the programmer's effects of the devices into content.
    void storeProgrammer(ContentRecord& content, const quint8* selected, bool selectedOnly) const;
    void clearProgrammer() { programmer_ = emptySlots(); }

    // Each tick: forget what ran, name what runs now (later calls take
    // precedence), then advance.
    void beginTick();
    void want(int family, int device, int effect);
    void wantContent(const ContentRecord& content, int devices);
    void advance(int milliseconds, const ConsoleStateRecord& record);
    bool running() const { return running_; }
    // Effect running on a slot, -1 for none.
    int effectOn(int family, int device) const { return current_[size_t(family)][size_t(device)]; }
    double phase(int family, int device) const { return phase_[size_t(family)][size_t(device)]; }
    void reset();

    // Writes the overlay of every running slot into live.
    void apply(const ConsoleStateRecord& record, const ModelProfile& profile,
               LiveState& live) const;

    // The patterns: t in [0, 1) of one cycle.
    static Point shapePoint(int pattern, double t);
    static double linearLevel(int pattern, double t, int aspect);
    static Rgb colourAt(int pattern, double t);
    // Position in the cycle for a phase in [0, 2) and a direction
    // (0 forward, 1 backward, 2 bounce: forward in the first cycle, back in the second).
    static double position(double phase, int direction);

private:
    using Slots = std::array<std::array<qint8, deviceCount>, familyCount>;
    static Slots emptySlots();
    void applyShape(const EffectRecord& effect, double t, int device, const DeviceRecord& record,
                    LiveState& live) const;
    void applyColour(const EffectRecord& effect, double t, int device, const DeviceRecord& record,
                     LiveState& live) const;

    Slots programmer_ = emptySlots();
    Slots wanted_ = emptySlots();
    Slots current_ = emptySlots();
    std::array<std::array<double, deviceCount>, familyCount> phase_{};
    bool running_ = false;
};
