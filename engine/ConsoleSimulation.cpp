// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleSimulation.h"

#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"
#include "DemoShow.h"
#include "EngineNotifier.h"
#include "PanelEvent.h"
#include "PersonalityLibrary.h"
#include "ShowData.h"
#include "ShowFile.h"
#include "StepList.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr quint16 fullRate = 256;
constexpr quint32 stepChannel = 0;
constexpr quint32 stepMemory = 1;
constexpr quint32 stepDirectCue = 2;
constexpr quint32 modeLoop = 0;
constexpr quint32 modeManual = 2;
constexpr int pan = 1;
constexpr int tilt = 2;
constexpr int shutter = 9;
constexpr int panFine = 48;
constexpr int tiltFine = 49;
constexpr int sequencesPerPage = ConsoleStateRecord::sequenceFadersPerPage;

// Parameter group: 0 Focus, 1 Color, 2 Beam, 3 User.
int parameterGroup(int parameter)
{
    if (parameter == 1 || parameter == 2 || parameter == 48 || parameter == 49)
        return 0;
    if (parameter == 0 || (parameter >= 3 && parameter <= 8))
        return 1;
    if (parameter >= 9 && parameter <= 47)
        return 2;
    return 3;
}

bool isInvertedMix(const DeviceRecord& device, int parameter)
{
    return device.invertedColourMixing && (parameter == 0 || parameter == 3 || parameter == 4);
}

quint8 scaled(int level, int master)
{
    return quint8((level * master + 127) / 255);
}
} // namespace

ConsoleSimulation::ConsoleSimulation(ConsoleStateRecord* record, EngineNotifier& notifier,
                                     const ModelProfile& profile)
    : record_(record), notifier_(notifier), profile_(profile), area_(record), output_(record),
      store_(profile), panel_(*this), feedback_(*this)
{
}

// ---- start, state, show files ---------------------------------------------

void ConsoleSimulation::start(const QString& consoleVersion)
{
    // Nothing is announced before the version: the program is not listening yet.
    const bool wasMuted = notifier_.isMuted();
    notifier_.setMuted(true);
    initialiseRecord();
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

// ---- requests --------------------------------------------------------------

void ConsoleSimulation::handleUpdate(int code, int a, int b, int c)
{
    switch (code) {
    case ConsoleCode::PatchDevice:
        patchDevice(a, b, c);
        break;
    case ConsoleCode::UnpatchDevice:
        unpatchDevice(a);
        break;
    case ConsoleCode::MoveDevice:
        moveDevice(a, b);
        break;
    case ConsoleCode::InsertStep:
        insertStep(a, b, c);
        break;
    case ConsoleCode::DeleteStep:
        deleteStep(a, b);
        break;
    case ConsoleCode::MoveStepFrom:
        pendingMove_ = {true, a, b};
        break;
    case ConsoleCode::MoveStepTo:
        moveStep(a, b, c);
        break;
    case ConsoleCode::System:
        if (a == SystemCode::SelectPage)
            selectPage(b);
        else if (a >= SystemCode::EraseFirst && a <= SystemCode::EraseLast)
            erase(a);
        break;
    case ConsoleCode::PaletteChanged:
        // Parameters that follow this palette take its new values.
        for (int d = 0; d < profile_.deviceCount; ++d) {
            for (int p = 0; p < ContentRecord::parameterCount; ++p) {
                const size_t i = size_t(LiveState::parameterIndex(d, p));
                if (a >= 0 && a < 24 && live_.parameterPalette[i] == a + 1)
                    live_.parameterValue[i] = record_->palettes[a].values[d][p];
            }
        }
        showChanged_ = true;
        dirty_ = true;
        break;
    case ConsoleCode::DeviceStatusChanged:
    case ConsoleCode::ConsoleStatusChanged:
        dirty_ = true;
        break;
    default:
        if ((code >= 0 && code <= 24) || code == ConsoleCode::SystemSettingsChanged) {
            showChanged_ = true;
            dirty_ = true;
        }
        break;
    }
}

void ConsoleSimulation::setDeviceDefaults(int device)
{
    for (int p = 0; p < ContentRecord::parameterCount; ++p) {
        const size_t i = size_t(LiveState::parameterIndex(device, p));
        live_.parameterValue[i] = (p == pan || p == tilt) ? 128 : p == shutter ? 255 : 0;
        live_.parameterPalette[i] = 0;
    }
}

void ConsoleSimulation::patchDevice(int device, int personalityId, int address)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    const PersonalityLibrary::Personality* personality = PersonalityLibrary::find(personalityId);
    const int footprint = personality ? int(personality->layout.size()) : 0;
    if (personality && address >= 0 && address + footprint <= profile_.patchAddressCount) {
        PersonalityLibrary::fillDevice(record_->devices[device], *personality, address);
        setDeviceDefaults(device);
        showChanged_ = true;
        dirty_ = true;
    } else {
        qWarning("Simulated console: cannot patch device %d with personality %d at %d", device + 1,
                 personalityId, address);
    }
    notifier_.send(ConsoleCode::DeviceChanged, device);
}

