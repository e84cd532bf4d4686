// SPDX-License-Identifier: GPL-3.0-or-later
#include "Cuelist.h"

#include "ConsoleButton.h"
#include "ConsoleLink.h"
#include "Dropdown.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"
#include "SequenceSteps.h"

#include <QCursor>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr QColor liveColour(206, 194, 81);
constexpr QColor nextColour(96, 78, 215);
constexpr QColor dimText(0x5F, 0x5F, 0x5F);
constexpr QColor dimFlagText(0x7F, 0x7F, 0x7F);
constexpr QColor flagFill(53, 131, 28);
constexpr int bandAlpha = 64;
constexpr int contentLength = 18;
constexpr int timeLength = 5;
constexpr float rowFontSize = 12;
constexpr int narrowWidth = 441;
constexpr int wideWidth = 587;
constexpr int textInset = 2;
constexpr int textShrink = 4;
constexpr int flagBoxHeight = 19;

// The five flag boxes, left to right, with the bit each shows.
struct FlagBox
{
    const char* letters;
    quint8 bit;
};
constexpr std::array<FlagBox, 5> flagBoxes{
    {{"I", 0x01}, {"F", 0x02}, {"C", 0x04}, {"B", 0x08}, {"fx", 0x20}}};

const QFont& headerFont()
{
    static const QFont font = makeFont(family, 10);
    return font;
}

const QFont& rowFont()
{
    static const QFont font = makeFont(family, int(rowFontSize));
    return font;
}

bool isBright(int row)
{
    return row == Cuelist::liveRow || row == Cuelist::nextRow;
}
} // namespace

Cuelist::Cuelist(QGraphicsScene* scene, int rowCount, bool showDetails, float extraHeight)
    : QObject(), QGraphicsItem(), details(showDetails), extra(extraHeight)
{
    static constexpr std::array<std::pair<const char*, int>, columnCount> layout{{
        {nullptr, 58},
        {QT_TR_NOOP("Step"), 40},
        {nullptr, 72},
        {QT_TR_NOOP("Content"), 124},
        {QT_TR_NOOP("Up"), 46},
        {QT_TR_NOOP("Down"), 46},
        {QT_TR_NOOP("Wait"), 46},
        {QT_TR_NOOP("Move"), 46},
        {QT_TR_NOOP("Affects"), 100},
    }};
    int x = 0;
    for (int i = 0; i < columnCount; ++i) {
        columns[std::size_t(i)] = {layout[std::size_t(i)].first, layout[std::size_t(i)].second, x};
        x += layout[std::size_t(i)].second + (i == StepColumn ? 6 : 0);
    }
    if (scene)
        scene->addItem(this);
    mode = new Dropdown(this, nullptr, this, QRectF(2, 0, 54, 16), 10, liveColour, Qt::AlignLeft);
    nextKeyButton = new ConsoleButton(this, nullptr, nextKey, tr("NEXT"));
    nextKeyButton->setPos(18, 87);
    connectConsole();
    readPlayback();
    setRowCount(rowCount);
    refreshRows();
    refreshModeLabel();
}

Cuelist::~Cuelist() = default;

void Cuelist::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &Cuelist::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::channelTextUpdated, this, &Cuelist::consoleCacheChannelTextUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::memoryUpdated, this, &Cuelist::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceUpdated, this, &Cuelist::consoleCacheSequenceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceStepUpdated, this, &Cuelist::consoleCacheSequenceStepUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::playbackUpdated, this, &Cuelist::consoleCachePlaybackUpdated,
            Qt::QueuedConnection);
}

int Cuelist::stepOfRow(int row, int rowCount, int nextStep, int afterLiveStep, int stepCount)
{
    if (row < 0 || row >= rowCount)
        return -1;
    const int base = row <= liveRow ? afterLiveStep : nextStep;
    int step = base - 2 + row;
    if (row == liveRow && step < 0)
        step += stepCount;
    return step >= 0 && step < stepCount ? step : -1;
}

