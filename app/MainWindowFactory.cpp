// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainWindowFactory.h"

#include "InterimMainWindow.h"

QWidget* MainWindowFactory::create()
{
    return new InterimMainWindow;
}

void MainWindowFactory::show(QWidget* window)
{
    window->show();
}