void ConsoleSimulation::unpatchDevice(int device)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    std::memset(static_cast<void*>(&record_->devices[device]), 0, sizeof(DeviceRecord));
    record_->deviceSelected[device] = 0;
    showChanged_ = true;
    dirty_ = true;
    notifier_.send(ConsoleCode::DeviceChanged, device);
}

void ConsoleSimulation::moveDevice(int device, int address)
{
    if (device < 0 || device >= profile_.deviceCount)
        return;
    DeviceRecord& record = record_->devices[device];
    if (record.firstAddress != 0 && address >= 0 &&
        address + record.footprint <= profile_.patchAddressCount) {
        record.firstAddress = quint16(address + 1);
        showChanged_ = true;
        dirty_ = true;
    }
    notifier_.send(ConsoleCode::DeviceChanged, device);
}

int ConsoleSimulation::playbackOfKey(int key) const
{
    StepList list(record_, key);
    if (!list.isValid())
        return -1;
    if (list.isStack())
        return stackPlayback;
    return faderPage(profile_.firstSequenceFader() + list.fader()) == list.page() ? list.fader()
                                                                                  : -1;
}

void ConsoleSimulation::answerSequence(int key, int step)
{
    StepList list(record_, key);
    if (list.isStack()) {
        if (step >= 0)
            notifier_.send(ConsoleCode::StackCueChanged, step);
        notifier_.send(ConsoleCode::StackChanged);
    } else {
        notifier_.send(ConsoleCode::SequenceChanged, list.page(), list.fader());
    }
}

void ConsoleSimulation::insertStep(int key, int step, int cue)
{
    StepList list(record_, key);
    if (!list.isValid())
        return;
    const int index = std::min(step, list.count());
    if (!list.insert(index, quint16(cue), *record_)) {
        qWarning("Simulated console: no room for another step (%d of %d)", list.count(),
                 list.capacity());
        return;
    }
    const int playback = playbackOfKey(key);
    if (playback >= 0)
        players_[size_t(playback)].stepInserted(index);
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, index);
}

void ConsoleSimulation::deleteStep(int key, int step)
{
    StepList list(record_, key);
    if (!list.isValid() || !list.remove(step))
        return;
    const int playback = playbackOfKey(key);
    if (playback >= 0) {
        CuePlayer& player = players_[size_t(playback)];
        player.stepRemoved(step);
        if (player.next() >= list.count())
            player.setNext(list.count() > 0 ? nextIndex(playback, list.count() - 1) : -1);
    }
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, -1);
}

void ConsoleSimulation::moveStep(int key, int to, int cue)
{
    if (!pendingMove_.valid || pendingMove_.key != key)
        return;
    const int from = pendingMove_.from;
    pendingMove_ = {};
    StepList list(record_, key);
    if (!list.isValid() || !list.move(from, to, quint16(cue)))
        return;
    const int playback = playbackOfKey(key);
    if (playback >= 0) {
        // The playback keeps its place by position, as a console does.
        players_[size_t(playback)].setNext(
            std::min(players_[size_t(playback)].next(), list.count() - 1));
    }
    showChanged_ = true;
    dirty_ = true;
    answerSequence(key, -1);
}

void ConsoleSimulation::erase(int subCode)
{
    beginBulk();
    switch (subCode) {
    case 11:
        ShowData::clearMemories(record_);
        break;
    case 12:
        ShowData::clearSequences(record_);
        break;
    case 13:
        ShowData::clearStack(record_);
        break;
    case 14:
        ShowData::clearPalettes(record_);
        break;
    case 15:
        ShowData::clearPatch(record_);
        break;
    default:
        ShowData::clearShow(record_);
        break;
    }
    resetLive();
    endBulk();
    refresh();
}

// ---- DMX ring ------------------------------------------------------------

void ConsoleSimulation::consumeDmxWrites()
{
    constexpr int ringSize = ConsoleStateRecord::dmxWriteRingSize;
    const quint8 write = __atomic_load_n(&record_->dmxWriteIndex, __ATOMIC_ACQUIRE);
    quint8 read = record_->dmxReadIndex;
    if (write >= ringSize || read >= ringSize || read == write)
        return;
    while (read != write) {
        applyDmxWrite(record_->dmxWriteRing[read]);
        read = quint8((read + 1) % ringSize);
    }
    __atomic_store_n(&record_->dmxReadIndex, read, __ATOMIC_RELEASE);
    dirty_ = true;
}

