// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QRect;
class QString;

// What the tab strip needs from an editor view.
class Tab
{
public:
    virtual QWidget* widget() = 0;
    virtual QString title() = 0;
    // Shows the view and sets up the title bar's view buttons for it.
    virtual void activate() = 0;
    // The small widget the strip shows at its left while this tab is current;
    // null for none.
    virtual QWidget* createFeatureWidget(QWidget* /*parent*/, const QRect& /*geometry*/)
    {
        return nullptr;
    }
    virtual void deactivate()
    {
        if (QWidget* view = widget())
            view->hide();
    }

protected:
    ~Tab() = default;
};
