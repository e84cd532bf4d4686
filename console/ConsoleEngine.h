// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class IConsoleHandler;
struct ConsoleStateRecord;
struct PanelEvent;

// The engine object of an engine library. The order of these virtual
// operations is the engine's binary interface: never reorder, never add a
// virtual destructor (release() ends the object).
class ConsoleEngine
{
public:
    virtual void start(IConsoleHandler* handler, int languageIndex, int modelVariant) = 0; // slot 0
    virtual void release() = 0;                                                            // slot 1
    virtual ConsoleStateRecord* stateRecord() = 0;                                         // slot 2
    virtual void panelEvent(const PanelEvent* event) = 0;                                  // slot 3
    virtual void update(int code, int a, int b, int c) = 0;                                // slot 4
    virtual void usbDeviceRemoved() = 0;                                                   // slot 5
    virtual void newShow() = 0;                                                            // slot 6
    virtual int openShow(QString fileName) = 0;                                            // slot 7
    virtual void saveShow() = 0;                                                           // slot 8
    virtual void saveShowAs(QString fileName) = 0;                                         // slot 9
    virtual QString softwareVersion() = 0;                                                 // slot 10

    // The interface version the program asks getConsole() for.
    static constexpr int interfaceVersion = 5;

protected:
    ~ConsoleEngine() = default;
};

// The factory every engine library exports.
extern "C" {
using GetConsoleFunction = ConsoleEngine* (*)(int version);
}

// openShow() results.
enum class OpenShowResult : int { Loaded = 0, OtherConsoleType = 1, ReadError = 2 };