void ConsoleSimulation::applyDmxWrite(const DmxWrite& write)
{
    const int universe = write.address >> 9;
    if (universe > 1)
        return;
    const int address = universe * 512 + (write.address & 0x1ff);
    const int palette = write.palette; // index + 1, 0 for a level
    for (int d = 0; d < profile_.deviceCount; ++d) {
        const DeviceRecord& device = record_->devices[d];
        const int first = device.firstAddress - 1;
        if (device.firstAddress == 0 || address < first || address >= first + device.footprint)
            continue;
        const PersonalityLibrary::Personality* personality =
            PersonalityLibrary::find(PersonalityLibrary::deviceId(device));
        if (!personality || address - first >= int(personality->layout.size()))
            continue;
        const int parameter = personality->layout[size_t(address - first)];
        if (parameter == PersonalityLibrary::intensitySlot) {
            live_.manual[size_t(profile_.firstDeviceChannel() + d)] = write.level;
            return;
        }
        const size_t i = size_t(LiveState::parameterIndex(d, parameter));
        if (palette > 0 && palette <= 24) {
            quint8 value = record_->palettes[palette - 1].values[d][parameter];
            if (isInvertedMix(device, parameter))
                value = quint8(~value);
            live_.parameterValue[i] = value;
            live_.parameterPalette[i] = quint8(palette);
        } else {
            live_.parameterValue[i] = write.level;
            live_.parameterPalette[i] = 0;
        }
        return;
    }
    const int entry = address < profile_.patchAddressCount ? record_->dmxPatch[address] : 0;
    if (entry >= 1 && entry <= profile_.channelCount) {
        live_.manual[size_t(entry - 1)] = write.level;
    } else if (entry > profile_.channelCount && entry <= profile_.channelCount + 2) {
        record_->independents[entry - profile_.channelCount - 1].currentLevel = write.level;
        notifier_.mark(ConsoleCode::IndependentsChanged);
    } else {
        output_.park(address, write.level, quint8(palette));
    }
}

// ---- playback --------------------------------------------------------------

int ConsoleSimulation::faderPage(int fader) const
{
    if (fader < 0 || fader >= LiveState::faders)
        return record_->memoryPage;
    const int loaded = live_.loadedPage[size_t(fader)];
    return loaded >= 0 ? loaded : record_->memoryPage;
}

const StepRecord* ConsoleSimulation::stepsOf(int playback, int* count, quint32* mode) const
{
    if (playback == stackPlayback) {
        *count = record_->stackStepCount;
        *mode = record_->stackMode;
        return record_->stackSteps;
    }
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    const SequenceRecord& sequence = record_->sequences[page * sequencesPerPage + playback];
    *count = sequence.stepCount;
    *mode = sequence.mode;
    return sequence.steps;
}

bool ConsoleSimulation::sequenceHasSteps(int page, int sequenceFader) const
{
    if (sequenceFader < 0 || sequenceFader >= profile_.sequenceFaderCount || page < 0 || page >= 12)
        return false;
    return record_->sequences[page * sequencesPerPage + sequenceFader].stepCount > 0;
}

int ConsoleSimulation::nextIndex(int playback, int from) const
{
    int count = 0;
    quint32 mode = 0;
    stepsOf(playback, &count, &mode);
    if (count == 0)
        return -1;
    if (from + 1 < count)
        return from + 1;
    return mode == modeLoop ? 0 : -1;
}

void ConsoleSimulation::resolveContent(const ContentRecord& content, CueTarget& target) const
{
    std::copy(std::begin(content.channelLevels), std::end(content.channelLevels),
              target.levels.begin());
    for (int d = 0; d < profile_.deviceCount; ++d) {
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            const int i = LiveState::parameterIndex(d, p);
            const ParameterEntry& entry = content.parameters[i];
            if (!(entry.flags & ParameterEntry::setBit))
                continue;
            target.parameterSet.set(size_t(i));
            if ((entry.flags & ParameterEntry::paletteBit) && entry.value < 24) {
                quint8 value = record_->palettes[entry.value].values[d][p];
                if (isInvertedMix(record_->devices[d], p))
                    value = quint8(~value);
                target.parameterValue[size_t(i)] = value;
                target.parameterPalette[size_t(i)] = quint8(entry.value + 1);
            } else {
                target.parameterValue[size_t(i)] = entry.value;
                target.parameterPalette[size_t(i)] = 0;
            }
        }
    }
}

