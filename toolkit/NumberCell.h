// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Cell.h"
#include "CellText.h"

#include <QFont>
#include <QString>

// A grey header cell showing a 1-based number or a label.
class NumberCell : public Cell
{
public:
    static constexpr int cellHeight = 23;

    NumberCell(CellRow* row, const QString& label);
    NumberCell(CellRow* row, int number);
    ~NumberCell() override;

    int number() const { return m_number; }
    const QString& label() const { return m_label; }
    // What the cell shows: number + 1, or the label.
    const QString& shownText() const { return m_shown; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    int m_number = -1;
    QString m_label;
    QString m_shown;
    QFont m_font;
    CellText m_text;
};
