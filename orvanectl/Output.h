#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What orvanectl writes: text for a person on standard output, failures on standard error, and
/// with --json one JSON document for a script. All of it in UTF-8.
namespace Orvanectl {

void writeOut(const QString &text);
void writeError(const QString &text);
/// Each line followed by a line end.
void writeLines(const QStringList &lines);

/// The document of a command run with --json: two-space indentation and keys sorted at every
/// level, so that the same answer always gives the same bytes.
void writeJson(const QJsonObject &document);

/// No column is padded wider than this many characters: a longer cell stands whole and pushes
/// the rest of its own line along, so one huge name does not pad every other line to it.
inline constexpr qsizetype widestColumn = 48;

/// Rows of cells as lines, each column as wide as its widest cell up to `widestColumn`, counted
/// in characters as a person counts them; the last column is not padded.
[[nodiscard]] QStringList table(const QList<QStringList> &rows);

/// "1 VLAN", "3 VLANs": a count takes an "s" unless it is one.
[[nodiscard]] QString counted(qsizetype count, const QString &noun);

/// The text, or "—" where the system reports nothing.
[[nodiscard]] QString orDash(const std::optional<QString> &text);
/// The text, or null.
[[nodiscard]] QJsonValue jsonText(const std::optional<QString> &text);
[[nodiscard]] QJsonValue jsonNumber(const std::optional<qint64> &number);

} // namespace Orvanectl
