// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditJournal.h"

#include "Console.h"
#include "ConsoleCodes.h"
#include "ConsoleStateRecord.h"

#include <QByteArray>
#include <QThread>

#include <algorithm>
#include <cstring>

namespace {
using Record = ConsoleStateRecord;

struct Span
{
    qsizetype offset;
    qsizetype length;
};

Span between(const Record* record, const void* from, const void* to)
{
    const auto* base = reinterpret_cast<const char*>(record);
    const auto* first = static_cast<const char*>(from);
    return {first - base, static_cast<const char*>(to) - first};
}

template <typename T> Span whole(const Record* record, const T& field)
{
    return between(record, &field, &field + 1);
}

bool inRange(int value, int count)
{
    return value >= 0 && value < count;
}

// The record bytes a change report covers. Fields the engine derives from
// them (a memory's content mask, a palette's group flags) and an
// independent's level are left out: the engine rewrites the first after
// every edit, and a panel key moves the level.
std::vector<Span> regionsOf(const Record* r, int code, int a, int b)
{
    using namespace ConsoleCode;
    std::vector<Span> spans;
    switch (code) {
    case ChannelTextChanged:
        if (inRange(a, Record::maxChannels))
            spans.push_back(whole(r, r->channelLegends[a]));
        break;
    case MemoryChanged:
        if (inRange(a, Record::pages) && inRange(b, Record::memoriesPerPage)) {
            const MemoryRecord& m = r->memories[a * Record::memoriesPerPage + b];
            spans.push_back(whole(r, m.content.channelLevels));
            spans.push_back(between(r, &m.content.parameters, &m + 1));
        }
        break;
    case StackCueChanged:
        if (inRange(a, Record::stackCues)) {
            if (a < Record::maxStackSteps)
                spans.push_back(whole(r, r->stackSteps[a]));
            spans.push_back(whole(r, r->cueLabels[a]));
            spans.push_back(whole(r, r->cueRecorded[a]));
            spans.push_back(whole(r, r->cueContents[a]));
            spans.push_back(whole(r, r->cueNames[a]));
        }
        break;
    case SequenceChanged:
        if (inRange(a, Record::pages) && inRange(b, Record::sequenceFadersPerPage))
            spans.push_back(whole(r, r->sequences[a * Record::sequenceFadersPerPage + b]));
        break;
    case StackChanged:
        // A step insert or delete moves the cues behind it.
        spans.push_back(between(r, &r->stackSteps, &r->engineReserved));
        spans.push_back(between(r, &r->cueLabels, &r->palettes));
        break;
    case PaletteChanged:
        if (inRange(a, 24))
            spans.push_back(between(r, &r->palettes[a].padding, &r->palettes[a] + 1));
        break;
    case GroupChanged:
        if (inRange(a, 24))
            spans.push_back(whole(r, r->groups[a]));
        break;
    case PageChanged:
        if (inRange(a, Record::pages))
            spans.push_back(whole(r, r->pageNames[a]));
        break;
    case EffectsChanged:
        spans.push_back(whole(r, r->effects));
        break;
    case PatchChanged:
        spans.push_back(whole(r, r->dmxPatch));
        break;
    case MidiPatchChanged:
        spans.push_back(whole(r, r->midiCircuits));
        break;
    case IndependentsChanged:
        for (const IndependentRecord& i : r->independents) {
            spans.push_back(between(r, &i.unused, &i.currentLevel));
            spans.push_back(between(r, &i.buttonMode, &i + 1));
        }
        break;
    case SystemSettingsChanged:
        spans.push_back(between(r, &r->crossfaderMode, &r->padding3));
        break;
    default:
        break;
    }
    return spans;
}

// A step with what belongs to it: on the stack, its cue's texts and content.
QByteArray stepBytes(ConsoleCache* cache, int page, int fader, int index)
{
    const StepRecord* step = cache->step(page, fader, index);
    if (!step)
        return {};
    QByteArray bytes(reinterpret_cast<const char*>(step), sizeof(StepRecord));
    if (page == -1) {
        const Record* r = cache->record();
        for (const Span span : {whole(r, r->cueLabels[index]), whole(r, r->cueRecorded[index]),
                                whole(r, r->cueContents[index]), whole(r, r->cueNames[index])})
            bytes.append(reinterpret_cast<const char*>(r) + span.offset, span.length);
    }
    return bytes;
}

quint16 savedCue(const QByteArray& bytes)
{
    StepRecord step{};
    if (bytes.size() >= qsizetype(sizeof step))
        std::memcpy(&step, bytes.constData(), sizeof step);
    return step.cueNumber;
}

// Puts a deleted step back whole once the engine has made room for it.
class RestoreStepHook : public Console::InsertSequenceStepCacheUpdateHook
{
public:
    RestoreStepHook(ConsoleCache* cache, int page, int fader, int step, QByteArray saved)
        : InsertSequenceStepCacheUpdateHook(cache, page, fader, step, 0, 0, savedCue(saved)),
          m_cache(cache), m_page(page), m_fader(fader), m_step(step), m_saved(std::move(saved))
    {
    }

