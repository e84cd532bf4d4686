// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchView.h"

#include "EditorViewLook.h"
#include "PatchViewChannelCell.h"
#include "PatchViewIndependentCell.h"
#include "PatchViewIndependentOptions.h"
#include "PatchViewMidiBlock.h"
#include "PatchViewTrashcan.h"
#include "PatchViewUniverseBlock.h"
#include "console/Console.h"
#include "console/ConsoleCache.h"
#include "toolkit/ChannelRow.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/TitleBar.h"

#include <QDrag>
#include <QGraphicsScene>
#include <QHelpEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmap>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int cellsPerRow = 24;
constexpr std::array<const char*, 5> keywordNames{"Channels", "Outputs", "Devices", "Circuits",
                                                  "Independents"};

struct ChannelRowLayout
{
    const char* title;
    int first;
};

QList<ChannelRowLayout> channelRowsOf(int model)
{
    switch (model) {
    case ConsoleCache::ModelAlder:
        return {{"Ch 1-24", 0}, {"Ch 25-48", 24}};
    case ConsoleCache::ModelBirch:
    case ConsoleCache::ModelCedar:
        return {{"Ch 1-24", 0}, {"Ch 25-48", 24}, {"Ch 49-72", 48}, {"Ch 73-96", 72}};
    case ConsoleCache::ModelMaple:
        return {{"INT A", 0}, {"INT B", 24}, {"INT DEV", 48}};
    default:
        return {};
    }
}

// The letter-range submenu a manufacturer belongs in.
int letterRange(const QString& manufacturer)
{
    const QChar first = manufacturer.isEmpty() ? QChar() : manufacturer.at(0).toLower();
    if (first < QLatin1Char('e'))
        return 0;
    if (first < QLatin1Char('n'))
        return 1;
    if (first < QLatin1Char('t'))
        return 2;
    return 3;
}

} // namespace

PatchView::CellRowTable::~CellRowTable() = default;

