// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Console.h"

#include <QDialog>

#include <memory>

namespace Ui {
class InsertSequenceStepDialogClass;
}

// Asks what a new step holds (a channel, a memory or, on the stack, a
// direct cue) and, on the stack, offers the cue numbers that fit at the
// insert position; Insert asks the console for the step.
class InsertSequenceStepDialog : public QDialog
{
    Q_OBJECT

public:
    InsertSequenceStepDialog(QWidget* parent, Console::Sequence sequence, int position);
    ~InsertSequenceStepDialog() override;

    // "Ch:" and the number, or on Maple the channel's bank and number.
    static QString channelLabel(int channel, int channelCount, int consoleType);

private slots:
    void on_insertButton_clicked();

private:
    void fillChannels();
    void fillMemories();
    // The cue number the new step gets: the offered one, else the next
    // whole cue after the last step.
    int chosenCueNumber() const;

    std::unique_ptr<Ui::InsertSequenceStepDialogClass> ui;
    Console::Sequence sequence;
    int position;
};
