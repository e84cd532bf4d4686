// SPDX-License-Identifier: GPL-3.0-or-later
#include "PanTiltMonitorCell.h"

#include "CellRowTable.h"
#include "Resources.h"

#include <QPainter>

PanTiltMonitorCell::PanTiltMonitorCell(CellRow* row) : Cell(row, cellHeight) {}

PanTiltMonitorCell::~PanTiltMonitorCell() = default;

float PanTiltMonitorCell::position(int coarse, int fine, bool hasFine)
{
    if (hasFine) {
        const float value = float(coarse * 256 + fine);
        return (value - 32767.5f) / 32767.5f * 0.5f;
    }
    return (float(coarse) - 127.5f) / 127.5f * 0.5f;
}

QSize PanTiltMonitorCell::imageSize() const
{
    const Resources* images = table()->resources();
    return images ? images->image(Resources::Id::PanTiltRoom).size() : QSize();
}

QPoint PanTiltMonitorCell::imageOrigin() const
{
    const QRectF bounds = boundingRect();
    const QSize image = imageSize();
    return QPoint(int((bounds.width() - image.width()) * 0.5),
                  int((bounds.height() - image.height()) * 0.5));
}

QPoint PanTiltMonitorCell::dotPosition() const
{
    const QRectF bounds = boundingRect();
    const QSize image = imageSize();
    return QPoint(int(bounds.width() * 0.5 + image.width() * 0.8 * panPosition()),
                  int(bounds.height() * 0.5 + image.height() * 0.8 * tiltPosition()));
}

void PanTiltMonitorCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!isActive())
        return;
    if (const Resources* images = table()->resources()) {
        // An image larger than the cell is cut at its edges rather than
        // drawn over the neighbouring rows.
        const QRect target =
            QRect(imageOrigin(), imageSize()).intersected(boundingRect().toAlignedRect());
        painter->drawImage(target, images->image(Resources::Id::PanTiltRoom),
                           target.translated(-imageOrigin()));
    }
    painter->setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->drawPoint(dotPosition());
}
