#include "VLANKit/values/IPMode.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

QString rawValue(IPMode mode)
{
    switch (mode) {
    case IPMode::dhcp:
        return u"DHCP"_s;
    case IPMode::manual:
        return u"Manual"_s;
    case IPMode::linkLocal:
        return u"LinkLocal"_s;
    case IPMode::off:
        return u"Off"_s;
    case IPMode::unknown:
        return u"Unknown"_s;
    }
    return u"Unknown"_s;
}

std::optional<IPMode> ipModeFromRaw(const QString &raw)
{
    for (IPMode mode : allIPModes) {
        if (rawValue(mode) == raw)
            return mode;
    }
    return std::nullopt;
}

} // namespace VLANKit
