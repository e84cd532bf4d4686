// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainWindowFactory.h"

#include "MainFrame.h"

QWidget* MainWindowFactory::create()
{
    return new MainFrame;
}

void MainWindowFactory::show(QWidget* window)
{
    static_cast<MainFrame*>(window)->showPlaced();
}
