#pragma once

#include "VLANKit/platform/PlatformHandle.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// A service of some Location, with the set that holds it.
struct ServiceBinding
{
    SetRef set;
    ServiceRef service;
};

/// What one store session derives from its snapshot and keeps, so that a batch of thousands of
/// changes doesn't rebuild it per change. Each table is filled on first use; a staging
/// operation that touches a table's inputs either updates it exactly or drops it.
struct StoreTables
{
    /// VLAN interfaces by kernel name, the first of a name kept.
    std::optional<QHash<QString, InterfaceRef>> vlanByBSD;
    /// The target set's services by identifier and by their interface's kernel name; the first
    /// listed wins in each.
    std::optional<QHash<QString, ServiceRef>> targetByID;
    std::optional<QHash<QString, ServiceRef>> targetByBSD;
    /// The target set's service order as stored, but for where the system put a service just
    /// added (`orderAwaiting`), which moves to the end of the order next.
    std::optional<QStringList> targetOrder;
    std::optional<QString> orderAwaiting;
    /// The kept order is newer than the stored one, and is written to this set before anything
    /// reads an order or the session commits: a batch of new services writes it once.
    SetRef orderToWrite;
    /// The name by which each interface is known across all Locations.
    std::optional<QHash<QString, QString>> nameIndex;
    /// Every service name on each interface, in any Location.
    std::optional<QHash<QString, QSet<QString>>> namesEverywhere;
    /// Every service of every Location by its interface's kernel name.
    std::optional<QHash<QString, QList<ServiceBinding>>> servicesByBSD;
    /// Kernel names beginning with "vlan" that services stand on and no VLAN interface has.
    std::optional<QSet<QString>> orphanedVLANs;
    /// How many VLANs stand on each adapter ("—" for those without one).
    std::optional<QHash<QString, qint64>> parentCounts;
    /// Labels of the VLAN-capable adapters, and each adapter's label as asked for.
    std::optional<QSet<QString>> adapterLabelSet;
    std::optional<QHash<QString, QString>> adapterLabels;

    /// The Location under view changed: what belongs to it goes.
    void dropTarget()
    {
        targetByID.reset();
        targetByBSD.reset();
        targetOrder.reset();
        orderAwaiting.reset();
        orderToWrite = {};
        nameIndex.reset();
        adapterLabelSet.reset();
        adapterLabels.reset();
    }
    /// Service names changed somewhere.
    void dropNames()
    {
        nameIndex.reset();
        namesEverywhere.reset();
        adapterLabelSet.reset();
        adapterLabels.reset();
    }
    /// Services or Locations came or went.
    void dropServices()
    {
        dropTarget();
        dropNames();
        servicesByBSD.reset();
        orphanedVLANs.reset();
    }
    void dropAll() { *this = StoreTables(); }
};

} // namespace VLANKit
