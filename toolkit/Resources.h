// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

#include <vector>

// The shared image set, loaded once at start from the compiled-in resource
// folder by the application and reached through ConsoleLink::resources().
class Resources
{
public:
    // An image whose pixels are rewritten once after loading, so that items
    // can draw it as it is.
    class Image : public QImage
    {
    public:
        enum class Mode
        {
            Opaque = 0,       // alpha 255, colour kept
            LuminanceKey = 1, // dark pixels vanish, the rest get the given alpha
            GreyAlpha = 2,    // grey from green, alpha from the inverted red channel
        };

        Image() = default;
        Image(const QString& fileName, const char* format, Mode mode, int alpha);

        // Rewrites every pixel of image (converted to ARGB32) by mode.
        static QImage applyMode(const QImage& image, Mode mode, int alpha);
    };

    // The images in load order.
    enum class Id
    {
        ArrowRight,
        ArrowDown,
        FaderKnobDarkDimmed,
        FaderKnobDark,
        WheelBase,
        WheelDip,
        ParamA,
        ParamANarrow,
        ParamB,
        ParamBNarrow,
        Trashcan,
        DirectionLeft,
        DirectionBoth,
        DirectionRight,
        ClockLarge,
        PanTiltRoom,
        Wheel1,
        Wheel2,
        ModCol,
        ColorEff,
        Beam1,
        Beam2,
        GoboInd,
        GoboMode,
        GoboRot,
        GoboSel,
        Shutter,
        Zoom,
        Edge,
        Iris,
        Frost,
        User1,
        User2,
        User3,
        User4,
        User5,
        User6,
        User7,
        User8,
        FX1,
        FX1Mod,
        FX2,
        FX2Mod,
        Shutter1a,
        Shutter1b,
        Shutter2a,
        Shutter2b,
        Shutter3a,
        Shutter3b,
        Shutter4a,
        Shutter4b,
        Rotate,
        Macro1,
        Macro2,
        Macro3,
    };
    static constexpr int imageCount = static_cast<int>(Id::Macro3) + 1;

    // Where every compiled-in file lives.
    static QString folder() { return QStringLiteral(":/Lumidesk/Resources/"); }
    // The file an image is loaded from (the dimmed knob shares its file).
    static QString fileName(Id id);

    Resources();

    const Image& image(Id id) const { return m_images[static_cast<std::size_t>(id)]; }
    // The icon of a parameter group in the parameter tables, or null.
    const Image* parameterIcon(int parameter) const;
    // The image that parameterIcon() gives, or -1 when there is none.
    static int parameterIconIndex(int parameter);

private:
    std::vector<Image> m_images;
};
