// SPDX-License-Identifier: GPL-3.0-or-later
// The console pictures of the console type dialog, the program's logo and the
// background texture of every view.
#include "IconKit.h"
#include "ImageCatalogue.h"

#include <QLinearGradient>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <QtMath>

#include <vector>

using namespace IconKit;
using Enc = ImageCatalogue::Encoding;

namespace {

struct ConsoleLook
{
    const char* name;
    int faders;    // playback faders in the front row
    bool lcd;      // a display with soft keys
    bool wheels;   // two encoder wheels beside the display
    int keyRows;   // rows of keys above the faders
    QColor accent; // the model's colour stripe
};

void drawFader(QPainter& p, qreal x, qreal top, qreal length, qreal pos)
{
    p.fillRect(QRectF(x - 0.75, top, 1.5, length), QColor(12, 12, 12));
    const qreal y = top + (1 - pos) * (length - 6);
    QLinearGradient cap(0, y, 0, y + 6);
    cap.setColorAt(0, QColor(215, 215, 215));
    cap.setColorAt(1, QColor(120, 120, 120));
    p.setPen(Qt::NoPen);
    p.setBrush(cap);
    p.drawRoundedRect(QRectF(x - 2.6, y, 5.2, 6), 1, 1);
    p.fillRect(QRectF(x - 2.6, y + 2.6, 5.2, 0.8), QColor(40, 40, 40));
}

void drawKey(QPainter& p, const QRectF& r, const QColor& led)
{
    QLinearGradient key(0, r.top(), 0, r.bottom());
    key.setColorAt(0, QColor(112, 112, 116));
    key.setColorAt(1, QColor(70, 70, 74));
    p.setPen(QPen(QColor(20, 20, 20), 0.6));
    p.setBrush(key);
    p.drawRoundedRect(r, 1.2, 1.2);
    if (led.isValid()) {
        p.setPen(Qt::NoPen);
        p.setBrush(led);
        p.drawEllipse(QPointF(r.center().x(), r.top() - 2), 0.9, 0.9);
    }
}

void drawConsole(QPainter& p, const QSizeF& s, const ConsoleLook& look)
{
    const QRectF desk(10, 12, s.width() - 20, s.height() - 44);
    // Soft shadow on the white dialog.
    for (int i = 6; i > 0; --i) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 10));
        p.drawRoundedRect(desk.adjusted(-i + 2, -i + 4, i + 2, i + 4), 8 + i, 8 + i);
    }
    QLinearGradient shell(0, desk.top(), 0, desk.bottom());
    shell.setColorAt(0, QColor(72, 74, 78));
    shell.setColorAt(1, QColor(34, 35, 38));
    p.setBrush(shell);
    p.setPen(QPen(QColor(18, 18, 20), 1.0));
    p.drawRoundedRect(desk, 7, 7);
    // Brushed top plate and the model's colour stripe.
    const QRectF plate = desk.adjusted(5, 5, -5, -5);
    p.setBrush(QColor(44, 45, 49));
    p.setPen(QPen(QColor(90, 92, 96), 0.8));
    p.drawRoundedRect(plate, 4, 4);
    p.fillRect(QRectF(plate.left() + 4, plate.top() + 3, plate.width() - 8, 2), look.accent);

    qreal top = plate.top() + 9;
    if (look.lcd) {
        const QRectF lcd(plate.left() + 8, top, plate.width() * 0.42, 22);
        QLinearGradient glow(0, lcd.top(), 0, lcd.bottom());
        glow.setColorAt(0, QColor(120, 190, 255));
        glow.setColorAt(1, QColor(40, 100, 200));
        p.setPen(QPen(QColor(10, 10, 10), 1.2));
        p.setBrush(glow);
        p.drawRect(lcd);
        p.setPen(QPen(QColor(225, 240, 255, 200), 0.8));
        for (int l = 0; l < 3; ++l)
            p.drawLine(QPointF(lcd.left() + 3, lcd.top() + 5 + l * 6),
                       QPointF(lcd.left() + lcd.width() * (0.9 - 0.2 * l), lcd.top() + 5 + l * 6));
        if (look.wheels) {
            for (int w = 0; w < 2; ++w) {
                const QPointF c(lcd.right() + 16 + w * 22, lcd.center().y());
                QRadialGradient wheel(c - QPointF(2, 2), 10);
                wheel.setColorAt(0, QColor(110, 110, 114));
                wheel.setColorAt(1, QColor(20, 20, 22));
                p.setBrush(wheel);
                p.setPen(QPen(QColor(8, 8, 8), 0.8));
                p.drawEllipse(c, 9, 9);
                p.setBrush(QColor(40, 40, 42));
                p.drawEllipse(c + QPointF(3, -3), 2.5, 2.5);
            }
        }
        // Keypad at the right.
        for (int r = 0; r < 3; ++r)
            for (int k = 0; k < 4; ++k)
                drawKey(p, QRectF(plate.right() - 46 + k * 10, top + r * 8, 8, 6), QColor());
        top += 30;
    }
    const QColor ledOn(255, 70, 60);
    const QColor ledOff(70, 30, 30);
    for (int row = 0; row < look.keyRows; ++row) {
        const int keys = look.faders;
        const qreal pitch = (plate.width() - 16) / keys;
        for (int k = 0; k < keys; ++k)
            drawKey(p, QRectF(plate.left() + 8 + k * pitch + pitch * 0.15, top + 3, pitch * 0.7, 5),
                    (k * 7 + row * 3) % 5 == 0 ? ledOn : ledOff);
        top += 10;
    }
    const qreal length = plate.bottom() - top - 6;
    const qreal pitch = (plate.width() - 16) / look.faders;
    for (int f = 0; f < look.faders; ++f) {
        const qreal x = plate.left() + 8 + pitch * (f + 0.5);
        const qreal pos = 0.5 + 0.45 * std::sin(f * 1.7 + look.faders);
        drawFader(p, x, top + 3, length, pos);
    }
    text(p, QRectF(0, s.height() - 30, s.width(), 26), QString::fromLatin1(look.name),
         QStringLiteral("Gillius ADF"), 20, true, QColor(48, 48, 52));
}

