// SPDX-License-Identifier: GPL-3.0-or-later
#include "EngineNotifier.h"

#include "IConsoleHandler.h"

void EngineNotifier::send(int code, int a, int b, int c)
{
    if (handler_ && !muted_)
        handler_->notify(code, a, b, c);
}

void EngineNotifier::mark(int code)
{
    if (code >= 0 && code < codeLimit)
        marked_.set(size_t(code));
}

void EngineNotifier::flush()
{
    if (marked_.none())
        return;
    const std::bitset<codeLimit> pending = marked_;
    marked_.reset();
    for (int code = 0; code < codeLimit; ++code) {
        if (pending.test(size_t(code)))
            send(code);
    }
}
