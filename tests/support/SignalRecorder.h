// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSignalSpy>
#include <QStringList>

#include <memory>
#include <vector>

// Records every signal of an object in emission order (direct connections,
// so on the emitting thread) as "name(arg,arg)"; console keys print as
// their two numbers, so {-1, 12} as "memoryUpdated(-1,12)".
class SignalRecorder : public QObject
{
    Q_OBJECT

public:
    explicit SignalRecorder(QObject* source);
    ~SignalRecorder() override;

    const QStringList& log() const { return m_log; }
    void clear() { m_log.clear(); }

private slots:
    void record();

private:
    std::vector<std::unique_ptr<QSignalSpy>> m_spies; // by signal index
    QStringList m_log;
};
