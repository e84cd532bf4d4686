// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LevelCell.h"

// One independent (0 A, 1 B), drawn like a channel; it has no blind variant.
class IndependentCell : public LevelCell
{
public:
    IndependentCell(CellRow* row, Console* console, int independent);
    ~IndependentCell() override;

    int independent() const { return m_independent; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    int m_independent;
};
