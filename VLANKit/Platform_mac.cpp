#include "VLANKit/Platform.h"

namespace VLANKit {

Platform systemPlatform()
{
    return Platform(makeSystemConfigurationBackend());
}

} // namespace VLANKit
