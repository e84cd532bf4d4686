// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

class Console;
struct ConsoleStateRecord;

// The undo history of the edits made from the desktop. Console hands it
// every change report it sends: for a report about record fields the desktop
// wrote, the journal keeps the bytes before (from its own copy of the
// record, kept current by the engine's notifications) and after; for an
// engine command (patch a device, insert, delete or move a step) it keeps
// what the inverse command needs. The reports made while one event is
// handled (a drop, a text typed into many cells) form one edit. Undo and redo write the bytes
// back and send the same reports again, so the engine and every view follow.
//
// Everything but notified() runs on the GUI thread; reports from other
// threads (the engine's own answers) only refresh the copy.
class EditJournal : public QObject
{
    Q_OBJECT

public:
    static constexpr int editLimit = 200;
    static constexpr qint64 byteBudget = 4 * 1024 * 1024;

    explicit EditJournal(Console* console);
    ~EditJournal() override;

    bool canUndo() const { return !m_undo.empty() || hasOpenEdit(); }
    bool canRedo() const { return !m_redo.empty() && !hasOpenEdit(); }
    int undoCount() const { return int(m_undo.size()); }
    int redoCount() const { return int(m_redo.size()); }
    qint64 bytesHeld() const { return m_bytes; }

    // False when there was nothing to do or the record changed under the
    // edit since; the refused edit is dropped and refused() says why.
    bool undo();
    bool redo();
    void clear();
    // Closes the open edit (the event that made it has been handled).
    void commit();

    // Called by Console.
    void takeSnapshot();
    void bulkBegan() { m_stale.store(true, std::memory_order_release); }
    void reported(int code, int a, int b, int c);
    void notified(int code, int a, int b, int c);

signals:
    void refused(const QString& message);
    void changed();

private:
    struct Range;
    struct Report;
    struct DeviceOp;
    struct StepOp;
    struct Edit;

    bool hasOpenEdit() const { return m_open != nullptr; }
    ConsoleStateRecord* record() const;
    Edit& openEdit();
    void recordBytes(int code, int a, int b, int c);
    void recordDevice(int code, int a, int b, int c);
    void recordStep(int code, int a, int b, int c);
    void refresh(int code, int a, int b, int c);
    void replay(Edit& edit, bool forward);
    bool applies(const Edit& edit, bool forward) const;
    void sendReports(const Edit& edit);
    void runDevice(const DeviceOp& op, bool forward);
    void runStep(StepOp& op, bool forward);
    bool deviceApplies(const DeviceOp& op, bool forward) const;
    bool stepApplies(const StepOp& op, bool forward) const;
    int personalityOf(int device) const;
    void refuse(bool undoing);
    void trim();

    Console* m_console;
    std::deque<std::unique_ptr<Edit>> m_undo;
    std::vector<std::unique_ptr<Edit>> m_redo;
    std::unique_ptr<Edit> m_open;
    qint64 m_bytes = 0;
    bool m_commitQueued = false;
    bool m_replaying = false;
    int m_pendingMoveKey = -1;
    int m_pendingMoveFrom = -1;
    std::atomic<bool> m_stale{false};
    // The record as the desktop last saw it: the "before" of the next edit.
    // A standard mutex: the thread sanitizer sees it, and Qt's it does not.
    mutable std::mutex m_shadowMutex;
    std::vector<char> m_shadow;
};
