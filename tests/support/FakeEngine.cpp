// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"

#include "Console.h"
#include "ConsoleCodes.h"
#include "IConsoleHandler.h"

#include <cstring>
#include <utility>

namespace {
constexpr size_t recordBytes = sizeof(ConsoleStateRecord) + RecordArea::size;

struct ModelCounts
{
    int channels;
    int faders;
    int devices;
    int patchAddresses;
};

ModelCounts countsOf(ConsoleCache::ConsoleType model)
{
    switch (model) {
    case ConsoleCache::ModelBirch:
        return {96, 24, 0, 512};
    case ConsoleCache::ModelCedar:
        return {96, 48, 0, 512};
    case ConsoleCache::ModelMaple:
        return {72, 24, 24, 1024};
    default:
        return {48, 24, 0, 512};
    }
}
} // namespace

FakeEngine::FakeEngine(ConsoleCache::ConsoleType model)
    : m_memory(std::make_unique<quint8[]>(recordBytes))
{
    m_record = reinterpret_cast<ConsoleStateRecord*>(m_memory.get());
    setupModel(model);
}

FakeEngine::~FakeEngine()
{
    stopThread();
}

void FakeEngine::setupModel(ConsoleCache::ConsoleType model)
{
    std::memset(m_memory.get(), 0, recordBytes);
    m_areaUsed = 0;
    const ModelCounts counts = countsOf(model);
    m_record->channelCount = counts.channels;
    m_record->faderCount = counts.faders;
    m_record->deviceCount = counts.devices;
    m_record->patchAddressCount = counts.patchAddresses;
    m_record->pageCount = ConsoleStateRecord::pages;
    m_record->sequenceFaderCount = ConsoleStateRecord::sequenceFadersPerPage;
    m_record->consoleMode = 1;
    for (PlaybackRecord& playback : m_record->playbacks) {
        playback.rate = 256;
        playback.fade = 256;
    }
}

void FakeEngine::setText(AreaOffset& slot, const QString& text)
{
    const quint32 length = quint32(text.size());
    const quint32 bytes = 4 + length * 2;
    Q_ASSERT(m_areaUsed + bytes <= RecordArea::size);
    const quint32 offset = RecordArea::begin + m_areaUsed;
    quint8* place = m_memory.get() + offset;
    std::memcpy(place, &length, 4);
    std::memcpy(place + 4, text.utf16(), length * 2);
    m_areaUsed += (bytes + 3) & ~3u;
    RecordArea::storeSlot(slot, offset);
}

void FakeEngine::setPersonalities(const QList<RecordArea::Personality>& personalities)
{
    QList<RecordArea::PersonalityEntry> entries;
    for (const RecordArea::Personality& personality : personalities) {
        RecordArea::PersonalityEntry entry{personality.id, personality.footprint, 0, 0};
        setText(entry.manufacturer, personality.manufacturer);
        setText(entry.name, personality.name);
        entries.append(entry);
    }
    const quint32 count = quint32(entries.size());
    const quint32 bytes = 4 + count * quint32(sizeof(RecordArea::PersonalityEntry));
    Q_ASSERT(m_areaUsed + bytes <= RecordArea::size);
    const quint32 offset = RecordArea::begin + m_areaUsed;
    quint8* place = m_memory.get() + offset;
    std::memcpy(place, &count, 4);
    if (count)
        std::memcpy(place + 4, entries.constData(), count * sizeof(RecordArea::PersonalityEntry));
    m_areaUsed += (bytes + 3) & ~3u;
    RecordArea::storeSlot(m_record->personalities, offset);
}

Console* FakeEngine::createConsole(const QString& languageCode)
{
    auto* console = new Console(nullptr, this);
    console->cache()->setRecord(stateRecord());
    start(console, Console::languageIndex(languageCode), 0);
    return console;
}

void FakeEngine::notify(int code, int a, int b, int c)
{
    Q_ASSERT(m_handler);
    m_handler->notify(code, a, b, c);
}

