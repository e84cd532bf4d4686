// SPDX-License-Identifier: GPL-3.0-or-later
#include "FaderBlock.h"

#include "ConsoleButton.h"
#include "ConsoleFader.h"
#include "ConsoleLink.h"

#include <QGraphicsScene>
#include <QPainter>

namespace {
constexpr int faderWidth = 38;
constexpr int lineHeight = 12;
constexpr int lineCount = 3;
constexpr int maxTextLength = 6;
constexpr float textSize = 8;
constexpr int boundingHeight = 235;
// Keys of faders from 25 on come after the console's other keys.
constexpr int firstHighFader = 24;
constexpr int highKeyOffset = 73;
constexpr int narrowSpacing = 7;
constexpr QColor zeroKeyColour(78, 78, 78);

bool isChannelMode(int mode)
{
    return mode == 0 || mode == 1 || mode == 2 || mode == 6;
}

constexpr int memoryMode = 5;
} // namespace

FaderBlock::InPlaceEditableText::InPlaceEditableText(FaderBlock* block, const QRectF& rect,
                                                     Qt::Alignment alignment, int fader, int line)
    : ::InPlaceEditableText(block, block, rect, maxTextLength, textSize, Qt::white, alignment),
      faderIndex(fader), lineIndex(line)
{
}

FaderBlock::FaderBlock(QGraphicsScene* scene, int first, int count, int faderLength, int spacing,
                       int gap, int buttonOffset, bool trackLevels)
    : firstFader(first), faderTotal(count), spacing(spacing)
{
    if (scene)
        scene->addItem(this);
    const int buttonY = faderLength + 55 + gap;
    const int legendY = faderLength + 82 + gap;
    for (int i = 0; i < count; ++i) {
        const qreal x = columnX(i);
        const int number = first + i;
        values << new InPlaceEditableText(this, QRectF(x + 19, -12, spacing + 14, lineHeight),
                                          Qt::AlignRight | Qt::AlignVCenter, number, valueLine);
        auto* fader = new ConsoleFader(this, nullptr, number, faderLength, true, trackLevels);
        fader->setPos(x, 17);
        faders << fader;
        auto* button =
            new ConsoleButton(this, nullptr, flashKey(number), QString::number(number + 1));
        button->setPos(x + buttonOffset, buttonY);
        buttons << button;
        for (int line = 0; line < lineCount; ++line)
            legends << new InPlaceEditableText(
                this, QRectF(x, legendY + 10 * line, faderWidth + spacing, lineHeight),
                Qt::AlignCenter, number, line);
    }
    zero = new Button(this, nullptr, this, Button::ButtonStyle::ConsoleIconStyle, false,
                      QStringLiteral(":/Lumidesk/Resources/FaderZeroButton.png"), zeroKeyColour);
    zero->setPos(columnX(count), buttonY);
    for (int i = 0; i < count; ++i)
        playing << isPlaying(i);
    readModeAndPage();
    refresh();
    connectConsole();
}

FaderBlock::~FaderBlock() = default;

int FaderBlock::flashKey(int fader)
{
    return fader < firstHighFader ? fader : fader + highKeyOffset;
}

void FaderBlock::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &FaderBlock::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::channelTextUpdated, this,
            &FaderBlock::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
    connect(console, &Console::memoryUpdated, this, &FaderBlock::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceUpdated, this, &FaderBlock::consoleCacheSequenceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::consoleStatusUpdated, this,
            &FaderBlock::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
    connect(console, &Console::faderUpdated, this, &FaderBlock::consoleCacheFaderUpdated,
            Qt::QueuedConnection);
}

QRectF FaderBlock::boundingRect() const
{
    return QRectF(0, -12, (faderTotal - 1) * spacing + faderTotal * faderWidth + 2, boundingHeight);
}

void FaderBlock::readModeAndPage()
{
    if (const ConsoleCache* cache = ConsoleLink::cache()) {
        mode = cache->faderMode();
        page = cache->record()->memoryPage;
    }
}

bool FaderBlock::holdsSequence(int fader) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int index = cache ? cache->faderSequence(fader) : -1;
    return index >= 0 && index < ConsoleStateRecord::sequenceFadersPerPage && page >= 0 &&
           page < ConsoleStateRecord::pages && cache->stepCount(page, index) > 0;
}

bool FaderBlock::holdsMemory(int fader) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    return cache && fader >= 0 && fader < ConsoleStateRecord::memoriesPerPage && page >= 0 &&
           page < ConsoleStateRecord::pages && cache->isMemoryRecorded(page, fader);
}

void FaderBlock::refresh()
{
    for (int i = 0; i < faderTotal; ++i)
        refreshFader(i);
    update();
}

void FaderBlock::refreshFader(int i)
{
    if (!ConsoleLink::cache() || !(isChannelMode(mode) || mode == memoryMode)) {
        clearFader(i);
        return;
    }
    if (isChannelMode(mode))
        showChannel(i);
    else
        showPlayback(i);
}

void FaderBlock::clearFader(int i)
{
    for (int line = 0; line < lineCount; ++line) {
        InPlaceEditableText* item = legend(i, line);
        item->setText(QString());
        item->setEditable(false);
        item->setVisible(false);
    }
    values[i]->setText(QString());
    values[i]->setEditable(false);
    values[i]->setVisible(false);
}

