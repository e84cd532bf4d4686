// SPDX-License-Identifier: GPL-3.0-or-later
#include "Console.h"

#include "ConsoleCodes.h"
#include "ConsoleEngine.h"
#include "RecordArea.h"

#include <QLibrary>
#include <QMutexLocker>
#include <QThread>

#include <algorithm>

namespace {
constexpr int blinkIntervalMs = 300;
constexpr unsigned long handshakePollMs = 100;
} // namespace

Console::InsertSequenceStepCacheUpdateHook::InsertSequenceStepCacheUpdateHook(
    ConsoleCache* cache, int page, int fader, int step, quint32 contentType, quint16 contentIndex,
    quint16 cueNumber)
    : m_cache(cache), m_page(page), m_fader(fader), m_step(step), m_contentType(contentType),
      m_contentIndex(contentIndex), m_cueNumber(cueNumber),
      m_countBefore(cache->stepCount(page, fader))
{
}

bool Console::InsertSequenceStepCacheUpdateHook::matches(int code, int a, int b, int)
{
    // A stack cue change names the step; a sequence change names the sequence.
    const bool named = m_page == -1
                           ? code == ConsoleCode::StackCueChanged && a == m_step
                           : code == ConsoleCode::SequenceChanged && a == m_page && b == m_fader;
    return named && isInserted();
}

bool Console::InsertSequenceStepCacheUpdateHook::isInserted()
{
    const int count = m_cache->stepCount(m_page, m_fader);
    const StepRecord* record = m_cache->step(m_page, m_fader, m_step);
    if (count > m_countBefore && m_step < count && record && record->cueNumber == m_cueNumber)
        return true;
    m_countBefore = std::min(m_countBefore, count);
    return false;
}

void Console::InsertSequenceStepCacheUpdateHook::run(int, int, int, int)
{
    if (StepRecord* record = m_cache->step(m_page, m_fader, m_step)) {
        record->contentType = m_contentType;
        record->contentIndex = m_contentIndex;
    }
    m_cache->console()->sequenceStepChanged(Sequence(m_page, m_fader), m_step);
}

Console::Console(QLibrary* library, ConsoleEngine* engine)
    : QObject(nullptr), m_library(library), m_engine(engine), m_cache(this), m_blinkTimer(this)
{
    m_blinkTimer.setInterval(blinkIntervalMs);
    connect(&m_blinkTimer, &QTimer::timeout, this, &Console::buttonBlinkTimerTimeout);
    // A show load, New or an erase: the history no longer fits the record.
    connect(this, &Console::playLoaded, &m_journal, &EditJournal::clear);
}

Console::~Console()
{
    discardHooks();
}

int Console::languageIndex(const QString& code)
{
    static const QStringList codes = {QStringLiteral("en"), QStringLiteral("fr"),
                                      QStringLiteral("de"), QStringLiteral("es"),
                                      QStringLiteral("it")};
    const int index = int(codes.indexOf(code));
    return index < 0 ? 0 : index;
}

void Console::registerMetaTypes()
{
    qRegisterMetaType<Console::Sequence>("Console::Sequence");
    qRegisterMetaType<Console::Memory>("Console::Memory");
}

Console* Console::load(const QString& libraryName, int modelVariant, LoadError* error,
                       const QString& languageCode)
{
    qDebug("Library name: %s", qPrintable(libraryName));
    auto* library = new QLibrary(libraryName);
    const int language = languageIndex(languageCode);

    const auto fail = [&](LoadError reason) -> Console* {
        if (error)
            *error = reason;
        return nullptr;
    };

    if (!library->load()) {
        qDebug("%s", qPrintable(library->errorString()));
        delete library;
        return fail(LoadFailed);
    }
    const auto getConsole = reinterpret_cast<GetConsoleFunction>(library->resolve("getConsole"));
    ConsoleEngine* engine = getConsole ? getConsole(ConsoleEngine::interfaceVersion) : nullptr;
    if (!engine) {
        if (!getConsole)
            qDebug("%s", qPrintable(library->errorString()));
        library->unload();
        delete library;
        return fail(LoadFailed);
    }

    return start(library, engine, language, modelVariant, error);
}

