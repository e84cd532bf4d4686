// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"

#include <QFont>
#include <QGraphicsItem>
#include <QString>

// Un-patches whatever is dropped on it.
class PatchView::Trashcan : public QGraphicsItem
{
public:
    static constexpr int itemWidth = 50;
    static constexpr int itemHeight = 70;

    explicit Trashcan(PatchView* view);
    ~Trashcan() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    PatchView* m_view;
    QString m_label;
    QFont m_font;
};
