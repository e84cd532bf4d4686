// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellText.h"
#include "Tab.h"

#include <QFont>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPixmap>

#include <array>
#include <memory>

class ConsoleCache;
class TitleBar;

// The DMX tab: the 512 slot values of the output universe and of the input
// (Maple: of both output universes), repainted at the console's output rate.
class DMXView : public QGraphicsView, public Tab
{
    Q_OBJECT

public:
    class UniverseBlock : public QGraphicsItem
    {
    public:
        static constexpr int slotCount = 512;
        static constexpr int slotsPerRow = 32;
        static constexpr int headerWidth = 82;
        static constexpr int slotWidth = 35;
        static constexpr int slotHeight = 28;

        UniverseBlock(int index, bool maple);
        int index() const { return m_index; }
        // The value a slot shows now, read from the record.
        int value(int slot) const;
        // Top-left of a slot in item coordinates.
        static QPointF slotOrigin(int slot);
        // Repaints the slots whose value changed since they were last shown.
        void refresh();

        QRectF boundingRect() const override;
        void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                   QWidget* widget) override;

    private:
        void paintBackground();
        void paintValue(QPainter* painter, int slot, int level);

        int m_index;
        bool m_maple;
        QString m_title;
        QFont m_titleFont;
        QFont m_valueFont;
        QPixmap m_background;
        std::array<int, slotCount> m_shown{};
        // One rendering per slot, so that a repaint only blits.
        std::unique_ptr<std::array<CellText, slotCount>> m_texts;
    };

    DMXView(QWidget* parent, TitleBar* bar);
    ~DMXView() override;

    QWidget* widget() override { return this; }
    QString title() override;
    void activate() override;

    UniverseBlock* block(int index) const { return m_blocks[std::size_t(index)]; }

public slots:
    void consoleCacheOutputsUpdated();
    void consoleCacheInputsUpdated();

private:
    TitleBar* m_bar;
    bool m_maple;
    QGraphicsScene m_scene;
    std::array<UniverseBlock*, 2> m_blocks{};
};