void ConsoleSimulation::resolveStep(const StepRecord& step, CueTarget& target) const
{
    target.clear();
    target.flags = step.flags;
    switch (step.contentType) {
    case stepChannel:
        if (step.contentIndex < profile_.channelCount)
            target.levels[step.contentIndex] = 255;
        break;
    case stepMemory: {
        const int page = step.contentIndex / profile_.faderCount;
        const int memory = step.contentIndex % profile_.faderCount;
        if (page < ConsoleStateRecord::pages)
            resolveContent(
                record_->memories[page * ConsoleStateRecord::memoriesPerPage + memory].content,
                target);
        break;
    }
    case stepDirectCue:
        if (step.contentIndex < ConsoleStateRecord::stackCues)
            resolveContent(record_->cueContents[step.contentIndex], target);
        break;
    default:
        break;
    }
}

void ConsoleSimulation::startStep(int playback, int index)
{
    int count = 0;
    quint32 mode = 0;
    const StepRecord* steps = stepsOf(playback, &count, &mode);
    if (index < 0 || index >= count)
        return;
    const StepRecord& step = steps[index];
    CueTarget target;
    resolveStep(step, target);
    const int fade = playbackFade(playback);
    CuePlayer::Timing timing;
    timing.upMs = int(qint64(step.upTime) * 100 * fade / 256);
    timing.downMs = int(qint64(step.downTime) * 100 * fade / 256);
    timing.waitMs = step.waitTime * 100;
    const int next = nextIndex(playback, index);
    if (playback == stackPlayback)
        timing.autoFollow = mode != modeManual && step.waitTime > 0 && next >= 0;
    else
        timing.autoFollow = mode != modeManual && next >= 0;
    CuePlayer& player = players_[size_t(playback)];
    player.start(index, target, timing, live_);
    player.setNext(next);
    dirty_ = true;
}

quint16 ConsoleSimulation::playbackRate(int playback) const
{
    if (playback == stackPlayback)
        return stackRate_;
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    return record_->sequences[page * sequencesPerPage + playback].rate;
}

quint16 ConsoleSimulation::playbackFade(int playback) const
{
    if (playback == stackPlayback)
        return fullRate;
    const int page = faderPage(profile_.firstSequenceFader() + playback);
    return record_->sequences[page * sequencesPerPage + playback].fade;
}

void ConsoleSimulation::go()
{
    CuePlayer& stack = players_[stackPlayback];
    if (stack.isPaused() && stack.phase() == CuePlayer::Phase::Fading) {
        stack.setPaused(false);
        dirty_ = true;
        return;
    }
    startStep(stackPlayback, stack.next());
}

void ConsoleSimulation::back()
{
    CuePlayer& stack = players_[stackPlayback];
    if (stack.live() > 0)
        startStep(stackPlayback, stack.live() - 1);
    else
        releaseStack();
}

void ConsoleSimulation::togglePause()
{
    CuePlayer& stack = players_[stackPlayback];
    stack.setPaused(!stack.isPaused());
    dirty_ = true;
}

void ConsoleSimulation::skipToNextCue(int direction)
{
    int count = 0;
    quint32 mode = 0;
    stepsOf(stackPlayback, &count, &mode);
    if (count == 0)
        return;
    CuePlayer& stack = players_[stackPlayback];
    const int current = stack.next() >= 0 ? stack.next() : (direction > 0 ? -1 : count);
    stack.setNext(((current + direction) % count + count) % count);
    dirty_ = true;
}

void ConsoleSimulation::releaseStack()
{
    CuePlayer& stack = players_[stackPlayback];
    int count = 0;
    quint32 mode = 0;
    const StepRecord* steps = stepsOf(stackPlayback, &count, &mode);
    const int live = stack.live();
    const int downMs = live >= 0 && live < count ? steps[live].downTime * 100 : 0;
    stack.release(downMs);
    stack.setNext(count > 0 ? 0 : -1);
    dirty_ = true;
}

void ConsoleSimulation::stepSequence(int sequenceFader)
{
    if (sequenceFader < 0 || sequenceFader >= profile_.sequenceFaderCount)
        return;
    CuePlayer& player = players_[size_t(sequenceFader)];
    startStep(sequenceFader, player.next() >= 0 ? player.next() : 0);
}

void ConsoleSimulation::runSequences()
{
    for (int f = 0; f < profile_.sequenceFaderCount; ++f) {
        const int fader = profile_.firstSequenceFader() + f;
        CuePlayer& player = players_[size_t(f)];
        const bool up = live_.playbackFader[size_t(fader)] > 0;
        if (!up || !sequenceHasSteps(faderPage(fader), f)) {
            if (player.isActive()) {
                player.reset();
                player.setNext(0);
            }
            continue;
        }
        if (!player.isActive())
            startStep(f, 0);
    }
}

