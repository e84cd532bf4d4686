// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellText.h"

#include <QFont>
#include <QString>

class Console;

// A row of channel cells with its title at the top right of the label column.
class ChannelRow : public CellRow
{
public:
    ChannelRow(CellRowTable* table, Console* console, const QString& title);
    ~ChannelRow() override;

    Console* console() const { return m_console; }
    const QString& title() const { return m_title; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    Console* m_console;
    QString m_title;
    QFont m_font;
    CellText m_titleText;
};
