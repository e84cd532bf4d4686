// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeEngine.h"

#include "Console.h"
#include "ConsoleCodes.h"
#include "IConsoleHandler.h"

#include <cstring>
#include <utility>

namespace {
constexpr size_t recordBytes = sizeof(ConsoleStateRecord) + RecordArea::size;
// Channels, faders, devices and patchable addresses, by model.
constexpr int modelCounts[][4] = {
    {48, 24, 0, 512}, {96, 24, 0, 512}, {96, 48, 0, 512}, {72, 24, 24, 1024}};
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
    const int* counts = modelCounts[model < ConsoleCache::ModelUnknown ? model : 0];
    m_record->channelCount = counts[0];
    m_record->faderCount = counts[1];
    m_record->deviceCount = counts[2];
    m_record->patchAddressCount = counts[3];
    m_record->pageCount = ConsoleStateRecord::pages;
    m_record->sequenceFaderCount = ConsoleStateRecord::sequenceFadersPerPage;
    m_record->consoleMode = 1;
    for (PlaybackRecord& playback : m_record->playbacks) {
        playback.rate = 256;
        playback.fade = 256;
    }
}

AreaOffset FakeEngine::placeInArea(quint32 count, const void* items, quint32 itemSize)
{
    const quint32 bytes = 4 + count * itemSize;
    Q_ASSERT(m_areaUsed + bytes <= RecordArea::size);
    const quint32 offset = RecordArea::begin + m_areaUsed;
    std::memcpy(m_memory.get() + offset, &count, 4);
    if (count)
        std::memcpy(m_memory.get() + offset + 4, items, count * itemSize);
    m_areaUsed += (bytes + 3) & ~3u;
    return offset;
}

void FakeEngine::setText(AreaOffset& slot, const QString& text)
{
    RecordArea::storeSlot(slot, placeInArea(quint32(text.size()), text.utf16(), 2));
}

void FakeEngine::setPersonalities(const QList<RecordArea::Personality>& personalities)
{
    QList<RecordArea::PersonalityEntry> entries;
    for (const RecordArea::Personality& personality : personalities) {
        entries.append({personality.id, personality.footprint, 0, 0});
        setText(entries.last().manufacturer, personality.manufacturer);
        setText(entries.last().name, personality.name);
    }
    RecordArea::storeSlot(m_record->personalities,
                          placeInArea(quint32(entries.size()), entries.constData(),
                                      sizeof(RecordArea::PersonalityEntry)));
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

QList<FakeEngine::Call> FakeEngine::takeUpdates()
{
    std::lock_guard lock(m_callMutex);
    return std::exchange(m_updates, {});
}

void FakeEngine::start(IConsoleHandler* handler, int languageIndex, int)
{
    m_handler = handler;
    m_languageIndex = languageIndex;
    if (m_readyAfterChecks < 0)
        return;
    if (RecordArea::loadSlot(m_record->consoleVersion) == 0)
        setConsoleVersion(m_softwareVersion);
    notify(ConsoleCode::VersionKnown);
    if (m_readyAfterChecks == 0)
        notify(ConsoleCode::Ready);
}

QString FakeEngine::softwareVersion()
{
    if (++m_versionChecks == m_readyAfterChecks)
        post(ConsoleCode::Ready);
    return m_softwareVersion;
}

void FakeEngine::release()
{
    stopThread();
}

void FakeEngine::panelEvent(const PanelEvent* event)
{
    std::lock_guard lock(m_callMutex);
    m_panelEvents.append(*event);
}

void FakeEngine::update(int code, int a, int b, int c)
{
    {
        std::lock_guard lock(m_callMutex);
        m_updates.append({code, a, b, c});
    }
    if (m_answer)
        m_answer({code, a, b, c});
}

int FakeEngine::openShow(QString fileName)
{
    std::lock_guard lock(m_callMutex);
    m_lastShowFileName = fileName;
    return int(OpenShowResult::Loaded);
}

void FakeEngine::saveShowAs(QString fileName)
{
    std::lock_guard lock(m_callMutex);
    m_lastShowFileName = fileName;
    ++m_saves;
}
