// SPDX-License-Identifier: GPL-3.0-or-later
#include "FeatureLabel.h"

#include "MakeFont.h"

#include <QPalette>

FeatureLabel::FeatureLabel(QWidget* parent, const QString& text) : QLabel(text, parent)
{
    QPalette colours = palette();
    for (const auto role : {QPalette::WindowText, QPalette::Link, QPalette::LinkVisited})
        colours.setColor(QPalette::All, role, Qt::white);
    setPalette(colours);
    setFont(makeFont(QStringLiteral("Gill Sans MT"), 14));
    setMargin(-3);
    setIndent(3);
}