Console* Console::start(QLibrary* library, ConsoleEngine* engine, int languageIndex,
                        int modelVariant, LoadError* error)
{
    auto* console = new Console(library, engine);
    console->m_cache.setRecord(engine->stateRecord());
    engine->start(console, languageIndex, modelVariant);
    if (!console->waitUntilReady()) {
        // The engine is running: stop it before its library goes away.
        console->unload();
        if (error)
            *error = VersionMismatch;
        return nullptr;
    }
    console->m_blinkTimer.start();
    return console;
}

bool Console::waitUntilReady()
{
    while (!isReady()) {
        if (isVersionKnown()) {
            const ConsoleStateRecord* record = m_cache.record();
            const QString consoleVersion = RecordArea::slotText(record, record->consoleVersion);
            if (consoleVersion != m_engine->softwareVersion())
                return false;
        }
        QThread::msleep(handshakePollMs);
    }
    return true;
}

void Console::unload()
{
    m_blinkTimer.stop();
    if (m_engine) {
        m_engine->release();
        m_engine = nullptr;
    }
    if (m_library) {
        m_library->unload();
        delete m_library;
        m_library = nullptr;
    }
    delete this;
}

int Console::consoleStatus() const
{
    const ConsoleStateRecord* record = m_cache.record();
    return record ? record->consoleStatus : 0;
}

void Console::writeDmx(quint16 address, quint8 value, bool asPalette)
{
    m_dmxWrites.push(
        {0, address, quint8(asPalette ? 0 : value), quint8(asPalette ? value + 1 : 0)});
}

void Console::appendHook(CacheUpdateHook* hook)
{
    if (!hook)
        return;
    QMutexLocker lock(&m_hookMutex);
    m_hooks.append(hook);
}

void Console::notify(int code, int a, int b, int c)
{
    switch (code) {
    case ConsoleCode::VersionKnown:
        emit consoleVersionUpdated();
        m_versionKnown.store(true, std::memory_order_release);
        return;
    case ConsoleCode::Ready:
        // Counts first, so that whoever sees the flag sees them too.
        m_cache.copyCounts();
        m_journal.takeSnapshot();
        m_ready.store(true, std::memory_order_release);
        break;
    case ConsoleCode::System:
        handleSystem(a, b, c);
        return;
    default:
        break;
    }
    if (m_suspended.load(std::memory_order_acquire))
        return;
    m_journal.notified(code, a, b, c);
    runHooks(code, a, b, c);
    emitFor(code, a, b, c);
}

void Console::handleSystem(int subCode, int x, int y)
{
    switch (subCode) {
    case SystemCode::BulkBegin:
        m_journal.bulkBegan();
        m_suspended.store(true, std::memory_order_release);
        break;
    case SystemCode::BulkEnd:
        m_suspended.store(false, std::memory_order_release);
        discardHooks();
        rebuildCaches(true, true);
        m_journal.takeSnapshot();
        emit playLoaded();
        break;
    case SystemCode::LumideskCommand:
        emit lumideskCommand(x, y);
        break;
    case SystemCode::Busy:
        emit systemBusyCommand(x);
        break;
    default:
        break;
    }
}

void Console::runHooks(int code, int a, int b, int c)
{
    // Take the matching hooks out under the lock, run them after it: a hook
    // calls into the engine, which may answer with a notification at once,
    // and a hook may append another hook.
    QList<CacheUpdateHook*> matching;
    {
        QMutexLocker lock(&m_hookMutex);
        for (auto it = m_hooks.begin(); it != m_hooks.end();) {
            if (*it && (*it)->matches(code, a, b, c)) {
                matching.append(*it);
                it = m_hooks.erase(it);
            } else {
                ++it;
            }
        }
    }
    for (CacheUpdateHook* hook : std::as_const(matching)) {
        hook->run(code, a, b, c);
        delete hook;
    }
}

void Console::discardHooks()
{
    QList<CacheUpdateHook*> dropped;
    {
        QMutexLocker lock(&m_hookMutex);
        dropped.swap(m_hooks);
    }
    qDeleteAll(dropped);
}

void Console::rebuildCaches(bool addresses, bool midiCircuits)
{
    m_cache.rebuildDerivedCaches(addresses, midiCircuits);
}

