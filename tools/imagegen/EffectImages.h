// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ImageCatalogue.h"

// The 33 effect pattern pictures of the effects view: the path of each shape,
// a strip of each intensity pattern over time, the colours of each colour
// pattern.
void addEffectImages(ImageCatalogue& catalogue);
