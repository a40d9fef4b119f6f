#include "VLANKit/files/AtomicFile.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace VLANKit {

int flushToDisk(int fileDescriptor)
{
    // fsync on macOS leaves the data in the drive's cache; F_FULLFSYNC asks the drive to write
    // it. Some file systems refuse it, and then fsync is the best there is.
    if (::fcntl(fileDescriptor, F_FULLFSYNC) == 0)
        return 0;
    return ::fsync(fileDescriptor) == 0 ? 0 : errno;
}

} // namespace VLANKit
