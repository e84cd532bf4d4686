// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class InPlaceLineEdit;
class QString;

// Receives the outcome of an InPlaceLineEdit. Every editor ends with exactly
// one editorClosed(), after textCommitted() unless it was cancelled.
class InPlaceLineEditHandler
{
public:
    // Up (up = true) or Down pressed in the editor.
    virtual void navigate(InPlaceLineEdit* editor, bool up);
    virtual void textCommitted(InPlaceLineEdit* editor, const QString& text) = 0;
    virtual void editorClosed(InPlaceLineEdit* editor) = 0;

protected:
    ~InPlaceLineEditHandler() = default;
};
