// SPDX-License-Identifier: GPL-3.0-or-later
#include "InsertSequenceStepDialog.h"

#include "ConsoleLink.h"
#include "SequenceSteps.h"
#include "ui_InsertSequenceStepDialog.h"

InsertSequenceStepDialog::InsertSequenceStepDialog(QWidget* parent, Console::Sequence sequence,
                                                   int position)
    : QDialog(parent), ui(std::make_unique<Ui::InsertSequenceStepDialogClass>()),
      sequence(sequence), position(position)
{
    ui->setupUi(this);
    if (!ConsoleLink::cache())
        return;
    fillChannels();
    fillMemories();
    if (!sequence.isStack())
        return;
    ui->directCueRadioButton->setEnabled(true);
    const SequenceSteps steps(ConsoleLink::cache(), sequence);
    for (int value : steps.freeCueNumbers(position, true))
        ui->pointCueComboBox->addItem(SequenceSteps::cueText(value));
}

InsertSequenceStepDialog::~InsertSequenceStepDialog() = default;

QString InsertSequenceStepDialog::channelLabel(int channel, int channelCount, int consoleType)
{
    if (channel >= channelCount)
        return QStringLiteral("IND %1").arg(channel - channelCount + 1);
    if (consoleType != ConsoleCache::ModelMaple)
        return QStringLiteral("Ch:%1").arg(channel + 1);
    if (channel < 24)
        return QStringLiteral("Int A:%1").arg(channel + 1);
    if (channel < 48)
        return QStringLiteral("Int B:%1").arg(channel - 23);
    if (channel < 72)
        return QStringLiteral("Int D:%1").arg(channel - 47);
    return QString::number(channel);
}

void InsertSequenceStepDialog::fillChannels()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int count = std::min(cache->channelCount(), int(ConsoleStateRecord::maxChannels));
    for (int channel = 0; channel < count; ++channel)
        ui->channelComboBox->addItem(channelLabel(channel, count, cache->consoleType()) +
                                         QLatin1Char(' ') +
                                         cache->channelLegend(channel, ConsoleCache::wholeBlock),
                                     channel);
}

void InsertSequenceStepDialog::fillMemories()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int perPage = std::min(cache->faderCount(), int(ConsoleStateRecord::memoriesPerPage));
    const int pages = std::min(cache->pageCount(), int(ConsoleStateRecord::pages));
    for (int page = 0; page < pages; ++page) {
        for (int memory = 0; memory < perPage; ++memory)
            ui->memoryComboBox->addItem(
                cache->memoryNumberText(page, memory) + QLatin1Char(' ') +
                    cache->memoryName(page, memory, ConsoleCache::wholeBlock),
                page * perPage + memory);
    }
}

int InsertSequenceStepDialog::chosenCueNumber() const
{
    QString text = ui->pointCueComboBox->currentText();
    const int offered = text.remove(QLatin1Char('.')).toInt();
    if (offered != 0)
        return offered;
    const SequenceSteps steps(ConsoleLink::cache(), sequence);
    const int count = steps.count();
    return count == 0 ? 10 : (steps.cueNumber(count - 1) / 10 + 1) * 10;
}

void InsertSequenceStepDialog::on_insertButton_clicked()
{
    ConsoleCache* cache = ConsoleLink::cache();
    quint32 type = 0;
    int index = 0;
    if (ui->channelRadioButton->isChecked()) {
        type = ConsoleCache::StepChannel;
        index = ui->channelComboBox->currentData().toInt();
    } else if (ui->memoryRadioButton->isChecked()) {
        type = ConsoleCache::StepMemory;
        index = ui->memoryComboBox->currentData().toInt();
    } else if (ui->directCueRadioButton->isChecked()) {
        type = ConsoleCache::StepDirectCue;
    } else {
        accept();
        return;
    }
    if (cache && SequenceSteps::isValid(sequence))
        cache->insertStep(sequence.page, sequence.fader, position, chosenCueNumber(), type,
                          quint16(index));
    accept();
}