int Cuelist::stepOfRow(int row) const
{
    return stepOfRow(row, rows, next, afterLive, stepCount());
}

int Cuelist::stepCount() const
{
    return SequenceSteps(ConsoleLink::cache(), shown).count();
}

StepRecord* Cuelist::stepRecord(int step) const
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (step < 0 || step >= SequenceSteps(cache, shown).count())
        return nullptr;
    return cache->step(shown.page, shown.fader, step);
}

InPlaceEditableText* Cuelist::text(TextList list, int row) const
{
    const QList<InPlaceEditableText*>& items = texts[std::size_t(list)];
    return row >= 0 && row < items.size() ? items[row] : nullptr;
}

void Cuelist::setRowCount(int count)
{
    count = std::max(count, 0);
    if (count == rows)
        return;
    prepareGeometryChange();
    rows = count;
    static constexpr std::array<std::pair<Column, int>, textListCount> lists{
        {{ContentColumn, contentLength},
         {UpColumn, timeLength},
         {DownColumn, timeLength},
         {WaitColumn, timeLength}}};
    // Rows are only ever added: an item another row's editor points at stays.
    for (int row = int(texts[0].size()); row < count; ++row) {
        for (std::size_t list = 0; list < lists.size(); ++list) {
            const ColumnLayout& place = columns[std::size_t(lists[list].first)];
            const Qt::Alignment alignment =
                lists[list].first == ContentColumn ? Qt::AlignLeft : Qt::AlignRight;
            auto* item =
                new InPlaceEditableText(this, this,
                                        QRectF(place.x + textInset, headerHeight + rowHeight * row,
                                               place.width - textShrink, rowHeight),
                                        lists[list].second, rowFontSize,
                                        isBright(row) ? QColor(Qt::white) : dimText, alignment);
            item->setVisible(false);
            texts[list] << item;
        }
    }
    refreshRows();
}

void Cuelist::setSequence(Console::Sequence sequence)
{
    if (!SequenceSteps::isValid(sequence))
        return;
    shown = sequence;
    readPlayback();
    refreshRows();
    refreshModeLabel();
    update();
}

bool Cuelist::readPlayback()
{
    const PlaybackRecord* playback = SequenceSteps(ConsoleLink::cache(), shown).playback();
    const int newNext = playback ? playback->nextStep : 0;
    const int newAfterLive = playback ? playback->afterLiveStep : 0;
    const bool changed = newNext != next || newAfterLive != afterLive;
    next = newNext;
    afterLive = newAfterLive;
    return changed;
}

void Cuelist::refreshRows()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const int count = stepCount();
    rowViews.resize(std::size_t(rows));
    for (int row = 0; row < rows; ++row) {
        const int step = stepOfRow(row, rows, next, afterLive, count);
        const StepRecord* record = step >= 0 ? cache->step(shown.page, shown.fader, step) : nullptr;
        RowView& view = rowViews[std::size_t(row)];
        view.valid = record != nullptr;
        view.number = record ? cache->stepNumberText(shown.page, shown.fader, step) : QString();
        view.label =
            record ? cache->stepContentLabel(record->contentType, record->contentIndex) : QString();
        view.flags = record ? record->flags : 0;
        const std::array<QString, textListCount> values{
            record ? cache->stepContentName(shown.page, shown.fader, step) : QString(),
            record ? ConsoleCache::timeText(record->upTime) : QString(),
            record ? ConsoleCache::timeText(record->downTime) : QString(),
            record ? ConsoleCache::timeText(record->waitTime) : QString()};
        for (int list = 0; list < textListCount; ++list) {
            InPlaceEditableText* item = texts[std::size_t(list)][row];
            item->setText(values[std::size_t(list)]);
            item->setEditable(record && (list != ContentText ||
                                         record->contentType == ConsoleCache::StepDirectCue));
            item->setVisible(record != nullptr);
        }
    }
    // Rows beyond the count stay as items but show nothing; Up and Down in
    // an editor go only to the texts that can be edited.
    for (auto& items : texts) {
        std::vector<InPlaceEditableText*> editable;
        for (int row = 0; row < int(items.size()); ++row) {
            InPlaceEditableText* item = items[row];
            if (row >= rows) {
                item->setVisible(false);
                item->setEditable(false);
            }
            if (item->isEditable())
                editable.push_back(item);
            else
                InPlaceEditableText::chain(&item, 1);
        }
        InPlaceEditableText::chain(editable.data(), int(editable.size()));
    }
}

