// SPDX-License-Identifier: GPL-3.0-or-later
#include "Cuematrix.h"

#include "ConsoleLink.h"
#include "InsertSequenceStepDialog.h"
#include "MakeFont.h"
#include "MoveSequenceStepDialog.h"
#include "ScrollBar.h"
#include "SequenceSteps.h"
#include "ShowItemRequests.h"
#include "WholePixel.h"

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QGraphicsScene>
#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>

#include <array>
#include <cmath>

namespace {
const QString family = QStringLiteral("Gill Sans MT");
constexpr QColor liveColour(206, 194, 81);
constexpr QColor nextColour(96, 78, 215);
constexpr QColor flagFill(53, 131, 28);
constexpr QColor emptyText(128, 128, 128);
constexpr int fillAlpha = 64;
// Half the distance either side of the pointer at which a drop must see
// two different cells: the pointer sits on a boundary.
constexpr int boundaryReach = 8;
constexpr int dropShift = 5;

struct FlagBox
{
    const char* letters;
    quint8 bit;
};
constexpr std::array<FlagBox, 5> flagBoxes{
    {{"I", 0x01}, {"F", 0x02}, {"C", 0x04}, {"B", 0x08}, {"fx", 0x20}}};

const QFont& numberFont()
{
    static const QFont font = makeFont(family, 10);
    return font;
}

const QFont& smallFont()
{
    static const QFont font = makeFont(family, 8);
    return font;
}

const QFont& flagFont()
{
    static const QFont font = makeFont(family, 6);
    return font;
}

QColor typeFill(quint32 type)
{
    switch (type) {
    case ConsoleCache::StepChannel:
        return QColor(0, 255, 0, fillAlpha);
    case ConsoleCache::StepMemory:
        return QColor(255, 0, 0, fillAlpha);
    case ConsoleCache::StepDirectCue:
        return QColor(255, 255, 0, fillAlpha);
    default:
        return {};
    }
}
} // namespace

const QString Cuematrix::dragText = QStringLiteral("SequenceStep");

Cuematrix::Cuematrix(QGraphicsScene* scene, int visibleLines, QWidget* mainWindow)
    : QObject(), QGraphicsItem(), lines(visibleLines), mainWindow(mainWindow)
{
    setAcceptDrops(true);
    if (scene)
        scene->addItem(this);
    bar = new ScrollBar(this, QRectF(565, 6, 16, lines * cellHeight - 2));
    hoverTimer.setInterval(hoverScrollMs);
    connect(bar, &ScrollBar::currentLineChanged, this, &Cuematrix::scrollBarCurrentLineChanged);
    connect(&hoverTimer, &QTimer::timeout, this, &Cuematrix::scrollHoverTimerTimeout);
    connectConsole();
    refreshRange();
}

Cuematrix::~Cuematrix() = default;

void Cuematrix::connectConsole()
{
    Console* console = ConsoleLink::console();
    if (!console)
        return;
    connect(console, &Console::playLoaded, this, &Cuematrix::consoleCachePlayLoaded,
            Qt::QueuedConnection);
    connect(console, &Console::memoryUpdated, this, &Cuematrix::consoleCacheMemoryUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceUpdated, this, &Cuematrix::consoleCacheSequenceUpdated,
            Qt::QueuedConnection);
    connect(console, &Console::sequenceStepUpdated, this,
            &Cuematrix::consoleCacheSequenceStepUpdated, Qt::QueuedConnection);
    connect(console, &Console::playbackUpdated, this, &Cuematrix::consoleCachePlaybackUpdated,
            Qt::QueuedConnection);
}

void Cuematrix::setSequence(Console::Sequence sequence)
{
    if (!SequenceSteps::isValid(sequence))
        return;
    shown = sequence;
    forgetCellImages();
    update();
    refreshRange();
}

void Cuematrix::setVisibleLines(int count)
{
    prepareGeometryChange();
    lines = std::max(count, 1);
    bar->setRect(QRectF(565, 6, 16, lines * cellHeight - 2));
    refreshRange();
}

int Cuematrix::cellsPerLine() const
{
    return (width - 2 * margin) / cellWidth;
}

