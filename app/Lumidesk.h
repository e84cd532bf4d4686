// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ApplicationHandler.h"
#include "ConsoleChoice.h"
#include "DeviceNotification.h"
#include "Resources.h"

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <optional>

class Console;
class OlaOutput;

// The application object: owns the console and the shared image set, and
// runs the program from the console choice to the teardown. Items below the
// application reach it through ConsoleLink.
class Lumidesk : public QApplication, public ApplicationHandler
{
    Q_OBJECT

public:
    Lumidesk(int& argc, char** argv);
    ~Lumidesk() override;

    // The one application object, or null outside its lifetime.
    static Lumidesk* instance() { return s_instance; }

    Console* console() const override { return m_console; }
    // Hands over a console loaded elsewhere, for tests that build one on an
    // in-process engine; the caller keeps it and clears it before deleting it.
    void setConsole(Console* console) override { m_console = console; }
    const Resources& resources() const override { return m_resources; }

    // The language code in use ("en" unless a catalogue was loaded at start).
    QString language() const override { return m_language; }
    // The languages the program is translated into, English first.
    static QStringList languages();
    QStringList languageCodes() const override { return languages(); }
    // Stores the choice; it takes effect at the next start.
    void setLanguage(const QString& code) override;

    // Runs the program from the console choice to the end of the event loop
    // and returns the exit code. Without a preset choice the console type
    // dialog asks (unless a console on USB answers first).
    int run(const std::optional<ConsoleChoice>& preset = std::nullopt);
    // The show starts playing once the console is ready (see ShowStarter).
    void setPlayOnStart(bool play) { m_playOnStart = play; }

    // DMX output through OLA from OLA universe firstUniverse on, or (-1) none;
    // stored in the settings store, used from the next console load on.
    static void setOlaUniverse(int firstUniverse);

    // Tells the engine when the console is unplugged, for as long as the
    // window lives. False when no watch could be set up.
    bool registerDeviceNotification(QWidget* window, const QString& classGuid);
    void unregisterDeviceNotification();
    // The removal watch; registered only while the main window exists.
    DeviceNotification& deviceNotification() { return m_deviceNotification; }

    // The device interface class of the console's USB interfaces.
    static QString consoleInterfaceClass()
    {
        return QStringLiteral("{8D7140C7-BCAE-4BE2-A5C2-DFE48EBB759A}");
    }

private:
    void loadTranslation();
    void showLoadError(int error);
    void consoleRemoved();
    void startOlaOutput();

    static Lumidesk* s_instance;

    Console* m_console = nullptr;
    OlaOutput* m_olaOutput = nullptr;
    DeviceNotification m_deviceNotification;
    Resources m_resources;
    QString m_language;
    QTranslator m_translator;
    bool m_playOnStart = false;
};
