// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "InPlaceLineEditHandler.h"
#include "Tab.h"

#include <QFont>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QList>
#include <QString>

class Console;
struct ConsoleStateRecord;
class TitleBar;

// The console's system settings and the show-file commands, as columns of
// small menus. Choice and check items write their settings byte at once,
// number and time items open an in-place editor; file and erase commands ask
// first and then call the engine.
class SystemView : public QGraphicsView, public Tab
{
    Q_OBJECT

public:
    // Menu commands; the version lines carry None.
    enum Command
    {
        None = 0,
        NewShow = 1,
        OpenShow = 2,
        SaveShow = 3,
        SaveShowAs = 4,
        EraseMemories = 11,
        EraseSequences = 12,
        EraseStack = 13,
        ErasePalettes = 14,
        EraseAll = 15
    };

    // How a value item shows and changes its target.
    enum ValueKind
    {
        LastChoice = 4, // 0..4: a choice whose value is the kind itself
        Check = 5,
        Time = 7,
        OneTo16 = 8, // shown 1..16, stored minus one
        Upto127 = 9
    };

    static constexpr int menuWidth = 180;
    static constexpr int menuTitleHeight = 26;
    static constexpr int itemHeight = 20;

    class Menu;
    class MenuItem;
    class ValueItem;
    class PanTiltTable;

    // The program's own version, shown in the first version line.
    static QString programVersion();

    SystemView(QWidget* parent, TitleBar* titleBar, bool wide);
    ~SystemView() override;

    // Runs a menu command: asks what must be asked, then calls the engine.
    void runCommand(int id);

    QList<Menu*> menus() const { return m_menus; }
    PanTiltTable* panTiltTable() const { return m_panTilt; }

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

public slots:
    void consoleCacheSystemSettingsUpdated();
    void consoleCachePlayLoaded();

private:
    struct ValueLine
    {
        QString text;
        int kind;
        void* target;
    };

    void buildScene();
    void addCommandMenus(bool maple);
    void addSettingMenus(ConsoleStateRecord* r, bool maple);
    void addMapleMenus(ConsoleStateRecord* r);
    void addVersionMenu(Console* console, bool maple);
    // Places a menu at the next free place of a column; returns it.
    Menu* addMenu(int column, const QString& title, int itemCount);
    void addValueMenu(int column, const QString& title, const QList<ValueLine>& values);
    void askThenErase(int subCode, const QString& title, const QString& text);
    bool confirm(const QString& title, const QString& text);
    void openShow();
    void saveShowAs();

    TitleBar* m_titleBar;
    QGraphicsScene m_scene;
    QList<Menu*> m_menus;
    PanTiltTable* m_panTilt = nullptr;
    int m_columnBottom[3] = {0, 0, 0};
};

// A titled menu; its items are children, one per 20-pixel line below the title.
class SystemView::Menu : public QGraphicsItem
{
public:
    Menu(const QString& title, int itemCount);

    QString title() const { return m_title; }
    int itemCount() const { return m_itemCount; }

    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override;

private:
    QString m_title;
    int m_itemCount;
    QRectF m_bounds;
    QFont m_font;
};

// A command line of a menu; a disabled one (a version line) only shows text.
class SystemView::MenuItem : public QGraphicsItem
{
public:
    MenuItem(Menu* menu, int index, const QString& text, int command, bool enabled,
             SystemView* view);

    QString text() const { return m_text; }
    int command() const { return m_command; }
    bool isEnabled() const { return m_enabled; }
    bool isHovered() const { return m_hovered; }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    QString m_text;
    int m_command;
    bool m_enabled;
    bool m_hovered = false;
    SystemView* m_view;
    QFont m_font;
};

// A settings line: a choice, a check, or a number or time typed in place.
class SystemView::ValueItem : public QGraphicsItem, public InPlaceLineEditHandler
{
public:
    ValueItem(Menu* menu, int index, const QString& text, int kind, void* target);

    QString text() const { return m_text; }
    int kind() const { return m_kind; }
    bool isEditing() const { return m_editing; }
    // The value as the editor starts with it, and as shown right-aligned.
    QString valueText() const;
    // Stores a typed value when it is valid for the kind; false otherwise.
    bool store(const QString& typed);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override;

    void textCommitted(InPlaceLineEdit* editor, const QString& text) override;
    void editorClosed(InPlaceLineEdit* editor) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    bool isChoice() const { return m_kind >= 0 && m_kind <= LastChoice; }
    quint8& byte() const { return *static_cast<quint8*>(m_target); }
    quint16& word() const { return *static_cast<quint16*>(m_target); }
    void openEditor(QGraphicsSceneMouseEvent* event);
    void paintMark(QPainter* painter) const;

    QString m_text;
    int m_kind;
    void* m_target;
    bool m_hovered = false;
    bool m_editing = false;
    QFont m_font;
};

// Per device: invert pan, invert tilt and swap pan and tilt (Maple).
class SystemView::PanTiltTable : public QGraphicsItem
{
public:
    static constexpr int width = 280;
    static constexpr int headHeight = 46;
    static constexpr int rowHeight = 20;
    static constexpr int columnWidth = 70;
    static constexpr int rows = 24;
    static constexpr int columns = 4;
    static constexpr int height = headHeight + rows * rowHeight;

    explicit PanTiltTable(ConsoleStateRecord* record);

    // The flag a column edits for a device, or null for the device column.
    quint8* flag(int row, int column) const;

    QRectF boundingRect() const override { return QRectF(0, 0, width, height); }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    ConsoleStateRecord* m_record;
    QFont m_titleFont;
    QFont m_font;
    QString m_heading;
    QString m_heads[columns];
};
