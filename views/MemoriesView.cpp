// SPDX-License-Identifier: GPL-3.0-or-later
#include "MemoriesView.h"

#include "ChannelRow.h"
#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "GroupColour.h"
#include "MakeFont.h"
#include "MemoriesViewFeature.h"
#include "NumberCell.h"
#include "NumberRow.h"
#include "PaletteMenu.h"
#include "StoredValueText.h"
#include "TitleBar.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace {
constexpr int pageMenuCount = ConsoleStateRecord::pages;
constexpr int stackCapacity = 199;
constexpr int panParameter = 1;
constexpr int tiltParameter = 2;
constexpr int panFineParameter = 48;
constexpr int tiltFineParameter = 49;

QString twoDigits(int number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

void setUpView(QGraphicsView& view)
{
    EditorViewLook::apply(&view);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}
} // namespace

// Table ------------------------------------------------------------------------

MemoriesView::CellRowTable::CellRowTable(QGraphicsScene* scene, MemoriesView* view)
    : ::CellRowTable(scene, false), m_view(view)
{
}

// Channel cell -----------------------------------------------------------------

MemoriesView::ChannelCell::ChannelCell(CellRow* row, MemoriesView* view, int channel)
    : ::ChannelCell(row, view->console(), channel), m_view(view)
{
}

quint8 MemoriesView::ChannelCell::level() const
{
    const Console::Memory memory = m_view->currentMemory();
    return quint8(m_view->cache()->memoryChannelLevel(memory.page, memory.index, channel()));
}

QString MemoriesView::ChannelCell::text() const
{
    return ConsoleCache::formatLevel(level(), true);
}

QString MemoriesView::ChannelCell::editText() const
{
    return ConsoleCache::formatLevel(level(), false);
}

void MemoriesView::ChannelCell::applyEditText(const QString& text)
{
    // An editor closed as it opened changes nothing (nor marks the memory used).
    const std::optional<int> level = ConsoleCache::levelFromPercentText(text);
    if (!level || text == editText())
        return;
    const Console::Memory memory = m_view->currentMemory();
    m_view->cache()->setMemoryChannelLevel(memory.page, memory.index, channel(), *level);
    m_view->console()->memoryChanged(memory);
    update();
}

// Parameter cell ---------------------------------------------------------------

MemoriesView::ParameterCell::ParameterCell(CellRow* row, MemoriesView* view, int device, int group,
                                           int parameter)
    : ::ParameterCell(row, group, parameter), m_view(view), m_device(device)
{
}

QColor MemoriesView::ParameterCell::swatchColour(bool& valid) const
{
    const ConsoleCache* cache = m_view->cache();
    const Console::Memory memory = m_view->currentMemory();
    std::array<int, ConsoleCache::colourComponentCount> values{};
    valid = false;
    for (int i = 0; i < ConsoleCache::colourComponentCount; ++i) {
        const int p = cache->colourComponentParameter(m_device, i);
        if (p < 0 || p >= DeviceRecord::parameterCount ||
            !cache->isMemoryParameterSet(memory.page, memory.index, m_device, p))
            continue;
        values[size_t(i)] =
            cache->memoryParameterValue(memory.page, memory.index, m_device, p, true);
        valid = true;
    }
    return valid ? cache->colourMix(m_device, values, true) : QColor();
}

QString MemoriesView::ParameterCell::text() const
{
    const ConsoleCache* cache = m_view->cache();
    if (!cache->deviceHasParameter(m_device, parameter()))
        return QString();
    const Console::Memory memory = m_view->currentMemory();
    const int mask = cache->memoryContentMask(memory.page, memory.index);
    if (!(mask & (1 << (group() + 1))) ||
        !cache->isMemoryParameterSet(memory.page, memory.index, m_device, parameter()))
        return QLatin1String("");
    return StoredValueText::text(
        *cache, m_device, parameter(),
        cache->memoryParameterValue(memory.page, memory.index, m_device, parameter(), false),
        cache->isMemoryParameterPalette(memory.page, memory.index, m_device, parameter()));
}

