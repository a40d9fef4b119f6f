#include "VLANKit/values/HardwareCapabilities.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace VLANKit {

std::optional<QString> HardwareCapabilities::problem(const HardwareSettings &settings) const
{
    if (settings.mtu && !mtuRange)
        return u"The frame size can't be set on this interface."_s;
    if (settings.mtu && !mtuRange->contains(*settings.mtu)) {
        return u"MTU %1 is outside what this interface takes (%2\u2013%3)."_s.arg(*settings.mtu)
            .arg(mtuRange->lower)
            .arg(mtuRange->upper);
    }
    if (!settings.speed)
        return std::nullopt;
    const QString &speed = *settings.speed;
    const auto offered = std::find_if(speeds.cbegin(), speeds.cend(),
                                      [&](const Speed &entry) { return entry.name == speed; });
    if (offered == speeds.cend())
        return u"This interface doesn't offer "_s + speed + u"."_s;
    if (offered->duplexes.contains(settings.duplex))
        return std::nullopt;
    const QString words =
        settings.duplex.isEmpty() ? u"no duplex"_s : settings.duplex.join(u", "_s);
    return u"This interface doesn't offer "_s + speed + u" with "_s + words + u"."_s;
}

} // namespace VLANKit
