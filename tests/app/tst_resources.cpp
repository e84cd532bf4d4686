// SPDX-License-Identifier: GPL-3.0-or-later
#include "MakeFont.h"
#include "Resources.h"

#include <QApplication>
#include <QFontInfo>
#include <QTemporaryDir>
#include <QtTest>

using Mode = Resources::Image::Mode;
using Id = Resources::Id;

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void pixelModes_data();
    void pixelModes();
    void everyImageIsCompiledIn();
    void dimmedKnobHasHalfTheAlpha();
    void parameterIcon_data();
    void parameterIcon();
    void makeFontSizes_data();
    void makeFontSizes();
    void describedFamiliesResolveToCompiledInFonts_data();
    void describedFamiliesResolveToCompiledInFonts();

private:
    QTemporaryDir m_dir;
    QString m_file;
};

void TestResources::initTestCase()
{
    QVERIFY(m_dir.isValid());
    // One row of known pixels: (R, G, B, A).
    QImage source(6, 1, QImage::Format_ARGB32);
    source.setPixel(0, 0, qRgba(0, 0, 0, 255));     // black
    source.setPixel(1, 0, qRgba(50, 50, 50, 255));  // l = 50: below the key
    source.setPixel(2, 0, qRgba(51, 51, 51, 255));  // l = 51: kept
    source.setPixel(3, 0, qRgba(255, 0, 0, 255));   // l = 87: kept, red
    source.setPixel(4, 0, qRgba(0, 0, 255, 255));   // l = 39: keyed although bright blue
    source.setPixel(5, 0, qRgba(64, 200, 10, 128)); // half transparent
    m_file = m_dir.filePath(QStringLiteral("known.png"));
    QVERIFY(source.save(m_file));
}

void TestResources::pixelModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<int>("x");
    QTest::addColumn<uint>("expected");

    QTest::newRow("opaque: black stays black") << 0 << 255 << 0 << uint(qRgba(0, 0, 0, 255));
    QTest::newRow("opaque: translucent pixel made opaque, colour kept")
        << 0 << 255 << 5 << uint(qRgba(64, 200, 10, 255));
    QTest::newRow("key: black vanishes") << 1 << 255 << 0 << uint(qRgba(0, 0, 0, 0));
    QTest::newRow("key: luminance 50 vanishes") << 1 << 255 << 1 << uint(qRgba(50, 50, 50, 0));
    QTest::newRow("key: luminance 51 kept") << 1 << 255 << 2 << uint(qRgba(51, 51, 51, 255));
    QTest::newRow("key: red kept with given alpha") << 1 << 100 << 3 << uint(qRgba(255, 0, 0, 100));
    QTest::newRow("key: pure blue is dark by weight") << 1 << 255 << 4 << uint(qRgba(0, 0, 255, 0));
    QTest::newRow("key: alpha replaced, not scaled")
        << 1 << 100 << 5 << uint(qRgba(64, 200, 10, 100));
    QTest::newRow("grey: black is opaque black") << 2 << 255 << 0 << uint(qRgba(0, 0, 0, 255));
    QTest::newRow("grey: red is transparent") << 2 << 255 << 3 << uint(qRgba(0, 0, 0, 0));
    QTest::newRow("grey: green becomes the grey, alpha from red")
        << 2 << 255 << 5 << uint(qRgba(200, 200, 200, 191));
    QTest::newRow("grey: alpha scaled by the given alpha")
        << 2 << 128 << 5 << uint(qRgba(200, 200, 200, 191 * 128 / 255));
    QTest::newRow("grey: blue is ignored") << 2 << 255 << 4 << uint(qRgba(0, 0, 0, 255));
}

void TestResources::pixelModes()
{
    QFETCH(int, mode);
    QFETCH(int, alpha);
    QFETCH(int, x);
    QFETCH(uint, expected);
    const Resources::Image image(m_file, nullptr, static_cast<Mode>(mode), alpha);
    QVERIFY(!image.isNull());
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    const QRgb got = image.pixel(x, 0);
    QCOMPARE(QColor::fromRgba(got), QColor::fromRgba(expected));
}

void TestResources::everyImageIsCompiledIn()
{
    const Resources resources;
    for (int i = 0; i < Resources::imageCount; ++i) {
        const auto id = static_cast<Id>(i);
        QVERIFY2(!resources.image(id).isNull(), qPrintable(Resources::fileName(id)));
    }
    QCOMPARE(Resources::fileName(Id::ParamANarrow),
             QStringLiteral(":/Lumidesk/Resources/ParamA Narrow.png"));
    QCOMPARE(Resources::fileName(Id::Macro3), QStringLiteral(":/Lumidesk/Resources/Macro3.png"));
    // Sizes the items are laid out for.
    QCOMPARE(resources.image(Id::FaderKnobDark).size(), QSize(33, 55));
    QCOMPARE(resources.image(Id::WheelBase).size(), QSize(82, 82));
    QCOMPARE(resources.image(Id::WheelDip).size(), QSize(37, 37));
    QVERIFY(resources.image(Id::Wheel1).width() <= 22);
}

