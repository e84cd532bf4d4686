// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct TextBlock;

// Writing the record's three-line text cells.
class TextCell
{
public:
    // Up to 7 characters; a shorter line ends with a NUL unit.
    static void setLine(TextBlock& block, int line, const QString& text);
    // Lines separated by '\n'.
    static void setLines(TextBlock& block, const QString& text);
    static QString line(const TextBlock& block, int line);
};
