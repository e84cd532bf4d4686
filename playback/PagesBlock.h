// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Cell.h"
#include "CellRow.h"
#include "CellRowTable.h"
#include "Console.h"
#include "InPlaceEditableTextHandler.h"

#include <QObject>

#include <array>

class InPlaceEditableText;
class PagesBlockHandler;

// One row per page and one column per fader: each cell shows the memory or
// the sequence stored on that fader of that page, and each row header the
// page's name. A double-click asks the owning view to open what it holds.
class PagesBlock : public QObject, public CellRowTable
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    static constexpr int pages = ConsoleStateRecord::pages;
    static constexpr int maxFaders = ConsoleStateRecord::maxFaders;
    static constexpr int maxLines = 3;

    // The header row that names the page rows.
    class FaderNameRow : public CellRow
    {
    public:
        explicit FaderNameRow(PagesBlock* block);
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
    };

    // The empty cells of the header row, which only give it its height.
    class FaderNameCell : public Cell
    {
    public:
        explicit FaderNameCell(CellRow* row);
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
    };

    // A page: its number and, in the header, its name lines.
    class MasterRow : public CellRow, public InPlaceEditableTextHandler
    {
    public:
        MasterRow(PagesBlock* block, int page);
        int page() const { return pageIndex; }
        InPlaceEditableText* nameItem(int line) const { return names[std::size_t(line)]; }
        void refresh();
        // Cells changed height: the row follows.
        void heightChanged() { prepareGeometryChange(); }

        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    private:
        PagesBlock* block;
        int pageIndex;
        std::array<InPlaceEditableText*, maxLines> names{};
    };

    // The memory or sequence on one fader of one page.
    class MasterCell : public Cell, public InPlaceEditableTextHandler
    {
    public:
        static constexpr int timeItem = 3;

        MasterCell(MasterRow* row, PagesBlock* block, int page, int fader);
        int page() const { return pageIndex; }
        int fader() const { return faderIndex; }
        Console::Sequence sequence() const { return sequenceKey; }
        QString label() const { return text; }
        InPlaceEditableText* item(int index) const { return items[std::size_t(index)]; }
        // Holds a sequence with steps.
        bool holdsSequence() const;
        bool holdsMemory() const;
        // Painted (and opened) as the sequence rather than the memory.
        bool showsSequence() const;
        bool isActive() const;
        void refresh();
        void heightChanged() { prepareGeometryChange(); }

        qreal height() const override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    protected:
        void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
        void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
        void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

    private:
        void paintSequence(QPainter* painter, const QRectF& frame);
        void paintMemory(QPainter* painter, const QRectF& frame);
        void hideAll();
        void readMarks();

        PagesBlock* block;
        int pageIndex;
        int faderIndex;
        Console::Sequence sequenceKey;
        QString text;
        std::array<InPlaceEditableText*, 4> items{};
        // The boxed marks of the sequence's settings and of the memory's
        // contents, read with the texts rather than on every paint.
        QStringList sequenceMarks;
        QStringList memoryFlags;
    };

    PagesBlock(QGraphicsScene* scene, PagesBlockHandler* handler, int first, int count, int mode,
               bool msMode);
    ~PagesBlock() override;

    PagesBlockHandler* handler() const { return owner; }
    int first() const { return firstFader; }
    int count() const { return faderTotal; }
    int mode() const { return blockMode; }
    bool msMode() const { return ms; }
    bool timeMode() const { return timed; }
    int lineCount() const { return lines; }
    MasterRow* masterRow(int page) const { return masterRows[std::size_t(page)]; }
    // The cell of a page and a fader of the console, null outside the block.
    MasterCell* cell(int page, int fader) const;

    void setMsMode(bool on);
    void setTimeMode(bool on);
    void setLineCount(int count);
    void refreshAll();

public slots:
    void consoleCachePlayLoaded();
    void consoleCachePageUpdated(int page);
    void consoleCacheMemoryUpdated(Console::Memory memory);
    void consoleCacheSequenceUpdated(Console::Sequence sequence);
    void consoleCacheFaderUpdated();

private:
    void connectConsole();
    void repaintCells();

    PagesBlockHandler* owner;
    int firstFader;
    int faderTotal;
    int blockMode;
    bool ms;
    bool timed = false;
    int lines = maxLines;
    std::array<MasterRow*, pages> masterRows{};
    std::array<std::array<MasterCell*, maxFaders>, pages> cells{};
};
