#pragma once

#include "VLANKit/platform/document/DocumentSession.h"

#include <QSet>
#include <QString>

#include <optional>

namespace VLANKit {

/// The names of services as the system's own preferences file gives them. A service that
/// stores its interface's stored word ("VLAN (vlan3)", maybe with a number behind it) shows the
/// interface's display name in its place, so that a VLAN service follows its VLAN's name; a
/// name equal to the display name is stored as that word. Two services of one set never show
/// the same name.
class ServiceNaming
{
public:
    /// The name a service shows; absent when it stores none and its interface shows none.
    [[nodiscard]] static std::optional<QString> shownName(const DocumentSession &session,
                                                          const QString &serviceID);
    /// What the service stores when it is given this name.
    [[nodiscard]] static QString nameToStore(const DocumentSession &session,
                                             const QString &serviceID, const QString &name);
    /// Another service that shows this name and shares a set with the service; or, with a set,
    /// another service of that set.
    [[nodiscard]] static bool isTaken(DocumentSession &session, const QString &serviceID,
                                      const QString &name,
                                      const std::optional<QString> &inSet = std::nullopt);
    /// The next name the system tries when a name is taken in a set: a last word that is a
    /// positive number counts up, anything else gets " 2".
    [[nodiscard]] static QString nextName(const QString &name);

private:
    /// Every service that shows the name, found through the session's index.
    [[nodiscard]] static QSet<QString> servicesShowing(DocumentSession &session,
                                                       const QString &name);
};

} // namespace VLANKit
