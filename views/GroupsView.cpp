// SPDX-License-Identifier: GPL-3.0-or-later
#include "GroupsView.h"

#include "Console.h"
#include "ConsoleCache.h"
#include "ConsoleStateRecord.h"
#include "EditorViewLook.h"
#include "toolkit/ConsoleLink.h"
#include "toolkit/InPlaceEditableText.h"
#include "toolkit/MakeFont.h"
#include "toolkit/NumberCell.h"
#include "toolkit/NumberRow.h"
#include "toolkit/Resources.h"
#include "toolkit/TitleBar.h"

#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace {

constexpr int numberStripWidth = 22;
constexpr int maxMembers = GroupsView::deviceCount;

GroupRecord* groupRecord(int group)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record() || group < 0 || group >= GroupsView::groupCount)
        return nullptr;
    return &cache->record()->groups[group];
}

int lineOf(InPlaceEditableText* const* lines, const InPlaceEditableText* item)
{
    return int(std::find(lines, lines + 3, item) - lines);
}

} // namespace

GroupsView::CellRowTable::CellRowTable(QGraphicsScene* scene) : ::CellRowTable(scene, false) {}

GroupsView::CellRowTable::~CellRowTable() = default;

// ---- device names ------------------------------------------------------------

GroupsView::DeviceNameRow::DeviceNameRow(::CellRowTable* table)
    : CellRow(table, Spacing::ThinSpacing, Spacing::ThickSpacing),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), 12))
{
}

GroupsView::DeviceNameRow::~DeviceNameRow() = default;

void GroupsView::DeviceNameRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                      QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    m_title.draw(painter, QRectF(0, 0, table()->headerWidth(), height()), Qt::AlignCenter,
                 GroupsView::tr("GROUP"), m_font, Qt::white);
}

GroupsView::DeviceNameCell::DeviceNameCell(CellRow* row, int device)
    : Cell(row, cellHeight), m_device(device)
{
    for (int i = 0; i < 3; ++i) {
        m_lines[i] = new InPlaceEditableText(
            static_cast<QGraphicsItem*>(this), this,
            QRectF(1, 2 + i * lineHeight, table()->columnWidth() - 2, lineHeight),
            TextBlock::lineLength, 8, Qt::white, Qt::AlignHCenter);
        m_lines[i]->setEditable(true);
    }
    InPlaceEditableText::chain(m_lines, 3);
    refresh();
}

GroupsView::DeviceNameCell::~DeviceNameCell() = default;

void GroupsView::DeviceNameCell::refresh()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record())
        return;
    const int channel = cache->firstDeviceChannel() + m_device;
    for (int i = 0; i < 3; ++i)
        m_lines[i]->setText(cache->channelLegend(channel, i));
}

void GroupsView::DeviceNameCell::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

void GroupsView::DeviceNameCell::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const int line = lineOf(m_lines, item);
    if (!cache || !cache->record() || line >= 3)
        return;
    cache->setChannelLegend(cache->firstDeviceChannel() + m_device, line,
                            text.left(TextBlock::lineLength));
    refresh();
}

// ---- group rows -------------------------------------------------------------------

GroupsView::GroupRow::GroupRow(::CellRowTable* table, int group, int lineCount)
    : CellRow(table, Spacing::ThinSpacing, Spacing::ThinSpacing), m_group(group),
      m_lineCount(std::clamp(lineCount, 1, 3)), m_font(makeFont(QStringLiteral("Gill Sans MT"), 11))
{
    const qreal width = table->headerWidth() - numberStripWidth - 2;
    for (int i = 0; i < m_lineCount; ++i) {
        m_lines[i] =
            new InPlaceEditableText(static_cast<QGraphicsItem*>(this), this,
                                    QRectF(numberStripWidth, 1 + i * lineHeight, width, lineHeight),
                                    TextBlock::lineLength, 9, Qt::white, Qt::AlignLeft);
        m_lines[i]->setEditable(true);
    }
    InPlaceEditableText::chain(m_lines, m_lineCount);
    refresh();
}

GroupsView::GroupRow::~GroupRow() = default;

void GroupsView::GroupRow::refresh()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !cache->record())
        return;
    for (int i = 0; i < m_lineCount; ++i)
        m_lines[i]->setText(cache->groupName(m_group, i));
}

void GroupsView::GroupRow::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                 QWidget* widget)
{
    paintHeaderSeparator(painter, option, widget);
    m_number.draw(painter, QRectF(0, 0, numberStripWidth, 16), Qt::AlignCenter,
                  QString::number(m_group + 1), m_font, Qt::white);
}

