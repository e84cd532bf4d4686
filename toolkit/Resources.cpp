// SPDX-License-Identifier: GPL-3.0-or-later
#include "Resources.h"

#include <QDebug>

#include <array>

namespace {

using Mode = Resources::Image::Mode;

struct ImageSpec
{
    const char* file;
    Mode mode;
    int alpha;
};

constexpr std::array<ImageSpec, Resources::imageCount> imageSpecs{{
    {"ArrowRight.png", Mode::LuminanceKey, 255},    {"ArrowDown.png", Mode::LuminanceKey, 255},
    {"FaderKnobDark.png", Mode::GreyAlpha, 128},    {"FaderKnobDark.png", Mode::GreyAlpha, 255},
    {"WheelBase.png", Mode::GreyAlpha, 255},        {"WheelDip.png", Mode::GreyAlpha, 255},
    {"ParamA.png", Mode::LuminanceKey, 255},        {"ParamA Narrow.png", Mode::LuminanceKey, 255},
    {"ParamB.png", Mode::LuminanceKey, 255},        {"ParamB Narrow.png", Mode::LuminanceKey, 255},
    {"Trashcan.png", Mode::GreyAlpha, 255},         {"DirectionLeft.png", Mode::LuminanceKey, 255},
    {"DirectionBoth.png", Mode::LuminanceKey, 255}, {"DirectionRight.png", Mode::LuminanceKey, 255},
    {"ClockLarge.png", Mode::LuminanceKey, 255},    {"PanTiltRoom.png", Mode::LuminanceKey, 100},
    {"Wheel1.png", Mode::LuminanceKey, 100},        {"Wheel2.png", Mode::LuminanceKey, 100},
    {"ModCol.png", Mode::LuminanceKey, 100},        {"ColorEff.png", Mode::LuminanceKey, 100},
    {"Beam1.png", Mode::LuminanceKey, 100},         {"Beam2.png", Mode::LuminanceKey, 100},
    {"GoboInd.png", Mode::LuminanceKey, 100},       {"GoboMode.png", Mode::LuminanceKey, 100},
    {"GoboRot.png", Mode::LuminanceKey, 100},       {"GoboSel.png", Mode::LuminanceKey, 100},
    {"Shutter.png", Mode::LuminanceKey, 100},       {"Zoom.png", Mode::LuminanceKey, 100},
    {"Edge.png", Mode::LuminanceKey, 100},          {"Iris.png", Mode::LuminanceKey, 100},
    {"Frost.png", Mode::LuminanceKey, 100},         {"User1.png", Mode::LuminanceKey, 100},
    {"User2.png", Mode::LuminanceKey, 100},         {"User3.png", Mode::LuminanceKey, 100},
    {"User4.png", Mode::LuminanceKey, 100},         {"User5.png", Mode::LuminanceKey, 100},
    {"User6.png", Mode::LuminanceKey, 100},         {"User7.png", Mode::LuminanceKey, 100},
    {"User8.png", Mode::LuminanceKey, 100},         {"FX1.png", Mode::LuminanceKey, 100},
    {"FX1Mod.png", Mode::LuminanceKey, 100},        {"FX2.png", Mode::LuminanceKey, 100},
    {"FX2Mod.png", Mode::LuminanceKey, 100},        {"Shutter 1a.png", Mode::LuminanceKey, 100},
    {"Shutter 1b.png", Mode::LuminanceKey, 100},    {"Shutter 2a.png", Mode::LuminanceKey, 100},
    {"Shutter 2b.png", Mode::LuminanceKey, 100},    {"Shutter 3a.png", Mode::LuminanceKey, 100},
    {"Shutter 3b.png", Mode::LuminanceKey, 100},    {"Shutter 4a.png", Mode::LuminanceKey, 100},
    {"Shutter 4b.png", Mode::LuminanceKey, 100},    {"Rotate.png", Mode::LuminanceKey, 100},
    {"Macro1.png", Mode::LuminanceKey, 100},        {"Macro2.png", Mode::LuminanceKey, 100},
    {"Macro3.png", Mode::LuminanceKey, 100},
}};

QRgb opaque(QRgb p, int)
{
    return qRgba(qRed(p), qGreen(p), qBlue(p), 255);
}

QRgb luminanceKey(QRgb p, int alpha)
{
    const int l = (11 * qRed(p) + 16 * qGreen(p) + 5 * qBlue(p)) >> 5;
    return qRgba(qRed(p), qGreen(p), qBlue(p), l < 51 ? 0 : alpha);
}

QRgb greyAlpha(QRgb p, int alpha)
{
    const int g = qGreen(p);
    return qRgba(g, g, g, (255 - qRed(p)) * alpha / 255);
}

} // namespace

Resources::Image::Image(const QString& fileName, const char* format, Mode mode, int alpha)
{
    const QImage loaded(fileName, format);
    if (loaded.isNull()) {
        qDebug("Image not found: %s", qPrintable(fileName));
        return;
    }
    QImage::operator=(applyMode(loaded, mode, alpha));
}

QImage Resources::Image::applyMode(const QImage& image, Mode mode, int alpha)
{
    QImage out = image.convertToFormat(QImage::Format_ARGB32);
    QRgb (*rewrite)(QRgb, int) = mode == Mode::Opaque         ? opaque
                                 : mode == Mode::LuminanceKey ? luminanceKey
                                                              : greyAlpha;
    for (int y = 0; y < out.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            line[x] = rewrite(line[x], alpha);
    }
    return out;
}

QString Resources::fileName(Id id)
{
    return folder() + QLatin1String(imageSpecs[static_cast<std::size_t>(id)].file);
}

Resources::Resources()
{
    m_images.reserve(imageSpecs.size());
    for (std::size_t i = 0; i < imageSpecs.size(); ++i) {
        const ImageSpec& entry = imageSpecs[i];
        m_images.emplace_back(folder() + QLatin1String(entry.file), nullptr, entry.mode,
                              entry.alpha);
    }
}

int Resources::parameterIconIndex(int parameter)
{
    using I = Resources::Id;
    // Parameters 5 to 47; the two gobo wheels (12-15, 16-19) share their icons.
    constexpr int first = 5;
    constexpr std::array<I, 43> icons{{
        I::Wheel1,    I::Wheel2,    I::ModCol,    I::ColorEff,  I::Shutter,   I::Beam1,
        I::Beam2,     I::GoboSel,   I::GoboInd,   I::GoboRot,   I::GoboMode,  I::GoboSel,
        I::GoboInd,   I::GoboRot,   I::GoboMode,  I::Zoom,      I::Edge,      I::Iris,
        I::Frost,     I::User1,     I::User2,     I::User3,     I::User4,     I::User5,
        I::User6,     I::User7,     I::User8,     I::FX1,       I::FX1Mod,    I::FX2,
        I::FX2Mod,    I::Shutter1a, I::Shutter1b, I::Shutter2a, I::Shutter2b, I::Shutter3a,
        I::Shutter3b, I::Shutter4a, I::Shutter4b, I::Rotate,    I::Macro1,    I::Macro2,
        I::Macro3,
    }};
    if (parameter < first || parameter >= first + static_cast<int>(icons.size()))
        return -1;
    return static_cast<int>(icons[static_cast<std::size_t>(parameter - first)]);
}

const Resources::Image* Resources::parameterIcon(int parameter) const
{
    const int index = parameterIconIndex(parameter);
    return index < 0 ? nullptr : &m_images[static_cast<std::size_t>(index)];
}
