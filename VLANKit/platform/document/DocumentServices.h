#pragma once

#include "VLANKit/platform/document/DocumentSession.h"
#include "VLANKit/platform/document/InterfaceFacts.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace VLANKit {

/// The services of a session's document, changed as the system's service calls change them.
/// A service lives under NetworkServices whether or not a set links it; one without an
/// "Interface" dictionary is invisible to look-ups.
class DocumentServices
{
public:
    [[nodiscard]] static bool exists(const DocumentSession &session, const QString &serviceID);
    /// Every visible service, in the document's order.
    [[nodiscard]] static QStringList ids(const DocumentSession &session);

    [[nodiscard]] static std::optional<QString>
    create(DocumentSession &session, const InterfaceFacts &interface, int &status);
    /// The default protocols that suit the interface, each only where the service has none.
    static bool establishDefaultConfiguration(DocumentSession &session, const QString &serviceID,
                                              int &status);
    /// Takes the service out of every set, then out of the preferences.
    static bool remove(DocumentSession &session, const QString &serviceID, int &status);

    static bool setName(DocumentSession &session, const QString &serviceID, const QString &name,
                        int &status);
    /// Stores a name as it stands, keeping the index in step; nothing removes it.
    static void storeName(DocumentSession &session, const QString &serviceID,
                          const std::optional<QString> &stored);

    [[nodiscard]] static bool isEnabled(const DocumentSession &session, const QString &serviceID);
    static bool setEnabled(DocumentSession &session, const QString &serviceID, bool enabled,
                           int &status);

    /// The settings of the service's interface in the first set that holds the service.
    [[nodiscard]] static std::optional<QVariantMap>
    interfaceConfiguration(DocumentSession &session, const QString &serviceID);
    /// Writes them into every set that holds the service; nothing or an empty map removes them.
    static bool setInterfaceConfiguration(DocumentSession &session, const QString &serviceID,
                                          const std::optional<QVariantMap> &configuration,
                                          int &status);

    /// A dictionary without its disabling mark, or nothing when nothing else is in it.
    [[nodiscard]] static std::optional<QVariantMap> withoutInactiveMark(const QVariantMap &map);
};

} // namespace VLANKit
