// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BlockBackground.h"
#include "Console.h"

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

#include <vector>

class ScrollBar;
class QWidget;

// Every step of one sequence (or of the stack) as a grid of small cells,
// scrolled by lines. Steps are inserted and deleted from its context menu
// and moved by drag and drop; a double-click opens a memory step's memory.
class Cuematrix : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    static constexpr int cellWidth = 50;
    static constexpr int cellHeight = 42;
    static constexpr int margin = 5;
    static constexpr int width = 587;
    static constexpr int hoverScrollMs = 150;
    static constexpr int hoverZone = 20;
    // Mime text a step drag carries.
    static const QString dragText;

    // mainWindow: where dialogs open and whose ShowItemRequests a
    // double-click on a memory step uses; may be null.
    Cuematrix(QGraphicsScene* scene, int visibleLines, QWidget* mainWindow);
    ~Cuematrix() override;

    Console::Sequence sequence() const { return shown; }
    void setSequence(Console::Sequence sequence);
    int visibleLines() const { return lines; }
    void setVisibleLines(int count);
    ScrollBar* scrollBar() const { return bar; }

    int cellsPerLine() const;
    int stepCount() const;
    QRectF cellRect(int index) const;
    // The cell under a point, -1 for none; allowEnd admits the place after
    // the last step.
    int cellAt(const QPointF& point, bool allowEnd) const;
    int pressedIndex() const { return pressed; }
    bool isHoverScrolling() const { return hoverTimer.isActive(); }

    // The context menu's two actions at a cell.
    void insertStep(int index, QWidget* widget);
    void deleteStep(int index, QWidget* widget);
    // Whether the context menu offers them.
    bool canInsert() const;
    bool canDelete(int index) const;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheMemoryUpdated(Console::Memory memory);
    void consoleCacheSequenceUpdated(Console::Sequence sequence);
    void consoleCacheSequenceStepUpdated(Console::Sequence sequence, int step);
    void consoleCachePlaybackUpdated();
    void scrollBarCurrentLineChanged(int line);
    void scrollHoverTimerTimeout();

protected:
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragLeaveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragMoveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void connectConsole();
    void refreshRange();
    bool acceptsDrop(const QGraphicsSceneDragDropEvent* event) const;
    void runDrag(QWidget* widget);
    void openContextMenu(int index, QWidget* widget, const QPoint& screenPos);
    QWidget* dialogParent(QWidget* widget) const;
    // How a step cell is outlined: as LIVE, as NEXT, or not.
    enum class Outline
    {
        None,
        Live,
        Next
    };
    Outline outlineOf(int index, int count) const;
    void paintStep(QPainter* painter, int index, Outline outline) const;
    void paintEmpty(QPainter* painter) const;
    // The step cell drawn once, redrawn when its step or outline changes.
    const QPixmap& cellImage(int index, Outline outline);
    const QPixmap& emptyCellImage();
    void forgetCellImages() { cellImages.clear(); }

    Console::Sequence shown;
    int lines;
    QPointer<QWidget> mainWindow;
    ScrollBar* bar = nullptr;
    QTimer hoverTimer;
    int pressed = -1;
    bool isPressed = false;
    QPointer<QWidget> dragWidget;
    struct CellImage
    {
        QPixmap pixmap;
        Outline outline = Outline::None;
    };
    // By step index; a frame repaints every visible cell at the playback rate.
    std::vector<CellImage> cellImages;
    QPixmap emptyImage;
    BlockBackground background;
};
