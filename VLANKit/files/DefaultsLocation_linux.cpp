#include "VLANKit/files/Defaults.h"

#include <QStandardPaths>

namespace VLANKit {

QString Defaults::standardFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/com.quillfence.orvane.plist");
}

Defaults Defaults::standard()
{
    return inFile(standardFilePath());
}

} // namespace VLANKit
