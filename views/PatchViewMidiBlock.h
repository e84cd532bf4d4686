// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"

#include <QFont>
#include <QGraphicsItem>

// The 128 MIDI circuits; a drag source only.
class PatchView::MidiBlock : public QGraphicsItem
{
public:
    static constexpr int columns = 24;
    static constexpr int rows = 6;
    static constexpr int cellWidth = 23;
    static constexpr int cellHeight = 14;
    static constexpr int leftMargin = 3;
    static constexpr int topMargin = 2;
    static constexpr int gap = 1;
    static constexpr int titleHeight = 18;

    explicit MidiBlock(PatchView* view);
    ~MidiBlock() override;

    bool isDragArmed() const { return m_dragArmed; }
    // The circuit under an item position, or -1.
    static int circuitAt(const QPointF& pos);
    static QRect cellRect(int circuit);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    PatchView* m_view;
    bool m_dragArmed = false;
    QFont m_titleFont;
    QFont m_numberFont;
};
