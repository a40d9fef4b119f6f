#pragma once

#include "OrvaneApp/drive/MountTable.h"

#include <QString>

#include <optional>

/// The disk under a Linux mount, as sysfs shows it, and what its place on the machine says.
struct BlockDisk
{
    /// The disk's own node in sysfs, its real path (".../block/sdb"), partitions and
    /// device-mapper layers followed down.
    QString node;
    std::optional<bool> isRemovable;
    std::optional<bool> isInternal;
    std::optional<bool> isEjectable;

    friend bool operator==(const BlockDisk &, const BlockDisk &) = default;

    /// The disk under `mount`, found from its device numbers, or from its source where the
    /// numbers are anonymous (btrfs); absent when the mount has no block device. `sysRoot` is
    /// where sysfs stands ("/sys" on a running system).
    [[nodiscard]] static std::optional<BlockDisk> under(const MountEntry &mount,
                                                        const QString &sysRoot);
};
