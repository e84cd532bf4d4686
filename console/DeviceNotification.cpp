// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceNotification.h"

#include "HidDeviceInfo.h"

#include <QDebug>
#include <QList>
#include <QUuid>

#if defined(Q_OS_LINUX)
#include <QSocketNotifier>

#include <libudev.h>

struct DeviceNotification::Watch
{
    udev* context = nullptr;
    udev_monitor* monitor = nullptr;
    std::unique_ptr<QSocketNotifier> notifier;

    ~Watch()
    {
        notifier.reset();
        if (monitor)
            udev_monitor_unref(monitor);
        if (context)
            udev_unref(context);
    }
};
#elif defined(Q_OS_WIN)
#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <windows.h>
// windows.h first: dbt.h builds on its types.
#include <dbt.h>

// The registration handle and the application's native event filter that
// turns the device-change message into a removal report.
struct DeviceNotification::Watch : QAbstractNativeEventFilter
{
    DeviceNotification* owner = nullptr;
    HDEVNOTIFY handle = nullptr;

    ~Watch() override
    {
        if (QCoreApplication* app = QCoreApplication::instance())
            app->removeNativeEventFilter(this);
        if (handle)
            UnregisterDeviceNotification(handle);
    }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override
    {
        if (type != "windows_generic_MSG")
            return false;
        const MSG* msg = static_cast<const MSG*>(message);
        if (msg->message == WM_DEVICECHANGE && msg->wParam == DBT_DEVICEREMOVECOMPLETE) {
            const auto* header = reinterpret_cast<const DEV_BROADCAST_HDR*>(msg->lParam);
            if (header && header->dbch_devicetype == DBT_DEVTYP_DEVICEINTERFACE)
                owner->reportRemoval();
        }
        // Every message goes on to Qt, this one included.
        return false;
    }
};
#else
struct DeviceNotification::Watch
{
};
#endif

DeviceNotification::DeviceNotification(std::function<void()> consoleRemoved, QObject* parent)
    : QObject(parent), m_consoleRemoved(std::move(consoleRemoved))
{
}

DeviceNotification::~DeviceNotification()
{
    unregisterDeviceNotification();
}

bool DeviceNotification::isRegistered() const
{
    return m_watch != nullptr;
}

void DeviceNotification::unregisterDeviceNotification()
{
    m_watch.reset();
}

void DeviceNotification::reportRemoval()
{
    if (m_consoleRemoved)
        m_consoleRemoved();
}

bool DeviceNotification::isConsoleRemoval(const QByteArray& action, const QByteArray& hidId)
{
    if (action != "remove")
        return false;
    const QList<QByteArray> fields = hidId.split(':');
    if (fields.size() != 3)
        return false;
    bool vendorOk = false;
    bool productOk = false;
    const uint vendor = fields.at(1).toUInt(&vendorOk, 16);
    const uint product = fields.at(2).toUInt(&productOk, 16);
    return vendorOk && productOk && vendor == consoleVendorId &&
           (product == glowEngineProductId || product == glowproEngineProductId);
}

#if defined(Q_OS_LINUX)

bool DeviceNotification::registerDeviceNotification(quintptr, const QString& classGuid)
{
    unregisterDeviceNotification();
    // udev knows no interface classes: the class stands for the console's
    // own interfaces, which isConsoleRemoval() recognises by their ids.
    if (QUuid::fromString(classGuid).isNull())
        return false;
    auto watch = std::make_unique<Watch>();
    watch->context = udev_new();
    if (!watch->context)
        return false;
    watch->monitor = udev_monitor_new_from_netlink(watch->context, "udev");
    if (!watch->monitor ||
        udev_monitor_filter_add_match_subsystem_devtype(watch->monitor, "hid", nullptr) < 0 ||
        udev_monitor_enable_receiving(watch->monitor) < 0) {
        qDebug("USB removal monitoring is not available");
        return false;
    }
    const int fd = udev_monitor_get_fd(watch->monitor);
    watch->notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    connect(watch->notifier.get(), &QSocketNotifier::activated, this,
            &DeviceNotification::readEvents);
    m_watch = std::move(watch);
    return true;
}

void DeviceNotification::readEvents()
{
    if (!m_watch)
        return;
    while (udev_device* device = udev_monitor_receive_device(m_watch->monitor)) {
        const QByteArray action = udev_device_get_action(device);
        const QByteArray hidId = udev_device_get_property_value(device, "HID_ID");
        udev_device_unref(device);
        if (isConsoleRemoval(action, hidId))
            reportRemoval();
    }
}

#elif defined(Q_OS_WIN)

bool DeviceNotification::registerDeviceNotification(quintptr windowHandle, const QString& classGuid)
{
    unregisterDeviceNotification();
    const QUuid interfaceClass = QUuid::fromString(classGuid);
    if (interfaceClass.isNull() || !windowHandle)
        return false;
    DEV_BROADCAST_DEVICEINTERFACE_W filter{};
    filter.dbcc_size = sizeof(filter);
    filter.dbcc_devicetype = DBT_DEVTYP_DEVICEINTERFACE;
    filter.dbcc_classguid = static_cast<GUID>(interfaceClass);
    HDEVNOTIFY handle = RegisterDeviceNotificationW(reinterpret_cast<HWND>(windowHandle), &filter,
                                                    DEVICE_NOTIFY_WINDOW_HANDLE);
    if (!handle)
        return false;
    auto watch = std::make_unique<Watch>();
    watch->owner = this;
    watch->handle = handle;
    QCoreApplication::instance()->installNativeEventFilter(watch.get());
    m_watch = std::move(watch);
    return true;
}

void DeviceNotification::readEvents() {}

#else
// No removal source on this platform: removals are not reported.

bool DeviceNotification::registerDeviceNotification(quintptr, const QString&)
{
    return false;
}

void DeviceNotification::readEvents() {}

#endif
