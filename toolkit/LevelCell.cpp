// SPDX-License-Identifier: GPL-3.0-or-later
#include "LevelCell.h"

#include "CellRowTable.h"
#include "InPlaceEditableText.h"
#include "InPlaceLineEdit.h"
#include "MakeFont.h"
#include "console/Console.h"

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>

namespace {

constexpr int legendTop = 26;
constexpr int legendLineHeight = 12;
constexpr float legendFontSize = 8;
constexpr int levelTextHeight = 26;
constexpr float levelFontSize = 17;
constexpr int levelEditorIndent = 14;
constexpr int levelEditorLength = 3;

const QColor blindColour(0, 0, 255);

} // namespace

LevelCell::LevelCell(CellRow* row, Console* console, LegendSource source, int index)
    : Cell(row, cellHeight), m_console(console), m_source(source), m_index(index),
      m_levelFont(makeFont(QStringLiteral("Gill Sans MT"), levelFontSize))
{
    const qreal width = boundingRect().width();
    for (int line = 0; line < legendLineCount; ++line) {
        auto* item = new InPlaceEditableText(
            this, this, QRectF(1, legendTop + legendLineHeight * line, width - 3, legendLineHeight),
            legendLength, legendFontSize, Qt::white, Qt::AlignHCenter);
        item->setEditable(true);
        m_legendLines[std::size_t(line)] = item;
    }
    InPlaceEditableText::chain(m_legendLines.data(), legendLineCount);
    refreshLegend();
}

LevelCell::~LevelCell() = default;

QString LevelCell::editText() const
{
    return QString();
}

void LevelCell::applyEditText(const QString&) {}

ConsoleCache* LevelCell::cache() const
{
    return m_console ? m_console->cache() : nullptr;
}

QString LevelCell::readLegend(int line) const
{
    const ConsoleCache* data = cache();
    if (!data || !data->record())
        return QString();
    return m_source == LegendSource::Channel ? data->channelLegend(m_index, line)
                                             : data->independentLegend(m_index, line);
}

void LevelCell::writeLegend(int line, const QString& text)
{
    ConsoleCache* data = cache();
    if (!data || !data->record())
        return;
    if (m_source == LegendSource::Channel)
        data->setChannelLegend(m_index, line, text);
    else
        data->setIndependentLegend(m_index, line, text);
}

void LevelCell::refreshLegend()
{
    for (int line = 0; line < legendLineCount; ++line)
        m_legendLines[std::size_t(line)]->setText(readLegend(line));
}

void LevelCell::textChanged(InPlaceEditableText* item, const QString& text)
{
    for (int line = 0; line < legendLineCount; ++line) {
        if (m_legendLines[std::size_t(line)] == item) {
            writeLegend(line, text);
            return;
        }
    }
}

void LevelCell::textCommitted(InPlaceLineEdit*, const QString& text)
{
    applyEditText(text);
}

void LevelCell::editorClosed(InPlaceLineEdit*)
{
    m_editing = false;
    update();
}

void LevelCell::paintLevelCell(QPainter* painter, bool patched, bool blind)
{
    const QRectF bounds = boundingRect();
    const QColor green(91, 116, 86);
    QColor outline(200, 255, 189);
    outline.setAlpha(isHighlighted() ? 255 : 0);
    paintFrame(painter, bounds, QColor(green.red(), green.green(), green.blue(), patched ? 80 : 40),
               QPen(outline));

    const QColor barColour = blind ? QColor(0, 0, 255, 164) : levelColour();
    const QColor barBackground = blind ? QColor(0, 0, 255, 36) : QColor(91, 116, 86, 128);
    painter->fillRect(QRect(barLeft, barTop, barWidth, barHeight), barBackground);
    const int bar = barHeightFor(level());
    painter->fillRect(QRect(barLeft, barTop + barHeight - bar, barWidth, bar), barColour);

    if (m_editing)
        return;
    const QString levelText = text();
    if (levelText == QLatin1String("0"))
        return;
    m_levelText.draw(painter, QRectF(4, 0, bounds.width() - 8, levelTextHeight),
                     Qt::AlignRight | Qt::AlignVCenter, levelText, m_levelFont,
                     blind ? blindColour : levelColour());
}

void LevelCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
}

void LevelCell::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QString initial = editText();
    QGraphicsView* view = viewForEvent(event);
    if (initial.isNull() || !view)
        return;
    auto* editor = new InPlaceLineEdit(view->viewport(), this, initial, levelEditorLength,
                                       levelFontSize, levelColour(), Qt::AlignRight);
    const QRectF scene = sceneBoundingRect();
    const QRectF area(scene.x() + levelEditorIndent, scene.y(), scene.width() - levelEditorIndent,
                      levelTextHeight);
    editor->setGeometry(QRect(view->mapFromScene(area.topLeft()), area.size().toSize()));
    m_editing = true;
    update();
    editor->showEditor();
}