void TestResources::dimmedKnobHasHalfTheAlpha()
{
    const Resources resources;
    const QImage& dim = resources.image(Id::FaderKnobDarkDimmed);
    const QImage& full = resources.image(Id::FaderKnobDark);
    QCOMPARE(dim.size(), full.size());
    const QPoint centre(full.width() / 2, full.height() / 2);
    QCOMPARE(qAlpha(full.pixel(centre)), 255);
    QCOMPARE(qAlpha(dim.pixel(centre)), 128);
    QCOMPARE(qGreen(dim.pixel(centre)), qGreen(full.pixel(centre)));
}

void TestResources::parameterIcon_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<int>("icon"); // -1: none

    QTest::newRow("colour mix has none") << 0 << -1;
    QTest::newRow("pan has none") << 1 << -1;
    QTest::newRow("colour mix 4 has none") << 4 << -1;
    QTest::newRow("5 colour wheel 1") << 5 << int(Id::Wheel1);
    QTest::newRow("8 colour effect") << 8 << int(Id::ColorEff);
    QTest::newRow("9 shutter") << 9 << int(Id::Shutter);
    QTest::newRow("11 beam 2") << 11 << int(Id::Beam2);
    QTest::newRow("12 gobo select") << 12 << int(Id::GoboSel);
    QTest::newRow("15 gobo mode") << 15 << int(Id::GoboMode);
    QTest::newRow("16 second wheel shares gobo select") << 16 << int(Id::GoboSel);
    QTest::newRow("17 second wheel shares gobo index") << 17 << int(Id::GoboInd);
    QTest::newRow("19 second wheel shares gobo mode") << 19 << int(Id::GoboMode);
    QTest::newRow("20 zoom") << 20 << int(Id::Zoom);
    QTest::newRow("23 frost") << 23 << int(Id::Frost);
    QTest::newRow("24 user 1") << 24 << int(Id::User1);
    QTest::newRow("31 user 8") << 31 << int(Id::User8);
    QTest::newRow("33 FX1 mod") << 33 << int(Id::FX1Mod);
    QTest::newRow("35 FX2 mod") << 35 << int(Id::FX2Mod);
    QTest::newRow("36 shutter 1a") << 36 << int(Id::Shutter1a);
    QTest::newRow("39 shutter 2b") << 39 << int(Id::Shutter2b);
    QTest::newRow("43 shutter 4b") << 43 << int(Id::Shutter4b);
    QTest::newRow("44 rotate") << 44 << int(Id::Rotate);
    QTest::newRow("47 macro 3") << 47 << int(Id::Macro3);
    QTest::newRow("48 pan fine has none") << 48 << -1;
    QTest::newRow("negative has none") << -1 << -1;
}

void TestResources::parameterIcon()
{
    QFETCH(int, parameter);
    QFETCH(int, icon);
    static const Resources resources;
    const Resources::Image* image = resources.parameterIcon(parameter);
    if (icon < 0) {
        QCOMPARE(image, nullptr);
        return;
    }
    QCOMPARE(image, &resources.image(static_cast<Id>(icon)));
}

void TestResources::makeFontSizes_data()
{
    QTest::addColumn<double>("points");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("pixels");
    QTest::newRow("12 pt") << 12.0 << false << 16;
    QTest::newRow("10 pt truncates 13.33") << 10.0 << false << 13;
    QTest::newRow("11 pt bold truncates 14.67") << 11.0 << true << 14;
    QTest::newRow("6 pt") << 6.0 << false << 8;
}

void TestResources::makeFontSizes()
{
    QFETCH(double, points);
    QFETCH(bool, bold);
    QFETCH(int, pixels);
    const QFont font = makeFont(QStringLiteral("Gill Sans MT"), points, bold);
    QCOMPARE(font.pixelSize(), pixels);
    QCOMPARE(font.weight(), bold ? QFont::Bold : QFont::Normal);
    QCOMPARE(font.family(), QStringLiteral("Gill Sans MT"));
}

void TestResources::describedFamiliesResolveToCompiledInFonts_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("resolved");
    QTest::newRow("Gill Sans MT") << "Gill Sans MT"
                                  << "Gillius ADF";
    QTest::newRow("Courier New") << "Courier New"
                                 << "Liberation Mono";
    QTest::newRow("Verdana") << "Verdana"
                             << "DejaVu Sans";
}

void TestResources::describedFamiliesResolveToCompiledInFonts()
{
    QFETCH(QString, family);
    QFETCH(QString, resolved);
    static const int installed = installApplicationFonts();
    QCOMPARE(installed, 6);
    for (bool bold : {false, true}) {
        const QFontInfo info(makeFont(family, 12, bold));
        QCOMPARE(info.family(), resolved);
        QCOMPARE(info.bold(), bold);
    }
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
