// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellRow.h"
#include "CellRowTable.h"
#include "Console.h"
#include "DevicePart.h"
#include "InPlaceEditableTextHandler.h"
#include "PanTiltMonitorCell.h"
#include "ParameterCell.h"
#include "Tab.h"

#include <QFont>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPointer>

class InPlaceEditableText;
class PalettesViewFeature;
class QMenu;
class TitleBar;

// "Palettes": the Focus, Color and Beam parts of one palette, one block of
// parameter rows each with a column per device, edited and named in place.
class PalettesView : public QGraphicsView, public Tab, private DevicePart::Factory
{
    Q_OBJECT

public:
    static constexpr int nameLength = 18;

    class CellRowTable : public ::CellRowTable
    {
    public:
        CellRowTable(QGraphicsScene* scene, PalettesView* view);
        PalettesView* view() const { return m_view; }

    private:
        PalettesView* m_view;
    };

    class ParameterGroupRow : public CellRow, public InPlaceEditableTextHandler
    {
    public:
        static constexpr int rowHeight = 24;
        ParameterGroupRow(::CellRowTable* table, PalettesView* view, int group);
        int group() const { return m_group; }
        InPlaceEditableText* nameItem() const { return m_name; }
        QString title() const;
        // Re-reads the group part's name.
        void refresh();
        qreal height() const override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    private:
        PalettesView* m_view;
        int m_group;
        InPlaceEditableText* m_name;
        QFont m_font;
    };

    class ParameterCell : public ::ParameterCell
    {
    public:
        ParameterCell(CellRow* row, PalettesView* view, int device, int group, int parameter);
        int device() const { return m_device; }
        QColor swatchColour(bool& valid) const override;
        QString text() const override;
        QString editText() const override;
        void applyEditText(const QString& text) override;

    private:
        PalettesView* m_view;
        int m_device;
    };

    class PanTiltMonitorCell : public ::PanTiltMonitorCell
    {
    public:
        PanTiltMonitorCell(CellRow* row, PalettesView* view, int device);
        bool isActive() const override;
        float panPosition() const override;
        float tiltPosition() const override;

    private:
        float axisPosition(int coarse, int fine) const;
        PalettesView* m_view;
        int m_device;
    };

    PalettesView(QWidget* parent, Console* console, TitleBar* bar);
    ~PalettesView() override;
    // The program's view on its console; null without a console.
    static Tab* create(QWidget* parent, TitleBar* bar);

    // Tab
    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;
    QWidget* createFeatureWidget(QWidget* parent, const QRect& geometry) override;

    int currentPalette() const { return m_currentPalette; }
    void selectPalette(int palette);
    ConsoleCache* cache() const { return m_console->cache(); }
    Console* console() const { return m_console; }

    QString headerText() const;
    // The menu of all palettes; the caller owns it.
    QMenu* createPaletteMenu(QWidget* parent) const;
    // Carries out a picked "Palette/<index>"; other data changes nothing.
    void menuItemPicked(const QString& data);
    // Stores a level (or, when text is empty, clears) for every selected
    // parameter cell; false when the text is no level.
    bool applyToSelectedParameters(const QString& text);
    // Stores the whole name of a group part of the current palette.
    void setGroupName(int group, const QString& text);

    PalettesViewFeature* feature() const;
    QList<ParameterGroupRow*> groupRows() const;

public slots:
    void consoleCachePlayLoaded();
    void consoleCachePatchUpdated();
    void consoleCacheDeviceUpdated(int device);
    void consoleCachePaletteUpdated(int palette);

private:
    // DevicePart::Factory
    CellRow* createGroupRow(::CellRowTable* table, int group) override;
    Cell* createMonitorCell(CellRow* row, int device) override;
    ::ParameterCell* createParameterCell(CellRow* row, int device, int group,
                                         int parameter) override;

    void rebuild();
    void refresh();

    Console* m_console;
    TitleBar* m_bar;
    int m_currentPalette = 0;
    QGraphicsScene m_scene;
    CellRowTable* m_table = nullptr;
    QPointer<PalettesViewFeature> m_feature;
};