PatchView::PatchView(Console* console, QWidget* parent, TitleBar* bar)
    : QGraphicsView(parent), m_console(console), m_bar(bar), m_scene(new QGraphicsScene(this))
{
    setScene(m_scene);
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (m_console) {
        connect(m_console, &Console::playLoaded, this, &PatchView::consoleCachePlayLoaded,
                Qt::QueuedConnection);
        connect(m_console, &Console::channelTextUpdated, this,
                &PatchView::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
        connect(m_console, &Console::patchUpdated, this, &PatchView::consoleCachePatchUpdated,
                Qt::QueuedConnection);
        connect(m_console, &Console::independentsUpdated, this,
                &PatchView::consoleCacheIndependentsUpdated, Qt::QueuedConnection);
        connect(m_console, &Console::deviceUpdated, this, &PatchView::consoleCacheDeviceUpdated,
                Qt::QueuedConnection);
        connect(m_console, &Console::outputsUpdated, this,
                &PatchView::consoleCacheOutputsOrChannelsUpdated, Qt::QueuedConnection);
        connect(m_console, &Console::channelsUpdated, this,
                &PatchView::consoleCacheOutputsOrChannelsUpdated, Qt::QueuedConnection);
    }
    buildScene();
}

PatchView::~PatchView() = default;

ConsoleCache* PatchView::cache() const
{
    ConsoleCache* data = m_console ? m_console->cache() : nullptr;
    return data && data->record() ? data : nullptr;
}

// Tab ----------------------------------------------------------------------------

QString PatchView::title()
{
    return tr("Patch");
}

void PatchView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

// Scene --------------------------------------------------------------------------

void PatchView::buildScene()
{
    m_scene->clear();
    m_channelCells.clear();
    m_universeBlocks.clear();
    m_midiBlock = nullptr;
    m_independentCells.fill(nullptr);
    m_trashcan = nullptr;
    m_independentOptions = nullptr;
    clearSelection();
    m_channelTable = new CellRowTable(m_scene, true);
    m_independentTable = new CellRowTable(m_scene, true);
    const ConsoleCache* data = cache();
    if (!data)
        return;
    const int model = data->consoleType();
    buildChannelTable(model);

    qreal y = m_channelTable->sceneBoundingRect().bottom() + blockGap;
    const int universes = model == ConsoleCache::ModelMaple ? 2 : 1;
    for (int universe = 0; universe < universes; ++universe) {
        auto* block = new UniverseBlock(this, universe);
        block->setPos(0, y);
        y += block->boundingRect().height() + blockGap;
        m_universeBlocks.append(block);
    }
    if (model == ConsoleCache::ModelMaple) {
        m_midiBlock = new MidiBlock(this);
        m_midiBlock->setPos(0, y);
    }

    // Beside the universes, where the grid leaves room on a 1280 pixel screen.
    buildIndependentTable();
    const qreal top = m_universeBlocks.isEmpty() ? 0 : m_universeBlocks.first()->y();
    m_independentTable->setPos(independentTableX, top);
    const QRectF table = m_independentTable->sceneBoundingRect();
    m_trashcan = new Trashcan(this);
    m_trashcan->setPos(table.right() - Trashcan::itemWidth, table.bottom() + trashcanGap);
    m_independentOptions = new IndependentOptions(this);
    m_independentOptions->setPos(table.right() - IndependentOptions::itemWidth,
                                 m_trashcan->sceneBoundingRect().bottom() + optionsGap);
    m_scene->setSceneRect(m_scene->itemsBoundingRect().united(QRectF(0, 0, 1, 1)));
}

void PatchView::buildChannelTable(int model)
{
    const int channels = cache()->channelCount();
    for (const ChannelRowLayout& layout : channelRowsOf(model)) {
        auto* numbers = new NumberRow(m_channelTable);
        for (int i = 0; i < cellsPerRow; ++i)
            new NumberCell(numbers, layout.first + i);
        m_channelTable->addRow(numbers);
        auto* row = new ChannelRow(m_channelTable, m_console, QString::fromLatin1(layout.title));
        for (int i = 0; i < cellsPerRow && layout.first + i < channels; ++i)
            m_channelCells.append(new ChannelCell(row, this, layout.first + i));
        m_channelTable->addRow(row);
    }
}

void PatchView::buildIndependentTable()
{
    auto* numbers = new NumberRow(m_independentTable);
    for (int i = 0; i < independentCount; ++i)
        new NumberCell(numbers, QStringLiteral("IND ") + QString::number(i + 1));
    m_independentTable->addRow(numbers);
    auto* row = new CellRow(m_independentTable, Spacing::NoSpacing, Spacing::NoSpacing);
    for (int i = 0; i < independentCount; ++i)
        m_independentCells[size_t(i)] = new IndependentCell(row, this, i);
    m_independentTable->addRow(row);
}

void PatchView::refreshItems()
{
    m_scene->update();
}

// Slots --------------------------------------------------------------------------

void PatchView::consoleCachePlayLoaded()
{
    buildScene();
}

void PatchView::consoleCacheChannelTextUpdated(int channel)
{
    for (ChannelCell* cell : std::as_const(m_channelCells)) {
        if (cell->channel() == channel)
            cell->refreshLegend();
    }
}

void PatchView::consoleCachePatchUpdated()
{
    refreshItems();
}

void PatchView::consoleCacheIndependentsUpdated()
{
    for (IndependentCell* cell : m_independentCells) {
        if (cell)
            cell->refreshLegend();
    }
    if (m_independentOptions)
        m_independentOptions->refresh();
    refreshItems();
}

void PatchView::consoleCacheDeviceUpdated(int)
{
    refreshItems();
}

void PatchView::consoleCacheOutputsOrChannelsUpdated()
{
    // Levels show only in the cells; the address blocks stay as they are.
    for (ChannelCell* cell : std::as_const(m_channelCells))
        cell->update();
    for (IndependentCell* cell : m_independentCells) {
        if (cell)
            cell->update();
    }
}

// Selection ----------------------------------------------------------------------

void PatchView::clearSelection()
{
    m_selectedChannels.fill(false);
    m_selectedOutputs.fill(false);
    m_selectedDevices.fill(false);
    m_selectedCircuits.fill(false);
    m_selectedIndependents.fill(false);
    refreshItems();
}

bool PatchView::press(bool* flag, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier) {
        *flag = !*flag;
        refreshItems();
        return false;
    }
    if (modifiers & Qt::ShiftModifier)
        return false;
    if (!*flag) {
        clearSelection();
        *flag = true;
    }
    refreshItems();
    return true;
}

