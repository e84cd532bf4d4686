// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleCache.h"
#include "DmxWriteQueue.h"
#include "EditJournal.h"
#include "IConsoleHandler.h"

#include <QList>
#include <QMetaType>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>

class ConsoleEngine;
class QLibrary;

// The program's one link to the console engine: owns the engine library and
// the engine object, turns the engine's notifications into signals and
// offers the change reports that views call after editing the record.
//
// notify() runs on the engine's thread; receivers connect with queued
// delivery and re-read the record on the GUI thread.
class Console : public QObject, public IConsoleHandler
{
    Q_OBJECT

public:
    enum LoadError : int
    {
        LoadFailed = 0,
        VersionMismatch = 1
    };

    // A memory of a page, or (page -1) a cue of the stack.
    struct Memory
    {
        int page = 0;
        int index = 0;

        Memory() = default;
        Memory(int page, int index) : page(page), index(index) {}
        bool isStackCue() const { return page == -1; }
        bool operator==(const Memory& other) const
        {
            return page == other.page && index == other.index;
        }
        bool operator!=(const Memory& other) const { return !(*this == other); }
    };

    // The sequence on a sequence fader of a page, or {-1, -1} for the stack.
    struct Sequence
    {
        int page = -1;
        int fader = -1;

        Sequence() = default;
        Sequence(int page, int fader) : page(page), fader(fader) {}
        static Sequence make(int page, int fader) { return Sequence(page, fader); }
        static Sequence makeStack() { return Sequence(); }
        bool isStack() const { return page == -1 && fader == -1; }
        bool operator==(const Sequence& other) const
        {
            return page == other.page && fader == other.fader;
        }
        bool operator!=(const Sequence& other) const { return !(*this == other); }
    };

    // A one-shot action that waits for a notification: tested on every
    // notification outside a bulk change, run and deleted on the first match.
    class CacheUpdateHook
    {
    public:
        virtual bool matches(int code, int a, int b, int c) = 0;
        virtual void run(int code, int a, int b, int c) = 0;
        virtual ~CacheUpdateHook() = default;
    };

    // Stores the content of a freshly inserted step once the engine has
    // created it (notification 2 for the sequence, 4 for the stack step).
    // It applies only to the step it asked for: one more step than the list
    // had, carrying the requested cue number at the requested place.
    class InsertSequenceStepCacheUpdateHook : public CacheUpdateHook
    {
    public:
        InsertSequenceStepCacheUpdateHook(ConsoleCache* cache, int page, int fader, int step,
                                          quint32 contentType, quint16 contentIndex,
                                          quint16 cueNumber);
        bool matches(int code, int a, int b, int c) override;
        void run(int code, int a, int b, int c) override;

    private:
        bool isInserted();

        ConsoleCache* m_cache;
        int m_page;
        int m_fader;
        int m_step;
        quint32 m_contentType;
        quint16 m_contentIndex;
        quint16 m_cueNumber;
        // The fewest steps the list had since the request: a delete the
        // engine handles first must not hide the insert.
        int m_countBefore;
    };

    Console(QLibrary* library, ConsoleEngine* engine);
    ~Console() override;

    // Loads the engine library by its bare name, starts the engine and waits
    // until it is ready. Returns null and sets *error on failure. The
    // language code is the application's current language ("en", "fr",
    // "de", "es", "it"; anything else counts as English).
    static Console* load(const QString& libraryName, int modelVariant, LoadError* error,
                         const QString& languageCode = QStringLiteral("en"));
    // Starts a resolved engine (load's second half): hands it the handler,
    // waits until it is ready and checks its version. Takes ownership of
    // both; on a version mismatch releases them, sets *error and returns
    // null.
    static Console* start(QLibrary* library, ConsoleEngine* engine, int languageIndex,
                          int modelVariant, LoadError* error);
    // The engine's language index of a language code.
    static int languageIndex(const QString& code);
    // Registers Console::Memory and Console::Sequence for queued signals.
    static void registerMetaTypes();
    // Releases the engine, unloads the library and deletes this object.
    void unload();

