// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CueTarget.h"

struct PlaybackRecord;
struct StepRecord;

// One playback: the stack or a sequence. It cross-fades from the look it had
// when a step was started to that step's target: rising levels over the
// step's up time, falling ones over its down time, parameters over the up
// time. The owner supplies the targets and decides when to advance.
class CuePlayer
{
public:
    enum class Phase
    {
        Idle,
        Fading,
        Holding,
        Waiting
    };

    struct Timing
    {
        int upMs = 0;
        int downMs = 0;
        int waitMs = 0;
        bool autoFollow = false; // advance by itself after the wait
    };

    void reset();
    // Starts the fade into step index with the given target and times.
    void start(int index, const CueTarget& target, const Timing& timing, const LiveState& live);
    // Fades everything out (no live step afterwards).
    void release(int downMs);
    void setNext(int next) { next_ = next; }
    void setPaused(bool paused) { paused_ = paused; }
    // Keeps step indexes pointing at the same steps after an edit of the list.
    void stepInserted(int index);
    void stepRemoved(int index);

    // Puts the fade under the hand of the crossfader pair: position 0..255
    // of the whole fade; 255 completes it.
    void setManualPosition(int position);
    bool isManual() const { return manual_; }

    // Advances by milliseconds scaled by rate (256 = 100 %); true when the
    // wait of an auto-following step has run out and the next step is due.
    bool tick(int milliseconds, int rate);
    // While fading (and once at its end), writes the faded parameter values
    // into the live table: the latest action takes precedence.
    void applyParameters(LiveState& live);

    Phase phase() const { return phase_; }
    bool isPaused() const { return paused_; }
    bool isActive() const { return phase_ != Phase::Idle || live_ >= 0; }
    int live() const { return live_; }
    int next() const { return next_; }
    const std::array<quint8, LiveState::channels>& levels() const { return levels_; }

    // Publishes progress and times; true when the record changed.
    bool publish(PlaybackRecord& record, int stepCount, quint16 rate, quint16 fade) const;

private:
    void computeLevels();
    int progress(int durationMs) const;

    Phase phase_ = Phase::Idle;
    bool paused_ = false;
    bool releasing_ = false;
    int live_ = -1;
    int next_ = 0;
    int elapsedMs_ = 0;
    int waitElapsedMs_ = 0;
    bool parametersPending_ = false;
    bool manual_ = false;
    Timing timing_;
    std::array<quint8, LiveState::channels> from_{};
    std::array<quint8, LiveState::channels> levels_{};
    CueTarget target_;
    std::array<quint8, LiveState::parameters> parameterFrom_{};
};
