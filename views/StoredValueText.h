// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class ConsoleCache;

// How the memories and palettes views write a stored parameter value: a
// palette reference as its group short form and number, a level as a
// percentage, colour-mix levels of a subtractive swatch turned round so that
// the figure reads as the colour's amount.
class StoredValueText
{
public:
    static QString text(const ConsoleCache& cache, int device, int parameter, int value,
                        bool isPaletteReference);
    // The colour-mix parameters 0, 3 and 4 of a subtractive device whose
    // mask bit (p + 1) is set read inverted.
    static bool readsInverted(const ConsoleCache& cache, int device, int parameter);
    static bool isColourMix(int parameter)
    {
        return parameter == 0 || parameter == 3 || parameter == 4;
    }
    // A palette reference as the views show it: C3 for palette index 2 of Color.
    static QString paletteReference(int group, int palette);
};
