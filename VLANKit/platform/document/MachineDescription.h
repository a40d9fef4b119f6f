#pragma once

#include "VLANKit/platform/document/HardwareInterface.h"

#include <QList>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace VLANKit {

/// The machine behind a folder of network preferences, as a person described it by hand in
/// "machine.toml": what is attached, which links are up, where a DHCP server answers, the
/// machine's name and identifier, and what the administrator right answers. Orvane reads it
/// and never writes it.
struct MachineDescription
{
    /// How the administrator right answers.
    enum class Answer {
        allow,
        deny,
        cancel,
        fail,
        /// `AuthorizationCreate` succeeds and hands over no handle.
        noHandle,
    };

    /// A DHCP server on an adapter's untagged network, or on one VLAN of it.
    struct DHCPServer
    {
        QString adapter;
        std::optional<qint64> tag;
        std::array<int, 4> firstAddress{};
        std::array<int, 4> subnetMask{};
        std::optional<QString> router;
        friend bool operator==(const DHCPServer &, const DHCPServer &) = default;
    };

    std::optional<QString> computerName;
    std::optional<QString> hardwareUUID;
    Answer answer = Answer::allow;
    /// The status of a failing answer.
    std::int32_t status = 0;
    /// Absent when the description lists none: the interface list of the folder stands then.
    std::optional<QList<HardwareInterface>> interfaces;
    QList<DHCPServer> dhcpServers;

    friend bool operator==(const MachineDescription &, const MachineDescription &) = default;
};

} // namespace VLANKit
