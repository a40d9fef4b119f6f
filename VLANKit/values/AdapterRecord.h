#pragma once

#include <QString>

#include <optional>

namespace VLANKit {

/// One adapter on which VLANs can be hosted.
struct AdapterRecord
{
    QString bsdName;
    /// The system's display name, falling back to `bsdName`.
    QString displayName;
    /// The name by which the interface is known across all Locations; absent if it has none.
    std::optional<QString> serviceName;
    /// The kernel knows an interface of that name now.
    bool present = false;

    /// `serviceName` when present and not empty, else `displayName`.
    [[nodiscard]] QString friendlyName() const
    {
        return serviceName && !serviceName->isEmpty() ? *serviceName : displayName;
    }
    /// The adapter bears a name of its own.
    [[nodiscard]] bool isNamed() const
    {
        return serviceName && !serviceName->isEmpty() && *serviceName != displayName;
    }

    friend bool operator==(const AdapterRecord &, const AdapterRecord &) = default;
};

} // namespace VLANKit