QString Cuelist::modeName(int mode)
{
    switch (mode) {
    case 0:
        return tr("Loop");
    case 1:
        return tr("One Shot");
    case 2:
        return tr("Manual");
    default:
        return {};
    }
}

void Cuelist::refreshModeLabel()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const bool known = cache && cache->record();
    mode->setText(known ? modeName(cache->sequenceMode(shown.page, shown.fader)) : QString());
}

void Cuelist::refreshAndRepaint()
{
    refreshRows();
    update();
}

void Cuelist::chooseMode(int newMode)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record() || newMode < 0 || newMode > 2)
        return;
    cache->setSequenceMode(shown.page, shown.fader, newMode);
    refreshModeLabel();
}

void Cuelist::dropdownClicked(Dropdown*, QWidget* widget)
{
    QMenu menu(widget);
    for (int m = 0; m < 3; ++m)
        menu.addAction(modeName(m))->setData(m);
    if (const QAction* chosen = menu.exec(QCursor::pos()))
        chooseMode(chosen->data().toInt());
}

void Cuelist::textChanged(InPlaceEditableText* item, const QString& text)
{
    for (int list = 0; list < textListCount; ++list) {
        const int row = int(texts[std::size_t(list)].indexOf(item));
        if (row < 0)
            continue;
        const int step = stepOfRow(row);
        StepRecord* record = stepRecord(step);
        ConsoleCache* cache = ConsoleLink::cache();
        if (!record)
            return;
        if (list == ContentText) {
            if (record->contentType == ConsoleCache::StepDirectCue &&
                step < ConsoleStateRecord::stackCues)
                cache->setCueLabel(step, ConsoleCache::wholeBlock, text);
            return;
        }
        const quint16 time = ConsoleCache::parseTime(text);
        (list == UpText     ? record->upTime
         : list == DownText ? record->downTime
                            : record->waitTime) = time;
        cache->console()->sequenceStepChanged(shown, step);
        return;
    }
}

QRectF Cuelist::boundingRect() const
{
    return QRectF(0, 0, details ? wideWidth : narrowWidth, rows * rowHeight + headerHeight + extra);
}

QRectF Cuelist::cellRect(int column, int row) const
{
    const ColumnLayout& place = columns[std::size_t(column)];
    return QRectF(place.x + textInset, headerHeight + rowHeight * row, place.width - textShrink,
                  rowHeight);
}

void Cuelist::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    background.draw(painter, boundingRect());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintBands(painter);
    painter->restore();
    paintHeader(painter);
    const ColumnLayout& first = columns[ModeColumn];
    liveText.draw(painter, QRectF(first.x, 37, first.width - textShrink, rowHeight),
                  Qt::AlignRight | Qt::AlignVCenter, tr("LIVE"), rowFont(), liveColour);
    nextText.draw(painter, QRectF(first.x, 58, first.width - textShrink, rowHeight),
                  Qt::AlignRight | Qt::AlignVCenter, tr("NEXT"), rowFont(), nextColour);
    for (int row = 0; row < rows && row < int(rowViews.size()); ++row) {
        if (rowViews[std::size_t(row)].valid)
            paintRow(painter, row);
    }
}

