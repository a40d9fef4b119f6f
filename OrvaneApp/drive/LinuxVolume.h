#pragma once

#include "OrvaneApp/drive/BlockDisk.h"
#include "OrvaneApp/drive/MountTable.h"
#include "OrvaneApp/drive/VolumeFacts.h"

#include <QString>

#include <optional>

/// What Linux says of the volume that holds a file: its mount, the disk beneath it, and the
/// facts drive care judges. The roots of procfs and sysfs are given, so that a test can hand
/// it a tree of its own.
struct LinuxVolume
{
    MountEntry mount;
    std::optional<BlockDisk> disk;
    DriveCare::VolumeFacts facts;

    /// The volume holding `path`, which must already be a real path (no link, no "..").
    /// Absent when the mount table can't be read or holds no mount for it.
    [[nodiscard]] static std::optional<LinuxVolume>
    read(const QString &path, const QString &procRoot, const QString &sysRoot);

    /// Whether a file system of this type lives elsewhere on a network: absent for a FUSE type
    /// that could be either.
    [[nodiscard]] static std::optional<bool> isLocalType(const QString &fileSystemType,
                                                         bool hasBlockDevice);
};
