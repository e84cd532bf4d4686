// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

// Watches for a console being unplugged while the program runs and calls
// the given function (which tells the engine) on the thread that owns this
// object. Arrivals are not watched.
//
// On Linux the removal comes from udev: a "hid" device whose HID_ID names a
// console. On Windows the registration is bound to the main window and the
// device-change message reaches the application's native event filter.
class DeviceNotification : public QObject
{
    Q_OBJECT

public:
    explicit DeviceNotification(std::function<void()> consoleRemoved, QObject* parent = nullptr);
    ~DeviceNotification() override;

    // Starts watching for removals of device interfaces of the given class on
    // behalf of the window. Returns false (and stays unregistered) when no
    // watch could be set up; the program then runs without removal reports.
    bool registerDeviceNotification(quintptr windowHandle, const QString& classGuid);
    // Stops watching; harmless when not registered.
    void unregisterDeviceNotification();
    bool isRegistered() const;

    // True for a udev event that reports a console's HID interface removed:
    // action "remove" and HID_ID "bus:vendor:product" (hex) with the
    // console maker's vendor id and a console product id.
    static bool isConsoleRemoval(const QByteArray& action, const QByteArray& hidId);

    // Called for every removal report that passed the filter.
    void reportRemoval();

private:
    void readEvents();

    struct Watch;
    std::function<void()> m_consoleRemoved;
    std::unique_ptr<Watch> m_watch;
};
