#include "VLANKit/platform/document/HardwareInterface.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

QString HardwareInterface::settingsEntity(const QString &type)
{
    if (type == kSCNetworkInterfaceTypeIEEE80211)
        return u"AirPort"_s;
    if (type == kSCNetworkInterfaceTypeFireWire)
        return u"FireWire"_s;
    return u"Ethernet"_s;
}

} // namespace VLANKit
