// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QStringList>

class ConsoleButton;

// The crossfade of one sequence (or the stack) drawn as an up line and a
// down line on a percentage grid, with cursors for the running fade and the
// playback's remaining times, rate and fade. Holds nothing but the sequence
// key: every paint reads the playback entry and the step records afresh.
class Timeline : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    static constexpr int goKey = 84;
    static constexpr int pauseKey = 85;

    // What one paint reads from the record. Fractions and cursors are 0..1
    // of the grid's width.
    struct Reading
    {
        bool hasPlayback = false;
        quint16 remainingUp = 0;
        quint16 remainingDown = 0;
        quint16 remainingWait = 0;
        int ratePercent = 100;
        int fadePercent = 100;
        double upFraction = 1;
        double downFraction = 1;
        double upCursor = 0;
        double downCursor = 0;
    };

    // The drawing is shifted down by extraHeight; the item grows by twice it.
    explicit Timeline(QGraphicsScene* scene, qreal extraHeight = 0,
                      QGraphicsItem* parent = nullptr);
    ~Timeline() override;

    Console::Sequence sequence() const { return shown; }
    void setSequence(Console::Sequence sequence);
    qreal extraHeight() const { return extra; }
    ConsoleButton* goButton() const { return go; }
    ConsoleButton* pauseButton() const { return pause; }

    // The playback state as the next paint will draw it.
    Reading read() const;
    // The values of the text panel's rows: up, down, wait, rate, fade.
    static QStringList panelValues(const Reading& reading);
    // Grid x of a fraction of the fade.
    static int fractionX(double fraction);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    void consoleCachePlaybackUpdated();

private:
    // Frame, grid, scale and panel labels never change: drawn once.
    QPixmap drawLayer() const;
    void paintGrid(QPainter* painter) const;
    void paintScale(QPainter* painter) const;
    void paintPanelLabels(QPainter* painter) const;
    void paintPanelValues(QPainter* painter, const Reading& reading) const;
    void paintFade(QPainter* painter, const Reading& reading) const;

    Console::Sequence shown;
    qreal extra;
    ConsoleButton* go = nullptr;
    ConsoleButton* pause = nullptr;
    QPixmap layer;
};
