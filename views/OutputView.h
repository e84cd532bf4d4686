// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellRowTable.h"
#include "CellText.h"
#include "ChannelCell.h"
#include "DevicePart.h"
#include "PanTiltMonitorCell.h"
#include "ParameterCell.h"
#include "Tab.h"

#include <QFont>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>
#include <QPointF>
#include <QWidget>

#include <utility>

class Console;
class ConsoleCache;
class QMenu;
class TitleBar;

// The "Live" tab: the live level of every channel above, every device
// parameter below, at the console's output rate. Parameter values can be
// overridden by typing a level or picking a palette; the console then sends
// them instead of what its playbacks say.
class OutputView : public QWidget, public Tab, private DevicePart::Factory
{
    Q_OBJECT

public:
    class ChannelCell : public ::ChannelCell
    {
    public:
        ChannelCell(CellRow* row, Console* console, int channel);
        QString text() const override;
        quint8 level() const override;
        bool isHighlighted() const override;
        // Repaints when the level or the highlight changed since the last look.
        void refresh();

    private:
        int m_lastLevel = -1;
        bool m_lastHighlight = false;
    };

    class ParameterCell : public ::ParameterCell
    {
    public:
        ParameterCell(CellRow* row, OutputView* view, int device, int group, int parameter);
        int device() const { return m_device; }
        QColor swatchColour(bool& valid) const override;
        QString text() const override;
        QString editText() const override;
        void applyEditText(const QString& text) override;
        // Repaints when what it shows changed since the last look.
        void refresh();

    protected:
        void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
        void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
        void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

    private:
        OutputView* m_view;
        int m_device;
        QPointF m_pressPos;
        QString m_lastText;
        QRgb m_lastSwatch = 0;
    };

    class PanTiltMonitorCell : public ::PanTiltMonitorCell
    {
    public:
        PanTiltMonitorCell(CellRow* row, const ConsoleCache* cache, int device);
        bool isActive() const override;
        float panPosition() const override;
        float tiltPosition() const override;
        void refresh();

    private:
        float axis(int coarse, int fine) const;

        const ConsoleCache* m_cache;
        int m_device;
        QPoint m_lastDot{-1, -1};
    };

    class ParameterGroupCell : public Cell
    {
    public:
        static constexpr int cellHeight = 38;
        ParameterGroupCell(CellRow* row, const ConsoleCache* cache, int device, int group);
        // The palette that every parameter of the group comes from, or -1.
        int commonPalette() const;
        void refresh();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        const ConsoleCache* m_cache;
        int m_device;
        int m_group;
        int m_shownPalette = -2;
        QFont m_font;
        CellText m_reference;
        CellText m_name;
    };

    class ParameterGroupRow : public CellRow
    {
    public:
        ParameterGroupRow(::CellRowTable* table, int group);
        int group() const { return m_group; }
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        int m_group;
        QString m_title;
        QFont m_font;
        CellText m_titleText;
    };

    class CellRowTable : public ::CellRowTable
    {
    public:
        explicit CellRowTable(QGraphicsScene* scene);
    };

    static constexpr int channelColumns = 24;
    static constexpr int channelCount = 72;

    OutputView(QWidget* parent, TitleBar* bar);
    ~OutputView() override;

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;

    QGraphicsView* channelView() { return &m_channelView; }
    QGraphicsView* deviceView() { return &m_deviceView; }
    const QList<ChannelCell*>& channelCells() const { return m_channelCells; }
    const DevicePart::CellGrid& cellGrid() const { return m_cellGrid; }
    std::pair<int, int> anchor() const { return m_anchor; }
    ParameterCell* cellAt(int row, int column) const;

    // Writes a level to the parameter of every selected parameter cell.
    void writeSelected(int level);
    // Runs a popup action's data ("SetPalette/<index>"); anything else is
    // ignored.
    void applyMenuCommand(const QString& data);
    // The Shift rule on a left release: range from the anchor, else the
    // anchor moves here.
    void extendSelection(ParameterCell* cell, bool shift);

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCachePatchUpdated();
    void consoleCacheDeviceUpdated(int device);
    void consoleCacheChannelsUpdated();
    void consoleCacheOutputsUpdated();
    void consoleCacheDeviceStatusUpdated();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    CellRow* createGroupRow(::CellRowTable* table, int group) override;
    Cell* createGroupCell(CellRow* row, int device, int group) override;
    Cell* createMonitorCell(CellRow* row, int device) override;
    ::ParameterCell* createParameterCell(CellRow* row, int device, int group,
                                         int parameter) override;

    void buildChannelPart();
    void rebuildDevicePart();
    void refreshDevicePart();
    void setUpView(QGraphicsView* view);
    QList<ParameterCell*> selectedCells() const;
    std::pair<int, int> placeOf(const ParameterCell* cell) const;

    Console* m_console;
    TitleBar* m_bar;
    QGraphicsScene m_channelScene;
    QGraphicsScene m_deviceScene;
    QGraphicsView m_channelView;
    QGraphicsView m_deviceView;
    CellRowTable* m_channelTable = nullptr;
    CellRowTable* m_deviceTable = nullptr;
    QList<ChannelCell*> m_channelCells;
    QList<PanTiltMonitorCell*> m_monitors;
    QList<ParameterGroupCell*> m_groupCells;
    DevicePart::CellGrid m_cellGrid;
    std::pair<int, int> m_anchor{-1, -1};
};
