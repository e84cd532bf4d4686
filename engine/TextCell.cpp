// SPDX-License-Identifier: GPL-3.0-or-later
#include "TextCell.h"

#include "ConsoleStateRecord.h"

#include <QStringList>

void TextCell::setLine(TextBlock& block, int line, const QString& text)
{
    if (line < 0 || line >= TextBlock::lineCount)
        return;
    char16_t* units = block.lines[line];
    const int length = int(std::min<qsizetype>(text.size(), TextBlock::lineLength));
    for (int i = 0; i < TextBlock::lineLength; ++i)
        units[i] = i < length ? char16_t(text.at(i).unicode()) : u'\0';
}

void TextCell::setLines(TextBlock& block, const QString& text)
{
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int line = 0; line < TextBlock::lineCount; ++line)
        setLine(block, line, line < lines.size() ? lines.at(line) : QString());
}

QString TextCell::line(const TextBlock& block, int line)
{
    QString text;
    for (int i = 0; i < TextBlock::lineLength && block.lines[line][i] != u'\0'; ++i)
        text.append(QChar(block.lines[line][i]));
    return text;
}
