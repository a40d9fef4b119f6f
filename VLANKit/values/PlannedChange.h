#pragma once

#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"
#include "VLANKit/values/VLANRecord.h"

#include <QString>
#include <QStringList>

#include <variant>

namespace VLANKit {

/// One change to a machine's VLANs and services, written down before it is made. Each carries
/// what is needed to perform it and to describe it: a line for the plan (`summary`) and a
/// sentence for afterwards (`completed`).
struct PlannedChange
{
    /// Make a VLAN on the plan's adapter, with a service.
    struct CreateVLAN
    {
        qint64 tag = 0;
        QString name;
        IPConfig ip;
        bool enabled = true;
        friend bool operator==(const CreateVLAN &, const CreateVLAN &) = default;
    };
    /// Move an existing VLAN to another adapter; `from` and `to` are kernel names.
    struct Reparent
    {
        VLANRecord record;
        QString from;
        QString to;
        friend bool operator==(const Reparent &, const Reparent &) = default;
    };
    /// Change the IPv4 settings of a VLAN's service, found by its interface. The tag stays.
    struct Retag
    {
        qint64 tag = 0;
        QString bsdName;
        QString name;
        IPConfig from;
        IPConfig to;
        friend bool operator==(const Retag &, const Retag &) = default;
    };
    struct SetEnabled
    {
        qint64 tag = 0;
        QString bsdName;
        QString name;
        bool enabled = true;
        friend bool operator==(const SetEnabled &, const SetEnabled &) = default;
    };
    /// Delete a VLAN and its services.
    struct RemoveVLAN
    {
        qint64 tag = 0;
        QString name;
        QString bsdName;
        friend bool operator==(const RemoveVLAN &, const RemoveVLAN &) = default;
    };
    /// Give a VLAN and its service a new name.
    struct Rename
    {
        qint64 tag = 0;
        QString bsdName;
        QString from;
        QString to;
        friend bool operator==(const Rename &, const Rename &) = default;
    };
    /// Give an existing VLAN a service in this Location.
    struct AddService
    {
        qint64 tag = 0;
        QString bsdName;
        QString name;
        friend bool operator==(const AddService &, const AddService &) = default;
    };
    /// Change the IPv4 settings of any service, found by its identifier.
    struct SetServiceIP
    {
        QString serviceID;
        QString name;
        IPConfig from;
        IPConfig to;
        friend bool operator==(const SetServiceIP &, const SetServiceIP &) = default;
    };
    struct SetServiceEnabled
    {
        QString serviceID;
        QString name;
        bool enabled = true;
        friend bool operator==(const SetServiceEnabled &, const SetServiceEnabled &) = default;
    };
    struct SetIPv6
    {
        QString serviceID;
        QString name;
        IPv6Mode from = IPv6Mode::off;
        IPv6Mode to = IPv6Mode::off;
        friend bool operator==(const SetIPv6 &, const SetIPv6 &) = default;
    };
    /// Empty lists clear the settings.
    struct SetDNS
    {
        QString serviceID;
        QString name;
        QStringList servers;
        QStringList searchDomains;
        friend bool operator==(const SetDNS &, const SetDNS &) = default;
    };
    /// Give an adapter a name of its own.
    struct RenameAdapter
    {
        QString bsdName;
        QString from;
        QString to;
        friend bool operator==(const RenameAdapter &, const RenameAdapter &) = default;
    };
    /// Give a plain adapter a service in this Location.
    struct AddAdapterService
    {
        QString bsdName;
        QString name;
        friend bool operator==(const AddAdapterService &, const AddAdapterService &) = default;
    };
    /// Take a service out of this Location.
    struct RemoveService
    {
        QString serviceID;
        QString name;
        friend bool operator==(const RemoveService &, const RemoveService &) = default;
    };
    /// An absent value in `to` asks for the driver's own.
    struct SetHardware
    {
        QString serviceID;
        QString name;
        HardwareSettings from;
        HardwareSettings to;
        friend bool operator==(const SetHardware &, const SetHardware &) = default;
    };

    using Case = std::variant<CreateVLAN, Reparent, Retag, SetEnabled, RemoveVLAN, Rename,
                              AddService, SetServiceIP, SetServiceEnabled, SetIPv6, SetDNS,
                              RenameAdapter, AddAdapterService, RemoveService, SetHardware>;

    Case change;

    template <typename T>
    PlannedChange(T value) // NOLINT(google-explicit-constructor): a case is a change
        : change(std::move(value))
    {}

    /// The plan's line, in the terse upper-case column form.
    [[nodiscard]] QString summary() const;
    /// The sentence that reports the change once made.
    [[nodiscard]] QString completed() const;

    template <typename T>
    [[nodiscard]] const T *as() const
    {
        return std::get_if<T>(&change);
    }

    friend bool operator==(const PlannedChange &, const PlannedChange &) = default;
};

} // namespace VLANKit
