// SPDX-License-Identifier: GPL-3.0-or-later
#include "SequencesViewFeature.h"

#include "MakeFont.h"
#include "SequencesView.h"

#include <QCursor>
#include <QPalette>

SequencesViewFeature::SequencesViewFeature(QWidget* parent, SequencesView* view)
    : QLabel(parent), view(view)
{
    QPalette colours = palette();
    for (const auto role : {QPalette::WindowText, QPalette::Link, QPalette::LinkVisited})
        colours.setColor(QPalette::All, role, Qt::white);
    setPalette(colours);
    setFont(makeFont(QStringLiteral("Gill Sans MT"), 14));
    setMargin(-3);
    setIndent(3);
    connect(this, &QLabel::linkActivated, this, &SequencesViewFeature::linkActivated);
    show();
}

SequencesViewFeature::~SequencesViewFeature()
{
    if (view)
        view->featureDestroyed(this);
}

void SequencesViewFeature::linkActivated(const QString&)
{
    if (view)
        view->openSequenceMenu(QCursor::pos());
}
