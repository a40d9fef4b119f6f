#include "VLANKit/values/HardwareSettings.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

QString HardwareSettings::summary() const
{
    QStringList parts;
    if (speed) {
        QStringList words{*speed};
        words.append(duplex);
        parts.append(words.join(u' '));
    }
    if (mtu)
        parts.append(u"MTU %1"_s.arg(*mtu));
    if (parts.isEmpty())
        return u"automatic"_s;
    return parts.join(u", "_s);
}

} // namespace VLANKit
