// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Gap kind a row asks for above or below itself. The pixel sizes belong to
// the table (CellRowTable::thinSpacing, thickSpacing); values outside the
// list count as no gap.
enum class Spacing : int
{
    NoSpacing = 0,
    ThinSpacing = 1,
    ThickSpacing = 2,
};
