// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellRowTable.h"
#include "ChannelCell.h"
#include "Console.h"
#include "DevicePart.h"
#include "PanTiltMonitorCell.h"
#include "ParameterCell.h"
#include "ShowItemHandler.h"
#include "Tab.h"

#include <QFont>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>
#include <QWidget>

class MemoriesViewFeature;
class QMenu;
class TitleBar;

// "Mem Edit": the channel levels and device parameters stored in one memory,
// edited in place. A header in the tab strip names the memory and opens the
// menu of all memories.
class MemoriesView : public QWidget, public Tab, public ShowItemHandler, private DevicePart::Factory
{
    Q_OBJECT

public:
    class CellRowTable : public ::CellRowTable
    {
    public:
        CellRowTable(QGraphicsScene* scene, MemoriesView* view);
        MemoriesView* view() const { return m_view; }

    private:
        MemoriesView* m_view;
    };

    class ChannelCell : public ::ChannelCell
    {
    public:
        ChannelCell(CellRow* row, MemoriesView* view, int channel);
        QString text() const override;
        QString editText() const override;
        void applyEditText(const QString& text) override;
        quint8 level() const override;
        bool isHighlighted() const override { return false; }
        bool isBlind() const override { return false; }

    private:
        MemoriesView* m_view;
    };

    class ParameterCell : public ::ParameterCell
    {
    public:
        ParameterCell(CellRow* row, MemoriesView* view, int device, int group, int parameter);
        int device() const { return m_device; }
        QColor swatchColour(bool& valid) const override;
        QString text() const override;
        QString editText() const override;
        void applyEditText(const QString& text) override;

    protected:
        void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

    private:
        MemoriesView* m_view;
        int m_device;
    };

    class ParameterGroupCell : public Cell
    {
    public:
        static constexpr int cellHeight = 38;
        ParameterGroupCell(CellRow* row, MemoriesView* view, int device, int group);
        int device() const { return m_device; }
        int group() const { return m_group; }
        // The palette every stored parameter of the group refers to, else -1.
        int commonPalette() const;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    protected:
        void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
        void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

    private:
        MemoriesView* m_view;
        int m_device;
        int m_group;
        QFont m_font;
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
    };

    class PanTiltMonitorCell : public ::PanTiltMonitorCell
    {
    public:
        PanTiltMonitorCell(CellRow* row, MemoriesView* view, int device);
        bool isActive() const override;
        float panPosition() const override;
        float tiltPosition() const override;

    private:
        float axisPosition(int coarse, int fine) const;
        MemoriesView* m_view;
        int m_device;
    };

    MemoriesView(QWidget* parent, Console* console, TitleBar* bar);
    // The program's view on its console; null without a console.
    static Tab* create(QWidget* parent, TitleBar* bar);
    ~MemoriesView() override;

    // Tab
    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

    // ShowItemHandler
    void showMemory(int page, int memory) override;

    Console::Memory currentMemory() const { return m_currentMemory; }
    void selectMemory(int page, int index);
    Console* console() const { return m_console; }
    ConsoleCache* cache() const;

    QString headerText() const;
    // The menu of all memories; the caller owns it.
    QMenu* createMemoryMenu(QWidget* parent) const;
    // Carries out a picked menu action ("Memory/<page>/<index>" or
    // "SetPalette/<index>"); data that does not parse changes nothing.
    void menuItemPicked(const QString& data);
    // Stores the time text for the current memory.
    void setCurrentMemoryTime(const QString& text);
    // Stores a level (or, when text is empty, clears) for every selected
    // parameter cell; false when the text is no level.
    bool applyToSelectedParameters(const QString& text);
    // Stores a palette reference for the selected parameter and group cells.
    void setPaletteOnSelection(int palette);

    QGraphicsScene* channelScene() { return &m_channelScene; }
    QGraphicsScene* deviceScene() { return &m_deviceScene; }
    MemoriesViewFeature* feature() const;

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCachePatchUpdated();
    void consoleCacheDeviceUpdated(int device);
    void consoleCacheMemoryUpdated(Console::Memory memory);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // DevicePart::Factory
    CellRow* createGroupRow(::CellRowTable* table, int group) override;
    Cell* createGroupCell(CellRow* row, int device, int group) override;
    Cell* createMonitorCell(CellRow* row, int device) override;
    ::ParameterCell* createParameterCell(CellRow* row, int device, int group,
                                         int parameter) override;

    void buildChannelPart();
    void addChannelRows(const QString& title, int first, int count);
    void rebuildDevicePart();
    void refresh();
    void layoutViews();
    void showPaletteMenu(int group, const QPoint& screenPos);

    Console* m_console;
    TitleBar* m_bar;
    Console::Memory m_currentMemory;
    QGraphicsScene m_channelScene;
    QGraphicsScene m_deviceScene;
    QGraphicsView m_channelView;
    QGraphicsView m_deviceView;
    CellRowTable* m_channelTable = nullptr;
    CellRowTable* m_deviceTable = nullptr;
    QPointer<MemoriesViewFeature> m_feature;
};