void ConsoleSimulation::advancePlayers(int milliseconds)
{
    for (int p = 0; p < 13; ++p) {
        CuePlayer& player = players_[size_t(p)];
        if (!player.isActive())
            continue;
        if (player.tick(milliseconds, playbackRate(p)))
            startStep(p, player.next());
        dirty_ = true;
    }
}

// ---- mixing and publishing -------------------------------------------------

void ConsoleSimulation::tick(int milliseconds)
{
    consumeDmxWrites();
    runSequences();
    advancePlayers(milliseconds);
    if (dirty_)
        refresh();
    if (showChanged_) {
        quietMs_ += milliseconds;
        if (quietMs_ >= keepStateAfterMs)
            keepState();
    }
}

void ConsoleSimulation::refresh()
{
    dirty_ = false;
    runSequences(); // a sequence starts as soon as its fader leaves zero
    for (CuePlayer& player : players_)
        player.applyParameters(live_);
    mixChannels();
    publishOutput();
    publishFaders();
    publishPlaybacks();
    feedback_.publish(notifier_);
}

void ConsoleSimulation::mixChannels()
{
    std::array<quint8, LiveState::channels> levels{};
    const int channels = profile_.channelCount;
    const bool soloing = live_.solo && (live_.flashHeld.any() || live_.channelFlash.any());
    const int bump = record_->bumpLevel;
    auto raise = [&levels](int c, int level) {
        levels[size_t(c)] = std::max(levels[size_t(c)], quint8(level));
    };
    if (!soloing) {
        for (int c = 0; c < channels; ++c)
            raise(c, live_.manual[size_t(c)]);
        for (int fader = 0; fader < profile_.faderCount; ++fader) {
            const int master = live_.playbackFader[size_t(fader)];
            if (master == 0)
                continue;
            const int page = faderPage(fader);
            const int sequence = fader - profile_.firstSequenceFader();
            if (sequence >= 0 && sequenceHasSteps(page, sequence)) {
                const auto& played = players_[size_t(sequence)].levels();
                for (int c = 0; c < channels; ++c)
                    raise(c, scaled(played[size_t(c)], master));
                continue;
            }
            const MemoryRecord& memory =
                record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader];
            if (!memory.recorded)
                continue;
            for (int c = 0; c < channels; ++c)
                raise(c, scaled(memory.content.channelLevels[c], master));
        }
        const auto& stack = players_[stackPlayback].levels();
        for (int c = 0; c < channels; ++c)
            raise(c, stack[size_t(c)]);
    }
    for (int c = 0; c < channels; ++c) {
        if (live_.channelFlash.test(size_t(c)))
            raise(c, bump);
    }
    for (int fader = 0; fader < profile_.faderCount; ++fader) {
        if (!live_.flashHeld.test(size_t(fader)))
            continue;
        const MemoryRecord& memory =
            record_->memories[record_->memoryPage * ConsoleStateRecord::memoriesPerPage + fader];
        for (int c = 0; c < channels; ++c)
            raise(c, scaled(memory.content.channelLevels[c], bump));
    }
    if (std::memcmp(record_->channelLevels, levels.data(), sizeof record_->channelLevels) != 0) {
        std::memcpy(record_->channelLevels, levels.data(), sizeof record_->channelLevels);
        notifier_.mark(ConsoleCode::ChannelsChanged);
    }
}

void ConsoleSimulation::publishOutput()
{
    if (output_.publish(live_, profile_))
        notifier_.mark(ConsoleCode::OutputLevelsChanged);
}

void ConsoleSimulation::publishFaders()
{
    bool changed = false;
    const int mode = int(record_->liveMode);
    for (int fader = 0; fader < ConsoleStateRecord::maxFaders; ++fader) {
        FaderRecord& record = record_->faders[fader];
        quint8 level = 0;
        bool active = false;
        if (fader < profile_.faderCount) {
            const int playback = live_.playbackFader[size_t(fader)];
            if (mode == 0) {
                const int channel = panel_.channelOfFader(fader);
                if (channel < profile_.channelCount)
                    level = record_->blindMode ? record_->blindLevels[channel]
                                               : live_.manual[size_t(channel)];
            } else if (mode == 1) {
                level = quint8(playback);
            } else {
                level = panel_.parameterFaderLevel(fader);
            }
            active = playback > 0 || live_.flashHeld.test(size_t(fader));
        }
        const quint8 page = quint8(faderPage(fader));
        if (record.level != level || record.active != quint8(active) || record.pageLoaded != page) {
            record.level = level;
            record.active = quint8(active);
            record.pageLoaded = page;
            changed = true;
        }
    }
    if (changed)
        notifier_.mark(ConsoleCode::FadersChanged);
}

