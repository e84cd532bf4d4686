// SPDX-License-Identifier: GPL-3.0-or-later
#include "NumberRow.h"

#include "CellRowTable.h"
#include "MakeFont.h"
#include "Resources.h"

#include <QPainter>

NumberRow::NumberRow(CellRowTable* table, const QString& title)
    : CellRow(table, Spacing::NoSpacing, Spacing::NoSpacing), m_title(title),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 12))
{
}

NumberRow::~NumberRow() = default;

const Resources* NumberRow::resources() const
{
    return table()->resources();
}

QPoint NumberRow::arrowOrigin() const
{
    const Resources* images = resources();
    const int width = images ? images->image(Resources::Id::ArrowRight).width() : 0;
    return QPoint(table()->headerWidth() - 3 - width, 4);
}

void NumberRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    if (!m_title.isNull()) {
        m_titleText.draw(painter, QRectF(0, 0, table()->headerWidth(), height()), Qt::AlignCenter,
                         m_title, m_font, Qt::white);
        return;
    }
    if (const Resources* images = resources())
        painter->drawImage(arrowOrigin(), images->image(Resources::Id::ArrowRight));
}
