// SPDX-License-Identifier: GPL-3.0-or-later
#include "MLButtonRow.h"

#include "Console.h"
#include "ConsoleButton.h"
#include "ConsoleLink.h"
#include "InPlaceEditableText.h"
#include "MakeFont.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMenu>
#include <QPainter>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr QRectF pageNameRect(937, 14, 132, 11);
constexpr int captionY = 33;
constexpr QColor captionColour(125, 125, 125);

struct Key
{
    const char* label;
    int code;
    int x;
};
constexpr Key keyTable[] = {
    {QT_TRANSLATE_NOOP("MLButtonRow", "FOCUS"), 49, 80},
    {QT_TRANSLATE_NOOP("MLButtonRow", "COLOR"), 50, 129},
    {QT_TRANSLATE_NOOP("MLButtonRow", "BEAM"), 51, 178},
    {QT_TRANSLATE_NOOP("MLButtonRow", "GROUP"), 54, 251},
    {QT_TRANSLATE_NOOP("MLButtonRow", "DEV SEL"), 57, 300},
    {QT_TRANSLATE_NOOP("MLButtonRow", "EFFECT"), 58, 373},
    {QT_TRANSLATE_NOOP("MLButtonRow", "HIGH LIGHT"), 53, 471},
    {QT_TRANSLATE_NOOP("MLButtonRow", "INT A"), 65, 595},
    {QT_TRANSLATE_NOOP("MLButtonRow", "INT B"), 66, 644},
    {QT_TRANSLATE_NOOP("MLButtonRow", "INT DEVICE"), 64, 693},
    {QT_TRANSLATE_NOOP("MLButtonRow", "PARAM 1"), 67, 766},
    {QT_TRANSLATE_NOOP("MLButtonRow", "PARAM 2"), 68, 815},
    {QT_TRANSLATE_NOOP("MLButtonRow", "MEMS"), 63, 888},
    {QT_TRANSLATE_NOOP("MLButtonRow", "INT ONLY"), 62, 1085},
    {QT_TRANSLATE_NOOP("MLButtonRow", "GO MODE"), 60, 1134},
};

bool isPage(int page)
{
    return page >= 0 && page < ConsoleStateRecord::pages;
}
} // namespace

MLButtonRow::MLButtonRow(QGraphicsScene* scene)
{
    if (scene)
        scene->addItem(this);
    for (const Key& key : keyTable) {
        auto* button = new ConsoleButton(this, nullptr, key.code, tr(key.label));
        button->setPos(key.x, 0);
        buttons << button;
    }
    pageName = new InPlaceEditableText(this, this, pageNameRect, 18, 8, Qt::white,
                                       Qt::AlignLeft | Qt::AlignVCenter);
    addCaption(tr("SELECT MODE"), 80, 408);
    addCaption(tr("FADER MODE"), 595, 923);
    addCaption(tr("MEMS MODE"), 1085, 1169);
    if (const ConsoleCache* cache = ConsoleLink::cache())
        page = cache->record()->memoryPage;
    reloadPageName();
    if (Console* console = ConsoleLink::console()) {
        connect(console, &Console::consoleStatusUpdated, this,
                &MLButtonRow::consoleCacheConsoleStatusUpdated, Qt::QueuedConnection);
        connect(console, &Console::pageUpdated, this, &MLButtonRow::consoleCachePageUpdated,
                Qt::QueuedConnection);
    }
}

MLButtonRow::~MLButtonRow() = default;

QRectF MLButtonRow::pageArea()
{
    return QRectF(pageNameRect.left(), 0, pageNameRect.width(), 60);
}

QRectF MLButtonRow::boundingRect() const
{
    return QRectF(0, 0, 1180, 60);
}

const QFont& MLButtonRow::captionFont()
{
    static const QFont font = makeFont(family, 9);
    return font;
}

void MLButtonRow::addCaption(const QString& text, int x1, int x2)
{
    const int textWidth = QFontMetrics(captionFont()).horizontalAdvance(text) + 8;
    const QRectF box((x1 + x2 - textWidth) / 2.0, captionY - 20, textWidth, 40);
    captions << Caption{text, box, qreal(x1), qreal(x2)};
}

void MLButtonRow::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setFont(captionFont());
    painter->setPen(QPen(captionColour, 2));
    for (const Caption& caption : std::as_const(captions)) {
        painter->drawLine(QPointF(caption.x1, captionY), QPointF(caption.box.left(), captionY));
        painter->drawLine(QPointF(caption.box.right(), captionY), QPointF(caption.x2, captionY));
        painter->drawText(caption.box, Qt::AlignCenter, caption.text);
    }
    painter->setPen(Qt::white);
    painter->drawText(QRectF(pageNameRect.left(), captionY - 6, pageNameRect.width(), 14),
                      Qt::AlignCenter, pageLabel);
}

void MLButtonRow::reloadPageName()
{
    pageLabel = tr("PAGE") + QLatin1Char(' ') + QString::number(page + 1);
    const ConsoleCache* cache = ConsoleLink::cache();
    const bool valid = cache && isPage(page);
    pageName->setText(valid ? cache->pageName(page, ConsoleCache::wholeBlock) : QString());
    pageName->setEditable(valid);
}

void MLButtonRow::textChanged(InPlaceEditableText* item, const QString& text)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (cache && item == pageName && isPage(page))
        cache->setPageName(page, ConsoleCache::wholeBlock, text);
}

void MLButtonRow::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !pageArea().contains(event->pos())) {
        event->ignore();
        return;
    }
    QMenu menu;
    for (int p = 0; p < ConsoleStateRecord::pages; ++p) {
        QAction* action = menu.addAction(QString::number(p + 1) + QLatin1Char(' ') +
                                         cache->pageName(p, ConsoleCache::wholeBlock));
        action->setData(p);
    }
    if (const QAction* chosen = menu.exec(event->screenPos()))
        cache->selectPage(chosen->data().toInt());
}

void MLButtonRow::consoleCacheConsoleStatusUpdated()
{
    const ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || cache->record()->memoryPage == page)
        return;
    page = cache->record()->memoryPage;
    reloadPageName();
    update();
}

void MLButtonRow::consoleCachePageUpdated(int)
{
    reloadPageName();
}
