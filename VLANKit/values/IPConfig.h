#pragma once

#include "VLANKit/values/IPMode.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// One service's IPv4 settings, and the DNS servers that go with them.
struct IPConfig
{
    IPMode mode = IPMode::off;
    std::optional<QString> address;
    std::optional<QString> subnetMask;
    /// Absent means no gateway.
    std::optional<QString> router;
    /// In order; empty means none.
    QStringList dns;

    /// Mode `dhcp`, nothing else set.
    [[nodiscard]] static IPConfig dhcp();
    /// What a service with no IPv4 protocol reads as.
    [[nodiscard]] static IPConfig off();

    /// One short line for a plan or a result: "DHCP", "link-local", "off", "—", or
    /// "address/mask gw router" with "?" for an absent address or mask.
    [[nodiscard]] QString summary() const;

    friend bool operator==(const IPConfig &, const IPConfig &) = default;
};

} // namespace VLANKit