    void run(int, int, int, int) override
    {
        StepRecord* step = m_cache->step(m_page, m_fader, m_step);
        if (!step)
            return;
        std::memcpy(static_cast<void*>(step), m_saved.constData(), sizeof(StepRecord));
        if (m_page == -1) {
            Record* r = m_cache->record();
            qsizetype at = sizeof(StepRecord);
            for (const Span span :
                 {whole(r, r->cueLabels[m_step]), whole(r, r->cueRecorded[m_step]),
                  whole(r, r->cueContents[m_step]), whole(r, r->cueNames[m_step])}) {
                std::memcpy(reinterpret_cast<char*>(r) + span.offset, m_saved.constData() + at,
                            size_t(span.length));
                at += span.length;
            }
        }
        m_cache->console()->sequenceStepChanged(Console::Sequence(m_page, m_fader), m_step);
    }

private:
    ConsoleCache* m_cache;
    int m_page;
    int m_fader;
    int m_step;
    QByteArray m_saved;
};
} // namespace

struct EditJournal::Range
{
    qsizetype offset = 0;
    QByteArray before;
    QByteArray after;
    qsizetype end() const { return offset + before.size(); }
};

struct EditJournal::Report
{
    int code;
    int a;
    int b;
    int c;
    bool operator==(const Report& o) const
    {
        return code == o.code && a == o.a && b == o.b && c == o.c;
    }
};

// A device's place and personality before and after; address -1: unpatched.
struct EditJournal::DeviceOp
{
    int device;
    int beforeAddress;
    int beforeId;
    int afterAddress;
    int afterId;
};

struct EditJournal::StepOp
{
    enum class Kind
    {
        Insert,
        Delete,
        Move
    };
    Kind kind;
    int key;
    int page;
    int fader;
    int index; // insert, delete: the place; move: where the step was
    int to;    // move: where the engine put it
    int countBefore;
    quint16 cue;       // insert: the new cue; move: the cue given (0 keeps)
    quint16 cueBefore; // move: the step's cue before
    QByteArray saved;  // the step while it is gone
};

struct EditJournal::Edit
{
    std::vector<Range> ranges;
    std::vector<Report> reports;
    std::vector<DeviceOp> devices;
    std::vector<StepOp> steps;

    bool isEmpty() const { return ranges.empty() && devices.empty() && steps.empty(); }
    qint64 size() const
    {
        qint64 total = qint64(sizeof(Edit));
        for (const Range& range : ranges)
            total += range.before.size() + range.after.size();
        for (const StepOp& step : steps)
            total += step.saved.size();
        return total;
    }
};

EditJournal::EditJournal(Console* console) : m_console(console) {}

EditJournal::~EditJournal() = default;

ConsoleStateRecord* EditJournal::record() const
{
    return m_console->cache()->record();
}

