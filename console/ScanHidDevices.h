// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "HidDeviceInfo.h"

// Every present HID interface that could be opened. Empty on platforms
// without a HID enumeration.
QList<HidDeviceInfo> scanHidDevices();

// The engine library for the first console in the list ("glowEngine" or
// "glowproEngine"), or an empty string when no console is connected.
QString selectConsoleLibrary(const QList<HidDeviceInfo>& devices);
