#pragma once

#include "VLANKit/values/AdapterRecord.h"

#include <QSet>
#include <QString>

/// The adapter suffix in brackets at the end of a VLAN's name, "Audio (DONGLE)": taken off and
/// put on by rule, without eating a bracket that the engineer typed as part of the name.
namespace VLANKit::AdapterNaming {

/// The short label of an adapter: the first word of a name of its own, else its kernel name.
[[nodiscard]] QString label(const AdapterRecord &adapter);

/// The name without its suffix; only a known label counts as one, case included.
[[nodiscard]] QString stripped(const QString &name, const QSet<QString> &knownLabels);

/// The name with exactly one suffix, the given label's; none for an empty label.
[[nodiscard]] QString compose(const QString &name, const QString &label,
                              const QSet<QString> &knownLabels);

} // namespace VLANKit::AdapterNaming
