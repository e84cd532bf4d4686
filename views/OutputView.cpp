// SPDX-License-Identifier: GPL-3.0-or-later
#include "OutputView.h"

#include "ChannelRow.h"
#include "Console.h"
#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "GroupColour.h"
#include "MakeFont.h"
#include "NumberCell.h"
#include "NumberRow.h"
#include "PaletteMenu.h"
#include "StoredValueText.h"
#include "TitleBar.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr int focusGroup = 0;
constexpr int userGroup = 3;
constexpr int deviceCount = DevicePart::deviceCount;

bool samePlace(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) <= 1e-12 && std::abs(a.y() - b.y()) <= 1e-12;
}

} // namespace

// ---- channel cells ---------------------------------------------------------

OutputView::ChannelCell::ChannelCell(CellRow* row, Console* console, int channel)
    : ::ChannelCell(row, console, channel)
{
}

QString OutputView::ChannelCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

quint8 OutputView::ChannelCell::level() const
{
    const ConsoleCache* data = cache();
    return data && data->record() ? data->record()->channelLevels[channel()] : 0;
}

bool OutputView::ChannelCell::isHighlighted() const
{
    const ConsoleCache* data = cache();
    if (!data || !data->record())
        return false;
    // Channels 48-71 are the devices' control channels.
    const int device = channel() - data->firstDeviceChannel();
    return device >= 0 && device < data->deviceCount() &&
           data->record()->deviceSelected[device] != 0;
}

void OutputView::ChannelCell::refresh()
{
    const int shown = level();
    const bool highlight = isHighlighted();
    if (shown == m_lastLevel && highlight == m_lastHighlight)
        return;
    m_lastLevel = shown;
    m_lastHighlight = highlight;
    update();
}

// ---- parameter cells -------------------------------------------------------

OutputView::ParameterCell::ParameterCell(CellRow* row, OutputView* view, int device, int group,
                                         int parameter)
    : ::ParameterCell(row, group, parameter), m_view(view), m_device(device)
{
}

QColor OutputView::ParameterCell::swatchColour(bool& valid) const
{
    const ConsoleCache* data = ConsoleLink::cache();
    valid = data && data->deviceParameterAddress(m_device, parameter()) >= 0;
    if (!valid)
        return QColor();
    QColor colour = data->liveColour(m_device);
    colour.setAlpha(255);
    return colour;
}

QString OutputView::ParameterCell::text() const
{
    const ConsoleCache* data = ConsoleLink::cache();
    const int address = data ? data->deviceParameterAddress(m_device, parameter()) : -1;
    if (address < 0)
        return QString();
    if (data->hasPaletteReference(address))
        return StoredValueText::paletteReference(group(), data->paletteReference(address));
    int value = data->outputLevel(address);
    if (StoredValueText::readsInverted(*data, m_device, parameter()))
        value = 255 - value;
    return ConsoleCache::formatLevel(value, true);
}

QString OutputView::ParameterCell::editText() const
{
    const ConsoleCache* data = ConsoleLink::cache();
    if (!data || data->deviceParameterAddress(m_device, parameter()) < 0)
        return QString();
    return ConsoleCache::formatLevel(data->deviceParameterValue(m_device, parameter(), true), true);
}

void OutputView::ParameterCell::applyEditText(const QString& text)
{
    const std::optional<int> level = ConsoleCache::levelFromPercentText(text);
    if (level)
        m_view->writeSelected(*level);
}

void OutputView::ParameterCell::refresh()
{
    const QString shown = text();
    bool valid = false;
    const QRgb swatch = StoredValueText::isColourMix(parameter()) ? swatchColour(valid).rgba() : 0;
    if (shown == m_lastText && shown.isNull() == m_lastText.isNull() && swatch == m_lastSwatch)
        return;
    m_lastText = shown;
    m_lastSwatch = swatch;
    update();
}

void OutputView::ParameterCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_pressPos = event->pos();
    ::ParameterCell::mousePressEvent(event);
}

void OutputView::ParameterCell::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && samePlace(event->pos(), m_pressPos))
        m_view->extendSelection(this, event->modifiers() & Qt::ShiftModifier);
    ::ParameterCell::mouseReleaseEvent(event);
}