void drawGrain(QPainter& p, const QSizeF& s)
{
    // Seamless: low-frequency value noise on a wrapping lattice plus
    // per-pixel grain, both periodic in the tile size.
    const int w = static_cast<int>(s.width());
    const int h = static_cast<int>(s.height());
    QRandomGenerator random(20260101);
    constexpr int lattice = 16;
    std::vector<double> knots(lattice * lattice);
    for (double& k : knots)
        k = random.bounded(1.0);
    auto knot = [&](int x, int y) {
        return knots[static_cast<std::size_t>(((y + lattice) % lattice) * lattice +
                                              (x + lattice) % lattice)];
    };
    auto smooth = [](double t) { return t * t * (3 - 2 * t); };
    QImage tile(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const double fx = double(x) * lattice / w;
            const double fy = double(y) * lattice / h;
            const int ix = int(fx);
            const int iy = int(fy);
            const double tx = smooth(fx - ix);
            const double ty = smooth(fy - iy);
            const double top = knot(ix, iy) * (1 - tx) + knot(ix + 1, iy) * tx;
            const double bottom = knot(ix, iy + 1) * (1 - tx) + knot(ix + 1, iy + 1) * tx;
            const double cloud = top * (1 - ty) + bottom * ty;
            const double grain = random.bounded(1.0) + random.bounded(1.0) - 1.0;
            const int v = qBound(0, int(32 + cloud * 4 + grain * 5), 255);
            tile.setPixel(x, y, qRgb(v, v, v + 2));
        }
    }
    p.drawImage(0, 0, tile);
}

void drawLogo(QPainter& p, const QSizeF& s)
{
    // A spotlight throwing its beam down and to the right, on a graphite tile.
    const QRectF tile(2, 2, s.height() - 4, s.height() - 4);
    QLinearGradient back(0, tile.top(), 0, tile.bottom());
    back.setColorAt(0, QColor(64, 66, 72));
    back.setColorAt(1, QColor(26, 27, 30));
    p.setPen(QPen(QColor(100, 102, 108), 0.8));
    p.setBrush(back);
    p.drawRoundedRect(tile, 5, 5);
    p.setClipRect(tile.adjusted(0.5, 0.5, -0.5, -0.5));
    QPainterPath beam;
    const QPointF lens(tile.left() + 9, tile.top() + 9);
    beam.moveTo(lens + QPointF(-3, 3));
    beam.lineTo(QPointF(tile.left() + 6, tile.bottom() + 2));
    beam.lineTo(QPointF(tile.right() + 2, tile.bottom() + 2));
    beam.lineTo(QPointF(tile.right() + 2, tile.top() + 8));
    beam.lineTo(lens + QPointF(3, -3));
    beam.closeSubpath();
    QRadialGradient light(lens, tile.width() * 1.1);
    light.setColorAt(0, QColor(255, 214, 120, 230));
    light.setColorAt(1, QColor(255, 150, 40, 30));
    p.fillPath(beam, light);
    p.setClipping(false);
    QRadialGradient glow(lens, 6);
    glow.setColorAt(0, QColor(255, 255, 240));
    glow.setColorAt(0.6, QColor(255, 220, 140));
    glow.setColorAt(1, QColor(200, 120, 20));
    p.setPen(QPen(QColor(20, 20, 20), 1.0));
    p.setBrush(glow);
    p.drawEllipse(lens, 5, 5);
}

} // namespace

void addStartupImages(ImageCatalogue& c)
{
    const std::vector<ConsoleLook> looks{
        {"Maple", 12, true, true, 2, QColor(214, 120, 40)},
        {"Birch", 12, false, false, 2, QColor(200, 200, 190)},
        {"Cedar", 24, false, false, 1, QColor(170, 70, 60)},
        {"Alder", 12, false, false, 1, QColor(90, 150, 90)},
    };
    for (const ConsoleLook& look : looks) {
        c.add(QStringLiteral("Startup%1Icon.png").arg(QLatin1String(look.name)), QSize(200, 150),
              Enc::Plain, [look](QPainter& p, const QSizeF& s) { drawConsole(p, s, look); });
    }
    c.add("BrittishGrain.png", QSize(256, 256), Enc::Plain, drawGrain);
    c.add("LumideskLogo.png", QSize(36, 33), Enc::Plain, drawLogo);
}

void addAppIcons(ImageCatalogue& c)
{
    // The logo's tile is drawn for a 33-pixel square: the menu icons scale that
    // square up rather than drawing a second logo that could drift from it.
    constexpr double logoSquare = 33;
    for (const int side : appIconSizes) {
        c.add(QStringLiteral("icons/lumidesk-%1.png").arg(side), QSize(side, side), Enc::Plain,
              [](QPainter& p, const QSizeF& s) {
                  p.scale(s.width() / logoSquare, s.height() / logoSquare);
                  drawLogo(p, QSizeF(logoSquare, logoSquare));
              });
    }
}
