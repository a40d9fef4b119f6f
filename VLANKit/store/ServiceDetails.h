#pragma once

#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// What the store keeps of one service of the Location, under its interface's kernel name.
struct ServiceDetails
{
    std::optional<QString> id;
    std::optional<QString> name;
    bool enabled = false;
    IPConfig ip;
    IPv6Mode ipv6 = IPv6Mode::off;
    QStringList searchDomains;
    HardwareSettings hardware;

    friend bool operator==(const ServiceDetails &, const ServiceDetails &) = default;
};

} // namespace VLANKit
