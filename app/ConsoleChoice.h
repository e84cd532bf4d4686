// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Which engine library to load and which model it should run.
struct ConsoleChoice
{
    QString libraryName;
    int modelVariant = 0;

    // "alder", "birch", "cedar" or "maple" (any case); nothing for other names.
    static std::optional<ConsoleChoice> fromModelName(const QString& name);
    static QStringList modelNames();

    bool operator==(const ConsoleChoice& other) const
    {
        return libraryName == other.libraryName && modelVariant == other.modelVariant;
    }
};
