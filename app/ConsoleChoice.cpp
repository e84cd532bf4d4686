// SPDX-License-Identifier: GPL-3.0-or-later
#include "ConsoleChoice.h"

std::optional<ConsoleChoice> ConsoleChoice::fromModelName(const QString& name)
{
    const QString model = name.trimmed().toLower();
    const QString glow = QStringLiteral("glowEngine");
    if (model == QLatin1String("alder"))
        return ConsoleChoice{glow, 0};
    if (model == QLatin1String("birch"))
        return ConsoleChoice{glow, 1};
    if (model == QLatin1String("cedar"))
        return ConsoleChoice{glow, 2};
    if (model == QLatin1String("maple"))
        return ConsoleChoice{QStringLiteral("glowproEngine"), 0};
    return std::nullopt;
}

QStringList ConsoleChoice::modelNames()
{
    return {QStringLiteral("alder"), QStringLiteral("birch"), QStringLiteral("cedar"),
            QStringLiteral("maple")};
}
