// SPDX-License-Identifier: GPL-3.0-or-later
#include "DMXView.h"

#include "Console.h"
#include "ConsoleLink.h"
#include "EditorViewLook.h"
#include "MakeFont.h"
#include "TitleBar.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

#include <cmath>

namespace {

constexpr qreal slotFrameLeft = 1.3;
constexpr qreal slotFrameTop = 1.3;
constexpr qreal slotFrameWidth = 32.4;
constexpr qreal slotFrameHeight = 25.4;
constexpr qreal numberHeight = 9;
constexpr int blockTop = 5;

const QRectF slotFrame(slotFrameLeft, slotFrameTop, slotFrameWidth, slotFrameHeight);

} // namespace

DMXView::UniverseBlock::UniverseBlock(int index, bool maple)
    : m_index(index), m_maple(maple), m_titleFont(makeFont(QStringLiteral("Gill Sans MT"), 11)),
      m_valueFont(makeFont(QStringLiteral("Gill Sans MT"), 11)),
      m_texts(std::make_unique<std::array<CellText, slotCount>>())
{
    setFlag(ItemUsesExtendedStyleOption);
    if (maple)
        m_title = DMXView::tr("Universe") + QLatin1Char(' ') + QString::number(index + 1);
    else
        m_title = index == 0 ? DMXView::tr("Output") : DMXView::tr("Input");
    paintBackground();
    m_shown.fill(0);
}

int DMXView::UniverseBlock::value(int slot) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const ConsoleStateRecord* record = cache ? cache->record() : nullptr;
    if (!record || slot < 0 || slot >= slotCount)
        return 0;
    if (m_index == 0 || m_maple)
        return record->dmxOutput[m_index * slotCount + slot];
    return record->dmxInput[slot];
}

QPointF DMXView::UniverseBlock::slotOrigin(int slot)
{
    return QPointF(headerWidth + (slot % slotsPerRow) * slotWidth,
                   (slot / slotsPerRow) * slotHeight);
}

QRectF DMXView::UniverseBlock::boundingRect() const
{
    return QRectF(0, 0, headerWidth + slotsPerRow * slotWidth,
                  (slotCount / slotsPerRow) * slotHeight);
}

// Frames, slot numbers and the title never change: drawn once.
void DMXView::UniverseBlock::paintBackground()
{
    m_background = QPixmap(boundingRect().size().toSize());
    m_background.fill(Qt::transparent);
    QPainter painter(&m_background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_titleFont);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(4, 0, headerWidth - 8, slotHeight), Qt::AlignLeft | Qt::AlignVCenter,
                     m_title);
    const QFont numberFont = makeFont(QStringLiteral("Gill Sans MT"), 6);
    painter.setFont(numberFont);
    for (int slot = 0; slot < slotCount; ++slot) {
        painter.save();
        painter.translate(slotOrigin(slot));
        painter.setPen(QColor(150, 150, 150));
        painter.setBrush(QColor(0, 0, 0, 60));
        painter.drawRoundedRect(slotFrame, 250.0 / (slotFrameWidth / 2),
                                250.0 / (slotFrameHeight / 2), Qt::RelativeSize);
        painter.setPen(QColor(128, 128, 128));
        painter.drawText(QRectF(slotFrameLeft, slotFrameTop, slotFrameWidth, numberHeight),
                         Qt::AlignCenter, QString::number(slot + 1));
        painter.restore();
    }
}

void DMXView::UniverseBlock::paintValue(QPainter* painter, int slot, int level)
{
    if (level <= 0)
        return;
    const QPointF origin = slotOrigin(slot);
    const QRectF textArea(origin.x() + slotFrameLeft, origin.y() + slotFrameTop + numberHeight - 1,
                          slotFrameWidth, slotFrameHeight - numberHeight + 1);
    (*m_texts)[std::size_t(slot)].draw(painter, textArea, Qt::AlignCenter,
                                       ConsoleCache::formatLevel(level, true), m_valueFont,
                                       Qt::white);
    const qreal height = (slotFrameHeight - 6) * level / 255;
    const qreal foot = origin.y() + slotFrameTop + slotFrameHeight - 3;
    painter->fillRect(QRectF(origin.x() + slotFrameLeft + 4, foot - height, 4, height),
                      QColor(255, 255, 255, 230));
}

void DMXView::UniverseBlock::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                   QWidget*)
{
    const QRectF exposed = option->exposedRect.isEmpty() ? boundingRect() : option->exposedRect;
    painter->drawPixmap(exposed, m_background, exposed);
    const int firstRow = std::max(0, int(exposed.top()) / slotHeight);
    const int lastRow =
        std::min(slotCount / slotsPerRow - 1, int(std::ceil(exposed.bottom())) / slotHeight);
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int column = 0; column < slotsPerRow; ++column) {
            const int slot = row * slotsPerRow + column;
            const QRectF area(slotOrigin(slot), QSizeF(slotWidth, slotHeight));
            if (!area.intersects(exposed))
                continue;
            const int level = value(slot);
            m_shown[std::size_t(slot)] = level;
            paintValue(painter, slot, level);
        }
    }
}

void DMXView::UniverseBlock::refresh()
{
    for (int slot = 0; slot < slotCount; ++slot) {
        if (value(slot) != m_shown[std::size_t(slot)])
            update(QRectF(slotOrigin(slot), QSizeF(slotWidth, slotHeight)));
    }
}

DMXView::DMXView(QWidget* parent, TitleBar* bar)
    : QGraphicsView(parent), m_bar(bar),
      m_maple(ConsoleLink::consoleType() == ConsoleCache::ModelMaple)
{
    EditorViewLook::apply(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    setScene(&m_scene);
    qreal top = blockTop;
    for (int index = 0; index < 2; ++index) {
        auto* block = new UniverseBlock(index, m_maple);
        m_scene.addItem(block);
        block->setPos(0, top);
        top += block->boundingRect().height();
        m_blocks[std::size_t(index)] = block;
    }
    m_scene.setSceneRect(m_scene.itemsBoundingRect().united(QRectF(0, 0, 1, top)));
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::outputsUpdated, this, &DMXView::consoleCacheOutputsUpdated,
                Qt::QueuedConnection);
        connect(console, &Console::inputsUpdated, this, &DMXView::consoleCacheInputsUpdated,
                Qt::QueuedConnection);
    }
}

DMXView::~DMXView()
{
    setScene(nullptr);
}

QString DMXView::title()
{
    return m_maple ? tr("DMX Outputs") : tr("DMX In/Out");
}

void DMXView::activate()
{
    show();
    if (m_bar)
        m_bar->hideViewButtons();
}

void DMXView::consoleCacheOutputsUpdated()
{
    m_blocks[0]->refresh();
    if (m_maple)
        m_blocks[1]->refresh();
}

void DMXView::consoleCacheInputsUpdated()
{
    if (!m_maple)
        m_blocks[1]->refresh();
}
