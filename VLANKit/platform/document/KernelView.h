#pragma once

#include "VLANKit/platform/document/DocumentMachine.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

#include <cstdint>
#include <memory>
#include <optional>

namespace VLANKit {

/// What the machine's kernel holds after the preferences were applied: the interfaces that
/// exist, with their links, frame sizes and media, and the live state that the dynamic store
/// publishes, keyed as the system keys it ("State:/Network/Service/<id>/IPv4").
///
/// The kernel follows the current set only: VLANs stand on attached adapters that can carry
/// them; an enabled service with an enabled IPv4 protocol, whose interface exists and whose
/// link (or its parent's) is up, holds its manual address, a DHCP lease where a server of the
/// machine answers, or a self-assigned 169.254.x.y address.
struct KernelView
{
    struct Interface
    {
        QString bsdName;
        std::uint32_t index = 0;
        QString type;
        QString displayName;
        bool linkUp = false;
        std::optional<qint64> mtu;
        std::optional<QString> mediaSubType;
        QStringList mediaOptions;
        /// For a VLAN: its adapter and tag.
        QString parent;
        std::optional<qint64> tag;
        friend bool operator==(const Interface &, const Interface &) = default;
    };

    QList<Interface> interfaces;
    QVariantMap dynamicStore;
    /// Where each interface stands in `interfaces`, by kernel name.
    QHash<QString, qsizetype> positions;

    /// The view after applying these preferences on this machine.
    [[nodiscard]] static KernelView applying(const QVariantMap &preferences,
                                             const std::shared_ptr<const DocumentMachine> &machine);

    [[nodiscard]] const Interface *interface(const QString &bsdName) const;

    /// The generated state file's contents, and back; absent for contents of another shape.
    [[nodiscard]] QVariantMap toPropertyList() const;
    [[nodiscard]] static std::optional<KernelView> fromPropertyList(const QVariant &value);

    friend bool operator==(const KernelView &, const KernelView &) = default;
};

} // namespace VLANKit
