#pragma once

#include "VLANKit/values/HostAssignment.h"

#include <QString>

namespace VLANKit {

class MachineFacts;

/// This machine as project files know it: its display name, and a mark that stays the same for
/// this hardware. The mark is a digest of the hardware's identifier, never the identifier itself,
/// for anybody may read it in a file.
struct MachineIdentity
{
    QString name;
    /// 12 lower-case hexadecimal characters, or empty when the hardware gave no identifier.
    QString id;

    /// The name and mark of the machine that the platform describes.
    [[nodiscard]] static MachineIdentity current(const MachineFacts &facts);

    /// This machine made the claim: by mark when it has one, else by name.
    [[nodiscard]] bool made(const HostAssignment &assignment) const;
    /// A claim from an older release, with this machine's name and no mark, may be this
    /// machine's. A machine without a mark has no such doubtful case.
    [[nodiscard]] bool mayHaveMade(const HostAssignment &assignment) const;
    /// The claim is somebody else's. A claim with this machine's name and no mark is not.
    [[nodiscard]] bool didNotMake(const HostAssignment &assignment) const;

    friend bool operator==(const MachineIdentity &, const MachineIdentity &) = default;
};

} // namespace VLANKit
