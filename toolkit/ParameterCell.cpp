// SPDX-License-Identifier: GPL-3.0-or-later
#include "ParameterCell.h"

#include "CellRowTable.h"
#include "InPlaceLineEdit.h"
#include "MakeFont.h"
#include "Resources.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>

#include <cmath>

namespace {

constexpr int editorLength = 3;
constexpr float fontSize = 11;
constexpr int focusGroup = 0;

QColor textColour(int group)
{
    switch (group) {
    case 0:
        return QColor(253, 169, 123);
    case 1:
        return QColor(250, 140, 238);
    default:
        return QColor(188, 177, 254);
    }
}

bool samePlace(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) <= 1e-12 && std::abs(a.y() - b.y()) <= 1e-12;
}

} // namespace

ParameterCell::ParameterCell(CellRow* row, int group, int parameter)
    : Cell(row, cellHeight), m_group(group), m_parameter(parameter),
      m_font(makeFont(QStringLiteral("Gill Sans MT"), fontSize))
{
    setFlag(ItemIsSelectable);
}

ParameterCell::~ParameterCell() = default;

QRectF ParameterCell::activeRect() const
{
    const QRectF bounds = boundingRect();
    if (m_group == focusGroup)
        return bounds;
    return QRectF(bounds.x(), bounds.y(), bounds.width() / 2, bounds.height());
}

void ParameterCell::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_editing)
        return;
    if (isSelected())
        painter->fillRect(activeRect(), QColor(255, 255, 255, 64));
    const QString shown = text();
    if (shown.isNull())
        return;
    paintDecoration(painter);
    const QRectF bounds = boundingRect();
    const QColor colour = textColour(m_group);
    if (shown != m_shown) {
        m_shown = shown;
        m_padded = shown + QLatin1Char(' ');
    }
    if (m_group == focusGroup)
        m_text.draw(painter, bounds, Qt::AlignCenter, m_padded, m_font, colour);
    else
        m_text.draw(
            painter,
            QRectF(bounds.x(), bounds.y(), bounds.width() - decorationWidth, bounds.height()),
            Qt::AlignRight | Qt::AlignVCenter, m_padded, m_font, colour);
}

void ParameterCell::paintDecoration(QPainter* painter) const
{
    const int width = int(boundingRect().width());
    const auto swatch = [&](const QRect& area) {
        bool valid = false;
        const QColor colour = swatchColour(valid);
        if (valid)
            painter->fillRect(area, colour);
    };
    switch (m_parameter) {
    case 0:
        swatch(QRect(width - 20, 2, 18, 14));
        return;
    case 3:
        swatch(QRect(width - 20, 0, 18, 16));
        return;
    case 4:
        swatch(QRect(width - 20, 0, 18, 14));
        return;
    default:
        break;
    }
    if (m_parameter < 5 || m_parameter > 47)
        return;
    const Resources* images = table()->resources();
    const QImage* icon = images ? images->parameterIcon(m_parameter) : nullptr;
    if (icon && !icon->isNull())
        painter->drawImage(
            QPoint((width - decorationWidth) + (decorationWidth - icon->width()) / 2, 0), *icon);
}

void ParameterCell::selectAlone()
{
    if (scene())
        scene()->clearSelection();
    setSelected(true);
}

void ParameterCell::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    // Other buttons leave the selection alone; taking the press keeps the
    // scene from clearing it, so a context menu acts on what is selected.
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPos = event->pos();
    const bool extending = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    if (!extending && !isSelected())
        selectAlone();
}

void ParameterCell::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    // A drag (press and release at different places) changes nothing.
    if (event->button() != Qt::LeftButton || !samePlace(event->pos(), m_pressPos))
        return;
    if (event->modifiers() & Qt::ControlModifier)
        setSelected(!isSelected());
    else if (!isSelected())
        selectAlone();
}

void ParameterCell::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QString initial = editText();
    QGraphicsView* view = viewForEvent(event);
    if (initial.isNull() || !view)
        return;
    auto* editor = new InPlaceLineEdit(view->viewport(), this, initial, editorLength, fontSize,
                                       Qt::white, Qt::AlignCenter);
    const QRectF area = mapRectToScene(activeRect());
    editor->setGeometry(QRectF(view->mapFromScene(area.topLeft()), area.size()).toRect());
    m_editing = true;
    update();
    editor->showEditor();
}

void ParameterCell::textCommitted(InPlaceLineEdit*, const QString& text)
{
    applyEditText(text);
}

void ParameterCell::editorClosed(InPlaceLineEdit*)
{
    m_editing = false;
    update();
}
