// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the program's images into the resource folder:
//   lumidesk_imagegen <resource folder> [file name ...]
// With names, only those images are drawn. A contact sheet of everything
// drawn goes to <resource folder>/../build-preview when --sheet FILE is given.
#include "EffectImages.h"
#include "FrontPanelImages.h"
#include "ImageCatalogue.h"
#include "WindowImages.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QTextStream>

namespace {

void loadFonts(const QDir& resources)
{
    for (const QString& file : resources.entryList({"*.ttf", "*.otf"}, QDir::Files))
        QFontDatabase::addApplicationFont(resources.filePath(file));
}

QImage contactSheet(const std::vector<QImage>& images, const QStringList& names)
{
    constexpr int cell = 230;
    constexpr int columns = 6;
    const int rows = (static_cast<int>(images.size()) + columns - 1) / columns;
    QImage sheet(columns * cell, rows * cell, QImage::Format_RGB32);
    sheet.fill(QColor(40, 40, 40));
    QPainter p(&sheet);
    p.setFont(QFont(QStringLiteral("DejaVu Sans"), 8));
    for (std::size_t i = 0; i < images.size(); ++i) {
        const QRect box(static_cast<int>(i % columns) * cell, static_cast<int>(i / columns) * cell,
                        cell, cell);
        QImage img = images[i];
        const int longest = std::max(img.width(), img.height());
        if (longest > cell - 30)
            img = img.scaled(cell - 30, cell - 30, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        else
            img = img.scaled(img.size() * std::min(4, (cell - 30) / longest));
        p.drawImage(box.center() - QPoint(img.width() / 2, img.height() / 2 + 8), img);
        p.setPen(Qt::white);
        p.drawText(box.adjusted(0, 0, 0, -4), Qt::AlignHCenter | Qt::AlignBottom, names[int(i)]);
    }
    return sheet;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    QString sheetFile;
    if (const int at = args.indexOf(QStringLiteral("--sheet")); at >= 0 && at + 1 < args.size()) {
        sheetFile = args.at(at + 1);
        args.remove(at, 2);
    }
    QTextStream err(stderr);
    if (args.isEmpty()) {
        err << "usage: lumidesk_imagegen RESOURCE_FOLDER [--sheet FILE] [FILE_NAME ...]\n";
        return 2;
    }
    const QDir out(args.takeFirst());
    loadFonts(out);

    ImageCatalogue catalogue;
    addSharedImages(catalogue);
    addStartupImages(catalogue);
    addAppIcons(catalogue);
    addWindowImages(catalogue);
    addFrontPanelImages(catalogue);
    addEffectImages(catalogue);

    std::vector<QImage> drawn;
    QStringList names;
    for (const ImageCatalogue::Entry& entry : catalogue.entries()) {
        if (!args.isEmpty() && !args.contains(entry.file))
            continue;
        const QImage painted = ImageCatalogue::render(entry);
        const QImage stored = ImageCatalogue::encode(painted, entry.encoding);
        QDir().mkpath(QFileInfo(out.filePath(entry.file)).path());
        if (!stored.save(out.filePath(entry.file), "PNG")) {
            err << "cannot write " << out.filePath(entry.file) << "\n";
            return 1;
        }
        drawn.push_back(painted);
        names << entry.file;
    }
    if (!sheetFile.isEmpty())
        contactSheet(drawn, names).save(sheetFile);
    err << "drew " << drawn.size() << " images into " << out.path() << "\n";
    return 0;
}
