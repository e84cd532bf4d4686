// SPDX-License-Identifier: GPL-3.0-or-later
#include "GroupColour.h"

QColor groupColour(int group, int alpha)
{
    switch (group) {
    case 0:
        return QColor(116, 78, 20, alpha);
    case 1:
        return QColor(130, 82, 124, alpha);
    case 2:
    case 3:
        return QColor(101, 92, 143, alpha);
    default:
        return QColor(255, 255, 255, alpha);
    }
}
