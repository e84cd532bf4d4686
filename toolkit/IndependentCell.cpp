// SPDX-License-Identifier: GPL-3.0-or-later
#include "IndependentCell.h"

#include "console/ConsoleCache.h"

IndependentCell::IndependentCell(CellRow* row, Console* console, int independent)
    : LevelCell(row, console, LegendSource::Independent, independent), m_independent(independent)
{
}

IndependentCell::~IndependentCell() = default;

void IndependentCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const ConsoleCache* data = cache();
    paintLevelCell(painter, data && data->independentFlags(m_independent) != 0, false);
}
