// SPDX-License-Identifier: GPL-3.0-or-later
#include "SignalRecorder.h"

#include "Console.h"

#include <QMetaMethod>

namespace {
QString argumentText(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<Console::Memory>()) {
        const auto memory = value.value<Console::Memory>();
        return QStringLiteral("%1,%2").arg(memory.page).arg(memory.index);
    }
    if (value.metaType() == QMetaType::fromType<Console::Sequence>()) {
        const auto sequence = value.value<Console::Sequence>();
        return QStringLiteral("%1,%2").arg(sequence.page).arg(sequence.fader);
    }
    return value.toString();
}
} // namespace

SignalRecorder::SignalRecorder(QObject* source)
{
    const QMetaObject* meta = source->metaObject();
    const QMetaMethod recordSlot = metaObject()->method(metaObject()->indexOfSlot("record()"));
    m_spies.resize(size_t(meta->methodCount()));
    // The spy of a signal is connected before the recorder, so that the
    // arguments are there when record() runs.
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        m_spies[size_t(i)] = std::make_unique<QSignalSpy>(source, method);
        connect(source, method, this, recordSlot, Qt::DirectConnection);
    }
}

SignalRecorder::~SignalRecorder() = default;

void SignalRecorder::record()
{
    const int index = senderSignalIndex();
    QStringList arguments;
    for (const QVariant& argument : m_spies[size_t(index)]->takeFirst())
        arguments.append(argumentText(argument));
    m_log.append(QString::fromLatin1(sender()->metaObject()->method(index).name()) + u'(' +
                 arguments.join(u',') + u')');
}
