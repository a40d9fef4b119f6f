#pragma once

#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QIcon>
#include <QString>
#include <QStringList>

/// The platform's system symbols that the window names, drawn by us as vectors so that every
/// system shows the same picture, in a colour role of the palette in force, at any size and
/// pixel ratio.
namespace Symbols {

/// Every name there is a drawing for.
[[nodiscard]] const QStringList &names();

/// The symbol in the role's colour; a null icon for a name without a drawing.
[[nodiscard]] QIcon icon(const QString &name, Roles::Role role = Roles::Role::text);

} // namespace Symbols
