#pragma once

#include <QString>

/// A count and its noun, which takes an "s" unless the count is one: "1 VLAN", "3 changes".
[[nodiscard]] inline QString counted(qsizetype count, const QString &noun)
{
    return QString::number(count) + QLatin1Char(' ') + noun
           + (count == 1 ? QString() : QStringLiteral("s"));
}
