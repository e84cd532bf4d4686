// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScanHidDevices.h"

#if defined(Q_OS_LINUX)
#include <QDebug>
#include <QScopeGuard>

#include <fcntl.h>
#include <libudev.h>
#include <linux/hidraw.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

QString selectConsoleLibrary(const QList<HidDeviceInfo>& devices)
{
    for (const HidDeviceInfo& device : devices) {
        if (device.vendorId != consoleVendorId)
            continue;
        if (device.productId == glowEngineProductId)
            return QStringLiteral("glowEngine");
        if (device.productId == glowproEngineProductId)
            return QStringLiteral("glowproEngine");
    }
    return {};
}

#if defined(Q_OS_LINUX)

namespace {

// The USB release number (bcdDevice) of the device a hidraw node belongs to.
quint16 usbVersionNumber(udev_device* hidraw)
{
    udev_device* usb = udev_device_get_parent_with_subsystem_devtype(hidraw, "usb", "usb_device");
    const char* bcd = usb ? udev_device_get_sysattr_value(usb, "bcdDevice") : nullptr;
    return bcd ? static_cast<quint16>(QByteArray(bcd).toUShort(nullptr, 16)) : 0;
}

// Opens the node as the engine would (read and write); a node that cannot be
// opened is of no use to the program and is left out.
bool readIds(const char* node, HidDeviceInfo& info)
{
    const int fd = ::open(node, O_RDWR | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    hidraw_devinfo raw{};
    const bool ok = ::ioctl(fd, HIDIOCGRAWINFO, &raw) >= 0;
    ::close(fd);
    if (!ok)
        return false;
    info.vendorId = static_cast<quint16>(raw.vendor);
    info.productId = static_cast<quint16>(raw.product);
    return true;
}

} // namespace

QList<HidDeviceInfo> scanHidDevices()
{
    QList<HidDeviceInfo> devices;
    udev* context = udev_new();
    if (!context)
        return devices;
    auto releaseContext = qScopeGuard([context] { udev_unref(context); });
    udev_enumerate* enumerate = udev_enumerate_new(context);
    if (!enumerate)
        return devices;
    auto releaseEnumerate = qScopeGuard([enumerate] { udev_enumerate_unref(enumerate); });
    udev_enumerate_add_match_subsystem(enumerate, "hidraw");
    if (udev_enumerate_scan_devices(enumerate) < 0)
        return devices;

    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate))
    {
        udev_device* device =
            udev_device_new_from_syspath(context, udev_list_entry_get_name(entry));
        if (!device)
            continue;
        const char* node = udev_device_get_devnode(device);
        HidDeviceInfo info;
        if (node && readIds(node, info)) {
            info.path = QString::fromLocal8Bit(node);
            info.versionNumber = usbVersionNumber(device);
            devices.append(info);
        }
        udev_device_unref(device);
    }
    return devices;
}

#else
// No HID enumeration here yet (Windows needs its SetupAPI scan): the dialog is always shown.

QList<HidDeviceInfo> scanHidDevices()
{
    return {};
}

#endif
