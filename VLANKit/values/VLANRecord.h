#pragma once

#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// One VLAN interface, with the service on it in the Location under view, if there is one.
struct VLANRecord
{
    /// The interface's display name, falling back to `bsdName`.
    QString name;
    /// 0 when the system reports none.
    qint64 tag = 0;
    QString bsdName;
    QString parentBSD;
    QString parentName;
    /// The kernel knows an interface of that name now.
    bool live = false;
    std::optional<QString> serviceName;
    bool serviceEnabled = false;
    IPConfig ip;
    std::optional<QString> serviceID;
    IPv6Mode ipv6 = IPv6Mode::off;
    QStringList searchDomains;
    HardwareSettings hardware;

    /// Depends on `serviceID` alone.
    [[nodiscard]] bool hasService() const { return serviceID.has_value(); }

    friend bool operator==(const VLANRecord &, const VLANRecord &) = default;
};

} // namespace VLANKit
