// SPDX-License-Identifier: GPL-3.0-or-later
#include "PagesBlock.h"

#include "ConsoleLink.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"
#include "NumberCell.h"
#include "NumberRow.h"
#include "PagesBlockHandler.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr int lineHeight = 12;
constexpr int itemsTop = 18;
constexpr int cellBaseHeight = 30;
constexpr int nameLength = 6;
constexpr float textSize = 8;
constexpr int fullRate = 256;
constexpr int faderNameHeight = 32;
constexpr QColor sequenceFill(104, 81, 11);
constexpr QColor sequenceText(252, 246, 105);
constexpr QColor sequenceTextDim(143, 120, 50);
constexpr QColor memoryFill(105, 10, 10);
constexpr QColor memoryText(252, 105, 105);
constexpr QColor memoryTextDim(143, 50, 50);
constexpr QColor flagFill(53, 131, 28);
constexpr int memoryMode = 5;

// Built once: every cell of the grid repaints with the faders.
const QFont& labelFont()
{
    static const QFont font = makeFont(family, 8);
    return font;
}

const QFont& markFont()
{
    static const QFont font = makeFont(family, 6);
    return font;
}

// A small boxed mark such as "R" or "fx".
void paintMark(QPainter* painter, const QRectF& box, const QString& mark, const QColor& fill,
               const QColor& ink)
{
    painter->setPen(QPen(ink, 1));
    painter->setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
    painter->drawRect(box);
    painter->drawText(box, Qt::AlignCenter, mark);
}
} // namespace

// -- FaderNameRow / FaderNameCell ---------------------------------------------

PagesBlock::FaderNameRow::FaderNameRow(PagesBlock* block)
    : CellRow(block, Spacing::ThickSpacing, Spacing::ThickSpacing)
{
}

void PagesBlock::FaderNameRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                     QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    static const QFont nameFont = makeFont(family, 12);
    painter->setFont(nameFont);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, 0, table()->headerWidth() - 4, height()),
                      Qt::AlignRight | Qt::AlignVCenter, PagesBlock::tr("PAGE"));
}

PagesBlock::FaderNameCell::FaderNameCell(CellRow* row) : Cell(row, faderNameHeight) {}

void PagesBlock::FaderNameCell::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

// -- MasterRow ----------------------------------------------------------------

PagesBlock::MasterRow::MasterRow(PagesBlock* block, int page)
    : CellRow(block, Spacing::ThinSpacing, Spacing::ThinSpacing), block(block), pageIndex(page)
{
    for (int line = 0; line < maxLines; ++line)
        names[std::size_t(line)] = new InPlaceEditableText(
            this, this,
            QRectF(2, itemsTop + lineHeight * line, block->headerWidth() - 4, lineHeight),
            nameLength, textSize, Qt::white, Qt::AlignCenter);
}

void PagesBlock::MasterRow::refresh()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    for (int line = 0; line < maxLines; ++line) {
        InPlaceEditableText* item = names[std::size_t(line)];
        item->setText(cache ? cache->pageName(pageIndex, line) : QString());
        item->setEditable(cache != nullptr);
        item->setVisible(line < block->lineCount());
    }
    update();
}

void PagesBlock::MasterRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                  QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    const ConsoleCache* cache = ConsoleLink::cache();
    if (cache && cache->record()->memoryPage == pageIndex) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(255, 255, 255, 70));
        painter->drawRoundedRect(QRectF(2, 2, table()->headerWidth() - 4, height() - 4), 4, 4);
        painter->restore();
    }
    static const QFont titleFont = makeFont(family, 11);
    painter->setFont(titleFont);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, 0, table()->headerWidth(), itemsTop), Qt::AlignCenter,
                      QString::number(pageIndex + 1));
}

void PagesBlock::MasterRow::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const auto found = std::find(names.begin(), names.end(), item);
    if (cache && found != names.end())
        cache->setPageName(pageIndex, int(found - names.begin()), text);
}

