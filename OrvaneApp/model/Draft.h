#pragma once

#include "OrvaneApp/model/IPFields.h"
#include "VLANKit/values/IPConfig.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace VLANKit {
struct AddressPlan;
}

/// One row of the Add tab: a VLAN to build, as the user types it. Its address belongs to the
/// address plan until the user types one of their own.
class Draft : public QObject
{
    Q_OBJECT

public:
    explicit Draft(QString tag = QString(), QString name = QString());

    /// The row's identity, new for every draft.
    [[nodiscard]] const QUuid &id() const { return m_id; }

    [[nodiscard]] const QString &tag() const { return m_tag; }
    void setTag(const QString &tag);
    [[nodiscard]] const QString &name() const { return m_name; }
    void setName(const QString &name);
    /// Only `dhcp` and `manual` are offered.
    [[nodiscard]] VLANKit::IPMode mode() const { return m_mode; }
    void setMode(VLANKit::IPMode mode);
    [[nodiscard]] const QString &address() const { return m_fields.address; }
    void setAddress(const QString &address);
    [[nodiscard]] const QString &subnetMask() const { return m_fields.subnetMask; }
    void setSubnetMask(const QString &subnetMask);
    [[nodiscard]] const QString &router() const { return m_fields.router; }
    void setRouter(const QString &router);
    [[nodiscard]] const QString &dns() const { return m_fields.dns; }
    void setDNS(const QString &dns);
    /// The address belongs to the plan, which rewrites it.
    [[nodiscard]] bool autoAddress() const { return m_autoAddress; }
    void setAutoAddress(bool autoAddress);
    [[nodiscard]] const std::optional<IPFields> &stash() const { return m_stash; }

    /// Nothing that makes a VLAN was typed: DNS, router and mask don't count.
    [[nodiscard]] bool isBlank() const;
    [[nodiscard]] std::optional<qint64> tagValue() const;
    /// The name the VLAN gets: the tag in front, once.
    [[nodiscard]] QString effectiveName() const;
    [[nodiscard]] VLANKit::IPConfig ipConfig() const;

    /// Fills an empty mask, and the address while the plan owns it, on a Manual row.
    void applyPlan(const VLANKit::AddressPlan &plan);
    /// After `mode` changed from `from`: the four fields go to the stash when leaving Manual,
    /// and come back from it when returning.
    void modeChanged(VLANKit::IPMode from, const VLANKit::AddressPlan &plan);
    /// After the address was typed: decides whether the plan or the user owns it.
    void reconcileAddressOwnership(const VLANKit::AddressPlan &plan);

Q_SIGNALS:
    void changed();

private:
    template <typename T>
    void update(T &field, const T &value)
    {
        if (field == value)
            return;
        field = value;
        Q_EMIT changed();
    }
    void setFields(const IPFields &fields);
    void fillSubnetMask(const VLANKit::AddressPlan &plan);

    QUuid m_id = QUuid::createUuid();
    QString m_tag;
    QString m_name;
    VLANKit::IPMode m_mode = VLANKit::IPMode::dhcp;
    IPFields m_fields;
    bool m_autoAddress = true;
    std::optional<IPFields> m_stash;
};
