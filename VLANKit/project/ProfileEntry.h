#pragma once

#include "VLANKit/values/IPConfig.h"

#include <QString>

namespace VLANKit {

/// One VLAN of a project file.
struct ProfileEntry
{
    qint64 tag = 0;
    /// The VLAN's name without the adapter suffix.
    QString name;
    /// Its IPv4 settings, as on the machine that wrote the file.
    IPConfig ip;
    /// Whether its service is on.
    bool enabled = false;

    friend bool operator==(const ProfileEntry &, const ProfileEntry &) = default;
};

} // namespace VLANKit