// -- MasterCell ---------------------------------------------------------------

PagesBlock::MasterCell::MasterCell(MasterRow* row, PagesBlock* block, int page, int fader)
    : Cell(row, cellBaseHeight), block(block), pageIndex(page), faderIndex(fader),
      text(QStringLiteral("%1/%2")
               .arg(page + 1, 2, 10, QLatin1Char('0'))
               .arg(fader + 1, 2, 10, QLatin1Char('0')))
{
    const ConsoleCache* cache = ConsoleLink::cache();
    sequenceKey = Console::Sequence(page, cache ? cache->faderSequence(fader) : -1);
    const qreal width = block->columnWidth();
    for (int i = 0; i < 4; ++i)
        items[std::size_t(i)] = new InPlaceEditableText(
            this, this, QRectF(0, itemsTop + lineHeight * i, width, lineHeight), nameLength,
            textSize, Qt::white, Qt::AlignCenter);
}

bool PagesBlock::MasterCell::holdsSequence() const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    return cache && faderIndex >= cache->firstSequenceFader() && sequenceKey.fader >= 0 &&
           sequenceKey.fader < ConsoleStateRecord::sequenceFadersPerPage &&
           cache->stepCount(pageIndex, sequenceKey.fader) > 0;
}

bool PagesBlock::MasterCell::holdsMemory() const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    return cache && cache->isMemoryRecorded(pageIndex, faderIndex);
}

bool PagesBlock::MasterCell::showsSequence() const
{
    return holdsSequence() && (!block->msMode() || !holdsMemory());
}

bool PagesBlock::MasterCell::isActive() const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    return cache && cache->faderMode() == memoryMode && cache->faderPage(faderIndex) == pageIndex &&
           cache->record()->faders[faderIndex].active;
}

qreal PagesBlock::MasterCell::height() const
{
    return block->lineCount() * lineHeight + cellBaseHeight;
}

void PagesBlock::MasterCell::hideAll()
{
    for (InPlaceEditableText* item : items) {
        item->setText(QString());
        item->setEditable(false);
        item->setVisible(false);
    }
}

void PagesBlock::MasterCell::readMarks()
{
    sequenceMarks.clear();
    memoryFlags.clear();
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const SequenceRecord* sequence =
        holdsSequence() ? cache->sequenceRecord(pageIndex, sequenceKey.fader) : nullptr;
    if (sequence) {
        if (sequence->marked != 0)
            sequenceMarks << QStringLiteral("O");
        if (sequence->rate != fullRate)
            sequenceMarks << QStringLiteral("R");
        if (sequence->fade != fullRate)
            sequenceMarks << QStringLiteral("F");
    }
    const int mask = cache->memoryContentMask(pageIndex, faderIndex);
    const char* names[] = {"I", "F", "C", "B"};
    for (int bit = 0; bit < 4; ++bit) {
        if (mask & (1 << bit))
            memoryFlags << QLatin1String(names[bit]);
    }
    if (cache->memoryHasEffect(pageIndex, faderIndex))
        memoryFlags << QStringLiteral("fx");
}

void PagesBlock::MasterCell::refresh()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    hideAll();
    readMarks();
    const int shown = block->lineCount();
    if (holdsSequence()) {
        for (int line = 0; line < shown; ++line) {
            items[std::size_t(line)]->setText(
                cache->sequenceName(pageIndex, sequenceKey.fader, line));
            items[std::size_t(line)]->setEditable(true);
            items[std::size_t(line)]->setVisible(true);
        }
    } else if (holdsMemory()) {
        for (int line = 0; line < shown; ++line) {
            items[std::size_t(line)]->setText(cache->memoryName(pageIndex, faderIndex, line));
            items[std::size_t(line)]->setEditable(true);
            items[std::size_t(line)]->setVisible(true);
        }
        if (block->timeMode()) {
            // The time takes the place under the shown name lines.
            InPlaceEditableText* time = items[std::size_t(timeItem)];
            const qreal width = block->columnWidth();
            time->setRect(QRectF(15, itemsTop + lineHeight * shown, width - 20, lineHeight));
            time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            time->setText(
                ConsoleCache::timeText(quint16(cache->memoryTime(pageIndex, faderIndex))));
            time->setEditable(true);
            time->setVisible(true);
        }
    }
    update();
}

