#include "VLANKit/files/AtomicFile.h"

#include <cerrno>
#include <unistd.h>

namespace VLANKit {

int flushToDisk(int fileDescriptor)
{
    return ::fdatasync(fileDescriptor) == 0 ? 0 : errno;
}

} // namespace VLANKit
