// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

// The title a view shows at the left of the tab strip: white Gill Sans on
// the strip, links in white too (a view's title link opens its menu).
class FeatureLabel : public QLabel
{
    Q_OBJECT

public:
    explicit FeatureLabel(QWidget* parent, const QString& text = QString());
};
