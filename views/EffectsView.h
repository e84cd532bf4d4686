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
#include <QImage>
#include <QList>
#include <QString>

#include <optional>

class InPlaceEditableText;
class QAction;
class QMenu;
class TitleBar;
struct EffectRecord;

// The console's 33 effects in three family tables (Shape, Linear, Color):
// pattern, speed, depth or chroma, aspect, rotation, base, range, style and
// name of each, edited in place.
class EffectsView : public QGraphicsView, public Tab, public TitleBarHandler
{
    Q_OBJECT

public:
    static constexpr int familyCount = 3;
    static constexpr int effectsPerFamily = 11;
    static constexpr int familyStride = 12;
    static constexpr quint8 noPattern = 255;
    enum Kind
    {
        PatternKind = 0,
        SpeedKind = 1,
        DepthKind = 2,
        AspectKind = 3,
        RotationKind = 4,
        BaseKind = 5,
        RangeKind = 6,
        StyleKind = 7,
        NameKind = 8
    };

    class CellRowTable : public ::CellRowTable
    {
    public:
        explicit CellRowTable(QGraphicsScene* scene);
        ~CellRowTable() override;
    };

    class EffectParameterRow : public CellRow
    {
    public:
        EffectParameterRow(::CellRowTable* table, int kind, int family);
        ~EffectParameterRow() override;
        int kind() const { return m_kind; }
        int family() const { return m_family; }
        const QString& title() const { return m_title; }
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        int m_kind;
        int m_family;
        QString m_title;
        QFont m_font;
        CellText m_lines[2];
    };

    class EffectParameterCell : public Cell, public InPlaceEditableTextHandler
    {
    public:
        static constexpr int cellHeight = 45;
        EffectParameterCell(CellRow* row, EffectsView* view, int effect, int kind);
        ~EffectParameterCell() override;
        int effect() const { return m_effect; }
        int kind() const { return m_kind; }
        InPlaceEditableText* valueItem() const { return m_value; }
        // The picture the cell draws (null when it draws none).
        const QImage* picture() const;
        void refresh();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    protected:
        void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

    private:
        void openMenu(QGraphicsSceneMouseEvent* event);
        void choose(QAction* action);

        EffectsView* m_view;
        int m_effect;
        int m_kind;
        InPlaceEditableText* m_value = nullptr;
        QPointF m_pictureAt;
    };

    class EffectNameCell : public Cell, public InPlaceEditableTextHandler
    {
    public:
        static constexpr int cellHeight = 32;
        EffectNameCell(CellRow* row, int effect);
        ~EffectNameCell() override;
        int effect() const { return m_effect; }
        InPlaceEditableText* line(int index) const { return m_lines[index]; }
        void refresh();
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;
        void textChanged(InPlaceEditableText* item, const QString& text) override;

    private:
        int m_effect;
        InPlaceEditableText* m_lines[3] = {};
    };

    EffectsView(QWidget* parent, TitleBar* bar);
    ~EffectsView() override;

    // Tab
    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;

    // Pattern names of a family in number order; number 11 has none.
    static QString patternName(int family, int pattern);
    // The picture's resource file: family word, pattern name, ".png".
    static QString patternFileName(int family, int pattern);
    static QString familyName(int family);
    // Each picture, loaded once; a null image for no pattern.
    static const QImage& patternImage(int family, int pattern);
    static const QImage& directionImage(int direction);

    // What a value cell shows for a stored value, and what a typed text
    // stores (nullopt: out of range, nothing is stored).
    static QString valueText(int family, int kind, int stored);
    static std::optional<quint16> valueFromText(int family, int kind, const QString& text);
    // The record field a value kind edits (kinds 1 to 7), null for others.
    static quint16* field(EffectRecord& effect, int kind);

    const QList<EffectParameterCell*>& parameterCells() const { return m_cells; }
    const QList<EffectNameCell*>& nameCells() const { return m_names; }
    QGraphicsScene* graphicsScene() { return &m_scene; }

public slots:
    void consoleCachePlayLoaded();
    void consoleCacheEffectUpdated();

private:
    void build();
    void buildFamily(int family, const QPointF& at);

    QGraphicsScene m_scene;
    TitleBar* m_bar;
    QList<EffectParameterCell*> m_cells;
    QList<EffectNameCell*> m_names;
};
