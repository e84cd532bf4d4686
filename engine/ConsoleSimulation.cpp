// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "EngineNotifier.h"
#include "PanelEvent.h"

#include <cstring>

namespace {
constexpr quint16 fullRate = 256;
constexpr quint8 noEffectPattern = 255;
} // namespace

ConsoleSimulation::ConsoleSimulation(ConsoleStateRecord* record, EngineNotifier& notifier,
                                     const ModelProfile& profile)
    : record_(record), notifier_(notifier), profile_(profile), area_(record), output_(record)
{
}

void ConsoleSimulation::start(const QString& consoleVersion)
{
    initialiseRecord();
    area_.reset();
    area_.setFixedText(record_->consoleVersion, consoleVersion);
    if (profile_.isMaple())
        area_.setFixedText(record_->libraryVersion, QStringLiteral("1.0"));
    area_.setFixedPersonalities({});
    publishOutput();
    notifier_.discard();
}

void ConsoleSimulation::initialiseRecord()
{
    std::memset(static_cast<void*>(record_), 0, sizeof(ConsoleStateRecord));
    ConsoleStateRecord& r = *record_;
    r.channelCount = profile_.channelCount;
    r.patchAddressCount = profile_.patchAddressCount;
    r.deviceCount = profile_.deviceCount;
    r.faderCount = profile_.faderCount;
    r.pageCount = profile_.pageCount;
    r.sequenceFaderCount = profile_.sequenceFaderCount;
    r.consoleMode = profile_.consoleMode;
    r.consoleStatus = 0; // simulated: no console attached
    r.grandMasterLevel = 255;
    r.bumpLevel = 255;
    r.defaultUpFade = 30;
    r.defaultDownFade = 30;
    r.defaultMoveDark = 10;
    for (SequenceRecord& sequence : r.sequences) {
        sequence.rate = fullRate;
        sequence.fade = fullRate;
    }
    for (PlaybackRecord& playback : r.playbacks) {
        playback.rate = fullRate;
        playback.fade = fullRate;
    }
    for (EffectRecord& effect : r.effects)
        effect.pattern = noEffectPattern;
}

void ConsoleSimulation::shutdown() {}

void ConsoleSimulation::handleUpdate(int code, int a, int b, int c)
{
    Q_UNUSED(a);
    Q_UNUSED(b);
    Q_UNUSED(c);
    switch (code) {
    case ConsoleCode::PatchChanged:
        publishOutput();
        break;
    default:
        break;
    }
}

void ConsoleSimulation::handlePanel(const PanelEvent& event)
{
    Q_UNUSED(event);
}

void ConsoleSimulation::tick(int milliseconds)
{
    Q_UNUSED(milliseconds);
    consumeDmxWrites();
}

void ConsoleSimulation::consumeDmxWrites()
{
    constexpr int ringSize = ConsoleStateRecord::dmxWriteRingSize;
    const quint8 write = __atomic_load_n(&record_->dmxWriteIndex, __ATOMIC_ACQUIRE);
    quint8 read = record_->dmxReadIndex;
    if (write >= ringSize || read >= ringSize)
        return;
    if (read == write)
        return;
    while (read != write) {
        output_.park(record_->dmxWriteRing[read]);
        read = quint8((read + 1) % ringSize);
    }
    __atomic_store_n(&record_->dmxReadIndex, read, __ATOMIC_RELEASE);
    publishOutput();
}

void ConsoleSimulation::publishOutput()
{
    if (output_.publish())
        notifier_.mark(ConsoleCode::OutputLevelsChanged);
}

void ConsoleSimulation::usbDeviceRemoved()
{
    record_->consoleStatus = 0;
    notifier_.mark(ConsoleCode::ConsoleStatusChanged);
}

void ConsoleSimulation::newShow() {}

ConsoleSimulation::OpenResult ConsoleSimulation::openShow(const QString& fileName)
{
    Q_UNUSED(fileName);
    return OpenResult::ReadError;
}

void ConsoleSimulation::saveShow() {}

void ConsoleSimulation::saveShowAs(const QString& fileName)
{
    Q_UNUSED(fileName);
}
