#pragma once

#include <QString>

namespace VLANKit {

/// One Location: a network set of the system.
struct LocationRecord
{
    QString name;
    QString setID;
    /// The set the machine is using now.
    bool isCurrent = false;
    qint64 serviceCount = 0;
    qint64 vlanServiceCount = 0;

    friend bool operator==(const LocationRecord &, const LocationRecord &) = default;
};

} // namespace VLANKit
