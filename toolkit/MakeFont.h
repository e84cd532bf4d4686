// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>

// The one font rule of every view: points are turned into pixels at 96 dpi
// (trunc(points * 4 / 3)) so that text has the same size on every screen.
QFont makeFont(const QString& family, double points, bool bold = false);

// Registers the compiled-in fonts and maps the family names the program uses
// ("Gill Sans MT", "Courier New", "Verdana", "System") onto them, so that text looks the
// same whether or not a font is installed on the machine. Returns the number
// of font files that could be registered.
int installApplicationFonts();
