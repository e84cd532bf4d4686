// SPDX-License-Identifier: GPL-3.0-or-later
#include "LegendsView.h"

#include "CellRowTable.h"
#include "ChannelRow.h"
#include "Console.h"
#include "ConsoleLink.h"
#include "Cuelist.h"
#include "EditorViewLook.h"
#include "FeatureLabel.h"
#include "FaderBlock.h"
#include "GMButtonRow.h"
#include "MakeFont.h"
#include "NumberCell.h"
#include "NumberRow.h"
#include "Timeline.h"
#include "TitleBar.h"

#include <QLabel>
#include <QPixmap>

namespace {

constexpr int independentCount = 2;
constexpr int alderChannelsPerRow = 12;
constexpr int channelsPerRow = 24;
// The fader blocks' construction: travel, spacing, gap, key offset.
constexpr int faderLength = 96;
constexpr int faderSpacing = 11;
constexpr int faderGap = 13;
constexpr int faderKeyOffset = 7;

const ConsoleStateRecord* recordOf(const Console* console)
{
    return console && console->cache() ? console->cache()->record() : nullptr;
}

QLabel* titleLabel(QWidget* parent, const QRect& geometry, const QString& text)
{
    auto* label = new FeatureLabel(parent, text);
    label->setGeometry(geometry);
    label->show();
    return label;
}

} // namespace

LegendsView::ChannelCell::ChannelCell(CellRow* row, Console* console, int channel)
    : ::ChannelCell(row, console, channel)
{
}

QString LegendsView::ChannelCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

quint8 LegendsView::ChannelCell::level() const
{
    const ConsoleStateRecord* record = recordOf(console());
    if (!record)
        return 0;
    const auto c = std::size_t(channel());
    return record->blindMode ? record->blindLevels[c] : record->channelLevels[c];
}

bool LegendsView::ChannelCell::isBlind() const
{
    const ConsoleStateRecord* record = recordOf(console());
    return record && record->blindMode;
}

bool LegendsView::ChannelCell::isHighlighted() const
{
    const ConsoleStateRecord* record = recordOf(console());
    if (!record)
        return false;
    const int device = channel() - console()->cache()->firstDeviceChannel();
    return device >= 0 && device < record->deviceCount && record->deviceSelected[device];
}

LegendsView::IndependentCell::IndependentCell(CellRow* row, Console* console, int independent)
    : ::IndependentCell(row, console, independent)
{
}

QString LegendsView::IndependentCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

quint8 LegendsView::IndependentCell::level() const
{
    const ConsoleStateRecord* record = recordOf(console());
    return record ? record->independents[independent()].currentLevel : 0;
}

LegendsView::Layout LegendsView::layout(int consoleType)
{
    // Alder: twelve channels a row leave the left side to the independents
    // and the master keys.
    Layout place{};
    place.channels = {270, 0};
    place.channelsPerRow = alderChannelsPerRow;
    place.independents = {13, 0};
    place.gmButtons = {13, 306};
    place.timeline = {83, 358};
    place.cuelist = {672, 358};
    place.cuelistRows = 6;
    place.faderBlocks = {{{353, 502}, {353, 730}}};
    place.fadersPerBlock = 12;
    switch (consoleType) {
    case ConsoleCache::ModelBirch:
    case ConsoleCache::ModelCedar:
        // The 24-wide grid takes the whole width: the master keys go below
        // it and the independents beside the cue list. The Cedar's blocks
        // of 24 faders reach the right-hand edge.
        place.channels = {0, 0};
        place.channelsPerRow = channelsPerRow;
        place.independents = {1098, 358};
        place.gmButtons = {13, 358};
        place.timeline = {70, 358};
        place.cuelist = {657, 358};
        if (consoleType == ConsoleCache::ModelCedar) {
            place.faderBlocks = {{{69, 502}, {69, 730}}};
            place.fadersPerBlock = 24;
        }
        break;
    case ConsoleCache::ModelMaple:
        // Three grid rows leave room for the independents above the
        // timeline; the detailed cue list fills the right-hand side.
        place.channels = {0, 0};
        place.channelsPerRow = channelsPerRow;
        place.independents = {70, 272};
        place.timeline = {70, 358};
        place.cuelist = {693, 358};
        place.cuelistRows = 13;
        place.cuelistDetails = true;
        place.cuelistExtraHeight = 11;
        place.faderBlocks = {{{70, 511}, {70, 745}}};
        break;
    default:
        break;
    }
    return place;
}

