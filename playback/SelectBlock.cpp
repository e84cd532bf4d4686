// SPDX-License-Identifier: GPL-3.0-or-later
#include "SelectBlock.h"

#include "Console.h"
#include "ConsoleButton.h"
#include "ConsoleLink.h"

#include <QGraphicsScene>
#include <QPainter>

namespace {
constexpr int keysPerRow = 12;
constexpr int lineHeight = 12;
constexpr int maxTextLength = 6;
constexpr float textSize = 8;
constexpr int firstUpperKey = 24;
constexpr int firstLowerKey = 36;
constexpr int firstSelectChannel = 48;
constexpr int effectPageTwo = 24;

// What a legend column shows in a select mode.
enum class Source
{
    None,
    Channel,
    Group,
    Palette,
    Effect
};

struct Legend
{
    Source source = Source::None;
    int index = 0; // channel, group, palette or effect
    int group = 0; // parameter group of a palette
};

Legend legendOf(int mode, int column, const ConsoleCache* cache)
{
    switch (mode) {
    case 1: {
        const int channel = column + firstSelectChannel;
        if (channel < cache->channelCount())
            return {Source::Channel, channel, 0};
        return {};
    }
    case 2:
    case 3:
        return {Source::Group, column, 0};
    case 4:
    case 5:
    case 6:
        return {Source::Palette, column, mode - 4};
    case 7:
    case 8:
        return {Source::Effect, column, 0};
    case 9:
    case 10:
        if (column < keysPerRow)
            return {Source::Effect, column + effectPageTwo, 0};
        return {};
    default:
        return {};
    }
}

QString textOf(const Legend& legend, int line, const ConsoleCache* cache)
{
    switch (legend.source) {
    case Source::Channel:
        return cache->channelLegend(legend.index, line);
    case Source::Group:
        return cache->groupName(legend.index, line);
    case Source::Palette:
        return cache->paletteName(legend.index, legend.group, line);
    case Source::Effect:
        return cache->effectName(legend.index, line);
    case Source::None:
        break;
    }
    return QString();
}
} // namespace

SelectBlock::InPlaceEditableText::InPlaceEditableText(SelectBlock* block, const QRectF& rect,
                                                      int column, int line)
    : ::InPlaceEditableText(block, block, rect, maxTextLength, textSize, Qt::white,
                            Qt::AlignCenter),
      columnIndex(column), lineIndex(line)
{
}

SelectBlock::SelectBlock(QGraphicsScene* scene, int columnWidth, int gap, bool drawBackground)
    : background(drawBackground)
{
    if (scene)
        scene->addItem(this);
    legends.resize(columns * lines);
    keys.resize(columns);
    const qreal keyInset = (columnWidth - 35) / 2.0;
    for (int c = 0; c < keysPerRow; ++c) {
        const qreal x = c * columnWidth;
        for (int k = 0; k < lines; ++k) {
            legends[c * lines + k] = new InPlaceEditableText(
                this, QRectF(x, lineHeight * k, columnWidth, lineHeight), c, k);
            const int lower = c + keysPerRow;
            legends[lower * lines + k] = new InPlaceEditableText(
                this, QRectF(x, gap + 69 + lineHeight * k, columnWidth, lineHeight), lower, k);
        }
        keys[c] = new ConsoleButton(this, nullptr, firstUpperKey + c, QString::number(c + 1));
        keys[c]->setPos(keyInset + x, 40);
        keys[c + keysPerRow] =
            new ConsoleButton(this, nullptr, firstLowerKey + c, QString::number(c + 13));
        keys[c + keysPerRow]->setPos(keyInset + x, gap + 40);
    }
    if (const ConsoleCache* cache = ConsoleLink::cache())
        mode = cache->selectMode();
    refresh();
    connectConsole();
}

SelectBlock::~SelectBlock() = default;

void SelectBlock::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &SelectBlock::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::channelTextUpdated, this,
            &SelectBlock::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
    connect(console, &Console::effectUpdated, this, &SelectBlock::consoleCacheEffectUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::groupUpdated, this, &SelectBlock::consoleCacheGroupUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::paletteUpdated, this, &SelectBlock::consoleCachePaletteUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::consoleStatusUpdated, this,
            &SelectBlock::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
}

QRectF SelectBlock::boundingRect() const
{
    return QRectF(0, 0, 587, 138);
}

void SelectBlock::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (!background)
        return;
    const QRectF area = boundingRect().adjusted(1.5, 1.5 - 7, -1.5, -1.5 + 7);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(255, 255, 255, 20));
    painter->drawRoundedRect(area, 6, 6);
    painter->restore();
}

void SelectBlock::refresh()
{
    for (int column = 0; column < columns; ++column)
        refreshColumn(column);
}

void SelectBlock::refreshColumn(int column)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const Legend source = cache ? legendOf(mode, column, cache) : Legend();
    for (int line = 0; line < lines; ++line) {
        InPlaceEditableText* item = legend(column, line);
        item->setText(source.source == Source::None ? QString() : textOf(source, line, cache));
        item->setEditable(source.source != Source::None);
    }
}

void SelectBlock::textChanged(::InPlaceEditableText* item, const QString& text)
{
    auto* line = static_cast<InPlaceEditableText*>(item);
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const Legend target = legendOf(mode, line->column(), cache);
    switch (target.source) {
    case Source::Channel:
        cache->setChannelLegend(target.index, line->line(), text);
        break;
    case Source::Group:
        cache->setGroupName(target.index, line->line(), text);
        break;
    case Source::Palette:
        cache->setPaletteName(target.index, target.group, line->line(), text);
        break;
    case Source::Effect:
        cache->setEffectName(target.index, line->line(), text);
        break;
    case Source::None:
        break;
    }
}

void SelectBlock::consoleCachePlayLoaded()
{
    if (const ConsoleCache* cache = ConsoleLink::cache())
        mode = cache->selectMode();
    refresh();
}

void SelectBlock::consoleCacheChannelTextUpdated(int channel)
{
    const int column = channel - firstSelectChannel;
    if (mode == 1 && column >= 0 && column < columns)
        refreshColumn(column);
}

void SelectBlock::consoleCacheEffectUpdated()
{
    if (mode >= 7 && mode <= 10)
        refresh();
}

void SelectBlock::consoleCacheGroupUpdated(int group)
{
    if ((mode == 2 || mode == 3) && group >= 0 && group < columns)
        refreshColumn(group);
}

void SelectBlock::consoleCachePaletteUpdated(int)
{
    if (mode >= 4 && mode <= 6)
        refresh();
}

void SelectBlock::consoleCacheConsoleStatusUpdated()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || cache->selectMode() == mode)
        return;
    mode = cache->selectMode();
    refresh();
}
