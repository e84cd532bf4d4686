// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"

// An empty band that pads the top of a table.
class SpacingRow : public CellRow
{
public:
    static constexpr int fixedHeight = 25;

    explicit SpacingRow(CellRowTable* table);
    ~SpacingRow() override;

    qreal height() const override;
};
