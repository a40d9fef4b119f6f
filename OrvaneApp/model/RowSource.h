#pragma once

#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"
#include "VLANKit/values/VLANRecord.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the system says about one row of the Current tab: an adapter's service or a VLAN.
struct RowSource
{
    enum class Kind { adapter, vlan };

    Kind kind = Kind::adapter;
    /// The service ID of an adapter, the kernel name of a VLAN.
    QString id;
    /// Absent for a VLAN without a service in this Location.
    std::optional<QString> serviceID;
    QString device;
    std::optional<qint64> tag;
    /// The service name of an adapter, the VLAN's own name for a VLAN.
    QString name;
    /// Empty for an adapter.
    QString parent;
    bool attached = false;
    VLANKit::IPConfig ip;
    VLANKit::IPv6Mode ipv6 = VLANKit::IPv6Mode::off;
    QStringList searchDomains;
    bool enabled = false;
    VLANKit::HardwareSettings hardware;
    std::optional<VLANKit::VLANRecord> vlan;

    /// Equal in everything the user can edit: `attached` and `vlan` may differ.
    [[nodiscard]] bool sameSettings(const RowSource &other) const;
    [[nodiscard]] bool isVLAN() const { return kind == Kind::vlan; }
    [[nodiscard]] bool hasService() const { return serviceID.has_value(); }

    friend bool operator==(const RowSource &, const RowSource &) = default;
};
