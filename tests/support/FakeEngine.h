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

    // A cleared record with a model's counts, Normal mode, rates at 100 %.
    void setupModel(ConsoleCache::ConsoleType model);

    ConsoleStateRecord* record() { return m_record; }

    // Texts in the area after the record.
    void setText(AreaOffset& slot, const QString& text);
    void setConsoleVersion(const QString& text) { setText(m_record->consoleVersion, text); }
    void setShowFileName(const QString& text) { setText(m_record->showFileName, text); }
    void setPersonalities(const QList<RecordArea::Personality>& personalities);

    // When start() reports the version (37) and ready (38): 0 both before it
    // returns (the default); n > 0 only 37, and the engine thread reports 38
    // once the program has asked for the version n times; -1 neither.
    void setReadyAfterVersionChecks(int checks) { m_readyAfterChecks = checks; }
    // Called from inside update(), after the call is recorded: an engine
    // that answers a command at once, on the caller's thread.
    void setAnswer(std::function<void(const Call&)> answer) { m_answer = std::move(answer); }

    // A Console on this engine, started (and by default ready). The caller
    // owns it; delete it before the engine.
    Console* createConsole(const QString& languageCode = QStringLiteral("en"));

    // Delivers a notification now, on the calling thread.
    void notify(int code, int a = 0, int b = 0, int c = 0);
    // Queues a notification for the engine thread (started on first use);
    // stop it (stopThread, or release) before deleting the Console.
    void post(int code, int a = 0, int b = 0, int c = 0);
    // Blocks until the engine thread has delivered everything posted.
    void waitIdle();
    // Stops the engine thread after it has delivered everything posted.
    void stopThread();

    // Takes what the program has queued in the DMX write ring, as the
    // engine does once a tick.
    QList<DmxWrite> drainDmxWrites();

    // The calls the program made, in order.
    QList<Call> updates() const { return copy(&FakeEngine::m_updates); }
    QList<Call> takeUpdates();
    void clearUpdates() { takeUpdates(); }
    QList<PanelEvent> panelEvents() const { return copy(&FakeEngine::m_panelEvents); }
    QString lastShowFileName() const { return copy(&FakeEngine::m_lastShowFileName); }
    int saves() const { return m_saves; }
    int languageIndex() const { return m_languageIndex; }

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
    template <typename T> T copy(T FakeEngine::*member) const
    {
        std::lock_guard lock(m_callMutex);
        return this->*member;
    }
    void threadLoop();
    // Stores (u32 count, items) in the area after the record.
    AreaOffset placeInArea(quint32 count, const void* items, quint32 itemSize);

    std::unique_ptr<quint8[]> m_memory;
    ConsoleStateRecord* m_record = nullptr;
    quint32 m_areaUsed = 0;
    IConsoleHandler* m_handler = nullptr;
    int m_languageIndex = -1;
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
