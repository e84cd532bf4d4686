// SPDX-License-Identifier: GPL-3.0-or-later
#include "MemoriesViewFeature.h"

#include "ConsoleLink.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"
#include "MemoriesView.h"

#include <QCursor>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMenu>
#include <QPixmap>

#include <algorithm>

namespace {
constexpr float timePoints = 11;
constexpr int timeLength = 5; // up to "99:59"
constexpr int clockSize = 12;
constexpr int timeTextLeft = 16;
constexpr int timeGap = 16;
} // namespace

MemoriesViewFeature::MemoriesViewFeature(QWidget* parent, MemoriesView* view, bool withTime)
    : QWidget(parent), m_view(view), m_label(this)
{
    m_label.setTextFormat(Qt::RichText);
    connect(&m_label, &QLabel::linkActivated, this, &MemoriesViewFeature::linkActivated);

    if (withTime) {
        m_timeScene = new QGraphicsScene(this);
        m_timeView = new QGraphicsView(m_timeScene, this);
        m_timeView->setFrameShape(QFrame::NoFrame);
        m_timeView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_timeView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_timeView->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        m_timeView->setStyleSheet(QStringLiteral("background: transparent"));
        auto* clock = m_timeScene->addPixmap(
            QPixmap::fromImage(ConsoleLink::image(Resources::Id::ClockLarge)));
        clock->setPos(0, 0);
        m_timeItem = new InPlaceEditableText(m_timeScene, this,
                                             QRectF(timeTextLeft, -4, timeWidth - timeTextLeft, 20),
                                             timeLength, timePoints, Qt::white, Qt::AlignLeft);
        m_timeScene->setSceneRect(0, 0, timeWidth, clockSize + 8);
    }
    refresh();
}

MemoriesViewFeature::~MemoriesViewFeature() = default;

void MemoriesViewFeature::refresh()
{
    if (!m_view)
        return;
    m_label.setText(m_view->headerText());
    layOut();
    if (!m_timeItem)
        return;
    const Console::Memory memory = m_view->currentMemory();
    const ConsoleCache* cache = m_view->cache();
    const bool hasTime = !memory.isStackCue();
    m_timeItem->setText(
        hasTime ? ConsoleCache::timeText(quint16(cache->memoryTime(memory.page, memory.index)))
                : QString());
    m_timeItem->setEditable(hasTime);
}

void MemoriesViewFeature::textChanged(InPlaceEditableText* item, const QString& text)
{
    handleTextChanged(item, text);
}

void MemoriesViewFeature::handleTextChanged(InPlaceEditableText* item, const QString& text)
{
    if (item == m_timeItem && m_view)
        m_view->setCurrentMemoryTime(text);
    refresh();
}

void MemoriesViewFeature::linkActivated(const QString&)
{
    if (!m_view)
        return;
    QMenu* menu = m_view->createMemoryMenu(this);
    const QAction* picked = menu->exec(QCursor::pos());
    const QString data = picked ? picked->data().toString() : QString();
    delete menu;
    if (!data.isEmpty() && m_view)
        m_view->menuItemPicked(data);
}

void MemoriesViewFeature::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOut();
}

void MemoriesViewFeature::layOut()
{
    if (!m_timeView) {
        m_label.setGeometry(0, 0, width(), height());
        return;
    }
    // The time sits right after the memory's name.
    const int labelWidth =
        std::clamp(m_label.sizeHint().width() + timeGap, 0, std::max(0, width() - timeWidth));
    m_label.setGeometry(0, 0, labelWidth, height());
    m_timeView->setGeometry(labelWidth, (height() - clockSize) / 2 - 4, timeWidth, clockSize + 8);
}
