#pragma once

#include <QString>

#include <optional>

namespace VLANKit {

/// How IPv4 is configured. The raw value is the word written to project files.
enum class IPMode { dhcp, manual, linkLocal, off, unknown };

/// Every case, in order.
inline constexpr IPMode allIPModes[] = {IPMode::dhcp, IPMode::manual, IPMode::linkLocal,
                                        IPMode::off, IPMode::unknown};

[[nodiscard]] QString rawValue(IPMode mode);
/// The mode whose raw value is exactly `raw`; none for any other string.
[[nodiscard]] std::optional<IPMode> ipModeFromRaw(const QString &raw);

} // namespace VLANKit
