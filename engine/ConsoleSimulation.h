// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CuePlayer.h"
#include "LiveState.h"
#include "ModelProfile.h"
#include "OutputMixer.h"
#include "PanelController.h"
#include "PanelFeedback.h"
#include "RecordAreaWriter.h"
#include "StateStore.h"

#include <QString>

#include <array>

struct ConsoleStateRecord;
struct PanelEvent;
class EngineNotifier;

// The simulated console itself. Runs on the engine thread only; every record
// write of the engine happens here. Requests and panel input change the
// console's state and mark it for the next tick, which mixes levels, runs the
// playbacks and publishes output, faders, playbacks, LEDs and LCD.
//
// The sources follow the concerns: ConsoleSimulation.cpp the show (start,
// state file, show files), ...Requests.cpp the program's update codes and
// the DMX ring, ...Playback.cpp playback, mixing and publishing,
// ...Recording.cpp memories, cues, groups and palettes, ...Panel.cpp the
// console actions behind the front panel, ...Steps.cpp sequence steps
// recorded from the panel.
class ConsoleSimulation
{
public:
    enum class OpenResult
    {
        Loaded = 0,
        OtherConsoleType = 1,
        ReadError = 2
    };
    static constexpr int stackPlayback = 12;
    // A show change is kept in the state file after this much quiet.
    static constexpr int keepStateAfterMs = 30000;

    ConsoleSimulation(ConsoleStateRecord* record, EngineNotifier& notifier,
                      const ModelProfile& profile);

    // Lays the record out for the model, writes the console's version and
    // brings back the show of the last run (or the demo show).
    void start(const QString& consoleVersion);
    // Called after the engine thread has ended: keeps the show.
    void shutdown();

    void handleUpdate(int code, int a, int b, int c);
    void handlePanel(const PanelEvent& event);
    void tick(int milliseconds);
    // Mixes and publishes everything that changed since the last time.
    void refresh();
    void consumeDmxWrites();
    void usbDeviceRemoved();

    void newShow();
    OpenResult openShow(const QString& fileName);
    void saveShow();
    void saveShowAs(const QString& fileName);

    // Console actions, used by the panel.
    const ModelProfile& profile() const { return profile_; }
    ConsoleStateRecord* record() { return record_; }
    LiveState& live() { return live_; }
    const CuePlayer& player(int playback) const { return players_[size_t(playback)]; }
    const PanelController& panel() const { return panel_; }
    void markChanged() { dirty_ = true; }
    void markStatusChanged();
    void go();
    void back();
    void togglePause();
    void skipToNextCue(int direction);
    void releaseStack();
    void stepSequence(int sequenceFader);
    void setPageFader(int fader, quint8 level);
    void setGrandMaster(quint8 level);
    void setBumpLevel(quint8 level);
    void setCrossfader(int which, quint8 level);
    void setFlash(int fader, bool held);
    void setChannelBank(int bank);
    void setMemoriesMode();
    void setParameterPage(int page);
    void selectPage(int page);
    void stepPage(int direction);
    void setIndependentKey(int independent, bool pressed);
    void recordMemory(int fader, bool selectedDevicesOnly);
    void recordStackCue();
    void sendProgramCommand(int type, int argument);
    void setSelectMode(quint32 mode);
    void pressSelectKey(int key, bool recording);
    void clearSelection();
    void selectActiveDevices();
    void homeSelectedDevices();
    void turnWheel(int wheel, int steps, bool rateHeld);
    void toggleBlind();

    // Sequence editing from the panel (ConsoleSimulationSteps.cpp): with
    // "Rec Seq" held, a sequence fader's flash key picks that sequence of
    // the current page; further flash keys append their memory (memories
    // mode) or channel (channel mode) to it as a step. Letting go of
    // "Rec Seq" forgets the sequence.
    void recordSequenceKey(int fader);
    void endSequenceRecording();

private:
    void initialiseRecord();
    void loadInitialShow();
    void keepState();
    void beginBulk();
    void endBulk();
    void resetLive();
    void setShowFileName(const QString& name);
    bool writeShow(const QString& fileName);

    void patchDevice(int device, int personality, int address);
    void unpatchDevice(int device);
    void moveDevice(int device, int address);
    void setDeviceDefaults(int device);
    void releaseDeviceAddresses(int device);
    void followPalette(int palette);
    void captureLive(ContentRecord& content, const quint8* levels, bool selectedDevicesOnly) const;
    void insertStep(int key, int step, int cue);
    void deleteStep(int key, int step);
    void moveStep(int key, int to, int cue);
    void answerSequence(int key, int step);
    void erase(int subCode);
    int playbackOfKey(int key) const;

    void applyDmxWrite(const DmxWrite& write);
    void resolveStep(const StepRecord& step, int cueSlot, CueTarget& target) const;
    void resolveContent(const ContentRecord& content, CueTarget& target) const;
    void startStep(int playback, int index);
    int nextIndex(int playback, int from) const;
    const StepRecord* stepsOf(int playback, int* count, quint32* mode) const;
    bool sequenceHasSteps(int page, int sequenceFader) const;
    int faderPage(int fader) const;
    void runSequences();
    void advancePlayers(int milliseconds);
    void mixChannels();
    void publishFaders();
    void publishPlaybacks();
    void publishOutput();
    quint16 playbackRate(int playback) const;
    quint16 playbackFade(int playback) const;

    ConsoleStateRecord* record_;
    EngineNotifier& notifier_;
    ModelProfile profile_;
    RecordAreaWriter area_;
    OutputMixer output_;
    StateStore store_;
    LiveState live_;
    std::array<CuePlayer, 13> players_{};
    PanelController panel_;
    PanelFeedback feedback_;
    quint16 stackRate_ = 256;
    bool dirty_ = true;
    bool showChanged_ = false;
    int quietMs_ = 0;
    // First half of a step move (35), waiting for its second half (42).
    struct PendingMove
    {
        bool valid = false;
        int key = 0;
        int from = 0;
    } pendingMove_;
    // The sequence "Rec Seq" records into, page -1 for none.
    struct SequenceTarget
    {
        int page = -1;
        int fader = -1;
    } sequenceTarget_;
};
