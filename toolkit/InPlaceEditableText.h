// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "CellText.h"
#include "InPlaceLineEditHandler.h"

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QPointer>
#include <QString>

class InPlaceEditableTextHandler;
class QGraphicsView;

// A short text in a scene that, when editable and clicked, opens an
// InPlaceLineEdit over itself. Texts too wide for their box are drawn smaller.
class InPlaceEditableText : public QGraphicsItem, public InPlaceLineEditHandler
{
public:
    InPlaceEditableText(QGraphicsItem* parent, InPlaceEditableTextHandler* handler,
                        const QRectF& rect, int maxLength, float fontSize, const QColor& colour,
                        Qt::Alignment alignment);
    // A top-level item of the scene.
    InPlaceEditableText(QGraphicsScene* scene, InPlaceEditableTextHandler* handler,
                        const QRectF& rect, int maxLength, float fontSize, const QColor& colour,
                        Qt::Alignment alignment);
    ~InPlaceEditableText() override;

    InPlaceEditableText(const InPlaceEditableText&) = delete;
    InPlaceEditableText& operator=(const InPlaceEditableText&) = delete;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void setText(const QString& text);
    void setColour(const QColor& colour);
    void setAlignment(Qt::Alignment alignment);
    void setRect(const QRectF& rect);
    void setEditable(bool editable) { m_editable = editable; }

    const QString& text() const { return m_text; }
    const QColor& colour() const { return m_colour; }
    Qt::Alignment alignment() const { return m_alignment; }
    const QRectF& rect() const { return m_rect; }
    int maxLength() const { return m_maxLength; }
    float fontSize() const { return m_fontSize; }
    bool isEditable() const { return m_editable; }
    bool isHovered() const { return m_hovered; }
    bool isEditing() const { return m_editing; }
    InPlaceEditableText* above() const { return m_above; }
    InPlaceEditableText* below() const { return m_below; }
    InPlaceEditableTextHandler* handler() const { return m_handler; }
    // The font and the extra box height the current text is drawn with.
    const QFont& paintFont() const { return m_paintFont; }
    int paintGrow() const { return m_paintGrow; }

    // Links items for Up/Down movement between their editors, top to bottom.
    static void chain(InPlaceEditableText** items, int count);

    // Opens an editor over the item in the given viewport of the view.
    void startEditing(QWidget* parentWidget, QGraphicsView* view);

    void navigate(InPlaceLineEdit* editor, bool up) override;
    void textCommitted(InPlaceLineEdit* editor, const QString& text) override;
    void editorClosed(InPlaceLineEdit* editor) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void initialise();
    void chooseFont();

    InPlaceEditableTextHandler* m_handler;
    InPlaceEditableText* m_above = nullptr;
    InPlaceEditableText* m_below = nullptr;
    QRectF m_rect;
    float m_fontSize;
    QColor m_colour;
    Qt::Alignment m_alignment;
    QString m_text;
    int m_maxLength;
    bool m_editable = false;
    bool m_hovered = false;
    bool m_editing = false;
    QPointer<QWidget> m_editParent;
    QPointer<QGraphicsView> m_editView;
    QFont m_paintFont;
    int m_paintGrow = 1;
    CellText m_paintText;
};
