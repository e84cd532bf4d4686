// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;

// A plain top-level window that stands in for the main window until the
// editor views exist: it names the loaded console and keeps the program
// running until it is closed.
class InterimMainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit InterimMainWindow(QWidget* parent = nullptr);

private:
    QLabel* m_logo;
    QLabel* m_text;
};