void OutputView::ParameterCell::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    // The menu acts on the selection, so an unselected cell offers none.
    if (!isSelected())
        return;
    event->accept();
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || group() < focusGroup || group() >= userGroup)
        return;
    const std::unique_ptr<QMenu> menu(PaletteMenu::create(*cache, group(), nullptr));
    if (const QAction* picked = menu->exec(event->screenPos()))
        m_view->applyMenuCommand(picked->data().toString());
}

// ---- pan/tilt monitors -----------------------------------------------------

OutputView::PanTiltMonitorCell::PanTiltMonitorCell(CellRow* row, const ConsoleCache* cache,
                                                   int device)
    : ::PanTiltMonitorCell(row), m_cache(cache), m_device(device)
{
}

bool OutputView::PanTiltMonitorCell::isActive() const
{
    return m_cache && m_cache->isDevicePatched(m_device) &&
           m_cache->deviceHasParameter(m_device, DevicePart::pan) &&
           m_cache->deviceHasParameter(m_device, DevicePart::tilt);
}

float OutputView::PanTiltMonitorCell::axis(int coarse, int fine) const
{
    const int coarseValue = std::max(0, m_cache->deviceParameterValue(m_device, coarse, true));
    const bool hasFine = m_cache->deviceHasParameter(m_device, fine);
    const int fineValue = hasFine ? m_cache->deviceParameterValue(m_device, fine, true) : 0;
    return position(coarseValue, fineValue, hasFine);
}

float OutputView::PanTiltMonitorCell::panPosition() const
{
    return axis(DevicePart::pan, DevicePart::panFine);
}

float OutputView::PanTiltMonitorCell::tiltPosition() const
{
    return axis(DevicePart::tilt, DevicePart::tiltFine);
}

void OutputView::PanTiltMonitorCell::refresh()
{
    const QPoint dot = isActive() ? dotPosition() : QPoint(-1, -1);
    if (dot == m_lastDot)
        return;
    m_lastDot = dot;
    update();
}

// ---- group rows and cells --------------------------------------------------

OutputView::ParameterGroupCell::ParameterGroupCell(CellRow* row, const ConsoleCache* cache,
                                                   int device, int group)
    : Cell(row, cellHeight), m_cache(cache), m_device(device), m_group(group),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 8))
{
}

int OutputView::ParameterGroupCell::commonPalette() const
{
    if (!m_cache || m_group > 2)
        return -1;
    int common = -1;
    for (int parameter = 0; parameter < DevicePart::parameterCount; ++parameter) {
        const int address = m_cache->deviceParameterAddress(m_device, parameter);
        if (ConsoleCache::parameterGroup(parameter) != m_group || address < 0)
            continue;
        const int palette = m_cache->paletteReference(address);
        if (palette < 0 || (common >= 0 && palette != common))
            return -1;
        common = palette;
    }
    return common;
}

void OutputView::ParameterGroupCell::refresh()
{
    const int palette = commonPalette();
    if (palette == m_shownPalette)
        return;
    m_shownPalette = palette;
    update();
}

void OutputView::ParameterGroupCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*,
                                           QWidget*)
{
    const QRectF bounds = boundingRect();
    paintFrame(painter, bounds, groupColour(m_group, 90), QPen(groupColour(m_group, 255)));
    const int palette = commonPalette();
    if (palette < 0)
        return;
    const qreal half = bounds.height() / 2;
    m_reference.draw(painter, QRectF(2, 3, bounds.width() - 4, half - 3), Qt::AlignCenter,
                     StoredValueText::paletteReference(m_group, palette), m_font, Qt::white);
    m_name.draw(painter, QRectF(2, half, bounds.width() - 4, half - 3), Qt::AlignCenter,
                m_cache->paletteName(palette, m_group, ConsoleCache::wholeBlock), m_font,
                Qt::white);
}

OutputView::ParameterGroupRow::ParameterGroupRow(::CellRowTable* table, int group)
    : CellRow(table, Spacing::ThickSpacing, Spacing::ThinSpacing), m_group(group),
      m_title(ConsoleCache::parameterGroupName(group).toUpper()),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 11))
{
}

void OutputView::ParameterGroupRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                          QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    m_titleText.draw(painter, QRectF(0, 0, table()->headerWidth() - 4, height()),
                     Qt::AlignRight | Qt::AlignTop, m_title, m_font, Qt::white);
}

