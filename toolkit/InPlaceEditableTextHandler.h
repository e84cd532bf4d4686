// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class InPlaceEditableText;
class QString;

// Told when the user committed a new text in an InPlaceEditableText.
class InPlaceEditableTextHandler
{
public:
    virtual void textChanged(InPlaceEditableText* item, const QString& text) = 0;

protected:
    ~InPlaceEditableTextHandler() = default;
};
