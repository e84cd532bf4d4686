// SPDX-License-Identifier: GPL-3.0-or-later
#include "PalettesViewFeature.h"

#include "MakeFont.h"
#include "PalettesView.h"

#include <QCursor>
#include <QMenu>

PalettesViewFeature::PalettesViewFeature(QWidget* parent, PalettesView* view)
    : FeatureLabel(parent), m_view(view)
{
    setTextFormat(Qt::RichText);
    connect(this, &QLabel::linkActivated, this, &PalettesViewFeature::linkActivated);
    refresh();
}

PalettesViewFeature::~PalettesViewFeature() = default;

void PalettesViewFeature::refresh()
{
    if (m_view)
        setText(m_view->headerText());
}

void PalettesViewFeature::linkActivated(const QString&)
{
    if (!m_view)
        return;
    QMenu* menu = m_view->createPaletteMenu(this);
    const QAction* picked = menu->exec(QCursor::pos());
    const QString data = picked ? picked->data().toString() : QString();
    delete menu;
    if (!data.isEmpty() && m_view)
        m_view->menuItemPicked(data);
}
