// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

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
    InPlaceLineEditHandler() = default;
    // Editors stay with the handler they were opened for.
    InPlaceLineEditHandler(const InPlaceLineEditHandler&) {}
    InPlaceLineEditHandler& operator=(const InPlaceLineEditHandler&) { return *this; }
    // Views rebuild their items while the user may be typing: an editor still
    // open on a handler that goes away is closed without reporting to it.
    ~InPlaceLineEditHandler();

private:
    friend class InPlaceLineEdit;
    std::vector<InPlaceLineEdit*> m_openEditors;
};