void Cuelist::paintHeader(QPainter* painter)
{
    const int last = details ? AffectsColumn : WaitColumn;
    for (int c = StepColumn; c <= last; ++c) {
        const ColumnLayout& place = columns[std::size_t(c)];
        if (!place.title)
            continue;
        const bool left = c == ContentColumn || c == AffectsColumn;
        headerTexts[std::size_t(c)].draw(
            painter, QRectF(place.x + textInset, 0, place.width - textShrink, headerHeight),
            (left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, tr(place.title),
            headerFont(), Qt::white);
    }
}

void Cuelist::paintBands(QPainter* painter) const
{
    const ColumnLayout& end = columns[std::size_t(details ? MoveColumn : WaitColumn)];
    const qreal left = columns[StepColumn].x;
    const qreal width = end.x + end.width - left;
    painter->setPen(Qt::NoPen);
    for (int row : {liveRow, nextRow}) {
        if (row >= rows)
            continue;
        QColor colour = row == liveRow ? liveColour : nextColour;
        colour.setAlpha(bandAlpha);
        painter->setBrush(colour);
        painter->drawRoundedRect(
            QRectF(left, headerHeight + rowHeight * row + 0.5, width, rowHeight - 1), 4, 4);
    }
}

void Cuelist::paintRow(QPainter* painter, int row)
{
    RowView& view = rowViews[std::size_t(row)];
    const bool bright = isBright(row);
    const QColor ink = bright ? QColor(Qt::white) : dimText;
    view.numberText.draw(painter, cellRect(StepColumn, row), Qt::AlignRight | Qt::AlignVCenter,
                         view.number, rowFont(), ink);
    view.labelText.draw(painter, cellRect(TypeColumn, row), Qt::AlignLeft | Qt::AlignVCenter,
                        view.label, rowFont(), ink);
    if (!details)
        return;
    if (view.flags & darkBit)
        view.darkText.draw(painter, cellRect(MoveColumn, row), Qt::AlignRight | Qt::AlignVCenter,
                           tr("dark"), rowFont(), ink);
    const ColumnLayout& affects = columns[AffectsColumn];
    const qreal boxWidth = (affects.width - textShrink) / 5.0;
    QColor fill = flagFill;
    fill.setAlpha(bright ? 255 : 128);
    for (std::size_t k = 0; k < flagBoxes.size(); ++k) {
        if (!(view.flags & flagBoxes[k].bit))
            continue;
        const QRectF box(affects.x + textInset + qreal(k) * boxWidth,
                         headerHeight + rowHeight * row + 1, boxWidth - 2, flagBoxHeight);
        painter->fillRect(box, fill);
        view.flagTexts[k].draw(painter, box, Qt::AlignHCenter | Qt::AlignVCenter,
                               QLatin1String(flagBoxes[k].letters), rowFont(),
                               bright ? QColor(Qt::white) : dimFlagText);
    }
}

void Cuelist::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    const ColumnLayout& move = columns[MoveColumn];
    const QPointF at = event->pos();
    const int row = int(std::floor((at.y() - headerHeight) / rowHeight));
    const bool inMove = details && at.x() >= move.x + textInset &&
                        at.x() < move.x + move.width - textInset && at.y() >= headerHeight;
    StepRecord* record = inMove ? stepRecord(stepOfRow(row)) : nullptr;
    if (!record) {
        event->ignore();
        return;
    }
    record->flags ^= darkBit;
    ConsoleLink::console()->sequenceStepChanged(shown, stepOfRow(row));
    refreshAndRepaint();
}

void Cuelist::consoleCachePlayLoaded()
{
    readPlayback();
    refreshRows();
    refreshModeLabel();
    update();
}

void Cuelist::consoleCacheChannelTextUpdated(int)
{
    refreshAndRepaint();
}

void Cuelist::consoleCacheMemoryUpdated(Console::Memory)
{
    refreshAndRepaint();
}

void Cuelist::consoleCacheSequenceUpdated(Console::Sequence sequence)
{
    if (sequence != shown)
        return;
    refreshRows();
    refreshModeLabel();
    update();
}

void Cuelist::consoleCacheSequenceStepUpdated(Console::Sequence sequence, int)
{
    if (sequence == shown)
        refreshAndRepaint();
}

void Cuelist::consoleCachePlaybackUpdated()
{
    if (readPlayback())
        refreshAndRepaint();
}
