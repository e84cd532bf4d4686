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
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>

class Console;
class IConsoleHandler;

// An in-process engine for tests: owns a zeroed state record with its text
// area, records every call the program makes, and delivers notifications to
// the handler either at once (notify) or from a thread of its own (post),
// like the real engine does.
class FakeEngine : public ConsoleEngine
{
public:
    struct Call
    {
        int code = 0;
        int a = 0;
        int b = 0;
        int c = 0;
        bool operator==(const Call& o) const
        {
            return std::tie(code, a, b, c) == std::tie(o.code, o.a, o.b, o.c);
        }
    };

    explicit FakeEngine(ConsoleCache::ConsoleType model = ConsoleCache::ModelAlder);
    ~FakeEngine();
    FakeEngine(const FakeEngine&) = delete;
    FakeEngine& operator=(const FakeEngine&) = delete;

    // Clears the record and sets up the counts of a model, console mode
    // Normal, playback rates and fades at 100 %.
    void setupModel(ConsoleCache::ConsoleType model);

    ConsoleStateRecord* record() { return m_record; }
    quint8* bytes() { return reinterpret_cast<quint8*>(m_record); }

    // Texts in the area after the record.
    void setText(AreaOffset& slot, const QString& text);
    void setConsoleVersion(const QString& text) { setText(m_record->consoleVersion, text); }
    void setShowFileName(const QString& text) { setText(m_record->showFileName, text); }
    void setPersonalities(const QList<RecordArea::Personality>& personalities);

    // Whether start() notifies 37 and 38 before it returns (default true).
    void setReadyOnStart(bool ready) { m_readyOnStart = ready; }
    // With readiness off: start() notifies 37 only, and the engine thread
    // reports 38 once the program has asked for the version this often.
    void setReadyAfterVersionChecks(int checks) { m_readyAfterChecks = checks; }
    // Called from inside update(), after the call is recorded: an engine
    // that answers a command at once, on the caller's thread.
    void setAnswer(std::function<void(const Call&)> answer) { m_answer = std::move(answer); }

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

    // The calls the program made, in order.
    QList<Call> updates() const
    {
        return locked([this] { return m_updates; });
    }
    QList<Call> takeUpdates()
    {
        return locked([this] { return std::exchange(m_updates, {}); });
    }
    void clearUpdates() { takeUpdates(); }
    QList<PanelEvent> panelEvents() const
    {
        return locked([this] { return m_panelEvents; });
    }
    QString lastShowFileName() const
    {
        return locked([this] { return m_lastShowFileName; });
    }
    int saves() const { return m_saves; }
    int languageIndex() const { return m_languageIndex; }

    // ConsoleEngine
    void start(IConsoleHandler* handler, int languageIndex, int modelVariant) override;
    void release() override;
    ConsoleStateRecord* stateRecord() override { return m_record; }
    void panelEvent(const PanelEvent* event) override;
    void update(int code, int a, int b, int c) override;
    void usbDeviceRemoved() override {}
    void newShow() override {}
    int openShow(QString fileName) override;
    void saveShow() override { ++m_saves; }
    void saveShowAs(QString fileName) override;
    QString softwareVersion() override;

private:
    template <typename Read> std::invoke_result_t<Read> locked(Read read) const
    {
        std::lock_guard lock(m_callMutex);
        return read();
    }
    void threadLoop();
    // Stores (u32 count, items) in the area after the record.
    AreaOffset placeInArea(quint32 count, const void* items, quint32 itemSize);

    std::unique_ptr<quint8[]> m_memory;
    ConsoleStateRecord* m_record = nullptr;
    quint32 m_areaUsed = 0;
    IConsoleHandler* m_handler = nullptr;
    int m_languageIndex = -1;
    bool m_readyOnStart = true;
    int m_readyAfterChecks = 0;
    int m_versionChecks = 0;
    const QString m_softwareVersion = QStringLiteral("1.0");
    std::function<void(const Call&)> m_answer;
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
    return qstrdup(QByteArray::number(call.code) + ' ' + QByteArray::number(call.a) + ' ' +
                   QByteArray::number(call.b) + ' ' + QByteArray::number(call.c));
}
