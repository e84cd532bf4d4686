// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

#include <QDialog>

#include <memory>

namespace Ui {
class movesequencestepdialogClass;
}

// Asks for the new cue number of a stack cue dragged to another place: only
// numbers between its new neighbours are offered, and without one nothing
// moves.
class MoveSequenceStepDialog : public QDialog
{
    Q_OBJECT

public:
    MoveSequenceStepDialog(QWidget* parent, Console::Sequence sequence, int source,
                           int destination);
    ~MoveSequenceStepDialog() override;

private slots:
    void on_moveButton_clicked();

private:
    std::unique_ptr<Ui::movesequencestepdialogClass> ui;
    Console::Sequence sequence;
    int source;
    int destination;
};
