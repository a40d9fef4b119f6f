#include "VLANKit/values/IPv6Mode.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

QString rawValue(IPv6Mode mode)
{
    switch (mode) {
    case IPv6Mode::automatic:
        return u"Automatic"_s;
    case IPv6Mode::linkLocal:
        return u"LinkLocal"_s;
    case IPv6Mode::manual:
        return u"Manual"_s;
    case IPv6Mode::off:
        return u"Off"_s;
    case IPv6Mode::unknown:
        return u"Unknown"_s;
    }
    return u"Unknown"_s;
}

QString label(IPv6Mode mode)
{
    switch (mode) {
    case IPv6Mode::automatic:
        return u"Automatic"_s;
    case IPv6Mode::linkLocal:
        return u"Link-local only"_s;
    case IPv6Mode::manual:
        return u"Manual"_s;
    case IPv6Mode::off:
        return u"Off"_s;
    case IPv6Mode::unknown:
        return u"\u2014"_s;
    }
    return u"\u2014"_s;
}

std::optional<IPv6Mode> ipv6ModeFromRaw(const QString &raw)
{
    for (IPv6Mode mode : allIPv6Modes()) {
        if (rawValue(mode) == raw)
            return mode;
    }
    return std::nullopt;
}

const QList<IPv6Mode> &allIPv6Modes()
{
    static const QList<IPv6Mode> modes{IPv6Mode::automatic, IPv6Mode::linkLocal, IPv6Mode::manual,
                                       IPv6Mode::off, IPv6Mode::unknown};
    return modes;
}

const QList<IPv6Mode> &settableIPv6Modes()
{
    static const QList<IPv6Mode> modes{IPv6Mode::automatic, IPv6Mode::linkLocal, IPv6Mode::off};
    return modes;
}

bool isSettable(IPv6Mode mode)
{
    return settableIPv6Modes().contains(mode);
}

} // namespace VLANKit
