// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChannelRow.h"

#include "CellRowTable.h"
#include "MakeFont.h"

#include <QPainter>

ChannelRow::ChannelRow(CellRowTable* table, Console* console, const QString& title)
    : CellRow(table, Spacing::NoSpacing, Spacing::NoSpacing), m_console(console), m_title(title),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 11))
{
}

ChannelRow::~ChannelRow() = default;

void ChannelRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    m_titleText.draw(painter, QRectF(0, 0, table()->headerWidth() - 4, height()),
                     Qt::AlignRight | Qt::AlignTop, m_title, m_font, Qt::white);
}
