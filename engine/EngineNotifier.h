// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <bitset>

class IConsoleHandler;

// Sends notifications to the program's handler, on the engine thread only.
// Argument-less state codes (outputs, faders, LEDs...) are collected while a
// request or a tick runs and sent once at its end, so the program sees at most
// one of each per tick.
class EngineNotifier
{
public:
    void setHandler(IConsoleHandler* handler) { handler_ = handler; }
    // A muted notifier drops everything (an engine that never became ready).
    void setMuted(bool muted) { muted_ = muted; }
    bool isMuted() const { return muted_; }

    void send(int code, int a = 0, int b = 0, int c = 0);
    void mark(int code);
    bool isMarked(int code) const
    {
        return code >= 0 && code < codeLimit && marked_.test(size_t(code));
    }
    void flush();
    void discard() { marked_.reset(); }

private:
    static constexpr int codeLimit = 64;
    IConsoleHandler* handler_ = nullptr;
    bool muted_ = false;
    std::bitset<codeLimit> marked_;
};
