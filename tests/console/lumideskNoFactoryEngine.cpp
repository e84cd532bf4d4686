// SPDX-License-Identifier: GPL-3.0-or-later
// A library that loads but exports no engine factory.
extern "C" __attribute__((visibility("default"))) int lumideskNotAnEngine()
{
    return 5;
}