int Cuematrix::stepCount() const
{
    return SequenceSteps(ConsoleLink::cache(), shown).count();
}

void Cuematrix::refreshRange()
{
    const int perLine = cellsPerLine();
    bar->setLineCount((stepCount() + perLine) / perLine);
    bar->setVisibleLines(int(boundingRect().height() - 2 * margin) / cellHeight);
}

QRectF Cuematrix::boundingRect() const
{
    return QRectF(0, 0, width, lines * cellHeight + 2 * margin);
}

QRectF Cuematrix::cellRect(int index) const
{
    const int perLine = cellsPerLine();
    const int column = index % perLine;
    const int line = index / perLine - bar->currentLine();
    return QRectF(column * cellWidth + margin, line * cellHeight + margin, cellWidth, cellHeight);
}

int Cuematrix::cellAt(const QPointF& point, bool allowEnd) const
{
    if (point.x() < margin || point.y() < margin)
        return -1;
    const int perLine = cellsPerLine();
    const int column = int(point.x() - margin) / cellWidth;
    if (column >= perLine)
        return -1;
    const int index =
        (bar->currentLine() + int(point.y() - margin) / cellHeight) * perLine + column;
    const int count = stepCount();
    return index < count || (allowEnd && index == count) ? index : -1;
}

void Cuematrix::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QRectF bounds = boundingRect();
    background.draw(painter, bounds);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool cached = isWholePixelTranslation(painter->deviceTransform());
    const int count = stepCount();
    const int first = std::max(0, bar->currentLine() * cellsPerLine());
    const int last = std::min(count, first + lines * cellsPerLine() - 1);
    for (int index = first; index <= last; ++index) {
        const QRectF cell = cellRect(index);
        if (!bounds.contains(cell))
            continue;
        const Outline outline = index < count ? outlineOf(index, count) : Outline::None;
        if (cached) {
            painter->drawPixmap(cell.topLeft(),
                                index < count ? cellImage(index, outline) : emptyCellImage());
            continue;
        }
        painter->save();
        painter->translate(cell.topLeft());
        index < count ? paintStep(painter, index, outline) : paintEmpty(painter);
        painter->restore();
    }
    painter->restore();
}

Cuematrix::Outline Cuematrix::outlineOf(int index, int count) const
{
    const PlaybackRecord* playback = SequenceSteps(ConsoleLink::cache(), shown).playback();
    const int afterLive = playback ? playback->afterLiveStep : 0;
    const int next = playback ? playback->nextStep : 0;
    if (count > 0 && index == (afterLive - 1 + count) % count)
        return Outline::Live;
    return index == next ? Outline::Next : Outline::None;
}

const QPixmap& Cuematrix::cellImage(int index, Outline outline)
{
    if (cellImages.size() != std::size_t(stepCount()))
        cellImages.assign(std::size_t(stepCount()), {});
    CellImage& image = cellImages[std::size_t(index)];
    if (image.pixmap.isNull() || image.outline != outline) {
        image.pixmap = QPixmap(cellWidth, cellHeight);
        image.pixmap.fill(Qt::transparent);
        QPainter painter(&image.pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paintStep(&painter, index, outline);
        image.outline = outline;
    }
    return image.pixmap;
}

const QPixmap& Cuematrix::emptyCellImage()
{
    if (emptyImage.isNull()) {
        emptyImage = QPixmap(cellWidth, cellHeight);
        emptyImage.fill(Qt::transparent);
        QPainter painter(&emptyImage);
        painter.setRenderHint(QPainter::Antialiasing);
        paintEmpty(&painter);
    }
    return emptyImage;
}

void Cuematrix::paintStep(QPainter* painter, int index, Outline outline) const
{
    const ConsoleCache* cache = ConsoleLink::cache();
    const StepRecord* record = SequenceSteps(cache, shown).step(index);
    const QRectF frame(1.7, 1.7, cellWidth - 3.4, cellHeight - 3.4);
    const QColor fill = typeFill(record->contentType);
    painter->setPen(outline == Outline::Live   ? QPen(liveColour, 2)
                    : outline == Outline::Next ? QPen(nextColour, 2)
                                               : QPen(Qt::NoPen));
    painter->setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
    painter->drawRect(frame);
    painter->setPen(Qt::white);
    painter->setFont(numberFont());
    painter->drawText(QRectF(0, 0, cellWidth, 17), Qt::AlignCenter,
                      cache->stepNumberText(shown.page, shown.fader, index));
    painter->setFont(smallFont());
    painter->drawText(QRectF(0, 17, cellWidth, 12), Qt::AlignCenter,
                      cache->stepContentLabel(record->contentType, record->contentIndex));
    painter->setFont(flagFont());
    for (std::size_t k = 0; k < flagBoxes.size(); ++k) {
        if (!(record->flags & flagBoxes[k].bit))
            continue;
        const QRectF box(1 + 9.6 * qreal(k), 30, 7.6, 10);
        painter->fillRect(box, flagFill);
        painter->drawText(box, Qt::AlignCenter, QLatin1String(flagBoxes[k].letters));
    }
}

void Cuematrix::paintEmpty(QPainter* painter) const
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(255, 255, 255, 32));
    painter->drawRect(QRectF(1.7, 1.7, cellWidth - 3.4, cellHeight - 3.4));
    painter->setPen(emptyText);
    painter->setFont(smallFont());
    painter->drawText(QRectF(0, 17, cellWidth, 12), Qt::AlignCenter, tr("[empty]"));
}

