// SPDX-License-Identifier: GPL-3.0-or-later
#include "PaletteMenu.h"

#include "ConsoleCache.h"
#include "StoredValueText.h"

#include <QCoreApplication>
#include <QMenu>

namespace {
constexpr int paletteCount = int(sizeof(ConsoleStateRecord::palettes) / sizeof(PaletteRecord));
constexpr int groupsWithPalettes = 3; // Focus, Color, Beam
} // namespace

QMenu* PaletteMenu::create(const ConsoleCache& cache, int group, QWidget* parent)
{
    auto* menu = new QMenu(parent);
    QMenu* palettes = menu->addMenu(QCoreApplication::translate("PaletteMenu", "Set palette"));
    if (group < 0 || group >= groupsWithPalettes)
        return menu;
    for (int p = 0; p < paletteCount; ++p) {
        if (!(cache.paletteFlags(p) & (1 << (group + 1))))
            continue;
        QAction* action = palettes->addAction(paletteLabel(cache, p, group));
        action->setData(QStringLiteral("SetPalette/%1").arg(p));
    }
    return menu;
}

QString PaletteMenu::paletteLabel(const ConsoleCache& cache, int palette, int group)
{
    return StoredValueText::paletteReference(group, palette) + QLatin1Char(' ') +
           cache.paletteName(palette, group, ConsoleCache::wholeBlock);
}

std::optional<int> PaletteMenu::pickedPalette(const QString& data)
{
    const QStringList words = data.split(QLatin1Char('/'));
    if (words.size() != 2 || words[0] != QLatin1String("SetPalette"))
        return std::nullopt;
    bool ok = false;
    const int palette = words[1].toInt(&ok);
    if (!ok || palette < 0 || palette >= paletteCount)
        return std::nullopt;
    return palette;
}