bool PatchView::pressChannel(int channel, Qt::KeyboardModifiers modifiers)
{
    return press(&m_selectedChannels[size_t(channel)], modifiers);
}

bool PatchView::pressOutput(int address, Qt::KeyboardModifiers modifiers)
{
    return press(&m_selectedOutputs[size_t(address)], modifiers);
}

bool PatchView::pressDevice(int device, Qt::KeyboardModifiers modifiers)
{
    return press(&m_selectedDevices[size_t(device)], modifiers);
}

bool PatchView::pressCircuit(int circuit, Qt::KeyboardModifiers modifiers)
{
    return press(&m_selectedCircuits[size_t(circuit)], modifiers);
}

bool PatchView::pressIndependent(int independent, Qt::KeyboardModifiers modifiers)
{
    return press(&m_selectedIndependents[size_t(independent)], modifiers);
}

// Drag payloads ------------------------------------------------------------------

QString PatchView::keywordText(Keyword keyword)
{
    if (keyword == Keyword::None)
        return QString();
    return QString::fromLatin1(keywordNames[size_t(int(keyword) - 1)]);
}

QString PatchView::selectionPayload(Keyword keyword) const
{
    const auto numbers = [](const auto& flags) {
        QString text;
        for (size_t i = 0; i < flags.size(); ++i) {
            if (flags[i])
                text += QLatin1Char(' ') + QString::number(i);
        }
        return text;
    };
    QString text;
    switch (keyword) {
    case Keyword::Channels:
        text = numbers(m_selectedChannels);
        break;
    case Keyword::Outputs:
        text = numbers(m_selectedOutputs);
        break;
    case Keyword::Devices:
        text = numbers(m_selectedDevices);
        break;
    case Keyword::Circuits:
        text = numbers(m_selectedCircuits);
        break;
    case Keyword::Independents:
        text = numbers(m_selectedIndependents);
        break;
    case Keyword::None:
        break;
    }
    return text.isEmpty() ? QString() : keywordText(keyword) + text;
}

QString PatchView::universePayload() const
{
    const QString outputs = selectionPayload(Keyword::Outputs);
    return outputs.isEmpty() ? selectionPayload(Keyword::Devices) : outputs;
}

