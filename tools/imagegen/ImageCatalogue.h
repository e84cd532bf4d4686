// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPainter>
#include <QSize>
#include <QString>

#include <functional>
#include <vector>

// Every image the program draws from its resource folder, with the size it is
// drawn at and the code that paints it. Painters draw what the user should
// see (colour and alpha); the catalogue turns that into the form the program's
// loader expects for the image's pixel mode.
class ImageCatalogue
{
public:
    enum class Encoding
    {
        Plain,     // written as painted (alpha kept)
        OverBlack, // painted over black and opaque: the loader keys out the dark pixels
        GreyAlpha, // grey in green and blue, alpha as 255 - red: the loader rebuilds both
    };
    using Painter = std::function<void(QPainter&, const QSizeF&)>;

    struct Entry
    {
        QString file;
        QSize size;
        Encoding encoding;
        Painter paint;
    };

    void add(const QString& file, QSize size, Encoding encoding, Painter paint);
    const std::vector<Entry>& entries() const { return m_entries; }

    // The image as the painter drew it, and as it is stored on disk.
    static QImage render(const Entry& entry);
    static QImage encode(const QImage& painted, Encoding encoding);

private:
    std::vector<Entry> m_entries;
};

// The image sets; each adds its images to the catalogue.
void addSharedImages(ImageCatalogue& catalogue);
void addStartupImages(ImageCatalogue& catalogue);
// The program's icon in the sizes the desktop menus use (hicolor theme).
constexpr int appIconSizes[] = {16, 24, 32, 48, 64, 128, 256};
void addAppIcons(ImageCatalogue& catalogue);
