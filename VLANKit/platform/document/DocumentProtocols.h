#pragma once

#include "VLANKit/platform/document/DocumentSession.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace VLANKit {

/// The protocols of a service: its dictionaries other than the interface's, each switched off
/// by the mark "__INACTIVE__" inside it.
class DocumentProtocols
{
public:
    /// Names that belong to the interface and are never protocols.
    [[nodiscard]] static bool isInterfaceEntity(const DocumentSession &session,
                                                const QString &serviceID, const QString &type);
    [[nodiscard]] static bool exists(const DocumentSession &session, const QString &serviceID,
                                     const QString &type);
    [[nodiscard]] static QStringList types(const DocumentSession &session,
                                           const QString &serviceID);
    /// Adds the protocol with the settings the system gives it on a wired interface.
    static bool add(DocumentSession &session, const QString &serviceID, const QString &type,
                    int &status);

    [[nodiscard]] static std::optional<QVariantMap>
    configuration(const DocumentSession &session, const QString &serviceID, const QString &type);
    /// Replaces the settings and keeps whether the protocol is on.
    static bool setConfiguration(DocumentSession &session, const QString &serviceID,
                                 const QString &type,
                                 const std::optional<QVariantMap> &configuration, int &status);
    [[nodiscard]] static bool isEnabled(const DocumentSession &session, const QString &serviceID,
                                        const QString &type);
    static bool setEnabled(DocumentSession &session, const QString &serviceID, const QString &type,
                           bool enabled, int &status);
};

} // namespace VLANKit
