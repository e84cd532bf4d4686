// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTransform>

// A prepared pixmap drawn through this transform lands on the same pixels as
// drawing directly would: only whole-pixel translations qualify.
inline bool isWholePixelTranslation(const QTransform& transform)
{
    return transform.type() <= QTransform::TxTranslate && transform.dx() == int(transform.dx()) &&
           transform.dy() == int(transform.dy());
}
