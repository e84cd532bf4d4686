// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"
#include "toolkit/IndependentCell.h"

// An independent of the patch view: selects and drags, and takes outputs.
class PatchView::IndependentCell : public ::IndependentCell
{
public:
    IndependentCell(CellRow* row, PatchView* view, int independent);
    ~IndependentCell() override;

    QString text() const override;
    quint8 level() const override;
    bool isHighlighted() const override;
    bool isDragArmed() const { return m_dragArmed; }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    PatchView* m_view;
    bool m_dragArmed = false;
};
