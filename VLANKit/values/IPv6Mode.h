#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace VLANKit {

/// How IPv6 is configured. Only the `settable` cases are offered and written.
enum class IPv6Mode { automatic, linkLocal, manual, off, unknown };

[[nodiscard]] QString rawValue(IPv6Mode mode);
/// The display word: "Link-local only", "—" for `unknown`.
[[nodiscard]] QString label(IPv6Mode mode);
[[nodiscard]] std::optional<IPv6Mode> ipv6ModeFromRaw(const QString &raw);

/// Every case, in order.
[[nodiscard]] const QList<IPv6Mode> &allIPv6Modes();
/// `automatic`, `linkLocal`, `off`: what the program offers and writes.
[[nodiscard]] const QList<IPv6Mode> &settableIPv6Modes();
[[nodiscard]] bool isSettable(IPv6Mode mode);

} // namespace VLANKit
