// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>
#include <QObject>

#include <algorithm>

// A thin drawn scroll bar that reports the first visible line. The thumb
// follows the mouse smoothly while the line moves in whole steps.
class ScrollBar : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    ScrollBar(QGraphicsItem* parent, const QRectF& rect);

    void setRect(const QRectF& rect);
    QRectF rect() const { return area; }

    int lineCount() const { return lines; }
    int visibleLines() const { return visible; }
    int currentLine() const { return current; }
    // Emits always, without clamping: the owner may scroll past the end.
    void setCurrentLine(int line);
    // Both pull the current line back when it is beyond the last first line.
    void setLineCount(int count);
    void setVisibleLines(int count);

    QRectF thumbRect() const;
    bool isDragging() const { return dragging; }

    QRectF boundingRect() const override { return area; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

signals:
    void currentLineChanged(int currentLine);

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    int lastFirstLine() const { return std::max(0, lines - visible); }
    void pullBackCurrentLine();
    double pixelsPerLine(double thumbHeight) const;

    QRectF area;
    int lines = 0;
    int visible = 0;
    int current = 0;
    bool dragging = false;
    int dragStartLine = 0;
    QPointF pressPos;
    QPointF mousePos;
};
