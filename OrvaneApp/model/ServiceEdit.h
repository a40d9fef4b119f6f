#pragma once

#include "OrvaneApp/model/IPFields.h"
#include "OrvaneApp/model/RowSource.h"
#include "VLANKit/machine/LiveState.h"
#include "VLANKit/values/HardwareCapabilities.h"
#include "VLANKit/values/PlannedChange.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace VLANKit {
struct AddressPlan;
}

/// One row of the Current tab: a service's settings as the user types them, beside the
/// `RowSource` they came from. The edit is the difference between the two, and everything said
/// about it is derived from that difference on demand.
class ServiceEdit : public QObject
{
    Q_OBJECT

public:
    enum class Liveness { connected, selfAssigned, notConnected, inactive, notInLocation };
    /// The control a problem belongs to.
    enum class Field { name, address, subnetMask, router, dns, mtu, speed };

    struct Problem
    {
        Field field = Field::name;
        QString message;
        friend bool operator==(const Problem &, const Problem &) = default;
    };

    /// The thirteen fields the user edits, as the row holds them.
    struct Edited
    {
        QString name;
        QString parent;
        VLANKit::IPMode mode = VLANKit::IPMode::off;
        QString address;
        QString subnetMask;
        QString router;
        VLANKit::IPv6Mode ipv6 = VLANKit::IPv6Mode::off;
        QString dnsServers;
        QString searchDomains;
        bool enabled = false;
        QString mtu;
        QString speed;
        QStringList duplex;

        /// What a new row holds for this source.
        [[nodiscard]] static Edited from(const RowSource &source);
        friend bool operator==(const Edited &, const Edited &) = default;
    };

    explicit ServiceEdit(RowSource source);

    [[nodiscard]] const RowSource &source() const { return m_source; }
    void setSource(RowSource source);

    [[nodiscard]] const Edited &edited() const { return m_edited; }
    [[nodiscard]] const QString &name() const { return m_edited.name; }
    void setName(const QString &name);
    [[nodiscard]] const QString &parent() const { return m_edited.parent; }
    void setParent(const QString &parent);
    [[nodiscard]] VLANKit::IPMode mode() const { return m_edited.mode; }
    void setMode(VLANKit::IPMode mode);
    [[nodiscard]] const QString &address() const { return m_edited.address; }
    void setAddress(const QString &address);
    [[nodiscard]] const QString &subnetMask() const { return m_edited.subnetMask; }
    void setSubnetMask(const QString &subnetMask);
    [[nodiscard]] const QString &router() const { return m_edited.router; }
    void setRouter(const QString &router);
    [[nodiscard]] VLANKit::IPv6Mode ipv6() const { return m_edited.ipv6; }
    void setIPv6(VLANKit::IPv6Mode ipv6);
    [[nodiscard]] const QString &dnsServers() const { return m_edited.dnsServers; }
    void setDNSServers(const QString &dnsServers);
    [[nodiscard]] const QString &searchDomains() const { return m_edited.searchDomains; }
    void setSearchDomains(const QString &searchDomains);
    [[nodiscard]] bool enabled() const { return m_edited.enabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] const QString &mtu() const { return m_edited.mtu; }
    void setMTU(const QString &mtu);
    [[nodiscard]] const QString &speed() const { return m_edited.speed; }
    void setSpeed(const QString &speed);
    [[nodiscard]] const QStringList &duplex() const { return m_edited.duplex; }
    void setDuplex(const QStringList &duplex);

    /// Kept up by every reload.
    [[nodiscard]] const std::optional<VLANKit::HardwareCapabilities> &offers() const
    {
        return m_offers;
    }
    void setOffers(const std::optional<VLANKit::HardwareCapabilities> &offers);
    [[nodiscard]] const QHash<QString, VLANKit::ClosedRange> &parentFrameRanges() const
    {
        return m_parentFrameRanges;
    }
    void setParentFrameRanges(const QHash<QString, VLANKit::ClosedRange> &ranges);
    [[nodiscard]] const std::optional<VLANKit::LiveState::Address> &holds() const
    {
        return m_holds;
    }
    void setHolds(const std::optional<VLANKit::LiveState::Address> &holds);
    [[nodiscard]] const std::optional<IPFields> &stash() const { return m_stash; }

