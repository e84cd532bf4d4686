// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BlockBackground.h"
#include "CellText.h"
#include "Console.h"
#include "DropdownHandler.h"
#include "InPlaceEditableTextHandler.h"

#include <QFont>
#include <QGraphicsItem>
#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <vector>

class ConsoleButton;
class ConsoleCache;
class Dropdown;
class InPlaceEditableText;

// The steps of one sequence (or of the stack) around its live position: the
// step before LIVE, the LIVE step, the NEXT step and the steps after it.
// Times, and the text of direct-cue steps, are edited in place.
class Cuelist : public QObject,
                public QGraphicsItem,
                public InPlaceEditableTextHandler,
                public DropdownHandler
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    static constexpr int columnCount = 9;
    static constexpr int headerHeight = 16;
    static constexpr int rowHeight = 21;
    static constexpr int liveRow = 1;
    static constexpr int nextRow = 2;
    static constexpr int nextKey = 77;
    // Flag bit 4: the step moves in dark.
    static constexpr quint8 darkBit = 0x10;

    enum Column : int
    {
        ModeColumn = 0,
        StepColumn,
        TypeColumn,
        ContentColumn,
        UpColumn,
        DownColumn,
        WaitColumn,
        MoveColumn,
        AffectsColumn
    };
    // The in-place texts of a row.
    enum TextList : int
    {
        ContentText = 0,
        UpText,
        DownText,
        WaitText,
        textListCount
    };

    struct ColumnLayout
    {
        const char* title;
        int width;
        int x;
    };

    // The texts of one row for painting, read when the steps change; each
    // keeps its rendering, since a running fade repaints the list often.
    struct RowView
    {
        bool valid = false;
        QString number;
        QString label;
        quint8 flags = 0;
        CellText numberText;
        CellText labelText;
        CellText darkText;
        std::array<CellText, 5> flagTexts;
    };

    Cuelist(QGraphicsScene* scene, int rows, bool showDetails, float extraHeight = 0);
    ~Cuelist() override;

    // Step shown in a row, or -1: rows 0 and 1 count from the step after
    // LIVE, the others from NEXT; a LIVE step before the first wraps to the
    // last.
    static int stepOfRow(int row, int rowCount, int nextStep, int afterLiveStep, int stepCount);
    int stepOfRow(int row) const;

    const ColumnLayout& column(int index) const { return columns[std::size_t(index)]; }
    int rowCount() const { return rows; }
    void setRowCount(int count);
    bool showsDetails() const { return details; }
    Console::Sequence sequence() const { return shown; }
    void setSequence(Console::Sequence sequence);
    int nextStep() const { return next; }
    int afterLiveStep() const { return afterLive; }
    int stepCount() const;

    InPlaceEditableText* text(TextList list, int row) const;
    Dropdown* modeDropdown() const { return mode; }
    ConsoleButton* nextButton() const { return nextKeyButton; }
    // Stores a mode (0 Loop, 1 One Shot, 2 Manual) for the shown sequence.
    void chooseMode(int newMode);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void textChanged(InPlaceEditableText* item, const QString& text) override;
    void dropdownClicked(Dropdown* dropdown, QWidget* widget) override;

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCacheMemoryUpdated(Console::Memory memory);
    void consoleCacheSequenceUpdated(Console::Sequence sequence);
    void consoleCacheSequenceStepUpdated(Console::Sequence sequence, int step);
    void consoleCachePlaybackUpdated();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void connectConsole();
    // Re-reads the live bytes; true when one changed.
    bool readPlayback();
    void refreshRows();
    void refreshModeLabel();
    void refreshAndRepaint();
    void paintHeader(QPainter* painter);
    void paintBands(QPainter* painter) const;
    void paintRow(QPainter* painter, int row);
    QRectF cellRect(int column, int row) const;
    StepRecord* stepRecord(int step) const;
    static QString modeName(int mode);

    std::array<ColumnLayout, columnCount> columns{};
    int rows = 0;
    bool details;
    float extra;
    Console::Sequence shown;
    int next = 0;
    int afterLive = 0;
    std::array<QList<InPlaceEditableText*>, textListCount> texts;
    std::vector<RowView> rowViews;
    std::array<CellText, columnCount> headerTexts;
    BlockBackground background;
    CellText liveText;
    CellText nextText;
    Dropdown* mode = nullptr;
    ConsoleButton* nextKeyButton = nullptr;
};