QString MemoriesView::ParameterCell::editText() const
{
    const ConsoleCache* cache = m_view->cache();
    if (!cache->deviceHasParameter(m_device, parameter()))
        return QString();
    const Console::Memory memory = m_view->currentMemory();
    if (!cache->isMemoryParameterSet(memory.page, memory.index, m_device, parameter()))
        return QLatin1String("");
    // A reference opens as it reads: committed unchanged it is no level and
    // stays, where an empty editor would clear it.
    const int value =
        cache->memoryParameterValue(memory.page, memory.index, m_device, parameter(), false);
    if (cache->isMemoryParameterPalette(memory.page, memory.index, m_device, parameter()))
        return StoredValueText::text(*cache, m_device, parameter(), value, true);
    return ConsoleCache::formatLevel(value, true);
}

void MemoriesView::ParameterCell::applyEditText(const QString& text)
{
    // An editor closed as it opened (an empty one above all) must not clear
    // or overwrite the other selected cells.
    if (text == editText())
        return;
    m_view->applyToSelectedParameters(text);
}

void MemoriesView::ParameterCell::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    if (!isSelected()) {
        event->ignore();
        return;
    }
    m_view->showPaletteMenu(group(), event->screenPos());
}

// Group cell and row -----------------------------------------------------------

MemoriesView::ParameterGroupCell::ParameterGroupCell(CellRow* row, MemoriesView* view, int device,
                                                     int group)
    : Cell(row, cellHeight), m_view(view), m_device(device), m_group(group),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 9))
{
    setFlag(ItemIsSelectable);
}

int MemoriesView::ParameterGroupCell::commonPalette() const
{
    const ConsoleCache* cache = m_view->cache();
    const Console::Memory memory = m_view->currentMemory();
    int palette = -1;
    for (int p = 0; p < DeviceRecord::parameterCount; ++p) {
        if (ConsoleCache::parameterGroup(p) != m_group || !cache->deviceHasParameter(m_device, p) ||
            !cache->isMemoryParameterSet(memory.page, memory.index, m_device, p))
            continue;
        if (!cache->isMemoryParameterPalette(memory.page, memory.index, m_device, p))
            return -1;
        const int value =
            cache->memoryParameterValue(memory.page, memory.index, m_device, p, false);
        if (palette >= 0 && value != palette)
            return -1;
        palette = value;
    }
    return palette;
}

void MemoriesView::ParameterGroupCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*,
                                             QWidget*)
{
    const QRectF bounds = boundingRect().adjusted(1, 1, -1, -1);
    if (isSelected())
        painter->fillRect(bounds, QColor(255, 255, 255, 64));
    if (!m_view->cache()->isDevicePatched(m_device))
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(groupColour(m_group, 255), 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(bounds, 4, 4);
    const int palette = commonPalette();
    if (palette < 0)
        return;
    painter->setFont(m_font);
    painter->setPen(Qt::white);
    painter->drawText(bounds, Qt::AlignCenter | Qt::TextWordWrap,
                      PaletteMenu::paletteLabel(*m_view->cache(), palette, m_group));
}

void MemoriesView::ParameterGroupCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (event->modifiers() & Qt::ControlModifier) {
        setSelected(!isSelected());
        return;
    }
    if (scene())
        scene()->clearSelection();
    setSelected(true);
}

void MemoriesView::ParameterGroupCell::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    if (!isSelected() || !m_view->cache()->isDevicePatched(m_device)) {
        event->ignore();
        return;
    }
    m_view->showPaletteMenu(m_group, event->screenPos());
}

MemoriesView::ParameterGroupRow::ParameterGroupRow(::CellRowTable* table, int group)
    : CellRow(table, Spacing::ThickSpacing, Spacing::NoSpacing), m_group(group),
      m_title(ConsoleCache::parameterGroupName(group).toUpper()),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 11))
{
}

void MemoriesView::ParameterGroupRow::paint(QPainter* painter,
                                            const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    painter->setFont(m_font);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, 0, table()->headerWidth() - 4, height()),
                      Qt::AlignRight | Qt::AlignTop, m_title);
}

// Pan/tilt monitor -------------------------------------------------------------

MemoriesView::PanTiltMonitorCell::PanTiltMonitorCell(CellRow* row, MemoriesView* view, int device)
    : ::PanTiltMonitorCell(row), m_view(view), m_device(device)
{
}

