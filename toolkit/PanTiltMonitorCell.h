// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Cell.h"

#include <QPoint>

// A dot on a pan/tilt field showing where a moving head points.
class PanTiltMonitorCell : public Cell
{
public:
    static constexpr int cellHeight = 38;

    explicit PanTiltMonitorCell(CellRow* row);
    ~PanTiltMonitorCell() override;

    // The device is patched and has both pan and tilt.
    virtual bool isActive() const = 0;
    // Fractions of the field, -0.5 to +0.5, 0 at the centre.
    virtual float panPosition() const = 0;
    virtual float tiltPosition() const = 0;

    // The position rule of every view: a 16-bit value when the device has the
    // fine parameter, else the 8-bit coarse value, scaled to -0.5..+0.5.
    static float position(int coarse, int fine, bool hasFine);

    // Where the dot goes for the current positions, in item coordinates.
    QPoint dotPosition() const;
    QPoint imageOrigin() const;

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QSize imageSize() const;
};