void PagesBlock::MasterCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF bounds = boundingRect();
    const QRectF frame(bounds.x() + 1.7, bounds.y() + 2.7, bounds.width() - 3.4,
                       bounds.height() - 5.4);
    if (showsSequence())
        paintSequence(painter, frame);
    else if (holdsMemory())
        paintMemory(painter, frame);
}

void PagesBlock::MasterCell::paintSequence(QPainter* painter, const QRectF& frame)
{
    const bool active = isActive();
    QColor fill = sequenceFill;
    fill.setAlpha(active ? 255 : 100);
    painter->fillRect(frame, fill);
    painter->setFont(labelFont());
    const QColor ink = active ? sequenceText : sequenceTextDim;
    painter->setPen(ink);
    painter->drawText(QRectF(frame.x(), frame.y(), frame.width(), 14), Qt::AlignCenter, text);

    painter->setFont(markFont());
    qreal x = frame.right() - 9;
    for (const QString& mark : std::as_const(sequenceMarks)) {
        paintMark(painter, QRectF(x, frame.y() + 2, 8, 8), mark, QColor(), ink);
        x -= 9;
    }
}

void PagesBlock::MasterCell::paintMemory(QPainter* painter, const QRectF& frame)
{
    const bool active = isActive();
    QColor fill = memoryFill;
    fill.setAlpha(active ? 255 : 100);
    painter->fillRect(frame, fill);
    painter->setFont(labelFont());
    painter->setPen(active ? memoryText : memoryTextDim);
    painter->drawText(QRectF(frame.x(), frame.y(), frame.width(), 14), Qt::AlignCenter, text);
    if (block->timeMode())
        return;
    painter->setFont(markFont());
    const qreal bottom = frame.bottom() - 9;
    qreal x = frame.x() + 2;
    for (const QString& flag : std::as_const(memoryFlags)) {
        const qreal width = flag.size() > 1 ? 11 : 8;
        paintMark(painter, QRectF(x, bottom, width, 8), flag, flagFill, Qt::white);
        x += width + 1;
    }
}

void PagesBlock::MasterCell::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const auto found = std::find(items.begin(), items.end(), item);
    if (!cache || found == items.end())
        return;
    const int index = int(found - items.begin());
    if (holdsSequence()) {
        if (index != timeItem)
            cache->setSequenceName(pageIndex, sequenceKey.fader, index, text);
    } else if (holdsMemory()) {
        if (index == timeItem) {
            cache->setMemoryTime(pageIndex, faderIndex, ConsoleCache::parseTime(text));
            cache->console()->memoryChanged(Console::Memory(pageIndex, faderIndex));
        } else {
            cache->setMemoryName(pageIndex, faderIndex, index, text);
        }
    } else {
        item->setEditable(false);
    }
}

void PagesBlock::MasterCell::mousePressEvent(QGraphicsSceneMouseEvent*) {}

void PagesBlock::MasterCell::mouseReleaseEvent(QGraphicsSceneMouseEvent*) {}

void PagesBlock::MasterCell::mouseDoubleClickEvent(QGraphicsSceneMouseEvent*)
{
    PagesBlockHandler* handler = block->handler();
    if (!handler)
        return;
    if (showsSequence())
        handler->openSequence(pageIndex, faderIndex);
    else
        handler->openMemory(pageIndex, faderIndex);
}

// -- PagesBlock -----------------------------------------------------------------

