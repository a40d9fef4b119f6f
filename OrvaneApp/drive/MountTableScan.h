#pragma once

#include <cstddef>

/// Looks for one mount in the kernel's mount table as it streams past in pieces of any size:
/// a line whose mount ID (the first field) and device numbers (the third) are both the ones
/// watched. It allocates nothing and calls nothing, so the drive's waiter can run it after the
/// drive has gone.
struct MountTableScan
{
    long long wantedId;
    /// "MAJOR:MINOR", zero-terminated, as the table writes it.
    const char *wantedDevice;

    /// A scan of nothing yet. Every field starts at zero, so that making one calls no code
    /// outside the waiter's own, whatever the build.
    [[nodiscard]] static MountTableScan of(long long mountId, const char *device);

    void feed(const char *bytes, std::size_t count);
    /// Ends the last line when the table does not end with a line end.
    void finish();
    [[nodiscard]] bool found() const;

private:
    void endLine();

    int m_field;
    long long m_id;
    int m_idDigits;
    bool m_idInvalid;
    std::size_t m_deviceMatched;
    bool m_deviceDiffers;
    bool m_deviceMatches;
    bool m_lineHasText;
    bool m_found;
};

/// What one read of the whole table from its start found.
enum class TableRead { holdsMount, lacksMount, failed };

/// Reads the table behind `descriptor` from offset 0 to its end, in chunks of the waiter's
/// static buffer, and scans it. A read that fails anywhere is `failed`, never `lacksMount`.
[[nodiscard]] TableRead readMountTable(int descriptor, long long mountId, const char *device);

/// The size of the waiter's buffer: a table larger than this is read in several chunks.
inline constexpr std::size_t mountTableChunk = 4096;
