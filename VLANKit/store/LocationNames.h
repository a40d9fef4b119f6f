#pragma once

#include "VLANKit/core/VLANError.h"
#include "VLANKit/values/LocationRecord.h"

#include <QList>
#include <QString>

#include <optional>

/// How the store finds a Location by the name a person gave, and what it takes as a new name.
/// Names compare canonically; a case-blind match is the fallback, never the first choice.
namespace VLANKit::LocationNames {

/// The record of that exact name, else the one record of that name in any case. Throws
/// `operationFailed` naming the candidates when several differ only in case from it.
[[nodiscard]] std::optional<LocationRecord> location(const QString &name,
                                                     const QList<LocationRecord> &among);

/// `locationNotFound` for the name, with the names of the records as the known ones.
[[nodiscard]] VLANError notFound(const QString &name, const QList<LocationRecord> &records);

/// The name without blanks and line ends around it. Throws `operationFailed` when nothing is
/// left.
[[nodiscard]] QString trimmed(const QString &name);

/// Throws `operationFailed` when a Location other than `ownSetID` bears the name in any case.
void checkFree(const QString &name, const QList<LocationRecord> &records,
               const std::optional<QString> &ownSetID = std::nullopt);

} // namespace VLANKit::LocationNames
