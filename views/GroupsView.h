// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "toolkit/Cell.h"
#include "toolkit/CellRow.h"
#include "toolkit/CellRowTable.h"
#include "toolkit/CellText.h"
#include "toolkit/InPlaceEditableTextHandler.h"
#include "toolkit/Tab.h"
#include "toolkit/TitleBarHandler.h"

#include <QFont>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>

class InPlaceEditableText;
class TitleBar;

// The console's 24 device groups against its 24 devices: a marked cell is a
// member. Group and device names are edited in place.
class GroupsView : public QGraphicsView, public Tab, public TitleBarHandler
{
    Q_OBJECT

public:
    static constexpr int deviceCount = 24;
    static constexpr int groupCount = 24;
    static constexpr int lineHeight = 13;

    class CellRowTable : public ::CellRowTable
    {
    public:
        explicit CellRowTable(QGraphicsScene* scene);
        ~CellRowTable() override;
    };

    class DeviceNameRow : public CellRow
    {
    public:
        explicit DeviceNameRow(::CellRowTable* table);
        ~DeviceNameRow() override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        QFont m_font;
        CellText m_title;
    };

    class DeviceNameCell : public Cell, public InPlaceEditableTextHandler
    {
    public:
        static constexpr int cellHeight = 3 * lineHeight + 4;
        DeviceNameCell(CellRow* row, int device);
        ~DeviceNameCell() override;
        int device() const { return m_device; }
        InPlaceEditableText* line(int index) const { return m_lines[index]; }
        void refresh();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    private:
        int m_device;
        InPlaceEditableText* m_lines[3] = {};
    };

    class GroupRow : public CellRow, public InPlaceEditableTextHandler
    {
    public:
        GroupRow(::CellRowTable* table, int group, int lineCount);
        ~GroupRow() override;
        int group() const { return m_group; }
        int lineCount() const { return m_lineCount; }
        InPlaceEditableText* line(int index) const { return m_lines[index]; }
        void refresh();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    private:
        int m_group;
        int m_lineCount;
        InPlaceEditableText* m_lines[3] = {};
        QFont m_font;
        CellText m_number;
    };

    class GroupCell : public Cell
    {
    public:
        GroupCell(CellRow* row, int group, int device, int height);
        ~GroupCell() override;
        int group() const { return m_group; }
        int device() const { return m_device; }
        bool isMember() const;
        // Removes the device when it is a member, else appends it.
        void toggle();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    protected:
        void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
        void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

    private:
        int m_group;
        int m_device;
    };

    GroupsView(QWidget* parent, TitleBar* bar);
    ~GroupsView() override;

    // Tab
    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;

    // TitleBarHandler
    void setLineCount(int lines) override;
    int lineCount() const { return m_lineCount; }

    const QList<DeviceNameCell*>& deviceNameCells() const { return m_deviceNameCells; }
    const QList<GroupRow*>& groupRows() const { return m_groupRows; }
    GroupCell* groupCell(int group, int device) const
    {
        return m_groupCells.value(group * deviceCount + device);
    }
    QGraphicsScene* graphicsScene() { return &m_scene; }

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheChannelTextUpdated(int channel);
    void consoleCacheGroupUpdated(int group);

private:
    void build();

    QGraphicsScene m_scene;
    TitleBar* m_bar;
    int m_lineCount = 3;
    QList<DeviceNameCell*> m_deviceNameCells;
    QList<GroupRow*> m_groupRows;
    QList<GroupCell*> m_groupCells;
};
