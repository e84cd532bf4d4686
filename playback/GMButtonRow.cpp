// SPDX-License-Identifier: GPL-3.0-or-later
#include "GMButtonRow.h"

#include "Console.h"
#include "ConsoleButton.h"
#include "ConsoleLink.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"

#include <QGraphicsScene>
#include <QPainter>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr int keyX = 10;
constexpr int columnWidth = 55;
constexpr int pageNameTop = 445;
constexpr int lineHeight = 12;
constexpr int pageLabelY = 430;
constexpr int grandMasterY = 225;
constexpr int bumpY = 307;
constexpr int valueHeight = 20;
constexpr int mapleHeight = 360;
constexpr QColor grandMasterColour(56, 114, 248);
constexpr QColor bumpColour(107, 107, 107);
constexpr QColor separatorColour(255, 255, 255, 48);

} // namespace

GMButtonRow::GMButtonRow(QGraphicsScene* scene)
{
    if (scene)
        scene->addItem(this);
    const ConsoleCache* cache = ConsoleLink::cache();
    const int model = cache ? int(cache->consoleType()) : int(ConsoleCache::ModelUnknown);
    maple = model == ConsoleCache::ModelMaple;
    const bool wideFaders = model == ConsoleCache::ModelBirch || model == ConsoleCache::ModelCedar;
    const int independentTop = wideFaders ? 102 : 52;
    addKey(tr("IND 1"), 95, independentTop);
    addKey(tr("IND 2"), 96, independentTop + 37);
    addKey(tr("BLACK OUT"), 87, 247);
    addKey(tr("SOLO"), 86, 329);
    if (!maple) {
        addKey(tr("MEMS"), 63, 391);
        addKey(wideFaders ? tr("49-96") : tr("25-48"), 66, 499);
        addKey(wideFaders ? tr("1-48") : tr("1-24"), 65, 544);
        for (int k = 0; k < 3; ++k)
            pageItems << new InPlaceEditableText(
                this, this, QRectF(0, pageNameTop + lineHeight * k, columnWidth, lineHeight), 6, 8,
                Qt::white, Qt::AlignCenter);
    }
    if (cache)
        page = cache->record()->memoryPage;
    reloadPageNames();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::faderUpdated, this, &GMButtonRow::consoleCacheFaderUpdated,
                Qt::QueuedConnection);
        connect(console, &Console::consoleStatusUpdated, this,
                &GMButtonRow::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
        connect(console, &Console::pageUpdated, this, &GMButtonRow::consoleCachePageUpdated,
                Qt::QueuedConnection);
    }
}

GMButtonRow::~GMButtonRow() = default;

void GMButtonRow::addKey(const QString& label, int key, int y)
{
    auto* button = new ConsoleButton(this, nullptr, key, label);
    button->setPos(keyX, y);
    buttons << button;
}

QString GMButtonRow::levelText(int level)
{
    return ConsoleCache::formatLevel(level, true);
}

QRectF GMButtonRow::boundingRect() const
{
    // The page label sits below the keys' column; it is repainted with it.
    return maple ? QRectF(0, 0, columnWidth, mapleHeight)
                 : QRectF(0, 0, columnWidth, pageNameTop + 3 * lineHeight);
}

void GMButtonRow::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setPen(QPen(separatorColour, 2));
    // The Maple has no keys under SOLO, so no separator below it either.
    for (const int y : {200, 282, 364}) {
        if (!maple || y < mapleHeight)
            painter->drawLine(5, y, columnWidth - 5, y);
    }

    const ConsoleCache* cache = ConsoleLink::cache();
    const int grandMaster = cache ? cache->record()->grandMasterLevel : 0;
    const int bump = cache ? cache->record()->bumpLevel : 0;
    // Built once: these items repaint on every level change.
    static const QFont captionFont = makeFont(family, 9);
    static const QFont valueFont = makeFont(family, 11, true);
    painter->setFont(captionFont);
    painter->setPen(Qt::white);
    painter->drawText(QRectF(0, grandMasterY - valueHeight, columnWidth, valueHeight),
                      Qt::AlignCenter, tr("GM"));
    painter->drawText(QRectF(0, bumpY - valueHeight, columnWidth, valueHeight), Qt::AlignCenter,
                      tr("BUMPS"));
    painter->setFont(valueFont);
    painter->setPen(grandMasterColour);
    painter->drawText(QRectF(0, grandMasterY, columnWidth, valueHeight), Qt::AlignCenter,
                      levelText(grandMaster));
    painter->setPen(bumpColour);
    painter->drawText(QRectF(0, bumpY, columnWidth, valueHeight), Qt::AlignCenter, levelText(bump));
    if (!maple) {
        painter->setFont(captionFont);
        painter->setPen(Qt::white);
        painter->drawText(QRectF(0, pageLabelY, columnWidth, lineHeight + 2), Qt::AlignCenter,
                          tr("PAGE") + QLatin1Char(' ') + QString::number(page + 1));
    }
}

void GMButtonRow::reloadPageNames()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const bool valid = cache && page >= 0 && page < ConsoleStateRecord::pages;
    for (int k = 0; k < pageItems.size(); ++k) {
        pageItems[k]->setText(valid ? cache->pageName(page, k) : QString());
        pageItems[k]->setEditable(valid);
    }
}

void GMButtonRow::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const int line = int(pageItems.indexOf(item));
    if (cache && line >= 0 && page >= 0 && page < ConsoleStateRecord::pages)
        cache->setPageName(page, line, text);
}

void GMButtonRow::consoleCacheFaderUpdated()
{
    update();
}

void GMButtonRow::consoleCacheConsoleStatusUpdated()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || cache->record()->memoryPage == page)
        return;
    page = cache->record()->memoryPage;
    reloadPageNames();
    update();
}

void GMButtonRow::consoleCachePageUpdated(int)
{
    reloadPageNames();
}
