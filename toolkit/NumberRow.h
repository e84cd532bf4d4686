// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellText.h"

#include <QFont>
#include <QString>

class Resources;

// A row of number cells; its label column shows a title, or an arrow when
// the title is null.
class NumberRow : public CellRow
{
public:
    NumberRow(CellRowTable* table, const QString& title = QString());
    ~NumberRow() override;

    const QString& title() const { return m_title; }
    const Resources* resources() const;
    // Where the arrow is drawn when there is no title.
    QPoint arrowOrigin() const;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QString m_title;
    QFont m_font;
    CellText m_titleText;
};
