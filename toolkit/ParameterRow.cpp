// SPDX-License-Identifier: GPL-3.0-or-later
#include "ParameterRow.h"

#include "CellRowTable.h"
#include "MakeFont.h"

#include <QPainter>

namespace {

Spacing spacingKind(bool thin)
{
    return thin ? Spacing::ThinSpacing : Spacing::NoSpacing;
}

} // namespace

ParameterRow::ParameterRow(CellRowTable* table, const QString& title, bool thin)
    : CellRow(table, spacingKind(thin), spacingKind(thin)), m_title(title),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 9))
{
}

ParameterRow::~ParameterRow() = default;

const Resources* ParameterRow::resources() const
{
    return table()->resources();
}

void ParameterRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    m_titleText.draw(painter, QRectF(0, 0, table()->headerWidth() - 4, height()),
                     Qt::AlignRight | Qt::AlignVCenter, m_title, m_font, Qt::white);
}
