// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FeatureLabel.h"

#include <QPointer>
#include <QString>

class PalettesView;

// The tab strip's header of the palettes view: the current palette's number
// as a link that opens the palette menu.
class PalettesViewFeature : public FeatureLabel
{
    Q_OBJECT

public:
    PalettesViewFeature(QWidget* parent, PalettesView* view);
    ~PalettesViewFeature() override;

    void refresh();

public slots:
    void linkActivated(const QString& link);

private:
    // The strip owns the header and may outlive the view.
    QPointer<PalettesView> m_view;
};
