// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ConsoleCache.h"
#include "ConsoleEngine.h"
#include "ConsoleStateRecord.h"
#include "PanelEvent.h"
#include "RecordArea.h"

#include <QList>
#include <QString>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

class Console;
class IConsoleHandler;

// An in-process engine for tests: owns a zeroed state record with its text
// area, records every call the program makes, and delivers notifications to
// the handler either at once (notify) or from a thread of its own (post),
// like the real engine does.
//
//     FakeEngine engine(ConsoleCache::ModelMaple);
//     Console* console = engine.createConsole(); // ready, counts copied
//     engine.record()->channelLevels[3] = 255;
//     engine.notify(ConsoleCode::ChannelsChanged);
//     ...
//     delete console; // or console->unload()
class FakeEngine : public ConsoleEngine
{
public:
    struct Call
    {
        int code = 0;
        int a = 0;
        int b = 0;
        int c = 0;
        bool operator==(const Call& other) const
        {
            return code == other.code && a == other.a && b == other.b && c == other.c;
        }
    };

    explicit FakeEngine(ConsoleCache::ConsoleType model = ConsoleCache::ModelAlder);
    ~FakeEngine();
    FakeEngine(const FakeEngine&) = delete;
    FakeEngine& operator=(const FakeEngine&) = delete;

    // Clears the record and sets up the counts of a model (Alder 48 channels
    // and 24 faders, Birch 96/24, Cedar 96/48, Maple 72 channels of which the
    // last 24 belong to devices, 24 faders and 1024 patchable addresses; 12
    // pages and 12 sequence faders per page), console mode Normal, playback
    // rates and fades at 100 %.
    void setupModel(ConsoleCache::ConsoleType model);

    ConsoleStateRecord* record() { return m_record; }
    // The record as raw bytes, for checks at fixed offsets.
    quint8* bytes() { return reinterpret_cast<quint8*>(m_record); }

    // Texts in the area after the record.
    void setText(AreaOffset& slot, const QString& text);
    void setConsoleVersion(const QString& text) { setText(m_record->consoleVersion, text); }
    void setShowFileName(const QString& text) { setText(m_record->showFileName, text); }
    void setLibraryVersion(const QString& text) { setText(m_record->libraryVersion, text); }
    void setPersonalities(const QList<RecordArea::Personality>& personalities);

    // What softwareVersion() answers (default "1.0").
    void setSoftwareVersion(const QString& version) { m_softwareVersion = version; }
    // Whether start() notifies 37 and 38 before it returns (default true).
    void setReadyOnStart(bool ready) { m_readyOnStart = ready; }

    // A Console on this engine, started and ready (unless setReadyOnStart
    // was cleared). The caller owns it; delete it before the engine.
    Console* createConsole(const QString& languageCode = QStringLiteral("en"));

    // Delivers a notification now, on the calling thread.
    void notify(int code, int a = 0, int b = 0, int c = 0);
    // Queues a notification for the engine thread (started on first use).
    // Stop the thread (stopThread, or Console::unload through release)
    // before deleting the Console it notifies.
    void post(int code, int a = 0, int b = 0, int c = 0);
    // Blocks until the engine thread has delivered everything posted.
    void waitIdle();
    // Stops the engine thread after it has delivered everything posted.
    void stopThread();

    // Takes what the program has queued in the DMX write ring, as the
    // engine does once a tick.
    QList<DmxWrite> drainDmxWrites();

    // Every update() call so far, in order.
    QList<Call> updates() const;
    QList<Call> takeUpdates();
    void clearUpdates();
    QList<PanelEvent> panelEvents() const;
    QString lastShowFileName() const;
    int usbRemovals() const { return m_usbRemovals; }
    int newShows() const { return m_newShows; }
    int saves() const { return m_saves; }
    bool isStarted() const { return m_handler != nullptr; }
    bool isReleased() const { return m_released; }
    int languageIndex() const { return m_languageIndex; }
    int modelVariant() const { return m_modelVariant; }
    // What openShow() answers (default Loaded).
    void setOpenShowResult(OpenShowResult result) { m_openShowResult = result; }

    // ConsoleEngine
    void start(IConsoleHandler* handler, int languageIndex, int modelVariant) override;
    void release() override;
    ConsoleStateRecord* stateRecord() override { return m_record; }
    void panelEvent(const PanelEvent* event) override;
    void update(int code, int a, int b, int c) override;
    void usbDeviceRemoved() override { ++m_usbRemovals; }
    void newShow() override { ++m_newShows; }
    int openShow(QString fileName) override;
    void saveShow() override { ++m_saves; }
    void saveShowAs(QString fileName) override;
    QString softwareVersion() override { return m_softwareVersion; }

private:
    void threadLoop();

    std::unique_ptr<quint8[]> m_memory;
    ConsoleStateRecord* m_record = nullptr;
    quint32 m_areaUsed = 0;
    IConsoleHandler* m_handler = nullptr;
    int m_languageIndex = -1;
    int m_modelVariant = -1;
    bool m_readyOnStart = true;
    bool m_released = false;
    QString m_softwareVersion = QStringLiteral("1.0");
    OpenShowResult m_openShowResult = OpenShowResult::Loaded;
    int m_usbRemovals = 0;
    int m_newShows = 0;
    int m_saves = 0;

    // Standard primitives rather than Qt's, so that the thread sanitizer
    // sees every wait and wake-up.
    mutable std::mutex m_callMutex;
    QList<Call> m_updates;
    QList<PanelEvent> m_panelEvents;
    QString m_lastShowFileName;

    std::mutex m_queueMutex;
    std::condition_variable m_queueChanged;
    QList<Call> m_queue;
    int m_inFlight = 0;
    bool m_stopping = false;
    std::thread m_thread;
};

// Lets QCOMPARE print the calls that differ.
inline char* toString(const FakeEngine::Call& call)
{
    return qstrdup(QStringLiteral("{%1, %2, %3, %4}")
                       .arg(call.code)
                       .arg(call.a)
                       .arg(call.b)
                       .arg(call.c)
                       .toLatin1()
                       .constData());
}