bool Cuematrix::canInsert() const
{
    return !SequenceSteps(ConsoleLink::cache(), shown).isFull();
}

bool Cuematrix::canDelete(int index) const
{
    return index >= 0 && index < stepCount();
}

QWidget* Cuematrix::dialogParent(QWidget* widget) const
{
    return mainWindow ? mainWindow.data() : widget;
}

void Cuematrix::insertStep(int index, QWidget* widget)
{
    const SequenceSteps steps(ConsoleLink::cache(), shown);
    if (!ConsoleLink::cache() || steps.isFull() || index < 0 || index > steps.count())
        return;
    if (steps.isCrowdedAt(index, true)) {
        QMessageBox::warning(dialogParent(widget), tr("Insert step"),
                             tr("No space to insert a cue here"), QMessageBox::Ok);
        return;
    }
    InsertSequenceStepDialog dialog(dialogParent(widget), shown, index);
    dialog.exec();
}

void Cuematrix::deleteStep(int index, QWidget* widget)
{
    ConsoleCache* cache = ConsoleLink::cache();
    if (!cache || !canDelete(index))
        return;
    if (QMessageBox::question(dialogParent(widget), tr("Delete step"), tr("Are you sure?"),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) == QMessageBox::Yes)
        cache->deleteStep(shown.page, shown.fader, index);
}

void Cuematrix::openContextMenu(int index, QWidget* widget, const QPoint& screenPos)
{
    QMenu menu(widget);
    QAction* insert = menu.addAction(tr("Insert step"));
    insert->setEnabled(canInsert());
    QAction* remove = menu.addAction(tr("Delete step"));
    remove->setEnabled(canDelete(index));
    const QAction* chosen = menu.exec(screenPos);
    if (chosen == insert)
        insertStep(index, widget);
    else if (chosen == remove)
        deleteStep(index, widget);
}

bool Cuematrix::acceptsDrop(const QGraphicsSceneDragDropEvent* event) const
{
    const QMimeData* mime = event->mimeData();
    return mime && mime->hasFormat(QStringLiteral("text/plain")) &&
           mime->text().startsWith(dragText);
}

void Cuematrix::dragEnterEvent(QGraphicsSceneDragDropEvent*) {}

void Cuematrix::dragLeaveEvent(QGraphicsSceneDragDropEvent*) {}

void Cuematrix::dragMoveEvent(QGraphicsSceneDragDropEvent* event)
{
    const QPointF at = event->pos();
    const int before = cellAt(at - QPointF(boundaryReach, 0), true);
    const int after = cellAt(at + QPointF(boundaryReach, 0), true);
    event->setAccepted(acceptsDrop(event) && before != after && before != pressed &&
                       after != pressed);
}

