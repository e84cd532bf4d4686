// SPDX-License-Identifier: GPL-3.0-or-later
#include "MoveSequenceStepDialog.h"

#include "ConsoleLink.h"
#include "SequenceSteps.h"
#include "ui_MoveSequenceStepDialog.h"

MoveSequenceStepDialog::MoveSequenceStepDialog(QWidget* parent, Console::Sequence sequence,
                                               int source, int destination)
    : QDialog(parent), ui(std::make_unique<Ui::movesequencestepdialogClass>()), sequence(sequence),
      source(source), destination(destination)
{
    ui->setupUi(this);
    const SequenceSteps steps(ConsoleLink::cache(), sequence);
    for (int value : steps.freeCueNumbers(destination, false))
        ui->pointCueComboBox->addItem(SequenceSteps::cueText(value));
    if (ui->pointCueComboBox->count() > 0) {
        ui->pointCueComboBox->setEnabled(true);
        ui->pointCueComboBox->setCurrentIndex(0);
    }
}

MoveSequenceStepDialog::~MoveSequenceStepDialog() = default;

void MoveSequenceStepDialog::on_moveButton_clicked()
{
    QString text = ui->pointCueComboBox->currentText();
    const int value = text.remove(QLatin1Char('.')).toInt();
    ConsoleCache* cache = ConsoleLink::cache();
    const SequenceSteps steps(cache, sequence);
    if (value != 0 && steps.step(source) && destination >= 0 && destination <= steps.count())
        cache->moveStep(sequence.page, sequence.fader, source, destination, value);
    accept();
}
