// SPDX-License-Identifier: GPL-3.0-or-later
#include "InPlaceLineEdit.h"

#include "InPlaceLineEditHandler.h"
#include "MakeFont.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

void InPlaceLineEditHandler::navigate(InPlaceLineEdit*, bool) {}

InPlaceLineEditHandler::~InPlaceLineEditHandler()
{
    const std::vector<InPlaceLineEdit*> editors = std::move(m_openEditors);
    for (InPlaceLineEdit* editor : editors)
        editor->detach();
}

namespace {

constexpr int longFieldLength = 6;

QFont editorFont(int maxLength, float fontSize)
{
    if (maxLength > longFieldLength)
        return makeFont(QStringLiteral("Courier New"), int(fontSize * 0.85f), false);
    return makeFont(QStringLiteral("Gill Sans MT"), int(fontSize), false);
}

QPalette editorPalette(QPalette palette, const QColor& colour)
{
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, QColor(0, 0, 0, 0));
        palette.setColor(group, QPalette::Text, colour);
        palette.setColor(group, QPalette::Highlight, QColor(255, 200, 0));
        palette.setColor(group, QPalette::HighlightedText, QColor(0, 0, 0));
    }
    return palette;
}

} // namespace

InPlaceLineEdit::InPlaceLineEdit(QWidget* parent, InPlaceLineEditHandler* handler,
                                 const QString& text, int maxLength, float fontSize,
                                 const QColor& colour, Qt::Alignment alignment)
    : QLineEdit(text, parent), m_handler(handler), m_maxLength(maxLength),
      m_colour(colour)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrame(false);
    setFont(editorFont(maxLength, fontSize));
    setPalette(editorPalette(palette(), colour));
    setAlignment(alignment);
    setMaxLength(maxLength);
    selectAll();
    m_handler->m_openEditors.push_back(this);
    if (hasGuides()) {
        const int space = fontMetrics().horizontalAdvance(QLatin1Char(' '));
        m_guideX[0] = int(6 * space);
        m_guideX[1] = int(12 * space);
    }
}

InPlaceLineEdit::~InPlaceLineEdit()
{
    if (!m_handler)
        return;
    std::vector<InPlaceLineEdit*>& editors = m_handler->m_openEditors;
    editors.erase(std::remove(editors.begin(), editors.end(), this), editors.end());
}

void InPlaceLineEdit::detach()
{
    m_handler = nullptr;
    m_finished = true;
    close();
}

void InPlaceLineEdit::showEditor()
{
    show();
    setFocus(Qt::OtherFocusReason);
}

void InPlaceLineEdit::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        m_cancelled = true;
        close();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        close();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (m_handler)
            m_handler->navigate(this, event->key() == Qt::Key_Up);
        break;
    default:
        QLineEdit::keyPressEvent(event);
        break;
    }
}

void InPlaceLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    finish();
}

// Closing normally takes the focus away, which finishes the edit; an editor
// that never had the focus (its window inactive) must report all the same.
void InPlaceLineEdit::closeEvent(QCloseEvent* event)
{
    finish();
    event->accept();
}

void InPlaceLineEdit::finish()
{
    if (m_finished)
        return;
    m_finished = true;
    // A commit may rebuild the owner, which detaches this editor.
    if (m_handler && !m_cancelled)
        m_handler->textCommitted(this, text());
    if (m_handler)
        m_handler->editorClosed(this);
    close();
}

void InPlaceLineEdit::paintEvent(QPaintEvent* event)
{
    if (hasGuides()) {
        QPainter painter(this);
        painter.setPen(QColor(128, 128, 128));
        for (int x : m_guideX)
            painter.drawLine(x, 0, x, height());
    }
    QLineEdit::paintEvent(event);
}

void InPlaceLineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}
