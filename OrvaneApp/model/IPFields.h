#pragma once

#include "VLANKit/values/IPConfig.h"

#include <QString>

namespace VLANKit {
struct AddressPlan;
}

/// The address fields of a row as typed, kept aside while the row isn't Manual.
struct IPFields
{
    QString address;
    QString subnetMask;
    QString router;
    QString dns;

    /// The Manual settings that typed fields give: each trimmed, an empty router none, no DNS.
    [[nodiscard]] static VLANKit::IPConfig manual(const QString &address, const QString &subnetMask,
                                                  const QString &router);
    /// The mask that fills an empty mask field: the plan's, else the usual /24.
    [[nodiscard]] static QString planMask(const VLANKit::AddressPlan &plan);

    friend bool operator==(const IPFields &, const IPFields &) = default;
};
