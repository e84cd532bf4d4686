// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ImageCatalogue.h"

// The four front panel pictures. Each is drawn from its model's layout file
// in the resource folder, so that the printed key wells, fader slots, wheel
// wells and LCD windows sit under the controls the program places there.
void addFrontPanelImages(ImageCatalogue& catalogue);
