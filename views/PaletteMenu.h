// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

class ConsoleCache;
class QMenu;
class QWidget;

// The "Set palette" context menu of parameter and group cells: the palettes
// holding data of one parameter group, each carrying "SetPalette/<index>".
class PaletteMenu
{
public:
    // A menu with the one submenu; the caller owns it.
    static QMenu* create(const ConsoleCache& cache, int group, QWidget* parent);
    // The palette index a menu action's data names, if it is a palette pick.
    static std::optional<int> pickedPalette(const QString& data);
    // The palette's group name as one text.
    static QString paletteLabel(const ConsoleCache& cache, int palette, int group);
};
