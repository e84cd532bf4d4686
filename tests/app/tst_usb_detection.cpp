// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeviceNotification.h"
#include "ScanHidDevices.h"

#include <QtTest>

Q_DECLARE_METATYPE(QList<HidDeviceInfo>)

namespace {

HidDeviceInfo device(quint16 vendor, quint16 product, const char* path = "/dev/hidraw0")
{
    return {QString::fromLatin1(path), vendor, product, 0x0100};
}

constexpr quint16 otherVendor = 0x046D;

} // namespace

class TestUsbDetection : public QObject
{
    Q_OBJECT

private slots:
    void selection_data();
    void selection();
    void removal_data();
    void removal();
    void unregisterTwiceIsHarmless();
    void registrationNeedsAClassGuid();
    void scanListsOnlyOpenableHidDevices();
};

void TestUsbDetection::selection_data()
{
    QTest::addColumn<QList<HidDeviceInfo>>("devices");
    QTest::addColumn<QString>("library");

    const HidDeviceInfo glow = device(consoleVendorId, 0x0200, "/dev/hidraw3");
    const HidDeviceInfo pro = device(consoleVendorId, 0x0201, "/dev/hidraw4");
    QTest::newRow("nothing connected") << QList<HidDeviceInfo>{} << QString();
    QTest::newRow("glow console") << QList<HidDeviceInfo>{glow} << "glowEngine";
    QTest::newRow("pro console") << QList<HidDeviceInfo>{pro} << "glowproEngine";
    QTest::newRow("two consoles: glow enumerated first decides")
        << QList<HidDeviceInfo>{glow, pro} << "glowEngine";
    QTest::newRow("two consoles: pro enumerated first decides")
        << QList<HidDeviceInfo>{pro, glow} << "glowproEngine";
    QTest::newRow("maker's device with another product id")
        << QList<HidDeviceInfo>{device(consoleVendorId, 0x0202)} << QString();
    QTest::newRow("unknown product before a console is skipped")
        << QList<HidDeviceInfo>{device(consoleVendorId, 0x0100), pro} << "glowproEngine";
    QTest::newRow("console product id of another vendor")
        << QList<HidDeviceInfo>{device(otherVendor, 0x0200)} << QString();
    QTest::newRow("keyboard and mouse, then a console")
        << QList<HidDeviceInfo>{device(otherVendor, 0xC31C), device(otherVendor, 0xC077), glow}
        << "glowEngine";
}

void TestUsbDetection::selection()
{
    QFETCH(QList<HidDeviceInfo>, devices);
    QFETCH(QString, library);
    QCOMPARE(selectConsoleLibrary(devices), library);
}

void TestUsbDetection::removal_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QByteArray>("hidId");
    QTest::addColumn<bool>("console");

    const QByteArray vendor =
        QByteArray::number(consoleVendorId, 16).rightJustified(8, '0').toUpper();
    QTest::newRow("glow console removed")
        << QByteArray("remove") << "0003:" + vendor + ":00000200" << true;
    QTest::newRow("pro console removed")
        << QByteArray("remove") << "0003:" + vendor + ":00000201" << true;
    QTest::newRow("lower-case hex")
        << QByteArray("remove") << "0003:" + vendor.toLower() + ":00000201" << true;
    QTest::newRow("arrival is not watched")
        << QByteArray("add") << "0003:" + vendor + ":00000200" << false;
    QTest::newRow("driver unbound is not a removal")
        << QByteArray("unbind") << "0003:" + vendor + ":00000200" << false;
    QTest::newRow("maker's other product")
        << QByteArray("remove") << "0003:" + vendor + ":00000202" << false;
    QTest::newRow("another vendor's device")
        << QByteArray("remove") << QByteArray("0003:0000046D:00000200") << false;
    QTest::newRow("no HID id") << QByteArray("remove") << QByteArray() << false;
    QTest::newRow("garbled HID id") << QByteArray("remove") << QByteArray("0003:zz:0200") << false;
}

void TestUsbDetection::removal()
{
    QFETCH(QByteArray, action);
    QFETCH(QByteArray, hidId);
    QFETCH(bool, console);
    QCOMPARE(DeviceNotification::isConsoleRemoval(action, hidId), console);
}

void TestUsbDetection::unregisterTwiceIsHarmless()
{
    int removals = 0;
    DeviceNotification notification([&removals] { ++removals; });
    const bool registered = notification.registerDeviceNotification(
        0, QStringLiteral("{8D7140C7-BCAE-4BE2-A5C2-DFE48EBB759A}"));
    QCOMPARE(notification.isRegistered(), registered);
    notification.unregisterDeviceNotification();
    QVERIFY(!notification.isRegistered());
    notification.unregisterDeviceNotification();
    QVERIFY(!notification.isRegistered());
    QCOMPARE(removals, 0);
}

void TestUsbDetection::registrationNeedsAClassGuid()
{
    DeviceNotification notification([] {});
    QVERIFY(!notification.registerDeviceNotification(0, QStringLiteral("not a class")));
    QVERIFY(!notification.isRegistered());
}

void TestUsbDetection::scanListsOnlyOpenableHidDevices()
{
    // Whatever is plugged in here, every entry is a device node that exists.
    const QList<HidDeviceInfo> devices = scanHidDevices();
    for (const HidDeviceInfo& info : devices) {
        QVERIFY2(QFile::exists(info.path), qPrintable(info.path));
        QVERIFY(info.path.startsWith(QLatin1String("/dev/")));
    }
}

QTEST_GUILESS_MAIN(TestUsbDetection)
#include "tst_usb_detection.moc"
