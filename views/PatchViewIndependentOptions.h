// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PatchView.h"
#include "toolkit/InPlaceEditableTextHandler.h"

#include <QFont>
#include <QGraphicsItem>
#include <QString>

#include <array>

class InPlaceEditableText;

// On level, button mode and grand-master option of the independents A and B.
class PatchView::IndependentOptions : public QGraphicsItem, public InPlaceEditableTextHandler
{
public:
    static constexpr int itemWidth = 100;
    static constexpr int itemHeight = 105;
    static constexpr int columnWidth = 50;
    static constexpr int lineHeight = 35;

    explicit IndependentOptions(PatchView* view);
    ~IndependentOptions() override;

    // Re-reads the options from the record.
    void refresh();
    InPlaceEditableText* onLevelText(int independent) const
    {
        return m_onLevels[size_t(independent)];
    }
    QString buttonModeText(int independent) const;
    QString grandMasterText(int independent) const;
    // Stores a typed on level: "F" is full, else a percentage.
    void setOnLevelText(int independent, const QString& text);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void textChanged(InPlaceEditableText* item, const QString& text) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    PatchView* m_view;
    std::array<InPlaceEditableText*, 2> m_onLevels{};
    std::array<QString, 3> m_labels;
    QFont m_labelFont;
    QFont m_valueFont;
};
