#include "VLANKit/files/FileSignature.h"

#include <sys/stat.h>
#include <time.h>

namespace VLANKit {

struct timespec FileSignature::modificationTime(const struct stat &info)
{
    return info.st_mtim;
}

} // namespace VLANKit
