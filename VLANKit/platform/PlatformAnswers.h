#pragma once

#include "VLANKit/platform/PlatformHandle.h"

#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <cstdint>
#include <optional>

namespace VLANKit {

/// What `AuthorizationCreate` gives: a status, and a handle that may be missing even with
/// status 0.
struct AuthorizationCreated
{
    std::int32_t status = 0;
    AuthorizationRef authorization;
};

/// What `SCNetworkInterfaceCopyMTU` gives when it succeeds: the frame size in force, and the
/// lowest and highest that the interface takes.
struct InterfaceMTU
{
    qint64 current = 0;
    qint64 minimum = 0;
    qint64 maximum = 0;
    friend bool operator==(const InterfaceMTU &, const InterfaceMTU &) = default;
};

/// What `SCNetworkInterfaceCopyMediaOptions` gives when it succeeds: the active settings
/// (subtype and options) and the media on offer, each as the framework hands them over.
struct InterfaceMedia
{
    std::optional<QVariantMap> active;
    std::optional<QVariantList> available;
};

/// The last failure as `SCCopyLastError` tells it: the code of `SCError` and a description,
/// which is `SCErrorString` of the code unless the backend knows a whole sentence.
struct PlatformError
{
    int code = 0;
    QString description;
};

} // namespace VLANKit
