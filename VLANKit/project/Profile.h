#pragma once

#include "VLANKit/project/ProfileEntry.h"
#include "VLANKit/values/HostAssignment.h"

#include <QList>
#include <QString>

#include <optional>

namespace VLANKit {

struct MachineIdentity;

/// A project: a set of VLANs described once, so that several machines can be built alike, each
/// with its own host octet. Made by aggregate initialisation, it has no claims (`assignments`
/// absent) unless they are given; every field may be left out of the initialiser.
struct Profile
{
    QString name{};
    /// A free line about where it came from.
    std::optional<QString> note{};
    /// The kernel name of the adapter that the captured VLANs sat on.
    std::optional<QString> capturedFrom{};
    /// The host octet of the machine that wrote the addresses; the older way of knowing the
    /// host, kept for older files.
    std::optional<QString> hostOctet{};
    /// The dotted prefix of the address plan at saving, for the machine that opens the file.
    std::optional<QString> addressPrefix{};
    /// The octets claimed so far, one per machine. Absent and empty are different.
    std::optional<QList<HostAssignment>> assignments{};
    /// The VLANs, in file order.
    QList<ProfileEntry> entries{};

    /// What a project knows of one machine.
    struct Claim
    {
        enum class Kind {
            /// A claim that this machine made.
            own,
            /// A claim with this machine's name and no mark: it may be this machine's, from an
            /// older release.
            sameName,
            none,
        };
        Kind kind = Kind::none;
        /// Present for `own` and `sameName`.
        std::optional<HostAssignment> assignment;

        [[nodiscard]] static Claim own(HostAssignment assignment);
        [[nodiscard]] static Claim sameName(HostAssignment assignment);
        [[nodiscard]] static Claim none() { return {}; }

        friend bool operator==(const Claim &, const Claim &) = default;
    };

    /// The identity for the surfaces: the name, "#", and the tags in file order joined by ",".
    [[nodiscard]] QString id() const;
    /// At least one entry is manual and has an address.
    [[nodiscard]] bool hasManualAddresses() const;

    /// The claims sorted by host as a number; a host that is no number counts as 0.
    [[nodiscard]] QList<HostAssignment> roster() const;
    [[nodiscard]] Claim claim(const MachineIdentity &machine) const;
    /// The name of the machine that holds the octet, whoever it is.
    [[nodiscard]] std::optional<QString> machine(const QString &takingHost) const;
    /// The claim of the octet by a machine other than this one.
    [[nodiscard]] std::optional<HostAssignment> otherMachine(const QString &takingHost,
                                                             const MachineIdentity &than) const;
    /// The file after this machine claims the octet: its own earlier claim and any other claim
    /// of the octet are replaced.
    [[nodiscard]] Profile recording(const MachineIdentity &machine, const QString &host) const;
    /// A new capture saved over a project: that project's claims carried over, then this
    /// machine's claim of the octet, when one is given.
    [[nodiscard]] Profile saving(const std::optional<Profile> &over, const MachineIdentity &machine,
                                 const QString &host) const;
    /// One above the highest octet taken, else the lowest free one; empty when none is free.
    [[nodiscard]] QString suggestedHost() const;
    /// The last octet that all manual addresses agree on, else `hostOctet`.
    [[nodiscard]] std::optional<QString> detectedHostOctet() const;
    /// This machine's copy: every manual address takes the octet. Unchanged for an octet that
    /// is no number from 0 to 255.
    [[nodiscard]] Profile rehosted(const QString &to) const;

    friend bool operator==(const Profile &, const Profile &) = default;
};

} // namespace VLANKit
