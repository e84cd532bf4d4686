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
#elif defined(Q_OS_WIN)
#include <windows.h>
// windows.h first: the HID and SetupAPI headers build on its types.
#include <hidsdi.h>
#include <setupapi.h>

#include <vector>
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

#elif defined(Q_OS_WIN)

namespace {

// Opens the interface exclusively for reading and writing, as the engine will;
// a busy device (the console opened elsewhere) is left out.
bool readAttributes(const wchar_t* path, HidDeviceInfo& info)
{
    HANDLE device = CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (device == INVALID_HANDLE_VALUE)
        return false;
    HIDD_ATTRIBUTES attributes{};
    attributes.Size = sizeof(attributes);
    const bool ok = HidD_GetAttributes(device, &attributes);
    CloseHandle(device);
    if (!ok)
        return false;
    info.vendorId = attributes.VendorID;
    info.productId = attributes.ProductID;
    info.versionNumber = attributes.VersionNumber;
    return true;
}

} // namespace

QList<HidDeviceInfo> scanHidDevices()
{
    QList<HidDeviceInfo> devices;
    GUID hidClass;
    HidD_GetHidGuid(&hidClass);
    HDEVINFO set =
        SetupDiGetClassDevsW(&hidClass, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    if (set == INVALID_HANDLE_VALUE)
        return devices;
    SP_DEVICE_INTERFACE_DATA interfaceData{};
    interfaceData.cbSize = sizeof(interfaceData);
    for (DWORD index = 0;
         SetupDiEnumDeviceInterfaces(set, nullptr, &hidClass, index, &interfaceData); ++index) {
        DWORD needed = 0;
        SetupDiGetDeviceInterfaceDetailW(set, &interfaceData, nullptr, 0, &needed, nullptr);
        if (needed < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W))
            continue;
        std::vector<BYTE> buffer(needed, 0);
        auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer.data());
        detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
        if (!SetupDiGetDeviceInterfaceDetailW(set, &interfaceData, detail, needed, nullptr,
                                              nullptr))
            continue;
        HidDeviceInfo info;
        if (readAttributes(detail->DevicePath, info)) {
            info.path = QString::fromWCharArray(detail->DevicePath);
            devices.append(info);
        }
    }
    SetupDiDestroyDeviceInfoList(set);
    return devices;
}

#else
// No HID enumeration on this platform: the dialog is always shown.

QList<HidDeviceInfo> scanHidDevices()
{
    return {};
}

#endif
