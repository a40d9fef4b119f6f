#pragma once

/// The thread that ends the process once the drive is gone, on Linux. It waits on the mount
/// table and the kernel's device events, and looks for the disk's node in sysfs.
namespace DriveWaiter {

/// Starts the waiter on the mount `mountId` with device numbers `device` ("MAJOR:MINOR") and,
/// unless empty, the disk's sysfs node `diskNode`. Answers 0 when it runs, -1 when the table
/// can't be read, doesn't hold that mount now, or no thread could be started.
[[nodiscard]] int arm(long long mountId, const char *device, const char *diskNode);

/// How many complete reads of the table have been made since the program started: tests count
/// them to know that an event has been seen and judged.
[[nodiscard]] unsigned tableReads();

} // namespace DriveWaiter
