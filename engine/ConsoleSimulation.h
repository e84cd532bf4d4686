// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ModelProfile.h"
#include "OutputMixer.h"
#include "RecordAreaWriter.h"

#include <QString>

struct ConsoleStateRecord;
struct PanelEvent;
class EngineNotifier;

// The simulated console itself. Runs on the engine thread only; every record
// write of the engine happens here.
class ConsoleSimulation
{
public:
    enum class OpenResult
    {
        Loaded = 0,
        OtherConsoleType = 1,
        ReadError = 2
    };

    ConsoleSimulation(ConsoleStateRecord* record, EngineNotifier& notifier,
                      const ModelProfile& profile);

    // Lays the record out for the model and writes the console's version.
    void start(const QString& consoleVersion);
    // Called after the engine thread has ended.
    void shutdown();

    void handleUpdate(int code, int a, int b, int c);
    void handlePanel(const PanelEvent& event);
    void tick(int milliseconds);
    void consumeDmxWrites();
    void usbDeviceRemoved();

    void newShow();
    OpenResult openShow(const QString& fileName);
    void saveShow();
    void saveShowAs(const QString& fileName);

private:
    void initialiseRecord();
    void publishOutput();

    ConsoleStateRecord* record_;
    EngineNotifier& notifier_;
    ModelProfile profile_;
    RecordAreaWriter area_;
    OutputMixer output_;
};