OutputView::CellRowTable::CellRowTable(QGraphicsScene* scene) : ::CellRowTable(scene, false) {}

// ---- the view --------------------------------------------------------------

OutputView::OutputView(QWidget* parent, TitleBar* bar)
    : QWidget(parent), m_console(ConsoleLink::console()), m_bar(bar), m_channelView(this),
      m_deviceView(this)
{
    setUpView(&m_channelView);
    setUpView(&m_deviceView);
    // The channel part is sized to its scene, so it never scrolls.
    m_channelView.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_channelView.setScene(&m_channelScene);
    m_deviceView.setScene(&m_deviceScene);
    buildChannelPart();
    rebuildDevicePart();
    if (!m_console)
        return;
    const auto queued = Qt::QueuedConnection;
    connect(m_console, &Console::playLoaded, this, &OutputView::consoleCachePlayLoaded, queued);
    connect(m_console, &Console::channelTextUpdated, this,
            &OutputView::consoleCacheChannelTextUpdated, queued);
    connect(m_console, &Console::patchUpdated, this, &OutputView::consoleCachePatchUpdated, queued);
    connect(m_console, &Console::deviceUpdated, this, &OutputView::consoleCacheDeviceUpdated,
            queued);
    connect(m_console, &Console::channelsUpdated, this, &OutputView::consoleCacheChannelsUpdated,
            queued);
    connect(m_console, &Console::outputsUpdated, this, &OutputView::consoleCacheOutputsUpdated,
            queued);
    connect(m_console, &Console::deviceStatusUpdated, this,
            &OutputView::consoleCacheDeviceStatusUpdated, queued);
    // A renamed palette renames the group cells that show it.
    connect(m_console, &Console::paletteUpdated, this, &OutputView::refreshDevicePart, queued);
}

// The tables belong to the scenes, which go before the views that show them.
OutputView::~OutputView()
{
    m_channelView.setScene(nullptr);
    m_deviceView.setScene(nullptr);
}

void OutputView::setUpView(QGraphicsView* view)
{
    EditorViewLook::apply(view);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
}

QString OutputView::title()
{
    return tr("Live");
}

void OutputView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

void OutputView::buildChannelPart()
{
    m_channelTable = new CellRowTable(&m_channelScene);
    auto* numbers = new NumberRow(m_channelTable);
    for (int column = 0; column < channelColumns; ++column)
        new NumberCell(numbers, column);
    m_channelTable->addRow(numbers);
    const QString titles[] = {tr("INT A"), tr("INT B"), tr("INT DEV")};
    for (int bank = 0; bank < 3; ++bank) {
        auto* row = new ChannelRow(m_channelTable, m_console, titles[bank]);
        for (int column = 0; column < channelColumns; ++column)
            m_channelCells.append(new ChannelCell(row, m_console, bank * channelColumns + column));
        m_channelTable->addRow(row);
    }
    m_channelScene.setSceneRect(m_channelTable->boundingRect());
}

void OutputView::rebuildDevicePart()
{
    m_cellGrid.clear();
    m_monitors.clear();
    m_groupCells.clear();
    m_anchor = {-1, -1};
    delete m_deviceTable;
    m_deviceTable = new CellRowTable(&m_deviceScene);
    if (const ConsoleCache* data = ConsoleLink::cache())
        m_cellGrid = DevicePart::build(m_deviceTable, *data, *this);
    m_deviceScene.setSceneRect(m_deviceTable->boundingRect());
}

CellRow* OutputView::createGroupRow(::CellRowTable* table, int group)
{
    return new ParameterGroupRow(table, group);
}

Cell* OutputView::createGroupCell(CellRow* row, int device, int group)
{
    auto* cell = new ParameterGroupCell(row, ConsoleLink::cache(), device, group);
    m_groupCells.append(cell);
    return cell;
}

Cell* OutputView::createMonitorCell(CellRow* row, int device)
{
    auto* cell = new PanTiltMonitorCell(row, ConsoleLink::cache(), device);
    m_monitors.append(cell);
    return cell;
}

::ParameterCell* OutputView::createParameterCell(CellRow* row, int device, int group, int parameter)
{
    return new ParameterCell(row, this, device, group, parameter);
}

OutputView::ParameterCell* OutputView::cellAt(int row, int column) const
{
    const auto found = m_cellGrid.find({row, column});
    return found == m_cellGrid.end() ? nullptr : static_cast<ParameterCell*>(found->second);
}

