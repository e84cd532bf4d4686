// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QRectF>

class QPainter;

// The translucent rounded panel behind the cue list and the cue matrix,
// drawn once per size: a large antialiased fill is the dearest part of
// their frames, and they repaint with every playback change.
class BlockBackground
{
public:
    void draw(QPainter* painter, const QRectF& bounds);

private:
    static void paint(QPainter* painter, const QRectF& bounds);

    QPixmap rendering;
    QRectF renderedBounds;
};
