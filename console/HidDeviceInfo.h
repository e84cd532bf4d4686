// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

// One HID interface found on USB.
struct HidDeviceInfo
{
    QString path; // the device interface path (a device node on Linux)
    quint16 vendorId = 0;
    quint16 productId = 0;
    quint16 versionNumber = 0;
};

// The console maker's USB vendor id, fixed when the program is built.
constexpr quint16 consoleVendorId = 0x16D0;
// Product ids of the two console generations.
constexpr quint16 glowEngineProductId = 0x0200;
constexpr quint16 glowproEngineProductId = 0x0201;
