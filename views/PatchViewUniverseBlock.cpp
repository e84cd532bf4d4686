// SPDX-License-Identifier: GPL-3.0-or-later
#include "PatchViewUniverseBlock.h"

#include "console/ConsoleCache.h"
#include "toolkit/MakeFont.h"

#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

namespace {

const QColor background(157, 157, 157);
const QColor selectedBorder(200, 255, 189);
const QColor patchedFill(91, 116, 86);
const QColor patchedPen(177, 239, 164);
const QColor conflictFill(250, 4, 16);
const QColor firstSelectedFill(255, 233, 187);
const QColor firstFill(216, 197, 158);
const QColor otherSelectedFill(153, 140, 113);
const QColor otherFill(116, 106, 86);
const QColor firstPen(0, 0, 1);
const QColor otherPen(216, 197, 158);
const QColor unpatchedPen(176, 176, 176);
const QColor unpatchedText(72, 72, 72);

constexpr int pitchX =
    PatchView::UniverseBlock::cellWidth + PatchView::UniverseBlock::horizontalGap;
constexpr int pitchY = PatchView::UniverseBlock::cellHeight + PatchView::UniverseBlock::verticalGap;
constexpr int cellsTop =
    PatchView::UniverseBlock::titleHeight + PatchView::UniverseBlock::topMargin;
constexpr int cellsLeft =
    PatchView::UniverseBlock::headerWidth + PatchView::UniverseBlock::leftMargin;

} // namespace

PatchView::UniverseBlock::UniverseBlock(PatchView* view, int universe)
    : m_view(view), m_universe(universe), m_titleFont(makeFont(QStringLiteral("Gill Sans MT"), 11)),
      m_numberFont(makeFont(QStringLiteral("Gill Sans MT"), 7))
{
    const ConsoleCache* data = view->cache();
    m_title = data && data->consoleType() == ConsoleCache::ModelMaple
                  ? PatchView::tr("Universe") + QLatin1Char(' ') + QString::number(universe + 1)
                  : PatchView::tr("Output");
    setAcceptDrops(true);
    view->m_scene->addItem(this);
}

PatchView::UniverseBlock::~UniverseBlock() = default;

int PatchView::UniverseBlock::addressAt(const QPointF& pos)
{
    const qreal x = pos.x() - cellsLeft;
    const qreal y = pos.y() - cellsTop;
    if (x < 0 || y < 0)
        return -1;
    const int column = int(x / pitchX);
    const int row = int(y / pitchY);
    const int address = column + row * columns;
    if (column >= columns || row >= rows || address >= addressesPerUniverse)
        return -1;
    return address;
}

QRect PatchView::UniverseBlock::cellRect(int address)
{
    return QRect(cellsLeft + address % columns * pitchX, cellsTop + address / columns * pitchY,
                 cellWidth, cellHeight);
}

QRectF PatchView::UniverseBlock::boundingRect() const
{
    return QRectF(0, 0, blockWidth, cellsTop + rows * pitchY - verticalGap + topMargin);
}

PatchView::UniverseBlock::CellColours PatchView::UniverseBlock::coloursOf(quint8 flags,
                                                                          int device) const
{
    if (flags & ConsoleCache::AddressPatched)
        return {patchedFill, patchedPen, patchedPen};
    if (flags & ConsoleCache::AddressDevice) {
        const bool first = flags & ConsoleCache::AddressDeviceStart;
        const bool selected = device > 0 && m_view->isDeviceSelected(device - 1);
        QColor fill = first ? (selected ? firstSelectedFill : firstFill)
                            : (selected ? otherSelectedFill : otherFill);
        if (flags & ConsoleCache::AddressConflict)
            fill = conflictFill;
        const QColor pen = first ? firstPen : otherPen;
        return {fill, pen, pen};
    }
    return {QColor(), unpatchedPen, unpatchedText};
}

const QImage& PatchView::UniverseBlock::numbers(const QColor& colour)
{
    auto found = m_numbers.find(colour.rgb());
    if (found != m_numbers.end())
        return *found;
    QImage image(columns * cellWidth, rows * cellHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(m_numberFont);
    painter.setPen(colour);
    for (int i = 0; i < addressesPerUniverse; ++i) {
        painter.drawText(
            QRect(i % columns * cellWidth, i / columns * cellHeight, cellWidth, cellHeight),
            Qt::AlignCenter, QString::number(i + 1));
    }
    painter.end();
    return *m_numbers.insert(colour.rgb(), image);
}

void PatchView::UniverseBlock::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF bounds = boundingRect();
    painter->fillRect(bounds, background);
    painter->setFont(m_titleFont);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(cellsLeft + 2, 0, bounds.width() - cellsLeft, titleHeight),
                      Qt::AlignLeft | Qt::AlignVCenter, m_title);
    const ConsoleCache* data = m_view->cache();
    if (!data)
        return;
    const auto caches = data->derivedCaches();
    const int base = m_universe * addressesPerUniverse;
    for (int i = 0; i < addressesPerUniverse; ++i) {
        const int address = base + i;
        const CellColours colours = coloursOf(caches->addressFlags[size_t(address)],
                                              caches->addressDevice[size_t(address)]);
        const QRect rect = cellRect(i);
        if (colours.fill.isValid())
            painter->fillRect(rect, colours.fill);
        const bool selected = m_view->isOutputSelected(address);
        painter->setPen(selected ? selectedBorder : colours.pen);
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
        if (selected)
            painter->drawRect(rect.adjusted(1, 1, -2, -2));
        painter->drawImage(
            rect.topLeft(), numbers(colours.text),
            QRect(i % columns * cellWidth, i / columns * cellHeight, cellWidth, cellHeight));
    }
}

void PatchView::UniverseBlock::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    m_dragArmed = false;
    event->accept();
    const int index = addressAt(event->pos());
    const ConsoleCache* data = m_view->cache();
    if (event->button() != Qt::LeftButton || index < 0 || !data)
        return;
    const int address = m_universe * addressesPerUniverse + index;
    const quint8 flags = data->addressFlags(address);
    if (!(flags & ConsoleCache::AddressDevice)) {
        m_dragArmed = m_view->pressOutput(address, event->modifiers());
        return;
    }
    if (flags & ConsoleCache::AddressConflict)
        return;
    m_dragArmed = m_view->pressDevice(data->addressDevice(address) - 1, event->modifiers());
}

void PatchView::UniverseBlock::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !m_dragArmed)
        return;
    m_dragArmed = false;
    m_view->startDrag(event->widget(), m_view->universePayload());
}

void PatchView::UniverseBlock::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    const Keyword keyword = keywordOf(event->mimeData());
    event->setAccepted(keyword == Keyword::Channels || keyword == Keyword::Devices ||
                       keyword == Keyword::Independents);
}

void PatchView::UniverseBlock::dragMoveEvent(QGraphicsSceneDragDropEvent* event)
{
    event->setAccepted(addressAt(event->pos()) >= 0);
}

void PatchView::UniverseBlock::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    const int index = addressAt(event->pos());
    if (index < 0) {
        event->ignore();
        return;
    }
    m_view->dropOnAddress(m_universe * addressesPerUniverse + index,
                          m_view->parse(event->mimeData()), event->screenPos());
    event->acceptProposedAction();
}
