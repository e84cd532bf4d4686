// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChannelCell.h"

#include "console/ConsoleCache.h"

ChannelCell::ChannelCell(CellRow* row, Console* console, int channel)
    : LevelCell(row, console, LegendSource::Channel, channel), m_channel(channel)
{
}

ChannelCell::~ChannelCell() = default;

bool ChannelCell::isBlind() const
{
    return false;
}

void ChannelCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const ConsoleCache* data = cache();
    paintLevelCell(painter, data && data->channelFlags(m_channel) != 0, isBlind());
}
