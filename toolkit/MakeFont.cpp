// SPDX-License-Identifier: GPL-3.0-or-later
#include "MakeFont.h"

#include <QDebug>
#include <QFontDatabase>

#include <array>

QFont makeFont(const QString& family, double points, bool bold)
{
    QFont font(family);
    font.setPixelSize(static_cast<int>(points * 4.0 / 3.0));
    if (bold)
        font.setWeight(QFont::Bold);
    return font;
}

namespace {

struct FontSubstitute
{
    const char* family;     // the name the program asks for
    const char* substitute; // the free family compiled in for it
};

// The proprietary families cannot be shipped; these free ones take their place.
constexpr std::array<FontSubstitute, 4> substitutes{{
    {"Gill Sans MT", "Gillius ADF"},
    {"Courier New", "Liberation Mono"},
    {"Verdana", "DejaVu Sans"},
    {"System", "DejaVu Sans"}, // the title bar's title
}};

constexpr std::array<const char*, 6> fontFiles{{
    "GilliusADF-Regular.otf",
    "GilliusADF-Bold.otf",
    "LiberationMono-Regular.ttf",
    "LiberationMono-Bold.ttf",
    "DejaVuSans.ttf",
    "DejaVuSans-Bold.ttf",
}};

} // namespace

int installApplicationFonts()
{
    int installed = 0;
    for (const char* file : fontFiles) {
        const QString path = QStringLiteral(":/Lumidesk/Resources/") + QLatin1String(file);
        if (QFontDatabase::addApplicationFont(path) >= 0)
            ++installed;
        else
            qDebug("Font not available: %s", qPrintable(path));
    }
    for (const FontSubstitute& s : substitutes)
        QFont::insertSubstitution(QLatin1String(s.family), QLatin1String(s.substitute));
    return installed;
}
