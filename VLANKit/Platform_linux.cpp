#include "VLANKit/Platform.h"

#include <QStandardPaths>

namespace VLANKit {

Platform systemPlatform()
{
    // Without SystemConfiguration the program runs on its own copy of the example show machine.
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                         + QStringLiteral("/com.quillfence.orvane");
    return Platform::overFolder(exampleWorkingCopy(data));
}

} // namespace VLANKit
