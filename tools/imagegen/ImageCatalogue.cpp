// SPDX-License-Identifier: GPL-3.0-or-later
#include "ImageCatalogue.h"

void ImageCatalogue::add(const QString& file, QSize size, Encoding encoding, Painter paint)
{
    m_entries.push_back({file, size, encoding, std::move(paint)});
}

QImage ImageCatalogue::render(const Entry& entry)
{
    QImage image(entry.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(entry.encoding == Encoding::OverBlack ? Qt::black : Qt::transparent);
    QPainter p(&image);
    p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                     QPainter::SmoothPixmapTransform);
    entry.paint(p, QSizeF(entry.size));
    p.end();
    return image;
}

QImage ImageCatalogue::encode(const QImage& painted, Encoding encoding)
{
    QImage out = painted.convertToFormat(QImage::Format_ARGB32);
    if (encoding == Encoding::Plain)
        return out;
    for (int y = 0; y < out.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            const QRgb p = line[x];
            if (encoding == Encoding::OverBlack) {
                line[x] = qRgb(qRed(p), qGreen(p), qBlue(p));
            } else {
                const int grey = qGray(p);
                line[x] = qRgb(255 - qAlpha(p), grey, grey);
            }
        }
    }
    return out.convertToFormat(QImage::Format_RGB32);
}