void PatchView::startDrag(QWidget* source, const QString& text)
{
    if (text.isEmpty())
        return;
    auto* data = new QMimeData;
    data->setText(text);
    if (m_dragRunner) {
        m_dragRunner(data);
        delete data;
        return;
    }
    auto* drag = new QDrag(source ? static_cast<QObject*>(source) : this);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

PatchView::Keyword PatchView::keywordOf(const QMimeData* data)
{
    if (!data || !data->hasFormat(QStringLiteral("text/plain")))
        return Keyword::None;
    const QString text = data->text();
    for (size_t i = 0; i < keywordNames.size(); ++i) {
        if (text.startsWith(QLatin1String(keywordNames[i])))
            return Keyword(int(i) + 1);
    }
    return Keyword::None;
}

PatchView::Payload PatchView::parse(const QMimeData* data) const
{
    const ConsoleCache* c = cache();
    const Keyword keyword = keywordOf(data);
    if (!c || keyword == Keyword::None)
        return {};
    int limit = 0;
    switch (keyword) {
    case Keyword::Channels:
        limit = c->channelCount();
        break;
    case Keyword::Outputs:
        limit = addressLimit();
        break;
    case Keyword::Devices:
        limit = std::min(c->deviceCount(), maxDevices);
        break;
    case Keyword::Circuits:
        limit = circuitCount;
        break;
    default:
        limit = independentCount;
        break;
    }
    QStringList words = data->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.removeFirst();
    Payload payload{keyword, {}};
    for (const QString& word : std::as_const(words)) {
        bool ok = false;
        const int number = word.toInt(&ok);
        if (!ok || number < 0 || number >= limit)
            return {};
        payload.numbers.append(number);
    }
    return payload.numbers.isEmpty() ? Payload{} : payload;
}

// Drops --------------------------------------------------------------------------

int PatchView::addressLimit() const
{
    const ConsoleCache* c = cache();
    return c ? std::clamp(c->patchAddressCount(), 0, addressCount) : 0;
}

bool PatchView::patchValues(const QList<int>& values, int address)
{
    quint8* patch = cache()->record()->dmxPatch;
    const int limit = addressLimit();
    bool any = false;
    for (int value : values) {
        if (address >= limit)
            break;
        // A channel moves: it leaves every other address it drove.
        for (int i = 0; i < addressCount; ++i) {
            if (patch[i] == value && i != address)
                patch[i] = 0;
        }
        patch[address++] = quint8(value);
        any = true;
    }
    if (any)
        m_console->patchChanged();
    return any;
}

bool PatchView::dropOnAddress(int address, const Payload& payload, const QPoint& screenPos)
{
    ConsoleCache* c = cache();
    if (!c || address < 0 || address >= addressLimit() || payload.numbers.isEmpty())
        return false;
    const int space =
        UniverseBlock::addressesPerUniverse - address % UniverseBlock::addressesPerUniverse;
    const int first = c->firstDeviceChannel();
    QList<int> values;
    switch (payload.keyword) {
    case Keyword::Channels: {
        const auto below = [first](int n) { return n < first; };
        if (std::all_of(payload.numbers.begin(), payload.numbers.end(), below)) {
            for (int channel : payload.numbers)
                values.append(channel + 1);
            return patchValues(values, address);
        }
        if (std::none_of(payload.numbers.begin(), payload.numbers.end(), below) &&
            c->deviceCount() > 0) {
            m_menuChannels = payload.numbers;
            m_menuAddress = address;
            m_personalityMenu = buildPersonalityMenu(int(payload.numbers.size()), space);
            m_personalityMenu->popup(screenPos);
        }
        return false;
    }
    case Keyword::Independents:
        for (int independent : payload.numbers)
            values.append(c->channelCount() + 1 + independent);
        return patchValues(values, address);
    case Keyword::Devices: {
        int total = 0;
        for (int device : payload.numbers)
            total += c->deviceFootprint(device);
        if (total > space) {
            QMessageBox::critical(this, tr("Repatch devices"),
                                  tr("Could not repatch the selected devices as they would not "
                                     "fit within the universe!"));
            return false;
        }
        for (int device : payload.numbers) {
            c->repatchDevice(device, address);
            address += c->deviceFootprint(device);
        }
        return true;
    }
    default:
        return false;
    }
}

QMenu* PatchView::buildPersonalityMenu(int deviceChannels, int space)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu, &QMenu::triggered, this,
            [this](QAction* action) { personalityChosen(action->data().toString()); });
    const QList<RecordArea::Personality> personalities = cache()->personalities();
    if (personalities.isEmpty()) {
        QAction* cancel =
            menu->addAction(QLatin1Char('<') + tr("missing personalities") + QLatin1Char('>'));
        cancel->setData(QStringLiteral("Cancel"));
        return menu;
    }
    const std::array<QMenu*, 4> ranges{
        menu->addMenu(QStringLiteral("A - D")), menu->addMenu(QStringLiteral("E - M")),
        menu->addMenu(QStringLiteral("N - S")), menu->addMenu(QStringLiteral("T - Z"))};
    QMenu* maker = nullptr;
    QString makerName;
    for (const RecordArea::Personality& p : personalities) {
        if (p.footprint <= 0)
            continue;
        if (!maker || p.manufacturer != makerName) {
            makerName = p.manufacturer;
            maker = makerName.startsWith(QLatin1Char(' '))
                        ? menu->addMenu(makerName.mid(1))
                        : ranges[size_t(letterRange(makerName))]->addMenu(makerName);
        }
        QAction* action =
            maker->addAction(p.name + QStringLiteral(" (") + QString::number(p.footprint) +
                             QLatin1Char(' ') + tr("channels") + QLatin1Char(')'));
        action->setEnabled(p.footprint * deviceChannels <= space);
        action->setData(QStringLiteral("PatchDevice/") + QString::number(p.id) + QLatin1Char('/') +
                        QString::number(p.footprint));
    }
    return menu;
}

