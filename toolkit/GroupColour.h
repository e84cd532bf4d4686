// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

// The colour of a parameter group (0 Focus, 1 Color, 2 Beam, 3 User) with the
// given alpha; white for anything else.
QColor groupColour(int group, int alpha);
