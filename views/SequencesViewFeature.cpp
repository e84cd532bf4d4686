// SPDX-License-Identifier: GPL-3.0-or-later
#include "SequencesViewFeature.h"

#include "MakeFont.h"
#include "SequencesView.h"

#include <QCursor>
#include <QPalette>

SequencesViewFeature::SequencesViewFeature(QWidget* parent, SequencesView* view)
    : FeatureLabel(parent), view(view)
{
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
