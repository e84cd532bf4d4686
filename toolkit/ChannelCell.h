// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LevelCell.h"

// One dimmer channel: frame, level bar, level text and three legend lines.
// Views say which level it shows and whether it is selected or blind.
class ChannelCell : public LevelCell
{
public:
    ChannelCell(CellRow* row, Console* console, int channel);
    ~ChannelCell() override;

    // Blind levels are drawn in blue.
    virtual bool isBlind() const;

    int channel() const { return m_channel; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    int m_channel;
};
