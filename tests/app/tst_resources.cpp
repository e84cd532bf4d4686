// SPDX-License-Identifier: GPL-3.0-or-later
#include "DataRows.h"
#include "MakeFont.h"
#include "Resources.h"

#include <QFontInfo>
#include <QTemporaryDir>
#include <QtTest>

using Mode = Resources::Image::Mode;
using Id = Resources::Id;

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void pixelModes_data();
    void pixelModes();
    void everyImageLoads();
    void familiesResolveToCompiledInFonts_data();
    void familiesResolveToCompiledInFonts();
};

void TestResources::pixelModes_data()
{
    addColumns<int, int, QRgb, QRgb>({"mode", "alpha", "source", "expected"});
    QTest::newRow("opaque") << 0 << 255 << qRgba(64, 200, 10, 128) << qRgba(64, 200, 10, 255);
    QTest::newRow("key: l 50 vanishes")
        << 1 << 255 << qRgba(50, 50, 50, 255) << qRgba(50, 50, 50, 0);
    QTest::newRow("key: l 51 kept") << 1 << 255 << qRgba(51, 51, 51, 255) << qRgba(51, 51, 51, 255);
    QTest::newRow("key: blue is dark") << 1 << 255 << qRgba(0, 0, 255, 255) << qRgba(0, 0, 255, 0);
    QTest::newRow("key: alpha replaced")
        << 1 << 100 << qRgba(64, 200, 10, 128) << qRgba(64, 200, 10, 100);
    QTest::newRow("grey: red is clear") << 2 << 255 << qRgba(255, 0, 0, 255) << qRgba(0, 0, 0, 0);
    QTest::newRow("grey from green, alpha from red, scaled")
        << 2 << 128 << qRgba(64, 200, 10, 128) << qRgba(200, 200, 200, 191 * 128 / 255);
}

void TestResources::pixelModes()
{
    auto [mode, alpha, source, expected] =
        fetch<int, int, QRgb, QRgb>({"mode", "alpha", "source", "expected"});
    QTemporaryDir folder;
    QImage image(1, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, source);
    const QString file = folder.filePath(QStringLiteral("pixel.png"));
    QVERIFY(image.save(file));
    const Resources::Image loaded(file, nullptr, static_cast<Mode>(mode), alpha);
    QCOMPARE(loaded.format(), QImage::Format_ARGB32);
    QCOMPARE(QColor::fromRgba(loaded.pixel(0, 0)), QColor::fromRgba(expected));
}

void TestResources::everyImageLoads()
{
    const Resources resources;
    for (int i = 0; i < Resources::imageCount; ++i)
        QVERIFY2(!resources.image(Id(i)).isNull(), qPrintable(Resources::fileName(Id(i))));
    // The dimmed knob is the same file at half the alpha.
    const QImage& dim = resources.image(Id::FaderKnobDarkDimmed);
    const QImage& full = resources.image(Id::FaderKnobDark);
    const QPoint centre(full.width() / 2, full.height() / 2);
    QCOMPARE(qAlpha(full.pixel(centre)), 255);
    QCOMPARE(qAlpha(dim.pixel(centre)), 128);
    QCOMPARE(qGreen(dim.pixel(centre)), qGreen(full.pixel(centre)));
}

void TestResources::familiesResolveToCompiledInFonts_data()
{
    // pixels: points * 4 / 3, truncated
    addColumns<QString, QString, double, int>({"family", "resolved", "points", "pixels"});
    QTest::newRow("Gill Sans MT") << "Gill Sans MT"
                                  << "Gillius ADF" << 12.0 << 16;
    QTest::newRow("Courier New") << "Courier New"
                                 << "Liberation Mono" << 10.0 << 13;
    QTest::newRow("Verdana") << "Verdana"
                             << "DejaVu Sans" << 11.0 << 14;
    QTest::newRow("System, the title's") << "System"
                                         << "DejaVu Sans" << 14.0 << 18;
}

void TestResources::familiesResolveToCompiledInFonts()
{
    auto [family, resolved, points, pixels] =
        fetch<QString, QString, double, int>({"family", "resolved", "points", "pixels"});
    static const int installed = installApplicationFonts();
    QCOMPARE(installed, 6);
    // Mapped, not left to whatever the machine falls back to.
    QCOMPARE(QFont::substitute(family).toLower(), resolved.toLower());
    for (bool bold : {false, true}) {
        const QFont font = makeFont(family, points, bold);
        QCOMPARE(font.pixelSize(), pixels);
        QCOMPARE(QFontInfo(font).family(), resolved);
        QCOMPARE(QFontInfo(font).bold(), bold);
    }
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
