// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Cell.h"
#include "CellText.h"
#include "InPlaceLineEditHandler.h"

#include <QFont>
#include <QPointF>
#include <QString>

// One device parameter: its value text, an icon or a colour swatch, and
// selection. Views say what it shows and apply edits, usually to every
// selected parameter cell of the scene.
class ParameterCell : public Cell, public InPlaceLineEditHandler
{
public:
    static constexpr int cellHeight = 16;
    static constexpr int decorationWidth = 22;

    ParameterCell(CellRow* row, int group, int parameter);
    ~ParameterCell() override;

    // The colour-mix swatch; valid is cleared when there is none to draw.
    virtual QColor swatchColour(bool& valid) const = 0;
    // Null draws nothing.
    virtual QString text() const = 0;
    // Null means the value cannot be edited here.
    virtual QString editText() const = 0;
    virtual void applyEditText(const QString& text) = 0;

    int group() const { return m_group; }
    int parameter() const { return m_parameter; }
    bool isEditing() const { return m_editing; }
    // The part that shows selection and takes the editor: all of a Focus
    // cell, the left half of any other.
    QRectF activeRect() const;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void textCommitted(InPlaceLineEdit* editor, const QString& text) override;
    void editorClosed(InPlaceLineEdit* editor) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void selectAlone();
    void paintDecoration(QPainter* painter) const;

    int m_group;
    int m_parameter;
    bool m_editing = false;
    QPointF m_pressPos;
    QFont m_font;
    QString m_shown;
    QString m_padded;
    CellText m_text;
};
