// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"
#include "Fader.h"
#include "FaderHandler.h"

#include <QObject>

// A console fader: dragging the knob sends its level to the engine as the
// panel fader with this number. In the fader blocks it also shows the
// console's level of the fader and, beside it, the blind level of the
// channel it controls, in colours that follow the console's fader mode.
class ConsoleFader : public QObject, public Fader, public FaderHandler
{
    Q_OBJECT

public:
    ConsoleFader(QGraphicsItem* parent, QGraphicsScene* scene, int faderNumber, int length,
                 bool showStatus, bool trackLevels);

    int faderNumber() const { return number; }
    // The fader mode the status colours were last computed for, -1 before.
    int lastFaderMode() const { return lastMode; }
    // The level the engine receives for a knob position.
    static quint8 levelOf(float value);

    void faderValueChanged(Fader* fader) override;

    // The marker of a fader that holds a playback: a bar across the rect,
    // lit while the console runs it.
    void paintPlaybackMarker(QPainter* painter, const QRectF& rect) const;

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheFaderUpdated();
    void consoleCacheBlindLevelsUpdated();
    void consoleCacheConsoleStatusUpdated();
    void consoleCacheSequenceUpdated(Console::Sequence sequence);
    void consoleCachePageUpdated(int page);

private:
    void updateStatusColours();
    bool holdsSequenceWithSteps(const ConsoleCache* cache) const;

    int number;
    int lastMode = -1;
    bool showStatus;
};