void Console::emitFor(int code, int a, int b, int)
{
    using namespace ConsoleCode;
    switch (code) {
    case MemoryChanged:
        emit memoryUpdated(Memory(a, b));
        break;
    case PaletteChanged:
        emit paletteUpdated(a);
        break;
    case SequenceChanged:
        emit sequenceUpdated(Sequence(a, b));
        break;
    case StackChanged:
        emit sequenceUpdated(Sequence::makeStack());
        break;
    case StackCueChanged:
        emit memoryUpdated(Memory(-1, a));
        break;
    case PatchChanged:
        rebuildCaches(true, false);
        emit patchUpdated();
        break;
    case DeviceChanged:
        rebuildCaches(true, false);
        emit deviceUpdated(a);
        break;
    case GroupChanged:
        emit groupUpdated(a);
        break;
    case PageChanged:
        emit pageUpdated(a);
        break;
    case ChannelTextChanged:
        emit channelTextUpdated(a);
        break;
    case EffectsChanged:
        emit effectUpdated();
        break;
    case MidiPatchChanged:
        rebuildCaches(false, true);
        emit patchUpdated();
        break;
    case IndependentsChanged:
        emit independentsUpdated();
        break;
    case OutputsChanged:
    case OutputLevelsChanged:
        emit outputsUpdated();
        break;
    case FadersChanged:
        emit faderUpdated();
        break;
    case ChannelsChanged:
        emit channelsUpdated();
        break;
    case PlaybackChanged:
        emit playbackUpdated();
        break;
    case BlindLevelsChanged:
        emit blindLevelsUpdated();
        break;
    case InputsChanged:
        emit inputsUpdated();
        break;
    case DisplayChanged:
        emit displayUpdated(a);
        break;
    case LedsChanged:
        emit ledUpdated();
        break;
    case ConsoleStatusChanged:
        emit consoleStatusUpdated();
        break;
    case DeviceStatusChanged:
        emit deviceStatusUpdated();
        break;
    case ShowFileNameChanged:
        emit playFileNameUpdated();
        break;
    case SystemSettingsChanged:
        emit systemSettingsUpdated();
        break;
    default:
        break; // 20, 25-35, 38, 40 and above: hooks only
    }
}

void Console::sendUpdate(int code, int a, int b, int c)
{
    // Before the engine sees it: a step it deletes is still in the record.
    m_journal.reported(code, a, b, c);
    if (m_engine)
        m_engine->update(code, a, b, c);
}

void Console::report(int code, int a, int b, int c)
{
    sendUpdate(code, a, b, c);
    notify(code, a, b, c);
}

void Console::systemSettingsChanged()
{
    report(ConsoleCode::SystemSettingsChanged);
}

void Console::patchChanged()
{
    report(ConsoleCode::PatchChanged);
}

void Console::midiPatchChanged()
{
    report(ConsoleCode::MidiPatchChanged);
}

void Console::independentsChanged()
{
    report(ConsoleCode::IndependentsChanged);
}

void Console::effectsChanged()
{
    sendUpdate(ConsoleCode::EffectsChanged);
    emit effectUpdated();
}

void Console::memoryChanged(Console::Memory memory)
{
    if (memory.isStackCue())
        sendUpdate(ConsoleCode::StackCueChanged, memory.index);
    else
        sendUpdate(ConsoleCode::MemoryChanged, memory.page, memory.index);
    emit memoryUpdated(memory);
}

void Console::paletteChanged(int palette)
{
    sendUpdate(ConsoleCode::PaletteChanged, palette);
    emit paletteUpdated(palette);
}

void Console::sequenceChanged(Console::Sequence sequence)
{
    if (sequence.isStack())
        sendUpdate(ConsoleCode::StackChanged);
    else
        sendUpdate(ConsoleCode::SequenceChanged, sequence.page, sequence.fader);
    emit sequenceUpdated(sequence);
}

void Console::sequenceStepChanged(Console::Sequence sequence, int step)
{
    if (sequence.isStack())
        sendUpdate(ConsoleCode::StackCueChanged, step);
    else
        sendUpdate(ConsoleCode::SequenceChanged, sequence.page, sequence.fader);
    emit sequenceStepUpdated(sequence, step);
}

void Console::groupChanged(int group)
{
    sendUpdate(ConsoleCode::GroupChanged, group);
    emit groupUpdated(group);
}

void Console::deviceStatusChanged()
{
    sendUpdate(ConsoleCode::DeviceStatusChanged);
    emit deviceStatusUpdated();
}

void Console::consoleStatusChanged()
{
    sendUpdate(ConsoleCode::ConsoleStatusChanged);
    emit consoleStatusUpdated();
}

void Console::buttonBlinkTimerTimeout()
{
    ++m_blinkCounter;
    emit buttonBlink(m_blinkCounter % 2 == 0);
}
