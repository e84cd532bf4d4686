// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsItem>
#include <QList>

class CellRow;
class QGraphicsScene;
class Resources;

// A grid of rows: a row-label column on the left and equally wide cells to its
// right. The table owns geometry only (row stacking and the grey separators);
// rows and cells draw their own content.
class CellRowTable : public QGraphicsItem
{
public:
    CellRowTable(QGraphicsScene* scene, bool hideHeaderSeparator);
    ~CellRowTable() override;

    CellRowTable(const CellRowTable&) = delete;
    CellRowTable& operator=(const CellRowTable&) = delete;

    // Stacks the row below the last one; the owner calls it once the row's
    // cells exist.
    void addRow(CellRow* row);
    // Re-stacks every row under the first after row heights changed.
    void layoutRows();

    int columnWidth() const { return m_columnWidth; }
    int headerWidth() const { return m_headerWidth; }
    int gapWidth() const { return m_gapWidth; }
    int thinSpacing() const { return m_thinSpacing; }
    int thickSpacing() const { return m_thickSpacing; }
    int topOffset() const { return m_topOffset; }
    // Only rows added afterwards are placed below the new offset.
    void setTopOffset(int offset) { m_topOffset = offset; }
    bool hideHeaderSeparator() const { return m_hideHeaderSeparator; }
    const QList<CellRow*>& rows() const { return m_rows; }
    const Resources* resources() const { return m_resources; }

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    virtual void paintBackground(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                 QWidget* widget);

    static QColor separatorColour();

protected:
    void paintRowSeparators(QPainter* painter);

private:
    qreal rowTopBelow(const CellRow* upper, const CellRow* lower) const;

    // Null outside the application (tools, some tests): images are then not drawn.
    const Resources* m_resources;
    int m_topOffset = 0;
    int m_columnWidth = 49;
    int m_headerWidth = 82;
    int m_thickSpacing = 2;
    int m_gapWidth = 1;
    int m_thinSpacing = 1;
    bool m_hideHeaderSeparator;
    QList<CellRow*> m_rows;
};
