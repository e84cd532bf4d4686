// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QLineEdit>

class InPlaceLineEditHandler;

// A frameless, transparent one-line field laid over a scene's viewport. It
// reports to its handler and deletes itself when it closes: Escape discards,
// Return or losing the focus commits.
class InPlaceLineEdit : public QLineEdit
{
public:
    InPlaceLineEdit(QWidget* parent, InPlaceLineEditHandler* handler, const QString& text,
                    int maxLength, float fontSize, const QColor& colour, Qt::Alignment alignment);
    ~InPlaceLineEdit() override;

    // The creator sets the geometry first.
    void showEditor();

    bool isCancelled() const { return m_cancelled; }
    // Fields longer than six characters use a monospaced font with guides.
    bool hasGuides() const { return m_maxLength > 6; }
    int guideX(int index) const { return index == 0 ? m_guideX[0] : m_guideX[1]; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    friend class InPlaceLineEditHandler;
    void finish();
    // The handler went away: close without reporting.
    void detach();

    InPlaceLineEditHandler* m_handler;
    int m_maxLength;
    QColor m_colour;
    bool m_cancelled = false;
    bool m_finished = false;
    int m_guideX[2] = {0, 0};
};
