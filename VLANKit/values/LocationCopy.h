#pragma once

#include <QMap>
#include <QString>

namespace VLANKit {

/// What copying a Location answers: the new set, and each copied service's new identifier.
struct LocationCopy
{
    QString setID;
    /// Source service identifier to the identifier of its copy; only copied services.
    QMap<QString, QString> serviceIDs;

    friend bool operator==(const LocationCopy &, const LocationCopy &) = default;
};

} // namespace VLANKit
