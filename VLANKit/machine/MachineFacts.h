#pragma once

#include <QString>

#include <optional>

namespace VLANKit {
/// What the platform tells of this machine, for its identity.
class MachineFacts
{
public:
    virtual ~MachineFacts() = default;
    /// The machine's display name; never empty and never "—".
    [[nodiscard]] virtual QString machineDisplayName() const = 0;
    /// The hardware identifier (IOPlatformUUID on a Mac); absent when the hardware gives none.
    [[nodiscard]] virtual std::optional<QString> hardwareUUID() const = 0;
};
} // namespace VLANKit
