#pragma once

#include <QString>

#include <optional>

/// One line of a Linux mount table (`/proc/PID/mountinfo`), with its paths decoded.
struct MountEntry
{
    qint64 id = 0;
    qint64 major = 0;
    qint64 minor = 0;
    /// The device numbers as the table writes them, "MAJOR:MINOR".
    QString deviceNumbers;
    QString point;
    QString fileSystemType;
    QString source;

    friend bool operator==(const MountEntry &, const MountEntry &) = default;

    /// Device numbers with major 0 name no block device (tmpfs, overlay, btrfs subvolumes).
    [[nodiscard]] bool hasAnonymousDevice() const { return major == 0; }
};

/// Reading the kernel's mount table.
namespace MountTable {

/// Turns the table's octal escapes ("\040" for a space, "\134" for a backslash) back into
/// their characters; anything that is not a backslash and three octal digits stays.
[[nodiscard]] QString decodeEscapes(const QString &field);

/// One line of the table; absent when it lacks a field the kernel always writes.
[[nodiscard]] std::optional<MountEntry> parseLine(const QString &line);

/// The mount holding `path`: the one whose point is the longest prefix of it at a folder
/// boundary. Where two mounts share a point, the later line, the one on top, wins.
[[nodiscard]] std::optional<MountEntry> holding(const QString &table, const QString &path);

} // namespace MountTable
