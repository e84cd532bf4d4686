// SPDX-License-Identifier: GPL-3.0-or-later
#include "CuePlayer.h"

#include "ConsoleStateRecord.h"

#include <algorithm>
#include <cstring>

namespace {
quint16 tenthsLeft(int durationMs, int elapsedMs)
{
    const int left = std::max(0, durationMs - elapsedMs);
    return quint16(std::min(65535, (left + 99) / 100));
}
} // namespace

void CuePlayer::reset()
{
    phase_ = Phase::Idle;
    paused_ = false;
    releasing_ = false;
    live_ = -1;
    next_ = 0;
    elapsedMs_ = 0;
    waitElapsedMs_ = 0;
    parametersPending_ = false;
    manual_ = false;
    timing_ = {};
    from_.fill(0);
    levels_.fill(0);
    target_.clear();
}

void CuePlayer::start(int index, const CueTarget& target, const Timing& timing,
                      const LiveState& live)
{
    from_ = levels_;
    target_ = target;
    for (int p = 0; p < LiveState::parameters; ++p) {
        if (target_.parameterSet.test(size_t(p)))
            parameterFrom_[size_t(p)] = live.parameterValue[size_t(p)];
    }
    timing_ = timing;
    live_ = index;
    releasing_ = false;
    paused_ = false;
    elapsedMs_ = 0;
    waitElapsedMs_ = 0;
    phase_ = Phase::Fading;
    manual_ = false;
    parametersPending_ = target_.parameterSet.any();
    computeLevels();
}

void CuePlayer::release(int downMs)
{
    from_ = levels_;
    target_.clear();
    timing_ = {0, downMs, 0, false};
    releasing_ = true;
    parametersPending_ = false;
    paused_ = false;
    elapsedMs_ = 0;
    phase_ = Phase::Fading;
    computeLevels();
}

void CuePlayer::stepInserted(int index)
{
    if (live_ >= index)
        ++live_;
    if (next_ >= index && next_ >= 0)
        ++next_;
}

void CuePlayer::stepRemoved(int index)
{
    if (live_ == index)
        live_ = -1;
    else if (live_ > index)
        --live_;
    if (next_ > index)
        --next_;
}

int CuePlayer::progress(int durationMs) const
{
    if (phase_ != Phase::Fading)
        return phase_ == Phase::Idle ? 0 : 255;
    if (durationMs <= 0 || elapsedMs_ >= durationMs)
        return 255;
    return int(qint64(elapsedMs_) * 255 / durationMs);
}

void CuePlayer::computeLevels()
{
    for (int c = 0; c < LiveState::channels; ++c) {
        const int from = from_[size_t(c)];
        const int to = target_.levels[size_t(c)];
        const int duration = to >= from ? timing_.upMs : timing_.downMs;
        if (duration <= 0 || elapsedMs_ >= duration)
            levels_[size_t(c)] = quint8(to);
        else
            levels_[size_t(c)] = quint8(from + qint64(to - from) * elapsedMs_ / duration);
    }
}

void CuePlayer::setManualPosition(int position)
{
    if (phase_ != Phase::Fading)
        return;
    manual_ = true;
    const int duration = std::max({timing_.upMs, timing_.downMs, 1});
    elapsedMs_ = int(qint64(duration) * std::clamp(position, 0, 255) / 255);
    computeLevels();
    if (position >= 255) {
        phase_ = Phase::Holding;
        manual_ = false;
    }
}

bool CuePlayer::tick(int milliseconds, int rate)
{
    if (manual_ || paused_ || phase_ == Phase::Idle || phase_ == Phase::Holding)
        return false;
    const int step = int(qint64(milliseconds) * rate / 256);
    if (phase_ == Phase::Fading) {
        elapsedMs_ += step;
        computeLevels();
        if (elapsedMs_ >= std::max(timing_.upMs, timing_.downMs)) {
            if (releasing_) {
                phase_ = Phase::Idle;
                live_ = -1;
                releasing_ = false;
            } else {
                phase_ = timing_.autoFollow ? Phase::Waiting : Phase::Holding;
                waitElapsedMs_ = 0;
            }
        }
        return false;
    }
    // Waiting for an auto-follow.
    waitElapsedMs_ += step;
    if (waitElapsedMs_ >= timing_.waitMs) {
        phase_ = Phase::Holding;
        return next_ >= 0;
    }
    return false;
}

void CuePlayer::applyParameters(LiveState& live)
{
    if (!parametersPending_)
        return;
    if (phase_ != Phase::Fading)
        parametersPending_ = false;
    const int up = timing_.upMs;
    for (int p = 0; p < LiveState::parameters; ++p) {
        if (!target_.parameterSet.test(size_t(p)))
            continue;
        const int from = parameterFrom_[size_t(p)];
        const int to = target_.parameterValue[size_t(p)];
        int value = to;
        if (up > 0 && elapsedMs_ < up)
            value = from + int(qint64(to - from) * elapsedMs_ / up);
        live.parameterValue[size_t(p)] = quint8(value);
        live.parameterPalette[size_t(p)] = target_.parameterPalette[size_t(p)];
    }
}

bool CuePlayer::publish(PlaybackRecord& record, int stepCount, quint16 rate, quint16 fade) const
{
    PlaybackRecord updated = record;
    const bool running = phase_ != Phase::Idle || live_ >= 0;
    updated.nextStep = quint8(std::clamp(next_ >= 0 ? next_ : stepCount, 0, 255));
    updated.afterLiveStep = quint8(std::clamp(live_ + 1, 0, 255));
    updated.upProgress = quint8(running ? progress(timing_.upMs) : 0);
    updated.downProgress = quint8(running ? progress(timing_.downMs) : 0);
    updated.rate = rate;
    updated.fade = fade;
    const bool fading = phase_ == Phase::Fading;
    updated.remainingUp = fading ? tenthsLeft(timing_.upMs, elapsedMs_) : 0;
    updated.remainingDown = fading ? tenthsLeft(timing_.downMs, elapsedMs_) : 0;
    updated.remainingWait =
        phase_ == Phase::Waiting ? tenthsLeft(timing_.waitMs, waitElapsedMs_) : 0;
    if (std::memcmp(&updated, &record, sizeof record) == 0)
        return false;
    record = updated;
    return true;
}