void FaderBlock::showChannel(int i)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int channel = cache->faderChannel(mode, firstFader + i);
    const bool exists = channel >= 0 && channel < cache->channelCount();
    for (int line = 0; line < lineCount; ++line) {
        InPlaceEditableText* item = legend(i, line);
        item->setText(exists ? cache->channelLegend(channel, line) : QString());
        item->setEditable(exists);
        item->setVisible(true);
    }
    values[i]->setVisible(false);
    values[i]->setEditable(false);
}

void FaderBlock::showPlayback(int i)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int fader = firstFader + i;
    const bool sequence = holdsSequence(fader);
    const bool memory = !sequence && holdsMemory(fader);
    for (int line = 0; line < lineCount; ++line) {
        InPlaceEditableText* item = legend(i, line);
        QString text;
        if (sequence)
            text = cache->sequenceName(page, cache->faderSequence(fader), line);
        else if (memory)
            text = cache->memoryName(page, fader, line);
        item->setText(text);
        item->setEditable(sequence || memory);
        item->setVisible(true);
    }
    const bool timed = memory && cache->consoleType() == ConsoleCache::ModelMaple;
    values[i]->setText(timed ? ConsoleCache::timeText(quint16(cache->memoryTime(page, fader)))
                             : QString());
    values[i]->setEditable(timed);
    values[i]->setVisible(timed);
}

void FaderBlock::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    if (mode == 3 || mode == 4) {
        const bool narrow = spacing < narrowSpacing;
        const Resources::Id id =
            mode == 3 ? (narrow ? Resources::Id::ParamANarrow : Resources::Id::ParamA)
                      : (narrow ? Resources::Id::ParamBNarrow : Resources::Id::ParamB);
        painter->save();
        painter->setClipRect(boundingRect());
        painter->drawImage(boundingRect().topLeft(), ConsoleLink::image(id));
        painter->restore();
        return;
    }
    if (mode != memoryMode)
        return;
    const bool maple = cache->consoleType() == ConsoleCache::ModelMaple;
    for (int i = 0; i < faderTotal; ++i) {
        const int fader = firstFader + i;
        const bool sequence = holdsSequence(fader);
        const bool memory = holdsMemory(fader);
        const qreal x = columnX(i);
        if (maple && memory && !sequence)
            painter->drawImage(QRectF(x + 7, -12, 12, 12),
                               ConsoleLink::image(Resources::Id::ClockLarge));
        if (sequence || memory)
            faders[i]->paintPlaybackMarker(painter, markerRect(i));
    }
}

QRectF FaderBlock::markerRect(int i) const
{
    return QRectF(columnX(i) + 2, 0, spacing + 36, 12);
}

bool FaderBlock::isPlaying(int i) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int fader = firstFader + i;
    return cache && fader >= 0 && fader < ConsoleStateRecord::maxFaders &&
           cache->record()->faders[fader].active;
}

void FaderBlock::buttonClicked(Button* button)
{
    if (button != zero)
        return;
    // Like a hand sweeping the faders down: only the ones that move send a
    // level, so a fader already at zero sends nothing.
    for (ConsoleFader* fader : std::as_const(faders))
        fader->setValue(0.0f, true);
}

void FaderBlock::textChanged(::InPlaceEditableText* item, const QString& text)
{
    auto* line = static_cast<InPlaceEditableText*>(item);
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const int fader = line->fader();
    if (isChannelMode(mode)) {
        const int channel = cache->faderChannel(mode, fader);
        if (line->line() != valueLine && channel >= 0 && channel < cache->channelCount())
            cache->setChannelLegend(channel, line->line(), text);
        return;
    }
    if (mode != memoryMode)
        return;
    if (holdsSequence(fader)) {
        if (line->line() != valueLine)
            cache->setSequenceName(page, cache->faderSequence(fader), line->line(), text);
    } else if (line->line() == valueLine) {
        cache->setMemoryTime(page, fader, ConsoleCache::parseTime(text));
        cache->console()->memoryChanged(Console::Memory(page, fader));
    } else {
        cache->setMemoryName(page, fader, line->line(), text);
    }
}

void FaderBlock::consoleCachePlayLoaded()
{
    readModeAndPage();
    refresh();
}

void FaderBlock::consoleCacheChannelTextUpdated(int channel)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !isChannelMode(mode))
        return;
    for (int i = 0; i < faderTotal; ++i) {
        if (cache->faderChannel(mode, firstFader + i) == channel)
            showChannel(i);
    }
}

void FaderBlock::consoleCacheMemoryUpdated(Console::Memory memory)
{
    if (mode == memoryMode && memory.page == page && memory.index >= firstFader &&
        memory.index < firstFader + faderTotal)
        refresh();
}

void FaderBlock::consoleCacheSequenceUpdated(Console::Sequence sequence)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || mode != memoryMode || sequence.isStack() || sequence.page != page)
        return;
    const int fader = cache->sequenceFader(sequence.fader);
    if (fader >= firstFader && fader < firstFader + faderTotal)
        refresh();
}

void FaderBlock::consoleCacheFaderUpdated()
{
    for (int i = 0; i < faderTotal; ++i) {
        const bool now = isPlaying(i);
        if (now == playing[i])
            continue;
        playing[i] = now;
        if (mode == memoryMode)
            update(markerRect(i));
    }
}

void FaderBlock::consoleCacheConsoleStatusUpdated()
{
    const int oldMode = mode;
    const int oldPage = page;
    readModeAndPage();
    if (mode != oldMode || page != oldPage)
        refresh();
}
