#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <iosfwd>
#include <optional>
#include <ostream>

// GoogleTest finds these by argument-dependent look-up: Qt's types live in the global
// namespace, so their printers do too.
void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const QStringList &list, std::ostream *out);
void PrintTo(const QByteArray &bytes, std::ostream *out);
void PrintTo(const QVariant &value, std::ostream *out);

namespace OrvaneTestRows {
/// Prints a table row by its `name`, so that a parameterised test's failure names its case.
/// Bring it in with `using OrvaneTestRows::PrintTo;` in the test's own namespace.
template <typename Row>
requires requires(const Row &row)
{
    row.name;
}
void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}
} // namespace OrvaneTestRows