void ConsoleSimulation::publishPlaybacks()
{
    bool changed = false;
    for (int p = 0; p < 13; ++p) {
        int count = 0;
        quint32 mode = 0;
        if (p != stackPlayback && p >= profile_.sequenceFaderCount)
            continue;
        stepsOf(p, &count, &mode);
        changed |= players_[size_t(p)].publish(record_->playbacks[p], count, playbackRate(p),
                                               playbackFade(p));
    }
    if (changed)
        notifier_.mark(ConsoleCode::PlaybackChanged);
}

// ---- console actions -------------------------------------------------------

void ConsoleSimulation::handlePanel(const PanelEvent& event)
{
    panel_.handle(event);
    dirty_ = true;
}

void ConsoleSimulation::markStatusChanged()
{
    notifier_.mark(ConsoleCode::ConsoleStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::usbDeviceRemoved()
{
    record_->consoleStatus = 0;
    markStatusChanged();
}

void ConsoleSimulation::setPageFader(int fader, quint8 level)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    switch (record_->liveMode) {
    case 0: {
        const int channel = panel_.channelOfFader(fader);
        if (channel >= profile_.channelCount)
            return;
        if (record_->blindMode) {
            record_->blindLevels[channel] = level;
            notifier_.mark(ConsoleCode::BlindLevelsChanged);
        } else {
            live_.manual[size_t(channel)] = level;
        }
        break;
    }
    case 1: {
        quint8& current = live_.playbackFader[size_t(fader)];
        if (current == 0 && level > 0) {
            live_.loadedPage[size_t(fader)] = qint8(record_->memoryPage);
            const int sequence = fader - profile_.firstSequenceFader();
            if (sequence < 0 || !sequenceHasSteps(record_->memoryPage, sequence)) {
                // A memory's parameters jump in when its fader leaves zero.
                CueTarget target;
                resolveContent(
                    record_
                        ->memories[record_->memoryPage * ConsoleStateRecord::memoriesPerPage +
                                   fader]
                        .content,
                    target);
                for (int i = 0; i < LiveState::parameters; ++i) {
                    if (target.parameterSet.test(size_t(i))) {
                        live_.parameterValue[size_t(i)] = target.parameterValue[size_t(i)];
                        live_.parameterPalette[size_t(i)] = target.parameterPalette[size_t(i)];
                    }
                }
            }
        } else if (level == 0) {
            live_.loadedPage[size_t(fader)] = -1;
        }
        current = level;
        break;
    }
    default:
        panel_.setParameterFromFader(fader, level);
        break;
    }
    dirty_ = true;
}

void ConsoleSimulation::setGrandMaster(quint8 level)
{
    record_->grandMasterLevel = level;
    notifier_.mark(ConsoleCode::FadersChanged);
    dirty_ = true;
}

void ConsoleSimulation::setBumpLevel(quint8 level)
{
    record_->bumpLevel = level;
    notifier_.mark(ConsoleCode::FadersChanged);
    dirty_ = true;
}

void ConsoleSimulation::setCrossfader(int which, quint8 level)
{
    live_.crossfader[size_t(which)] = level;
    const int low = std::min(live_.crossfader[0], live_.crossfader[1]);
    const int high = std::max(live_.crossfader[0], live_.crossfader[1]);
    const int position = live_.crossfadeSide == 0 ? low : 255 - high;
    CuePlayer& stack = players_[stackPlayback];
    if (!stack.isManual()) {
        if (position == 0 || stack.next() < 0)
            return;
        startStep(stackPlayback, stack.next());
    }
    stack.setManualPosition(position);
    if (position >= 255)
        live_.crossfadeSide = 1 - live_.crossfadeSide;
    dirty_ = true;
}

void ConsoleSimulation::setFlash(int fader, bool held)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    if (record_->liveMode == 0) {
        const int channel = panel_.channelOfFader(fader);
        if (channel < profile_.channelCount)
            live_.channelFlash.set(size_t(channel), held);
    } else if (record_->liveMode == 1) {
        const int sequence = fader - profile_.firstSequenceFader();
        if (sequence >= 0 && sequenceHasSteps(record_->memoryPage, sequence)) {
            if (held)
                stepSequence(sequence);
        } else {
            live_.flashHeld.set(size_t(fader), held);
        }
    }
    dirty_ = true;
}

void ConsoleSimulation::setChannelBank(int bank)
{
    record_->liveMode = 0;
    record_->channelPage = bank;
    markStatusChanged();
}

void ConsoleSimulation::setMemoriesMode()
{
    record_->liveMode = 1;
    markStatusChanged();
}

void ConsoleSimulation::setParameterPage(int page)
{
    record_->liveMode = 2;
    record_->faderParameterPage = page;
    markStatusChanged();
}