void EditJournal::takeSnapshot()
{
    const Record* r = record();
    if (!r)
        return;
    const auto* base = reinterpret_cast<const char*>(r);
    std::lock_guard lock(m_shadowMutex);
    m_shadow.assign(base, base + sizeof(Record));
}

void EditJournal::notified(int code, int a, int b, int c)
{
    // The desktop's own reports moved the copy in reported(), before the
    // engine saw them; reading the record again now would race its answer.
    if (QThread::currentThread() == thread())
        return;
    refresh(code, a, b, c);
}

void EditJournal::refresh(int code, int a, int b, int)
{
    const Record* r = record();
    if (!r)
        return;
    const std::vector<Span> spans = regionsOf(r, code, a, b);
    if (spans.empty())
        return;
    const auto* base = reinterpret_cast<const char*>(r);
    std::lock_guard lock(m_shadowMutex);
    if (m_shadow.empty())
        return;
    for (const Span& span : spans)
        std::memcpy(m_shadow.data() + span.offset, base + span.offset, size_t(span.length));
}

void EditJournal::reported(int code, int a, int b, int c)
{
    if (!record())
        return;
    // The engine's own answers come on its thread: they only move the copy.
    if (QThread::currentThread() != thread() || m_replaying ||
        m_stale.load(std::memory_order_acquire)) {
        refresh(code, a, b, c);
        return;
    }
    switch (code) {
    case ConsoleCode::PatchDevice:
    case ConsoleCode::UnpatchDevice:
    case ConsoleCode::MoveDevice:
        recordDevice(code, a, b, c);
        break;
    case ConsoleCode::InsertStep:
    case ConsoleCode::DeleteStep:
    case ConsoleCode::MoveStepFrom:
    case ConsoleCode::MoveStepTo:
        recordStep(code, a, b, c);
        break;
    default:
        recordBytes(code, a, b, c);
        break;
    }
}

EditJournal::Edit& EditJournal::openEdit()
{
    if (!m_open) {
        m_open = std::make_unique<Edit>();
        if (!m_commitQueued) {
            // The edit ends with the event that made it.
            m_commitQueued = true;
            QMetaObject::invokeMethod(
                this,
                [this] {
                    m_commitQueued = false;
                    commit();
                },
                Qt::QueuedConnection);
        }
        emit changed();
    }
    return *m_open;
}

void EditJournal::recordBytes(int code, int a, int b, int c)
{
    const char* base = reinterpret_cast<const char*>(record());
    const std::vector<Span> spans = regionsOf(record(), code, a, b);
    if (spans.empty())
        return;
    {
        std::lock_guard lock(m_shadowMutex);
        if (m_shadow.empty())
            return;
    }
    Edit& edit = openEdit();
    std::lock_guard lock(m_shadowMutex);
    for (const Span& span : spans) {
        // Ranges of one edit stay apart: one that meets an earlier one
        // absorbs it and keeps its older "before".
        qsizetype low = span.offset;
        qsizetype high = span.offset + span.length;
        for (bool grown = true; grown;) {
            grown = false;
            for (const Range& range : edit.ranges) {
                if (range.offset < high && range.end() > low &&
                    (range.offset < low || range.end() > high)) {
                    low = std::min(low, range.offset);
                    high = std::max(high, range.end());
                    grown = true;
                }
            }
        }
        Range merged{low, QByteArray(base + low, high - low), QByteArray(base + low, high - low)};
        std::memcpy(merged.before.data() + (span.offset - low), m_shadow.data() + span.offset,
                    size_t(span.length));
        for (auto it = edit.ranges.begin(); it != edit.ranges.end();) {
            if (it->offset >= low && it->end() <= high) {
                std::memcpy(merged.before.data() + (it->offset - low), it->before.constData(),
                            size_t(it->before.size()));
                it = edit.ranges.erase(it);
            } else {
                ++it;
            }
        }
        edit.ranges.push_back(std::move(merged));
        std::memcpy(m_shadow.data() + span.offset, base + span.offset, size_t(span.length));
    }
    const Report report{code, a, b, c};
    if (std::find(edit.reports.begin(), edit.reports.end(), report) == edit.reports.end())
        edit.reports.push_back(report);
}

