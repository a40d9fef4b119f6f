#pragma once

#include <QMap>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace VLANKit {

class PlatformBackend;

/// One snapshot of the IPv4 state that the system publishes for its active services: what
/// each holds at this moment, as DHCP or the configuration gave it.
struct LiveState
{
    /// One service's live IPv4 state.
    struct Address
    {
        QString address;
        std::optional<QString> subnetMask{};
        std::optional<QString> router{};

        friend bool operator==(const Address &, const Address &) = default;
    };

    /// Service identifier to its state; a service without published IPv4 state has no entry.
    QMap<QString, Address> ipv4;

    /// The snapshot in the dynamic store's answer, from each key
    /// "State:/Network/Service/<id>/IPv4" to its value. An entry that can't be read is skipped.
    [[nodiscard]] static LiveState parsing(const QVariantMap &answer);

    /// A fresh snapshot from the platform's dynamic store; empty when there is none. Never
    /// fails, and keeps no session between reads.
    [[nodiscard]] static LiveState read(PlatformBackend &platform);

    friend bool operator==(const LiveState &, const LiveState &) = default;
};

} // namespace VLANKit