QList<OutputView::ParameterCell*> OutputView::selectedCells() const
{
    QList<ParameterCell*> cells;
    for (QGraphicsItem* item : m_deviceScene.selectedItems()) {
        if (auto* cell = dynamic_cast<ParameterCell*>(item))
            cells.append(cell);
    }
    return cells;
}

void OutputView::writeSelected(int level)
{
    const ConsoleCache* data = ConsoleLink::cache();
    if (!m_console || !data || level < 0 || level > 255)
        return;
    for (const ParameterCell* cell : selectedCells()) {
        const int address = data->deviceParameterAddress(cell->device(), cell->parameter());
        if (address < 0)
            continue;
        m_console->writeDmx(quint16(address), quint8(level), false);
        // A typed position means the coarse value alone.
        const int fine = cell->parameter() == DevicePart::pan    ? DevicePart::panFine
                         : cell->parameter() == DevicePart::tilt ? DevicePart::tiltFine
                                                                 : -1;
        const int fineAddress = fine < 0 ? -1 : data->deviceParameterAddress(cell->device(), fine);
        if (fineAddress >= 0)
            m_console->writeDmx(quint16(fineAddress), 0, false);
    }
}

void OutputView::applyMenuCommand(const QString& data)
{
    const std::optional<int> palette = PaletteMenu::pickedPalette(data);
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!palette || !m_console || !cache)
        return;
    for (const ParameterCell* cell : selectedCells()) {
        const int address = cache->deviceParameterAddress(cell->device(), cell->parameter());
        if (address >= 0)
            m_console->writeDmx(quint16(address), quint8(*palette), true);
    }
}

std::pair<int, int> OutputView::placeOf(const ParameterCell* cell) const
{
    for (const auto& [place, placed] : m_cellGrid) {
        if (placed == cell)
            return place;
    }
    return {-1, -1};
}

void OutputView::extendSelection(ParameterCell* cell, bool shift)
{
    const std::pair<int, int> here = placeOf(cell);
    if (!shift || m_anchor.first < 0) {
        m_anchor = here;
        return;
    }
    const int top = std::min(m_anchor.first, here.first);
    const int bottom = std::max(m_anchor.first, here.first);
    const int left = std::min(m_anchor.second, here.second);
    const int right = std::max(m_anchor.second, here.second);
    for (const auto& [place, placed] : m_cellGrid) {
        if (place.first >= top && place.first <= bottom && place.second >= left &&
            place.second <= right)
            placed->setSelected(true);
    }
    cell->setSelected(true);
}

void OutputView::refreshDevicePart()
{
    for (const auto& entry : m_cellGrid)
        static_cast<ParameterCell*>(entry.second)->refresh();
    for (PanTiltMonitorCell* monitor : m_monitors)
        monitor->refresh();
    for (ParameterGroupCell* cell : m_groupCells)
        cell->refresh();
}

void OutputView::consoleCachePlayLoaded()
{
    rebuildDevicePart();
    for (ChannelCell* cell : m_channelCells) {
        cell->refreshLegend();
        cell->refresh();
    }
}

void OutputView::consoleCacheChannelTextUpdated(int channel)
{
    if (channel >= 0 && channel < m_channelCells.size())
        m_channelCells[channel]->refreshLegend();
}

void OutputView::consoleCachePatchUpdated()
{
    rebuildDevicePart();
    m_channelScene.update();
}

void OutputView::consoleCacheDeviceUpdated(int)
{
    refreshDevicePart();
}

void OutputView::consoleCacheChannelsUpdated()
{
    for (ChannelCell* cell : m_channelCells)
        cell->refresh();
}

void OutputView::consoleCacheOutputsUpdated()
{
    refreshDevicePart();
}

void OutputView::consoleCacheDeviceStatusUpdated()
{
    for (ChannelCell* cell : m_channelCells)
        cell->refresh();
}

void OutputView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int width = event->size().width() - 1;
    const int channelHeight = int(m_channelScene.sceneRect().height()) - 1;
    m_channelView.setGeometry(0, 0, width, channelHeight);
    m_deviceView.setGeometry(0, channelHeight + 1, width,
                             std::max(0, event->size().height() - channelHeight - 1));
}