int EditJournal::personalityOf(int device) const
{
    const ConsoleCache* cache = m_console->cache();
    if (!cache->isDevicePatched(device))
        return -1;
    const int footprint = cache->deviceFootprint(device);
    const QString name = cache->devicePersonalityName(device);
    const QString full = name + QLatin1Char(' ') + cache->deviceSecondName(device);
    const QList<RecordArea::Personality> list = cache->personalities();
    for (const RecordArea::Personality& p : list) {
        if (p.footprint == footprint && (p.name == full || p.name == name))
            return p.id;
    }
    // The record keeps names cut to 18 characters.
    for (const RecordArea::Personality& p : list) {
        if (p.footprint == footprint && !name.isEmpty() && p.name.startsWith(name))
            return p.id;
    }
    return -1;
}

void EditJournal::recordDevice(int code, int a, int b, int c)
{
    const ConsoleCache* cache = m_console->cache();
    if (!inRange(a, std::min(cache->deviceCount(), ConsoleStateRecord::maxDevices)))
        return;
    DeviceOp op{a, cache->deviceFirstAddress(a), personalityOf(a), -1, -1};
    if (code == ConsoleCode::PatchDevice) {
        op.afterAddress = c;
        op.afterId = b;
    } else if (code == ConsoleCode::MoveDevice) {
        if (op.beforeAddress < 0)
            return; // the engine moves only a patched device
        op.afterAddress = b;
        op.afterId = op.beforeId;
    } else if (op.beforeAddress < 0) {
        return; // nothing to unpatch
    }
    openEdit().devices.push_back(op);
}

void EditJournal::recordStep(int code, int a, int b, int c)
{
    ConsoleCache* cache = m_console->cache();
    const int faders = cache->sequenceFaderCount();
    if (faders <= 0)
        return;
    const bool stack = a == faders * ConsoleStateRecord::pages;
    const int page = stack ? -1 : a / faders;
    const int fader = stack ? -1 : a % faders;
    if (!stack && !inRange(page, ConsoleStateRecord::pages))
        return;
    const int count = cache->stepCount(page, fader);
    StepOp op{StepOp::Kind::Insert, a, page, fader, b, -1, count, quint16(c), 0, {}};
    switch (code) {
    case ConsoleCode::InsertStep:
        if (count >= ConsoleCache::stepCapacity(page) || b < 0)
            return;
        op.index = std::min(b, count);
        break;
    case ConsoleCode::DeleteStep:
        if (!inRange(b, count))
            return;
        op.kind = StepOp::Kind::Delete;
        op.saved = stepBytes(cache, page, fader, b);
        op.cue = savedCue(op.saved);
        break;
    case ConsoleCode::MoveStepFrom:
        m_pendingMoveKey = a;
        m_pendingMoveFrom = b;
        return;
    default: // MoveStepTo
        if (m_pendingMoveKey != a || !inRange(m_pendingMoveFrom, count) || !inRange(b, count))
            return;
        op.kind = StepOp::Kind::Move;
        op.index = m_pendingMoveFrom;
        op.to = b;
        op.cueBefore = cache->step(page, fader, op.index)->cueNumber;
        m_pendingMoveKey = -1;
        break;
    }
    openEdit().steps.push_back(std::move(op));
}

void EditJournal::commit()
{
    if (!m_open)
        return;
    std::unique_ptr<Edit> edit = std::move(m_open);
    // Keep only the bytes that changed.
    for (auto it = edit->ranges.begin(); it != edit->ranges.end();) {
        const char* before = it->before.constData();
        const char* after = it->after.constData();
        qsizetype first = 0;
        qsizetype last = it->before.size();
        while (first < last && before[first] == after[first])
            ++first;
        while (last > first && before[last - 1] == after[last - 1])
            --last;
        if (first == last) {
            it = edit->ranges.erase(it);
            continue;
        }
        it->offset += first;
        it->before = it->before.mid(first, last - first);
        it->after = it->after.mid(first, last - first);
        ++it;
    }
    if (!edit->isEmpty()) {
        // A new edit ends what could be redone.
        for (const auto& undone : m_redo)
            m_bytes -= undone->size();
        m_redo.clear();
        m_bytes += edit->size();
        m_undo.push_back(std::move(edit));
        trim();
    }
    emit changed();
}

