// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGraphicsItem>

class FaderHandler;

// A vertical fader: a knob on a groove, with up to two level bars beside it.
class Fader : public QGraphicsItem
{
public:
    Fader(QGraphicsItem* parent, QGraphicsScene* scene, FaderHandler* handler, int length,
          bool showLevels);

    float value() const { return position; }
    // Calls the handler only when notify is set and the value changes.
    void setValue(float value, bool notify);
    int length() const { return travel; }

    float levelA() const { return levelA_; }
    float levelB() const { return levelB_; }
    QColor levelColourA() const { return colourA; }
    QColor levelColourB() const { return colourB; }
    void setLevelA(float level);
    void setLevelColourA(const QColor& colour);
    void setLevelB(float level);
    void setLevelColourB(const QColor& colour);

    QRectF knobRect() const;
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    static constexpr int width = 38;
    static constexpr int knobHeight = 55;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void paintBar(QPainter* painter, int left, int barWidth, const QColor& colour,
                  float level) const;

    FaderHandler* handler;
    int travel;
    float position = 0.0f;
    bool showLevels;
    QColor colourA;
    float levelA_ = 0.0f;
    QColor colourB;
    float levelB_ = 0.0f;
    bool dragging = false;
    int dragStartY = 0;
    float dragStartValue = 0.0f;
};
