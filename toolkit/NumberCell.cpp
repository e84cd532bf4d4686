// SPDX-License-Identifier: GPL-3.0-or-later
#include "NumberCell.h"

#include "MakeFont.h"

#include <QPainter>

NumberCell::NumberCell(CellRow* row, const QString& label)
    : Cell(row, cellHeight), m_label(label), m_shown(label),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 11))
{
}

NumberCell::NumberCell(CellRow* row, int number)
    : Cell(row, cellHeight), m_number(number), m_shown(QString::number(number + 1)),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 13))
{
}

NumberCell::~NumberCell() = default;

void NumberCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF bounds = boundingRect();
    paintFrame(painter, bounds, QColor(128, 128, 128, 90), QPen(QColor(255, 255, 255, 0)));
    m_text.draw(painter, bounds, Qt::AlignCenter, m_shown, m_font, Qt::white);
}
