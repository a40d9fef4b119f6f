#pragma once

#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// One network service of a Location, of whatever kind. Its identity is `serviceID`.
struct ServiceRecord
{
    QString name;
    QString serviceID;
    QString interfaceBSD;
    /// The system's type word for the interface.
    QString interfaceType;
    bool enabled = false;
    IPConfig ip;
    bool isVLAN = false;
    std::optional<qint64> vlanTag;
    bool isWiFi = false;
    /// The interface has a kernel name, which a VPN, for one, has not.
    bool hasDevice = false;
    IPv6Mode ipv6 = IPv6Mode::off;
    QStringList searchDomains;
    std::optional<QString> hardwareName;
    HardwareSettings hardware;

    [[nodiscard]] const QString &id() const { return serviceID; }
    /// The service sits on a real adapter: it has a device and is no VLAN.
    [[nodiscard]] bool isAdapter() const { return hasDevice && !isVLAN; }

    friend bool operator==(const ServiceRecord &, const ServiceRecord &) = default;
};

} // namespace VLANKit