void FakeEngine::post(int code, int a, int b, int c)
{
    std::lock_guard lock(m_queueMutex);
    if (!m_thread.joinable()) {
        m_stopping = false;
        m_thread = std::thread([this] { threadLoop(); });
    }
    m_queue.append({code, a, b, c});
    m_queueChanged.notify_all();
}

void FakeEngine::threadLoop()
{
    std::unique_lock lock(m_queueMutex);
    for (;;) {
        m_queueChanged.wait(lock, [this] { return !m_queue.isEmpty() || m_stopping; });
        if (m_queue.isEmpty())
            return;
        const Call call = m_queue.takeFirst();
        ++m_inFlight;
        lock.unlock();
        m_handler->notify(call.code, call.a, call.b, call.c);
        lock.lock();
        --m_inFlight;
        m_queueChanged.notify_all();
    }
}

void FakeEngine::waitIdle()
{
    std::unique_lock lock(m_queueMutex);
    m_queueChanged.wait(lock, [this] { return m_queue.isEmpty() && m_inFlight == 0; });
}

void FakeEngine::stopThread()
{
    {
        std::lock_guard lock(m_queueMutex);
        if (!m_thread.joinable())
            return;
        m_stopping = true;
        m_queueChanged.notify_all();
    }
    m_thread.join();
    m_thread = std::thread();
}

QList<DmxWrite> FakeEngine::drainDmxWrites()
{
    QList<DmxWrite> taken;
    const quint8 write = __atomic_load_n(&m_record->dmxWriteIndex, __ATOMIC_ACQUIRE);
    for (quint8 read = m_record->dmxReadIndex; read != write;
         read = quint8((read + 1) % ConsoleStateRecord::dmxWriteRingSize))
        taken.append(m_record->dmxWriteRing[read]);
    __atomic_store_n(&m_record->dmxReadIndex, write, __ATOMIC_RELEASE);
    return taken;
}

QList<FakeEngine::Call> FakeEngine::updates() const
{
    std::lock_guard lock(m_callMutex);
    return m_updates;
}

QList<FakeEngine::Call> FakeEngine::takeUpdates()
{
    std::lock_guard lock(m_callMutex);
    return std::exchange(m_updates, {});
}

void FakeEngine::clearUpdates()
{
    std::lock_guard lock(m_callMutex);
    m_updates.clear();
}

QList<PanelEvent> FakeEngine::panelEvents() const
{
    std::lock_guard lock(m_callMutex);
    return m_panelEvents;
}

QString FakeEngine::lastShowFileName() const
{
    std::lock_guard lock(m_callMutex);
    return m_lastShowFileName;
}

void FakeEngine::start(IConsoleHandler* handler, int languageIndex, int modelVariant)
{
    m_handler = handler;
    m_languageIndex = languageIndex;
    m_modelVariant = modelVariant;
    m_released = false;
    if (m_readyOnStart) {
        if (RecordArea::loadSlot(m_record->consoleVersion) == 0)
            setConsoleVersion(m_softwareVersion);
        notify(ConsoleCode::VersionKnown);
        notify(ConsoleCode::Ready);
    }
}

void FakeEngine::release()
{
    stopThread();
    m_released = true;
}

void FakeEngine::panelEvent(const PanelEvent* event)
{
    std::lock_guard lock(m_callMutex);
    m_panelEvents.append(*event);
}

void FakeEngine::update(int code, int a, int b, int c)
{
    std::lock_guard lock(m_callMutex);
    m_updates.append({code, a, b, c});
}

int FakeEngine::openShow(QString fileName)
{
    std::lock_guard lock(m_callMutex);
    m_lastShowFileName = fileName;
    return int(m_openShowResult);
}

void FakeEngine::saveShowAs(QString fileName)
{
    std::lock_guard lock(m_callMutex);
    m_lastShowFileName = fileName;
    ++m_saves;
}