void ConsoleSimulation::selectPage(int page)
{
    if (page < 0 || page >= profile_.pageCount)
        return;
    record_->memoryPage = page;
    markStatusChanged();
}

void ConsoleSimulation::stepPage(int direction)
{
    selectPage(((record_->memoryPage + direction) % profile_.pageCount + profile_.pageCount) %
               profile_.pageCount);
}

void ConsoleSimulation::setIndependentKey(int independent, bool pressed)
{
    IndependentRecord& record = record_->independents[independent];
    if (record.buttonMode == 0) {
        if (pressed)
            record.currentLevel = record.currentLevel ? 0 : record.onLevel;
    } else {
        record.currentLevel = pressed ? record.onLevel : 0;
    }
    notifier_.mark(ConsoleCode::IndependentsChanged);
    dirty_ = true;
}

void ConsoleSimulation::toggleBlind()
{
    record_->blindMode = record_->blindMode ? 0 : 1;
    if (record_->blindMode)
        std::memcpy(record_->blindLevels, record_->channelLevels, sizeof record_->blindLevels);
    notifier_.mark(ConsoleCode::BlindLevelsChanged);
    markStatusChanged();
}

void ConsoleSimulation::recordMemory(int fader, bool selectedDevicesOnly)
{
    if (fader < 0 || fader >= profile_.faderCount)
        return;
    refresh(); // record what is on stage right now
    const int page = record_->memoryPage;
    MemoryRecord& memory = record_->memories[page * ConsoleStateRecord::memoriesPerPage + fader];
    ContentRecord& content = memory.content;
    std::memset(static_cast<void*>(&content), 0, sizeof content);
    const quint8* levels = record_->blindMode ? record_->blindLevels : record_->channelLevels;
    std::memcpy(content.channelLevels, levels, sizeof content.channelLevels);
    content.contentMask = 0x01;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->devices[d].firstAddress == 0 ||
            (selectedDevicesOnly && !record_->deviceSelected[d]))
            continue;
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            if (record_->devices[d].parameterMap[p] == 0)
                continue;
            const size_t i = size_t(LiveState::parameterIndex(d, p));
            ParameterEntry& entry = content.parameters[i];
            const int palette = live_.parameterPalette[i];
            entry.flags =
                quint8(ParameterEntry::setBit | (palette ? ParameterEntry::paletteBit : 0));
            entry.value = palette ? quint8(palette - 1) : live_.parameterValue[i];
            const int group = parameterGroup(p);
            if (group < 3)
                content.contentMask |= quint8(1 << (group + 1));
        }
    }
    memory.recorded = 1;
    showChanged_ = true;
    notifier_.send(ConsoleCode::MemoryChanged, page, fader);
}

void ConsoleSimulation::recordStackCue()
{
    refresh(); // record what is on stage right now
    int slot = -1;
    for (int n = 0; n < ConsoleStateRecord::stackCues && slot < 0; ++n) {
        if (!record_->cueRecorded[n])
            slot = n;
    }
    StepList stack(record_, profile_.sequenceFaderCount * ConsoleStateRecord::pages);
    if (slot < 0 || stack.count() >= stack.capacity())
        return;
    ContentRecord& content = record_->cueContents[slot];
    std::memset(static_cast<void*>(&content), 0, sizeof content);
    std::memcpy(content.channelLevels, record_->channelLevels, sizeof content.channelLevels);
    content.contentMask = 0x01;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->devices[d].firstAddress == 0)
            continue;
        for (int p = 0; p < ContentRecord::parameterCount; ++p) {
            if (record_->devices[d].parameterMap[p] == 0)
                continue;
            const size_t i = size_t(LiveState::parameterIndex(d, p));
            const int palette = live_.parameterPalette[i];
            content.parameters[i].flags =
                quint8(ParameterEntry::setBit | (palette ? ParameterEntry::paletteBit : 0));
            content.parameters[i].value = palette ? quint8(palette - 1) : live_.parameterValue[i];
        }
    }
    record_->cueRecorded[slot] = 1;
    const int index = stack.count();
    const int lastCue = index > 0 ? record_->stackSteps[index - 1].cueNumber : 0;
    stack.insert(index, quint16((lastCue / 10 + 1) * 10), *record_);
    StepRecord& step = record_->stackSteps[index];
    step.contentType = stepDirectCue;
    step.contentIndex = quint16(slot);
    step.flags = 0x01;
    if (players_[stackPlayback].next() < 0)
        players_[stackPlayback].setNext(index);
    showChanged_ = true;
    dirty_ = true;
    notifier_.send(ConsoleCode::StackCueChanged, index);
    notifier_.send(ConsoleCode::StackChanged);
}

