// SPDX-License-Identifier: GPL-3.0-or-later
#include "SpacingRow.h"

SpacingRow::SpacingRow(CellRowTable* table)
    : CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing)
{
}

SpacingRow::~SpacingRow() = default;

qreal SpacingRow::height() const
{
    return fixedHeight;
}
