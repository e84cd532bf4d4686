// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataRows.h"
#include "DeviceNotification.h"
#include "ScanHidDevices.h"

#include <QtTest>

Q_DECLARE_METATYPE(QList<HidDeviceInfo>)

class TestUsbDetection : public QObject
{
    Q_OBJECT

private slots:
    void selection_data();
    void selection();
    void removal_data();
    void removal();
    void registrationNeedsAClassGuid();
};

void TestUsbDetection::selection_data()
{
    addColumns<QList<HidDeviceInfo>, QString>({"devices", "library"});
    const auto device = [](quint16 vendor, quint16 product) {
        return HidDeviceInfo{QStringLiteral("/dev/hidraw0"), vendor, product, 0x0100};
    };
    const HidDeviceInfo glow = device(consoleVendorId, 0x0200);
    const HidDeviceInfo pro = device(consoleVendorId, 0x0201);
    QTest::newRow("glow first decides") << QList<HidDeviceInfo>{glow, pro} << "glowEngine";
    QTest::newRow("pro first decides") << QList<HidDeviceInfo>{pro, glow} << "glowproEngine";
    QTest::newRow("maker's other product skipped")
        << QList<HidDeviceInfo>{device(consoleVendorId, 0x0202), pro} << "glowproEngine";
    QTest::newRow("another vendor") << QList<HidDeviceInfo>{device(0x046D, 0x0200)} << QString();
}

void TestUsbDetection::selection()
{
    auto [devices, library] = fetch<QList<HidDeviceInfo>, QString>({"devices", "library"});
    QCOMPARE(selectConsoleLibrary(devices), library);
}

void TestUsbDetection::removal_data()
{
    addColumns<QByteArray, QByteArray, bool>({"action", "hidId", "console"});
    const QByteArray id = "0003:" + QByteArray::number(consoleVendorId, 16).rightJustified(8, '0');
    QTest::newRow("glow console removed") << QByteArray("remove") << id + ":00000200" << true;
    QTest::newRow("pro console, upper-case hex")
        << QByteArray("remove") << id.toUpper() + ":00000201" << true;
    QTest::newRow("arrival") << QByteArray("add") << id + ":00000200" << false;
    QTest::newRow("another vendor")
        << QByteArray("remove") << QByteArray("0003:0000046D:00000200") << false;
}

void TestUsbDetection::removal()
{
    auto [action, hidId, console] =
        fetch<QByteArray, QByteArray, bool>({"action", "hidId", "console"});
    QCOMPARE(DeviceNotification::isConsoleRemoval(action, hidId), console);
}

void TestUsbDetection::registrationNeedsAClassGuid()
{
    DeviceNotification notification([] {});
    QVERIFY(!notification.registerDeviceNotification(0, QStringLiteral("not a class")));
    QVERIFY(!notification.isRegistered());
}

QTEST_GUILESS_MAIN(TestUsbDetection)
#include "tst_usb_detection.moc"