void PatchView::personalityChosen(const QString& data)
{
    ConsoleCache* c = cache();
    const QStringList parts = data.split(QLatin1Char('/'));
    if (!c || parts.size() != 3 || parts[0] != QLatin1String("PatchDevice"))
        return;
    bool idOk = false, footprintOk = false;
    const int id = parts[1].toInt(&idOk);
    const int footprint = parts[2].toInt(&footprintOk);
    if (!idOk || !footprintOk || footprint <= 0)
        return;
    int address = m_menuAddress;
    for (int channel : std::as_const(m_menuChannels)) {
        c->patchDevice(channel - c->firstDeviceChannel(), id, address);
        address += footprint;
    }
    m_menuChannels.clear();
}

bool PatchView::dropOnChannel(int channel, const Payload& payload)
{
    ConsoleCache* c = cache();
    if (!c || payload.numbers.isEmpty())
        return false;
    if (payload.keyword == Keyword::Outputs) {
        for (int address : payload.numbers)
            c->record()->dmxPatch[address] = quint8(channel + 1);
        m_console->patchChanged();
        return true;
    }
    if (payload.keyword == Keyword::Circuits) {
        c->record()->midiCircuits[channel] = quint8(payload.numbers.last() + 1);
        m_console->midiPatchChanged();
        return true;
    }
    return false;
}

bool PatchView::dropOnIndependent(int independent, const Payload& payload)
{
    ConsoleCache* c = cache();
    if (!c || payload.keyword != Keyword::Outputs || payload.numbers.isEmpty())
        return false;
    for (int address : payload.numbers)
        c->record()->dmxPatch[address] = quint8(c->channelCount() + 1 + independent);
    m_console->patchChanged();
    return true;
}

bool PatchView::clearAddressesCarrying(int value)
{
    quint8* patch = cache()->record()->dmxPatch;
    bool changed = false;
    for (int i = 0; i < addressCount; ++i) {
        if (patch[i] == value) {
            patch[i] = 0;
            changed = true;
        }
    }
    return changed;
}

bool PatchView::dropOnTrashcan(const Payload& payload)
{
    ConsoleCache* c = cache();
    if (!c)
        return false;
    const int first = c->firstDeviceChannel();
    const int devices = std::min(c->deviceCount(), maxDevices);
    bool patch = false;
    bool midi = false;
    bool sent = false;
    const auto unpatch = [&](int device) {
        if (device < 0 || device >= devices || !c->isDevicePatched(device))
            return;
        c->unpatchDevice(device);
        sent = true;
    };
    for (int n : payload.numbers) {
        switch (payload.keyword) {
        case Keyword::Channels:
            patch |= clearAddressesCarrying(n + 1);
            unpatch(n - first);
            break;
        case Keyword::Outputs:
            patch |= c->record()->dmxPatch[n] != 0;
            c->record()->dmxPatch[n] = 0;
            for (int d = 0; d < devices; ++d) {
                if (c->deviceFirstAddress(d) == n)
                    unpatch(d);
            }
            break;
        case Keyword::Devices:
            patch |= clearAddressesCarrying(first + n + 1);
            unpatch(n);
            break;
        case Keyword::Circuits:
            for (int channel = 0; channel < c->channelCount(); ++channel) {
                if (c->record()->midiCircuits[channel] == n + 1) {
                    c->record()->midiCircuits[channel] = 0;
                    midi = true;
                }
            }
            break;
        case Keyword::Independents:
            patch |= clearAddressesCarrying(c->channelCount() + 1 + n);
            break;
        case Keyword::None:
            break;
        }
    }
    if (patch)
        m_console->patchChanged();
    if (midi)
        m_console->midiPatchChanged();
    return patch || midi || sent;
}

