// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ImageCatalogue.h"

// The main window's images: title bar, tab strip, console keys.
void addWindowImages(ImageCatalogue& catalogue);