PagesBlock::PagesBlock(QGraphicsScene* scene, PagesBlockHandler* handler, int first, int count,
                       int mode, bool msMode)
    : CellRowTable(scene, false), owner(handler), firstFader(std::clamp(first, 0, maxFaders)),
      faderTotal(std::clamp(count, 0, maxFaders - firstFader)), blockMode(mode), ms(msMode)
{
    auto* numbers = new NumberRow(this, tr("FADER"));
    for (int i = 0; i < faderTotal; ++i)
        new NumberCell(numbers, firstFader + i);
    addRow(numbers);

    auto* names = new FaderNameRow(this);
    for (int i = 0; i < faderTotal; ++i)
        new FaderNameCell(names);
    addRow(names);

    for (int page = 0; page < pages; ++page) {
        auto* row = new MasterRow(this, page);
        masterRows[std::size_t(page)] = row;
        for (int i = 0; i < faderTotal; ++i)
            cells[std::size_t(page)][std::size_t(firstFader + i)] =
                new MasterCell(row, this, page, firstFader + i);
        addRow(row);
    }

    auto* footer = new NumberRow(this);
    for (int i = 0; i < faderTotal; ++i)
        new NumberCell(footer, firstFader + i);
    addRow(footer);

    refreshAll();
    connectConsole();
}

PagesBlock::~PagesBlock() = default;

void PagesBlock::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &PagesBlock::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::pageUpdated, this, &PagesBlock::consoleCachePageUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::memoryUpdated, this, &PagesBlock::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceUpdated, this, &PagesBlock::consoleCacheSequenceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::faderUpdated, this, &PagesBlock::consoleCacheFaderUpdated,
            Qt::QueuedConnection);
}

PagesBlock::MasterCell* PagesBlock::cell(int page, int fader) const
{
    if (page < 0 || page >= pages || fader < 0 || fader >= maxFaders)
        return nullptr;
    return cells[std::size_t(page)][std::size_t(fader)];
}

void PagesBlock::refreshAll()
{
    for (MasterRow* row : masterRows) {
        row->refresh();
        for (int i = 0; i < faderTotal; ++i)
            cells[std::size_t(row->page())][std::size_t(firstFader + i)]->refresh();
    }
    update();
}

void PagesBlock::setMsMode(bool on)
{
    ms = on;
    repaintCells();
}

void PagesBlock::setTimeMode(bool on)
{
    if (on == timed)
        return;
    timed = on;
    refreshAll();
}

void PagesBlock::setLineCount(int count)
{
    count = std::clamp(count, 0, maxLines);
    if (count == lines)
        return;
    lines = count;
    for (MasterRow* row : masterRows) {
        for (int i = 0; i < faderTotal; ++i)
            cells[std::size_t(row->page())][std::size_t(firstFader + i)]->heightChanged();
        row->heightChanged();
    }
    refreshAll();
    layoutRows();
}

void PagesBlock::consoleCachePlayLoaded()
{
    refreshAll();
}

void PagesBlock::consoleCachePageUpdated(int page)
{
    if (page >= 0 && page < pages)
        masterRows[std::size_t(page)]->refresh();
}

void PagesBlock::consoleCacheMemoryUpdated(Console::Memory memory)
{
    if (memory.page == -1)
        return;
    if (MasterCell* found = cell(memory.page, memory.index))
        found->refresh();
}

void PagesBlock::consoleCacheSequenceUpdated(Console::Sequence sequence)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (sequence.isStack() || !cache)
        return;
    if (MasterCell* found = cell(sequence.page, cache->sequenceFader(sequence.fader)))
        found->refresh();
}

void PagesBlock::consoleCacheFaderUpdated()
{
    repaintCells();
}

void PagesBlock::repaintCells()
{
    update();
    for (MasterRow* row : masterRows) {
        row->update();
        for (int i = 0; i < faderTotal; ++i)
            cells[std::size_t(row->page())][std::size_t(firstFader + i)]->update();
    }
}
