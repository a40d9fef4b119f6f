#pragma once

#include "VLANKit/platform/PlatformHandle.h"
#include "VLANKit/store/ServiceDetails.h"
#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"
#include "VLANKit/values/ServiceRecord.h"
#include "VLANKit/values/VLANRecord.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

namespace VLANKit {

/// One service of the Location under view, with all that any reader asks of it: read from the
/// snapshot once for all of them.
struct ServiceReading
{
    ServiceRef service;
    InterfaceRef interface;
    std::optional<QString> id;
    std::optional<QString> name;
    std::optional<QString> bsdName;
    std::optional<QString> type;
    std::optional<QString> hardwareName;
    bool enabled = false;
    IPConfig ip;
    IPv6Mode ipv6 = IPv6Mode::off;
    QStringList searchDomains;
    HardwareSettings hardware;

    /// Two readings of one service agree; the handles are the platform's and not compared.
    friend bool operator==(const ServiceReading &a, const ServiceReading &b)
    {
        return a.id == b.id && a.name == b.name && a.bsdName == b.bsdName && a.type == b.type
               && a.hardwareName == b.hardwareName && a.enabled == b.enabled && a.ip == b.ip
               && a.ipv6 == b.ipv6 && a.searchDomains == b.searchDomains && a.hardware == b.hardware
               && a.service.isNull() == b.service.isNull()
               && a.interface.isNull() == b.interface.isNull();
    }
};

/// One VLAN interface of the session, as read from the snapshot.
struct VLANReading
{
    InterfaceRef vlan;
    InterfaceRef parent;
    std::optional<QString> bsdName;
    std::optional<QString> parentBSD;
    std::optional<QString> name;
    std::optional<QString> parentName;
    std::optional<qint64> tag;

    friend bool operator==(const VLANReading &a, const VLANReading &b)
    {
        return a.bsdName == b.bsdName && a.parentBSD == b.parentBSD && a.name == b.name
               && a.parentName == b.parentName && a.tag == b.tag
               && a.parent.isNull() == b.parent.isNull();
    }
};

/// What the readers derive from the snapshot and share: kept until anything changes the
/// snapshot or the Location under view, then read again on first use.
struct ReadTables
{
    /// The store's count of changing calls when these were read.
    quint64 changesSeen = 0;
    /// The target set's services, in the order the set lists them.
    std::optional<QList<ServiceReading>> targetServices;
    /// Every VLAN interface, in the order the session lists them.
    std::optional<QList<VLANReading>> vlanInterfaces;
    std::optional<QHash<QString, ServiceDetails>> serviceIndex;
    /// The Location's services as records, in service order.
    std::optional<QList<ServiceRecord>> services;
    /// Every VLAN as a record, ascending by tag, all but `live`: that is the kernel's to say.
    std::optional<QList<VLANRecord>> vlans;
};

} // namespace VLANKit