void EditJournal::trim()
{
    while (!m_undo.empty() && (int(m_undo.size()) > editLimit || m_bytes > byteBudget)) {
        m_bytes -= m_undo.front()->size();
        m_undo.pop_front();
    }
}

void EditJournal::clear()
{
    m_undo.clear();
    m_redo.clear();
    m_open.reset();
    m_bytes = 0;
    m_pendingMoveKey = -1;
    m_stale.store(false, std::memory_order_release);
    emit changed();
}

bool EditJournal::undo()
{
    commit();
    if (m_stale.load(std::memory_order_acquire) || m_undo.empty())
        return false;
    std::unique_ptr<Edit> edit = std::move(m_undo.back());
    m_undo.pop_back();
    if (!applies(*edit, false)) {
        // What lay above it was made on top of it.
        m_bytes -= edit->size();
        for (const auto& later : m_redo)
            m_bytes -= later->size();
        m_redo.clear();
        refuse(true);
        return false;
    }
    const qint64 size = edit->size();
    replay(*edit, false);
    m_bytes += edit->size() - size; // a removed step's bytes are kept now
    m_redo.push_back(std::move(edit));
    emit changed();
    return true;
}

bool EditJournal::redo()
{
    commit();
    if (m_stale.load(std::memory_order_acquire) || m_redo.empty())
        return false;
    std::unique_ptr<Edit> edit = std::move(m_redo.back());
    m_redo.pop_back();
    if (!applies(*edit, true)) {
        m_bytes -= edit->size();
        for (const auto& later : m_redo)
            m_bytes -= later->size();
        m_redo.clear();
        refuse(false);
        return false;
    }
    const qint64 size = edit->size();
    replay(*edit, true);
    m_bytes += edit->size() - size;
    m_undo.push_back(std::move(edit));
    emit changed();
    return true;
}

void EditJournal::refuse(bool undoing)
{
    emit refused(undoing ? tr("Not undone: the console has changed it since")
                         : tr("Not redone: the console has changed it since"));
    emit changed();
}

bool EditJournal::applies(const Edit& edit, bool forward) const
{
    const char* base = reinterpret_cast<const char*>(record());
    for (const Range& range : edit.ranges) {
        const QByteArray& expected = forward ? range.before : range.after;
        if (std::memcmp(base + range.offset, expected.constData(), size_t(expected.size())) != 0)
            return false;
    }
    // A device moved twice in one edit is checked at its outer end only.
    for (size_t i = 0; i < edit.devices.size(); ++i) {
        const DeviceOp& op = edit.devices[i];
        const auto sameDevice = [&op](const DeviceOp& other) { return other.device == op.device; };
        const bool outer = forward ? std::none_of(edit.devices.begin(),
                                                  edit.devices.begin() + qsizetype(i), sameDevice)
                                   : std::none_of(edit.devices.begin() + qsizetype(i) + 1,
                                                  edit.devices.end(), sameDevice);
        if (outer && !deviceApplies(op, forward))
            return false;
    }
    if (!edit.steps.empty()) {
        const StepOp& op = forward ? edit.steps.front() : edit.steps.back();
        if (!stepApplies(op, forward))
            return false;
    }
    return true;
}

bool EditJournal::deviceApplies(const DeviceOp& op, bool forward) const
{
    const int expected = forward ? op.beforeAddress : op.afterAddress;
    const int target = forward ? op.afterAddress : op.beforeAddress;
    const int targetId = forward ? op.afterId : op.beforeId;
    if (target >= 0 && targetId < 0)
        return false; // no personality to patch it with
    return m_console->cache()->deviceFirstAddress(op.device) == expected;
}

