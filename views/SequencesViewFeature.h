// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FeatureLabel.h"

#include <QPointer>

class SequencesView;

// The tab strip's link to the sequence being edited: clicking it opens the
// menu of the stack and every sequence. It lives only while its tab is
// current; the view forgets it when it goes.
class SequencesViewFeature : public FeatureLabel
{
    Q_OBJECT

public:
    SequencesViewFeature(QWidget* parent, SequencesView* view);
    ~SequencesViewFeature() override;

public slots:
    void linkActivated(const QString& link);

private:
    // The view may go first when the window closes.
    QPointer<SequencesView> view;
};
