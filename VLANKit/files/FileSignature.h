#pragma once

#include <QString>

#include <cstdint>

struct stat;
struct timespec;

namespace VLANKit {

/// What tells one version of a file from another, as the system's preferences do: device,
/// inode, modification time to the nanosecond, and size. A missing file has the all-zero
/// signature. Every commit replaces the file by a rename, so its inode changes each time.
struct FileSignature
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t size = 0;

    /// The signature of the file at the path now; all zeros when there is none.
    [[nodiscard]] static FileSignature ofPath(const QString &path);
    /// The signature of an open file.
    [[nodiscard]] static FileSignature ofDescriptor(int fileDescriptor);

    [[nodiscard]] static FileSignature fromStat(const struct stat &info);
    /// The modification time in what `stat` told: the one field whose name differs by system.
    [[nodiscard]] static struct timespec modificationTime(const struct stat &info);

    [[nodiscard]] bool isMissing() const { return *this == FileSignature(); }
    friend bool operator==(const FileSignature &, const FileSignature &) = default;
};

} // namespace VLANKit
