// SPDX-License-Identifier: GPL-3.0-or-later
#include "FrontPanelImages.h"

#include "IconKit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <QTextStream>

using Enc = ImageCatalogue::Encoding;

namespace {

const QString printFamily = QStringLiteral("Gillius ADF");
const QColor printInk(196, 198, 204);
const QColor wellColour(22, 23, 26);
constexpr int keyWidth = 35;
constexpr int keyHeight = 26;
constexpr int knobHeight = 55;
constexpr int grooveTop = 27;
// The program's front-panel fader blocks: travel, column pitch, flash key
// row and legend lines below the block's top.
constexpr int blockTravel = 96;
constexpr int blockPitch = 40;
constexpr int blockKeyY = 164;
constexpr int blockLegendY = 191;

struct Model
{
    const char* name;
    int width;
};
constexpr Model models[] = {{"Alder", 788}, {"Birch", 788}, {"Cedar", 1280}, {"Maple", 1280}};

// The layout files sit beside this generator's sources in the repository.
QString layoutPath(const QString& model)
{
    const QDir here = QFileInfo(QStringLiteral(__FILE__)).dir();
    return here.filePath(QStringLiteral("../../Resources/FrontPanel") + model +
                         QStringLiteral(".txt"));
}

QList<QStringList> layoutLines(const QString& model)
{
    QList<QStringList> lines;
    QFile file(layoutPath(model));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return lines;
    QTextStream in(&file);
    while (!in.atEnd())
        lines << in.readLine().split(QLatin1Char('\t'));
    return lines;
}

int field(const QStringList& fields, int i)
{
    return i < fields.size() ? fields[i].toInt() : 0;
}

void background(QPainter& p, const QSizeF& size)
{
    QLinearGradient shade(0, 0, 0, size.height());
    shade.setColorAt(0, QColor(64, 66, 71));
    shade.setColorAt(1, QColor(42, 44, 48));
    p.fillRect(QRectF(QPointF(0, 0), size), shade);
    // Fine brushed grain across the plate.
    QRandomGenerator grain(7);
    for (int y = 0; y < int(size.height()); y += 2) {
        p.setPen(QColor(255, 255, 255, int(grain.bounded(6))));
        p.drawLine(0, y, int(size.width()), y);
    }
    p.setPen(IconKit::stroke(QColor(90, 92, 98), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(1, 1, size.width() - 2, size.height() - 2), 8, 8);
}

void recess(QPainter& p, const QRectF& rect, qreal radius, const QColor& fill)
{
    p.setPen(IconKit::stroke(QColor(92, 95, 102), 1));
    p.setBrush(fill);
    p.drawRoundedRect(rect, radius, radius);
}

void keyWell(QPainter& p, int x, int y)
{
    recess(p, QRectF(x - 2.5, y - 2.5, keyWidth + 5, keyHeight + 5), 5, wellColour);
}

// A fader placed at (x, y) with its travel: the slit under the groove and
// scale marks at every tenth.
void faderSlot(QPainter& p, int x, int y, int travel)
{
    const QRectF slit(x + 13, y + grooveTop - 6, 12, travel + 12);
    recess(p, slit, 5, QColor(10, 10, 12));
    p.setPen(IconKit::stroke(QColor(150, 152, 158), 1));
    for (int i = 0; i <= 10; ++i) {
        const qreal ty = y + grooveTop + travel * i / 10.0;
        const qreal length = i % 5 == 0 ? 6 : 3;
        p.drawLine(QPointF(x + 10 - length, ty), QPointF(x + 10, ty));
    }
}

void faderBlock(QPainter& p, int fileX, int fileY, int count)
{
    const int bx = fileX - 5;
    const int by = fileY - 17;
    recess(p, QRectF(bx - 3, by - 15, count * blockPitch + 4, blockLegendY + 48), 6,
           QColor(34, 35, 39));
    for (int i = 0; i < count; ++i) {
        const int x = bx + i * blockPitch;
        faderSlot(p, x, by + 17, blockTravel);
        keyWell(p, x + 3, by + blockKeyY);
        recess(p, QRectF(x + 1, by + blockLegendY - 2, blockPitch - 2, 34), 3, QColor(14, 14, 16));
    }
}

void singleFaders(QPainter& p, const QStringList& f)
{
    const QStringList codes = f.value(7).split(QLatin1Char(','));
    for (int i = 0; i < codes.size(); ++i) {
        const int code = codes[i].toInt();
        const int travel = code >= 48 ? 127 : 110;
        faderSlot(p, field(f, 1) - 5 + i * field(f, 5), field(f, 2), travel);
    }
}

void buttons(QPainter& p, const QStringList& f)
{
    const int count = int(f.value(7).split(QLatin1Char(',')).size());
    const bool row = field(f, 4) == 1;
    for (int i = 0; i < count; ++i) {
        const int x = field(f, 1) - 2 + (row ? i * field(f, 5) : 0);
        const int y = field(f, 2) + (row ? 0 : i * field(f, 6));
        keyWell(p, x, y);
    }
}

void wheels(QPainter& p, const QStringList& f)
{
    const int count = int(f.value(7).split(QLatin1Char(',')).size());
    for (int i = 0; i < count; ++i) {
        const QPointF centre(field(f, 1) + i * field(f, 5) + 41, field(f, 2) + 41);
        QRadialGradient well(centre, 46);
        well.setColorAt(0.8, QColor(12, 12, 14));
        well.setColorAt(1.0, QColor(70, 72, 78));
        p.setPen(Qt::NoPen);
        p.setBrush(well);
        p.drawEllipse(centre, 46, 46);
    }
}

void displays(QPainter& p, const QStringList& f)
{
    const QStringList ids = f.value(7).split(QLatin1Char(','));
    for (int i = 0; i < ids.size(); ++i) {
        const QRectF window(field(f, 1) + i * field(f, 5), field(f, 2), 170, 30);
        recess(p, window.adjusted(-6, -6, 6, 6), 4, QColor(8, 8, 10));
        QLinearGradient glow(window.topLeft(), window.bottomLeft());
        glow.setColorAt(0, QColor(172, 204, 84));
        glow.setColorAt(1, QColor(148, 182, 66));
        p.fillRect(window, glow);
    }
}

// The Maple's select block: 2 rows of 12 keys with legend strips.
void selectBlock(QPainter& p, int x, int y)
{
    constexpr int width = 40;
    constexpr int gap = 54;
    recess(p, QRectF(x - 3, y + 2, 12 * width + 6, gap + 69 + 36), 6, QColor(34, 35, 39));
    for (int c = 0; c < 12; ++c) {
        const int kx = x + c * width + (width - keyWidth) / 2;
        keyWell(p, kx, y + 40);
        keyWell(p, kx, y + gap + 40);
        recess(p, QRectF(x + c * width + 1, y + gap + 67, width - 2, 36), 3, QColor(14, 14, 16));
    }
}

void paintPanel(QPainter& p, const QSizeF& size, const QString& model)
{
    background(p, size);
    const QList<QStringList> lines = layoutLines(model);
    for (const QStringList& f : lines) {
        const QString& keyword = f.first();
        if (keyword == QLatin1String("Faders"))
            faderBlock(p, field(f, 1), field(f, 2), field(f, 3));
        else if (keyword == QLatin1String("Selects"))
            selectBlock(p, field(f, 1), field(f, 2));
    }
    for (const QStringList& f : lines) {
        const QString& keyword = f.first();
        if (keyword == QLatin1String("Button"))
            buttons(p, f);
        else if (keyword == QLatin1String("Fader"))
            singleFaders(p, f);
        else if (keyword == QLatin1String("Wheel"))
            wheels(p, f);
        else if (keyword == QLatin1String("Display"))
            displays(p, f);
    }
    IconKit::text(p, QRectF(size.width() - 190, size.height() - 22, 180, 16),
                  QStringLiteral("GLOWCRAFT  ") + model.toUpper(), printFamily, 13, true, printInk,
                  Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace

void addFrontPanelImages(ImageCatalogue& catalogue)
{
    for (const Model& model : models) {
        const QString name = QString::fromLatin1(model.name);
        catalogue.add(QStringLiteral("FrontPanel") + name + QStringLiteral(".png"),
                      // Stored opaque (no alpha channel): the panel draws the
                      // picture as it is, without a format conversion per frame.
                      QSize(model.width, 459), Enc::OverBlack,
                      [name](QPainter& p, const QSizeF& size) { paintPanel(p, size, name); });
    }
}