LegendsView::LegendsView(QWidget* window, TitleBar* bar, bool /*wide*/)
    : QGraphicsView(window), bar(bar), console(ConsoleLink::console()),
      consoleType(ConsoleLink::consoleType())
{
    setScene(&itemScene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The tiled grain under the whole tab is drawn once, not on every repaint.
    setCacheMode(QGraphicsView::CacheBackground);

    const Layout place = layout(consoleType);
    buildChannelTable(place);
    buildIndependentTable(place);
    buildBlocks(place);
    connectConsole();
}

LegendsView::~LegendsView()
{
    // Items go before the scene they live in.
    itemScene.clear();
}

void LegendsView::buildChannelTable(const Layout& place)
{
    const ConsoleCache* cache = console ? console->cache() : nullptr;
    const int count = cache ? cache->channelCount() : 0;
    auto* table = new CellRowTable(&itemScene, false);
    table->setPos(place.channels);
    // The Maple's rows are its two channel banks and its device channels.
    const QStringList mapleTitles{tr("INT A"), tr("INT B"), tr("INT DEV")};
    for (int first = 0, row = 0; first < count; first += place.channelsPerRow, ++row) {
        const int last = std::min(first + place.channelsPerRow, count);
        auto* numbers = new NumberRow(table);
        for (int c = first; c < last; ++c)
            new NumberCell(numbers, c);
        table->addRow(numbers);
        const QString title = consoleType == ConsoleCache::ModelMaple && row < mapleTitles.size()
                                  ? mapleTitles[row]
                                  : tr("Ch %1-%2").arg(first + 1).arg(last);
        auto* cells = new ChannelRow(table, console, title);
        for (int c = first; c < last; ++c)
            channels << new ChannelCell(cells, console, c);
        table->addRow(cells);
    }
}

void LegendsView::buildIndependentTable(const Layout& place)
{
    auto* table = new CellRowTable(&itemScene, false);
    table->setPos(place.independents);
    auto* numbers = new NumberRow(table);
    for (int i = 0; i < independentCount; ++i)
        new NumberCell(numbers, tr("IND %1").arg(i + 1));
    table->addRow(numbers);
    auto* cells = new ChannelRow(table, console, QString());
    for (int i = 0; i < independentCount; ++i)
        independents << new IndependentCell(cells, console, i);
    table->addRow(cells);
}

void LegendsView::buildBlocks(const Layout& place)
{
    auto* masters = new GMButtonRow(&itemScene);
    masters->setPos(place.gmButtons);
    // Without sequences of their own the timeline and cue list follow the stack.
    auto* timeline = new Timeline(&itemScene, timelineExtraHeight);
    timeline->setPos(place.timeline);
    auto* cues = new Cuelist(&itemScene, place.cuelistRows, place.cuelistDetails,
                             float(place.cuelistExtraHeight));
    cues->setPos(place.cuelist);
    for (int b = 0; b < 2; ++b) {
        auto* faders = new FaderBlock(&itemScene, b * place.fadersPerBlock, place.fadersPerBlock,
                                      faderLength, faderSpacing, faderGap, faderKeyOffset, true);
        faders->setPos(place.faderBlocks[std::size_t(b)]);
    }
}

void LegendsView::connectConsole()
{
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &LegendsView::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::channelTextUpdated, this,
            &LegendsView::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
    connect(console, &Console::channelsUpdated, this, &LegendsView::consoleCacheChannelsUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::blindLevelsUpdated, this,
            &LegendsView::consoleCacheBlindLevelsUpdated, Qt::QueuedConnection);
    connect(console, &Console::independentsUpdated, this,
            &LegendsView::consoleCacheIndependentsUpdated, Qt::QueuedConnection);
    connect(console, &Console::deviceStatusUpdated, this,
            &LegendsView::consoleCacheDeviceStatusUpdated, Qt::QueuedConnection);
    connect(console, &Console::consoleStatusUpdated, this,
            &LegendsView::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
}

QString LegendsView::title()
{
    return tr("Playback");
}

void LegendsView::activate()
{
    show();
    bar->setTitleBarHandler(this);
    bar->hideViewButtons();
}

QWidget* LegendsView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    return titleLabel(parent, geometry, title());
}

void LegendsView::repaintChannels(bool all)
{
    shown.resize(channels.size(), -1);
    for (qsizetype c = 0; c < channels.size(); ++c) {
        ChannelCell* cell = channels[c];
        const int look =
            cell->level() | int(cell->isBlind()) << 8 | int(cell->isHighlighted()) << 9;
        if (all || look != shown[c])
            cell->update();
        shown[c] = look;
    }
}

void LegendsView::repaintIndependents()
{
    for (IndependentCell* cell : std::as_const(independents))
        cell->update();
}

void LegendsView::consoleCachePlayLoaded()
{
    // The grid's shape follows the model, which a show cannot change: the
    // cells stay (with any legend editor open on them) and re-read the show.
    for (ChannelCell* cell : std::as_const(channels))
        cell->refreshLegend();
    for (IndependentCell* cell : std::as_const(independents))
        cell->refreshLegend();
    repaintChannels(true);
    repaintIndependents();
}

void LegendsView::consoleCacheChannelTextUpdated(int channel)
{
    if (channel >= 0 && channel < channels.size())
        channels[channel]->refreshLegend();
}

void LegendsView::consoleCacheChannelsUpdated()
{
    repaintChannels();
}

void LegendsView::consoleCacheBlindLevelsUpdated()
{
    repaintChannels();
}

void LegendsView::consoleCacheIndependentsUpdated()
{
    for (IndependentCell* cell : std::as_const(independents))
        cell->refreshLegend();
    repaintIndependents();
}

void LegendsView::consoleCacheDeviceStatusUpdated()
{
    repaintChannels();
}

void LegendsView::consoleCacheConsoleStatusUpdated()
{
    // Blind mode is part of the console's status.
    repaintChannels();
}
