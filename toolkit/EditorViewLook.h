// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QGraphicsView;

// The look every editor view shares: no frame, the scene from the top-left
// corner, over the tiled grain (loaded once for all of them).
class EditorViewLook
{
public:
    static void apply(QGraphicsView* view);
};
