#pragma once

#include "VLANKit/platform/document/DocumentSession.h"
#include "VLANKit/platform/document/InterfaceFacts.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace VLANKit {

/// The VLAN interfaces of a session's document, under VirtualNetworkInterfaces/VLAN, keyed by
/// their kernel names. They belong to the whole configuration, not to a set, and no VLAN call
/// touches a service.
class DocumentVLANs
{
public:
    /// The VLANs the system counts (a string parent and a numeric tag), in the document's order.
    [[nodiscard]] static QStringList names(const DocumentSession &session);
    [[nodiscard]] static std::optional<SessionIndex::VLANEntry>
    entry(const DocumentSession &session, const QString &name);

    /// A new VLAN under the first free kernel name; the tag must be free on that parent.
    [[nodiscard]] static std::optional<QString>
    create(DocumentSession &session, const InterfaceFacts &parent, qint64 tag, int &status);
    static bool remove(DocumentSession &session, const QString &name, int &status);
    static bool setParentAndTag(DocumentSession &session, const QString &name,
                                const InterfaceFacts &parent, qint64 tag, int &status);
    static bool setDisplayName(DocumentSession &session, const QString &name,
                               const QString &displayName, int &status);

private:
    /// Whether a VLAN may stand on that parent with that tag, other than `name` itself.
    static bool mayStand(DocumentSession &session, const QString &name,
                         const InterfaceFacts &parent, qint64 tag, int &status);
    /// Changes one key of a VLAN's dictionary, keeping the index in step.
    static void change(DocumentSession &session, const QString &name, const QString &key,
                       const QVariant &value);
};

} // namespace VLANKit