    [[nodiscard]] static QString label(Liveness liveness);
    [[nodiscard]] Liveness liveness() const;

    [[nodiscard]] bool nameChanged() const;
    [[nodiscard]] bool nameEmptied() const;
    [[nodiscard]] bool parentChanged() const;
    [[nodiscard]] bool ipv6Changed() const;
    [[nodiscard]] bool dnsChanged() const;
    [[nodiscard]] bool enabledChanged() const;
    /// May be saved: some setting differs from the source in a way that means something.
    [[nodiscard]] bool isDirty() const;
    /// Any edited field differs, as text, from what a new row holds: survives a reload.
    [[nodiscard]] bool isTouched() const;
    [[nodiscard]] bool mtuIsNotANumber() const;
    [[nodiscard]] bool hasMoreSettings() const;

    /// IPv4 as typed; DNS stays out, so that the two are compared apart.
    [[nodiscard]] VLANKit::IPConfig ipConfig() const;
    /// What a new row's `ipConfig` gives, so an untouched row never differs from it.
    [[nodiscard]] VLANKit::IPConfig originalIP() const;
    [[nodiscard]] VLANKit::HardwareSettings hardware() const;

    /// The changes that save the row, in the order they are made.
    [[nodiscard]] QList<VLANKit::PlannedChange> changes() const;
    /// The first thing that stops the row from being saved.
    [[nodiscard]] std::optional<Problem> problem() const;
    /// How many times, over every row of the process, whether a row is dirty, its changes or
    /// its problem have been worked out: the model's derived values are counted by it, so that a
    /// walk per row inside a walk of the rows shows in a test, not at a show.
    [[nodiscard]] static quint64 derivations() { return s_derivations; }
    [[nodiscard]] std::optional<VLANKit::PlannedChange> removeFromLocationChange() const;
    /// A new row from the same source, with what the last reload told of the hardware.
    [[nodiscard]] std::shared_ptr<ServiceEdit> reverted() const;

    /// Fills an empty mask and an empty address of a Manual row from the plan.
    void applyPlan(const VLANKit::AddressPlan &plan);
    /// After `mode` changed from `from`: the address fields go to the stash when leaving Manual
    /// and come back from it when returning.
    void modeChanged(VLANKit::IPMode from, const VLANKit::AddressPlan &plan);
    /// After `speed` changed: the duplex follows what the driver offers for the new speed.
    void speedChanged();

    /// The rows for fresh sources: a touched row whose settings nobody else changed is kept,
    /// every other row is new.
    [[nodiscard]] static QList<std::shared_ptr<ServiceEdit>>
    reseeded(const QList<std::shared_ptr<ServiceEdit>> &old, const QList<RowSource> &sources);
    /// The entries of a list typed with commas, spaces, tabs or line ends between them.
    [[nodiscard]] static QStringList list(const QString &text);

Q_SIGNALS:
    void changed();

private:
    static inline quint64 s_derivations = 0;

    template <typename T>
    void update(T &field, const T &value)
    {
        if (field == value)
            return;
        field = value;
        Q_EMIT changed();
    }

    [[nodiscard]] static VLANKit::IPConfig ipConfigOf(const Edited &edited);
    [[nodiscard]] QString trimmedName() const;
    /// The frame sizes of the new parent, when the parent is being changed to a known one.
    [[nodiscard]] std::optional<VLANKit::ClosedRange> newParentRange() const;
    [[nodiscard]] std::optional<Problem> addressProblem() const;
    [[nodiscard]] std::optional<Problem> dnsProblem() const;
    [[nodiscard]] std::optional<Problem> hardwareProblem() const;

    RowSource m_source;
    Edited m_edited;
    std::optional<VLANKit::HardwareCapabilities> m_offers;
    QHash<QString, VLANKit::ClosedRange> m_parentFrameRanges;
    std::optional<VLANKit::LiveState::Address> m_holds;
    std::optional<IPFields> m_stash;
};
