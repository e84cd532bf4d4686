// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellText.h"

#include <QFont>
#include <QString>

class Resources;

// A row of parameter cells with its title right-aligned in the label column.
class ParameterRow : public CellRow
{
public:
    // thin: separated from its neighbours by thin gaps; otherwise they touch.
    ParameterRow(CellRowTable* table, const QString& title, bool thin);
    ~ParameterRow() override;

    const QString& title() const { return m_title; }
    const Resources* resources() const;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QString m_title;
    QFont m_font;
    CellText m_titleText;
};