void GroupsView::GroupRow::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const int line = lineOf(m_lines, item);
    if (!cache || !cache->record() || line >= 3)
        return;
    cache->setGroupName(m_group, line, text.left(TextBlock::lineLength));
    refresh();
}

// ---- group cells -------------------------------------------------------------------

GroupsView::GroupCell::GroupCell(CellRow* row, int group, int device, int height)
    : Cell(row, height), m_group(group), m_device(device)
{
}

GroupsView::GroupCell::~GroupCell() = default;

bool GroupsView::GroupCell::isMember() const
{
    const GroupRecord* record = groupRecord(m_group);
    if (!record)
        return false;
    const int count = std::min<int>(record->memberCount, maxMembers);
    return std::find(record->members, record->members + count, quint8(m_device)) !=
           record->members + count;
}

void GroupsView::GroupCell::toggle()
{
    GroupRecord* record = groupRecord(m_group);
    if (!record)
        return;
    int count = std::min<int>(record->memberCount, maxMembers);
    quint8* end = record->members + count;
    quint8* found = std::find(record->members, end, quint8(m_device));
    if (found != end) {
        // The later members move up one place, keeping their order.
        std::copy(found + 1, end, found);
        record->members[--count] = 0;
    } else if (count < maxMembers) {
        record->members[count++] = quint8(m_device);
    }
    record->memberCount = quint8(count);
    if (Console* console = ConsoleLink::console())
        console->groupChanged(m_group);
    update();
}

void GroupsView::GroupCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (isMember())
        paintFrame(painter, boundingRect(), QColor(255, 255, 255, 90), Qt::NoPen);
}

void GroupsView::GroupCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->accept();
}

void GroupsView::GroupCell::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    toggle();
}

// ---- the view ------------------------------------------------------------------------

GroupsView::GroupsView(QWidget* parent, TitleBar* bar) : QGraphicsView(parent), m_bar(bar)
{
    setScene(&m_scene);
    EditorViewLook::apply(this);
    build();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::playLoaded, this, &GroupsView::consoleCachePlayLoaded,
                Qt::QueuedConnection);
        connect(console, &Console::channelTextUpdated, this,
                &GroupsView::consoleCacheChannelTextUpdated, Qt::QueuedConnection);
        connect(console, &Console::groupUpdated, this, &GroupsView::consoleCacheGroupUpdated,
                Qt::QueuedConnection);
    }
    hide();
}

GroupsView::~GroupsView()
{
    m_deviceNameCells.clear();
    m_groupRows.clear();
    m_groupCells.clear();
    m_scene.clear();
}

QString GroupsView::title()
{
    return tr("Groups");
}

void GroupsView::activate()
{
    show();
    if (m_bar) {
        m_bar->setTitleBarHandler(this);
        m_bar->setSmMsButtonsVisible(false);
        m_bar->setIfcbFxTimeButtonsVisible(false);
        m_bar->setLineButtonRange(2, 3);
    }
}

void GroupsView::setLineCount(int lines)
{
    m_lineCount = std::clamp(lines, 1, 3);
    build();
}

void GroupsView::consoleCachePlayLoaded()
{
    build();
}

void GroupsView::consoleCacheChannelTextUpdated(int channel)
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache)
        return;
    const int device = channel - cache->firstDeviceChannel();
    if (device >= 0 && device < m_deviceNameCells.size())
        m_deviceNameCells[device]->refresh();
}

void GroupsView::consoleCacheGroupUpdated(int group)
{
    if (group < 0 || group >= m_groupRows.size())
        return;
    m_groupRows[group]->refresh();
    for (Cell* cell : m_groupRows[group]->cells())
        cell->update();
}

void GroupsView::build()
{
    m_deviceNameCells.clear();
    m_groupRows.clear();
    m_groupCells.clear();
    m_scene.clear();
    auto* table = new CellRowTable(&m_scene);
    auto* numbers = new NumberRow(table, tr("DEVICE"));
    for (int d = 0; d < deviceCount; ++d)
        new NumberCell(numbers, d);
    table->addRow(numbers);
    auto* names = new DeviceNameRow(table);
    for (int d = 0; d < deviceCount; ++d)
        m_deviceNameCells.append(new DeviceNameCell(names, d));
    table->addRow(names);
    const int rowHeight = m_lineCount * lineHeight + 3;
    for (int g = 0; g < groupCount; ++g) {
        auto* row = new GroupRow(table, g, m_lineCount);
        for (int d = 0; d < deviceCount; ++d)
            m_groupCells.append(new GroupCell(row, g, d, rowHeight));
        m_groupRows.append(row);
        table->addRow(row);
    }
    m_scene.setSceneRect(m_scene.itemsBoundingRect().adjusted(0, 0, 4, 4));
}
