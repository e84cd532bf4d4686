// SPDX-License-Identifier: GPL-3.0-or-later
#include "SignalRecorder.h"

#include <QMetaMethod>

SignalRecorder::SignalRecorder(QObject* source) : m_source(source)
{
    const QMetaObject* meta = source->metaObject();
    const QMetaMethod recordSlot = metaObject()->method(metaObject()->indexOfSlot("record()"));
    m_spies.resize(size_t(meta->methodCount()));
    // The spy of a signal is connected before the recorder, so that the
    // arguments are there when record() runs.
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal ||
            i < QObject::staticMetaObject.methodCount())
            continue;
        m_spies[size_t(i)] = std::make_unique<QSignalSpy>(source, method);
        connect(source, method, this, recordSlot, Qt::DirectConnection);
    }
}

SignalRecorder::~SignalRecorder() = default;

QList<QByteArray> SignalRecorder::signatures() const
{
    QList<QByteArray> result;
    for (const Emission& emission : m_emissions)
        result.append(emission.signature);
    return result;
}

void SignalRecorder::record()
{
    const int index = senderSignalIndex();
    Emission emission;
    emission.signature = m_source->metaObject()->method(index).methodSignature();
    if (index >= 0 && size_t(index) < m_spies.size() && m_spies[size_t(index)] &&
        !m_spies[size_t(index)]->isEmpty())
        emission.arguments = m_spies[size_t(index)]->takeFirst();
    m_emissions.append(emission);
}