void ConsoleSimulation::sendProgramCommand(int type, int argument)
{
    notifier_.send(ConsoleCode::System, SystemCode::LumideskCommand, type, argument);
}

void ConsoleSimulation::setSelectMode(quint32 mode)
{
    record_->selectMode = mode;
    markStatusChanged();
}

void ConsoleSimulation::pressSelectKey(int key, bool recording)
{
    const quint32 mode = record_->selectMode;
    if (mode == 1) {
        if (key < profile_.deviceCount) {
            record_->deviceSelected[key] = record_->deviceSelected[key] ? 0 : 1;
            notifier_.mark(ConsoleCode::DeviceStatusChanged);
        }
    } else if (mode == 2 || mode == 3) {
        GroupRecord& group = record_->groups[key];
        if (recording) {
            group.memberCount = 0;
            for (int d = 0; d < profile_.deviceCount; ++d) {
                if (record_->deviceSelected[d] && group.memberCount < 24)
                    group.members[group.memberCount++] = quint8(d);
            }
            showChanged_ = true;
            notifier_.send(ConsoleCode::GroupChanged, key);
        } else {
            std::memset(record_->deviceSelected, 0, sizeof record_->deviceSelected);
            for (int m = 0; m < group.memberCount && m < 25; ++m) {
                if (group.members[m] < profile_.deviceCount)
                    record_->deviceSelected[group.members[m]] = 1;
            }
            notifier_.mark(ConsoleCode::DeviceStatusChanged);
        }
    } else if (mode >= 4 && mode <= 6) {
        const int parameterGroupOfMode = int(mode) - 4;
        PaletteRecord& palette = record_->palettes[key];
        for (int d = 0; d < profile_.deviceCount; ++d) {
            if (!record_->deviceSelected[d])
                continue;
            const DeviceRecord& device = record_->devices[d];
            for (int p = 0; p < ContentRecord::parameterCount; ++p) {
                if (parameterGroup(p) != parameterGroupOfMode || device.parameterMap[p] == 0)
                    continue;
                const size_t i = size_t(LiveState::parameterIndex(d, p));
                const bool included = palette.include[d][p / 8] & (1 << (p % 8));
                if (recording) {
                    palette.values[d][p] = isInvertedMix(device, p)
                                               ? quint8(~live_.parameterValue[i])
                                               : live_.parameterValue[i];
                    palette.include[d][p / 8] |= quint8(1 << (p % 8));
                    palette.flags |= quint8(1 << (parameterGroupOfMode + 1));
                } else if (included) {
                    const quint8 stored = palette.values[d][p];
                    live_.parameterValue[i] = isInvertedMix(device, p) ? quint8(~stored) : stored;
                    live_.parameterPalette[i] = quint8(key + 1);
                }
            }
        }
        if (recording) {
            showChanged_ = true;
            notifier_.send(ConsoleCode::PaletteChanged, key);
        }
    }
    dirty_ = true;
}

void ConsoleSimulation::clearSelection()
{
    std::memset(record_->deviceSelected, 0, sizeof record_->deviceSelected);
    notifier_.mark(ConsoleCode::DeviceStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::selectActiveDevices()
{
    for (int d = 0; d < profile_.deviceCount; ++d)
        record_->deviceSelected[d] =
            record_->channelLevels[profile_.firstDeviceChannel() + d] > 0 ? 1 : 0;
    notifier_.mark(ConsoleCode::DeviceStatusChanged);
    dirty_ = true;
}

void ConsoleSimulation::homeSelectedDevices()
{
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (record_->deviceSelected[d])
            setDeviceDefaults(d);
    }
    dirty_ = true;
}

void ConsoleSimulation::turnWheel(int wheel, int steps, bool rateHeld)
{
    if (wheel == 0) {
        if (rateHeld) {
            stackRate_ = quint16(std::clamp(int(stackRate_) + steps * 8, 0, 1024));
            dirty_ = true;
        } else {
            skipToNextCue(steps > 0 ? 1 : -1);
        }
        return;
    }
    const int parameter = wheel == 1 ? pan : tilt;
    for (int d = 0; d < profile_.deviceCount; ++d) {
        if (!record_->deviceSelected[d])
            continue;
        const size_t i = size_t(LiveState::parameterIndex(d, parameter));
        live_.parameterValue[i] =
            quint8(std::clamp(int(live_.parameterValue[i]) + steps * 2, 0, 255));
        live_.parameterPalette[i] = 0;
        const size_t fine = size_t(LiveState::parameterIndex(d, wheel == 1 ? panFine : tiltFine));
        live_.parameterValue[fine] = 0;
        live_.parameterPalette[fine] = 0;
    }
    dirty_ = true;
}
