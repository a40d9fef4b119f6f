#pragma once

#include <QString>

#include <optional>

namespace VLANKit {

/// One machine's claim of a host octet in a project file. Its identity is `host`.
struct HostAssignment
{
    /// The octet, as text.
    QString host;
    /// The display name of the machine that claimed it.
    QString machine;
    /// The mark of that machine; absent in a claim from an older release.
    std::optional<QString> machineID{};

    [[nodiscard]] const QString &id() const { return host; }

    friend bool operator==(const HostAssignment &, const HostAssignment &) = default;
};

} // namespace VLANKit