// Tool tips ----------------------------------------------------------------------

bool PatchView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QGraphicsView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = toolTipAt(mapToScene(help->pos()));
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), text, viewport());
    return true;
}

QString PatchView::toolTipAt(const QPointF& scenePos) const
{
    // The topmost of the items that explain themselves; legends lie on top.
    for (QGraphicsItem* item : m_scene->items(scenePos)) {
        if (auto* cell = dynamic_cast<ChannelCell*>(item))
            return channelToolTip(cell->channel());
        if (auto* block = dynamic_cast<UniverseBlock*>(item)) {
            const int index = UniverseBlock::addressAt(block->mapFromScene(scenePos));
            return index < 0 ? QString()
                             : addressToolTip(
                                   block->universe() * UniverseBlock::addressesPerUniverse + index);
        }
        if (auto* midi = dynamic_cast<MidiBlock*>(item)) {
            const int circuit = MidiBlock::circuitAt(midi->mapFromScene(scenePos));
            return circuit < 0 ? QString() : circuitToolTip(circuit);
        }
    }
    return QString();
}

QString PatchView::channelToolTip(int channel) const
{
    const ConsoleCache* c = cache();
    if (!c)
        return QString();
    QStringList parts;
    QStringList outputs;
    for (int address = 0; address < addressCount; ++address) {
        if (c->record()->dmxPatch[address] == channel + 1)
            outputs.append(ConsoleCache::dmxAddressText(address));
    }
    if (!outputs.isEmpty())
        parts.append((outputs.size() == 1 ? tr("Output") : tr("Outputs")) + QLatin1Char(' ') +
                     outputs.join(QStringLiteral(", ")));
    const int device = channel - c->firstDeviceChannel();
    if (device >= 0 && device < std::min(c->deviceCount(), maxDevices) &&
        c->isDevicePatched(device)) {
        parts.append(c->devicePersonalityName(device) + QLatin1Char(' ') +
                     c->deviceSecondName(device) + QStringLiteral(" @ ") + tr("Output") +
                     QLatin1Char(' ') +
                     ConsoleCache::dmxAddressText(c->deviceFirstAddress(device)));
    }
    if (const int midi = c->record()->midiCircuits[channel])
        parts.append(QStringLiteral("MIDI:") + QString::number(midi));
    return parts.join(QStringLiteral(", "));
}

QString PatchView::addressToolTip(int address) const
{
    const ConsoleCache* c = cache();
    if (!c)
        return QString();
    QStringList parts;
    const int device = c->addressDevice(address) - 1;
    if (device >= 0) {
        parts.append(c->channelLabel(c->firstDeviceChannel() + device) + QStringLiteral(" (") +
                     c->devicePersonalityName(device) + QLatin1Char(' ') +
                     c->deviceSecondName(device) + QLatin1Char(')'));
    }
    if (const int value = c->record()->dmxPatch[address])
        parts.append(c->channelLabel(value - 1));
    return parts.isEmpty() ? tr("Unpatched") : parts.join(QStringLiteral(", "));
}

QString PatchView::circuitToolTip(int circuit) const
{
    const ConsoleCache* c = cache();
    if (!c)
        return QString();
    for (int channel = 0; channel < c->channelCount(); ++channel) {
        if (c->record()->midiCircuits[channel] == circuit + 1)
            return c->channelLabel(channel);
    }
    return tr("Unpatched");
}
