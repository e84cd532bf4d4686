// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Cell.h"
#include "CellText.h"
#include "InPlaceEditableTextHandler.h"
#include "InPlaceLineEditHandler.h"

#include <QColor>
#include <QFont>
#include <QString>

#include <array>

class Console;
class ConsoleCache;
class InPlaceEditableText;

// What a channel cell and an independent cell share: the level bar and text,
// the level editor opened by a double click, and three editable legend lines
// kept in the record. Views subclass ChannelCell or IndependentCell.
class LevelCell : public Cell, public InPlaceEditableTextHandler, public InPlaceLineEditHandler
{
public:
    static constexpr int cellHeight = 63;
    static constexpr int legendLineCount = 3;
    static constexpr int legendLength = 6;
    static QColor levelColour() { return QColor(187, 253, 172); }

    ~LevelCell() override;

    // The level text to draw; "0" draws nothing.
    virtual QString text() const = 0;
    // The text for the level editor; null means the level cannot be edited here.
    virtual QString editText() const;
    virtual void applyEditText(const QString& text);
    virtual quint8 level() const = 0;
    virtual bool isHighlighted() const = 0;

    // Re-reads the three legend lines from the record.
    void refreshLegend();
    InPlaceEditableText* legendLine(int line) const { return m_legendLines[std::size_t(line)]; }
    bool isEditing() const { return m_editing; }
    Console* console() const { return m_console; }

    void textChanged(InPlaceEditableText* item, const QString& text) override;
    void textCommitted(InPlaceLineEdit* editor, const QString& text) override;
    void editorClosed(InPlaceLineEdit* editor) override;

    // Where the level bar starts and how tall it is for a level.
    static constexpr int barLeft = 3;
    static constexpr int barTop = 3;
    static constexpr int barWidth = 7;
    static constexpr int barHeight = 21;
    static int barHeightFor(int level) { return level * barHeight / 255; }

protected:
    enum class LegendSource
    {
        Channel,
        Independent,
    };

    LevelCell(CellRow* row, Console* console, LegendSource source, int index);

    // patched: the frame is drawn stronger; blind: the blue scheme.
    void paintLevelCell(QPainter* painter, bool patched, bool blind);
    ConsoleCache* cache() const;

    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    QString readLegend(int line) const;
    void writeLegend(int line, const QString& text);

    Console* m_console;
    LegendSource m_source;
    int m_index;
    QFont m_levelFont;
    CellText m_levelText;
    std::array<InPlaceEditableText*, legendLineCount> m_legendLines{};
    bool m_editing = false;
};
