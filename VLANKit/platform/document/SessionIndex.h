#pragma once

#include "VLANKit/platform/document/PreferencesDocument.h"
#include "VLANKit/platform/document/VLANNameAllocator.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <optional>

namespace VLANKit {

/// What a session looks up by key instead of walking its document: which sets link a service,
/// the services on each device and under each stored name, the VLANs on each parent and tag and
/// under each shown name, and the free VLAN names. Built from the document once, then kept up
/// to date by every change that touches its inputs; `build` of the changed document gives an
/// equal index, which the tests check.
class SessionIndex
{
public:
    /// A set's entry under Network/Service that leads to a service.
    struct Link
    {
        QString setID;
        QString key;
        friend bool operator==(const Link &, const Link &) = default;
    };

    /// A VLAN entry that the system counts: a string parent and a numeric tag.
    struct VLANEntry
    {
        QString parent;
        qint64 tag = 0;
        /// The name the VLAN shows: its own, else "VLAN (vlanN)".
        QString shownName;
    };

    [[nodiscard]] static SessionIndex build(const PreferencesDocument &document);
    /// What a VLAN dictionary holds, when the system counts it as a VLAN.
    [[nodiscard]] static std::optional<VLANEntry> vlanEntry(const QString &name,
                                                            const QVariant &value);
    /// The name a VLAN shows when it has none of its own.
    [[nodiscard]] static QString genericVLANName(const QString &name);

    // Links of sets to services, by the service they lead to; sets in key order.
    [[nodiscard]] QList<Link> links(const QString &serviceID) const;
    [[nodiscard]] bool links(const QString &setID, const QString &serviceID) const;
    void addLink(const QString &serviceID, const Link &link);
    void removeLink(const QString &serviceID, const Link &link);

    // Services, by the device of their interface and by their stored name.
    [[nodiscard]] QSet<QString> servicesOnDevice(const QString &bsdName) const;
    [[nodiscard]] QSet<QString> servicesStoring(const QString &name) const;
    void addService(const QString &serviceID, const QVariantMap &service);
    void removeService(const QString &serviceID, const QVariantMap &service);
    void renameService(const QString &serviceID, const std::optional<QString> &from,
                       const std::optional<QString> &to);

    // VLANs, by parent and tag and by the name they show.
    [[nodiscard]] QSet<QString> vlansOn(const QString &parent, qint64 tag) const;
    [[nodiscard]] QSet<QString> vlansShowing(const QString &name) const;
    void addVLAN(const QString &name, const QVariant &value);
    void removeVLAN(const QString &name, const QVariant &value);

    // The identifiers that stand in each set's service order.
    [[nodiscard]] bool isOrdered(const QString &setID, const QString &serviceID) const;
    void addToOrder(const QString &setID, const QString &serviceID);
    void removeFromOrder(const QString &setID, const QString &serviceID);
    /// The set's order is now this list, or gone when there is none.
    void replaceOrder(const QString &setID, const std::optional<QVariantList> &order);

    [[nodiscard]] VLANNameAllocator &names() { return m_names; }
    [[nodiscard]] const VLANNameAllocator &names() const { return m_names; }

    friend bool operator==(const SessionIndex &, const SessionIndex &) = default;

private:
    QHash<QString, QList<Link>> m_links;
    QHash<QString, QSet<QString>> m_byDevice;
    QHash<QString, QSet<QString>> m_byStoredName;
    QHash<QString, QSet<QString>> m_byParentAndTag;
    QHash<QString, QSet<QString>> m_byShownName;
    /// Per set, each identifier of its order with how many times it stands there.
    QHash<QString, QHash<QString, int>> m_ordered;
    VLANNameAllocator m_names;
};

} // namespace VLANKit
