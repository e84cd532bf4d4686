// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"
#include "toolkit/ChannelCell.h"

// A channel of the patch view: shows its live level, selects and drags its
// channels, and takes outputs and MIDI circuits dropped on it.
class PatchView::ChannelCell : public ::ChannelCell
{
public:
    ChannelCell(CellRow* row, PatchView* view, int channel);
    ~ChannelCell() override;

    QString text() const override;
    quint8 level() const override;
    bool isHighlighted() const override;
    bool isBlind() const override;
    bool isDragArmed() const { return m_dragArmed; }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    PatchView* m_view;
    ConsoleCache* m_cache;
    bool m_dragArmed = false;
};
