// SPDX-License-Identifier: GPL-3.0-or-later
#include "InPlaceEditableText.h"

#include "Cell.h"
#include "InPlaceEditableTextHandler.h"
#include "InPlaceLineEdit.h"
#include "MakeFont.h"

#include <QFontMetricsF>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>

InPlaceEditableText::InPlaceEditableText(QGraphicsItem* parent, InPlaceEditableTextHandler* handler,
                                         const QRectF& rect, int maxLength, float fontSize,
                                         const QColor& colour, Qt::Alignment alignment)
    : QGraphicsItem(parent), m_handler(handler), m_rect(rect), m_fontSize(fontSize),
      m_colour(colour), m_alignment(alignment), m_maxLength(maxLength)
{
    initialise();
}

InPlaceEditableText::InPlaceEditableText(QGraphicsScene* scene, InPlaceEditableTextHandler* handler,
                                         const QRectF& rect, int maxLength, float fontSize,
                                         const QColor& colour, Qt::Alignment alignment)
    : InPlaceEditableText(static_cast<QGraphicsItem*>(nullptr), handler, rect, maxLength, fontSize,
                          colour, alignment)
{
    if (scene)
        scene->addItem(this);
}

InPlaceEditableText::~InPlaceEditableText() = default;

void InPlaceEditableText::initialise()
{
    setAcceptHoverEvents(true);
    chooseFont();
}

// Shrinks by two points, then by four, until the text fits its box; the box
// grows downwards a little so that a smaller text sits on the same baseline area.
void InPlaceEditableText::chooseFont()
{
    const QString family = QStringLiteral("Gill Sans MT");
    m_paintFont = makeFont(family, int(m_fontSize), false);
    m_paintGrow = 1;
    const auto tooWide = [this](const QFont& font) {
        return QFontMetricsF(font).horizontalAdvance(m_text) > m_rect.width();
    };
    if (tooWide(m_paintFont)) {
        m_paintFont = makeFont(family, int(m_fontSize - 2), false);
        m_paintGrow = 3;
        if (tooWide(m_paintFont)) {
            m_paintFont = makeFont(family, int(m_fontSize - 4), false);
            m_paintGrow += 4;
        }
    }
}

QRectF InPlaceEditableText::boundingRect() const
{
    return m_rect;
}

void InPlaceEditableText::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_editing)
        return;
    painter->setPen(m_colour);
    m_paintText.draw(painter,
                     QRectF(m_rect.x(), m_rect.y(), m_rect.width(), m_rect.height() + m_paintGrow),
                     m_alignment | Qt::AlignVCenter, m_text, m_paintFont, m_colour);
    if (m_hovered && m_editable) {
        const int y = int(m_rect.y() + m_rect.height() - 2);
        painter->drawLine(int(m_rect.x() + 3), y, int(m_rect.x() + m_rect.width() - 4), y);
    }
}

void InPlaceEditableText::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    chooseFont();
    update();
}

void InPlaceEditableText::setColour(const QColor& colour)
{
    if (colour == m_colour)
        return;
    m_colour = colour;
    update();
}

void InPlaceEditableText::setAlignment(Qt::Alignment alignment)
{
    if (alignment == m_alignment)
        return;
    m_alignment = alignment;
    update();
}

void InPlaceEditableText::setRect(const QRectF& rect)
{
    if (rect == m_rect)
        return;
    prepareGeometryChange();
    m_rect = rect;
    chooseFont();
}

void InPlaceEditableText::chain(InPlaceEditableText** items, int count)
{
    for (int i = 0; i < count; ++i) {
        items[i]->m_above = i > 0 ? items[i - 1] : nullptr;
        items[i]->m_below = i + 1 < count ? items[i + 1] : nullptr;
    }
}

void InPlaceEditableText::startEditing(QWidget* parentWidget, QGraphicsView* view)
{
    auto* editor = new InPlaceLineEdit(parentWidget, this, m_text, m_maxLength, m_fontSize,
                                       m_colour, m_alignment);
    // Two pixels lower than the item, in the viewport's coordinates.
    const QRectF geometry =
        sceneBoundingRect().translated(QPointF(view->mapFromScene(QPointF(0, 2))));
    editor->setGeometry(geometry.toRect());
    m_editing = true;
    update();
    editor->showEditor();
    m_editParent = parentWidget;
    m_editView = view;
}

void InPlaceEditableText::textCommitted(InPlaceLineEdit*, const QString& text)
{
    // Stored first, so that a handler that sets another text has the last word.
    m_text = text;
    chooseFont();
    if (m_handler)
        m_handler->textChanged(this, text);
    update();
}

void InPlaceEditableText::editorClosed(InPlaceLineEdit*)
{
    m_hovered = false;
    m_editing = false;
    update();
}

void InPlaceEditableText::navigate(InPlaceLineEdit* editor, bool up)
{
    InPlaceEditableText* target = up ? m_above : m_below;
    if (!target || !m_editParent || !m_editView)
        return;
    QWidget* parentWidget = m_editParent;
    QGraphicsView* view = m_editView;
    editor->close();
    target->startEditing(parentWidget, view);
}

void InPlaceEditableText::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = true;
    update();
}

void InPlaceEditableText::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    m_hovered = false;
    update();
}

void InPlaceEditableText::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsView* view = nullptr;
    if (m_editable && event->buttons() == Qt::LeftButton)
        view = Cell::viewForEvent(scene(), event);
    if (!view) {
        event->ignore();
        return;
    }
    startEditing(event->widget(), view);
}

void InPlaceEditableText::mouseReleaseEvent(QGraphicsSceneMouseEvent*) {}