bool EditJournal::stepApplies(const StepOp& op, bool forward) const
{
    const ConsoleCache* cache = m_console->cache();
    const int count = cache->stepCount(op.page, op.fader);
    int expected = op.countBefore;
    if (!forward && op.kind == StepOp::Kind::Insert)
        ++expected;
    if (!forward && op.kind == StepOp::Kind::Delete)
        --expected;
    if (count != expected)
        return false;
    const bool removing = (op.kind == StepOp::Kind::Insert) != forward;
    if (op.kind == StepOp::Kind::Move) {
        const StepRecord* step = cache->step(op.page, op.fader, forward ? op.index : op.to);
        return step && step->cueNumber == (forward || op.cue == 0 ? op.cueBefore : op.cue);
    }
    if (removing) {
        const StepRecord* step = cache->step(op.page, op.fader, op.index);
        return step && step->cueNumber == op.cue;
    }
    return count < ConsoleCache::stepCapacity(op.page);
}

void EditJournal::runDevice(const DeviceOp& op, bool forward)
{
    const int from = forward ? op.beforeAddress : op.afterAddress;
    const int fromId = forward ? op.beforeId : op.afterId;
    const int to = forward ? op.afterAddress : op.beforeAddress;
    const int toId = forward ? op.afterId : op.beforeId;
    ConsoleCache* cache = m_console->cache();
    if (to < 0)
        cache->unpatchDevice(op.device);
    else if (from >= 0 && fromId == toId)
        cache->repatchDevice(op.device, to);
    else
        cache->patchDevice(op.device, toId, to);
}

void EditJournal::runStep(StepOp& op, bool forward)
{
    ConsoleCache* cache = m_console->cache();
    if (op.kind == StepOp::Kind::Move) {
        const int from = forward ? op.index : op.to;
        const int to = forward ? op.to : op.index;
        m_console->report(ConsoleCode::MoveStepFrom, op.key, from, to);
        m_console->report(ConsoleCode::MoveStepTo, op.key, to, forward ? op.cue : op.cueBefore);
        return;
    }
    const bool removing = (op.kind == StepOp::Kind::Insert) != forward;
    if (removing) {
        op.saved = stepBytes(cache, op.page, op.fader, op.index);
        m_console->report(ConsoleCode::DeleteStep, op.key, op.index);
        return;
    }
    const quint16 cue = op.saved.isEmpty() ? op.cue : savedCue(op.saved);
    if (!op.saved.isEmpty())
        m_console->appendHook(new RestoreStepHook(cache, op.page, op.fader, op.index, op.saved));
    m_console->report(ConsoleCode::InsertStep, op.key, op.index, cue);
}

void EditJournal::sendReports(const Edit& edit)
{
    for (const Report& report : edit.reports) {
        m_console->report(report.code, report.a, report.b, report.c);
        if (report.code == ConsoleCode::StackCueChanged)
            emit m_console->sequenceStepUpdated(Console::Sequence::makeStack(), report.a);
    }
}

void EditJournal::replay(Edit& edit, bool forward)
{
    m_replaying = true;
    if (forward) {
        for (const DeviceOp& op : edit.devices)
            runDevice(op, true);
        for (StepOp& op : edit.steps)
            runStep(op, true);
    }
    {
        char* base = reinterpret_cast<char*>(record());
        std::lock_guard lock(m_shadowMutex);
        for (const Range& range : edit.ranges) {
            const QByteArray& bytes = forward ? range.after : range.before;
            std::memcpy(base + range.offset, bytes.constData(), size_t(bytes.size()));
            if (!m_shadow.empty())
                std::memcpy(m_shadow.data() + range.offset, bytes.constData(),
                            size_t(bytes.size()));
        }
    }
    sendReports(edit);
    if (!forward) {
        for (auto it = edit.steps.rbegin(); it != edit.steps.rend(); ++it)
            runStep(*it, false);
        for (auto it = edit.devices.rbegin(); it != edit.devices.rend(); ++it)
            runDevice(*it, false);
    }
    m_replaying = false;
}