void Cuematrix::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    ConsoleCache* cache = ConsoleLink::cache();
    const int destination = cellAt(event->pos() + QPointF(dropShift, 0), true);
    const SequenceSteps steps(cache, shown);
    if (!cache || !acceptsDrop(event) || destination < 0 || !steps.step(pressed) ||
        destination == pressed || destination == pressed + 1) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    if (!shown.isStack()) {
        cache->moveStep(shown.page, shown.fader, pressed, destination, 0);
        return;
    }
    if (steps.isCrowdedAt(destination, false)) {
        QMessageBox::warning(dialogParent(event->widget()), tr("Move step"),
                             tr("No space to move a cue here"), QMessageBox::Ok);
        return;
    }
    MoveSequenceStepDialog dialog(dialogParent(event->widget()), shown, pressed, destination);
    dialog.exec();
}

void Cuematrix::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        const int index = cellAt(event->pos(), false);
        isPressed = index >= 0;
        if (isPressed)
            pressed = index;
    }
    event->accept();
}

void Cuematrix::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton) || !isPressed || !event->widget())
        return;
    if ((event->screenPos() - event->buttonDownScreenPos(Qt::LeftButton)).manhattanLength() <
        QApplication::startDragDistance())
        return;
    runDrag(event->widget());
}

void Cuematrix::runDrag(QWidget* widget)
{
    auto* drag = new QDrag(widget);
    auto* mime = new QMimeData;
    mime->setText(dragText);
    drag->setMimeData(mime);
    dragWidget = widget;
    hoverTimer.start();
    drag->exec(Qt::MoveAction);
    hoverTimer.stop();
    dragWidget = nullptr;
    isPressed = false;
}

void Cuematrix::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    isPressed = false;
    if (event->button() != Qt::RightButton)
        return;
    const int index = cellAt(event->pos(), true);
    if (index >= 0 && ConsoleLink::cache())
        openContextMenu(index, event->widget(), event->screenPos());
}

void Cuematrix::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const ConsoleCache* cache = ConsoleLink::cache();
    const int index = cellAt(event->pos(), false);
    const StepRecord* record = SequenceSteps(cache, shown).step(index);
    if (!record || !mainWindow)
        return;
    int page = -1;
    int memory = index;
    if (record->contentType == ConsoleCache::StepMemory) {
        const int perPage = cache->faderCount();
        if (perPage <= 0)
            return;
        page = record->contentIndex / perPage;
        memory = record->contentIndex % perPage;
    } else if (record->contentType != ConsoleCache::StepDirectCue) {
        return;
    }
    if (ShowItemRequests* requests = ShowItemRequests::of(mainWindow))
        requests->showMemory(page, memory);
}

void Cuematrix::scrollHoverTimerTimeout()
{
    auto* view = dragWidget ? qobject_cast<QGraphicsView*>(dragWidget->parentWidget()) : nullptr;
    if (!view)
        return;
    const QPointF at = mapFromScene(view->mapToScene(dragWidget->mapFromGlobal(QCursor::pos())));
    const int current = bar->currentLine();
    if (at.y() < hoverZone && current > 0)
        bar->setCurrentLine(current - 1);
    else if (at.y() > boundingRect().height() - hoverZone &&
             current < bar->lineCount() - bar->visibleLines())
        bar->setCurrentLine(current + 1);
}

void Cuematrix::consoleCachePlayLoaded()
{
    forgetCellImages();
    update();
    refreshRange();
}

void Cuematrix::consoleCacheMemoryUpdated(Console::Memory)
{
    // A stack cue's change comes as a memory change of page -1.
    forgetCellImages();
    update();
}

void Cuematrix::consoleCacheSequenceUpdated(Console::Sequence sequence)
{
    if (sequence != shown)
        return;
    forgetCellImages();
    update();
    refreshRange();
}

void Cuematrix::consoleCacheSequenceStepUpdated(Console::Sequence sequence, int)
{
    if (sequence == shown) {
        forgetCellImages();
        update();
    }
}

void Cuematrix::consoleCachePlaybackUpdated()
{
    update();
}

void Cuematrix::scrollBarCurrentLineChanged(int)
{
    update();
}