    ConsoleEngine* engine() const { return m_engine; }
    ConsoleCache* cache() { return &m_cache; }
    const ConsoleCache* cache() const { return &m_cache; }
    // The undo history of the desktop's edits.
    EditJournal* journal() { return &m_journal; }
    bool isVersionKnown() const { return m_versionKnown.load(std::memory_order_acquire); }
    bool isReady() const { return m_ready.load(std::memory_order_acquire); }
    ConsoleCache::ConsoleType consoleType() const { return m_cache.consoleType(); }
    int consoleStatus() const;

    // Queues a DMX level (or, with asPalette, a palette index) for the
    // engine; what the engine has not taken yet waits, newest per address.
    void writeDmx(quint16 address, quint8 value, bool asPalette);

    // Takes ownership of the hook.
    void appendHook(CacheUpdateHook* hook);

    void notify(int code, int a, int b, int c) override;

    // Change reports after an edit of the record. These four also run the
    // program's own notification path (hooks, cache rebuilds, signal).
    void systemSettingsChanged();
    void patchChanged();
    void midiPatchChanged();
    void independentsChanged();
    // These tell the engine and emit the signal directly.
    void effectsChanged();
    void memoryChanged(Console::Memory memory);
    void paletteChanged(int palette);
    void sequenceChanged(Console::Sequence sequence);
    void sequenceStepChanged(Console::Sequence sequence, int step);
    void groupChanged(int group);
    void deviceStatusChanged();
    void consoleStatusChanged();

    // Sends one command to the engine (no own notification).
    void sendUpdate(int code, int a = 0, int b = 0, int c = 0);
    // Sends a change report and runs the same notification through notify().
    void report(int code, int a = 0, int b = 0, int c = 0);

signals:
    void systemSettingsUpdated();
    void playLoaded();
    void playFileNameUpdated();
    void lumideskCommand(int type, int argument);
    void systemBusyCommand(int queueLength);
    void consoleVersionUpdated();
    void channelTextUpdated(int channel);
    void patchUpdated();
    void independentsUpdated();
    void deviceUpdated(int device);
    void channelsUpdated();
    void outputsUpdated();
    void inputsUpdated();
    void effectUpdated();
    void groupUpdated(int group);
    void pageUpdated(int page);
    void memoryUpdated(Console::Memory memory);
    void paletteUpdated(int palette);
    void sequenceUpdated(Console::Sequence sequence);
    void sequenceStepUpdated(Console::Sequence sequence, int step);
    void deviceStatusUpdated();
    void consoleStatusUpdated();
    void playbackUpdated();
    void faderUpdated();
    void blindLevelsUpdated();
    void ledUpdated();
    void displayUpdated(int lcdDisplay);
    void buttonBlink(bool lit);

private slots:
    void buttonBlinkTimerTimeout();

private:
    bool waitUntilReady();
    void handleSystem(int subCode, int x, int y);
    void runHooks(int code, int a, int b, int c);
    void discardHooks();
    void emitFor(int code, int a, int b, int c);
    void rebuildCaches(bool addresses, bool midiCircuits);

    QLibrary* m_library;
    ConsoleEngine* m_engine;
    std::atomic<bool> m_suspended{false};
    ConsoleCache m_cache;
    DmxWriteQueue m_dmxWrites{&m_cache};
    EditJournal m_journal{this};
    std::atomic<bool> m_ready{false};
    std::atomic<bool> m_versionKnown{false};
    QTimer m_blinkTimer;
    int m_blinkCounter = 0;
    QList<CacheUpdateHook*> m_hooks;
    QMutex m_hookMutex;
};

Q_DECLARE_METATYPE(Console::Memory)
Q_DECLARE_METATYPE(Console::Sequence)
