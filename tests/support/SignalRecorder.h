// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSignalSpy>
#include <QVariantList>

#include <memory>
#include <vector>

// Records every signal of an object, with its arguments, in the order the
// signals were emitted on the recorder's own thread (direct connections).
//
//     SignalRecorder recorder(console);
//     engine.notify(ConsoleCode::PatchChanged);
//     QCOMPARE(recorder.signatures(), QList<QByteArray>{"patchUpdated()"});
class SignalRecorder : public QObject
{
    Q_OBJECT

public:
    struct Emission
    {
        QByteArray signature;
        QVariantList arguments;
    };

    explicit SignalRecorder(QObject* source);
    ~SignalRecorder() override;

    const QList<Emission>& emissions() const { return m_emissions; }
    QList<QByteArray> signatures() const;
    void clear() { m_emissions.clear(); }

private slots:
    void record();

private:
    QObject* m_source;
    std::vector<std::unique_ptr<QSignalSpy>> m_spies; // by signal index
    QList<Emission> m_emissions;
};
