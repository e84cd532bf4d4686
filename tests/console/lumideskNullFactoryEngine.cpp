// SPDX-License-Identifier: GPL-3.0-or-later
// A library whose engine factory refuses every interface version.
extern "C" __attribute__((visibility("default"))) void* getConsole(int)
{
    return nullptr;
}
