// SPDX-License-Identifier: GPL-3.0-or-later
#include "EffectImages.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <cmath>
#include <cstring>
#include <functional>
#include <vector>

namespace {

using Enc = ImageCatalogue::Encoding;
using Curve = std::function<QPointF(double)>; // t in [0, 1) to a point in [-1, 1]²
using Wave = std::function<double(double)>;   // t in [0, 1) to a level in [0, 1]

constexpr double pi = 3.14159265358979323846;
const QSize pictureSize(40, 40);

QPointF polygonPoint(const std::vector<QPointF>& corners, double t)
{
    const double at = t * double(corners.size());
    const size_t i = size_t(at) % corners.size();
    const double f = at - std::floor(at);
    const QPointF& a = corners[i];
    const QPointF& b = corners[(i + 1) % corners.size()];
    return a + (b - a) * f;
}

std::vector<QPointF> starCorners(int points, int skip)
{
    std::vector<QPointF> corners;
    for (int k = 0; k < points; ++k) {
        const double angle = -pi / 2 + 2 * pi * k * skip / points;
        corners.emplace_back(std::cos(angle), std::sin(angle));
    }
    return corners;
}

void drawCurve(QPainter& p, const QSizeF& s, const Curve& curve)
{
    QPainterPath path;
    const double r = s.width() / 2 - 4;
    const QPointF centre(s.width() / 2, s.height() / 2);
    constexpr int samples = 400;
    for (int i = 0; i <= samples; ++i) {
        const QPointF at = centre + curve(double(i % samples) / samples) * r;
        i == 0 ? path.moveTo(at) : path.lineTo(at);
    }
    p.setPen(QPen(QColor(120, 220, 255), 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
    // Where the movement starts.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255));
    p.drawEllipse(centre + curve(0) * r, 2.6, 2.6);
}

void drawWave(QPainter& p, const QSizeF& s, const Wave& wave)
{
    const double left = 3, right = s.width() - 3, top = 7, bottom = s.height() - 7;
    p.setPen(QPen(QColor(110, 110, 110), 1));
    p.drawLine(QPointF(left, bottom + 1), QPointF(right, bottom + 1));
    QPainterPath path;
    constexpr int samples = 340;
    for (int i = 0; i <= samples; ++i) {
        const double t = double(i) / samples;
        const QPointF at(left + t * (right - left), bottom - wave(t) * (bottom - top));
        i == 0 ? path.moveTo(at) : path.lineTo(at);
    }
    p.setPen(QPen(QColor(255, 214, 90), 1.7, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
}

void drawColours(QPainter& p, const QSizeF& s, const std::vector<QColor>& colours, bool blend)
{
    const QRectF band(3, 6, s.width() - 6, s.height() - 12);
    p.setPen(Qt::NoPen);
    if (blend) {
        QLinearGradient gradient(band.topLeft(), band.topRight());
        for (size_t i = 0; i < colours.size(); ++i)
            gradient.setColorAt(double(i) / double(colours.size() - 1), colours[i]);
        p.setBrush(gradient);
        p.drawRoundedRect(band, 3, 3);
    } else {
        const double w = band.width() / double(colours.size());
        for (size_t i = 0; i < colours.size(); ++i) {
            p.setBrush(colours[i]);
            p.drawRect(QRectF(band.left() + double(i) * w, band.top(), w + 0.5, band.height()));
        }
    }
    p.setPen(QPen(QColor(230, 230, 230), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(band.adjusted(-0.5, -0.5, 0.5, 0.5), 3, 3);
}

// A fixed pseudo-random series, so that every run draws the same picture.
double noise(int i)
{
    unsigned x = unsigned(i) * 2654435761u + 12345u;
    x ^= x >> 13;
    x *= 1274126177u;
    x ^= x >> 16;
    return double(x % 1000) / 999.0;
}

void addShapes(ImageCatalogue& c)
{
    const auto circle = [](double t) {
        return QPointF(std::cos(2 * pi * t), std::sin(2 * pi * t));
    };
    const auto rose = [](int petals, double inner) {
        return [petals, inner](double t) {
            const double a = 2 * pi * t;
            const double r = inner + (1 - inner) * std::fabs(std::cos(petals * a / 2.0));
            return QPointF(r * std::cos(a), r * std::sin(a));
        };
    };
    const std::vector<std::pair<const char*, Curve>> shapes = {
        {"Circle", circle},
        {"Square",
         [](double t) {
             return polygonPoint({{-0.85, -0.85}, {0.85, -0.85}, {0.85, 0.85}, {-0.85, 0.85}}, t);
         }},
        {"Infinity",
         [](double t) {
             const double a = 2 * pi * t;
             return QPointF(std::sin(a), 0.6 * std::sin(2 * a));
         }},
        {"Lissajou",
         [](double t) {
             const double a = 2 * pi * t;
             return QPointF(std::sin(3 * a), std::sin(2 * a));
         }},
        {"Clover", rose(3, 0.0)},
        {"Flower", rose(8, 0.45)},
        {"Triangle", [](double t) { return polygonPoint(starCorners(3, 1), t); }},
        {"Harmonics",
         [](double t) {
             const double a = 2 * pi * t;
             return QPointF((std::cos(a) + 0.5 * std::cos(3 * a)) / 1.5,
                            (std::sin(a) + 0.5 * std::sin(5 * a)) / 1.5);
         }},
        {"Noise",
         [](double t) {
             const double a = 2 * pi * t;
             return QPointF(0.6 * std::sin(a) + 0.4 * std::sin(7 * a + 1),
                            0.6 * std::sin(2 * a + 0.5) + 0.4 * std::sin(5 * a + 2));
         }},
        {"Pentacle", [](double t) { return polygonPoint(starCorners(5, 2), t); }},
        {"Skating",
         [](double t) {
             const double a = 2 * pi * t;
             return QPointF((std::cos(a) + 0.35 * std::cos(4 * a)) / 1.35,
                            (std::sin(a) - 0.35 * std::sin(4 * a)) / 1.35);
         }},
    };
    for (const auto& [name, curve] : shapes) {
        c.add(QStringLiteral("Shape%1.png").arg(QLatin1String(name)), pictureSize, Enc::Plain,
              [curve = curve](QPainter& p, const QSizeF& s) { drawCurve(p, s, curve); });
    }
}

void addLinears(ImageCatalogue& c)
{
    const auto pulses = [](const char* pattern) {
        return [pattern](double t) {
            const int n = int(std::strlen(pattern));
            return pattern[std::min(int(t * n), n - 1)] == '1' ? 1.0 : 0.0;
        };
    };
    const std::vector<std::pair<const char*, Wave>> waves = {
        {"Morse", pulses("1010100111011101110010101000")},
        {"Strobe", [](double t) { return std::fmod(t * 6, 1.0) < 0.15 ? 1.0 : 0.0; }},
        {"Flicker", [](double t) { return 0.25 + 0.75 * noise(int(t * 24)); }},
        {"On Off", [](double t) { return std::fmod(t * 2, 1.0) < 0.5 ? 1.0 : 0.0; }},
        {"Wander",
         [](double t) {
             return 0.5 + 0.3 * std::sin(2 * pi * t * 1.3) + 0.18 * std::sin(2 * pi * t * 3.7 + 1);
         }},
        {"Sparkle",
         [](double t) {
             const int slot = int(t * 40);
             return noise(slot + 7) > 0.78 && std::fmod(t * 40, 1.0) < 0.5 ? 1.0 : 0.08;
         }},
        {"Mountain",
         [](double t) {
             const double peaks[4] = {0.6, 1.0, 0.45, 0.8};
             const double x = t * 4;
             const int i = std::min(int(x), 3);
             return peaks[i] * (1 - std::fabs(2 * (x - i) - 1));
         }},
        {"Skyline",
         [](double t) {
             const double blocks[8] = {0.35, 0.7, 0.5, 1.0, 0.25, 0.85, 0.55, 0.4};
             return blocks[std::min(int(t * 8), 7)];
         }},
        {"Saw", [](double t) { return std::fmod(t * 3, 1.0); }},
        {"Cosine", [](double t) { return 0.5 - 0.5 * std::cos(2 * pi * t * 2); }},
        {"Ramp", [](double t) { return t < 0.7 ? t / 0.7 : 1.0; }},
    };
    for (const auto& [name, wave] : waves) {
        c.add(QStringLiteral("Linear%1.png").arg(QLatin1String(name)), pictureSize, Enc::Plain,
              [wave = wave](QPainter& p, const QSizeF& s) { drawWave(p, s, wave); });
    }
}

void addColours(ImageCatalogue& c)
{
    struct Palette
    {
        const char* name;
        std::vector<QColor> colours;
        bool blend;
    };
    std::vector<QColor> rainbow;
    for (int h = 0; h <= 360; h += 60)
        rainbow.push_back(QColor::fromHsv(h % 360, 255, 255));
    std::vector<QColor> freak;
    for (int i = 0; i < 6; ++i)
        freak.push_back(QColor::fromHsv(int(noise(i + 3) * 359), 255, 255));
    const std::vector<Palette> palettes = {
        {"Rainbow", rainbow, true},
        {"Harlequin",
         {QColor(230, 20, 40), QColor(250, 210, 0), QColor(20, 90, 230), QColor(30, 170, 60)},
         false},
        {"Flames",
         {QColor(160, 10, 0), QColor(255, 60, 0), QColor(255, 150, 0), QColor(255, 230, 60)},
         true},
        {"Meadow", {QColor(20, 110, 20), QColor(110, 200, 40), QColor(200, 230, 80)}, true},
        {"Cornfield", {QColor(200, 140, 20), QColor(250, 210, 60), QColor(255, 245, 150)}, true},
        {"Aqua", {QColor(0, 70, 200), QColor(0, 170, 230), QColor(90, 240, 220)}, true},
        {"Royal", {QColor(60, 0, 140), QColor(30, 40, 200), QColor(220, 170, 30)}, true},
        {"Miss Piggy", {QColor(255, 60, 150), QColor(255, 140, 190), QColor(230, 30, 110)}, true},
        {"Freak Out", freak, false},
        {"Secondary", {QColor(0, 255, 255), QColor(255, 0, 255), QColor(255, 255, 0)}, false},
        {"Primary", {QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255)}, false},
    };
    for (const Palette& palette : palettes) {
        c.add(QStringLiteral("Color%1.png").arg(QLatin1String(palette.name)), pictureSize,
              Enc::Plain, [palette](QPainter& p, const QSizeF& s) {
                  drawColours(p, s, palette.colours, palette.blend);
              });
    }
}

} // namespace

void addEffectImages(ImageCatalogue& catalogue)
{
    addShapes(catalogue);
    addLinears(catalogue);
    addColours(catalogue);
}
