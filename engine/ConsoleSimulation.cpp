// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "DemoShow.h"
#include "EngineNotifier.h"
#include "PersonalityLibrary.h"
#include "ShowData.h"
#include "ShowFile.h"
#include "SimulationRules.h"

#include <algorithm>
#include <cstring>

using namespace SimulationRules;

ConsoleSimulation::ConsoleSimulation(ConsoleStateRecord* record, EngineNotifier& notifier,
                                     const ModelProfile& profile)
    : record_(record), notifier_(notifier), profile_(profile), area_(record), output_(record),
      store_(profile), panel_(*this), feedback_(*this)
{
}

void ConsoleSimulation::start(const QString& consoleVersion)
{
    // Nothing is announced before the version: the program is not listening yet.
    const bool wasMuted = notifier_.isMuted();
    notifier_.setMuted(true);
    initialiseRecord();
    publishInput();
    area_.reset();
    area_.setFixedText(record_->consoleVersion, consoleVersion);
    if (profile_.isMaple()) {
        area_.setFixedText(record_->libraryVersion, QStringLiteral("1.0"));
        area_.setFixedPersonalities(PersonalityLibrary::recordList());
    } else {
        area_.setFixedPersonalities({});
    }
    loadInitialShow();
    resetLive();
    refresh();
    notifier_.discard();
    notifier_.setMuted(wasMuted);
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
    r.consoleStatus = 0; // simulated: no console attached
    r.grandMasterLevel = 255;
    r.bumpLevel = 255;
    ShowData::resetSettings(record_, profile_);
    ShowData::clearShow(record_);
    for (PlaybackRecord& playback : r.playbacks) {
        playback.rate = fullRate;
        playback.fade = fullRate;
    }
}

void ConsoleSimulation::loadInitialShow()
{
    const StateStore::Loaded kept = store_.load();
    if (kept.ok && ShowData::restore(record_, kept.showData, profile_)) {
        area_.setText(record_->showFileName, kept.showFileName);
        return;
    }
    DemoShow::fill(record_, profile_);
    showChanged_ = true;
}

void ConsoleSimulation::keepState()
{
    if (store_.save(ShowData::capture(record_),
                    RecordArea::slotText(record_, record_->showFileName)))
        showChanged_ = false;
    quietMs_ = 0;
}

void ConsoleSimulation::shutdown()
{
    keepState();
}

void ConsoleSimulation::beginBulk()
{
    notifier_.flush();
    notifier_.send(ConsoleCode::System, 0);
}

void ConsoleSimulation::endBulk()
{
    notifier_.discard();
    notifier_.send(ConsoleCode::System, 1);
    dirty_ = true;
    showChanged_ = true;
}

void ConsoleSimulation::resetLive()
{
    for (CuePlayer& player : players_)
        player.reset();
    effects_.reset();
    live_.flashHeld.reset();
    live_.channelFlash.reset();
    live_.pause = false;
    output_.clearParked();
    live_.parameterValue.fill(0);
    live_.parameterPalette.fill(0);
    for (int d = 0; d < profile_.deviceCount; ++d)
        setDeviceDefaults(d);
    for (int p = 0; p < 13; ++p) {
        int count = 0;
        quint32 mode = 0;
        stepsOf(p, &count, &mode);
        players_[size_t(p)].setNext(count > 0 ? 0 : -1);
    }
    pendingMove_ = {};
    dirty_ = true;
}

void ConsoleSimulation::setShowFileName(const QString& name)
{
    if (RecordArea::slotText(record_, record_->showFileName) == name)
        return;
    area_.setText(record_->showFileName, name);
    notifier_.send(ConsoleCode::ShowFileNameChanged);
}

bool ConsoleSimulation::writeShow(const QString& fileName)
{
    QString error;
    const QByteArray bytes = ShowFile::encode(int(profile_.model), ShowData::capture(record_));
    if (!ShowFile::write(fileName, bytes, &error)) {
        qWarning("Simulated console: could not save the show to %s: %s", qPrintable(fileName),
                 qPrintable(error));
        return false;
    }
    return true;
}

void ConsoleSimulation::newShow()
{
    beginBulk();
    ShowData::clearShow(record_);
    resetLive();
    endBulk();
    setShowFileName(QString());
    keepState();
    refresh();
}

ConsoleSimulation::OpenResult ConsoleSimulation::openShow(const QString& fileName)
{
    const ShowFile::Contents contents = ShowFile::read(fileName, int(profile_.model));
    if (contents.status == ShowFile::Status::OtherConsoleType)
        return OpenResult::OtherConsoleType;
    if (contents.status != ShowFile::Status::Ok)
        return OpenResult::ReadError;
    beginBulk();
    ShowData::restore(record_, contents.showData, profile_);
    resetLive();
    endBulk();
    setShowFileName(fileName);
    keepState();
    refresh();
    return OpenResult::Loaded;
}

void ConsoleSimulation::saveShow()
{
    const QString name = RecordArea::slotText(record_, record_->showFileName);
    if (!name.isEmpty())
        writeShow(name);
}

void ConsoleSimulation::saveShowAs(const QString& fileName)
{
    if (fileName.isEmpty() || !writeShow(fileName))
        return;
    setShowFileName(fileName);
    keepState();
}