bool MemoriesView::PanTiltMonitorCell::isActive() const
{
    const ConsoleCache* cache = m_view->cache();
    return cache->isDevicePatched(m_device) && cache->deviceHasParameter(m_device, panParameter) &&
           cache->deviceHasParameter(m_device, tiltParameter);
}

float MemoriesView::PanTiltMonitorCell::axisPosition(int coarse, int fine) const
{
    const ConsoleCache* cache = m_view->cache();
    const Console::Memory memory = m_view->currentMemory();
    const auto value = [&](int p) {
        return cache->memoryParameterValue(memory.page, memory.index, m_device, p, true);
    };
    const bool hasFine = cache->deviceHasParameter(m_device, fine);
    return position(value(coarse), hasFine ? value(fine) : 0, hasFine);
}

float MemoriesView::PanTiltMonitorCell::panPosition() const
{
    return axisPosition(panParameter, panFineParameter);
}

float MemoriesView::PanTiltMonitorCell::tiltPosition() const
{
    return axisPosition(tiltParameter, tiltFineParameter);
}

// View -------------------------------------------------------------------------

MemoriesView::MemoriesView(QWidget* parent, Console* console, TitleBar* bar)
    : QWidget(parent), m_console(console), m_bar(bar), m_channelView(&m_channelScene, this),
      m_deviceView(&m_deviceScene, this)
{
    setUpView(m_channelView);
    setUpView(m_deviceView);
    buildChannelPart();
    rebuildDevicePart();
    connect(console, &Console::playLoaded, this, &MemoriesView::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::channelTextUpdated, this,
            &MemoriesView::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
    connect(console, &Console::patchUpdated, this, &MemoriesView::consoleCachePatchUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::deviceUpdated, this, &MemoriesView::consoleCacheDeviceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::memoryUpdated, this, &MemoriesView::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
}

MemoriesView::~MemoriesView()
{
    // Items go before the scenes' views.
    m_deviceScene.clear();
    m_channelScene.clear();
}

Tab* MemoriesView::create(QWidget* parent, TitleBar* bar)
{
    Console* console = ConsoleLink::console();
    if (!console || !console->cache()->record())
        return nullptr;
    return new MemoriesView(parent, console, bar);
}

ConsoleCache* MemoriesView::cache() const
{
    return m_console->cache();
}

QString MemoriesView::title()
{
    return tr("Mem Edit");
}

void MemoriesView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

QWidget* MemoriesView::createFeatureWidget(QWidget* parent, const QRect& geometry)
{
    m_feature =
        new MemoriesViewFeature(parent, this, m_console->consoleType() == ConsoleCache::ModelMaple);
    m_feature->setGeometry(geometry);
    return m_feature;
}

void MemoriesView::showMemory(int page, int memory)
{
    selectMemory(page, memory);
}

void MemoriesView::selectMemory(int page, int index)
{
    const bool valid = page == -1 ? index >= 0 && index < stackCapacity
                                  : page >= 0 && page < pageMenuCount && index >= 0 &&
                                        index < cache()->faderCount();
    if (!valid || Console::Memory(page, index) == m_currentMemory)
        return;
    m_currentMemory = Console::Memory(page, index);
    refresh();
}

QString MemoriesView::headerText() const
{
    return tr("Memory") + QLatin1String(" - <a href=\"link\"><font color=\"white\">") +
           cache()->memoryNumberText(m_currentMemory.page, m_currentMemory.index) +
           QLatin1Char(' ') +
           cache()
               ->memoryName(m_currentMemory.page, m_currentMemory.index, ConsoleCache::wholeBlock)
               .toHtmlEscaped() +
           QLatin1String("</font></a>");
}

QMenu* MemoriesView::createMemoryMenu(QWidget* parent) const
{
    const ConsoleCache* data = cache();
    auto* menu = new QMenu(parent);
    for (int page = 0; page < pageMenuCount; ++page) {
        QString title = tr("Page") + QLatin1Char(' ') + twoDigits(page + 1);
        const QString pageName = data->pageName(page, ConsoleCache::wholeBlock);
        if (!pageName.isEmpty())
            title += QLatin1String(", ") + pageName;
        QMenu* pageMenu = menu->addMenu(title);
        for (int m = 0; m < data->faderCount(); ++m) {
            QString text = tr("Memory") + QLatin1Char(' ') + twoDigits(m + 1);
            const QString name = data->memoryName(page, m, ConsoleCache::wholeBlock);
            if (!name.isEmpty())
                text += QLatin1String(", ") + name;
            QString content;
            if (data->isMemoryRecorded(page, m)) {
                const int mask = data->memoryContentMask(page, m);
                constexpr std::array<char, 4> letters{'I', 'F', 'C', 'B'};
                for (int bit = 0; bit < 4; ++bit) {
                    if (mask & (1 << bit))
                        content += QLatin1Char(letters[size_t(bit)]);
                }
                if (data->memoryHasEffect(page, m))
                    content += QLatin1String(" Fx");
            } else {
                content = tr("(empty)");
            }
            if (!content.isEmpty())
                text += QLatin1Char(' ') + content;
            QAction* action = pageMenu->addAction(text);
            action->setData(QStringLiteral("Memory/%1/%2").arg(page).arg(m));
        }
    }
    return menu;
}

void MemoriesView::menuItemPicked(const QString& data)
{
    if (const std::optional<int> palette = PaletteMenu::pickedPalette(data)) {
        setPaletteOnSelection(*palette);
        return;
    }
    const QStringList words = data.split(QLatin1Char('/'));
    if (words.size() != 3 || words[0] != QLatin1String("Memory"))
        return;
    bool pageOk = false;
    bool indexOk = false;
    const int page = words[1].toInt(&pageOk);
    const int index = words[2].toInt(&indexOk);
    if (pageOk && indexOk && page >= 0)
        selectMemory(page, index);
}

void MemoriesView::setCurrentMemoryTime(const QString& text)
{
    if (m_currentMemory.isStackCue())
        return;
    cache()->setMemoryTime(m_currentMemory.page, m_currentMemory.index,
                           ConsoleCache::parseTime(text));
    m_console->memoryChanged(m_currentMemory);
}

template <typename Item> static QList<Item*> selectedOf(QGraphicsScene& scene)
{
    QList<Item*> items;
    for (QGraphicsItem* item : scene.selectedItems()) {
        if (auto* cell = dynamic_cast<Item*>(item))
            items.append(cell);
    }
    return items;
}

bool MemoriesView::applyToSelectedParameters(const QString& text)
{
    std::optional<int> level;
    if (!text.isEmpty()) {
        level = ConsoleCache::levelFromPercentText(text);
        if (!level)
            return false;
    }
    const Console::Memory memory = m_currentMemory;
    for (ParameterCell* cell : selectedOf<ParameterCell>(m_deviceScene)) {
        const int device = cell->device();
        const int p = cell->parameter();
        if (!cache()->deviceHasParameter(device, p))
            continue;
        if (level) {
            cache()->setMemoryParameter(memory.page, memory.index, device, p, *level, false);
            continue;
        }
        cache()->clearMemoryParameter(memory.page, memory.index, device, p);
        // A cleared position takes its fine part with it.
        if (p == panParameter || p == tiltParameter)
            cache()->clearMemoryParameter(memory.page, memory.index, device,
                                          p == panParameter ? panFineParameter : tiltFineParameter);
    }
    m_console->memoryChanged(memory);
    m_deviceScene.update();
    return true;
}

void MemoriesView::setPaletteOnSelection(int palette)
{
    const Console::Memory memory = m_currentMemory;
    for (ParameterCell* cell : selectedOf<ParameterCell>(m_deviceScene)) {
        if (cache()->deviceHasParameter(cell->device(), cell->parameter()))
            cache()->setMemoryParameter(memory.page, memory.index, cell->device(),
                                        cell->parameter(), palette, true);
    }
    for (ParameterGroupCell* cell : selectedOf<ParameterGroupCell>(m_deviceScene)) {
        for (int p = 0; p < DeviceRecord::parameterCount; ++p) {
            // Fine parameters follow their coarse one.
            if (p == panFineParameter || p == tiltFineParameter ||
                ConsoleCache::parameterGroup(p) != cell->group() ||
                !cache()->deviceHasParameter(cell->device(), p))
                continue;
            cache()->setMemoryParameter(memory.page, memory.index, cell->device(), p, palette,
                                        true);
        }
    }
    m_console->memoryChanged(memory);
    m_deviceScene.update();
}

void MemoriesView::showPaletteMenu(int group, const QPoint& screenPos)
{
    QMenu* menu = PaletteMenu::create(*cache(), group, this);
    const QAction* picked = menu->exec(screenPos);
    const QString data = picked ? picked->data().toString() : QString();
    delete menu;
    if (!data.isEmpty())
        menuItemPicked(data);
}

void MemoriesView::buildChannelPart()
{
    m_channelTable = new CellRowTable(&m_channelScene, this);
    switch (m_console->consoleType()) {
    case ConsoleCache::ModelAlder:
        for (int first = 0; first < 48; first += 12)
            addChannelRows(tr("Ch %1-%2").arg(first + 1).arg(first + 12), first, 12);
        break;
    case ConsoleCache::ModelBirch:
    case ConsoleCache::ModelCedar:
        for (int first = 0; first < 96; first += 24)
            addChannelRows(tr("Ch %1-%2").arg(first + 1).arg(first + 24), first, 24);
        break;
    default:
        addChannelRows(tr("INT A"), 0, 24);
        addChannelRows(tr("INT B"), 24, 24);
        addChannelRows(tr("INT DEV"), 48, 24);
        break;
    }
}

void MemoriesView::addChannelRows(const QString& title, int first, int count)
{
    auto* numbers = new NumberRow(m_channelTable);
    for (int c = first; c < first + count; ++c)
        new NumberCell(numbers, c);
    m_channelTable->addRow(numbers);
    auto* channels = new ChannelRow(m_channelTable, m_console, title);
    for (int c = first; c < first + count; ++c)
        new ChannelCell(channels, this, c);
    m_channelTable->addRow(channels);
}

void MemoriesView::rebuildDevicePart()
{
    m_deviceScene.clear();
    m_deviceTable = nullptr;
    if (cache()->deviceCount() <= 0)
        return;
    m_deviceTable = new CellRowTable(&m_deviceScene, this);
    DevicePart::build(m_deviceTable, *cache(), *this);
}

CellRow* MemoriesView::createGroupRow(::CellRowTable* table, int group)
{
    return new ParameterGroupRow(table, group);
}

Cell* MemoriesView::createGroupCell(CellRow* row, int device, int group)
{
    return new ParameterGroupCell(row, this, device, group);
}

Cell* MemoriesView::createMonitorCell(CellRow* row, int device)
{
    return new PanTiltMonitorCell(row, this, device);
}

::ParameterCell* MemoriesView::createParameterCell(CellRow* row, int device, int group,
                                                   int parameter)
{
    return new ParameterCell(row, this, device, group, parameter);
}

void MemoriesView::refresh()
{
    if (m_feature)
        m_feature->refresh();
    m_channelScene.update();
    m_deviceScene.update();
}

void MemoriesView::consoleCachePlayLoaded()
{
    rebuildDevicePart();
    refresh();
    for (QGraphicsItem* item : m_channelScene.items()) {
        if (auto* cell = dynamic_cast<ChannelCell*>(item))
            cell->refreshLegend();
    }
    layoutViews();
}

void MemoriesView::consoleCacheChannelTextUpdated(int channel)
{
    for (QGraphicsItem* item : m_channelScene.items()) {
        auto* cell = dynamic_cast<ChannelCell*>(item);
        if (cell && (channel < 0 || cell->channel() == channel))
            cell->refreshLegend();
    }
}

void MemoriesView::consoleCachePatchUpdated()
{
    rebuildDevicePart();
    layoutViews();
}

void MemoriesView::consoleCacheDeviceUpdated(int)
{
    rebuildDevicePart();
    layoutViews();
}

void MemoriesView::consoleCacheMemoryUpdated(Console::Memory memory)
{
    if (memory == m_currentMemory)
        refresh();
}

void MemoriesView::layoutViews()
{
    const int channelHeight =
        std::min(int(m_channelScene.itemsBoundingRect().bottom()) + 2, height());
    m_channelView.setGeometry(0, 0, std::max(0, width() - 1), channelHeight);
    m_channelView.setSceneRect(0, 0, std::max(0, width() - 1), channelHeight);
    m_deviceView.setGeometry(0, channelHeight + 1, width(),
                             std::max(0, height() - channelHeight - 1));
}

void MemoriesView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutViews();
}

MemoriesViewFeature* MemoriesView::feature() const
{
    return m_feature;
}
